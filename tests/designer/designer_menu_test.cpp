// The menu of the designer against the table of its commands.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "commands.h"
#include "designer/command_rows.h"
#include "designer/enabling.h"
#include "frame/session_table.h"

using namespace tessarine;

namespace {

std::string TextAt(HMENU menu, int position) {
    char text[100] = "";
    GetMenuStringA(menu, static_cast<UINT>(position), text, sizeof text, MF_BYPOSITION);
    return text;
}

std::vector<std::string> TextsOf(HMENU menu) {
    std::vector<std::string> texts;
    for (int position = 0; position < GetMenuItemCount(menu); ++position)
        if (const std::string text = TextAt(menu, position); !text.empty()) texts.push_back(text);
    return texts;
}

class DesignerMenu : public testing::Test {
protected:
    DesignerMenu() { Walk(menu); }
    ~DesignerMenu() override { DestroyMenu(menu); }

    void Walk(HMENU part) {
        for (int position = 0; position < GetMenuItemCount(part); ++position) {
            if (const HMENU below = GetSubMenu(part, position))
                Walk(below);
            else if (const UINT number = GetMenuItemID(part, position))
                texts[static_cast<int>(number)] = TextAt(part, position);
        }
    }

    const HMENU menu = LoadMenuA(module_instance, "FrMenu");
    std::map<int, std::string> texts; // by number
};

const std::map<int, std::string> told_texts{
    {606, "&Create\tF9"},
    {610, "Center\tAlt C"},
    {612, "&Edit"},
    {620, "&Picture From Clipboard\tAlt F7"},
    {621, "P&icture From Disk File...\tAlt F8"},
    {622, "&Help"},
    {624, "&Save\tF10"},
    {625, "Save&As...\tShift F10"},
    {626, "&Exit\tCtrl F10"},
    {627, "&Report Parameters...\tF7"},
    {629, "Report &Filter...\tCtrl F7"},
    {630, "Printer &Setup...\tShift F8"},
    {638, "Fonts...\tAlt F10"},
    {639, "&Edit Field...\tCtrl E"},
    {640, "Edit &Field Expression...\tCtrl F"},
    {641, "&Data Field...\tF2"},
    {642, "&Calculation Field...\tF3"},
    {643, "&System Field...\tF4"},
    {644, "&User Field...\tF5"},
    {645, "&New...\tF6"},
    {646, "&Edit...\tAlt F6"},
    {648, "&Filter...\tCtrl F6"},
    {649, "&Sort Field...\tAlt S"},
    {650, "&Break Field...\tAlt B"},
    {651, "&Create...\tCtrl C"},
    {652, "&Modify...\tCtrl M"},
    {653, "&Delete...\tCtrl D"},
    {660, "&Create\tCtrl F9"},
    {661, "Outlines...\tCtrl O"},
    {662, "Background...\tCtrl B"},
    {663, "Position Text...\tCtrl P"},
    {664, "Delete\tDel"},
    {665, "Undo"},
    {666, "&Edit\tAlt F9"},
    {675, "Horizontal Top Edge"},
    {676, "Horizontal Bottom Edge"},
    {677, "Horizontal Center Line"},
    {678, "Vertical Left Edge"},
    {679, "Vertical Right Edge"},
    {680, "Vertical Center Line"},
    {681, "Width"},
    {682, "Height"},
    {683, "Horizontally"},
    {684, "Vertically"},
    {690, "&Expand Horizontally"},
    {691, "&Expand Vertically"},
    {692, "&Compress Horizontally"},
    {693, "&Compress Vertically"},
    {701, "Cut\tCtrl+X"},
    {702, "Copy\tCtrl+C"},
    {703, "Paste\tCtrl+V"},
    {704, "Snap to Grid..."},
};

} // namespace

TEST_F(DesignerMenu, EntriesHaveTheirNumbersAndTexts) { EXPECT_EQ(texts, told_texts); }

