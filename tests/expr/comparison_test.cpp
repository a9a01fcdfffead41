#include "tests/support/expressions.h"

#include <cstring>

using Comparison = Expressions;

TEST_F(Comparison, NumbersFollowEachOperator) {
    const struct {
        const char *op;
        bool less, equal, greater; // for 1 and 2, 2 and 2, 3 and 2
    } cases[] = {{"=", false, true, false}, {"<>", true, false, true}, {">", false, false, true},
                 {"<", true, false, false}, {">=", false, true, true}, {"<=", true, true, false},
                 {".", true, false, true}};
    for (const auto &row : cases) {
        const std::string op = row.op;
        EXPECT_EQ(Holds("1 2 " + op), row.less) << op;
        EXPECT_EQ(Holds("2 2 " + op), row.equal) << op;
        EXPECT_EQ(Holds("3 2 " + op), row.greater) << op;
        EXPECT_EQ(Holds("1.5 2 " + op), row.less) << op;
        EXPECT_EQ(Holds("2 2.0 " + op), row.equal) << op;
        EXPECT_EQ(Holds("2.5 2.25 " + op), row.greater) << op;
    }
}

TEST_F(Comparison, WholeNumberAndDoubleCompareAsDoubles) {
    EXPECT_TRUE(Holds("2 1.5 >"));
    EXPECT_TRUE(Holds("1.5 2 <"));
}

TEST_F(Comparison, WholeNumberBesideADoubleKeepsItsDoubleCopy) {
    Number("A", 7);
    Holds("A 1.5 >");
    EXPECT_EQ(+Field("A")->DoubleValue, 7.0);
}

TEST_F(Comparison, TextsFollowEachOperator) {
    const struct {
        const char *op;
        bool less, equal, greater;
    } cases[] = {{"=", false, true, false}, {"<>", true, false, true}, {">", false, false, true},
                 {"<", true, false, false}, {">=", false, true, true}, {"<=", true, true, false}};
    for (const auto &row : cases) {
        const std::string op = row.op;
        EXPECT_EQ(Holds("'abc' 'abd' " + op), row.less) << op;
        EXPECT_EQ(Holds("'abc' 'abc' " + op), row.equal) << op;
        EXPECT_EQ(Holds("'b' 'abc' " + op), row.greater) << op;
    }
}

TEST_F(Comparison, TextsThatDifferByTrailingSpacesAreEqualAndTheLongerIsStripped) {
    Text("A", "ab   ");
    Text("B", "ab");
    EXPECT_TRUE(Holds("A B ="));
    EXPECT_STREQ(Field("A")->TextValue, "ab");
}

TEST_F(Comparison, TrailingSpacesOfTheRightOperandNeverCountEither) {
    Text("A", "ab");
    Text("B", "ab   ");
    EXPECT_TRUE(Holds("A B ="));
    EXPECT_STREQ(Field("B")->TextValue, "ab");
    Text("C", "ab  ");
    EXPECT_FALSE(Holds("A C <"));
}

TEST_F(Comparison, TextsFollowTheOrderOfADictionary) {
    EXPECT_TRUE(Holds("'a' 'B' <"));
    EXPECT_TRUE(Holds("'Z' 'a' >"));
    EXPECT_TRUE(Holds("'a' 'A' <"));
    EXPECT_TRUE(Holds("'a' 'A' <>"));
    EXPECT_TRUE(Holds("'co-op' 'coop' <>"));
}

TEST_F(Comparison, DryRunLeavesTextsUnstripped) {
    Text("A", "ab   ");
    Text("B", "ab");
    EXPECT_EQ(DryRun("A B =").type, TYPE_LOGICAL);
    EXPECT_STREQ(Field("A")->TextValue, "ab   ");
}

TEST_F(Comparison, NullTextMakesEveryComparisonFalse) {
    NullText("N");
    Text("A", "a  ");
    for (const char *list : {"N A =", "A N <>", "N N =", "N A <", "A N >=", "N A <="})
        EXPECT_FALSE(Holds(list)) << list;
    EXPECT_STREQ(Field("A")->TextValue, "a  ");
}

TEST_F(Comparison, LogicalsCompareForEqualityAlone) {
    EXPECT_TRUE(Holds(".T. .T. ="));
    EXPECT_FALSE(Holds(".T. .F. ="));
    EXPECT_TRUE(Holds(".T. .F. <>"));
    for (const char *list : {".T. .F. >", ".T. .F. <", ".T. .F. >=", ".T. .F. <="})
        EXPECT_EQ(Failure(list), "Field type mismatch.") << list;
}

