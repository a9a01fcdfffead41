#include "designer/field_placement.h"

#include <cstring>
#include <string>

#include "commands.h"
#include "designer/designer_state.h"
#include "designer/field_items.h"
#include "designer/item_table.h"
#include "designer/selection.h"
#include "form/field_sample.h"
#include "form/field_table.h"
#include "frame/text.h"
#include "tests/support/designer_session.h"

using namespace tessarine;

namespace {

constexpr int FIELD_COMMANDS[] = {COMMAND_BARCODE_FIELD, COMMAND_APPLICATION_FIELD,
                                  COMMAND_DATA_FIELD,    COMMAND_CALC_FIELD,
                                  COMMAND_SYSTEM_FIELD,  COMMAND_USER_FIELD};

FieldRecord offered; // to the host's routine below

int32_t __stdcall TakeNothing(HWND, FieldRecord *record, int32_t, void *) {
    offered = *record;
    return 0;
}

Session *picking = nullptr;

int32_t __stdcall FillTableWhilePicking(HWND, FieldRecord *record, int32_t, void *) {
    ItemRecord *items = picking->form.Items;
    for (int &total = picking->form.TotalItems; total < MAX_ITEMS; ++total)
        items[total] = items[total - 1];
    std::strcpy(record->FieldName, "LATE");
    return 1;
}

int32_t __stdcall AddWhilePicking(HWND, FieldRecord *record, int32_t, void *) {
    EXPECT_GE(AddNewSysField(picking, SYSTEM_DATE, SECTION_DETAIL_1, 300, 600), 0);
    std::strcpy(record->FieldName, "LATE");
    return 1;
}

// A form with a page footer too, and what its host's user picks.
class FieldPlacement : public DesignerSession {
protected:
    void SetUp() override {
        FormBuilder form = TwoSections();
        form.Section(SECTION_PAGE_FOOTER, 400);
        ASSERT_EQ(StartOn(form), 0) << boxes.LastText();
        DesignerOf(session).SnapToGrid = 0;
        Pick("CUSTOMER", TYPE_TEXT);
    }
    void Pick(const char *name, int type) {
        CopyText(name, picked.FieldName, sizeof picked.FieldName);
        picked.ValueType = static_cast<int16_t>(type);
        picked.FieldWidth = 7;
        picked.HostTable = 2;
        picked.HostField = 5;
    }
    FieldRecord &New() { return session->form.Fields[DesignerOf(session).NewField]; }
    bool Placing(int command) { return DesignerOf(session).PendingCommand == command; }
    const ItemRecord &Selection() { return session->form.Items[session->form.SelectedItem]; }
    int FieldsInUse() {
        int count = 0;
        for (int row = 0; row < session->form.FieldCount; ++row)
            count += session->form.Fields[row].InUse != 0;
        return count;
    }
    const ItemRecord &Drop(int section) {
        const RECT bar = RectOf(Bar(section));
        MoveTo(700, bar.top + 200);
        ClickAt(700, bar.top + 200);
        EXPECT_TRUE(Placing(IDLE));
        return Selection();
    }
    void AddUserField(const char *name, int type, int width) {
        UserFieldRecord &user = session->form.UserFields[session->form.UserFieldCount++];
        user.InUse = 1;
        CopyText(name, user.UserName, sizeof user.UserName);
        user.ValueType = static_cast<int16_t>(type);
        user.UserWidth = static_cast<int16_t>(width);
    }
};

} // namespace

TEST_F(FieldPlacement, DataFieldOfTheHostFollowsThePointer) {
    SelectItem(session, Row("Beta"));
    Command(COMMAND_DATA_FIELD);
    ASSERT_TRUE(Placing(COMMAND_DATA_FIELD));
    EXPECT_EQ(levels, std::vector<int>{0});
    const FieldRecord &field = New();
    EXPECT_STREQ(field.FieldName, "CUSTOMER");
    EXPECT_EQ(+field.FieldKind, FIELD_DATA);
    EXPECT_EQ(+field.InUse, 1);
    EXPECT_EQ(+field.HostField, 5);
    EXPECT_EQ(+field.FieldFlags, 0);
    int32_t height = 0;
    int32_t width = 0;
    GetFieldSize(session, DesignerOf(session).NewField, 0, &height, &width);
    const RECT &place = DesignerOf(session).FocusRect;
    EXPECT_EQ(place.right - place.left, width);
    EXPECT_EQ(place.bottom - place.top, height);
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
    EXPECT_EQ(DesignerOf(session).FocusVisible, 1u);
    EXPECT_EQ(DesignerOf(session).HoverOnly, 0u);
}

