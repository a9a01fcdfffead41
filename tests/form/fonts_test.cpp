#include "form/fonts.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <vector>

#include "tests/support/failing_call.h"
#include "tests/support/font_rows.h"

using namespace tessarine;

namespace {

class FontTable : public FontRows {};

std::set<int> technologies; // of the devices that were measured on

BOOL WINAPI NoteTechnology(HDC device, const char *text, int length, SIZE *size) {
    technologies.insert(GetDeviceCaps(device, TECHNOLOGY));
    return GetTextExtentPoint32A(device, text, length, size);
}

DWORD version; // of the system

DWORD WINAPI Version() { return version; }

BOOL(WINAPI *real_metrics)(HDC device, TEXTMETRICA *metrics);

BOOL WINAPI MetricsWithOverhang(HDC device, TEXTMETRICA *metrics) {
    const BOOL read = real_metrics(device, metrics);
    metrics->tmOverhang = 3;
    return read;
}

BOOL WINAPI MetricsWithoutAscent(HDC device, TEXTMETRICA *metrics) {
    const BOOL read = real_metrics(device, metrics);
    metrics->tmAscent = 0;
    return read;
}

int HeightOf(int points) { return -MulDiv(points * 10, 250, 720); }

// A form of fonts in consecutive sizes, each shown by a label; row 0 has the first.
struct SizesForm : FormBuilder {
    SizesForm(int first, int last) {
        Section(SECTION_DETAIL_1, 200);
        const PortableFont font = fonts[0];
        fonts.clear();
        for (int points = first; points <= last; ++points) {
            fonts.push_back(font);
            fonts.back().Height = static_cast<int16_t>(HeightOf(points));
            Label(SECTION_DETAIL_1, 200, 10, 300, 40, "Size").FontIndex =
                static_cast<int16_t>(points - first);
        }
    }
};

} // namespace

TEST_F(FontTable, FullTableWithoutDuplicatesIsTold) {
    FillTable();
    EXPECT_EQ(FindFontRow(session), -1);
    ASSERT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(boxes.Log()[0], (BoxRecord{"", "Ran Out of Font/Picture Table", {IDOK}}));
}

TEST_F(FontTable, FullTableGivesUpARowThatNothingShows) {
    FillTable();
    session->form.Items[session->form.TotalItems - 1].FontIndex = 5; // row 31 is shown no more
    EXPECT_EQ(FindFontRow(session), MAX_FONTS - 1);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FontTable, FullTableSharesRowsOfEqualFonts) {
    FillTable();
    Row(9).LogFont = Row(4).LogFont;
    const int label = session->form.TotalItems - (MAX_FONTS - 9);
    ASSERT_EQ(+session->form.Items[label].FontIndex, 9);
    EXPECT_EQ(FindFontRow(session), 9);
    EXPECT_EQ(+session->form.Items[label].FontIndex, 4);
}

TEST_F(FontTable, SqueezeLooksForAnEqualFontFromRow0On) {
    FillTable();
    Row(9).LogFont = Row(0).LogFont;
    const int label = session->form.TotalItems - (MAX_FONTS - 9);
    EXPECT_EQ(FindFontRow(session), 9);
    EXPECT_EQ(+session->form.Items[label].FontIndex, 0);
    EXPECT_NE(Row(0).InUse, 0u);
}

TEST_F(FontTable, SqueezeGivesUpEveryPicture) {
    FillTable();
    Row(7).IsPicture = 1;
    const int label = session->form.TotalItems - (MAX_FONTS - 7);
    session->form.Items[label].ItemType = ITEM_PICTURE;
    EXPECT_EQ(FindFontRow(session), 7);
    EXPECT_EQ(Row(7).IsPicture, 0u);
}

TEST_F(FontTable, BoldFontIsMadeFromRow0EachTime) {
    const int first = CreateDefaultBoldFont(session);
    const int second = CreateDefaultBoldFont(session);
    ASSERT_GT(first, 0);
    EXPECT_NE(second, first);
    for (const int row : {first, second}) {
        EXPECT_EQ(Row(row).LogFont.lfWeight, 700);
        EXPECT_STREQ(Row(row).LogFont.lfFaceName, Row(0).LogFont.lfFaceName);
        EXPECT_EQ(Row(row).LogFont.lfHeight, Row(0).LogFont.lfHeight);
    }
}

TEST_F(FontTable, BoldFontWithoutARowIsTold) {
    FillTable();
    EXPECT_EQ(CreateDefaultBoldFont(session), 0);
    EXPECT_EQ(boxes.Log(), NoRowBoxes());
}

