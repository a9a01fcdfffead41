#include "form/host_field.h"

#include <gtest/gtest.h>

#include <cstring>

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
