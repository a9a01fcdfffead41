// The clipboard between this process and another.
#include <gtest/gtest.h>

#include "commands.h"
#include "designer/clipboard.h"
#include "designer/designer_state.h"
#include "designer/picture_items.h"
#include "tests/support/clipboard_form.h"
#include "tests/support/other_process.h"

using namespace tessarine;

namespace {

void HoldTheClipboard() { OpenClipboard(nullptr); }

void PutABitmap() {
    const HDC screen = GetDC(nullptr);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 96, 48);
    ReleaseDC(nullptr, screen);
    OpenClipboard(nullptr);
    EmptyClipboard();
    SetClipboardData(CF_BITMAP, bitmap);
    CloseClipboard();
}

const OtherWork hold("hold-clipboard", HoldTheClipboard);
const OtherWork put("put-bitmap", PutABitmap);

using ClipboardProcesses = ClipboardForm;

} // namespace

TEST_F(ClipboardProcesses, ABitmapOfAnotherProcessBecomesAPicture) {
    Open();
    const OtherProcess other("put-bitmap");
    ASSERT_TRUE(other.Ready());
    ASSERT_EQ(PictureFromClipboard(session), 1) << boxes.LastText();
    const FontEntry &picture = session->form.Fonts[DesignerOf(session).NewPicture];
    EXPECT_EQ(+picture.PixelWidth, 96u);
    EXPECT_EQ(+picture.PixelHeight, 48u);
}

TEST_F(ClipboardProcesses, AClipboardThatAnotherProcessHoldsEndsCopyAndPicture) {
    Open();
    const OtherProcess other("hold-clipboard");
    ASSERT_TRUE(other.Ready());
    Copy(Row("Gamma"));
    EXPECT_EQ(PictureFromClipboard(session), 0);
    const BoxRecord in_use{"Not Available", "Clipboard in use by another application", {IDOK}};
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{in_use, in_use}));
    EXPECT_EQ(DesignerOf(session).ClipCount, 0);
}

TEST_F(ClipboardProcesses, AnotherProcessThatTakesTheClipboardGreysPasteAndOffersItsPicture) {
    Open();
    Copy(Row("Gamma"));
    OpenMenu();
    EXPECT_TRUE(MenuEnabled(COMMAND_PASTE));
    EXPECT_FALSE(MenuEnabled(COMMAND_PICTURE_PASTED));
    const OtherProcess other("put-bitmap");
    ASSERT_TRUE(other.Ready());
    OpenMenu();
    EXPECT_FALSE(MenuEnabled(COMMAND_PASTE));
    EXPECT_TRUE(MenuEnabled(COMMAND_PICTURE_PASTED));
    EXPECT_EQ(DesignerOf(session).ClipCount, 1);
}
