#include "frame/text_numbers.h"

#include <gtest/gtest.h>

#include <limits>

#include "frame/boundary.h"
#include "tests/support/host_state.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

using namespace tessarine;

TEST(TextNumbers, WholeNumberIsReadAsFarAsItGoes) {
    const struct {
        const char *text;
        int32_t value;
    } cases[] = {{"12abc", 12}, {" \t 12", 12}, {"-12", -12}, {"+12.9", 12},
                 {"", 0},       {"abc", 0},     {"-", 0},     {"+-5", 0},
                 {"- 5", 0},    {"0x1F", 0},    {"007", 7},   {"1e3", 1}};
    for (const auto &row : cases) EXPECT_EQ(WholeNumberIn(row.text), row.value) << row.text;
}

TEST(TextNumbers, WholeNumberBeyond32BitsIsTheLastOfItsSide) {
    EXPECT_EQ(WholeNumberIn("2147483647"), INT32_MAX);
    EXPECT_EQ(WholeNumberIn("2147483648"), INT32_MAX);
    EXPECT_EQ(WholeNumberIn(" +99999999999999999999x"), INT32_MAX);
    EXPECT_EQ(WholeNumberIn("-2147483648"), INT32_MIN);
    EXPECT_EQ(WholeNumberIn(" -2147483649"), INT32_MIN);
}

TEST(TextNumbers, NumberHasDecimalsAndAnExponent) {
    const struct {
        const char *text;
        double value;
    } cases[] = {{"12.75", 12.75}, {".5", 0.5},     {"+.5", 0.5},   {"-.5", -0.5},
                 {"5.", 5.0},      {" 7.5e1x", 75}, {"1e-2", 0.01}, {"5e", 5.0},
                 {"1,5", 1.0},     {"4.35", 4.35},  {"1e23", 1e23}, {"2.5E+2z", 250.0},
                 {"-0.25", -0.25}};
    for (const auto &row : cases) EXPECT_EQ(NumberIn(row.text), row.value) << row.text;
}

TEST(TextNumbers, WordsAndTheBaseOf16AreNoNumbers) {
    for (const char *text : {"", " ", ".", "-", "-.", "+-5", "inf", "-inf", "nan", "0x1F", "e5"})
        EXPECT_EQ(NumberIn(text), 0.0) << text;
}

TEST(TextNumbers, NumberOutOfRangeIsInfiniteOrZero) {
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(NumberIn("1e999"), infinite);
    EXPECT_EQ(NumberIn("-1E999 e-1"), -infinite);
    EXPECT_EQ(NumberIn("1e-999"), 0.0);
    EXPECT_EQ(NumberIn("-1E-999"), 0.0);
}

TEST(TextNumbers, LocaleOfTheHostHasNoSay) {
    const HostLocale german;
    ASSERT_TRUE(german.Set());
    EXPECT_EQ(NumberIn("12.75"), 12.75);
    EXPECT_EQ(NumberIn("12,75"), 12.0);
    EXPECT_EQ(WholeNumberIn("1.234"), 1);
    EXPECT_EQ(WholeNumberIn("\xA0"
                            "5"),
              0); // no white space, though the locale says so
}

TEST(OwnFloatState, RoundsToNearestAndBringsBackWhatItFound) {
    volatile double one = 1.0;
    volatile double third = 3.0;
    const double nearest = one / third;
    const HostFloatState host;
    ASSERT_TRUE(HostFloatState::Stands());
    volatile double result = one / third;
    EXPECT_GT(result, nearest);
    {
        const OwnFloatState own;
        result = one / third;
        EXPECT_EQ(result, nearest);
        EXPECT_EQ(NumberIn("0.3333333333333333148"), nearest);
        volatile long double long_third = 3.0L;
        const volatile long double quotient = 1.0L / long_third;
        EXPECT_EQ(quotient, 1.0L / 3.0L);
        EXPECT_FALSE(HostFloatState::Stands());
    }
    EXPECT_TRUE(HostFloatState::Stands());
}

TEST(OwnFloatState, StandsInEntryPointsAndCallbacks) {
    BareSession session;
    volatile double one = 1.0;
    volatile double third = 3.0;
    const double nearest = one / third;
    const HostFloatState host;
    const auto quotient = [&] {
        volatile double result = one / third; // here and not when it is compared
        return double{result};
    };
    EXPECT_EQ(AtEntry(session, quotient, [] { return 0.0; }), nearest);
    EXPECT_EQ(Guarded(session, 0.0, quotient), nearest);
    EXPECT_TRUE(HostFloatState::Stands());
}

TEST(OwnFloatState, GoesWithAFailure) {
    const MessageBoxes boxes;
    BareSession session;
    const HostFloatState host;
    const auto failing = [&]() -> int { FatalError(session, "", CODE_MEMORY); };
    EXPECT_EQ(AtEntry(session, failing, [&] { return session->ErrorCode; }), CODE_MEMORY);
    EXPECT_TRUE(HostFloatState::Stands());
}

TEST(OwnFloatState, NothingTrapsInItNorBehindIt) {
    const unsigned before = _mm_getcsr();
    unsigned short old_unit = 0;
    const unsigned short trapping = 0x0340;
    asm volatile("fldcw %0" : : "m"(trapping));
    _mm_setcsr(0x0000); // all six traps
    volatile double zero = 0.0;
    volatile long double long_zero = 0.0L;
    {
        const OwnFloatState own;
        volatile double result = 1.0 / zero;
        volatile long double long_result = 1.0L / long_zero;
        result = result * static_cast<double>(long_result);
    }
    asm volatile("fwait\n\tfnstcw %0\n\tfninit" : "=m"(old_unit));
    EXPECT_EQ(_mm_getcsr(), 0u);
    _mm_setcsr(before);
    EXPECT_EQ(old_unit, trapping);
}
