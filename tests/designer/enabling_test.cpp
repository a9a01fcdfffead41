#include "designer/enabling.h"

#include <string>

#include "commands.h"
#include "designer/command_rows.h"
#include "designer/designer_state.h"
#include "tests/support/designer_session.h"

using namespace tessarine;

namespace {

// What is selected: nothing, a label, a text field, a calculation, a field with a picture, a line,
// a picture, the group, a bar, the bar of a sort header.
constexpr const char *selections = "-LFCQlpgbs";

FormBuilder FormOfAllKinds() {
    FormBuilder form;
    const int name = form.Field(FIELD_DATA, "NAME", TYPE_TEXT);
    form.Field(FIELD_CALC, "SUM", TYPE_NUMERIC);
    form.Field(FIELD_DATA, "FACE", TYPE_PICTURE);
    form.Section(SECTION_PAGE_HEADER, 400);
    form.Item(ITEM_GROUP, SECTION_PAGE_HEADER, 0, 0, 0, 0);
    form.Label(SECTION_PAGE_HEADER, 200, 50, 200, 50, "label");
    form.Line(SECTION_PAGE_HEADER, 500, 50, 200, 50, 1);
    form.Section(SECTION_SORT_HEADER_1, 200);
    form.Break(name, name, SECTION_SORT_HEADER_1);
    form.Section(SECTION_DETAIL_1, 400);
    form.FieldItem(SECTION_DETAIL_1, 300, 50, 200, 50, name);
    return form;
}

class Enabling : public DesignerSession {
protected:
    void SetUp() override { ASSERT_EQ(StartOn(FormOfAllKinds()), CODE_DONE) << boxes.LastText(); }

    int RowOf(int type) const {
        int row = 0;
        while (session->form.Items[row].ItemType != type) ++row;
        return row;
    }
    int FieldRow(const std::string &name) const {
        int row = 1;
        while (session->form.Fields[row].FieldName != name) ++row;
        return row;
    }
    void SelectField(const std::string &name) {
        session->form.SelectedItem = RowOf(ITEM_FIELD);
        session->form.Items[session->form.SelectedItem].FieldIndex =
            static_cast<int16_t>(FieldRow(name));
    }
    void SelectPicture() { // no more of one than its type
        session->form.SelectedItem = RowOf(ITEM_LABEL);
        session->form.Items[session->form.SelectedItem].ItemType = ITEM_PICTURE;
    }
    void Choose(char selection) {
        switch (selection) {
        case '-': session->form.SelectedItem = NOTHING_SELECTED; break;
        case 'L': session->form.SelectedItem = RowOf(ITEM_LABEL); break;
        case 'F': SelectField("NAME"); break;
        case 'C': SelectField("SUM"); break;
        case 'Q': SelectField("FACE"); break;
        case 'l': session->form.SelectedItem = RowOf(ITEM_LINE); break;
        case 'g': session->form.SelectedItem = RowOf(ITEM_GROUP); break;
        case 'b': session->form.SelectedItem = RowOf(ITEM_BAR); break;
        case 's':
            session->form.SelectedItem = session->form.Sections[SECTION_SORT_HEADER_1].BarItem;
            break;
        default: SelectPicture();
        }
    }
    // By the menu, or by its row for one that the menu doesn't have.
    bool Enabled(int number) const {
        if (!MenuText(number).empty()) return MenuEnabled(number);
        return EnabledByRow(number);
    }
    bool EnabledByRow(int number) const {
        return FindCommand(DesignerCommands(), number)->enabled(session);
    }
    bool SubmenuEnabled(int position) const {
        const HMENU arrange = GetSubMenu(GetMenu(Window()), 7);
        return !(GetMenuState(arrange, static_cast<UINT>(position), MF_BYPOSITION) & MF_GRAYED);
    }
};

struct SelectionRow {
    int number;
    const char *enabled; // with these selections
};

constexpr SelectionRow by_selection[] = {
    {625, "-LFCQlpgbs"}, {626, "-LFCQlpgbs"}, {627, "-LFCQlpgbs"}, {628, "-LFCQlpgbs"},
    {630, "-LFCQlpgbs"}, {701, "LFCQlpg"},    {702, "LFCQlpg"},    {638, "LFCg"},
    {663, "LFCg"},       {661, "LFCQlpgbs"},  {664, "LFCQlpgbs"},  {662, "LFCQlgbs"},
    {610, "LFCQlpg"},    {690, "g"},          {691, "g"},          {692, "g"},
    {693, "g"},          {704, "-LFCQlpgbs"}, {635, "-LFCQlpgbs"}, {637, "-LFCQlpgbs"},
    {641, "-LFCQlpgbs"}, {642, "-LFCQlpgbs"}, {643, "-LFCQlpgbs"}, {639, "FC"},
    {640, "C"},          {645, "-LFCQlpgbs"}, {646, "bs"},         {648, "bs"},
    {649, "s"},          {650, "s"},          {660, "-LFCQlpgbs"}, {606, "-LFCQlpgbs"},
    {621, "-LFCQlpgbs"}, {666, "l"},          {612, "L"},          {622, "-LFCQlpgbs"},
};

} // namespace

TEST_F(Enabling, EntriesFollowTheSelection) {
    for (const char *selection = selections; *selection; ++selection) {
        Choose(*selection);
        OpenMenu();
        for (const SelectionRow &row : by_selection)
            EXPECT_EQ(Enabled(row.number),
                      std::string(row.enabled).find(*selection) != std::string::npos)
                << row.number << " with " << *selection;
        for (int position = 0; position < 3; ++position)
            EXPECT_EQ(SubmenuEnabled(position), *selection == 'g') << position << *selection;
    }
}

