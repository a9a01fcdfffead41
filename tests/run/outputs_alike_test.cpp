// The same form to a file, to a preview and to the printer.
#include <cstring>

#include "device/device_names.h"
#include "run/set_up.h"
#include "tests/support/failing_call.h"
#include "tests/support/printer_calls.h"
#include "tests/support/visible_run.h"

using namespace tessarine;

namespace {

using Lines = std::vector<std::string>;

constexpr int RECORDS = 20;

// The first font is Arial of 8 points. Wrapped texts push what stands below them, so that one line
// more or less moves all the rest.
struct WrappedList : FormBuilder {
    explicit WrappedList(int points = 8) {
        fonts[0].Height = static_cast<int16_t>(-MulDiv(points * 10, 250, 720));
        std::strcpy(fonts[0].FaceName, "Arial");
        PortableFont other = fonts[0];
        other.Height = -42;
        std::strcpy(other.FaceName, "Times New Roman");
        fonts.push_back(other);
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT, 400);
        fields[static_cast<size_t>(name)].FieldFlags = FIELD_WORD_WRAP | FIELD_VARIABLE_LINES;
        const int number = Field(FIELD_DATA, "NUMBER", TYPE_NUMERIC, 8);
        Section(SECTION_PAGE_HEADER, 100);
        Label(SECTION_PAGE_HEADER, 200, 10, 500, 60, "Names and numbers").ItemFlags =
            FLAG_CENTER | FLAG_MIDDLE;
        Section(SECTION_DETAIL_1, 200, SECTION_COMPRESS_AFTER);
        FieldItem(SECTION_DETAIL_1, 200, 0, 700, 50, name);
        FieldItem(SECTION_DETAIL_1, 1000, 0, 300, 50, number).ItemFlags = FLAG_RIGHT | FLAG_MIDDLE;
        FieldItem(SECTION_DETAIL_1, 200, 60, 600, 50, name).FontIndex = 1;
        Label(SECTION_DETAIL_1, 200, 130, 500, 50, "below");
    }
};

std::string LongText(int record) {
    std::string text;
    for (int word = 0; word < 10 + record % 17; ++word)
        text += std::string(static_cast<size_t>(1 + (word * 5 + record) % 9),
                            static_cast<char>('a' + (word + record) % 26)) +
                " ";
    return text;
}

Session *drawing = nullptr; // whose texts are noted
Lines drawn;
decltype(&ExtTextOutA) real_ext_text_out;
decltype(&TextOutA) real_text_out;

void Note(HDC device, int x, int y, const std::string &text) {
    if (!drawing || drawing->run.TrialMode || device == drawing->view.MemoryDC) return;
    drawn.push_back("page " + std::to_string(drawing->report.PageCount) + " at " +
                    std::to_string(x) + "," + std::to_string(y) + " " + text);
}

BOOL WINAPI NoteExtTextOut(HDC device, int x, int y, UINT options, const RECT *clip,
                           const char *text, UINT length, const INT *advances) {
    Note(device, x, y, std::string(text, length));
    return real_ext_text_out(device, x, y, options, clip, text, length, advances);
}

BOOL WINAPI NoteTextOut(HDC device, int x, int y, const char *text, int length) {
    Note(device, x, y, std::string(text, static_cast<size_t>(length)));
    return real_text_out(device, x, y, text, length);
}

int pixels_per_inch; // of the display
decltype(&GetDeviceCaps) real_device_caps;

int WINAPI OtherPixels(HDC device, int index) {
    const bool asked = index == LOGPIXELSX || index == LOGPIXELSY;
    return asked && real_device_caps(device, TECHNOLOGY) == DT_RASDISPLAY
               ? pixels_per_inch
               : real_device_caps(device, index);
}

class OutputsAlike : public VisibleRun {
protected:
    OutputsAlike() {
        silent = 1;
        real_ext_text_out = ExtTextOutA;
        real_text_out = TextOutA;
        real_device_caps = GetDeviceCaps;
    }
    ~OutputsAlike() override { drawing = nullptr; }

    // Every text of a whole run with its page and place.
    Lines TextsOn(char device, const FormBuilder &form, bool own_printer = false) {
        const PrinterCalls calls(PrinterCalls::PRETEND);
        const ReplacedCall ext_text_out("ExtTextOutA", NoteExtTextOut);
        const ReplacedCall text_out("TextOutA", NoteTextOut);
        drawn.clear();
        EXPECT_EQ(Begin(device, form, own_printer), 0) << boxes.LastText();
        drawing = session;
        for (int record = 0; record < RECORDS; ++record)
            EXPECT_EQ(
                run->Feed({{"NAME", LongText(record)}, {"NUMBER", std::to_string(record * 1234)}}),
                0);
        fonts.assign(session->form.Fonts, session->form.Fonts + session->form.FontCount);
        EXPECT_EQ(run->Finish(), 0) << boxes.LastText();
        drawing = nullptr;
        if (device == 'S') SendMessageA(session->Window, WM_CLOSE, 0, 0);
        return drawn;
    }

    std::vector<FontEntry> fonts; // of the last run

private:
    int Begin(char device, const FormBuilder &form, bool own_printer) {
        if (!own_printer) return Start(device, form);
        EXPECT_EQ(Start('F', form), 0);
        const HGLOBAL names = GetDevNames(session);
        const HGLOBAL mode = GetDevMode(session);
        EXPECT_EQ(run->Finish(), 0);
        run->params.Device = device;
        const int code = RepInit(&run->params, 0, names, mode);
        GlobalFree(names);
        GlobalFree(mode);
        session = GetSessionPointer(nullptr, run->params.SessionId);
        return code;
    }
};

} // namespace

TEST_F(OutputsAlike, FormsOwnFirstFontBreaksLinesAndPagesAtTheSamePlaces) {
    const WrappedList form;
    const Lines file = TextsOn('F', form);
    EXPECT_GT(run->page_count, 2);
    EXPECT_GT(file.size(), RECORDS * 6u);
    EXPECT_STREQ(fonts[0].LogFont.lfFaceName, "Arial");
    EXPECT_EQ(TextsOn('S', form), file);
    EXPECT_STREQ(fonts[0].LogFont.lfFaceName, "Arial");
    EXPECT_EQ(fonts[0].LogFont.lfHeight, -28);
    EXPECT_EQ(TextsOn('P', form), file);
}

TEST_F(OutputsAlike, PrinterOfTheHostLeavesThePreviewItsFirstFont) {
    const WrappedList form;
    const Lines file = TextsOn('F', form, true);
    EXPECT_EQ(TextsOn('S', form, true), file);
    EXPECT_NE(fonts[0].Font, nullptr);
}

TEST_F(OutputsAlike, SizesInPointsAreTheSameEverywhereAtEachResolution) {
    for (const int resolution : {96, 120}) {
        pixels_per_inch = resolution;
        const ReplacedCall pixels("GetDeviceCaps", OtherPixels);
        for (const int points : {9, 12, 24}) {
            const WrappedList form(points);
            const Lines file = TextsOn('F', form);
            for (const char device : {'S', 'P'}) {
                EXPECT_EQ(TextsOn(device, form) == file, true)
                    << device << ", " << points << " points at " << resolution;
                EXPECT_EQ(fonts[0].LogFont.lfHeight, -MulDiv(points * 10, 250, 720)) << device;
            }
        }
    }
}
