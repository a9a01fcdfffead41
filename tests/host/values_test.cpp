#include <gtest/gtest.h>

#include "host/base/failure.h"
#include "host/data/values.h"

namespace {

FieldRecord FieldOf(int type, int decimals = 0) {
    FieldRecord field{};
    field.ValueType = static_cast<int16_t>(type);
    field.Decimals = static_cast<int16_t>(decimals);
    return field;
}

int Whole(int type, const std::string &cell, int decimals = 0) {
    return ConvertValue(cell, FieldOf(type, decimals)).whole;
}

} // namespace

TEST(Values, WholeNumbersAreScaledByTheirDecimals) {
    EXPECT_EQ(Whole(TYPE_NUMERIC, "12"), 12);
    EXPECT_EQ(Whole(TYPE_NUMERIC, "12.345", 2), 1235);
    EXPECT_EQ(Whole(TYPE_NUMERIC, "-0.5", 1), -5);
    EXPECT_EQ(Whole(TYPE_NUMERIC, ""), 0);
    EXPECT_THROW(Whole(TYPE_NUMERIC, "99999999999"), Failure);
    EXPECT_THROW(Whole(TYPE_NUMERIC, "twelve"), Failure);
}

TEST(Values, DatesAreReadInThreeFormsAndChecked) {
    for (const char *text : {"1997-12-31", "12/31/1997", "19971231"})
        EXPECT_EQ(Whole(TYPE_DATE, text), 19971231) << text;
    EXPECT_EQ(Whole(TYPE_DATE, ""), 0);
    for (const char *text : {"1997-02-29", "31/12/1997", "yesterday", "1997-12-31x"})
        EXPECT_THROW(Whole(TYPE_DATE, text), Failure) << text;
    EXPECT_EQ(Whole(TYPE_DATE, "2000-02-29"), 20000229);
}

TEST(Values, LogicalWordsAreTakenInAnyCase) {
    for (const char *text : {"true", "YES", "1", "t", "Y"}) EXPECT_EQ(Whole(TYPE_LOGICAL, text), 1);
    for (const char *text : {"false", "No", "0", ""}) EXPECT_EQ(Whole(TYPE_LOGICAL, text), 0);
    EXPECT_THROW(Whole(TYPE_LOGICAL, "maybe"), Failure);
}
