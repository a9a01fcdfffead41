#include "form/host_field.h"

#include <gtest/gtest.h>

#include <cstring>

#include "frame/host_data.h"
#include "tests/support/test_session.h"

namespace {

template <size_t Size> void Fill(char (&text)[Size]) { std::memset(text, 'x', Size); }

int32_t __stdcall FillTexts(HWND, FieldRecord *record, int32_t, void *) {
    Fill(record->FieldName);
    Fill(record->DateDelimiter);
    Fill(record->ThousandsChar);
    Fill(record->DecimalChar);
    Fill(record->PadChar);
    Fill(record->CurrencySymbol);
    Fill(record->TrueText);
    Fill(record->FalseText);
    Fill(record->NegativePrefix);
    Fill(record->NegativeSuffix);
    Fill(record->PositivePrefix);
    Fill(record->PositiveSuffix);
    Fill(record->ZeroText);
    Fill(record->Caption);
    return 1;
}

struct Asked {
    HWND window;
    int32_t level;
    void *context;
} asked;

int32_t __stdcall TakeTheOrder(HWND window, FieldRecord *record, int32_t level, void *context) {
    asked = {window, level, context};
    std::strcpy(record->FieldName, "ORDERS->NO");
    record->FieldKind = FIELD_CONSTANT;
    record->InUse = 9;
    return 1;
}

int32_t __stdcall FillAndRefuse(HWND, FieldRecord *record, int32_t, void *) {
    Fill(record->FieldName);
    record->ValueType = TYPE_DATE;
    return 0;
}

int32_t __stdcall PickNegativeWidth(HWND, FieldRecord *record, int32_t, void *) {
    record->FieldWidth = -1;
    return 1;
}

template <size_t Size> bool EndsAtItsLast(const char (&text)[Size]) {
    return strnlen(text, Size) == Size - 1;
}

} // namespace

TEST(HostField, TextsThatTheHostFillsEndInTheirRoom) {
    BareSession session;
    session->FormBlock.CheckFieldProc = FillTexts;
    FieldRecord record{};
    EXPECT_TRUE(tessarine::AskHostForField(session, &record));
    EXPECT_TRUE(EndsAtItsLast(record.FieldName));
    EXPECT_TRUE(EndsAtItsLast(record.DateDelimiter));
    EXPECT_TRUE(EndsAtItsLast(record.ThousandsChar));
    EXPECT_TRUE(EndsAtItsLast(record.DecimalChar));
    EXPECT_TRUE(EndsAtItsLast(record.PadChar));
    EXPECT_TRUE(EndsAtItsLast(record.CurrencySymbol));
    EXPECT_TRUE(EndsAtItsLast(record.TrueText));
    EXPECT_TRUE(EndsAtItsLast(record.FalseText));
    EXPECT_TRUE(EndsAtItsLast(record.NegativePrefix));
    EXPECT_TRUE(EndsAtItsLast(record.NegativeSuffix));
    EXPECT_TRUE(EndsAtItsLast(record.PositivePrefix));
    EXPECT_TRUE(EndsAtItsLast(record.PositiveSuffix));
    EXPECT_TRUE(EndsAtItsLast(record.ZeroText));
    EXPECT_TRUE(EndsAtItsLast(record.Caption));
}

TEST(HostField, PickTellsTheHostOwnerLevelAndItsContext) {
    BareSession session;
    session->FormBlock.PickFieldProc = TakeTheOrder;
    int context = 0;
    tessarine::host_data.HostContext = &context;
    FieldRecord record{};
    EXPECT_TRUE(tessarine::PickHostField(session, GetDesktopWindow(), &record, 3));
    tessarine::host_data = HostData{};
    EXPECT_EQ(asked.window, GetDesktopWindow());
    EXPECT_EQ(asked.level, 3);
    EXPECT_EQ(asked.context, &context);
    EXPECT_STREQ(record.FieldName, "ORDERS->NO");
    EXPECT_EQ(+record.FieldKind, FIELD_DATA);
    EXPECT_EQ(+record.InUse, 0);
}

TEST(HostField, PickThatIsRefusedLeavesTheRecordAsItWas) {
    BareSession session;
    FieldRecord record{};
    std::strcpy(record.FieldName, "NAME");
    record.FieldWidth = 7;
    const FieldRecord before = record;
    for (const PickFieldRoutine routine : {FillAndRefuse, PickNegativeWidth}) {
        session->FormBlock.PickFieldProc = routine;
        EXPECT_FALSE(tessarine::PickHostField(session, nullptr, &record, 0));
        EXPECT_EQ(std::memcmp(&record, &before, sizeof record), 0);
    }
}

TEST(HostField, WithoutTheHostsRoutineNothingIsPickedOrKnown) {
    BareSession session;
    FieldRecord record{};
    EXPECT_FALSE(tessarine::PickHostField(session, nullptr, &record, 0));
    EXPECT_FALSE(tessarine::CheckHostField(session, nullptr, &record, 0));
}

TEST(HostField, CheckTellsTheHostOwnerAndLevel) {
    BareSession session;
    session->FormBlock.CheckFieldProc = TakeTheOrder;
    FieldRecord record{};
    EXPECT_TRUE(tessarine::CheckHostField(session, GetDesktopWindow(), &record, 9));
    EXPECT_EQ(asked.window, GetDesktopWindow());
    EXPECT_EQ(asked.level, 9);
}