TEST_F(FieldPlacement, ClickPutsTheFieldThereWithItsSample) {
    Command(COMMAND_DATA_FIELD);
    const ItemRecord &item = Drop(SECTION_DETAIL_1);
    EXPECT_EQ(+item.ItemType, ITEM_FIELD);
    EXPECT_EQ(+item.FieldIndex, DesignerOf(session).NewField);
    EXPECT_EQ(+item.SectionIndex, SECTION_DETAIL_1);
    EXPECT_STREQ(item.LabelText, "xxxxXxx");
    EXPECT_EQ(+item.ItemFlags, FLAG_LEFT | FLAG_MIDDLE);
    EXPECT_EQ(+item.OutlineSides, 0);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(FieldPlacement, FieldDroppedAcrossASectionsEdgeLiesInTheSectionOfItsTop) {
    Command(COMMAND_DATA_FIELD);
    const RECT header = RectOf(Bar(SECTION_PAGE_HEADER));
    MoveTo(700, header.bottom - 10);
    ClickAt(700, header.bottom - 10);
    EXPECT_EQ(+Selection().SectionIndex, SECTION_PAGE_HEADER);
    EXPECT_EQ(Selection().y + Selection().height, header.bottom);
}

TEST_F(FieldPlacement, NumberDroppedIntoAFooterBecomesATotal) {
    Pick("AMOUNT", TYPE_DOUBLE);
    Command(COMMAND_DATA_FIELD);
    const ItemRecord &item = Drop(SECTION_PAGE_FOOTER);
    EXPECT_EQ(+item.ItemFlags, FLAG_RIGHT | FLAG_MIDDLE);
    EXPECT_EQ(+New().SummaryType, SUMMARY_TOTAL);
}

TEST_F(FieldPlacement, NumberDroppedIntoAHeaderStaysAValue) {
    Pick("AMOUNT", TYPE_NUMERIC);
    Command(COMMAND_DATA_FIELD);
    const ItemRecord &item = Drop(SECTION_PAGE_HEADER);
    EXPECT_EQ(+item.ItemFlags, FLAG_RIGHT | FLAG_MIDDLE);
    EXPECT_EQ(+New().SummaryType, SUMMARY_VALUE);
}

TEST_F(FieldPlacement, PictureFieldHasAllItsSides) {
    Pick("PHOTO", TYPE_PICTURE);
    Command(COMMAND_DATA_FIELD);
    const ItemRecord &item = Drop(SECTION_DETAIL_1);
    EXPECT_EQ(+item.OutlineSides, 15);
    EXPECT_EQ(+item.width, +item.height);
}

TEST_F(FieldPlacement, BarCodeTakesItsFontAndStandsRight) {
    Command(COMMAND_BARCODE_FIELD);
    ASSERT_TRUE(Placing(COMMAND_BARCODE_FIELD));
    EXPECT_EQ(+New().FieldFlags, FIELD_POSTNET);
    const ItemRecord &item = Drop(SECTION_DETAIL_1);
    EXPECT_EQ(+item.ItemFlags, FLAG_RIGHT | FLAG_MIDDLE);
    ASSERT_NE(+item.FontIndex, 0);
    const LOGFONTA &font = session->form.Fonts[item.FontIndex].LogFont;
    EXPECT_EQ(font.lfHeight, -41);
    EXPECT_STREQ(font.lfFaceName, "PostNetTt");
    EXPECT_EQ(font.lfWeight, 0);
    EXPECT_EQ(std::string("920082324").find(item.LabelText), 0u);
    const int row = item.FontIndex;
    Command(COMMAND_BARCODE_FIELD);
    EXPECT_EQ(+Drop(SECTION_DETAIL_1).FontIndex, row); // the second finds the row
}

TEST_F(FieldPlacement, HostIsOfferedWhatKindOfFieldIsWanted) {
    session->FormBlock.PickFieldProc = TakeNothing;
    struct {
        int command;
        int flags;
        const char *tag;
    } const cases[] = {{COMMAND_DATA_FIELD, 0, ""},
                       {COMMAND_BARCODE_FIELD, FIELD_POSTNET, ""},
                       {COMMAND_APPLICATION_FIELD, 0, "AppF"}};
    for (const auto &row : cases) {
        Command(row.command);
        EXPECT_EQ(+offered.FieldFlags, row.flags);
        EXPECT_STREQ(offered.PickerTag, row.tag);
        EXPECT_STREQ(offered.FieldName, "");
        EXPECT_EQ(+offered.FieldWidth, 15);
        EXPECT_TRUE(Placing(IDLE));
        EXPECT_EQ(FieldsInUse(), 0);
    }
}

TEST_F(FieldPlacement, ApplicationFieldKeepsItsTag) {
    Command(COMMAND_APPLICATION_FIELD);
    ASSERT_TRUE(Placing(COMMAND_APPLICATION_FIELD));
    EXPECT_STREQ(New().PickerTag, "AppF");
}

TEST_F(FieldPlacement, HostWithoutAListPlacesNothing) {
    session->FormBlock.PickFieldProc = nullptr;
    Command(COMMAND_DATA_FIELD);
    EXPECT_TRUE(Placing(IDLE));
    EXPECT_EQ(FieldsInUse(), 0);
}

TEST_F(FieldPlacement, ClickThatClosedADialogPlacesNothing) {
    Post(WM_MOUSEMOVE);
    Post(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(400, 300));
    Post(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(400, 300));
    Command(COMMAND_DATA_FIELD);
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, Window(), WM_LBUTTONDOWN, WM_MOUSELAST, PM_NOREMOVE));
    EXPECT_TRUE(Placing(COMMAND_DATA_FIELD));
}

