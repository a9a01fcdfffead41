// What a machine without printers tells.
#include "tests/support/no_printers.h"
#include "tests/support/tess_program.h"

namespace {

class NoPrinterAtAll : public Tess {
protected:
    void ExpectRefused(const std::string &arguments) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.code, 1u) << arguments;
        EXPECT_TRUE(Holds(outcome.output, "there is no printer on this machine, and pages are laid "
                                          "out for one; add a printer in the system's settings"))
            << arguments << ": " << outcome.output;
    }
};

} // namespace

TEST_F(NoPrinterAtAll, RunToAnyDeviceSaysSoAndMakesNothing) {
    const std::string output = folder.Path("c.frc");
    const std::string run =
        "run --form " + Build("countries") + " --data " + Sample("countries.csv");
    const NoPrinters none;
    ExpectRefused(run + " --output " + output);
    ExpectRefused(run + " --to printer");
    ExpectRefused(run + " --to screen");
    EXPECT_EQ(GetFileAttributesA(output.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(Files("*.part*"), 0);
}

TEST_F(NoPrinterAtAll, FinishedReportIsNeitherPrintedNorMadeAPdf) {
    ASSERT_EQ(Report("countries").code, 0u);
    const std::string report = folder.Path("countries.frc");
    const std::string pdf = folder.Path("c.pdf");
    const NoPrinters none;
    ExpectRefused("print " + report);
    const Outcome outcome = Run("pdf " + report + " " + pdf);
    EXPECT_EQ(outcome.code, 1u);
    EXPECT_TRUE(Holds(outcome.output, "there is no printer that makes PDF files; add one whose "
                                      "name holds PDF, or name it with --printer"))
        << outcome.output;
    EXPECT_EQ(GetFileAttributesA(pdf.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(NoPrinterAtAll, FinishedReportIsStillDrawnAndListed) {
    ASSERT_EQ(Report("countries").code, 0u);
    const std::string report = folder.Path("countries.frc");
    const NoPrinters none;
    EXPECT_EQ(Run("pages " + report + " --png " + folder.Path("pages")).code, 0u);
    EXPECT_EQ(Run("pages " + report + " --text").code, 0u);
}

TEST_F(NoPrinterAtAll, ListOfPrintersIsEmptyUntilTheyAreBack) {
    {
        const NoPrinters none;
        const Outcome outcome = Run("printers");
        EXPECT_TRUE(Holds(outcome.output, "there is no printer on this machine")) << outcome.output;
    }
    EXPECT_TRUE(Holds(Run("printers").output, "* PDF"));
}
