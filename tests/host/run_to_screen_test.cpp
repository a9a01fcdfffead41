// A run whose pages show in the library's preview window.
#include "tests/support/tess_program.h"

namespace {

class RunToScreen : public Tess {
protected:
    RunToScreen() : log(folder.Path("screen.txt")) {}

    // Starts the run and waits until its preview stands with all pages.
    HWND Finished(const Running &tess) {
        const HWND window = tess.Window("RepClass32");
        EXPECT_TRUE(Comes([&] { return Holds(ReadWholeFile(log), "the preview is open"); }));
        return window;
    }
    std::string Arguments(const std::string &name) {
        return "run --form " + Build(name) + " --data " + Sample(name + ".csv") + " --to screen";
    }

    std::string log;
};

} // namespace

TEST_F(RunToScreen, PreviewStaysUntilTheUserClosesIt) {
    Running tess(Program(), Arguments("countries"), log);
    const HWND window = Finished(tess);
    ASSERT_NE(window, nullptr);
    PostMessageA(window, WM_CLOSE, 0, 0);
    const Outcome outcome = tess.Wait();
    EXPECT_EQ(outcome.code, 0u) << outcome.output;
}

TEST_F(RunToScreen, TitleTellsFormPageAndRecordsAndFollowsThePageOnView) {
    Running tess(Program(), Arguments("countries"), log);
    const HWND window = tess.Window("RepClass32");
    ASSERT_NE(window, nullptr);
    std::string title;
    const auto told = [&](const char *text) {
        char now[300] = "";
        GetWindowTextA(window, now, sizeof now);
        title = now;
        return title == text;
    };
    EXPECT_TRUE(Comes([&] { return told("countries.fp - page 1 of 3, 85 records"); })) << title;
    PostMessageA(window, WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 100), 0);
    EXPECT_TRUE(Comes([&] { return told("countries.fp - page 3 of 3, 85 records"); })) << title;
    PostMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(tess.Wait().code, 0u);
}

TEST_F(RunToScreen, EscapeLeavesThePreview) {
    Running tess(Program(), Arguments("airports"), log);
    const HWND window = Finished(tess);
    ASSERT_NE(window, nullptr);
    PostMessageA(window, WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_EQ(tess.Wait().code, 0u);
}

TEST_F(RunToScreen, PromptIsAnsweredBeforehand) {
    Running tess(Program(), Arguments("parks") + " --set MIN_ACRES=30000", log);
    const HWND window = Finished(tess);
    ASSERT_NE(window, nullptr);
    PostMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(tess.Wait().code, 0u);
}

TEST_F(RunToScreen, TakesNoOutputAndNoOtherTarget) {
    EXPECT_EQ(Run("run --form x --data y --to screen --output z").code, 2u);
    EXPECT_EQ(Run("run --form x --data y --to nowhere").code, 2u);
    EXPECT_EQ(Run("run --form x --data y").code, 2u);
}
