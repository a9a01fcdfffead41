#include "designer/properties.h"

#include <vector>

#include "commands.h"
#include "designer/designer_state.h"
#include "frame/host_data.h"
#include "frame/session_table.h"
#include "tests/support/designer_session.h"
#include "tests/support/failing_call.h"

using namespace tessarine;

namespace {

// What the host was asked for.
struct Asked {
    uint32_t pages;
    uint32_t writable;
    void *context;
    bool operator==(const Asked &) const = default;
};

class Properties : public DesignerSession {
protected:
    Properties() {
        standing = this;
        host_data.ItemPropertiesCallback = Answer;
        host_data.HostContext = &asked;
    }
    void SetUp() override {
        FormBuilder form = TwoSections();
        form.Line(SECTION_DETAIL_1, 600, 50, 200, 50, 1);
        ASSERT_EQ(StartOn(form), CODE_DONE) << boxes.LastText();
    }
    ~Properties() override { End(); }

    void Select(const std::string &label, int type = ITEM_LABEL) {
        session->form.SelectedItem = Row(label);
        Item(label).ItemType = static_cast<uint16_t>(type);
    }
    int LineRow() const {
        int row = 0;
        while (session->form.Items[row].ItemType != ITEM_LINE) ++row;
        return row;
    }
    std::vector<uint32_t> Pages() const {
        std::vector<uint32_t> pages;
        for (const Asked &one : asked) pages.push_back(one.pages);
        return pages;
    }
    static int32_t __stdcall Answer(Session *, uint32_t pages, uint32_t writable, void *context) {
        standing->asked.push_back({pages, writable, context});
        return standing->changed;
    }

    static inline Properties *standing;
    std::vector<Asked> asked;
    int changed = 0;
};

} // namespace

TEST_F(Properties, HostIsAskedForTheKindThatIsSelected) {
    Select("Alpha");
    Command(COMMAND_ITEM_PROPERTIES);
    session->form.SelectedItem = LineRow();
    Command(COMMAND_ITEM_PROPERTIES);
    Select("Beta", ITEM_PICTURE);
    ItemProperties(session);
    EXPECT_EQ(asked, (std::vector<Asked>{{41027, 1, &asked}, {259, 1, &asked}, {1, 1, &asked}}));
}

TEST_F(Properties, GroupHasNone) {
    session->form.SelectedItem = 1;
    ASSERT_EQ(session->form.Items[1].ItemType, ITEM_GROUP);
    Command(COMMAND_ITEM_PROPERTIES);
    EXPECT_TRUE(asked.empty());
}

TEST_F(Properties, NothingSelectedOrSomethingInProgressAsksNothing) {
    session->form.SelectedItem = NOTHING_SELECTED;
    Command(COMMAND_ITEM_PROPERTIES);
    Select("Alpha");
    session->designer->PendingCommand = COMMAND_NEW_LINE;
    Command(COMMAND_ITEM_PROPERTIES);
    Send(WM_LBUTTONDBLCLK);
    EXPECT_TRUE(asked.empty());
    session->designer->PendingCommand = IDLE;
}

TEST_F(Properties, HostHearsThatTheFormMayNotBeEdited) {
    edit_allowed = 0;
    Select("Alpha");
    Command(COMMAND_ITEM_PROPERTIES);
    EXPECT_EQ(asked.at(0).writable, 0U);
    host_data.EditAllowed = nullptr;
    Command(COMMAND_ITEM_PROPERTIES);
    EXPECT_EQ(asked.at(1).writable, 0U);
}

TEST_F(Properties, ChangeMarksTheFormAsModified) {
    Select("Alpha");
    Command(COMMAND_ITEM_PROPERTIES);
    EXPECT_EQ(session->form.FormModified, 0U);
    changed = 1;
    Command(COMMAND_ITEM_PROPERTIES);
    EXPECT_EQ(session->form.FormModified, 1U);
    EXPECT_EQ(host.Count(MESSAGE_MODIFIED), 1);
}

TEST_F(Properties, WithoutTheHostsRoutineNothingHappens) {
    host_data.ItemPropertiesCallback = nullptr;
    EXPECT_EQ(AskHostForProperties(session, 1), 0);
    Select("Alpha");
    Command(COMMAND_ITEM_PROPERTIES);
    EXPECT_EQ(session->form.FormModified, 0U);
}

