#include "host/design/columns.h"

#include <gtest/gtest.h>

namespace {

FieldRecord FieldOf(const std::string &cells) {
    return FieldsOf(ParseCsv("t.csv", "name\n" + cells)).at(0);
}

struct TypeCase {
    const char *cells;
    int type;
    int decimals;
    const char *text;
};

class ColumnTypes : public testing::TestWithParam<TypeCase> {};

} // namespace

TEST_P(ColumnTypes, AreWhatTheValuesLookLike) {
    const FieldRecord field = FieldOf(GetParam().cells);
    EXPECT_EQ(+field.ValueType, GetParam().type);
    EXPECT_EQ(+field.Decimals, GetParam().decimals);
    EXPECT_EQ(TypeText(field), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Columns, ColumnTypes,
    testing::Values(TypeCase{"1\n-20\n", TYPE_NUMERIC, 0, "number"},
                    TypeCase{"1.5\n20\n3.25\n", TYPE_NUMERIC, 2, "number with 2 decimals"},
                    TypeCase{"0.5\n", TYPE_NUMERIC, 1, "number with 1 decimal"},
                    TypeCase{"3000000000\n", TYPE_DOUBLE, 0, "number"},
                    TypeCase{"01234\n99999\n", TYPE_TEXT, 0, "text of 5 characters"},
                    TypeCase{"1.\n", TYPE_TEXT, 0, "text of 2 characters"},
                    TypeCase{"2024-02-29\n2024-03-01\n", TYPE_DATE, 0, "date"},
                    TypeCase{"12/31/2024\n", TYPE_DATE, 0, "date"},
                    TypeCase{"2023-02-29\n", TYPE_TEXT, 0, "text of 10 characters"},
                    TypeCase{"yes\nNo\n", TYPE_LOGICAL, 0, "yes or no"},
                    TypeCase{"0\n1\n", TYPE_NUMERIC, 0, "number"},
                    TypeCase{"1\nn.a.\n", TYPE_TEXT, 0, "text of 4 characters"}));

TEST(Columns, NamesAreInUpperCaseAndTellTheirColumn) {
    const auto fields = FieldsOf(ParseCsv("t.csv", "Name,population\nA,1\n"));
    ASSERT_EQ(fields.size(), 2U);
    EXPECT_STREQ(fields[1].FieldName, "POPULATION");
    EXPECT_EQ(+fields[1].HostField, 1);
}

TEST(Columns, EmptyCellsSayNothingOfTheType) {
    const auto fields = FieldsOf(ParseCsv("t.csv", "a,b\n1,\n,\n3,\n"));
    EXPECT_EQ(+fields[0].ValueType, TYPE_NUMERIC);
    EXPECT_EQ(+fields[1].ValueType, TYPE_TEXT);
    EXPECT_EQ(+fields[1].FieldWidth, 15);
}

TEST(Columns, ANumberHasRoomForItsTotal) { EXPECT_EQ(+FieldOf("1234\n").FieldWidth, 6); }
