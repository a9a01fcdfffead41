// What the library saves it reads again.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "tests/support/bitmaps.h"
#include "tests/support/form_files.h"

using namespace tessarine;

namespace {

class SavedAgain : public FormFiles {
protected:
    FullForm form;
};

template <size_t Size> void Fill(char (&text)[Size]) { std::memset(text, 'x', Size); }

struct Fault {
    const char *name;
    void (*put)(FormState *form);
};

constexpr int DATA = 1;  // rows of the full form: a data field,
constexpr int CALC = 5;  // a calculation
constexpr int ASKED = 7; // and a user field
constexpr int LABEL = 1; // items: a label
constexpr int FIELD = 4; // and a field

// Every condition on which the reader refuses a form, broken in memory.
constexpr Fault faults[] = {
    {"left margin", [](FormState *form) { form->Header.LeftMargin = 132; }},
    {"right margin", [](FormState *form) { form->Header.RightMargin = -132; }},
    {"top margin", [](FormState *form) { form->Header.TopMargin = NAN; }},
    {"bottom margin", [](FormState *form) { form->Header.BottomMargin = INFINITY; }},
    {"label width",
     [](FormState *form) {
         form->Header.LabelType = 1;
         form->Header.LabelGeometry.LabelWidth = 132;
     }},
    {"report name", [](FormState *form) { Fill(form->Header.ReportName); }},
    {"caller's tag", [](FormState *form) { Fill(form->Header.CallerTag); }},
    {"device", [](FormState *form) { Fill(form->Header.PrinterDevice); }},
    {"driver", [](FormState *form) { Fill(form->Header.PrinterDriver); }},
    {"port", [](FormState *form) { Fill(form->Header.PrinterPort); }},
    {"filter's row", [](FormState *form) { form->Header.ReportFilter[0] = 400; }},
    {"filter's end",
     [](FormState *form) {
         for (int cell = 0; cell < MAX_CELLS; ++cell) form->Header.ReportFilter[cell] = 1;
     }},
    {"item's section", [](FormState *form) { form->Items[LABEL].SectionIndex = 31; }},
    {"item's text", [](FormState *form) { Fill(form->Items[LABEL].LabelText); }},
    {"item's font", [](FormState *form) { form->Items[LABEL].FontIndex = MAX_FONTS; }},
    {"item's field", [](FormState *form) { form->Items[FIELD].FieldIndex = -1; }},
    {"field's width", [](FormState *form) { form->Fields[DATA].FieldWidth = -1; }},
    {"field's name", [](FormState *form) { Fill(form->Fields[DATA].FieldName); }},
    {"delimiter", [](FormState *form) { Fill(form->Fields[DATA].DateDelimiter); }},
    {"thousands", [](FormState *form) { Fill(form->Fields[DATA].ThousandsChar); }},
    {"decimal", [](FormState *form) { Fill(form->Fields[DATA].DecimalChar); }},
    {"pad", [](FormState *form) { Fill(form->Fields[DATA].PadChar); }},
    {"currency", [](FormState *form) { Fill(form->Fields[DATA].CurrencySymbol); }},
    {"true", [](FormState *form) { Fill(form->Fields[DATA].TrueText); }},
    {"false", [](FormState *form) { Fill(form->Fields[DATA].FalseText); }},
    {"negative prefix", [](FormState *form) { Fill(form->Fields[DATA].NegativePrefix); }},
    {"negative suffix", [](FormState *form) { Fill(form->Fields[DATA].NegativeSuffix); }},
    {"positive prefix", [](FormState *form) { Fill(form->Fields[DATA].PositivePrefix); }},
    {"positive suffix", [](FormState *form) { Fill(form->Fields[DATA].PositiveSuffix); }},
    {"zero", [](FormState *form) { Fill(form->Fields[DATA].ZeroText); }},
    {"caption", [](FormState *form) { Fill(form->Fields[DATA].Caption); }},
    {"user row", [](FormState *form) { form->Fields[ASKED].TableIndex = MAX_USER_FIELDS; }},
    {"calculation", [](FormState *form) { form->Fields[CALC].FieldTokens[0] = 549; }},
    {"sort field", [](FormState *form) { form->Breaks[0].SortField = 499; }},
    {"break field", [](FormState *form) { form->Breaks[0].BreakField = -1; }},
    {"break's section", [](FormState *form) { form->Breaks[0].SectionIndex = 11; }},
    {"bar's row", [](FormState *form) { form->Sections[0].BarItem = MAX_ITEMS; }},
    {"bar's type", [](FormState *form) { form->Sections[0].BarItem = LABEL; }},
    {"across", [](FormState *form) { form->Sections[SECTION_DETAIL_1].Across = 0; }},
    {"section's filter", [](FormState *form) { form->Sections[0].SectionFilter[0] = 400; }},
    {"user's name", [](FormState *form) { Fill(form->UserFields[0].UserName); }},
    {"user's prompt", [](FormState *form) { Fill(form->UserFields[0].UserPrompt); }},
    {"user's text", [](FormState *form) { Fill(form->UserFields[0].UserText); }},
    {"user's width", [](FormState *form) { form->UserFields[0].UserWidth = -1; }},
    {"user's tokens", [](FormState *form) { form->UserFields[0].UserTokens[0] = 400; }},
};

} // namespace

TEST_F(SavedAgain, FormThatTheReaderWouldRefuseIsNotWritten) {
    const std::string path = Put(form.Bytes(), "FORM.FP");
    for (const Fault &fault : faults) {
        SCOPED_TRACE(fault.name);
        ASSERT_EQ(Read(path), READ_DONE);
        const std::string before = ReadWholeFile(path);
        ASSERT_EQ(+session->form.Fields[CALC].FieldKind, FIELD_CALC);
        ASSERT_EQ(+session->form.Fields[ASKED].FieldKind, FIELD_USER);
        fault.put(&session->form);
        boxes.Clear();
        EXPECT_EQ(Save(path), 0);
        ExpectBox("The form contradicts itself and can't be saved.", "");
        EXPECT_EQ(ReadWholeFile(path), before);
    }
}

TEST_F(SavedAgain, FormOfTheOtherSignatureIsWrittenWithTheUsualOne) {
    form.header.Signature = 57020;
    const std::string path = Put(form.Bytes(), "FORM.FP");
    ASSERT_EQ(Read(path), READ_DONE);
    ASSERT_EQ(Save(path), 1);
    EXPECT_EQ(+RecordAt<FormHeader>(ReadWholeFile(path), 0).Signature, 57018);
}

TEST_F(SavedAgain, PicturesOfEveryDepthAndCompressionAreSavedAsTheyWereRead) {
    form.Label(SECTION_DETAIL_1, 1000, 0, 100, 100, "").ItemType = ITEM_PICTURE;
    form.items[SECTION_DETAIL_1].back().FontIndex = 2;
    for (const SampleBitmap &sample : AllSampleBitmaps()) {
        const std::string bytes = WithFontRow(form.Bytes(), PictureRowOf(sample.info, sample.bits));
        ASSERT_EQ(ReadBytes(bytes), READ_DONE);
        const std::string path = folder.Path("PICTURE.FP");
        ASSERT_EQ(Save(path), 1);
        const std::string saved = ReadWholeFile(path);
        EXPECT_EQ(saved.substr(FormBlocks(saved).fonts), bytes.substr(FormBlocks(bytes).fonts))
            << sample.name;
    }
    EXPECT_TRUE(boxes.Log().empty()) << boxes.LastText();
}