TEST_F(FieldPlacement, SystemFieldTakesItsRowOfTheTable) {
    boxes.OnDialog("Select System Field", [](DialogDriver dialog) {
        dialog.Select(LIST_CHOICE, "Page Number");
        dialog.Press(IDOK);
    });
    Command(COMMAND_SYSTEM_FIELD);
    ASSERT_TRUE(Placing(COMMAND_SYSTEM_FIELD));
    EXPECT_EQ(+New().FieldKind, FIELD_SYSTEM);
    EXPECT_EQ(New().FieldName, std::string("SYS->") + session->form.SystemFields[SYSTEM_PAGE].Name);
    EXPECT_EQ(+New().TableIndex, SYSTEM_PAGE);
    EXPECT_EQ(+New().Modifiable, 1);
    EXPECT_EQ(+New().ValueType, +session->form.SystemFields[SYSTEM_PAGE].ValueType);
    EXPECT_EQ(+New().FieldWidth, +session->form.SystemFields[SYSTEM_PAGE].Width);
    Drop(SECTION_PAGE_FOOTER);
    EXPECT_EQ(+New().SummaryType, SUMMARY_VALUE); // a number in a footer, but the system's
}

TEST_F(FieldPlacement, RecordCountCountsWhereverItStands) {
    boxes.OnDialog("Select System Field", [](DialogDriver dialog) {
        dialog.Select(LIST_CHOICE, "Record Count");
        dialog.Press(IDOK);
    });
    Command(COMMAND_SYSTEM_FIELD);
    EXPECT_EQ(+New().SummaryType, SUMMARY_COUNT);
    EXPECT_EQ(New().FieldFlags & FIELD_RETAIN, 0);
    Drop(SECTION_PAGE_FOOTER);
    EXPECT_EQ(+New().SummaryType, SUMMARY_COUNT);
}

