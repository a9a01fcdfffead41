#include "canvas/command_table.h"

#include <gtest/gtest.h>

#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

constexpr int COUNTS = 600;
constexpr int NEEDS_A_RECORD = 601;
constexpr int NO_COMMAND = 699;

bool HasRecord(const Session *session) { return session->report.RecordCount > 0; }

constexpr CommandRow table[] = {
    {COUNTS, [](Session *session) { ++session->report.PageCount; }},
    {NEEDS_A_RECORD, [](Session *session) { session->report.PageCount = 0; }, HasRecord},
};

class CommandTables : public testing::Test {
protected:
    CommandTables() {
        for (const CommandRow &row : table)
            AppendMenuA(menu, MF_STRING, static_cast<UINT_PTR>(row.number), "command");
    }
    ~CommandTables() override { DestroyMenu(menu); }

    bool Greyed(int number) const {
        return GetMenuState(menu, static_cast<UINT>(number), MF_BYCOMMAND) & MF_GRAYED;
    }

    const HMENU menu = CreateMenu();
    BareSession session;
};

} // namespace

TEST_F(CommandTables, CommandOfATableRunsAndAnotherIsLeft) {
    session->report.PageCount = 5;
    EXPECT_TRUE(RunCommand(session, table, COUNTS));
    EXPECT_EQ(session->report.PageCount, 6);
    EXPECT_FALSE(RunCommand(session, table, NO_COMMAND));
    EXPECT_EQ(session->report.PageCount, 6);
}

TEST_F(CommandTables, ConditionGreysTheEntryAndStopsNoCommand) {
    session->report.PageCount = 5;
    EXPECT_TRUE(EnableCommands(session, table, menu));
    EXPECT_TRUE(Greyed(NEEDS_A_RECORD));
    EXPECT_TRUE(RunCommand(session, table, NEEDS_A_RECORD));
    EXPECT_EQ(session->report.PageCount, 0);
}

TEST_F(CommandTables, ChangeIsToldOnce) {
    EXPECT_TRUE(EnableCommands(session, table, menu));
    EXPECT_FALSE(EnableCommands(session, table, menu));
    session->report.RecordCount = 1;
    EXPECT_TRUE(EnableCommands(session, table, menu));
    EXPECT_FALSE(Greyed(NEEDS_A_RECORD));
}

TEST_F(CommandTables, EntryWithoutAConditionIsLeftAsItIs) {
    EnableMenuItem(menu, COUNTS, MF_BYCOMMAND | MF_GRAYED);
    EnableCommands(session, table, menu);
    EXPECT_TRUE(Greyed(COUNTS));
}
