#include "designer/item_style.h"

#include <string>

#include "commands.h"
#include "designer/designer_state.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "designer/selection.h"
#include "tests/support/designer_session.h"
#include "tests/support/scripted_dialogs.h"

using namespace tessarine;

namespace {

constexpr const char *POSITION_TITLE = "Text Position within Item Outlines";
constexpr const char *OUTLINE_TITLE = "Item Outline Style and Color";
constexpr const char *BACKGROUND_TITLE = "Edit Item Background";

class ItemStyle : public DesignerSession {
protected:
    void SetUp() override {
        FormBuilder form = TwoSections();
        form.Line(SECTION_DETAIL_1, 600, 150, 300, 50, 0);
        form.FieldItem(SECTION_DETAIL_1, 600, 250, 300, 50,
                       form.Field(FIELD_CALC, "CALC->Net", TYPE_TEXT, 9));
        FormRows::Store({}, &form.fields[1].FieldTokens);
        ASSERT_EQ(StartOn(form), 0);
        ASSERT_EQ(boxes.Texts(), std::vector<std::string>{});
    }
    int RowOfType(int type) {
        int row = session->form.TotalItems;
        while (row > 0 && session->form.Items[row - 1].ItemType != type) --row;
        EXPECT_GT(row, 0) << type;
        return row - 1;
    }
    ItemRecord &ItemOfType(int type) { return session->form.Items[RowOfType(type)]; }
    // The group holds what lies from the place of Alpha to that of Beta.
    ItemRecord &SelectGroup() {
        ItemRecord &group = session->form.Items[GroupRow(session)];
        SetPlace(&group, {150, 60, 800, 300});
        session->form.SelectedItem = GroupRow(session);
        return group;
    }
    void Answer(const char *title, const std::vector<int> &clicks) {
        boxes.OnDialog(title, [clicks](DialogDriver dialog) {
            for (const int control : clicks) dialog.Click(control);
            dialog.Press(IDOK);
        });
    }
};

} // namespace