TEST_F(Comparison, LogicalsCompareAsIntegers) {
    Logical("A", true)->LongValue = 2;
    EXPECT_FALSE(Holds("A .T. ="));
}

TEST_F(Comparison, DatesCompareByTheirEightDigits) {
    EXPECT_TRUE(Holds("{19970101} {19970102} <"));
    EXPECT_TRUE(Holds("{19980101} {19971231} >"));
    EXPECT_TRUE(Holds("{19970101} {19970101} ="));
    EXPECT_TRUE(Holds("{19970101} {19970102} <>"));
    EXPECT_TRUE(Holds("{19970101} {19970101} >="));
    EXPECT_FALSE(Holds("{19970102} {19970101} <="));
}

TEST_F(Comparison, OldFormOfADateEqualsTheNewFormAndIsExpandedInPlace) {
    Date("D", 971231);
    EXPECT_TRUE(Holds("D {19971231} ="));
    EXPECT_EQ(+Field("D")->LongValue, 19971231);
    Date("E", 999999);
    Date("F", 1000000);
    EXPECT_TRUE(Holds("E F >"));
    EXPECT_EQ(+Field("E")->LongValue, 19999999);
    EXPECT_EQ(+Field("F")->LongValue, 1000000);
}

TEST_F(Comparison, LogicOperatorsFollowTheirTables) {
    const struct {
        const char *left, *right;
        bool either, both;
    } cases[] = {{".F.", ".F.", false, false},
                 {".F.", ".T.", true, false},
                 {".T.", ".F.", true, false},
                 {".T.", ".T.", true, true}};
    for (const auto &row : cases) {
        const std::string operands = std::string(row.left) + " " + row.right;
        EXPECT_EQ(Holds(operands + " .OR."), row.either) << operands;
        EXPECT_EQ(Holds(operands + " .AND."), row.both) << operands;
    }
    EXPECT_TRUE(Holds("_ .F. .NOT."));
    EXPECT_FALSE(Holds("_ .T. .NOT."));
}

TEST_F(Comparison, LogicOperatorsRefuseOtherTypes) {
    for (const char *list :
         {"1 2 .OR.", "'a' 'b' .AND.", "_ 1 .NOT.", "1 .T. .AND.", "_ {19970101} .NOT."})
        EXPECT_EQ(Failure(list), "Field type mismatch.") << list;
}

TEST_F(Comparison, ContainedTextIsFoundInTheSameCaseOnly) {
    EXPECT_TRUE(Holds("'bc' 'abcd' $"));
    EXPECT_TRUE(Holds("'abcd' 'abcd' $"));
    EXPECT_FALSE(Holds("'BC' 'abcd' $"));
    EXPECT_FALSE(Holds("'abcde' 'abcd' $"));
}

TEST_F(Comparison, EmptyOrNullTextIsContainedInNothing) {
    Text("E", "");
    NullText("N");
    for (const char *list : {"E 'abc' $", "E E $", "N 'abc' $", "'a' N $"})
        EXPECT_FALSE(Holds(list)) << list;
}

TEST_F(Comparison, ContainedTextKeepsItsTrailingSpaces) {
    Text("A", "b ");
    EXPECT_FALSE(Holds("A 'ab' $"));
    EXPECT_STREQ(Field("A")->TextValue, "b ");
}

TEST_F(Comparison, ContainmentRefusesOtherTypesAndIsFalseInADryRun) {
    EXPECT_EQ(Failure("1 2 $"), "Field type mismatch.");
    EXPECT_EQ(Failure(".T. .F. $"), "Field type mismatch.");
    const Outcome outcome = DryRun("'a' 'abc' $");
    EXPECT_EQ(outcome.type, TYPE_LOGICAL);
    EXPECT_EQ(outcome.whole, 0);
}

TEST_F(Comparison, TypesNeverConvert) {
    for (const char *list : {"'1' 1 =", "{19970101} 19970101 =", ".T. 1 =", "'a' {19970101} <"}) {
        EXPECT_EQ(Failure(list), "Field type mismatch.") << list;
        EXPECT_EQ(DryFailure(list), "Field type mismatch.") << list;
    }
}
