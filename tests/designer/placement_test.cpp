#include "designer/placement.h"

#include <string>

#include "commands.h"
#include "designer/designer_state.h"
#include "designer/item_table.h"
#include "designer/selection.h"
#include "designer/view.h"
#include "tests/support/designer_session.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/three_sections.h"

using namespace tessarine;

namespace {

// A view of 300 by 200 at 1000, 500, and a first bar at 62, 0 with a caption of 40.
class NewItemRectangle : public ThreeSections {
protected:
    NewItemRectangle() {
        session->view.OriginX = 1000;
        session->view.OriginY = 500;
        session->view.ViewWidth = 300;
        session->view.ViewHeight = 200;
    }
    RECT Of(int height, int width, int x = -1, int y = -1, bool free = false) {
        RECT place{};
        NewItemRect(session, height, width, &place, x, y, free);
        return place;
    }
    void ShowAllOfTheForm() {
        session->view.OriginX = session->view.OriginY = 0;
        session->view.ViewWidth = session->view.ViewHeight = 2000;
    }
};

void ExpectPlace(const RECT &place, const RECT &expected) {
    EXPECT_EQ(place.left, expected.left);
    EXPECT_EQ(place.top, expected.top);
    EXPECT_EQ(place.right, expected.right);
    EXPECT_EQ(place.bottom, expected.bottom);
}

// Closes a session when a window's text changes, as a host may.
Session *closing = nullptr;
WNDPROC system_edit = nullptr;
LRESULT CALLBACK CloseOverText(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETTEXT) closing->State = STATE_ENDING;
    return CallWindowProcA(system_edit, window, message, wParam, lParam);
}

// A designer whose dialogs give what the test says.
class Placement : public DesignerSession {
protected:
    void SetUp() override { ASSERT_EQ(StartOn(TwoSections()), 0); }

