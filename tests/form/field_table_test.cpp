#include "form/field_table.h"

#include <gtest/gtest.h>

#include <cstring>

#include "form/defaults.h"
#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

class FieldTable : public testing::Test {
protected:
    // Takes the next slot for a shared row.
    int Shared(const std::string &name, int references) {
        const int row = session.AddField(FIELD_DATA, name, TYPE_NUMERIC);
        session->form.Fields[row].FieldFlags |= FIELD_SHARED;
        session->form.Fields[row].RefCount = static_cast<uint16_t>(references);
        return row;
    }
    void FillTable() {
        while (session->form.FieldCount < MAX_FIELDS)
            session.AddField(FIELD_DATA, "F", TYPE_NUMERIC);
    }
    FieldRecord &Row(int row) { return session->form.Fields[row]; }

    BareSession session;
};

FieldRecord SharedRecord(int kind, const std::string &name, int type) {
    FieldRecord record;
    InitField(nullptr, &record);
    record.FieldKind = static_cast<uint16_t>(kind);
    strcpy(record.FieldName, name.c_str());
    record.ValueType = static_cast<int16_t>(type);
    record.FieldFlags = FIELD_SHARED;
    return record;
}

} // namespace

TEST_F(FieldTable, FirstFieldOfANewFormGetsRow1) {
    EXPECT_EQ(NewFieldSlot(session), 1);
    EXPECT_EQ(session->form.FieldCount, 2);
    for (int row : {0, 1}) {
        EXPECT_EQ(+Row(row).FieldKind, FIELD_FREE);
        EXPECT_EQ(+Row(row).InUse, 0);
        EXPECT_EQ(+Row(row).FieldWidth, 15);
    }
}

TEST_F(FieldTable, SlotStaysFreeUntilSomethingIsPutIntoIt) {
    EXPECT_EQ(NewFieldSlot(session), 1);
    EXPECT_EQ(NewFieldSlot(session), 1);
}

TEST_F(FieldTable, Field32GetsRow33AsRow32IsPassedOver) {
    for (int number = 1; number <= 31; ++number)
        EXPECT_EQ(session.AddField(FIELD_DATA, "F", TYPE_TEXT), number);
    EXPECT_EQ(session.AddField(FIELD_DATA, "F", TYPE_TEXT), 33);
    EXPECT_EQ(+Row(32).FieldKind, FIELD_FREE);
    EXPECT_EQ(+Row(32).InUse, 0);
}

TEST_F(FieldTable, SlotOfADeletedFieldIsReusedAndRow32NeverIs) {
    for (int number = 0; number < 40; ++number) session.AddField(FIELD_DATA, "F", TYPE_NUMERIC);
    ReleaseField(session, 35);
    EXPECT_EQ(session.AddField(FIELD_DATA, "F", TYPE_NUMERIC), 35);
    EXPECT_EQ(NewFieldSlot(session), 42);
}

TEST_F(FieldTable, FullTableHasNoSlotUntilOneIsReleased) {
    FillTable();
    EXPECT_EQ(session->form.FieldCount, 500);
    EXPECT_EQ(NewFieldSlot(session), NO_SLOT);
    EXPECT_EQ(session->form.FieldCount, 500);
    ReleaseField(session, 499);
    EXPECT_EQ(NewFieldSlot(session), 499);
}

TEST_F(FieldTable, CapacityBoundsTheRows) {
    for (const int capacity : {1, 5, 32, 33}) {
        session->form.FieldCapacity = capacity;
        int row = 0;
        for (; row != NO_SLOT; row = NewFieldSlot(session)) Row(row).InUse = 1;
        EXPECT_EQ(session->form.FieldCount, capacity);
    }
}

