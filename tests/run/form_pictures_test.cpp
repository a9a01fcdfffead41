// Pictures of a form on the pages of its report.
#include <gtest/gtest.h>

#include <cstring>

#include "tests/support/bitmaps.h"
#include "tests/support/form_files.h"
#include "tests/support/page_texts.h"
#include "tests/support/report_run.h"

namespace {

// A page with one picture, and a label in a font whose row stands behind the picture's.
struct PictureForm : FormBuilder {
    PictureForm() {
        Section(SECTION_DETAIL_1, 500);
        ItemRecord &picture = Label(SECTION_DETAIL_1, 125, 0, 400, 400, "");
        picture.ItemType = ITEM_PICTURE;
        picture.FontIndex = 1;
        Label(SECTION_DETAIL_1, 600, 0, 400, 100, "behind").FontIndex = 2;
    }
    std::string BytesWith(const std::string &info, const std::string &bits) const {
        PortableFont font = fonts[0];
        font.Height = -60;
        const uint16_t kind = 0;
        std::string row(reinterpret_cast<const char *>(&kind), sizeof kind);
        row.append(reinterpret_cast<const char *>(&font), sizeof font);
        return WithFontRow(WithFontRow(Bytes(), PictureRowOf(info, bits)), row);
    }
};

class FormPictures : public testing::Test {
protected:
    // The only page of a run of the form.
    std::string PageOf(const std::string &form) {
        ReportRun run(PictureForm{});
        WriteWholeFile(run.params.FormFile, form);
        EXPECT_EQ(run.Run({{}}), 0) << boxes.LastText();
        const std::vector<std::string> pages = PagesOf(run.Report());
        return pages.size() == 1 ? pages[0] : "";
    }
    MessageBoxes boxes;
};

// The colours inside the picture's left and right half.
std::pair<COLORREF, COLORREF> HalvesOf(const std::string &page) {
    const HMETAFILE metafile = SetMetaFileBitsEx(static_cast<UINT>(page.size()),
                                                 reinterpret_cast<const BYTE *>(page.data()));
    const HDC memory = CreateCompatibleDC(nullptr);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, 1000, 1000, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void *pixels = nullptr;
    const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    PatBlt(memory, 0, 0, 1000, 1000, WHITENESS);
    SetMapMode(memory, MM_ANISOTROPIC);
    PlayMetaFile(memory, metafile);
    SetMapMode(memory, MM_TEXT);
    SetWindowOrgEx(memory, 0, 0, nullptr);
    SetViewportOrgEx(memory, 0, 0, nullptr);
    std::pair<COLORREF, COLORREF> halves;
    int place = 0; // the picture's left edge on the middle of its height
    while (place < 999 && GetPixel(memory, place, 200) == RGB(255, 255, 255)) ++place;
    halves.first = GetPixel(memory, place + 5, 200);
    while (place < 999 && GetPixel(memory, place, 200) != RGB(255, 255, 255)) ++place;
    halves.second = GetPixel(memory, place - 5, 200);
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    DeleteMetaFile(metafile);
    return halves;
}

constexpr std::pair<COLORREF, COLORREF> RED_AND_BLUE{RGB(255, 0, 0), RGB(0, 0, 255)};

} // namespace

TEST_F(FormPictures, BitmapsOfEveryDepthAndCompressionAreDrawn) {
    for (const SampleBitmap &sample : AllSampleBitmaps()) {
        SCOPED_TRACE(sample.name);
        const std::string page = PageOf(PictureForm().BytesWith(sample.info, sample.bits));
        EXPECT_TRUE(boxes.Log().empty()) << boxes.LastText();
        EXPECT_EQ(HalvesOf(page), RED_AND_BLUE);
    }
}

TEST_F(FormPictures, SizeOfTheImageThatLiesPutsNothingForeignOnThePage) {
    for (const SampleBitmap &sample : AllSampleBitmaps()) {
        SCOPED_TRACE(sample.name);
        const std::string page = PageOf(PictureForm().BytesWith(sample.info, sample.bits));
        for (const uint32_t lie : {1u, 5000u, 0x7FFFFFFFu}) {
            std::string info = sample.info;
            std::memcpy(info.data() + offsetof(BITMAPINFOHEADER, biSizeImage), &lie, sizeof lie);
            EXPECT_EQ(PageOf(PictureForm().BytesWith(info, sample.bits)), page);
        }
    }
}

TEST_F(FormPictures, RefusedPictureLeavesTheFontsBehindItTheirRows) {
    const SampleBitmap sample(8, BI_RLE8);
    const std::string page = PageOf(PictureForm().BytesWith(sample.info, sample.bits));
    const std::string refused = PageOf(PictureForm().BytesWith(sample.info, "cut off"));
    ASSERT_FALSE(boxes.Log().empty());
    EXPECT_EQ(boxes.Log()[0].text, "Font Table Incomplete!");
    bool sound = false;
    EXPECT_EQ(TextsOf(refused, &sound), TextsOf(page, &sound));
    EXPECT_EQ(HalvesOf(refused), (std::pair<COLORREF, COLORREF>(CLR_INVALID, RGB(255, 255, 255))));
}