TEST_F(FontTable, BoldFontThatCannotBeMadeIsToldAndItsRowCleared) {
    const int count = session->form.FontCount;
    const FailingCall fails("CreateFontIndirectA", CreateFontIndirectA, nullptr, 1, EVERY_CALL);
    EXPECT_EQ(CreateDefaultBoldFont(session), 0);
    EXPECT_EQ(boxes.Log(),
              (std::vector<BoxRecord>{{"", "Unable to create default bold font.", {IDOK}}}));
    EXPECT_EQ(Row(count).InUse, 0u);
}

TEST_F(FontTable, FontOfAnotherDeviceKeepsItsSizeInWholePoints) {
    const int row = FindFontRow(session);
    for (const int height : {29, 33, 36, 41, 58}) {
        Row(row).LogFont = FontOfHeight(height);
        ASSERT_EQ(MakeFont(session, session->drawing.ScreenDC, row, true), 1);
        bool whole = false;
        for (int points = 4; points < 40; ++points)
            whole |= Row(row).LogFont.lfHeight == -MulDiv(points * 10, 250, 720);
        EXPECT_TRUE(whole) << Row(row).LogFont.lfHeight;
    }
}

TEST_F(FontTable, SizesFrom6To72PointsStayWhenAFormIsReadAndSaved) {
    for (int first = 6; first <= 72; first += 30) {
        const int last = std::min(first + 29, 72);
        const SizesForm sizes(first, last);
        ASSERT_EQ(StartOn(sizes), 0) << boxes.LastText();
        for (int points = first; points <= last; ++points)
            EXPECT_EQ(Row(points - first).LogFont.lfHeight, HeightOf(points));
        const std::string saved = Save("SIZES" + std::to_string(first) + ".FP");
        EXPECT_EQ(saved.substr(FormBlocks(saved).fonts),
                  sizes.Bytes().substr(FormBlocks(saved).fonts));
        ASSERT_EQ(StartOn(sizes, KIND_REPORT), 0);
        for (int points = first; points <= last; ++points)
            EXPECT_EQ(Row(points - first).LogFont.lfHeight, HeightOf(points));
    }
}

TEST_F(FontTable, SizeThatWasTruncatedToUnitsKeepsItsPoints) {
    const int row = FindFontRow(session);
    for (int points = 6; points <= 72; ++points) {
        Row(row).LogFont = FontOfHeight(points * 250 / 72);
        ASSERT_EQ(MakeFont(session, session->drawing.ScreenDC, row, true), 1);
        EXPECT_EQ(Row(row).LogFont.lfHeight, HeightOf(points));
    }
}

TEST_F(FontTable, HeightOfACellIsReadOffTheDeviceWithoutItsLeading) {
    const int row = FindFontRow(session);
    Row(row).LogFont = FontOfHeight(-100);
    ASSERT_EQ(MakeFont(session, session->drawing.ScreenDC, row, true), 1);
    EXPECT_NEAR(Row(row).Height, 100, 4); // as wanted, to the nearest point
    EXPECT_LT(Row(row).LogFont.lfHeight, -80);
    EXPECT_GT(Row(row).LogFont.lfHeight, -95);
}

TEST_F(FontTable, FontWithoutAnAscentIsRefused) {
    real_metrics = GetTextMetricsA;
    const int row = FindFontRow(session);
    Row(row).LogFont = FontOfHeight(60);
    const ReplacedCall metrics("GetTextMetricsA", MetricsWithoutAscent);
    EXPECT_EQ(MakeFont(session, session->drawing.ScreenDC, row, false), 0);
    EXPECT_EQ(Row(row).InUse, 0u);
}

TEST_F(FontTable, ReportMeasuresCharactersAloneAndGivesTheFirstNoWidth) {
    End();
    ASSERT_EQ(StartOn(form, KIND_REPORT), 0);
    EXPECT_EQ(Row(0).CharWidth[0], 0);
    EXPECT_GT(Row(0).CharWidth['M'], 0);
    EXPECT_STREQ(Row(0).LogFont.lfFaceName, "Courier New");
    EXPECT_EQ(Row(0).CharWidth['i'], Row(0).CharWidth['M']);
}

TEST_F(FontTable, RunToThePrinterMeasuresCharactersOnTheScreen) {
    End();
    ASSERT_EQ(StartOn(form, KIND_REPORT), 0);
    ASSERT_EQ(MakeFont(session, session->drawing.ScreenDC, 0, false), 1);
    const std::vector<int32_t> on_screen(Row(0).CharWidth, Row(0).CharWidth + 256);
    const int32_t pixels = session->drawing.LogPixelsX;
    technologies.clear();
    session->OutputToPrinter = 1;
    {
        const ReplacedCall measure("GetTextExtentPointA", NoteTechnology);
        EXPECT_EQ(MakeFont(session, session->printer.InfoDevice, 0, false), 1);
    }
    session->OutputToPrinter = 0;
    EXPECT_EQ(technologies, std::set<int>{DT_RASDISPLAY});
    EXPECT_EQ(std::vector<int32_t>(Row(0).CharWidth, Row(0).CharWidth + 256), on_screen);
    EXPECT_EQ(session->drawing.LogPixelsX, pixels);
}

