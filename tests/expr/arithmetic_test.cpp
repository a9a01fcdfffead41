#include "tests/support/expressions.h"

#include "frame/memory.h"

using Arithmetic = Expressions;

TEST_F(Arithmetic, WholeNumbersStayWhole) {
    EXPECT_EQ(Whole("1 2 +"), 3);
    EXPECT_EQ(Whole("1 2 -"), -1);
    EXPECT_EQ(Whole("6 7 *"), 42);
    EXPECT_EQ(Whole("7 2 /"), 3);
    EXPECT_EQ(Whole("-7 2 /"), -3);
}

TEST_F(Arithmetic, OneDoubleMakesADouble) {
    EXPECT_EQ(Real("1 2.5 +"), 3.5);
    EXPECT_EQ(Real("7 2.0 /"), 3.5);
    EXPECT_EQ(Real("7.0 2 /"), 3.5);
    EXPECT_EQ(Real("2.5 1 -"), 1.5);
    EXPECT_EQ(Real("2.5 2 *"), 5.0);
    EXPECT_EQ(Real("2.5 2.5 +"), 5.0);
}

TEST_F(Arithmetic, SignBeforeAnOperandSubtractsFromZero) {
    Number("A", 5);
    Double("B", 2.5);
    EXPECT_EQ(Whole("_ A -"), -5);
    EXPECT_EQ(Whole("_ A +"), 5);
    EXPECT_EQ(Real("_ B -"), -2.5);
}

TEST_F(Arithmetic, WholeNumbersWrapAround) {
    EXPECT_EQ(Whole("2147483647 1 +"), INT32_MIN);
    EXPECT_EQ(Whole("-2147483648 1 -"), INT32_MAX);
    EXPECT_EQ(Whole("65536 65536 *"), 0);
    EXPECT_EQ(Whole("-2147483648 -1 /"), INT32_MIN);
    EXPECT_EQ(Whole("_ -2147483648 -"), INT32_MIN);
}

TEST_F(Arithmetic, DivisionByZeroFailsInARunAlone) {
    EXPECT_EQ(Failure("7 0 /"), "Error: Division by zero.");
    EXPECT_EQ(Failure("7.5 0 /"), "Error: Division by zero.");
    EXPECT_EQ(Failure("7 0.0 /"), "Error: Division by zero.");
    EXPECT_EQ(DryRun("7 0 /").code, CELL_END);
    EXPECT_EQ(DryRun("7 0.0 /").type, TYPE_DOUBLE);
}

TEST_F(Arithmetic, PlusJoinsTexts) {
    Text("A", "ab  ");
    Text("E", "");
    EXPECT_EQ(TextOf("A 'cd' +"), "ab  cd");
    EXPECT_EQ(TextOf("E 'cd' +"), "cd");
    EXPECT_EQ(TextOf("A 'cd' + A +"), "ab  cdab  ");
}

TEST_F(Arithmetic, MinusMovesTheLeftTextsTrailingSpacesToTheEnd) {
    Text("A", "ab  ");
    Text("S", "   ");
    Text("B", " c ");
    EXPECT_EQ(TextOf("A 'cd' -"), "abcd  ");
    EXPECT_EQ(TextOf("A B -"), "ab c   ");
    EXPECT_EQ(TextOf("S 'x' -"), "x   ");
    EXPECT_EQ(TextOf("'x' S -"), "x   ");
}

TEST_F(Arithmetic, NullTextGivesNoResultAndNoError) {
    NullText("N");
    for (const char *list : {"N 'a' +", "'a' N +", "N N -", "_ 'a' -", "_ 'a' +"}) {
        const Outcome outcome = Run(list);
        EXPECT_EQ(outcome.code, CELL_END) << list;
        EXPECT_EQ(outcome.type, TYPE_TEXT) << list;
        EXPECT_FALSE(outcome.has_text) << list;
    }
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Arithmetic, DryRunJoinsNoTexts) {
    const Outcome outcome = DryRun("'a' 'b' + 'c' -");
    EXPECT_EQ(outcome.type, TYPE_TEXT);
    EXPECT_FALSE(outcome.has_text);
}

