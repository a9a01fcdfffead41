#include "paint/text_measure.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "device/paper.h"
#include "tests/support/failing_call.h"
#include "tests/support/form_session.h"

using namespace tessarine;

namespace {

// A session on the real printer, whose font row 0 is measured.
class PrinterExtent : public FormSession {
protected:
    void SetUp() override { ASSERT_EQ(StartOn(form, KIND_REPORT), 0) << boxes.LastText(); }

    SIZE ByThePrinter(const std::string &text, int font = 0) {
        const HDC device = session->printer.InfoDevice;
        const HGDIOBJ old = SelectObject(device, session->form.Fonts[font].Font);
        SIZE size{};
        GetTextExtentPoint32A(device, text.c_str(), static_cast<int>(text.size()), &size);
        SelectObject(device, old);
        return size;
    }

    SIZE Extent(int font, const char *text, bool height_alone) {
        PrinterState &printer = session->printer;
        const HFONT made = session->form.Fonts[font].Font;
        return TextExtent({printer.InfoDevice, printer.InfoPixelsX, made, &printer.Measures[font]},
                          text, height_alone);
    }

    FullForm form;
};

} // namespace

TEST_F(PrinterExtent, IsThePrintersOwnAlsoOnceTheAdvancesAreKnown) {
    const std::string pieces[] = {"1", "12",  "1,234.56", "-0.5",    "Wide words", "iiiiiiii",
                                  "A", "(7)", "99999999", "$ 12.00", "\xE9t\xE9"};
    for (int round = 0; round < 2; ++round)
        for (const std::string &head : pieces)
            for (const std::string &tail : pieces) {
                const std::string text = head + tail;
                const SIZE size = Extent(0, text.c_str(), false);
                EXPECT_EQ(size.cx, ByThePrinter(text).cx) << text;
                EXPECT_EQ(size.cy, ByThePrinter(text).cy) << text;
            }
}

TEST_F(PrinterExtent, IsThePrintersOwnInFontsOfAnySizeAndCut) {
    const struct {
        const char *face;
        int height, weight;
        BYTE italic;
    } fonts[] = {{"Arial", -38, 400, 0},
                 {"Arial", -21, 700, 0},
                 {"Arial", -21, 700, 1},
                 {"Times New Roman", -33, 700, 1},
                 {"Times New Roman", -200, 400, 1},
                 {"Courier New", -28, 700, 0},
                 {"No Such Face", -35, 700, 1}};
    for (int row = 1; row <= static_cast<int>(std::size(fonts)); ++row) {
        const auto &font = fonts[row - 1];
        FontEntry &entry = session->form.Fonts[row];
        entry.InUse = 1;
        entry.Font = CreateFontA(font.height, 0, 0, 0, font.weight, font.italic, 0, 0, 0, 0, 0, 0,
                                 0, font.face);
        for (int round = 0; round < 2; ++round)
            for (const char *text : {"1", "-1,234,567.89", "AVAToWa.", "fi fl ffi", "(12%)",
                                     "\xC4\xD6\xDC \xDF", "iiiiiiiiiiiiWWWWWWWW"}) {
                const SIZE size = Extent(row, text, false);
                EXPECT_EQ(size.cx, ByThePrinter(text, row).cx) << font.face << " " << text;
                EXPECT_EQ(size.cy, ByThePrinter(text, row).cy) << font.face << " " << text;
            }
    }
}

TEST_F(PrinterExtent, KnownAdvancesAreNotMeasuredAgain) {
    Extent(0, "0123456789", false);
    Extent(0, "0123456789", false); // now each digit is known
    int asked = 0;
    for (const char *text : {"1", "12", "123", "1234", "12345", "123456"}) {
        const FailingCall counts("GetTextExtentPoint32A", GetTextExtentPoint32A, 0, 1, 0);
        Extent(0, text, false);
        asked += counts.Seen();
    }
    EXPECT_LE(asked, 3); // of six, those that would round a half
}

TEST_F(PrinterExtent, HeightAloneIsAskedOnce) {
    EXPECT_EQ(Extent(0, "x", true).cy, ByThePrinter("x").cy);
    const FailingCall fails("GetTextExtentPoint32A", GetTextExtentPoint32A, 0, 1, EVERY_CALL);
    EXPECT_GT(Extent(0, "y", true).cy, 0);
    EXPECT_EQ(fails.Seen(), 0);
}

TEST_F(PrinterExtent, AnotherPrinterIsMeasuredAnew) {
    Extent(0, "0", false);
    Extent(0, "0", false);
    EXPECT_NE(session->printer.Measures[0].Advances['0'], 0);
    ProcessPrinterData(session);
    EXPECT_EQ(session->printer.Measures[0].Advances['0'], 0);
    EXPECT_EQ(session->printer.Measures[0].Height, 0);
}

TEST_F(PrinterExtent, CharacterWithoutAWholeAdvanceIsAlwaysMeasured) {
    Extent(0, "5", false);
    session->printer.Measures[0].Advances['5'] = 65535;
    const FailingCall counts("GetTextExtentPoint32A", GetTextExtentPoint32A, 0, 1, 0);
    EXPECT_EQ(Extent(0, "55", false).cx, ByThePrinter("55").cx);
    EXPECT_GE(counts.Seen(), 1);
}