    void AnswerLabel(const std::string &text) {
        dialogs.On("NewLabelParam", [text](Session *asked) {
            text.copy(asked->TextBuffer, text.size());
            asked->TextBuffer[text.size()] = 0;
            return INT_PTR{1};
        });
    }
    void FillTable(int rows) {
        ItemRecord *items = session->form.Items;
        while (session->form.TotalItems < rows) {
            items[session->form.TotalItems] = items[Row("Gamma")];
            ++session->form.TotalItems;
        }
    }
    void ExpectPlacing(int command) {
        const Designer &designer = DesignerOf(session);
        EXPECT_EQ(designer.PendingCommand, command);
        EXPECT_EQ(designer.HoverOnly, 0u);
        EXPECT_EQ(designer.FocusVisible, 1u);
        EXPECT_EQ(designer.HandleCount, 0);
        EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
        const RECT &place = designer.FocusRect;
        POINT middle =
            FormToDevice(session, {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
        ClientToScreen(Window(), &middle);
        POINT pointer{};
        GetCursorPos(&pointer);
        EXPECT_EQ(pointer.x, middle.x);
        EXPECT_EQ(pointer.y, middle.y);
    }
    // What a placement leaves behind.
    const ItemRecord &Placed() {
        const Designer &designer = DesignerOf(session);
        EXPECT_EQ(designer.PendingCommand, IDLE);
        EXPECT_EQ(designer.HoverOnly, 1u);
        EXPECT_EQ(session->form.FormModified, 1u);
        EXPECT_GE(session->form.SelectedItem, 0);
        return session->form.Items[session->form.SelectedItem];
    }
    int Width(const std::string &text) {
        int width = 20;
        for (const char c : text)
            width += session->form.Fonts[0].CharWidth[static_cast<unsigned char>(c)];
        return width;
    }

    ScriptedDialogs dialogs;
};

// The same with the library's own dialogs.
class PlacementByDialog : public DesignerSession {
protected:
    void SetUp() override { ASSERT_EQ(StartOn(TwoSections()), 0); }
};

} // namespace

TEST_F(NewItemRectangle, StandsInTheMiddleOfTheView) {
    ExpectPlace(Of(50, 100), {1101, 576, 1201, 626}); // of 1002 to 1300 and 502 to 700
}

TEST_F(NewItemRectangle, StandsInTheMiddleOfTheSelectedSection) {
    ShowAllOfTheForm();
    session->form.SelectedItem = session->form.Sections[SECTION_DETAIL_1].BarItem;
    // of 64 to 1062 and 442 to 840
    ExpectPlace(Of(50, 100), {513, 616, 613, 666});
}

TEST_F(NewItemRectangle, StandsInTheMiddleOfALabelWhateverIsSelected) {
    ShowAllOfTheForm();
    session->LabelMode = 1;
    session->form.SelectedItem = session->form.Sections[SECTION_DETAIL_1].BarItem;
    ExpectPlace(Of(50, 100), {512, 195, 612, 245}); // of 62 to 1062 and 40 to 400
}

TEST_F(NewItemRectangle, StandsInThePartOfALabelThatIsOnView) {
    session->LabelMode = 1;
    session->view.OriginX = 900;
    session->view.OriginY = 300;
    ExpectPlace(Of(50, 100), {931, 325, 1031, 375}); // of 900 to 1062 and 300 to 400
}

TEST_F(NewItemRectangle, StandsInTheViewWhenNothingOfTheLabelIsOnView) {
    session->LabelMode = 1;
    ExpectPlace(Of(50, 100), {1100, 575, 1200, 625});
}

TEST_F(NewItemRectangle, IsNoLargerThanItsAreaOnView) {
    const RECT place = Of(900, 5000);
    ExpectPlace(place, {1002, 502, 1300, 700});
}

TEST_F(NewItemRectangle, KeepsItsSizeAndItsPlaceWhenItIsFree) {
    ExpectPlace(Of(900, 5000, 7, 9, true), {7, 9, 5007, 909});
    session->form.SelectedItem = session->form.Sections[SECTION_DETAIL_1].BarItem;
    ExpectPlace(Of(50, 100, -1, -1, true), {513, 616, 613, 666});
    ExpectPlace(Of(50, 100, 0, -1, true), {0, 616, 100, 666});
    ExpectPlace(Of(50, 100, -1, 0, true), {513, 0, 613, 50});
}

TEST_F(NewItemRectangle, TakesAPlaceAlsoWhenItIsNotFree) {
    ExpectPlace(Of(50, 100, 7, 9), {7, 9, 107, 59});
}

TEST_F(NewItemRectangle, HasSomeSizeInAViewWithoutAny) {
    session->view.ViewWidth = session->view.ViewHeight = 0;
    const RECT place = Of(50, 100);
    EXPECT_EQ(place.right - place.left, 1);
    EXPECT_EQ(place.bottom - place.top, 1);
}

TEST_F(Placement, RoomCheckTellsWhetherANewItemMayBegin) {
    SelectItem(session, Row("Beta"));
    DesignerOf(session).PendingCommand = COMMAND_MOVE;
    EXPECT_EQ(ItemRoomCheck(session), 0);
    EXPECT_EQ(session->form.SelectedItem, Row("Beta"));
    DesignerOf(session).PendingCommand = IDLE;
    EXPECT_EQ(ItemRoomCheck(session), -1);
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
    SelectItem(session, Row("Beta"));
    FillTable(MAX_ITEMS);
    EXPECT_EQ(ItemRoomCheck(session), 1);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Item Table Full!", {IDOK}}}));
    EXPECT_EQ(session->form.SelectedItem, Row("Beta"));
}

TEST_F(Placement, LabelFollowsThePointerInTheSizeOfItsText) {
    SelectItem(session, Row("Beta"));
    AnswerLabel("Three\r\nlines of\r\ntext");
    Command(COMMAND_NEW_LABEL);
    ExpectPlacing(COMMAND_NEW_LABEL);
    const RECT &place = DesignerOf(session).FocusRect;
    EXPECT_EQ(place.right - place.left, Width("lines of"));
    EXPECT_EQ(place.bottom - place.top, 3 * static_cast<int>(session->form.Fonts[0].Height));
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(Placement, CancelledLabelChangesNothing) {
    SelectItem(session, Row("Beta"));
    session->TextBuffer[0] = 'x';
    Command(COMMAND_NEW_LABEL);
    EXPECT_EQ(dialogs.Shown(), std::vector<std::string>{"NewLabelParam"});
    EXPECT_STREQ(session->TextBuffer, ""); // emptied for the dialog
    EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
    EXPECT_EQ(session->form.SelectedItem, Row("Beta"));
}

TEST_F(Placement, ClickPutsTheLabelThere) {
    AnswerLabel("New");
    Command(COMMAND_NEW_LABEL);
    DesignerOf(session).SnapToGrid = 0;
    MoveTo(700, 300);
    ClickAt(700, 300);
    const ItemRecord &label = Placed();
    EXPECT_EQ(+label.ItemType, ITEM_LABEL);
    EXPECT_STREQ(label.LabelText, "New");
    EXPECT_EQ(+label.width, Width("New"));
    EXPECT_EQ(+label.height, static_cast<int>(session->form.Fonts[0].Height));
    EXPECT_NEAR(label.x + label.width / 2, 700, 2);
    EXPECT_NEAR(label.y + label.height / 2, 300, 2);
    EXPECT_EQ(+label.SectionIndex, SECTION_PAGE_HEADER);
    EXPECT_EQ(+label.KeepSize, 0);
    EXPECT_EQ(+label.ItemFlags, FLAG_LEFT | FLAG_MIDDLE);
    EXPECT_EQ(session->form.SelectedItem, session->form.Sections[SECTION_DETAIL_1].BarItem - 1);
}

TEST_F(Placement, AnyButtonPlaces) {
    const FailingCall no_menu("TrackPopupMenu", TrackPopupMenu, FALSE, 1, EVERY_CALL);
    for (const MouseButton button : {MouseButton::LEFT, MouseButton::MIDDLE, MouseButton::RIGHT}) {
        const int items = session->form.TotalItems;
        Command(COMMAND_NEW_LINE);
        PressAt(700, 300, button);
        EXPECT_EQ(session->form.TotalItems, items + 1);
        ReleaseAt(700, 300, button);
        EXPECT_EQ(+Placed().ItemType, ITEM_LINE);
    }
}

TEST_F(Placement, ItemDroppedAcrossASectionsEdgeLiesInTheSectionOfItsTop) {
    DesignerOf(session).SnapToGrid = 0;
    Command(COMMAND_NEW_LINE);
    const RECT header = RectOf(Bar(SECTION_PAGE_HEADER));
    MoveTo(700, header.bottom - 10); // half of it would lie in the detail section
    ClickAt(700, header.bottom - 10);
    const ItemRecord &line = Placed();
    EXPECT_EQ(+line.SectionIndex, SECTION_PAGE_HEADER);
    EXPECT_EQ(line.y + line.height, header.bottom);
    EXPECT_EQ(+line.height, 50);
}

TEST_F(Placement, NewLineIsHorizontalWithAllDefaults) {
    SelectItem(session, Row("Beta"));
    Command(COMMAND_NEW_LINE);
    ExpectPlacing(COMMAND_NEW_LINE);
    ClickAt(700, 300);
    const ItemRecord &line = Placed();
    EXPECT_EQ(+line.ItemType, ITEM_LINE);
    EXPECT_EQ(+line.width, 300);
    EXPECT_EQ(+line.height, 50);
    EXPECT_EQ(+line.LineAngle, 0);
    EXPECT_EQ(+line.LineStyle, 0);
    EXPECT_EQ(+line.LineWidth, 0);
    EXPECT_EQ(+line.LineColor, session->palette.ForeColor);
}

TEST_F(Placement, FullTableIsToldBehindTheLabelsDialogAndBeforeALine) {
    SelectItem(session, Row("Beta"));
    FillTable(MAX_ITEMS);
    AnswerLabel("New");
    const std::vector<BoxRecord> told{{"", "Item Table Full!", {IDOK}}};
    for (const int command : {COMMAND_NEW_LABEL, COMMAND_NEW_LINE}) {
        boxes.Clear();
        Command(command);
        EXPECT_EQ(boxes.Log(), told);
        EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
        EXPECT_EQ(session->form.SelectedItem, Row("Beta"));
    }
    EXPECT_EQ(dialogs.Shown(), std::vector<std::string>{"NewLabelParam"});
}

TEST_F(Placement, LastRowOfTheTableIsStillGiven) {
    FillTable(MAX_ITEMS - 1);
    Command(COMMAND_NEW_LINE);
    ClickAt(700, 300);
    EXPECT_EQ(session->form.TotalItems, MAX_ITEMS);
}

TEST_F(Placement, NothingBeginsWhileSomethingIsInProgress) {
    AnswerLabel("New");
    DesignerOf(session).PendingCommand = COMMAND_BAND;
    Command(COMMAND_NEW_LINE);
    Command(COMMAND_NEW_LABEL);
    EXPECT_EQ(DesignerOf(session).PendingCommand, COMMAND_BAND);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Placement, LabelForWhichTheSessionEndedUnderItsDialogIsDropped) {
    dialogs.On("NewLabelParam", [](Session *asked) {
        asked->State = STATE_ENDING;
        return INT_PTR{1};
    });
    BeginLabel(session);
    EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
    session->State = STATE_FORM_OPEN;
}

TEST_F(Placement, NewGroupIsNotLeftBehindByAPlacement) {
    ItemRecord &group = session->form.Items[1];
    group.width = group.height = 100;
    session->form.SelectedItem = 1;
    Command(COMMAND_NEW_LINE);
    EXPECT_EQ(+group.width, 0);
    EXPECT_EQ(+group.height, 0);
}

TEST_F(PlacementByDialog, TypedTextBecomesALabelWhereItIsClicked) {
    boxes.AnswerDialog("New Text Field", TEXT_INPUT, "  Grand total ", IDOK);
    Command(COMMAND_NEW_LABEL);
    ASSERT_EQ(DesignerOf(session).PendingCommand, COMMAND_NEW_LABEL);
    ClickAt(700, 300);
    EXPECT_STREQ(session->form.Items[session->form.SelectedItem].LabelText, "Grand total");
}

TEST_F(PlacementByDialog, CancelledTextBecomesNothing) {
    boxes.AnswerDialog("New Text Field", TEXT_INPUT, "Grand total", IDCANCEL);
    Command(COMMAND_NEW_LABEL);
    EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
}

TEST_F(Placement, TableThatTheHostFilledWhilePlacingIsTold) {
    for (const int command : {COMMAND_NEW_LABEL, COMMAND_NEW_LINE}) {
        AnswerLabel("New");
        session->form.TotalItems = 6;
        boxes.Clear();
        Command(command);
        ExpectPlacing(command);
        FillTable(MAX_ITEMS);
        ClickAt(700, 300);
        EXPECT_EQ(session->form.TotalItems, MAX_ITEMS);
        EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Item Table Full!", {IDOK}}}));
        EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
        EXPECT_EQ(DesignerOf(session).FocusVisible, 0u);
    }
}

TEST_F(Placement, NothingBeginsWhenAHostClosesTheSessionOverTheDeselection) {
    const HWND edit = CreateWindowExA(0, "EDIT", "", WS_CHILD, 0, 0, 10, 10, host.Get(), nullptr,
                                      nullptr, nullptr);
    session->Desk.EditWindow = edit;
    closing = session;
    system_edit = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CloseOverText)));
    for (void (*begin)(Session *) : {BeginLine, BeginLabel}) {
        AnswerLabel("New");
        session->form.SelectedItem = Row("Beta");
        begin(session);
        EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
        session->State = STATE_FORM_OPEN;
    }
    session->Desk.EditWindow = nullptr;
    DestroyWindow(edit);
}
