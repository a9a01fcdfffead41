// What a command may write over, and what becomes of what it began.
#include <memory>
#include <vector>

#include "tests/support/page_texts.h"
#include "tests/support/tess_program.h"

namespace {

class Outputs : public Tess {
protected:
    // A command that would write what it reads is refused, names both, and leaves all as it was.
    void ExpectRefused(const std::string &command, const std::string &output,
                       const std::string &input) {
        const std::string before = ReadWholeFile(input);
        ASSERT_FALSE(before.empty());
        const Outcome outcome = Run(command);
        EXPECT_EQ(outcome.code, 2u) << command << "\n" << outcome.output;
        EXPECT_TRUE(Holds(outcome.output, output + ": is the same file as " + input))
            << outcome.output;
        EXPECT_TRUE(ReadWholeFile(input) == before) << command;
        EXPECT_EQ(Files("*.part*"), 0);
    }
    // Runs of one temporary folder could meet there.
    std::unique_ptr<Running> Start(const std::string &name, const std::string &arguments) {
        char usual[MAX_PATH] = "";
        GetEnvironmentVariableA("TMP", usual, sizeof usual);
        CreateDirectoryA(folder.Path(name).c_str(), nullptr);
        SetEnvironmentVariableA("TMP", folder.Path(name).c_str());
        auto run = std::make_unique<Running>(Program(), arguments, folder.Path(name + ".txt"));
        SetEnvironmentVariableA("TMP", *usual ? usual : nullptr);
        return run;
    }
    // The countries over and over, in a table of this many times the rows.
    std::string Table(const std::string &name, int times) {
        const std::string text = ReadWholeFile(Sample("countries.csv"));
        const size_t rows = text.find('\n') + 1;
        std::string table = text;
        for (int time = 1; time < times; ++time) table += text.substr(rows);
        WriteWholeFile(folder.Path(name), table);
        return folder.Path(name);
    }
};

// Runs into one report at once: all end well, and it is the whole report of one of them.
class RunsAtOnce : public Outputs, public testing::WithParamInterface<int> {};

} // namespace

// ---- output over input -------------------------------------------------------------------------

TEST_F(Outputs, RunOverItsTableOrItsFormIsRefused) {
    const std::string form = Build("countries");
    const std::string data = Table("c.csv", 1);
    const std::string run = "run --form " + form + " --data " + data + " --output ";
    ExpectRefused(run + data, data, data);
    ExpectRefused(run + form, form, form);
}

TEST_F(Outputs, SpellingOfAPathDoesntHideTheFile) {
    const std::string form = Build("countries");
    const std::string data = Table("countries of the world.csv", 1);
    const std::string run = "run --form " + form + " --data \"" + data + "\" --output ";
    char current[MAX_PATH] = "";
    GetCurrentDirectoryA(sizeof current, current);
    SetCurrentDirectoryA(folder.Root().c_str());
    ExpectRefused(run + "\"countries of the world.csv\"", "countries of the world.csv", data);
    SetCurrentDirectoryA(current);
    const std::string upper = folder.Path("COUNTRIES OF THE WORLD.CSV");
    ExpectRefused(run + "\"" + upper + "\"", upper, data);
    const std::string around = folder.Root() + "\\.\\countries of the world.csv";
    ExpectRefused(run + "\"" + around + "\"", around, data);
    char brief[MAX_PATH] = "";
    ASSERT_GT(GetShortPathNameA(data.c_str(), brief, sizeof brief), 0u);
    ExpectRefused(run + "\"" + std::string(brief) + "\"", brief, data);
}

TEST_F(Outputs, SecondNameOfAFileDoesntHideIt) {
    const std::string form = Build("countries");
    const std::string data = Table("c.csv", 1);
    const std::string other = folder.Path("other.csv");
    ASSERT_TRUE(CreateHardLinkA(other.c_str(), data.c_str(), nullptr));
    ExpectRefused("run --form " + form + " --data " + data + " --output " + other, other, data);
}

TEST_F(Outputs, NamesBeyondAsciiAreToldAsTheyAre) {
    const std::string form = Build("countries");
    const std::string data = Table("l\xE4nder.csv", 1);
    ExpectRefused("run --form " + form + " --data " + data + " --output " + data, data, data);
}

TEST_F(Outputs, EveryCommandThatWritesSparesWhatItReads) {
    ASSERT_EQ(Report("countries").code, 0u);
    const std::string report = folder.Path("countries.frc");
    const std::string form = folder.Path("countries.fp");
    ExpectRefused("pdf " + report + " " + report, report, report);
    ExpectRefused("form dump " + form + " " + form, form, form);
    const std::string json = folder.Path("c.json");
    WriteWholeFile(json, ReadWholeFile(Sample("countries.json")));
    ExpectRefused("form build " + json + " " + json, json, json);
    const std::string page = folder.Path("page-001.png");
    WriteWholeFile(page, ReadWholeFile(report));
    ExpectRefused("pages " + page + " --png " + folder.Root(), page, page);
}

