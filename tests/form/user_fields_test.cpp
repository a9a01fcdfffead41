#include "form/user_fields.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/support/host_state.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

const std::vector<int> OK_ALONE = {IDOK};

class UserFields : public testing::Test {
protected:
    int Make(const char *name, int type = TYPE_TEXT) {
        const int row = NewUserField(session);
        session->form.UserFields[row].ValueType = static_cast<int16_t>(type);
        EXPECT_TRUE(NameUserField(session, nullptr, row, name));
        SettleUserField(session, row);
        return row;
    }
    // A field row for the user field.
    int Operand(int user_row, bool shared = true) {
        const int row = session.AddField(FIELD_USER, "DLG->X", TYPE_NUMERIC);
        session->form.Fields[row].TableIndex = static_cast<int16_t>(user_row);
        if (shared) session->form.Fields[row].FieldFlags |= FIELD_SHARED;
        session->form.Fields[row].RefCount = shared;
        return row;
    }
    static void Mention(Cell *cells, int field) {
        cells[0] = static_cast<uint16_t>(field);
        cells[1] = CELL_END;
    }
    UserFieldRecord &User(int row) { return session->form.UserFields[row]; }
    void ExpectBox(const char *text, const char *title = "") {
        ASSERT_EQ(boxes.Log().size(), 1u);
        EXPECT_EQ(boxes.Log()[0], (BoxRecord{title, text, OK_ALONE}));
        boxes.Clear();
    }

    UserFields() { session->form.Header.ReportFilter[0] = CELL_END; }

    BareSession session;
    MessageBoxes boxes;
};

} // namespace

TEST_F(UserFields, NewRowHasItsDefaultsAndIsNotInUse) {
    Make("A");
    memset(&User(1), 0x55, sizeof User(1));
    User(1).InUse = 0;
    EXPECT_EQ(NewUserField(session), 1);
    EXPECT_EQ(+User(1).InUse, 0);
    EXPECT_EQ(+User(1).ValueType, TYPE_TEXT);
    EXPECT_EQ(+User(1).PromptOrder, 1);
    EXPECT_EQ(+User(1).UserWidth, 20);
    EXPECT_EQ(+User(1).UserTokens[0], CELL_END);
    EXPECT_EQ(+User(1).LongValue, 0);
    EXPECT_EQ(+User(1).DoubleValue, 0.0);
    EXPECT_STREQ(User(1).UserName, "");
}

TEST_F(UserFields, Row13IsRefusedAsTheTableIsFull) {
    for (int row = 0; row < MAX_USER_FIELDS; ++row)
        EXPECT_EQ(Make(("U" + std::to_string(row)).c_str()), row);
    EXPECT_EQ(session->form.UserFieldCount, 12);
    EXPECT_EQ(NewUserField(session), -1);
    ExpectBox("User Field Table Full!");
}

TEST_F(UserFields, EmptyTableIsTold) {
    EXPECT_FALSE(HasUserFields(session));
    ExpectBox("User Field Table Empty!");
    Make("A");
    EXPECT_TRUE(HasUserFields(session));
}

TEST_F(UserFields, NameIsTrimmedAndInUpperCase) {
    const int row = Make("  from_date2 ");
    EXPECT_STREQ(User(row).UserName, "FROM_DATE2");
    EXPECT_STREQ(User(row).UserPrompt, "FROM_DATE2");
}

TEST_F(UserFields, NameHasAtMost94Characters) {
    const int row = Make(std::string(200, 'a').c_str());
    EXPECT_EQ(User(row).UserName, std::string(94, 'A'));
    EXPECT_EQ(User(row).UserPrompt, std::string(51, 'A'));
}