TEST_F(Properties, DoubleClickAsks) {
    DoubleClick(View().Pixel(250, 110));
    EXPECT_EQ(Pages(), std::vector<uint32_t>{41027});
}

TEST_F(Properties, EditOfALabelAndOfALineWantTheirKind) {
    Select("Alpha");
    Command(COMMAND_EDIT_LINE);
    EXPECT_TRUE(asked.empty());
    Command(COMMAND_EDIT_LABEL);
    session->form.SelectedItem = LineRow();
    Command(COMMAND_EDIT_LABEL);
    Command(COMMAND_EDIT_LINE);
    EXPECT_EQ(Pages(), (std::vector<uint32_t>{41027, 259}));
}

// ---- the item's menu ----

namespace {

class ItemMenu : public Properties {
protected:
    // What the menu was, its place and whose it was.
    struct Shown {
        POINT place;
        HWND owner;
        bool font;
    };
    void RightPress(int x, int y) { PressAt(x, y, MouseButton::RIGHT); }
    static BOOL WINAPI Note(HMENU menu, UINT, int x, int y, int, HWND owner, const RECT *) {
        const UINT state = GetMenuState(menu, COMMAND_FONTS, MF_BYCOMMAND);
        shown.push_back({{x, y}, owner, !(state & MF_GRAYED)});
        return TRUE;
    }
    void ShowFor(int row) {
        session->form.SelectedItem = row;
        ShowItemMenu(session, {0, 0});
    }
    static inline std::vector<Shown> shown;
};

} // namespace

TEST_F(ItemMenu, RightPressSelectsAndShowsItAtThePointerForTheHost) {
    shown.clear();
    const ReplacedCall menu("TrackPopupMenu", Note);
    RightPress(250, 110);
    EXPECT_EQ(session->form.SelectedItem, Row("Alpha"));
    ASSERT_EQ(shown.size(), 1U);
    POINT place = View().Pixel(250, 110);
    ClientToScreen(Window(), &place);
    EXPECT_EQ(shown[0].place.x, place.x);
    EXPECT_EQ(shown[0].place.y, place.y);
    EXPECT_EQ(shown[0].owner, host.Get());
    EXPECT_TRUE(shown[0].font);
}

TEST_F(ItemMenu, FontIsGreyForALineAndABar) {
    shown.clear();
    const ReplacedCall menu("TrackPopupMenu", Note);
    ShowFor(LineRow());
    ShowFor(0);
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_FALSE(shown[0].font);
    EXPECT_FALSE(shown[1].font);
}

TEST_F(ItemMenu, NoneForTheGroupAPictureAPictureFieldAndNothing) {
    shown.clear();
    const ReplacedCall menu("TrackPopupMenu", Note);
    ShowFor(1);
    Select("Alpha", ITEM_PICTURE);
    ShowItemMenu(session, {0, 0});
    Select("Beta", ITEM_FIELD);
    Item("Beta").FieldIndex = 1;
    session->form.Fields[1].ValueType = TYPE_PICTURE;
    ShowItemMenu(session, {0, 0});
    ShowFor(NOTHING_SELECTED);
    ShowFor(session->form.TotalItems);
    EXPECT_TRUE(shown.empty());
    Select("Beta", ITEM_FIELD);
    session->form.Fields[1].ValueType = TYPE_TEXT;
    ShowItemMenu(session, {0, 0});
    EXPECT_EQ(shown.size(), 1U);
}

TEST_F(ItemMenu, RealMenuIsLeftByEscape) {
    PostMessageA(host.Get(), WM_KEYDOWN, VK_ESCAPE, 0);
    RightPress(250, 110);
    EXPECT_EQ(host.Count(WM_INITMENUPOPUP), 1);
    EXPECT_EQ(host.Count(WM_COMMAND), 0);
    EXPECT_TRUE(SessionStands(session));
}

TEST_F(ItemMenu, CommandGoesToTheHost) {
    const int before = host.Count(WM_COMMAND);
    PostMessageA(host.Get(), WM_KEYDOWN, 'P', 0);
    PostMessageA(host.Get(), WM_CHAR, 'p', 0);
    RightPress(250, 110);
    ServeMessages();
    EXPECT_EQ(host.Count(WM_COMMAND), before + 1);
    EXPECT_TRUE(asked.empty());
}
