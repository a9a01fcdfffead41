#include "tests/support/dialog_driver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include <commdlg.h>

#include "tests/support/host_window.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

namespace {

// The system's own common dialogs over a host's window.
class CommonDialog : public testing::Test {
protected:
    HostWindow host;
    MessageBoxes boxes;
    TemporaryFolder folder;
};

// Wants an existing file's name, or a new one's; "" when it is cancelled.
std::string AskName(HWND owner, BOOL(WINAPI *ask)(OPENFILENAMEA *)) {
    char name[MAX_PATH] = "";
    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFile = name;
    dialog.nMaxFile = sizeof name;
    dialog.lpstrTitle = "Name";
    dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR;
    return ask(&dialog) ? name : "";
}

} // namespace

TEST_F(CommonDialog, FileDialogsTakeANameOrAreCancelled) {
    const std::string path = folder.Path("NAME.TXT");
    for (const auto ask : {GetSaveFileNameA, GetOpenFileNameA}) {
        boxes.AnswerDialog("Name", FILE_NAME, path, IDOK);
        EXPECT_EQ(AskName(host.Get(), ask), path);
        boxes.AnswerDialog("Name", IDCANCEL);
        EXPECT_EQ(AskName(host.Get(), ask), "");
    }
}

TEST_F(CommonDialog, FontDialogTakesFaceStyleAndSize) {
    LOGFONTA font{};
    std::strcpy(font.lfFaceName, "Arial");
    CHOOSEFONTA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = host.Get();
    dialog.lpLogFont = &font;
    dialog.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT;
    boxes.OnDialog("Font", [](DialogDriver box) {
        box.Select(FONT_FACE, "Courier New");
        box.Select(FONT_STYLE, "Bold");
        box.Select(FONT_SIZE, "24");
        box.Press(IDOK);
    });
    ASSERT_TRUE(ChooseFontA(&dialog));
    EXPECT_STREQ(font.lfFaceName, "Courier New");
    EXPECT_EQ(font.lfWeight, FW_BOLD);
    EXPECT_EQ(dialog.iPointSize, 240);
}

TEST_F(CommonDialog, ColorDialogTakesTheThreeParts) {
    COLORREF custom[16]{};
    CHOOSECOLORA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = host.Get();
    dialog.lpCustColors = custom;
    dialog.Flags = CC_FULLOPEN | CC_RGBINIT;
    boxes.OnDialog("Color", [](DialogDriver box) {
        box.SetText(CUSTOM_RED, "18");
        box.SetText(CUSTOM_GREEN, "52");
        box.SetText(CUSTOM_BLUE, "86");
        box.Press(IDOK);
    });
    ASSERT_TRUE(ChooseColorA(&dialog));
    EXPECT_EQ(dialog.rgbResult, RGB(18, 52, 86));
}

TEST_F(CommonDialog, PrinterSetUpTellsItsPrinterAndTakesTheOrientation) {
    PRINTDLGA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = host.Get();
    dialog.Flags = PD_PRINTSETUP;
    std::vector<std::string> printers;
    std::string chosen;
    boxes.OnDialog("Print Setup", [&](DialogDriver box) {
        printers = box.Rows(SETUP_PRINTER);
        chosen = box.Text(SETUP_PRINTER);
        EXPECT_FALSE(box.Rows(SETUP_PAPER).empty());
        box.Click(SETUP_LANDSCAPE);
        EXPECT_TRUE(box.Checked(SETUP_LANDSCAPE));
        EXPECT_FALSE(box.Checked(SETUP_PORTRAIT));
        box.Press(IDOK);
    });
    ASSERT_TRUE(PrintDlgA(&dialog));
    EXPECT_NE(std::find(printers.begin(), printers.end(), chosen), printers.end());
    const auto *mode = static_cast<DEVMODEA *>(GlobalLock(dialog.hDevMode));
    EXPECT_EQ(mode->dmOrientation, DMORIENT_LANDSCAPE);
    GlobalUnlock(dialog.hDevMode);
    GlobalFree(dialog.hDevMode);
    GlobalFree(dialog.hDevNames);
}
