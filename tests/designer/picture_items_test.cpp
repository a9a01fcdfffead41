#include "designer/picture_items.h"

#include <gtest/gtest.h>

#include <vector>

#include "commands.h"
#include "designer/delete_item.h"
#include "designer/designer_state.h"
#include "designer/placement.h"
#include "frame/memory.h"
#include "tests/support/bitmaps.h"
#include "tests/support/clipboard_form.h"
#include "tests/support/failing_call.h"
#include "tests/support/item_order.h"
#include "tests/support/system_objects.h"

using namespace tessarine;

namespace {

constexpr const char *DIALOG = "Bitmap File Name Selection";

template <typename Record> std::string Bytes(const Record &record) {
    return {reinterpret_cast<const char *>(&record), sizeof record};
}

std::string FileOf(const std::string &info, const std::string &bits) {
    BITMAPFILEHEADER header{};
    header.bfType = 19778;
    header.bfOffBits = static_cast<DWORD>(sizeof header + info.size());
    header.bfSize = static_cast<DWORD>(header.bfOffBits + bits.size());
    return Bytes(header) + info + bits;
}

std::string SampleFile(int depth = 24) {
    const SampleBitmap sample(depth, BI_RGB);
    return FileOf(sample.info, sample.bits);
}

// The sample with another number of 4 bytes in the file.
std::string With(size_t place, DWORD value) {
    return SampleFile().replace(place, sizeof value, Bytes(value));
}
constexpr size_t OFF_BITS = 10;
constexpr size_t INFO_SIZE = 14;

class PictureItems : public ClipboardForm {
protected:
    // The open dialog gets these paths in turn, and then Cancel.
    void Choose(const std::vector<std::string> &paths) {
        boxes.OnDialog(DIALOG, [this, paths](HWND dialog) {
            const DialogDriver driver(dialog);
            const size_t turn = static_cast<size_t>(asked++);
            if (turn < paths.size()) driver.SetText(FILE_NAME, paths[turn]);
            driver.Press(turn < paths.size() ? IDOK : IDCANCEL);
        });
    }
    std::string PutFile(const std::string &bytes) {
        const std::string path = folder.Path("P" + std::to_string(++files_) + ".BMP");
        WriteWholeFile(path, bytes);
        return path;
    }
    // 1 or 0 of a file of these bytes; a second dialog is cancelled.
    int Take(const std::string &bytes) {
        asked = 0;
        Choose({PutFile(bytes)});
        return PictureFromFile(session);
    }
    FontEntry &Picture() { return session->form.Fonts[DesignerOf(session).NewPicture]; }
    int PictureRows() const {
        int count = 0;
        for (int row = 0; row < MAX_FONTS; ++row)
            count += session->form.Fonts[row].InUse && session->form.Fonts[row].IsPicture;
        return count;
    }
    void FillFontTable() {
        session->form.FontCount = MAX_FONTS;
        for (int row = 0; row < MAX_FONTS; ++row) {
            session->form.Fonts[row].InUse = 1;
            session->form.Fonts[row].LogFont.lfHeight = -41 - row;
        }
        ItemRecord *items = session->form.Items;
        while (session->form.TotalItems < 40) {
            items[session->form.TotalItems] = Item("Gamma");
            ++session->form.TotalItems;
        }
        for (int row = 0; row < session->form.TotalItems; ++row)
            if (items[row].ItemType == ITEM_LABEL)
                items[row].FontIndex = static_cast<int16_t>(row % MAX_FONTS);
    }
    void PutBitmap(int width, int height) {
        const HDC screen = GetDC(nullptr);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
        ReleaseDC(nullptr, screen);
        ASSERT_TRUE(OpenClipboard(host.Get()));
        EmptyClipboard();
        SetClipboardData(CF_BITMAP, bitmap);
        CloseClipboard();
    }

    int asked = 0;

private:
    int files_ = 0;
};

} // namespace

TEST_F(PictureItems, ABitmapOnTheClipboardBecomesARow) {
    Open();
    PutBitmap(96, 48);
    ASSERT_EQ(PictureFromClipboard(session), 1);
    EXPECT_EQ(+Picture().InUse, 1u);
    EXPECT_EQ(+Picture().IsPicture, 1u);
    EXPECT_EQ(+Picture().PixelWidth, 96u);
    EXPECT_EQ(+Picture().PixelHeight, 48u);
    EXPECT_EQ(Picture().CharWidth[0], MulDiv(96, 250, session->drawing.LogPixelsX));
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
}

