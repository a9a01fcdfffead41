#include "tests/support/expressions.h"

#include <cstring>

#include "frame/memory.h"
#include "frame/text.h"

using Functions = Expressions;

TEST_F(Functions, LenCountsSpacesAndTakesNullAsEmpty) {
    Text("A", " ab ");
    Text("E", "");
    NullText("N");
    EXPECT_EQ(Whole("_ A LEN"), 4);
    EXPECT_EQ(Whole("_ E LEN"), 0);
    EXPECT_EQ(Whole("_ N LEN"), 0);
}

TEST_F(Functions, CaseAndTrimWorkOnACopy) {
    Text("A", "  aB c  ");
    EXPECT_EQ(TextOf("_ A UPPER"), "  AB C  ");
    EXPECT_EQ(TextOf("_ A LOWER"), "  ab c  ");
    EXPECT_EQ(TextOf("_ A TRIM"), "aB c");
    EXPECT_STREQ(Field("A")->TextValue, "  aB c  ");
}

TEST_F(Functions, WordCutsAtDelimitersAndGivesTheLastWhenThereAreFewer) {
    Text("A", "one, two;three");
    Text("D", " .;, x . y ");
    const struct {
        const char *list, *text;
    } cases[] = {{"A 1 WORD", "one"},
                 {"A 2 WORD", "two"},
                 {"A 3 WORD", "three"},
                 {"A 4 WORD", "three"},
                 {"A 2147483647 WORD", "three"},
                 {"A 0 WORD", ""},
                 {"A -1 WORD", ""},
                 {"A 2.9 WORD", "two"},
                 {"D 1 WORD", "x"},
                 {"D 2 WORD", "y"},
                 {"D 3 WORD", "y"}};
    for (const auto &row : cases) EXPECT_EQ(TextOf(row.list), row.text) << row.list;
}

TEST_F(Functions, WordOfAnEmptyTextIsEmpty) {
    Text("E", "");
    Text("S", " ,. ");
    NullText("N");
    for (const char *list : {"E 1 WORD", "S 1 WORD", "N 1 WORD"}) EXPECT_EQ(TextOf(list), "");
}

TEST_F(Functions, WordIsCutToAHundredCharacters) {
    Text("L", std::string(150, 'x') + " y");
    EXPECT_EQ(TextOf("L 1 WORD"), std::string(100, 'x'));
    EXPECT_EQ(TextOf("L 2 WORD"), "y");
}

TEST_F(Functions, CharTakesOneCharacterInsideTheTextAlone) {
    const struct {
        const char *list, *text;
    } cases[] = {{"'abc' 1 CHAR", "a"},   {"'abc' 3 CHAR", "c"}, {"'abc' 0 CHAR", ""},
                 {"'abc' 4 CHAR", ""},    {"'abc' -1 CHAR", ""}, {"'abc' 2.9 CHAR", "b"},
                 {"'abc' 1e99. CHAR", ""}};
    for (const auto &row : cases) EXPECT_EQ(TextOf(row.list), row.text) << row.list;
}

TEST_F(Functions, LeftAndRightTakeAsManyAsThereAre) {
    const struct {
        const char *list, *text;
    } cases[] = {{"'abc' 2 LEFT", "ab"},  {"'abc' 0 LEFT", ""},     {"'abc' -5 LEFT", ""},
                 {"'abc' 9 LEFT", "abc"}, {"'abc' 2 RIGHT", "bc"},  {"'abc' 0 RIGHT", ""},
                 {"'abc' -5 RIGHT", ""},  {"'abc' 9 RIGHT", "abc"}, {"'abc' 1.9 RIGHT", "c"}};
    for (const auto &row : cases) EXPECT_EQ(TextOf(row.list), row.text) << row.list;
}

TEST_F(Functions, LeftAndRightTakeLongTextsWhole) {
    const std::string text(5000, 'x');
    Text("L", text);
    EXPECT_EQ(TextOf("L 4000 LEFT"), text.substr(0, 4000));
    EXPECT_EQ(TextOf("L 9000 RIGHT"), text);
}

TEST_F(Functions, TextFunctionsOfANullTextGiveAnEmptyText) {
    NullText("N");
    for (const char *list :
         {"_ N UPPER", "_ N LOWER", "_ N TRIM", "N 1 CHAR", "N 1 LEFT", "N 1 RIGHT", "_ N STR"})
        EXPECT_EQ(TextOf(list), "") << list;
}

TEST_F(Functions, MinAndMaxKeepTheCommonType) {
    EXPECT_EQ(Whole("3 -2 MIN"), -2);
    EXPECT_EQ(Whole("3 -2 MAX"), 3);
    EXPECT_EQ(Real("3.5 -2.5 MIN"), -2.5);
    EXPECT_EQ(Real("3.5 -2.5 MAX"), 3.5);
}