TEST_F(UserFields, EmptyNameIsRefusedWithoutAWord) {
    const int row = NewUserField(session);
    for (const char *typed : {"", "    "})
        EXPECT_FALSE(NameUserField(session, nullptr, row, typed));
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(UserFields, OnlyLettersDigitsAndUnderscoresMakeAName) {
    const int row = NewUserField(session);
    const HostLocale german; // by which an umlaut would be a letter
    ASSERT_TRUE(german.Set());
    for (const char *typed : {"A B", "A-B", "A.B", "\"A", "A>", "M\xC4RZ"}) {
        EXPECT_FALSE(NameUserField(session, nullptr, row, typed)) << typed;
        ExpectBox("Invalid character in the field name. Only letters, numbers, and underscores "
                  "are allowed.",
                  "Naming Error");
    }
    EXPECT_STREQ(User(row).UserName, "");
}

TEST_F(UserFields, NameOfAnotherRowInUseIsRefused) {
    const int first = Make("LIMIT");
    const int row = NewUserField(session);
    EXPECT_FALSE(NameUserField(session, nullptr, row, "limit"));
    ExpectBox("Duplicate name not allowed.");
    EXPECT_TRUE(NameUserField(session, nullptr, first, "limit"));
    User(first).InUse = 0;
    EXPECT_TRUE(NameUserField(session, nullptr, row, "limit"));
}

TEST_F(UserFields, WidthFollowsTheType) {
    const std::pair<int, int> widths[] = {{TYPE_NUMERIC, 12}, {TYPE_DOUBLE, 12},
                                          {TYPE_TEXT, 20},    {TYPE_LOGICAL, 3},
                                          {TYPE_DATE, 8},     {TYPE_PICTURE, 10}};
    for (const auto &[type, width] : widths) {
        const int row = Make(("T" + std::to_string(type)).c_str(), type);
        EXPECT_EQ(+User(row).InUse, 1);
        EXPECT_EQ(+User(row).UserWidth, width);
    }
}

TEST_F(UserFields, TokenUsesAUserFieldByItsRowInTheTable) {
    const int field = Operand(2);
    uint16_t cells[MAX_CELLS] = {501};
    Mention(cells + 1, field);
    EXPECT_TRUE(UsesUserField(session, cells, 2));
    EXPECT_FALSE(UsesUserField(session, cells, 1));
    session->form.Fields[field].FieldKind = FIELD_SYSTEM;
    EXPECT_FALSE(UsesUserField(session, cells, 2));
    session->form.Fields[field].FieldKind = FIELD_USER;
    session->form.Fields[field].InUse = 0;
    EXPECT_FALSE(UsesUserField(session, cells, 2));
    session->form.Fields[field].InUse = 1;
    session->form.FieldCount = field;
    EXPECT_FALSE(UsesUserField(session, cells, 2));
}

TEST_F(UserFields, DeletedFieldLeavesItsRowAndItsOperandsFree) {
    const int row = Make("A");
    const int operand = session.AddField(FIELD_DATA, "D", TYPE_NUMERIC);
    Mention(User(row).UserTokens, operand);
    EXPECT_EQ(DeleteUserField(session, row), 1);
    EXPECT_EQ(+User(row).InUse, 0);
    EXPECT_EQ(session->form.UserFieldCount, 0);
    EXPECT_EQ(+session->form.Fields[operand].InUse, 0);
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(UserFields, UseInTheReportFilterStopsTheDeletion) {
    const int row = Make("A");
    Mention(session->form.Header.ReportFilter, Operand(row));
    Mention(session->form.Sections[11].SectionFilter, Operand(row));
    session->form.Sections[11].InUse = 1;
    EXPECT_EQ(DeleteUserField(session, row), 0);
    ExpectBox("Field in Use by Report Selection Expression!");
    EXPECT_EQ(+User(row).InUse, 1);
}

TEST_F(UserFields, UseInTheFilterOfASectionInUseStopsTheDeletion) {
    const int row = Make("A");
    const int field = Operand(row);
    Mention(session->form.Sections[11].SectionFilter, field);
    EXPECT_EQ(DeleteUserField(session, row), 1);
    User(row).InUse = 1;
    session->form.Sections[11].InUse = 1;
    session->form.Fields[field].FieldKind = FIELD_USER;
    session->form.Fields[field].InUse = 1;
    EXPECT_EQ(DeleteUserField(session, row), 0);
    ExpectBox("Field in Use by Criteria for Section:  Detail Section 1 !");
}

TEST_F(UserFields, UseByAnotherUserFieldStopsTheDeletionAndByItselfDoesNot) {
    const int row = Make("A");
    const int other = Make("B");
    Mention(User(row).UserTokens, Operand(row));
    Mention(User(other).UserTokens, Operand(row));
    EXPECT_EQ(DeleteUserField(session, row), 0);
    ExpectBox("Field in Use by User Field: B !");
    User(other).InUse = 0;
    EXPECT_EQ(DeleteUserField(session, row), 1);
}

TEST_F(UserFields, ItemThatShowsTheFieldStopsTheDeletion) {
    const int row = Make("A");
    const int field = Operand(row, false);
    session->form.TotalItems = 2;
    session->form.Items[1].ItemType = ITEM_FIELD;
    session->form.Items[1].FieldIndex = static_cast<int16_t>(field);
    EXPECT_EQ(DeleteUserField(session, row), 0);
    ExpectBox("This User Field is Being Used in the Layout, Can Not Delete");
    EXPECT_EQ(+session->form.Fields[field].InUse, 1);
    session->form.Items[1].ItemType = ITEM_LABEL;
    EXPECT_EQ(DeleteUserField(session, row), 1);
    EXPECT_EQ(+session->form.Fields[field].InUse, 0);
}

TEST_F(UserFields, CalculationThatUsesTheFieldStopsTheDeletion) {
    const int row = Make("A");
    const int calc = session.AddField(FIELD_CALC, "CALC->SUM", TYPE_NUMERIC);
    Mention(session->form.Fields[calc].FieldTokens, Operand(row));
    EXPECT_EQ(DeleteUserField(session, row), 0);
    ExpectBox("Field in Use by CALC->SUM !");
    EXPECT_EQ(+User(row).InUse, 1);
}

TEST_F(UserFields, RowsReleasedBeforeALaterUseStayReleased) {
    const int row = Make("A");
    const int unused = Operand(row, false);
    const int calc = session.AddField(FIELD_CALC, "CALC->SUM", TYPE_NUMERIC);
    Mention(session->form.Fields[calc].FieldTokens, Operand(row));
    EXPECT_EQ(DeleteUserField(session, row), 0);
    ExpectBox("Field in Use by CALC->SUM !");
    EXPECT_EQ(+session->form.Fields[unused].InUse, 0);
}
