#include "form/pictures.h"

#include "form/font_rows.h"
#include "form/fonts.h"
#include "form/form_blocks.h"
#include "frame/memory.h"
#include "frame/owned.h"
#include "tests/support/failing_call.h"
#include "tests/support/form_session.h"

using namespace tessarine;

namespace {

constexpr int WIDTH = 96; // pixels
constexpr int HEIGHT = 48;

class Pictures : public FormSession {
protected:
    Pictures() {
        const HDC screen = GetDC(nullptr);
        bitmap = CreateCompatibleBitmap(screen, WIDTH, HEIGHT);
        const HDC memory = CreateCompatibleDC(screen);
        const HGDIOBJ old = SelectObject(memory, bitmap);
        PatBlt(memory, 0, 0, WIDTH, HEIGHT, WHITENESS);
        PatBlt(memory, 0, 0, WIDTH / 2, HEIGHT / 2, BLACKNESS);
        SelectObject(memory, old);
        DeleteDC(memory);
        ReleaseDC(nullptr, screen);
    }
    ~Pictures() override { DeleteObject(bitmap); }
    void SetUp() override { ASSERT_EQ(StartOn(form), 0) << boxes.LastText(); }

    // The one box that the failure shows; the row that was taken for the picture is free again.
    void ExpectFailure(const char *text) {
        const int row = session->form.FontCount;
        EXPECT_EQ(StoreBitmap(session, bitmap), -1);
        ASSERT_FALSE(boxes.Log().empty());
        EXPECT_EQ(boxes.Log().back(), (BoxRecord{"", text, {IDOK}}));
        EXPECT_EQ(session->form.Fonts[row].InUse, 0u);
        EXPECT_EQ(session->form.Fonts[row].InfoBlock, nullptr);
        boxes.Clear();
    }
    int Restore(int row) { return RestoreBitmap(session, session->drawing.ScreenDC, row); }

    FullForm form;
    HBITMAP bitmap;
};

COLORREF PixelOf(HBITMAP bitmap, int x, int y) {
    const HDC memory = CreateCompatibleDC(nullptr);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    const COLORREF color = GetPixel(memory, x, y);
    SelectObject(memory, old);
    DeleteDC(memory);
    return color;
}

} // namespace

TEST_F(Pictures, BitmapIsStoredWithItsSizeInPointsAndRestored) {
    const int row = StoreBitmap(session, bitmap);
    ASSERT_GT(row, 0);
    FontEntry &picture = session->form.Fonts[row];
    EXPECT_EQ(picture.IsPicture, 1u);
    EXPECT_EQ(picture.InfoSize, 1064u);
    EXPECT_EQ(picture.PointWidth, 72u); // 96 pixels at 96 to the inch
    EXPECT_EQ(picture.PointHeight, 36u);
    ASSERT_EQ(Restore(row), 1);
    EXPECT_EQ(picture.PixelWidth, 96u);
    EXPECT_EQ(picture.PixelHeight, 48u);
    EXPECT_EQ(picture.Height, 125u);
    EXPECT_EQ(picture.Ascent, 125u);
    EXPECT_EQ(picture.CharWidth[0], 250);
    EXPECT_EQ(picture.CharWidth[255], 250);
    EXPECT_EQ(PixelOf(picture.Bitmap, 10, 10), RGB(0, 0, 0));
    EXPECT_EQ(PixelOf(picture.Bitmap, 60, 10), RGB(255, 255, 255));
}

TEST_F(Pictures, RestoringAgainReplacesTheBitmap) {
    const int row = StoreBitmap(session, bitmap);
    ASSERT_EQ(Restore(row), 1);
    ASSERT_EQ(Restore(row), 1);
    EXPECT_EQ(PixelOf(session->form.Fonts[row].Bitmap, 10, 10), RGB(0, 0, 0));
}

TEST_F(Pictures, MemoryForTheInformationBlockIsMissed) {
    FailAllocation(1);
    ExpectFailure("Ran out of memory for Bitmap Info!");
    FailAllocation(0);
}

TEST_F(Pictures, MemoryForTheBitsIsMissed) {
    FailAllocation(2);
    ExpectFailure("Ran out of memory for Bitmap Image!");
    FailAllocation(0);
}

TEST_F(Pictures, BitmapWhoseShapeCannotBeReadIsTold) {
    const FailingCall fails("GetDIBits", GetDIBits, 0, 1, EVERY_CALL);
    ExpectFailure("Error Creating Device Independent Bitmap Structure!");
}

TEST_F(Pictures, BitmapWhoseBitsCannotBeReadIsTold) {
    const FailingCall fails("GetDIBits", GetDIBits, 0, 2);
    ExpectFailure("Error Creating Device Independent Bitmap Image!");
}

TEST_F(Pictures, RowWithoutBlocksCannotBeRestored) {
    const int row = StoreBitmap(session, bitmap);
    const FailingCall fails("GlobalLock", GlobalLock, nullptr, 1, EVERY_CALL);
    EXPECT_EQ(Restore(row), 0);
    EXPECT_EQ(boxes.Log()[0],
              (BoxRecord{"", "Ran out of memory for Bitmap Image and info!", {IDOK}}));
}

TEST_F(Pictures, BitmapThatCannotBeMadeIsTold) {
    const int row = StoreBitmap(session, bitmap);
    const FailingCall fails("CreateBitmap", CreateBitmap, nullptr, 1, EVERY_CALL);
    EXPECT_EQ(Restore(row), 0);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Error Creating the Bitmap", {IDOK}}}));
}

TEST_F(Pictures, BitmapThatCannotBeFilledIsTold) {
    const int row = StoreBitmap(session, bitmap);
    const FailingCall fails("SetDIBits", SetDIBits, 0, 1, EVERY_CALL);
    EXPECT_EQ(Restore(row), 0);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Error Initializing the Bitmap", {IDOK}}}));
}

TEST_F(Pictures, RowThatNothingShowsIsSavedWithoutBlocks) {
    const int row = StoreBitmap(session, bitmap);
    ASSERT_GT(row, 0);
    session->form.Fonts[row].InUse = 0;
    const OwnedFile file(CreateFileA(folder.Path("ROWS").c_str(), GENERIC_WRITE, 0, nullptr,
                                     CREATE_ALWAYS, 0, nullptr));
    EXPECT_EQ(WriteFontRows(session, file.Get()), FontWrite::Done);
    EXPECT_EQ(session->form.Fonts[row].IsPicture, 1u);
}

TEST_F(Pictures, FullTableTakesNoPicture) {
    session->form.FontCount = MAX_FONTS;
    for (int row = 1; row < MAX_FONTS; ++row) {
        session->form.Fonts[row].InUse = 1;
        session->form.Fonts[row].LogFont.lfHeight = -row;
        ItemRecord *item = &session->form.Items[session->form.TotalItems++];
        *item = ItemRecord{};
        item->ItemType = ITEM_LABEL;
        item->FontIndex = static_cast<int16_t>(row);
    }
    EXPECT_EQ(StoreBitmap(session, bitmap), -1);
    EXPECT_EQ(boxes.LastText(), "Ran Out of Font/Picture Table");
}