TEST_F(FieldPlacement, CancelledListLeavesTheRowFree) {
    AddUserField("COUNTRY", TYPE_TEXT, 12);
    boxes.AnswerDialog("Select System Field", IDCANCEL);
    boxes.AnswerDialog("Select User Field", IDCANCEL);
    boxes.AnswerDialog("New Calculation Field", IDCANCEL);
    SelectItem(session, Row("Beta"));
    for (const int command : {COMMAND_SYSTEM_FIELD, COMMAND_USER_FIELD, COMMAND_CALC_FIELD}) {
        Command(command);
        EXPECT_TRUE(Placing(IDLE));
        EXPECT_EQ(FieldsInUse(), 0);
    }
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
    EXPECT_EQ(session->form.TotalItems, 7);
}

TEST_F(FieldPlacement, UserFieldTakesItsRowOfTheUsersTable) {
    AddUserField("COUNTRY", TYPE_TEXT, 12);
    AddUserField("LIMIT", TYPE_NUMERIC, 9);
    boxes.OnDialog("Select User Field", [](DialogDriver dialog) {
        dialog.Select(LIST_CHOICE, "LIMIT");
        dialog.Press(IDOK);
    });
    Command(COMMAND_USER_FIELD);
    ASSERT_TRUE(Placing(COMMAND_USER_FIELD));
    EXPECT_EQ(+New().FieldKind, FIELD_USER);
    EXPECT_STREQ(New().FieldName, "DLG->LIMIT");
    EXPECT_EQ(+New().ValueType, TYPE_NUMERIC);
    EXPECT_EQ(+New().FieldWidth, 9);
    EXPECT_EQ(+New().TableIndex, 1);
    EXPECT_EQ(+New().Modifiable, 1);
    Drop(SECTION_PAGE_FOOTER);
    EXPECT_EQ(+New().SummaryType, SUMMARY_TOTAL);
}

TEST_F(FieldPlacement, UserFieldThatWasDeletedBeforeTheClickIsNotPlaced) {
    AddUserField("COUNTRY", TYPE_TEXT, 12);
    boxes.AnswerDialog("Select User Field", IDOK);
    Command(COMMAND_USER_FIELD);
    boxes.AnswerDialog("Select User Field", IDOK);
    Command(COMMAND_DELETE_USER_FIELD); // of a host: the menu is grey
    ASSERT_EQ(FieldsInUse(), 0);
    const int items = session->form.TotalItems;
    ClickAt(700, 300);
    EXPECT_TRUE(Placing(IDLE));
    EXPECT_EQ(DesignerOf(session).FocusVisible, 0u);
    EXPECT_EQ(session->form.TotalItems, items);
}

TEST_F(FieldPlacement, EmptyUserFieldTableIsTold) {
    Command(COMMAND_USER_FIELD);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "User Field Table Empty!", {IDOK}}}));
    EXPECT_TRUE(Placing(IDLE));
    EXPECT_EQ(FieldsInUse(), 0);
}

TEST_F(FieldPlacement, CalculationIsWrittenWithItsDescription) {
    known["AMOUNT"] = picked;
    known["AMOUNT"].ValueType = TYPE_NUMERIC;
    CopyText("AMOUNT", known["AMOUNT"].FieldName, sizeof picked.FieldName);
    boxes.OnDialog("New Calculation Field", [](DialogDriver dialog) {
        dialog.SetText(EXPRESSION_DESCRIPTION, "Twice");
        dialog.SetText(EXPRESSION_TEXT, "AMOUNT*2");
        dialog.Press(IDOK);
    });
    Command(COMMAND_CALC_FIELD);
    ASSERT_TRUE(Placing(COMMAND_CALC_FIELD)) << boxes.LastText();
    const int row = DesignerOf(session).NewField;
    EXPECT_EQ(row, 1); // the compiler took the rows behind it
    EXPECT_EQ(+New().FieldKind, FIELD_CALC);
    EXPECT_STREQ(New().FieldName, "CALC->Twice");
    EXPECT_EQ(+New().ValueType, TYPE_NUMERIC);
    EXPECT_EQ(+New().FieldTokens[0], 2);
    EXPECT_EQ(+New().FieldTokens[3], CELL_END);
    EXPECT_EQ(+Drop(SECTION_DETAIL_1).FieldIndex, row);
}