TEST_F(FieldTable, ReleasedRowIsFreeAtOnceWhenItIsNotShared) {
    const int row = session.AddField(FIELD_DATA, "A", TYPE_NUMERIC);
    Row(row).RefCount = 7;
    ReleaseField(session, row);
    EXPECT_EQ(+Row(row).FieldKind, FIELD_FREE);
    EXPECT_EQ(+Row(row).InUse, 0);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(FieldTable, SharedOperandOfTwoExpressionsSurvivesTheReleaseOfOne) {
    const int row = Shared("A", 2);
    const uint16_t cells[] = {static_cast<uint16_t>(row), CELL_END};
    EXPECT_EQ(ReleaseSymbols(session, cells), 1);
    EXPECT_EQ(+Row(row).InUse, 1);
    EXPECT_EQ(+Row(row).RefCount, 1);
    ReleaseSymbols(session, cells);
    EXPECT_EQ(+Row(row).InUse, 0);
    EXPECT_EQ(+Row(row).FieldKind, FIELD_FREE);
}

TEST_F(FieldTable, SharedRowWithoutReferencesIsFreedAndNotCountedBelowZero) {
    const int row = Shared("A", 0);
    ReleaseField(session, row);
    EXPECT_EQ(+Row(row).InUse, 0);
    EXPECT_EQ(+Row(row).RefCount, 0);
}

TEST_F(FieldTable, RowsOutsideTheTableOrNotInUseAreIgnored) {
    const int row = session.AddField(FIELD_DATA, "A", TYPE_NUMERIC);
    FreeFieldSlot(session, row);
    for (int ignored : {-1, 0, row, 499, 500, 502, 1002}) ReleaseField(session, ignored);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(FieldTable, CalculationReleasesItsOperandsToo) {
    const int shared = Shared("A", 2);
    const int own = session.AddField(FIELD_DATA, "B", TYPE_NUMERIC);
    const int calc = session.AddField(FIELD_CALC, "CALC->C", TYPE_NUMERIC);
    const uint16_t cells[] = {static_cast<uint16_t>(shared), 503, 519, static_cast<uint16_t>(own),
                              CELL_END};
    memcpy(Row(calc).FieldTokens, cells, sizeof cells);
    ReleaseField(session, calc);
    EXPECT_EQ(+Row(calc).InUse, 0);
    EXPECT_EQ(+Row(own).InUse, 0);
    EXPECT_EQ(+Row(shared).RefCount, 1);
}

TEST_F(FieldTable, CalculationThatNamesItselfIsReleasedOnce) {
    const int calc = session.AddField(FIELD_CALC, "CALC->C", TYPE_NUMERIC);
    Row(calc).FieldTokens[0] = static_cast<uint16_t>(calc);
    Row(calc).FieldTokens[1] = CELL_END;
    ReleaseField(session, calc);
    EXPECT_EQ(+Row(calc).InUse, 0);
}

TEST_F(FieldTable, ListWithoutATerminatorEndsWithItsCells) {
    uint16_t cells[MAX_CELLS];
    const int row = Shared("A", 200);
    std::fill(std::begin(cells), std::end(cells), static_cast<uint16_t>(row));
    ReleaseSymbols(session, cells);
    EXPECT_EQ(+Row(row).RefCount, 200 - MAX_CELLS);
    CountReferences(session, cells);
    EXPECT_EQ(+Row(row).RefCount, 200);
}

TEST_F(FieldTable, EveryMentionOfASharedRowIsAReference) {
    const int shared = Shared("A", 0);
    const int own = session.AddField(FIELD_DATA, "B", TYPE_NUMERIC);
    const uint16_t cells[] = {static_cast<uint16_t>(shared),
                              503,
                              static_cast<uint16_t>(shared),
                              503,
                              519,
                              static_cast<uint16_t>(own),
                              450,
                              CELL_END};
    CountReferences(session, cells);
    EXPECT_EQ(+Row(shared).RefCount, 2);
    EXPECT_EQ(+Row(own).RefCount, 0);
}

TEST_F(FieldTable, OperandIsFoundByItsNameWithoutRegardToCase) {
    const int row = Shared("CUST->NAME", 1);
    FieldRecord record = SharedRecord(FIELD_DATA, "Cust->Name", TYPE_NUMERIC);
    EXPECT_EQ(FindSharedField(session, &record), row);
}

TEST_F(FieldTable, OperandThatDiffersInAnyOfItsMarksIsAnotherOne) {
    Shared("A", 1);
    const FieldRecord same = SharedRecord(FIELD_DATA, "A", TYPE_NUMERIC);
    FieldRecord type = same, kind = same, table = same, field = same, name = same;
    type.ValueType = TYPE_DOUBLE;
    kind.FieldKind = FIELD_SYSTEM;
    table.HostTable = 1;
    field.HostField = 1;
    strcpy(name.FieldName, "B");
    for (const FieldRecord *record : {&type, &kind, &table, &field, &name})
        EXPECT_EQ(FindSharedField(session, record), -1);
}

TEST_F(FieldTable, OnlySharedRowsInUseAreFound) {
    const FieldRecord record = SharedRecord(FIELD_DATA, "A", TYPE_NUMERIC);
    session.AddField(FIELD_DATA, "A", TYPE_NUMERIC);
    EXPECT_EQ(FindSharedField(session, &record), -1);
    const int row = Shared("A", 1);
    EXPECT_EQ(FindSharedField(session, &record), row);
    FreeFieldSlot(session, row);
    EXPECT_EQ(FindSharedField(session, &record), -1);
}

TEST_F(FieldTable, ConstantsMustAgreeInTheirValues) {
    struct Case {
        int type;
        const char *name;
        int32_t whole;
        double number;
        const char *other_name;
        int32_t other_whole;
        double other_number;
        bool found;
    };
    const Case cases[] = {
        {TYPE_TEXT, "\"Abc\"", 0, 0, "\"Abc\"", 0, 0, true},
        {TYPE_TEXT, "\"Abc\"", 0, 0, "\"abc\"", 0, 0, false},
        {TYPE_DOUBLE, "1.5", 0, 1.5, "1.5", 9, 1.5, true},
        {TYPE_DOUBLE, "1.5", 0, 1.5, "1.5", 0, 2.5, false},
        {TYPE_NUMERIC, "7", 7, 0, "7", 7, 1, true},
        {TYPE_NUMERIC, "7", 7, 0, "7", 8, 0, false},
        {TYPE_NUMERIC, "7", 7, 0, "07", 7, 0, false},
        {TYPE_DATE, "{1/1/97}", 19970101, 0, "{1/1/97}", 19970101, 0, true},
        {TYPE_DATE, "{1/2/97}", 19970102, 0, "{1/2/97}", 19970201, 0, false},
        {TYPE_LOGICAL, ".T.", 1, 0, ".T.", 1, 0, true},
    };
    for (const Case &test : cases) {
        BareSession bare;
        FieldRecord record = SharedRecord(FIELD_CONSTANT, test.name, test.type);
        record.LongValue = test.whole;
        record.DoubleValue = test.number;
        const int row = NewFieldSlot(bare);
        bare->form.Fields[row] = record;
        FieldRecord other = SharedRecord(FIELD_CONSTANT, test.other_name, test.type);
        other.LongValue = test.other_whole;
        other.DoubleValue = test.other_number;
        EXPECT_EQ(FindSharedField(bare, &other), test.found ? row : -1) << test.other_name;
    }
}

TEST_F(FieldTable, TableIndex3FindsNoMatchForSystemAndUserFieldsAlike) {
    for (int kind : {FIELD_SYSTEM, FIELD_USER}) {
        const int row = Shared("X", 1);
        FieldRecord record = SharedRecord(kind, "X", TYPE_NUMERIC);
        Row(row).FieldKind = static_cast<uint16_t>(kind);
        Row(row).TableIndex = record.TableIndex = 3;
        EXPECT_EQ(FindSharedField(session, &record), -1);
        record.TableIndex = 2;
        EXPECT_EQ(FindSharedField(session, &record), row);
        FreeFieldSlot(session, row);
    }
}