TEST_F(Functions, MinAndMaxOfDifferentTypesAreDouble) {
    EXPECT_EQ(Real("1 2.5 MAX"), 2.5);
    EXPECT_EQ(Real("2.5 3 MAX"), 3.0);
    EXPECT_EQ(Real("1 2.5 MIN"), 1.0);
    Number("A", 7);
    Real("A 2.5 MIN");
    EXPECT_EQ(+Field("A")->DoubleValue, 7.0);
}

TEST_F(Functions, MinAndMaxCompareTheTwoSidesEachByItself) {
    Number("A", 1)->DoubleValue = 9.0;
    Number("B", 2)->DoubleValue = 8.0;
    const Outcome least = Run("A B MIN");
    EXPECT_EQ(least.whole, 1);
    EXPECT_EQ(least.real, 8.0);
    const Outcome most = Run("A B MAX");
    EXPECT_EQ(most.whole, 2);
    EXPECT_EQ(most.real, 9.0);
}

TEST_F(Functions, ValMakesAWholeNumberOfAnyValue) {
    Text("P", "  42 ");
    Text("B", " -42");
    Text("E", "");
    NullText("N");
    const struct {
        const char *list;
        int32_t value;
    } cases[] = {{"_ '12abc' VAL", 12},
                 {"_ '-12' VAL", -12},
                 {"_ '+12.9' VAL", 12},
                 {"_ 'abc' VAL", 0},
                 {"_ '-' VAL", 0},
                 {"_ P VAL", 42},
                 {"_ E VAL", 0},
                 {"_ N VAL", 0},
                 {"_ B VAL", -42},
                 {"_ '2147483648' VAL", INT32_MAX},
                 {"_ '-99999999999' VAL", INT32_MIN},
                 {"_ {19970102} VAL", 19970102},
                 {"_ 7 VAL", 7},
                 {"_ .T. VAL", 1},
                 {"_ 2.9 VAL", 2},
                 {"_ -2.9 VAL", -2},
                 {"_ 3000000000.0 VAL", INT32_MIN}};
    for (const auto &row : cases) EXPECT_EQ(Whole(row.list), row.value) << row.list;
}

TEST_F(Functions, RoundGoesAwayFromZeroAtTheHalf) {
    const struct {
        const char *list;
        double value;
    } cases[] = {{"1.25 1 ROUND", 1.3},     {"-2.5 0 ROUND", -3.0}, {"2.5 0 ROUND", 3.0},
                 {"-1.25 1 ROUND", -1.3},   {"2.4 0 ROUND", 2.0},   {"7 2 ROUND", 7.0},
                 {"1.239 2.9 ROUND", 1.24}, {"0.0 3 ROUND", 0.0}};
    for (const auto &row : cases) EXPECT_DOUBLE_EQ(Real(row.list), row.value) << row.list;
}

TEST_F(Functions, RoundToNegativePlacesGivesAWholeNumber) {
    EXPECT_EQ(Real("1234.5 -2 ROUND"), 1235.0);
    EXPECT_EQ(Real("1234.5 -2147483648 ROUND"), 1235.0);
}

TEST_F(Functions, RoundBeyondTheWholeRangeIsWrong) {
    EXPECT_EQ(Real("12345678.9 4 ROUND"), -214748.3648);
    EXPECT_EQ(Real("3000000000.0 0 ROUND"), -2147483648.0);
}

TEST_F(Functions, RoundToAnyNumberOfPlacesEnds) {
    EXPECT_EQ(Real("1.5 2147483647 ROUND"), 0.0);
    EXPECT_EQ(Real("0.0 2147483647 ROUND"), 0.0);
    EXPECT_EQ(Real("1.5 400 ROUND"), 0.0);
}

TEST_F(Functions, AbsKeepsTheType) {
    EXPECT_EQ(Whole("_ -7 ABS"), 7);
    EXPECT_EQ(Whole("_ 7 ABS"), 7);
    EXPECT_EQ(Real("_ -7.5 ABS"), 7.5);
    EXPECT_EQ(Whole("_ -2147483648 ABS"), INT32_MIN);
}

TEST_F(Functions, StrFormatsByTheOperandsOwnRules) {
    FieldRecord *number = Double("A", -1234.5);
    number->Decimals = 2;
    FieldRecord *logical = Logical("L", true);
    tessarine::CopyText("yes", logical->TrueText, sizeof logical->TrueText);
    Date("D", 19971231)->DateFormat = 3;
    Text("T", " as is ")->FieldFlags = FIELD_UPPER | FIELD_TRIM;
    EXPECT_EQ(TextOf("_ A STR"), "-1,234.50");
    EXPECT_EQ(TextOf("_ L STR"), "yes");
    EXPECT_EQ(TextOf("_ D STR"), "Dec 31, 1997");
    EXPECT_EQ(TextOf("_ T STR"), " as is ");
}