TEST_F(PictureItems, APictureIsNoLargerThanAFormFileHolds) {
    Open();
    PutBitmap(100000, 1);
    ASSERT_EQ(PictureFromClipboard(session), 1);
    EXPECT_EQ(+Picture().PixelWidth, 100000u);
    EXPECT_EQ(+Picture().PointWidth, 65535u);
}

TEST_F(PictureItems, AClipboardWithoutABitmapIsTold) {
    Open();
    EXPECT_EQ(PictureFromClipboard(session), 0);
    EXPECT_EQ(boxes.Log(),
              (std::vector<BoxRecord>{
                  {"Not Available", "Clipboard does not contain a Picture Bitmap Data", {IDOK}}}));
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
}

TEST_F(PictureItems, AClipboardInUseIsTold) {
    Open();
    PutBitmap(8, 8);
    {
        const ClipboardHolder holder;
        EXPECT_EQ(PictureFromClipboard(session), 0);
    }
    EXPECT_EQ(boxes.Log(),
              (std::vector<BoxRecord>{
                  {"Not Available", "Clipboard in use by another application", {IDOK}}}));
    EXPECT_EQ(PictureRows(), 0);
}

TEST_F(PictureItems, AFullTableClosesTheClipboard) {
    Open();
    PutBitmap(8, 8);
    FillFontTable();
    EXPECT_EQ(PictureFromClipboard(session), 0);
    EXPECT_EQ(boxes.LastText(), "Ran Out of Font/Picture Table");
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
}

TEST_F(PictureItems, EachFailingAllocationOfAClipboardsPictureLeavesNoRow) {
    Open();
    PutBitmap(8, 8);
    const int blocks = LiveBlocks();
    int number = 1;
    for (;; ++number) {
        FailAllocation(number);
        const int made = PictureFromClipboard(session);
        FailAllocation(0);
        EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
        if (made) break;
        EXPECT_EQ(PictureRows(), 0);
        EXPECT_EQ(LiveBlocks(), blocks);
    }
    EXPECT_EQ(number, 3); // information and bits
}

TEST_F(PictureItems, ABitmapThatCantBeRestoredLeavesNoRow) {
    Open();
    PutBitmap(8, 8);
    const int blocks = LiveBlocks();
    const FailingCall failing("CreateBitmap", CreateBitmap, nullptr);
    EXPECT_EQ(PictureFromClipboard(session), 0);
    EXPECT_EQ(boxes.LastText(), "Error Creating the Bitmap");
    EXPECT_EQ(PictureRows(), 0);
    EXPECT_EQ(LiveBlocks(), blocks);
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
}

TEST_F(PictureItems, FilesOfEveryDepthAndCompressionBecomeRows) {
    Open();
    for (const SampleBitmap &sample : AllSampleBitmaps()) {
        ASSERT_EQ(Take(FileOf(sample.info, sample.bits)), 1) << sample.name;
        EXPECT_EQ(+Picture().PixelWidth, 4u) << sample.name;
        EXPECT_EQ(+Picture().PixelHeight, 2u) << sample.name;
        EXPECT_EQ(+Picture().PointWidth, 4u * 72 / session->drawing.LogPixelsX);
        EXPECT_EQ(+Picture().InfoSize, sample.info.size());
        EXPECT_EQ(+Picture().BitsSize, sample.bits.size());
    }
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(PictureItems, CancelInTheOpenDialogTakesNothing) {
    Open();
    Choose({});
    EXPECT_EQ(PictureFromFile(session), 0);
    EXPECT_EQ(PictureRows(), 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(PictureItems, AFileThatIsNoneLetsTheUserChooseAgain) {
    Open();
    SampleBitmap sample(8, BI_RGB);
    std::string other = SampleFile();
    other[0] = 'X';
    Choose({folder.Path("NONE.BMP"), PutFile("BM"), PutFile(""), PutFile(other),
            PutFile(FileOf(sample.info, sample.bits))});
    EXPECT_EQ(PictureFromFile(session), 1);
    EXPECT_EQ(asked, 5);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Cannot Open the Bitmap File", {IDOK}},
                                                   {"", "Cannot Read the Bitmap File", {IDOK}},
                                                   {"", "Cannot Read the Bitmap File", {IDOK}},
                                                   {"", "Invalid Bitmap File", {IDOK}}}));
}

TEST_F(PictureItems, AFileThatAnotherHasToItselfCantBeOpened) {
    Open();
    const std::string path = PutFile(SampleFile());
    const HANDLE held =
        CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    Choose({path});
    EXPECT_EQ(PictureFromFile(session), 0);
    CloseHandle(held);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Cannot Open the Bitmap File"});
}

TEST_F(PictureItems, AFileThatOthersWorkOnIsRead) {
    Open();
    const std::string path = PutFile(SampleFile());
    const HANDLE held =
        CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    Choose({path});
    EXPECT_EQ(PictureFromFile(session), 1);
    CloseHandle(held);
}

