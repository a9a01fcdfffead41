#include "output/clock.h"

#include <gtest/gtest.h>

#include "tests/support/failing_call.h"
#include "tests/support/test_session.h"

namespace {

SYSTEMTIME now;

void WINAPI GiveTime(SYSTEMTIME *time) { *time = now; }

} // namespace

TEST(Clock, DateIsOneNumberAndTheTimeHasTwoDigitsEach) {
    BareSession session;
    const ReplacedCall clock("GetLocalTime", GiveTime);
    now = {};
    now.wYear = 1997;
    now.wMonth = 12;
    now.wDay = 31;
    now.wHour = 23;
    now.wMinute = 5;
    now.wSecond = 9;
    tessarine::ReadLocalClock(session);
    EXPECT_EQ(session->report.RunDate, 19971231);
    EXPECT_STREQ(session->report.TimeText, "23:05:09");
}
