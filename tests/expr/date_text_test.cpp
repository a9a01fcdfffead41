#include "expr/date_text.h"

#include <gtest/gtest.h>

#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

struct DateCase {
    const char *text;
    DateShape shape;
    int32_t date;
};

void Check(BareSession &session, const DateCase &test) {
    int32_t date = 0;
    EXPECT_EQ(static_cast<int>(ParseDateText(session, test.text, &date)),
              static_cast<int>(test.shape))
        << test.text;
    EXPECT_EQ(date, test.date) << test.text;
}

} // namespace

TEST(DateText, DatesAreReadMonthFirst) {
    BareSession session;
    const DateCase cases[] = {
        {"\"12/31/97\"", DateShape::Valid, 19971231}, {"{12/31/97}", DateShape::Valid, 19971231},
        {"{1-2-1997}", DateShape::Valid, 19970102},   {"{1,2,97}", DateShape::Valid, 19970102},
        {"{01/02/0}", DateShape::Valid, 19000102},    {"{01/02/99}", DateShape::Valid, 19990102},
        {"{01/02/100}", DateShape::Valid, 1000102},   {"{1/02/2024}", DateShape::Valid, 20240102},
    };
    for (const DateCase &test : cases) Check(session, test);
}

TEST(DateText, TextsOf8To12CharactersCanBeDates) {
    BareSession session;
    Check(session, {"{1/1/9}", DateShape::NotADate, -1});
    Check(session, {"{1/1/97}", DateShape::Valid, 19970101});
    Check(session, {"{12/12/1997}", DateShape::Valid, 19971212});
    Check(session, {"{12/12/01997}", DateShape::NotADate, -1});
    Check(session, {"{1/2/12/1997}", DateShape::NotADate, -1});
    Check(session, {"", DateShape::NotADate, -1});
}

TEST(DateText, OtherShapesAreNoDates) {
    BareSession session;
    for (const char *text : {"{abcdefg}", "{12/31-97}", "{12.31.97}", "{123/1/97}", "{/1/1/97}",
                             "{12//3197}", "{12/31/97/}", "{1/2/3/4/5}", "{12/31/}   ",
                             "{12345678}", "{9999999999}", "{1/1/97 }", "{1/1/12345}"})
        Check(session, {text, DateShape::NotADate, -1});
}

TEST(DateText, ThirdSeparatorPutsThePartBeforeItInTheSecondsPlace) {
    BareSession session;
    Check(session, {"{1/2/3/97}", DateShape::Valid, 19970103});
    Check(session, {"{1/2-3/97}", DateShape::NotADate, -1});
    Check(session, {"{1/2/3-97}", DateShape::Valid, 19970103});
}

TEST(DateText, OneSeparatorMakesADateWithoutADay) {
    BareSession session;
    Check(session, {"\"12/3456\"", DateShape::Invalid, -1});
}

TEST(DateText, ImpossibleDatesAreInvalid) {
    BareSession session;
    for (const char *text : {"{13/01/97}", "{00/01/97}", "{01/00/97}", "{01/32/97}", "{04/31/97}",
                             "{06/31/97}", "{09/31/97}", "{11/31/97}", "{02/29/97}", "{02/30/96}"})
        Check(session, {text, DateShape::Invalid, -1});
    for (const char *text :
         {"{01/31/97}", "{04/30/97}", "{02/29/96}", "{02/28/97}", "{02/29/1900}"}) {
        int32_t date = 0;
        EXPECT_EQ(static_cast<int>(ParseDateText(session, text, &date)),
                  static_cast<int>(DateShape::Valid))
            << text;
    }
}

TEST(DateText, DayComesFirstWhenTheFormSaysSo) {
    BareSession session;
    session->form.Header.DateEntryFormat = 1;
    Check(session, {"{31/12/97}", DateShape::Valid, 19971231});
    Check(session, {"{12/31/97}", DateShape::Invalid, -1});
}