TEST_F(Arithmetic, TypesThatDoNotFitAreRefused) {
    for (const char *list :
         {"'A' 1 +", "{19970101} 1 +", "{19970101} {19970102} -", "{19970101} {19970102} +",
          ".T. .F. +", ".T. .F. -", "'a' 'b' *", "'a' 'b' /", "{19970101} {19970102} *",
          ".T. .T. /", "_ .T. -", "_ {19970101} -"}) {
        EXPECT_EQ(Failure(list), "Field type mismatch.") << list;
        EXPECT_EQ(DryFailure(list), "Field type mismatch.") << list;
    }
}

TEST_F(Arithmetic, JoiningWithoutMemoryFailsWithoutALeak) {
    Text("A", "ab");
    Text("B", "cd");
    const auto cells = Cells("A B + A +");
    for (int allocation : {1, 2}) {
        boxes.Clear();
        tessarine::FailAllocation(allocation);
        const Outcome outcome = Evaluate(cells, 1);
        tessarine::FailAllocation(0);
        EXPECT_NE(outcome.code, CELL_END);
        EXPECT_EQ(boxes.Texts(),
                  (std::vector<std::string>{"Memory Allocation Error (OurAlloc)",
                                            "Ran out of memory for string calculation."}));
        EXPECT_EQ(boxes.LastTitle(), "");
    }
}

// ---- summary operators

TEST_F(Arithmetic, SummaryOperatorsReadWhatWasAccumulated) {
    FieldRecord *field = Number("A", 5);
    field->LongSummary = -7;
    field->DoubleSummary = 7.5;
    field->SummaryCount = 2;
    const struct {
        const char *list;
        int32_t value;
        int type;
    } cases[] = {{"_ A .TOTAL-OF.", -7, SUMMARY_TOTAL},
                 {"_ A .AVE-OF.", -3, SUMMARY_AVERAGE},
                 {"_ A .MAX-OF.", -7, SUMMARY_MAX},
                 {"_ A .MIN-OF.", -7, SUMMARY_MIN},
                 {"_ A .COUNT-OF.", 2, SUMMARY_COUNT}};
    for (const auto &row : cases) {
        EXPECT_EQ(Whole(row.list), row.value) << row.list;
        EXPECT_EQ(+field->SummaryType, row.type) << row.list;
    }
}

TEST_F(Arithmetic, SummaryOperatorsOfADoubleReadItsDoubleSide) {
    FieldRecord *field = Double("A", 5.0);
    field->DoubleSummary = 7.5;
    field->SummaryCount = 2;
    EXPECT_EQ(Real("_ A .TOTAL-OF."), 7.5);
    EXPECT_EQ(Real("_ A .AVE-OF."), 3.75);
    EXPECT_EQ(Real("_ A .MAX-OF."), 7.5);
    EXPECT_EQ(Real("_ A .MIN-OF."), 7.5);
    EXPECT_EQ(Whole("_ A .COUNT-OF."), 2);
}

TEST_F(Arithmetic, AverageOverNoRecordsIsZero) {
    FieldRecord *field = Number("A", 5);
    Double("B", 5.0)->DoubleSummary = 9.0;
    field = Field("A");
    field->LongSummary = 9;
    EXPECT_EQ(Whole("_ A .AVE-OF."), 0);
    EXPECT_EQ(Real("_ B .AVE-OF."), 0.0);
}

TEST_F(Arithmetic, AverageOverADamagedCountDoesNotCrash) {
    FieldRecord *field = Number("A", 5);
    field->LongSummary = INT32_MIN;
    field->SummaryCount = -1;
    EXPECT_EQ(Whole("_ A .AVE-OF."), INT32_MIN);
}

TEST_F(Arithmetic, DryRunSwitchesTheAccumulationOn) {
    Number("A", 5);
    EXPECT_EQ(DryRun("_ A .MAX-OF.").code, CELL_END);
    EXPECT_EQ(+Field("A")->SummaryType, SUMMARY_MAX);
}

TEST_F(Arithmetic, SummaryOfATextOrDateOrLogicalIsRefusedAlsoWhenDry) {
    Text("T", "a");
    Date("D", 19970101);
    Logical("L", true);
    for (const char *name : {"T", "D", "L"})
        for (const char *op : {".TOTAL-OF.", ".AVE-OF.", ".MAX-OF.", ".MIN-OF.", ".COUNT-OF."}) {
            const std::string list = std::string("_ ") + name + " " + op;
            EXPECT_EQ(DryFailure(list), "Field type mismatch.") << list;
            EXPECT_EQ(Failure(list), "Field type mismatch.") << list;
            EXPECT_EQ(+Field(name)->SummaryType, SUMMARY_VALUE) << list;
        }
}