TEST_F(ItemStyle, PositionOfAnItemsTextIsSetAndOtherFlagsStay) {
    Item("Beta").ItemFlags |= FLAG_BACKGROUND;
    SelectItem(session, Row("Beta"));
    Answer(POSITION_TITLE, {POSITION_RIGHT, POSITION_BOTTOM});
    Command(COMMAND_POSITION);
    EXPECT_EQ(+Item("Beta").ItemFlags, FLAG_BACKGROUND | FLAG_RIGHT | FLAG_BOTTOM);
    EXPECT_EQ(+Item("Alpha").ItemFlags, FLAG_LEFT | FLAG_MIDDLE);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(ItemStyle, MembersOfTheGroupTakeItsPositionWhateverTheirType) {
    ItemRecord &line = ItemOfType(ITEM_LINE);
    SetPlace(&line, {300, 200, 400, 250});
    Item("Alpha").ItemFlags |= FLAG_BACKGROUND;
    SelectGroup();
    Answer(POSITION_TITLE, {POSITION_CENTER, POSITION_TOP});
    Command(COMMAND_POSITION);
    EXPECT_EQ(+Item("Alpha").ItemFlags, FLAG_BACKGROUND | FLAG_CENTER | FLAG_TOP);
    EXPECT_EQ(+Item("Beta").ItemFlags, FLAG_CENTER | FLAG_TOP);
    EXPECT_EQ(+ItemOfType(ITEM_LINE).ItemFlags, FLAG_CENTER | FLAG_TOP);
    EXPECT_EQ(+Item("Gamma").ItemFlags, FLAG_LEFT | FLAG_MIDDLE);
    EXPECT_EQ(+Item("Alpha").GroupMark, 0);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(ItemStyle, OnlyTextHasAPosition) {
    const ScriptedDialogs dialogs;
    session->form.Fields[1].ValueType = TYPE_PICTURE;
    for (const int type : {ITEM_LINE, ITEM_BAR, ITEM_FIELD}) {
        SelectItem(session, RowOfType(type));
        EditPosition(session);
    }
    EXPECT_TRUE(dialogs.Shown().empty());
    session->form.Fields[1].ValueType = TYPE_TEXT;
    EditPosition(session);
    EXPECT_EQ(dialogs.Shown(), std::vector<std::string>{"PosParam"});
}

TEST_F(ItemStyle, OutlineOfAnyItemIsSet) {
    for (const int type : {ITEM_LINE, ITEM_BAR, ITEM_FIELD}) {
        SelectItem(session, RowOfType(type));
        Answer(OUTLINE_TITLE, {OUTLINE_LEFT, STROKE_DOTS});
        Command(COMMAND_OUTLINE);
        EXPECT_EQ(+ItemOfType(type).OutlineSides, SIDE_LEFT);
        EXPECT_EQ(+ItemOfType(type).OutlineStyle, 2);
    }
}

TEST_F(ItemStyle, MembersOfTheGroupTakeItsOutline) {
    ItemRecord &group = SelectGroup();
    group.OutlineColor = 0x123456;
    boxes.OnDialog(OUTLINE_TITLE, [](DialogDriver dialog) {
        dialog.Click(OUTLINE_TOP);
        dialog.Click(STROKE_DASHES);
        dialog.SetText(STROKE_WIDTH, "17");
        dialog.Press(IDOK);
    });
    Command(COMMAND_OUTLINE);
    for (const char *name : {"Alpha", "Beta"}) {
        EXPECT_EQ(+Item(name).OutlineSides, SIDE_TOP);
        EXPECT_EQ(+Item(name).OutlineStyle, 1);
        EXPECT_EQ(+Item(name).OutlineWidth, 17);
        EXPECT_EQ(+Item(name).OutlineColor, 0x123456u);
    }
    EXPECT_EQ(+Item("Gamma").OutlineSides, 0);
}

TEST_F(ItemStyle, BackgroundIsSet) {
    SelectItem(session, Row("Beta"));
    Answer(BACKGROUND_TITLE, {BACKGROUND_PAINT, BRUSH_CROSS});
    Command(COMMAND_BACKGROUND);
    EXPECT_EQ(+Item("Beta").ItemFlags, FLAG_LEFT | FLAG_MIDDLE | FLAG_BACKGROUND);
    EXPECT_EQ(+Item("Beta").Background.Style, 2);
    EXPECT_EQ(+Item("Beta").Background.Hatch, 4);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(ItemStyle, MembersThatAreNoPicturesTakeTheGroupsBackground) {
    ItemRecord &picture = ItemOfType(ITEM_LINE);
    picture.ItemType = ITEM_PICTURE;
    SetPlace(&picture, {300, 200, 400, 250});
    ItemRecord &group = SelectGroup();
    group.Background.Color = 0x654321;
    Answer(BACKGROUND_TITLE, {BACKGROUND_PAINT, BRUSH_VERTICAL});
    Command(COMMAND_BACKGROUND);
    EXPECT_EQ(+Item("Alpha").ItemFlags, FLAG_LEFT | FLAG_MIDDLE | FLAG_BACKGROUND);
    EXPECT_EQ(+Item("Alpha").Background.Hatch, 1);
    EXPECT_EQ(+Item("Alpha").Background.Color, 0x654321u);
    EXPECT_EQ(+Item("Gamma").ItemFlags, FLAG_LEFT | FLAG_MIDDLE);
    EXPECT_EQ(+picture.ItemFlags, FLAG_LEFT | FLAG_MIDDLE);
    EXPECT_EQ(+picture.Background.Color, 0u);
    EXPECT_EQ(+picture.GroupMark, 0);
    picture.ItemType = ITEM_LINE;
}

TEST_F(ItemStyle, PictureHasNoBackground) {
    const ScriptedDialogs dialogs;
    ItemRecord &picture = ItemOfType(ITEM_LINE);
    picture.ItemType = ITEM_PICTURE;
    session->form.SelectedItem = RowOfType(ITEM_PICTURE);
    EditBackground(session);
    EXPECT_TRUE(dialogs.Shown().empty());
    picture.ItemType = ITEM_LINE;
}

TEST_F(ItemStyle, CancelChangesNothing) {
    SelectGroup();
    for (const char *title : {POSITION_TITLE, OUTLINE_TITLE, BACKGROUND_TITLE})
        boxes.AnswerDialog(title, IDCANCEL);
    const ItemRecord before = Item("Alpha");
    for (const int command : {COMMAND_POSITION, COMMAND_OUTLINE, COMMAND_BACKGROUND})
        Command(command);
    EXPECT_EQ(std::string(reinterpret_cast<const char *>(&before), sizeof before),
              std::string(reinterpret_cast<const char *>(&Item("Alpha")), sizeof before));
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(ItemStyle, DialogThatCannotBeOpenedChangesNothing) {
    const FailingCall fails("DialogBoxParamA", DialogBoxParamA, -1, 1, EVERY_CALL);
    SelectGroup();
    for (const auto edit : {EditPosition, EditOutline, EditBackground}) edit(session);
    EXPECT_EQ(fails.Seen(), 3);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(ItemStyle, NothingIsEditedWithoutASelection) {
    const ScriptedDialogs dialogs;
    session->form.SelectedItem = NOTHING_SELECTED;
    for (const auto edit : {EditPosition, EditOutline, EditBackground}) edit(session);
    EXPECT_TRUE(dialogs.Shown().empty());
}

TEST_F(ItemStyle, SessionThatEndedUnderTheDialogIsLeftAlone) {
    ScriptedDialogs dialogs;
    dialogs.On("OutlineParam", [](Session *asked) {
        asked->State = STATE_ENDING;
        return INT_PTR{1};
    });
    SelectGroup();
    EditOutline(session);
    EXPECT_EQ(session->form.FormModified, 0u);
    session->State = STATE_FORM_OPEN;
}