TEST_F(FieldPlacement, EmptyCalculationIsNotPlaced) {
    boxes.OnDialog("New Calculation Field", [](DialogDriver dialog) {
        dialog.SetText(EXPRESSION_DESCRIPTION, "Nothing");
        dialog.Press(IDOK);
    });
    Command(COMMAND_CALC_FIELD);
    EXPECT_TRUE(Placing(IDLE));
    EXPECT_EQ(FieldsInUse(), 0);
}

TEST_F(FieldPlacement, FullFieldTableIsToldByEveryCommand) {
    AddUserField("COUNTRY", TYPE_TEXT, 12);
    while (NewFieldSlot(session) != NO_SLOT) session->form.Fields[NewFieldSlot(session)].InUse = 1;
    for (const int command : FIELD_COMMANDS) {
        boxes.Clear();
        Command(command);
        EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Ran out of TempFld table!", {IDOK}}}))
            << command;
        EXPECT_TRUE(Placing(IDLE));
    }
    for (int row = 0; row < session->form.FieldCount; ++row) FreeFieldSlot(session, row);
}

TEST_F(FieldPlacement, FullItemTableIsToldBeforeAnythingIsAsked) {
    ItemRecord *items = session->form.Items;
    for (; session->form.TotalItems < MAX_ITEMS; ++session->form.TotalItems)
        items[session->form.TotalItems] = items[session->form.TotalItems - 1];
    for (const int command : FIELD_COMMANDS) {
        boxes.Clear();
        Command(command);
        EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Item Table Full!", {IDOK}}}));
    }
    EXPECT_TRUE(levels.empty());
}

TEST_F(FieldPlacement, NothingBeginsWhileSomethingIsInProgress) {
    DesignerOf(session).PendingCommand = COMMAND_MOVE;
    for (const int command : FIELD_COMMANDS) Command(command);
    EXPECT_TRUE(Placing(COMMAND_MOVE));
    EXPECT_TRUE(levels.empty());
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FieldPlacement, CommandThatPlacesNoFieldIsIgnored) {
    BeginField(session, COMMAND_EDIT_FIELD);
    EXPECT_TRUE(Placing(IDLE));
}

TEST_F(FieldPlacement, TableThatTheHostFilledWhilePickingIsTold) {
    picking = session;
    session->FormBlock.PickFieldProc = FillTableWhilePicking;
    Command(COMMAND_DATA_FIELD);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Item Table Full!", {IDOK}}}));
    EXPECT_TRUE(Placing(IDLE));
    EXPECT_EQ(FieldsInUse(), 0);
}

TEST_F(FieldPlacement, FieldThatTheHostAddsWhilePickingHasARowOfItsOwn) {
    picking = session;
    session->FormBlock.PickFieldProc = AddWhilePicking;
    Command(COMMAND_DATA_FIELD);
    ASSERT_TRUE(Placing(COMMAND_DATA_FIELD));
    EXPECT_STREQ(New().FieldName, "LATE");
    EXPECT_EQ(FieldsInUse(), 2);
}

TEST_F(FieldPlacement, TableThatTheHostFilledWhilePlacingTakesNoFieldAndKeepsNoRow) {
    Command(COMMAND_DATA_FIELD);
    ASSERT_TRUE(Placing(COMMAND_DATA_FIELD));
    while (session->form.TotalItems < MAX_ITEMS)
        session->form.Items[session->form.TotalItems++] = Item("Gamma");
    ClickAt(700, 300);
    EXPECT_EQ(session->form.TotalItems, MAX_ITEMS);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Item Table Full!", {IDOK}}}));
    EXPECT_TRUE(Placing(IDLE));
    EXPECT_EQ(FieldsInUse(), 0);
}