TEST_F(DesignerMenu, TopLevelStandsInItsOrder) {
    const std::vector<std::string> top{"&File",  "&Edit",    "&Field",   "&Section", "&Line",
                                       "La&bel", "&Picture", "&Arrange", "&Help"};
    EXPECT_EQ(TextsOf(menu), top);
    EXPECT_EQ(GetMenuItemID(menu, 8), UINT{COMMAND_HELP});
}

TEST_F(DesignerMenu, SubmenusStandInTheirPlaces) {
    const HMENU edit = GetSubMenu(menu, 1);
    EXPECT_EQ(TextAt(edit, GetMenuItemCount(edit) - 1), "&Report Size");
    const std::vector<std::string> field = TextsOf(GetSubMenu(menu, 2));
    EXPECT_EQ(field.front(), "&Insert New Field");
    EXPECT_EQ(field.back(), "Edit &User Field Table");
    const std::vector<std::string> arrange{"&Align", "&Even Spacing", "&Even Sizing", "Undo"};
    EXPECT_EQ(TextsOf(GetSubMenu(menu, 7)), arrange);
    for (const SubmenuRow &row : DesignerSubmenus())
        EXPECT_TRUE(GetSubMenu(GetSubMenu(menu, row.place), row.position));
}

TEST_F(DesignerMenu, NoEntryLacksARow) {
    for (const auto &[number, text] : texts)
        EXPECT_TRUE(FindCommand(DesignerCommands(), number)) << number << ' ' << text;
}

TEST_F(DesignerMenu, RowWithoutAnEntryIsReachedByKeysOrByTheHost) {
    const std::set<int> elsewhere{600, 601, 602, 603, 604, 605, 628, 635, 637, 699, 700};
    std::set<int> found;
    for (const CommandRow &row : DesignerCommands())
        if (!texts.contains(row.number)) found.insert(row.number);
    EXPECT_EQ(found, elsewhere);
}

TEST_F(DesignerMenu, EachCommandStandsOnce) {
    std::set<int> numbers;
    for (const CommandRow &row : DesignerCommands())
        EXPECT_TRUE(numbers.insert(row.number).second) << row.number;
}

// The entry carries one number and its edit another.
TEST_F(DesignerMenu, NoEntryIsDeadButTheReportFilterWhichIsNeverGreyed) {
    const CommandRow *nothing = FindCommand(DesignerCommands(), COMMAND_NONE);
    for (const auto &[number, text] : texts) {
        const CommandRow *row = FindCommand(DesignerCommands(), number);
        EXPECT_EQ(row->action == nothing->action, number == COMMAND_REPORT_FILTER_ENTRY) << text;
    }
    EXPECT_FALSE(FindCommand(DesignerCommands(), COMMAND_REPORT_FILTER_ENTRY)->enabled);
    EXPECT_TRUE(FindCommand(DesignerCommands(), COMMAND_REPORT_FILTER)->enabled);
}

TEST_F(DesignerMenu, UndoAndTheCommandThatDoesNothingAloneKeepWhatCanBeUndone) {
    for (const CommandRow &row : DesignerCommands())
        EXPECT_EQ(row.keeps_undo, row.number == COMMAND_UNDO || row.number == COMMAND_NONE)
            << row.number;
}

TEST_F(DesignerMenu, MenuOfAnItemHasTwoEntriesBelowOne) {
    const HMENU item = LoadMenuA(module_instance, MAKEINTRESOURCEA(ITEM_MENU));
    ASSERT_TRUE(item);
    EXPECT_EQ(GetMenuItemCount(item), 1);
    const HMENU shown = GetSubMenu(item, 0);
    EXPECT_EQ(TextsOf(shown), (std::vector<std::string>{"&Properties...", "&Font..."}));
    EXPECT_EQ(GetMenuItemID(shown, 0), UINT{COMMAND_MENU_PROPERTIES});
    EXPECT_EQ(GetMenuItemID(shown, 1), UINT{COMMAND_FONTS});
    EXPECT_FALSE(FindCommand(DesignerCommands(), COMMAND_MENU_PROPERTIES));
    DestroyMenu(item);
}