TEST_F(Enabling, SaveWantsAModifiedForm) {
    OpenMenu();
    EXPECT_FALSE(MenuEnabled(COMMAND_SAVE));
    session->form.FormModified = 1;
    OpenMenu();
    EXPECT_TRUE(MenuEnabled(COMMAND_SAVE));
}

TEST_F(Enabling, PrinterSetupWantsThePrintersName) {
    session->printer.DeviceName[0] = 0;
    OpenMenu();
    EXPECT_FALSE(MenuEnabled(COMMAND_PRINTER_SETUP));
}

TEST_F(Enabling, UndoWantsAnImage) {
    OpenMenu();
    EXPECT_FALSE(MenuEnabled(COMMAND_UNDO));
    ItemRecord image{};
    session->designer->UndoImage = &image;
    OpenMenu();
    EXPECT_TRUE(MenuEnabled(COMMAND_UNDO));
    session->designer->UndoImage = nullptr;
}

TEST_F(Enabling, PasteWantsRowsOfItsOwnAndTheirMarkerOnTheClipboard) {
    ASSERT_TRUE(OpenClipboard(Window()));
    EmptyClipboard();
    CloseClipboard();
    session->designer->ClipCount = 1;
    EXPECT_FALSE(EnabledByRow(COMMAND_PASTE));
    ASSERT_TRUE(OpenClipboard(Window()));
    SetClipboardData(session->device.ClipFormat, GlobalAlloc(GHND, 100));
    CloseClipboard();
    OpenMenu();
    EXPECT_TRUE(MenuEnabled(COMMAND_PASTE));
    session->designer->ClipCount = 0;
    OpenMenu();
    EXPECT_FALSE(MenuEnabled(COMMAND_PASTE));
}

TEST_F(Enabling, PastedPictureWantsABitmapOnTheClipboard) {
    ASSERT_TRUE(OpenClipboard(Window()));
    EmptyClipboard();
    CloseClipboard();
    OpenMenu();
    EXPECT_FALSE(MenuEnabled(COMMAND_PICTURE_PASTED));
    ASSERT_TRUE(OpenClipboard(Window()));
    SetClipboardData(CF_BITMAP, CreateBitmap(8, 8, 1, 1, nullptr));
    CloseClipboard();
    OpenMenu();
    EXPECT_TRUE(MenuEnabled(COMMAND_PICTURE_PASTED));
}

TEST_F(Enabling, UserFieldsWantRowsInUseAndNewOnesAFreeRow) {
    const auto states = [&] {
        OpenMenu();
        std::string states;
        for (const int number : {651, 644, 652, 653}) states += MenuEnabled(number) ? 'x' : '-';
        return states;
    };
    EXPECT_EQ(states(), "x---");
    session->form.UserFields[11].InUse = 1;
    EXPECT_EQ(states(), "xxxx");
    for (UserFieldRecord &row : session->form.UserFields) row.InUse = 1;
    EXPECT_EQ(states(), "-xxx");
}

TEST_F(Enabling, GridHasACheckMarkWhileItSnaps) {
    OpenMenu();
    EXPECT_TRUE(MenuChecked(COMMAND_GRID));
    session->designer->SnapToGrid = 0;
    OpenMenu();
    EXPECT_FALSE(MenuChecked(COMMAND_GRID));
}

// The entry of the report filter alone has no rule.
TEST_F(Enabling, WhileSomethingIsPlacedAllIsGreyButTheEntryThatDoesNothing) {
    Choose('g');
    session->form.FormModified = 1;
    session->designer->PendingCommand = COMMAND_NEW_LABEL;
    OpenMenu();
    for (const CommandRow &row : DesignerCommands()) {
        const bool has_a_rule = row.enabled && !MenuText(row.number).empty();
        EXPECT_FALSE(has_a_rule && MenuEnabled(row.number)) << row.number;
    }
    for (int position = 0; position < 3; ++position) EXPECT_FALSE(SubmenuEnabled(position));
    EXPECT_TRUE(MenuEnabled(COMMAND_REPORT_FILTER_ENTRY));
    session->designer->PendingCommand = IDLE;
    OpenMenu();
    EXPECT_TRUE(MenuEnabled(COMMAND_CLOSE_FORM));
}

TEST_F(Enabling, ReportFilterEntryIsNeverGreyed) {
    for (const char *selection = selections; *selection; ++selection) {
        Choose(*selection);
        OpenMenu();
        EXPECT_TRUE(MenuEnabled(COMMAND_REPORT_FILTER_ENTRY));
    }
}

TEST_F(Enabling, FormThatMayNotBeEditedHasTheSameMenu) {
    edit_allowed = 0;
    Choose('L');
    OpenMenu();
    for (const int number : {COMMAND_DELETE, COMMAND_CUT, COMMAND_NEW_LABEL, COMMAND_NEW_SECTION})
        EXPECT_TRUE(MenuEnabled(number)) << number;
}

TEST_F(Enabling, MenuOfTheHostIsLeftAlone) {
    const HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING, COMMAND_SAVE, "of the host");
    Send(WM_INITMENU, reinterpret_cast<WPARAM>(menu));
    EXPECT_FALSE(GetMenuState(menu, COMMAND_SAVE, MF_BYCOMMAND) & MF_GRAYED);
    EXPECT_TRUE(MenuEnabled(COMMAND_UNDO)); // nor is the window's own set
    DestroyMenu(menu);
}

TEST_F(Enabling, WindowWithoutAMenuHasNothingToEnable) {
    End();
    params.ShowMenu = 0;
    ASSERT_EQ(StartOn(FormOfAllKinds()), CODE_DONE);
    EXPECT_FALSE(GetMenu(Window()));
    EXPECT_EQ(Send(WM_INITMENU, 0), 0);
}
