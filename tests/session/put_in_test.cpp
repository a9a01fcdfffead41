// What a host puts into an open form can be saved and read again.
#include <cmath>
#include <cstring>

#include "designer/field_items.h"
#include "designer/item_font.h"
#include "expr/symbols.h"
#include "form/defaults.h"
#include "form/font_table.h"
#include "frame/host_data.h"
#include "frame/text.h"
#include "session/new_form.h"
#include "tests/support/form_session.h"

using namespace tessarine;

namespace {

int16_t width_of_host; // that CheckField gives

// Fills every byte that a field record has for texts, and what belongs to the library.
int32_t __stdcall FillToTheBrim(HWND, FieldRecord *record, int32_t, void *) {
    std::memset(record->FieldName, 'N', sizeof record->FieldName);
    std::memset(record->DateDelimiter, 'x',
                offsetof(FieldRecord, SymbolKind) - offsetof(FieldRecord, DateDelimiter));
    std::memset(record->Caption, 'x', sizeof record->Caption);
    record->FieldKind = FIELD_CALC;
    record->InUse = 0;
    record->TableIndex = 99;
    record->FieldTokens[0] = 7;
    record->ValueType = TYPE_NUMERIC;
    record->FieldWidth = width_of_host;
    return 1;
}

class PutIn : public FormSession {
protected:
    void SetUp() override { width_of_host = 8; }

    void StartWithHost() {
        ASSERT_EQ(StartOn(form), 0) << boxes.LastText();
        session->FormBlock.CheckFieldProc = FillToTheBrim;
    }
    // Saves the form and opens what was saved.
    void ExpectReadAgain() {
        Save("AGAIN.FP");
        session->FormBlock.CheckFieldProc = nullptr;
        EXPECT_EQ(Open(folder.Path("AGAIN.FP")), 1);
        EXPECT_TRUE(boxes.Log().empty()) << boxes.LastText();
    }

    FullForm form;
};

} // namespace

TEST_F(PutIn, TextsOfTheHostsFieldAreEndedAndTheLibrarysOwnStays) {
    StartWithHost();
    const int row = AddNewDataField(session, "N", SECTION_DETAIL_1, 200, 500, 0);
    ASSERT_GT(row, 0);
    const FieldRecord &field = session->form.Fields[session->form.Items[row].FieldIndex];
    EXPECT_EQ(+field.FieldKind, FIELD_DATA);
    EXPECT_EQ(+field.InUse, 1);
    EXPECT_EQ(+field.TableIndex, -1);
    EXPECT_EQ(+field.FieldTokens[0], CELL_END);
    EXPECT_EQ(std::strlen(field.TrueText), sizeof field.TrueText - 1);
    ExpectReadAgain();
}

TEST_F(PutIn, OperandsOfTheHostAreEndedToo) {
    StartWithHost();
    EXPECT_GT(AddNewCalcField(session, "NAME+1", SECTION_DETAIL_1, "Sum", 200, 500), 0)
        << boxes.LastText();
    ExpectReadAgain();
}

TEST_F(PutIn, FieldsThatTheHostFillsInAtTheOpeningAreEndedToo) {
    StartWithHost();
    ASSERT_EQ(Open(Put(form.Bytes())), 1);
    ExpectReadAgain();
}

TEST_F(PutIn, WidthBelow0IsRefused) {
    StartWithHost();
    width_of_host = -1;
    EXPECT_EQ(AddNewDataField(session, "N", SECTION_DETAIL_1, 200, 500, 0), -1);
    uint16_t cells[MAX_CELLS];
    int32_t position = 0;
    EXPECT_EQ(GenerateSymbols(session, "N", cells, &position, 1), 0);
    EXPECT_EQ(boxes.LastText(), "Invalid data field: N");
    boxes.Clear();
    ASSERT_EQ(Open(Put(form.Bytes())), 1);
    EXPECT_EQ(+session->form.Fields[1].FieldWidth, 20); // its own
    ExpectReadAgain();
}

TEST_F(PutIn, MarginsThatAreNoMeasuresOfANewFormAreTheUsualOnes) {
    const std::string path = folder.Path("PRESET.FP");
    CopyText("Preset", new_form_data.NewFormName, sizeof new_form_data.NewFormName);
    CopyText(path.c_str(), new_form_data.NewFormFile, sizeof new_form_data.NewFormFile);
    new_form_data.NewFormLeft = 132;
    new_form_data.NewFormRight = NAN;
    new_form_data.NewFormTop = 131;
    new_form_data.NewFormBottom = -INFINITY;
    ASSERT_EQ(Start(""), 0);
    const FormHeader &header = session->form.Header;
    EXPECT_EQ(+header.LeftMargin, 0.25F);
    EXPECT_EQ(+header.RightMargin, 0.25F);
    EXPECT_EQ(+header.TopMargin, 131.0F);
    EXPECT_EQ(+header.BottomMargin, 0.5F);
    ASSERT_EQ(Start(path), 0) << boxes.LastText();
}

TEST_F(PutIn, LabelSheetWithoutATypeOrWithMeasuresThatNoUnitHoldsIsReadAgain) {
    uint32_t label_mode = 1;
    LabelGeometry sheet{};
    sheet.PageWidth = 8.5F;
    sheet.PageHeight = 11;
    sheet.LabelWidth = 200;
    sheet.LabelHeight = 1;
    sheet.VerticalPitch = NAN;
    sheet.LabelsAcross = sheet.LabelsDown = 2;
    host_data.LabelForm = &label_mode;
    host_data.LabelGeometryPtr = &sheet;
    ASSERT_EQ(Start(""), 0);
    EXPECT_EQ(+session->form.Header.LabelType, 1u);
    EXPECT_EQ(+session->form.Header.LabelGeometry.LabelWidth, 0.0F);
    EXPECT_EQ(+session->form.Header.LabelGeometry.VerticalPitch, 0.0F);
    EXPECT_EQ(+session->form.Header.LabelGeometry.LabelHeight, 1.0F);
    ExpectReadAgain();
}

TEST_F(PutIn, NewFormOverAnOpenOneLeavesNoSectionOfItBehind) {
    StartWithHost();
    ASSERT_EQ(InitNewForm(session), 1);
    EXPECT_EQ(session->form.BreakCount, 0);
    ExpectReadAgain();
}

TEST_F(PutIn, FormThatIsStartedOverCanBeSaved) {
    StartWithHost();
    InitVariables(session);
    EXPECT_GT(CreateDefaultBoldFont(session), 0); // row 0 is never given out
    EXPECT_NE(session->form.Fonts[0].Font, nullptr);
    ExpectReadAgain();
}

TEST_F(PutIn, FontThatNoFormFileHoldsIsRefused) {
    StartWithHost();
    session->form.SelectedItem = 1; // a label
    LOGFONTA font{};
    font.lfHeight = -40;
    std::memset(font.lfFaceName, 'A', sizeof font.lfFaceName);
    EXPECT_EQ(FrFonts(session, &font), 1);
    EXPECT_EQ(std::strlen(session->form.Fonts[session->form.Items[1].FontIndex].LogFont.lfFaceName),
              sizeof font.lfFaceName - 1);
    const int row = session->form.Items[1].FontIndex;
    font.lfWidth = 32768;
    EXPECT_EQ(FrFonts(session, &font), 0);
    EXPECT_EQ(+session->form.Items[1].FontIndex, row);
    ExpectReadAgain();
}
