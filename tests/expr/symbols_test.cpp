#include "expr/symbols.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "form/field_table.h"
#include "form/user_fields.h"
#include "frame/host_data.h"
#include "tests/support/host_state.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

void *context_seen;

// The host knows the names A to F as numbers, TEXT and PICTURE.
int32_t __stdcall CheckField(HWND, FieldRecord *record, int32_t, void *context) {
    context_seen = context;
    const std::string name = record->FieldName;
    if (name == "TEXT")
        record->ValueType = TYPE_TEXT;
    else if (name == "PICTURE")
        record->ValueType = TYPE_PICTURE;
    else if (name.size() == 1 && name[0] >= 'A' && name[0] <= 'F')
        record->ValueType = TYPE_NUMERIC;
    else
        return 0;
    record->HostTable = 7;
    record->HostField = name[0];
    record->FieldWidth = 9;
    record->Decimals = 2;
    return 1;
}

int32_t __stdcall AcceptAll(HWND, FieldRecord *, int32_t, void *) { return 1; }

int32_t __stdcall LeaveAnotherRounding(HWND, FieldRecord *record, int32_t, void *) {
    _mm_setcsr(_MM_MASK_MASK | _MM_ROUND_UP);
    record->ValueType = TYPE_NUMERIC;
    return 1;
}

class Symbols : public testing::Test {
protected:
    Symbols() { session->FormBlock.CheckFieldProc = CheckField; }
    ~Symbols() override { host_data.HostContext = nullptr; }

    int Generate(const std::string &text, int mode = 2) {
        std::fill(std::begin(cells), std::end(cells), uint16_t{0});
        return GenerateSymbols(session, text.c_str(), cells, &position, mode);
    }
    std::vector<int> List() const {
        return {cells, std::find(std::begin(cells), std::end(cells), uint16_t{CELL_END})};
    }
    // The record of the only operand.
    const FieldRecord &Operand(const std::string &text) {
        EXPECT_EQ(Generate(text), 1) << text;
        EXPECT_EQ(List().size(), 1u) << text;
        return session->form.Fields[cells[0]];
    }
    void ExpectRefusal(const std::string &text, const std::string &words, int at,
                       const std::string &title = "") {
        EXPECT_EQ(Generate(text), 0) << text;
        EXPECT_EQ(position, at) << text;
        ASSERT_EQ(boxes.Log().size(), 1u) << text;
        EXPECT_EQ(boxes.Log()[0], (BoxRecord{title, words, {IDOK}}));
        boxes.Clear();
    }
    FieldRecord &Row(int row) { return session->form.Fields[row]; }

    BareSession session;
    MessageBoxes boxes;
    uint16_t cells[MAX_CELLS];
    int32_t position = -1;
};

std::string Sum(int operands) {
    std::string text = "1";
    for (int count = 1; count < operands; ++count) text += "+1";
    return text;
}

} // namespace