TEST_F(Functions, StrOfAnIntermediateResultUsesTheDefaults) {
    Double("A", 1000.25)->Decimals = 2;
    EXPECT_EQ(TextOf("_ 1000 234 + STR"), " 1,234");
    EXPECT_EQ(TextOf("_ A A + STR"), " 2,000");
}

TEST_F(Functions, StrStaysInsideItsBufferWhateverTheRules) {
    Double("A", 1.5)->Decimals = 500;
    EXPECT_EQ(TextOf("_ A STR").size(), static_cast<size_t>(MAX_LABEL_TEXT));
}

TEST_F(Functions, StrOfAPictureIsEmpty) {
    Number("P", 1)->ValueType = TYPE_PICTURE;
    EXPECT_EQ(TextOf("_ P STR"), "");
}

TEST_F(Functions, WrongArgumentsAreRefusedDryAndInARun) {
    for (const char *list : {"_ 1 LEN",
                             "_ 1 UPPER",
                             "_ 1.5 LOWER",
                             "_ {19970101} TRIM",
                             "'a' 'b' WORD",
                             "1 1 WORD",
                             "'a' .T. CHAR",
                             "1 1 CHAR",
                             "'a' 1 MIN",
                             "1 'a' MAX",
                             "1 {19970101} MIN",
                             ".T. 1 MAX",
                             "'a' 1 ROUND",
                             "1 'a' ROUND",
                             "_ 'a' ABS",
                             "_ .T. ABS",
                             "'a' 'b' LEFT",
                             "1 1 LEFT",
                             "'a' {19970101} RIGHT",
                             ".T. 1 RIGHT"}) {
        EXPECT_EQ(Failure(list), "Field type mismatch.") << list;
        EXPECT_EQ(DryFailure(list), "Field type mismatch.") << list;
    }
}

TEST_F(Functions, DryRunSetsTheTypeAlone) {
    const struct {
        const char *list;
        int type;
    } cases[] = {
        {"_ 'a' LEN", TYPE_NUMERIC}, {"_ 'a' UPPER", TYPE_TEXT}, {"_ 'a' LOWER", TYPE_TEXT},
        {"_ 'a' TRIM", TYPE_TEXT},   {"'a' 1 WORD", TYPE_TEXT},  {"'a' 1 CHAR", TYPE_TEXT},
        {"1 2 MIN", TYPE_NUMERIC},   {"1 2.5 MIN", TYPE_DOUBLE}, {"1.5 2.5 MAX", TYPE_DOUBLE},
        {"_ 'a' VAL", TYPE_NUMERIC}, {"1 2 ROUND", TYPE_DOUBLE}, {"_ 1 ABS", TYPE_NUMERIC},
        {"_ 1.5 ABS", TYPE_DOUBLE},  {"'a' 1 LEFT", TYPE_TEXT},  {"'a' 1 RIGHT", TYPE_TEXT},
        {"_ 1 STR", TYPE_TEXT}};
    for (const auto &row : cases) {
        const Outcome outcome = DryRun(row.list);
        EXPECT_EQ(outcome.code, CELL_END) << row.list;
        EXPECT_EQ(outcome.type, row.type) << row.list;
        EXPECT_FALSE(outcome.has_text) << row.list;
    }
}

TEST_F(Functions, DryRunOfMinAndMaxLeavesTheFieldsOfAFormAlone) {
    Number("A", 7);
    for (const char *list : {"A 2.5 MIN", "2.5 A MAX", "A 9 MAX", "_ A ABS"}) {
        const Outcome outcome = DryRun(list);
        EXPECT_EQ(outcome.whole, 0) << list;
        EXPECT_EQ(outcome.real, 0.0) << list;
        EXPECT_EQ(+Field("A")->DoubleValue, 0.0) << list;
    }
}

TEST_F(Functions, TextsWithoutMemoryFailWithoutALeak) {
    for (const char *list : {"_ 'a' UPPER", "_ 'a' LOWER", "_ 'a' TRIM", "'a' 1 WORD", "'a' 1 CHAR",
                             "'a' 1 LEFT", "'a' 1 RIGHT", "_ 1 STR", "_ 'a' STR"}) {
        const auto cells = Cells(list);
        boxes.Clear();
        tessarine::FailAllocation(1);
        const Outcome outcome = Evaluate(cells, 1);
        tessarine::FailAllocation(0);
        EXPECT_NE(outcome.code, CELL_END) << list;
        EXPECT_EQ(boxes.LastText(), "Ran out of memory for string calculation.") << list;
    }
}

TEST_F(Functions, NumbersAllocateNothing) {
    Number("A", 3);
    Double("B", 2.5);
    const auto cells = Cells("A B + B * A 2 / MAX 1 ROUND");
    tessarine::FailAllocation(1);
    const Outcome outcome = Evaluate(cells, 1);
    tessarine::FailAllocation(0);
    EXPECT_EQ(outcome.code, CELL_END);
    EXPECT_TRUE(boxes.Log().empty());
}