TEST_F(PictureItems, BadFilesAreRefusedAndLeaveNothing) {
    Open();
    constexpr const char *MEMORY = "Ran Out of Memory";
    constexpr const char *FORMAT = "Unrecognized Bitmap File Format!";
    const std::string sample = SampleFile();
    struct Case {
        const char *name;
        std::string bytes;
        const char *text;
    };
    const Case cases[] = {
        {"bits begin in the header", With(OFF_BITS, 13), MEMORY},
        {"bits begin behind the header", With(OFF_BITS, 14), MEMORY},
        {"no place for the size", With(OFF_BITS, 16), FORMAT},
        {"a cut information block", With(OFF_BITS, 53), FORMAT},
        {"bits begin behind the end", With(OFF_BITS, 1000), MEMORY},
        {"bits begin far behind the end", With(OFF_BITS, 0xFFFFFFFF), MEMORY},
        {"an old information block", With(INFO_SIZE, 12), FORMAT},
        {"a newer information block", With(INFO_SIZE, 124), FORMAT},
        {"the file's header alone", sample.substr(0, 14), MEMORY},
        {"no bits", sample.substr(0, 54), MEMORY},
        {"bits cut short", sample.substr(0, sample.size() - 1), FORMAT},
        {"no width", With(INFO_SIZE + 4, 0), FORMAT},
        {"a huge width", With(INFO_SIZE + 4, 0x7FFFFFFF), FORMAT},
        {"a huge height", With(INFO_SIZE + 8, 0x80000000), FORMAT},
        {"an unknown compression", With(INFO_SIZE + 16, 4), FORMAT},
        {"more colours than stand there", With(INFO_SIZE + 32, 0x40000000), FORMAT},
    };
    const int blocks = LiveBlocks();
    for (const Case &row : cases) {
        boxes.Clear();
        EXPECT_EQ(Take(row.bytes), 0) << row.name;
        EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", row.text, {IDOK}}})) << row.name;
        EXPECT_EQ(asked, 1) << row.name;
        EXPECT_EQ(PictureRows(), 0) << row.name;
        EXPECT_EQ(LiveBlocks(), blocks) << row.name;
    }
}

TEST_F(PictureItems, AnInformationBlockOfAnotherSizeIsRefusedAfterTheFileWasReadIn) {
    Open();
    Choose({PutFile(With(INFO_SIZE, 64))});
    const FailingCall reads("ReadFile", ReadFile, FALSE, EVERY_CALL);
    EXPECT_EQ(PictureFromFile(session), 0);
    EXPECT_EQ(boxes.LastText(), "Unrecognized Bitmap File Format!");
    EXPECT_EQ(reads.Seen(), 3); // header, information, bits
}

TEST_F(PictureItems, AFailedReadBehindTheHeaderIsALackOfMemory) {
    Open();
    for (const int number : {2, 3}) {
        asked = 0;
        Choose({PutFile(SampleFile())});
        const FailingCall failing("ReadFile", ReadFile, FALSE, number);
        EXPECT_EQ(PictureFromFile(session), 0);
        EXPECT_EQ(boxes.LastText(), "Ran Out of Memory");
        EXPECT_EQ(PictureRows(), 0);
    }
}

TEST_F(PictureItems, EachFailingAllocationOfAFilesPictureLeavesNoRow) {
    Open();
    const int blocks = LiveBlocks();
    for (const int number : {1, 2}) {
        boxes.Clear();
        FailAllocation(number);
        EXPECT_EQ(Take(SampleFile()), 0);
        FailAllocation(0);
        EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Ran Out of Memory", {IDOK}}}));
        EXPECT_EQ(PictureRows(), 0);
        EXPECT_EQ(LiveBlocks(), blocks);
    }
}

TEST_F(PictureItems, AFullTableAsksForNoFile) {
    Open();
    FillFontTable();
    Choose({});
    EXPECT_EQ(PictureFromFile(session), 0);
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Ran Out of Font/Picture Table"});
}

TEST_F(PictureItems, ARowThatIsTakenUnderTheDialogIsLeftAlone) {
    Open();
    const std::string path = PutFile(SampleFile());
    int taken = 0;
    boxes.OnDialog(DIALOG, [&](HWND dialog) {
        taken = session->form.FontCount - 1;
        session->form.Fonts[taken].InUse = 1;
        DialogDriver(dialog).SetText(FILE_NAME, path);
        DialogDriver(dialog).Press(IDOK);
    });
    EXPECT_EQ(PictureFromFile(session), 1);
    EXPECT_NE(DesignerOf(session).NewPicture, taken);
    EXPECT_EQ(+session->form.Fonts[taken].IsPicture, 0u);
}