TEST_F(Outputs, FormDoesntTakeThePlaceOfItsPicture) {
    const std::string json = folder.Path("p.json");
    const std::string picture = folder.Path("parks.bmp");
    WriteWholeFile(json, ReadWholeFile(Sample("parks.json")));
    WriteWholeFile(picture, ReadWholeFile(Sample("parks.bmp")));
    ExpectRefused("form build " + json + " " + picture, picture, picture);
}

// ---- runs at once ------------------------------------------------------------------------------

TEST_P(RunsAtOnce, LastWholeReportStays) {
    const std::string form = Build("countries");
    const std::string report = folder.Path("c.frc");
    std::vector<std::unique_ptr<Running>> runs;
    for (int number = 1; number <= GetParam(); ++number) {
        const std::string name = std::to_string(number);
        runs.push_back(Start(name, "run --form " + form + " --data " +
                                       Table(name + ".csv", 120 + number) + " --output " + report));
        ASSERT_TRUE(runs.back()->Says("500 of "));
    }
    for (const auto &run : runs) {
        const Outcome outcome = run->Wait();
        EXPECT_EQ(outcome.code, 0u) << outcome.output;
    }
    const std::string bytes = ReadWholeFile(report);
    const ReportFileHeader header = HeaderOf(bytes);
    EXPECT_EQ(header.RecordCount % 85, 0);
    EXPECT_GT(header.RecordCount, 120 * 85);
    const std::vector<std::string> pages = PagesOf(bytes);
    EXPECT_EQ(pages.size(), static_cast<size_t>(header.PageCount));
    for (const std::string &page : pages) {
        bool sound = false;
        EXPECT_FALSE(TextsOf(page, &sound).empty());
        EXPECT_TRUE(sound);
    }
    EXPECT_EQ(Files("*.part*"), 0);
}

INSTANTIATE_TEST_SUITE_P(TwoAndEight, RunsAtOnce, testing::Values(2, 8));

TEST_F(Outputs, EachRunTellsItsOwnRecords) {
    const std::string form = Build("countries");
    const std::string run = "run --form " + form + " --output " + folder.Path("c.frc") + " --data ";
    const std::string first = run + Table("1.csv", 30);
    const auto slow = Start("slow", first);
    const Outcome quick = Run(run + Table("2.csv", 1));
    EXPECT_TRUE(Holds(quick.output, " 85 records")) << quick.output;
    EXPECT_TRUE(Holds(slow->Wait().output, " 2550 records"));
}

TEST_F(Outputs, WhatAKilledRunLeftGoesWithTheNextRunAndNothingElse) {
    const std::string form = Build("countries");
    const std::string report = folder.Path("c.frc");
    const std::string run = "run --form " + form + " --output " + report + " --data ";
    const std::string mine = folder.Path("c.frc.not-part.part");
    WriteWholeFile(mine, "mine");
    {
        const auto killed = Start("killed", run + Table("many.csv", 600));
        ASSERT_TRUE(killed->Says("500 of 51000 records"));
        EXPECT_EQ(Files("c.frc.????????.part"), 2); // its own and mine
    }
    ASSERT_TRUE(Comes([&] { return Files("*.lock") == 0; }));
    EXPECT_EQ(Files("c.frc.????????.part"), 2);
    const auto other = Start("other", run + folder.Path("many.csv"));
    ASSERT_TRUE(other->Says("500 of 51000 records"));
    const Outcome outcome = Run(run + Table("one.csv", 1));
    EXPECT_EQ(outcome.code, 0u) << outcome.output;
    EXPECT_EQ(Files("c.frc.????????.part"), 2); // of the one that still runs, and mine
    EXPECT_EQ(ReadWholeFile(mine), "mine");
}

// ---- nothing selected --------------------------------------------------------------------------

TEST_F(Outputs, EarlierReportGoesWhenNoRecordIsSelected) {
    ASSERT_EQ(Report("parks", "--set MIN_ACRES=0").code, 0u);
    const std::string report = folder.Path("parks.frc");
    Outcome outcome = Report("parks", "--set MIN_ACRES=999999999");
    EXPECT_EQ(outcome.code, 0u) << outcome.output;
    EXPECT_TRUE(
        Holds(outcome.output, "no record was selected, so there is no report; the earlier " +
                                  report + " was removed"))
        << outcome.output;
    EXPECT_EQ(GetFileAttributesA(report.c_str()), INVALID_FILE_ATTRIBUTES);
    outcome = Report("parks", "--set MIN_ACRES=999999999");
    EXPECT_EQ(outcome.code, 0u) << outcome.output;
    EXPECT_FALSE(Holds(outcome.output, "was removed")) << outcome.output;
}

TEST_F(Outputs, EarlierReportThatCannotBeRemovedFailsTheRun) {
    ASSERT_EQ(Report("parks", "--set MIN_ACRES=0").code, 0u);
    const std::string report = folder.Path("parks.frc");
    const HANDLE held = CreateFileA(report.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    const Outcome outcome = Report("parks", "--set MIN_ACRES=999999999");
    CloseHandle(held);
    EXPECT_EQ(outcome.code, 1u) << outcome.output;
    EXPECT_TRUE(Holds(outcome.output, report + ": can't be removed: ")) << outcome.output;
}
