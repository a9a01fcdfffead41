// Programs that are stopped at their console.
#include "tests/support/print_jobs.h"
#include "tests/support/tess_program.h"
#include "tests/support/window_driver.h"

namespace {

class Interrupt : public Tess {
protected:
    Interrupt() : title("stopped" + std::to_string(GetTickCount())), log(folder.Path("run.txt")) {}

    // The countries so many times over.
    std::string Table(int times) {
        const std::string text = ReadWholeFile(Sample("countries.csv"));
        const size_t rows = text.find('\n') + 1;
        std::string table = text;
        for (int time = 1; time < times; ++time) table += text.substr(rows);
        WriteWholeFile(folder.Path("c.csv"), table);
        return folder.Path("c.csv");
    }
    std::string Arguments(int times) {
        return "run --form " + BuildTitled("countries", title) + " --data " + Table(times);
    }
    // Jobs are printed in turn, so what isn't there before a later one was dropped.
    void ExpectNoJob() {
        const std::string stopped = title;
        title += "later";
        const Outcome later = Run(Arguments(1) + " --to printer");
        EXPECT_EQ(later.code, 0u) << later.output;
        EXPECT_FALSE(AwaitPrintedJob(title).empty());
        EXPECT_TRUE(PrintedJob(stopped).empty());
    }

    std::string title;
    std::string log;
};

constexpr int MANY = 600; // so that a program is far from its end, however slow the test is

} // namespace

TEST_F(Interrupt, RunToAFileEndsWithThreeAndLeavesNoFile) {
    const std::string report = folder.Path("c.frc");
    Running tess(Program(), Arguments(MANY) + " --output " + report, log, true);
    ASSERT_TRUE(tess.Says("500 of 51000 records"));
    EXPECT_EQ(Files("c.frc.*"), 2); // its part and the part's lock
    tess.Interrupt();
    const Outcome outcome = tess.Wait();
    EXPECT_EQ(outcome.code, 3u) << outcome.output;
    EXPECT_TRUE(Holds(outcome.output, "tess: stopped; no report was made")) << outcome.output;
    EXPECT_EQ(Files("c.frc*"), 0);
}

TEST_F(Interrupt, RunToThePrinterEndsWithThreeAndLeavesNoJob) {
    Running tess(Program(), Arguments(MANY) + " --to printer", log, true);
    ASSERT_TRUE(tess.Says("500 of 51000 records"));
    tess.Interrupt();
    const Outcome outcome = tess.Wait();
    EXPECT_EQ(outcome.code, 3u) << outcome.output;
    EXPECT_TRUE(Holds(outcome.output, "tess: stopped; no report was made")) << outcome.output;
    EXPECT_FALSE(Holds(outcome.output, "printed from")) << outcome.output;
    ExpectNoJob();
}

TEST_F(Interrupt, FinishedPreviewIsClosedWithThree) {
    Running tess(Program(), Arguments(1) + " --to screen", log, true);
    ASSERT_TRUE(tess.Says("the preview is open"));
    tess.Interrupt();
    const Outcome outcome = tess.Wait();
    EXPECT_EQ(outcome.code, 3u) << outcome.output;
    EXPECT_TRUE(Holds(outcome.output, "stopped")) << outcome.output;
}

TEST_F(Interrupt, PrintedReportEndsWithThreeAndLeavesNoJob) {
    const std::string report = folder.Path("c.frc");
    ASSERT_EQ(Run(Arguments(MANY) + " --silent --output " + report).code, 0u);
    Running tess(Program(), "print " + report, log, true);
    ASSERT_TRUE(tess.Says("\n10 of "));
    tess.Interrupt();
    const Outcome outcome = tess.Wait();
    EXPECT_EQ(outcome.code, 3u) << outcome.output;
    EXPECT_TRUE(Holds(outcome.output, "tess: stopped; the print job was dropped"))
        << outcome.output;
    ExpectNoJob();
}

TEST_F(Interrupt, PdfEndsWithThreeAndLeavesNoFile) {
    const std::string report = folder.Path("c.frc");
    const std::string pdf = folder.Path("c.pdf");
    ASSERT_EQ(Run(Arguments(MANY) + " --silent --output " + report).code, 0u);
    Running tess(Program(), "pdf " + report + " " + pdf, log, true);
    ASSERT_TRUE(tess.Says("\n10 of "));
    tess.Interrupt();
    const Outcome outcome = tess.Wait();
    EXPECT_EQ(outcome.code, 3u) << outcome.output;
    EXPECT_EQ(Files("c.pdf*"), 0);
}

TEST_F(Interrupt, DesignerOfAnUnchangedFormIsClosedWithThree) {
    Running tess(Program(), "design " + Build("countries"), log, true);
    ASSERT_NE(tess.Window("FrClass32"), nullptr);
    tess.Interrupt();
    const Outcome outcome = tess.Wait();
    EXPECT_EQ(outcome.code, 3u) << outcome.output;
    EXPECT_TRUE(Holds(outcome.output, "stopped")) << outcome.output;
}

TEST_F(Interrupt, DesignerOfAChangedFormAsksFirst) {
    constexpr WPARAM NEW_LINE = 660;
    Running tess(Program(), "design " + Build("countries"), log, true);
    const HWND window = tess.Window("FrClass32");
    ASSERT_NE(window, nullptr);
    SendMessageA(window, WM_COMMAND, NEW_LINE, 0);
    SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(300, 100));
    tess.Interrupt();
    const HWND question = tess.Window("#32770");
    ASSERT_NE(question, nullptr);
    EXPECT_EQ(WindowText(question), "File Modified");
    PostMessageA(question, WM_COMMAND, IDNO, 0);
    EXPECT_EQ(tess.Wait().code, 3u);
}
