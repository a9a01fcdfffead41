// What else can happen to dialogs: none comes up, the form changes or ends under one, many come.
#include <gtest/gtest.h>

#include "designer/delete_item.h"
#include "designer/designer_state.h"
#include "designer/field_items.h"
#include "designer/section_edit.h"
#include "frame/boundary.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "tests/designer/dialog_session.h"
#include "tests/support/failing_call.h"
#include "tests/support/system_objects.h"

using namespace tessarine;

namespace {

Session *picking = nullptr;

int32_t __stdcall EndWhilePicking(HWND, FieldRecord *record, int32_t, void *) {
    WantEnd(picking);
    CopyText("AMOUNT", record->FieldName, sizeof record->FieldName);
    return 1;
}

class DialogsBetweenCalls : public DialogSession {
protected:
    void SetUp() override {
        DialogSession::SetUp();
        FieldRecord &field = known["AMOUNT"];
        CopyText("AMOUNT", field.FieldName, sizeof field.FieldName);
        field.ValueType = TYPE_NUMERIC;
        field.FieldWidth = 5;
    }

    void Command(int command) { Send(WM_COMMAND, static_cast<WPARAM>(command)); }
    void Select(int row) { session->form.SelectedItem = row; }
    int References(const char *name) const {
        for (int row = 0; row < session->form.FieldCount; ++row) {
            const FieldRecord &field = session->form.Fields[row];
            if (field.InUse && !std::strcmp(field.FieldName, name)) return field.RefCount;
        }
        return 0;
    }
    // Under the dialog that the command opens the routine acts on the form; then the text is taken.
    void ChangeUnder(const char *title, int command, const std::function<void()> &act,
                     const char *text) {
        bool opened = false;
        boxes.OnDialog(title, [&](DialogDriver dialog) {
            if (std::exchange(opened, true)) return;
            act();
            dialog.SetText(EXPRESSION_TEXT, text);
            dialog.Press(IDOK);
        });
        Command(command);
        EXPECT_TRUE(opened) << title;
    }
};

} // namespace

TEST_F(DialogsBetweenCalls, DialogThatCannotBeShownChangesNothing) {
    Select(Row("Alpha"));
    session->form.FormModified = 0;
    PutText("from an earlier dialog");
    const FailingCall no_dialog("DialogBoxParamA", DialogBoxParamA, INT_PTR{-1}, 1, EVERY_CALL);
    for (const int command : {COMMAND_SECTION_FILTER, COMMAND_OUTLINE, COMMAND_BACKGROUND,
                              COMMAND_POSITION, COMMAND_GRID, COMMAND_CREATE_USER_FIELD,
                              COMMAND_NEW_LABEL, COMMAND_SYSTEM_FIELD, COMMAND_NEW_SECTION}) {
        const int seen = no_dialog.Seen();
        Command(command);
        EXPECT_EQ(no_dialog.Seen(), seen + 1) << command;
        EXPECT_FALSE(Modified()) << command;
        EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE) << command;
    }
    EXPECT_EQ(session->form.UserFieldCount, 0);
    EXPECT_FALSE(session->form.UserFields[0].InUse);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(DialogsBetweenCalls, CalculationDeletedUnderItsDialogIsReleasedOnce) {
    const int first = AddNewCalcField(session, "AMOUNT+1", SECTION_DETAIL_1, "First", 100, 500);
    ASSERT_GE(first, 0);
    ASSERT_GE(AddNewCalcField(session, "AMOUNT+2", SECTION_DETAIL_1, "Second", 100, 600), 0);
    ASSERT_EQ(References("AMOUNT"), 2);
    Select(first);
    ChangeUnder(
        "Calculation Field", COMMAND_FIELD_EXPRESSION, [this] { DeleteItem(session); }, "AMOUNT");
    EXPECT_EQ(References("AMOUNT"), 1); // the second's
}

TEST_F(DialogsBetweenCalls, FilterOfASectionDeletedUnderItsDialogHoldsNothing) {
    Select(session->form.Sections[SECTION_PAGE_HEADER].BarItem);
    ChangeUnder(
        "Section Selection Criteria", COMMAND_SECTION_FILTER,
        [this] { EXPECT_TRUE(DeleteSection(session, 1)); }, "AMOUNT=1");
    EXPECT_EQ(References("AMOUNT"), 0);
    EXPECT_EQ(session->form.Sections[SECTION_PAGE_HEADER].SectionFilter[0], CELL_END);
}

TEST_F(DialogsBetweenCalls, SessionThatEndsInTheHostsListEndsTheDialogThatAsked) {
    const int blocks = LiveBlocks();
    picking = session;
    session->FormBlock.PickFieldProc = EndWhilePicking;
    Select(session->form.Sections[SECTION_PAGE_HEADER].BarItem);
    boxes.OnDialog("Section Selection Criteria", [this](DialogDriver dialog) {
        if (session->State == STATE_ENDING) return;
        dialog.Send(PICK_FIELD);
        EXPECT_TRUE(IsWindow(Window())); // the command is still at work
        dialog.Press(IDOK);              // it gets a Cancel's result
    });
    Command(COMMAND_SECTION_FILTER);
    EXPECT_FALSE(SessionStands(picking));
    EXPECT_FALSE(IsWindow(Window()));
    EXPECT_LT(LiveBlocks(), blocks);
    session = nullptr;
}

TEST_F(DialogsBetweenCalls, TwoHundredDialogsLeaveNothingBehind) {
    const auto times = [this](int count) {
        for (int time = 0; time < count; ++time) Command(COMMAND_GRID);
    };
    int opened = 0;
    boxes.OnDialog("Edit Grid Parameters", [&](DialogDriver dialog) {
        ++opened;
        dialog.Press(IDCANCEL);
    });
    times(10);
    const int blocks = LiveBlocks();
    const int drawing = CountGdiObjects();
    const int objects = CountUserObjects();
    times(200);
    EXPECT_GE(opened, 210);
    EXPECT_EQ(LiveBlocks(), blocks);
    EXPECT_EQ(CountGdiObjects(), drawing);
    EXPECT_EQ(CountUserObjects(), objects);
}