TEST_F(Symbols, EmptyAndBlankTextsGiveAnEmptyListAndSuccess) {
    for (const char *text : {"", "    "}) {
        EXPECT_EQ(Generate(text), 1);
        EXPECT_EQ(+cells[0], CELL_END);
    }
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(Symbols, EveryOperatorOfTheTableHasItsCode) {
    for (int code = CELL_FIRST_OPERATOR; code <= CELL_LAST_OPERATOR; ++code) {
        if (code == 509) continue; // the tokenizer takes every point first
        const OperatorRow &row = session->form.OperatorTable[code - CELL_FIRST_OPERATOR];
        const std::string text = std::string(row.Text) + (row.Function ? "(" : "");
        EXPECT_EQ(Generate(text), 1) << text;
        EXPECT_EQ(+cells[0], code) << text;
    }
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Symbols, OperatorsAndFunctionsMayBeWrittenSmall) {
    EXPECT_EQ(Generate("A .and. upper(TEXT)"), 1);
    EXPECT_EQ(List(), (std::vector<int>{1, 515, 528, 501, 2, 502}));
}

TEST_F(Symbols, RestrictedOperatorBelongsToMode1) {
    session->form.OperatorTable[519 - 501].Restricted = 1;
    EXPECT_EQ(Generate(".TOTAL-OF. A", 1), 1);
    EXPECT_EQ(Generate(".TOTAL-OF. A", 2), 0);
    EXPECT_EQ(boxes.LastText(), "Invalid function or dot operator: .TOTAL-OF.");
}

TEST_F(Symbols, RestrictionDoesNotHoldForPlainOperators) {
    session->form.OperatorTable[503 - 501].Restricted = 1;
    EXPECT_EQ(Generate("A+B", 2), 1);
}

TEST_F(Symbols, UnknownWordsAreRefusedWithThePositionBehindThem) {
    ExpectRefusal("A .XOR. B", "Invalid function or dot operator: .XOR.", 7);
    ExpectRefusal("A+nix(1)", "Invalid function or dot operator: NIX", 5);
    ExpectRefusal("A+xyz+B", "Invalid data field: XYZ", 5);
    ExpectRefusal(" sys->none+1", "Invalid system field: SYS->NONE", 10);
    ExpectRefusal("dlg->none", "Invalid user field: DLG->NONE", 9);
    ExpectRefusal("A+PICTURE", "Picture field not allowed: PICTURE", 9);
    EXPECT_EQ(List(), (std::vector<int>{1, 503}));
}

TEST_F(Symbols, BlankBeforeTheParenthesisMakesAFieldThatFailsAtTheHost) {
    ExpectRefusal("LEN (A)", "Invalid data field: LEN", 3);
}

TEST_F(Symbols, TokenErrorsEndTheListWhereReadingStopped) {
    ExpectRefusal("A+1.", "Missing dot in the dot operator", 4);
    EXPECT_EQ(List().size(), 3u);
    ExpectRefusal("A+\"x", "Missing closing quotes", 4);
    ExpectRefusal("A+{x", "Missing closing bracket", 4);
}

TEST_F(Symbols, DataFieldTakesWhatTheHostSays) {
    int word = 0;
    host_data.HostContext = &word;
    const FieldRecord &record = Operand("b");
    EXPECT_EQ(context_seen, &word);
    EXPECT_EQ(+record.FieldKind, FIELD_DATA);
    EXPECT_STREQ(record.FieldName, "B");
    EXPECT_EQ(+record.ValueType, TYPE_NUMERIC);
    EXPECT_EQ(+record.HostTable, 7);
    EXPECT_EQ(+record.HostField, 'B');
    EXPECT_EQ(+record.FieldWidth, 9);
    EXPECT_EQ(+record.Decimals, 2);
    EXPECT_EQ(+record.FieldFlags, FIELD_SHARED);
    EXPECT_EQ(+record.RefCount, 1);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(Symbols, HostsRoutineMayLeaveAnotherRounding) {
    session->FormBlock.CheckFieldProc = LeaveAnotherRounding;
    const unsigned before = _mm_getcsr();
    EXPECT_EQ(Generate("A"), 1);
    const unsigned after = _mm_getcsr();
    _mm_setcsr(before);
    EXPECT_EQ(after & _MM_ROUND_MASK, unsigned{_MM_ROUND_NEAREST});
}

TEST_F(Symbols, NumbersAreReadWithTheirPointWhateverTheHostsLocale) {
    const HostLocale german;
    ASSERT_TRUE(german.Set());
    EXPECT_EQ(+Operand("12.75").DoubleValue, 12.75);
}

TEST_F(Symbols, WholeNumberBeyond32BitsIsTheLargestOne) {
    EXPECT_EQ(+Operand("2147483647").LongValue, INT32_MAX);
    for (const char *text : {"2147483648", "4294967297", "99999999999999999999"}) {
        EXPECT_EQ(+Operand(text).LongValue, INT32_MAX) << text;
        EXPECT_EQ(+Operand(text).ValueType, TYPE_NUMERIC);
    }
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Symbols, WithoutAHostsRoutineThereIsNoDataField) {
    session->FormBlock.CheckFieldProc = nullptr;
    ExpectRefusal("A", "Invalid data field: A", 1);
    EXPECT_EQ(Generate("SYS->PAGE+1"), 1);
}

TEST_F(Symbols, SystemFieldsComeFromTheirTable) {
    for (int row = 0; row < 6; ++row) {
        const SystemFieldRow &field = session->form.SystemFields[row];
        const FieldRecord &record = Operand(std::string("SYS->") + field.Name);
        EXPECT_EQ(+record.FieldKind, FIELD_SYSTEM);
        EXPECT_EQ(+record.ValueType, field.ValueType);
        EXPECT_EQ(+record.TableIndex, row);
        EXPECT_EQ(+record.SummaryType, row == SYSTEM_REC_COUNT ? SUMMARY_COUNT : SUMMARY_VALUE);
        EXPECT_EQ(record.FieldFlags & FIELD_RETAIN, 0);
    }
}

TEST_F(Symbols, UserFieldsComeFromTheRowsInUse) {
    const int row = NewUserField(session);
    session->form.UserFields[row].ValueType = TYPE_DATE;
    NameUserField(session, nullptr, row, "FROM");
    EXPECT_EQ(Generate("DLG->FROM"), 0);
    SettleUserField(session, row);
    const FieldRecord &record = Operand("dlg->from");
    EXPECT_EQ(+record.FieldKind, FIELD_USER);
    EXPECT_EQ(+record.ValueType, TYPE_DATE);
    EXPECT_EQ(+record.TableIndex, row);
}

TEST_F(Symbols, ConstantsHoldTheirValues) {
    const FieldRecord number = Operand("042");
    EXPECT_EQ(+number.FieldKind, FIELD_CONSTANT);
    EXPECT_EQ(+number.ValueType, TYPE_NUMERIC);
    EXPECT_EQ(+number.LongValue, 42);
    EXPECT_STREQ(number.FieldName, "042");
    const FieldRecord real = Operand("2.75");
    EXPECT_EQ(+real.ValueType, TYPE_DOUBLE);
    EXPECT_EQ(+real.DoubleValue, 2.75);
    EXPECT_EQ(+Operand(".5").DoubleValue, 0.5);
    const FieldRecord yes = Operand(".t.");
    EXPECT_EQ(+yes.ValueType, TYPE_LOGICAL);
    EXPECT_EQ(+yes.LongValue, 1);
    EXPECT_EQ(+Operand(".F.").LongValue, 0);
    const FieldRecord text = Operand("\"ab c\"");
    EXPECT_EQ(+text.ValueType, TYPE_TEXT);
    EXPECT_STREQ(text.FieldName, "\"ab c\"");
    EXPECT_EQ(+text.FieldWidth, 7);
}

TEST_F(Symbols, LiteralWithTheShapeOfADateIsOneInBothKindsOfDelimiters) {
    for (const char *text : {"\"12/31/97\"", "{12/31/97}"}) {
        const FieldRecord &record = Operand(text);
        EXPECT_EQ(+record.ValueType, TYPE_DATE);
        EXPECT_EQ(+record.LongValue, 19971231);
    }
    EXPECT_EQ(+Operand("\"1/1/97\"").ValueType, TYPE_DATE);
    EXPECT_EQ(+Operand("\"1/1/9\"").ValueType, TYPE_TEXT);
    const FieldRecord &word = Operand("{abc}");
    EXPECT_EQ(+word.ValueType, TYPE_TEXT);
    EXPECT_STREQ(word.FieldName, "{abc}");
}

TEST_F(Symbols, ShapeOfADateWithAnImpossibleDateIsRefused) {
    ExpectRefusal("{13/45/97}", "Invalid date: {13/45/97}", 10);
    ExpectRefusal("A+\"12/3456\"", "Invalid date: \"12/3456\"", 11);
    EXPECT_EQ(List().size(), 2u);
}

TEST_F(Symbols, DayFirstFormsReadTheLastDayOf1997) {
    session->form.Header.DateEntryFormat = 1;
    EXPECT_EQ(+Operand("{31/12/97}").LongValue, 19971231);
}

TEST_F(Symbols, TwoMentionsOfAFieldShareARow) {
    EXPECT_EQ(Generate("A+a"), 1);
    EXPECT_EQ(List(), (std::vector<int>{1, 503, 1}));
    EXPECT_EQ(+Row(1).RefCount, 2);
    EXPECT_EQ(Generate("1 + 1 + 2"), 1);
    EXPECT_EQ(cells[0], cells[2]);
    EXPECT_NE(cells[0], cells[4]);
}

TEST_F(Symbols, OperandsOfSummaryOperatorsHaveRowsOfTheirOwn) {
    EXPECT_EQ(Generate(".TOTAL-OF. A + .TOTAL-OF. A"), 1);
    EXPECT_EQ(List(), (std::vector<int>{519, 1, 503, 519, 2}));
    for (int row : {1, 2}) {
        EXPECT_EQ(+Row(row).RefCount, 0);
        EXPECT_EQ(Row(row).FieldFlags & FIELD_SHARED, 0);
    }
    for (const char *name : {".AVE-OF.", ".MAX-OF.", ".MIN-OF.", ".COUNT-OF."}) {
        EXPECT_EQ(Generate(std::string(name) + "A"), 1);
        EXPECT_EQ(Row(cells[1]).FieldFlags & FIELD_SHARED, 0) << name;
    }
    EXPECT_EQ(Generate(".TOTAL-OF. (A)"), 1); // the cell before is the parenthesis
    EXPECT_EQ(Row(cells[2]).FieldFlags & FIELD_SHARED, FIELD_SHARED);
}

TEST_F(Symbols, RecordCountAndTheUserFieldInRow3GetARowForEachMention) {
    EXPECT_EQ(Generate("SYS->REC_COUNT+SYS->REC_COUNT"), 1);
    EXPECT_NE(cells[0], cells[2]);
    EXPECT_EQ(+Row(cells[0]).RefCount, 1);
    for (const char *name : {"A", "B", "C", "D"}) {
        const int row = NewUserField(session);
        NameUserField(session, nullptr, row, name);
        SettleUserField(session, row);
    }
    EXPECT_EQ(Generate("DLG->C+DLG->C"), 1);
    EXPECT_EQ(cells[0], cells[2]);
    EXPECT_EQ(Generate("DLG->D+DLG->D"), 1);
    EXPECT_NE(cells[0], cells[2]);
}

TEST_F(Symbols, ListHolds99Cells) {
    EXPECT_EQ(Generate(Sum(50)), 1);
    EXPECT_EQ(List().size(), 99u);
    ExpectRefusal(Sum(50) + "+1", "Too many field names, operators, or functions.", 100,
                  "Expression Too Long");
    EXPECT_EQ(List().size(), 99u);
}

TEST_F(Symbols, FullFieldTableEndsTheList) {
    while (NewFieldSlot(session) != NO_SLOT) session.AddField(FIELD_DATA, "X", TYPE_TEXT);
    ExpectRefusal("A", "Ran out of field table!", 1);
    EXPECT_EQ(+cells[0], CELL_END);
}

TEST_F(Symbols, FailedListCanBeReleased) {
    EXPECT_EQ(Generate("A+.TOTAL-OF. B+nix"), 0);
    ReleaseSymbols(session, cells);
    EXPECT_EQ(+Row(1).InUse, 0);
    EXPECT_EQ(+Row(2).InUse, 0);
}

TEST_F(Symbols, NameOfMoreThan100CharactersIsNeverOfferedToTheHost) {
    session->FormBlock.CheckFieldProc = AcceptAll;
    EXPECT_EQ(Generate(std::string(100, 'N')), 1);
    ExpectRefusal(std::string(101, 'N'), "Invalid data field: " + std::string(100, 'N'), 101);
}