TEST_F(PictureItems, APlacementThatTheHostBeganUnderTheDialogGoesOn) {
    Open();
    const std::string path = PutFile(SampleFile());
    boxes.OnDialog(DIALOG, [&](HWND dialog) {
        BeginLine(session);
        DialogDriver(dialog).SetText(FILE_NAME, path);
        DialogDriver(dialog).Press(IDOK);
    });
    BeginPicture(session, COMMAND_PICTURE_FILE);
    EXPECT_EQ(DesignerOf(session).PendingCommand, COMMAND_NEW_LINE);
    EXPECT_EQ(PictureRows(), 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(PictureItems, ManyPicturesComeAndGoAndNothingGrows) {
    Open();
    PutBitmap(32, 32);
    const int blocks = LiveBlocks();
    const int objects = CountGdiObjects();
    for (int turn = 0; turn < 50; ++turn) {
        ASSERT_EQ(PictureFromClipboard(session), 1);
        PlacePicture(session);
        DeleteItem(session);
    }
    EXPECT_EQ(PictureRows(), 0);
    EXPECT_EQ(LiveBlocks(), blocks);
    EXPECT_LE(CountGdiObjects(), objects + 2);
}

// ---- the placement ----------------------------------------------------------------------------

TEST_F(PictureItems, ThePicturesSizeFollowsThePointerAndAPressPutsItDown) {
    Open();
    PutBitmap(96, 48);
    ClipboardForm::Choose(Row("Alpha"));
    BeginPicture(session, COMMAND_PICTURE_PASTED);
    const Designer &designer = DesignerOf(session);
    EXPECT_EQ(designer.PendingCommand, COMMAND_PICTURE_PASTED);
    EXPECT_EQ(designer.FocusRect.right - designer.FocusRect.left, Picture().CharWidth[0]);
    EXPECT_EQ(designer.FocusRect.bottom - designer.FocusRect.top,
              static_cast<LONG>(Picture().Height));
    MoveTo(700, 250);
    PressAt(700, 250);
    ReleaseAt(700, 250);
    const int row = RowOfType(ITEM_PICTURE);
    ASSERT_GE(row, 0);
    const ItemRecord &item = session->form.Items[row];
    EXPECT_EQ(item.FontIndex, designer.NewPicture);
    EXPECT_EQ(item.SectionIndex, SECTION_PAGE_HEADER);
    EXPECT_EQ(session->form.SelectedItem, row);
    EXPECT_EQ(designer.PendingCommand, IDLE);
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_EQ(WhatIsWrong(session), "");
}

TEST_F(PictureItems, AFilesPictureIsPlacedLikeTheClipboards) {
    Open();
    Choose({PutFile(SampleFile())});
    BeginPicture(session, COMMAND_PICTURE_FILE);
    EXPECT_EQ(DesignerOf(session).PendingCommand, COMMAND_PICTURE_FILE);
    PressAt(700, 250);
    EXPECT_GE(RowOfType(ITEM_PICTURE), 0);
}

TEST_F(PictureItems, WithoutAPictureNothingBegins) {
    Open();
    Choose({});
    BeginPicture(session, COMMAND_PICTURE_FILE);
    EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
    BeginPicture(session, COMMAND_PICTURE_PASTED);
    EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
}

TEST_F(PictureItems, APendingCommandGoesOn) {
    Open();
    DesignerOf(session).PendingCommand = COMMAND_NEW_LINE;
    BeginPicture(session, COMMAND_PICTURE_PASTED);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(PictureItems, AFullItemTableAsksForNoPicture) {
    Open();
    const int items = session->form.TotalItems;
    session->form.TotalItems = MAX_ITEMS;
    BeginPicture(session, COMMAND_PICTURE_FILE);
    session->form.TotalItems = items;
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Item Table Full!", {IDOK}}}));
}

TEST_F(PictureItems, ATableThatTheHostFilledWhilePlacingTakesNoPictureAndKeepsNoRow) {
    Open();
    PutBitmap(96, 48);
    BeginPicture(session, COMMAND_PICTURE_PASTED);
    EXPECT_EQ(PictureRows(), 1);
    while (session->form.TotalItems < MAX_ITEMS)
        session->form.Items[session->form.TotalItems++] = Item("Gamma");
    PressAt(700, 250);
    EXPECT_EQ(session->form.TotalItems, MAX_ITEMS);
    EXPECT_EQ(boxes.LastText(), "Item Table Full!");
    EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
    EXPECT_EQ(PictureRows(), 0);
}
