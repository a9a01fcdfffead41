// Runs straight to the printer. What the printed pages show is tests/tools/run_to_printer.sh's.
#include <filesystem>

#include "tests/support/print_jobs.h"
#include "tests/support/tess_program.h"

namespace {

class RunToPrinter : public Tess {
protected:
    RunToPrinter() : title("printed" + std::to_string(GetTickCount())) {}

    std::string Titled(const std::string &name, const std::string &part = "",
                       const std::string &other = "") {
        return BuildTitled(name, title, part, other);
    }
    Outcome Print(const std::string &form, const std::string &table, const std::string &more = "") {
        return Run("run --form " + form + " --data " + Sample(table) + " --to printer " + more);
    }

    std::string title;
};

} // namespace

TEST_F(RunToPrinter, TellsPrinterPagesAndRecordsAtTheEnd) {
    const Outcome outcome = Print(Titled("countries"), "countries.csv");
    EXPECT_EQ(outcome.code, 0u);
    EXPECT_TRUE(Holds(outcome.output, "PDF: 3 pages printed from 85 records")) << outcome.output;
    EXPECT_FALSE(AwaitPrintedJob(title).empty());
}

TEST_F(RunToPrinter, SilentOneSaysNothing) {
    const Outcome outcome = Print(Titled("countries"), "countries.csv", "--silent");
    EXPECT_EQ(outcome.code, 0u);
    EXPECT_EQ(outcome.output, "");
    EXPECT_FALSE(AwaitPrintedJob(title).empty());
}

TEST_F(RunToPrinter, UnknownPrinterIsWrongUsageAndTheKnownOnesAreListed) {
    const Outcome outcome = Print(Build("countries"), "countries.csv", "--printer nope");
    EXPECT_EQ(outcome.code, 2u);
    EXPECT_TRUE(Holds(outcome.output, "--printer nope: there is no such printer; known are: PDF"))
        << outcome.output;
}

TEST_F(RunToPrinter, UnknownPaperIsWrongUsageAndThePrintersOwnAreListed) {
    const Outcome outcome = Print(Build("countries"), "countries.csv", "--paper nope");
    EXPECT_EQ(outcome.code, 2u);
    EXPECT_TRUE(Holds(outcome.output, "--paper nope: PDF has no such paper; known are: Letter, "))
        << outcome.output;
}

TEST_F(RunToPrinter, NoSelectedRecordPrintsNothing) {
    WriteWholeFile(folder.Path("parks.bmp"), ReadWholeFile(Sample("parks.bmp")));
    const Outcome outcome = Print(Titled("parks"), "parks.csv", "--set MIN_ACRES=900000000");
    EXPECT_EQ(outcome.code, 0u);
    EXPECT_TRUE(Holds(outcome.output, "no record was selected")) << outcome.output;
    EXPECT_FALSE(Holds(outcome.output, "printed from")) << outcome.output;
    const std::string unprinted = title;
    title += "later"; // jobs are printed in turn
    EXPECT_EQ(Print(Titled("countries"), "countries.csv").code, 0u);
    EXPECT_FALSE(AwaitPrintedJob(title).empty());
    EXPECT_TRUE(PrintedJob(unprinted).empty());
}

TEST_F(RunToPrinter, TakesNoOutput) {
    EXPECT_EQ(Run("run --form x --data y --to printer --output z").code, 2u);
}

TEST_F(RunToPrinter, CopyOfTheFormForAnotherPaperDoesNotStay) {
    const auto files = [] {
        char folder[MAX_PATH] = "";
        GetTempPathA(sizeof folder, folder);
        size_t count = 0;
        for (const auto &file : std::filesystem::directory_iterator(folder))
            count += file.is_regular_file();
        return count;
    };
    const std::string form = Titled("countries");
    const size_t before = files();
    EXPECT_EQ(Print(form, "countries.csv", "--landscape").code, 0u);
    EXPECT_EQ(Print(form, "parks.csv", "--landscape").code, 1u);
    EXPECT_EQ(files(), before);
}

TEST_F(RunToPrinter, MissingPrinterOfTheFormIsARemarkAndTheDefaultOnePrints) {
    const std::string form =
        Titled("countries", "\"left margin\"",
               "\"printer\": \"Old Laser\", \"printer driver\": \"LASER.DRV\", \"left margin\"");
    const Outcome outcome = Print(form, "countries.csv");
    EXPECT_EQ(outcome.code, 0u);
    EXPECT_TRUE(Holds(outcome.output, "countries.fp: its printer \"Old Laser\" isn't on this "
                                      "machine; \"PDF\" takes its place"))
        << outcome.output;
    EXPECT_TRUE(Holds(outcome.output, "PDF: 3 pages")) << outcome.output;
    EXPECT_FALSE(AwaitPrintedJob(title).empty());
    const Outcome named = Print(form, "countries.csv", "--printer PDF");
    EXPECT_EQ(named.code, 0u);
    EXPECT_FALSE(Holds(named.output, "Old Laser")) << named.output;
}

TEST_F(RunToPrinter, MissingFontOfTheFormIsARemarkAndAnotherStandsIn) {
    const std::string form = Titled("countries", "\"name\": \"title\", \"face\": \"Arial\"",
                                    "\"name\": \"title\", \"face\": \"Zebra Stripes\"");
    const Outcome outcome = Print(form, "countries.csv");
    EXPECT_EQ(outcome.code, 0u);
    EXPECT_TRUE(Holds(outcome.output, "countries.fp: its font \"Zebra Stripes\" isn't on this "
                                      "machine; \""))
        << outcome.output;
    EXPECT_FALSE(Holds(outcome.output, "\"Arial\" isn't")) << outcome.output;
    EXPECT_TRUE(Holds(outcome.output, "PDF: 3 pages")) << outcome.output;
    EXPECT_FALSE(AwaitPrintedJob(title).empty());
}