TEST_F(FontTable, RunToThePrinterHasTheLineHeightsOfTheScreen) {
    ASSERT_EQ(StartOn(form, KIND_REPORT), 0);
    for (const int height : {21, 28, 31, 35, 42, 83}) {
        Row(0).LogFont = FontOfHeight(height);
        ASSERT_EQ(MakeFont(session, session->drawing.ScreenDC, 0, false), 1);
        const uint32_t line = Row(0).Height;
        const uint32_t ascent = Row(0).Ascent;
        session->OutputToPrinter = 1;
        EXPECT_EQ(MakeFont(session, session->printer.InfoDevice, 0, false), 1);
        session->OutputToPrinter = 0;
        EXPECT_EQ(Row(0).Height, line) << height;
        EXPECT_EQ(Row(0).Ascent, ascent) << height;
    }
}

TEST_F(FontTable, DesignersWidthsAreThoseOfTheSystem) {
    INT widths[256];
    const HGDIOBJ old_font = SelectObject(session->drawing.ScreenDC, Row(0).Font);
    ASSERT_TRUE(GetCharWidthA(session->drawing.ScreenDC, 0, 255, widths));
    SelectObject(session->drawing.ScreenDC, old_font);
    EXPECT_TRUE(std::equal(widths, widths + 256, Row(0).CharWidth));
}

TEST_F(FontTable, DesignersWidthsAreReducedByTheOverhang) {
    const std::vector<int32_t> before(Row(0).CharWidth, Row(0).CharWidth + 256);
    real_metrics = GetTextMetricsA;
    const ReplacedCall metrics("GetTextMetricsA", MetricsWithOverhang);
    ASSERT_EQ(MakeFont(session, session->drawing.ScreenDC, 0, false), 1);
    for (const int character : {65, 105, 255})
        EXPECT_EQ(Row(0).CharWidth[character], before[static_cast<size_t>(character)] - 3);
}

TEST_F(FontTable, DesignerWhoseWidthsCannotBeHadMeasuresEachCharacter) {
    const FailingCall fails("GetCharWidthA", GetCharWidthA, FALSE);
    ASSERT_EQ(MakeFont(session, session->drawing.ScreenDC, 0, false), 1);
    EXPECT_EQ(fails.Seen(), 1);
    EXPECT_EQ(Row(0).CharWidth[0], 0);
    EXPECT_GT(Row(0).CharWidth['M'], 0);
}

TEST_F(FontTable, NumbersThatDoNotFit16BitsMakeNoPortableFont) {
    LOGFONTA font = FontOfHeight(60);
    PortableFont packed{};
    EXPECT_TRUE(WritePortableFont(font, &packed));
    EXPECT_EQ(+packed.OutPrecision, 7);
    font.lfWidth = 32768;
    EXPECT_FALSE(WritePortableFont(font, &packed));
}

TEST_F(FontTable, FaceNameIsCutAt30Characters) {
    LOGFONTA font = FontOfHeight(60);
    std::memcpy(font.lfFaceName, "A face name that is too long, i", 32);
    PortableFont packed{};
    ASSERT_TRUE(WritePortableFont(font, &packed));
    EXPECT_EQ(std::strlen(packed.FaceName), 30u);
    LOGFONTA read{};
    ReadPortableFont(packed, &read);
    EXPECT_EQ(std::strlen(read.lfFaceName), 30u);
}

TEST_F(FontTable, DesignersDefaultFontIsArialAndOnASystemOfVersion3Point0Helv) {
    ASSERT_EQ(Start(""), 0);
    EXPECT_STREQ(Row(0).LogFont.lfFaceName, "Arial");
    EXPECT_EQ(Row(0).LogFont.lfHeight, -(11 * 250 / 72));
    const ReplacedCall system("GetVersion", Version);
    version = MAKELONG(3, 1381);
    ASSERT_EQ(Start(""), 0);
    EXPECT_STREQ(Row(0).LogFont.lfFaceName, "Helv");
    version = MAKELONG(MAKEWORD(3, 10), 1381);
    ASSERT_EQ(Start(""), 0);
    EXPECT_STREQ(Row(0).LogFont.lfFaceName, "Arial");
}

TEST_F(FontTable, SessionWithoutASystemFontIsFatal) {
    End();
    const FailingCall fails("CreateFontIndirectA", CreateFontIndirectA, nullptr, 1, EVERY_CALL);
    EXPECT_EQ(StartOn(form), 12);
    ASSERT_FALSE(boxes.Log().empty());
    EXPECT_EQ(boxes.Log().back(),
              (BoxRecord{"Fatal Error", "Error Creating Font(InitDeviceProp)", {IDOK}}));
}
