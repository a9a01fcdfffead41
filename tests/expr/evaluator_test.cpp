#include "expr/evaluator.h"

#include "expr/postfix.h"
#include "expr/symbols.h"
#include "frame/memory.h"
#include "tests/support/expressions.h"

using namespace tessarine;
using Evaluator = Expressions;

namespace {

std::string Repeated(const std::string &part, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += part;
    return text;
}

} // namespace

TEST_F(Evaluator, EmptyListSucceedsAndLeavesTheResultAsItWas) {
    const uint16_t empty[] = {CELL_END};
    char text[] = "mine";
    FieldRecord result{};
    result.ValueType = TYPE_LOGICAL;
    result.LongValue = 42;
    result.TextValue = text;
    for (int run : {0, 1}) EXPECT_EQ(EvaluateExpression(session, empty, &result, run), CELL_END);
    EXPECT_EQ(+result.ValueType, TYPE_LOGICAL);
    EXPECT_EQ(+result.LongValue, 42);
    EXPECT_EQ(+result.TextValue, text);
}

TEST_F(Evaluator, SingleOperandGivesItsValueWithoutAnyOperator) {
    Text("T", "abc  ");
    EXPECT_EQ(Whole("12"), 12);
    EXPECT_EQ(Real("2.5"), 2.5);
    EXPECT_EQ(Whole(".T.", TYPE_LOGICAL), 1);
    EXPECT_EQ(Whole("{971231}", TYPE_DATE), 971231); // no operator looks at its form
    EXPECT_EQ(TextOf("T"), "abc  ");
    EXPECT_STREQ(Field("T")->TextValue, "abc  ");
}

TEST_F(Evaluator, ResultIsWrittenInFourFieldsAlone) {
    const auto cells = Cells("1 2 +");
    FieldRecord result;
    memset(&result, 0x5A, sizeof result);
    FieldRecord expected = result;
    EXPECT_EQ(EvaluateExpression(session, cells.data(), &result, 1), CELL_END);
    expected.ValueType = TYPE_NUMERIC;
    expected.LongValue = 3;
    expected.DoubleValue = result.DoubleValue;
    expected.TextValue = nullptr;
    EXPECT_EQ(memcmp(&result, &expected, sizeof result), 0);
}

TEST_F(Evaluator, NullTextGivesANullResult) {
    NullText("N");
    const Outcome outcome = Run("N");
    EXPECT_EQ(outcome.code, CELL_END);
    EXPECT_EQ(outcome.type, TYPE_TEXT);
    EXPECT_FALSE(outcome.has_text);
}

TEST_F(Evaluator, DryRunGivesNoText) {
    Text("T", "abc");
    EXPECT_FALSE(DryRun("T").has_text);
    EXPECT_EQ(DryRun("T").type, TYPE_TEXT);
}

TEST_F(Evaluator, OperatorsApplyInTheOrderOfTheList) {
    EXPECT_EQ(Whole("2 3 4 * +"), 14);
    EXPECT_EQ(Whole("2 3 + 4 *"), 20);
    EXPECT_EQ(Whole("1 2 3 4 + + +"), 10);
    EXPECT_EQ(Whole("10 4 - 3 -"), 3);
}

TEST_F(Evaluator, SameFieldOnBothSidesIsRead) {
    Number("A", 4);
    Text("T", "ab ");
    EXPECT_EQ(Whole("A A *"), 16);
    EXPECT_EQ(TextOf("T T +"), "ab ab ");
    EXPECT_TRUE(Holds("T T ="));
}

TEST_F(Evaluator, OperatorWithTooFewOperandsIsReported) {
    for (const char *list : {"1 +", "+", "1 2 + +", "LEN"}) {
        EXPECT_EQ(Failure(list), "Invalid operator/operand position.") << list;
        EXPECT_EQ(DryFailure(list), "Invalid operator/operand position.") << list;
    }
}

TEST_F(Evaluator, FailureGivesTheOperatorsCode) {
    EXPECT_EQ(Run("1 +").code, 503);
    EXPECT_EQ(Run("1 0 /").code, 506);
    EXPECT_EQ(Run("_ _ .NOT.").code, 516);
}

TEST_F(Evaluator, MissingRightOperandIsReported) {
    for (const char *list : {"_ _ .NOT.", "1 _ +", "_ _ .T. .NOT. + _ ="})
        EXPECT_NE(Failure(list), "") << list;
    EXPECT_EQ(Failure("1 _ +"), "Invalid unary operator position.");
    EXPECT_EQ(Failure("_ _ .NOT."), "Invalid unary operator position.");
}

TEST_F(Evaluator, RepeatedUnaryOperatorIsRefused) {
    // what ".NOT. .NOT. A" becomes
    EXPECT_EQ(Failure("_ _ .NOT. .T. .NOT."), "Invalid unary operator position.");
}

TEST_F(Evaluator, LeftoverOperandsAreReported) {
    EXPECT_EQ(Failure("1 2"), "Too many or too few fields.");
    EXPECT_EQ(Failure("1 2 3 +"), "Too many or too few fields.");
    EXPECT_EQ(Failure("_"), "Too many or too few fields.");
    EXPECT_EQ(Failure("_ 1"), "Too many or too few fields.");
}

TEST_F(Evaluator, TwentySixIntermediateResultsFit) {
    EXPECT_EQ(Failure(Repeated("1 2 + ", 26)), "Too many or too few fields.");
    EXPECT_EQ(Whole(Repeated("1 2 + ", 25) + Repeated("+ ", 24)), 75);
}

TEST_F(Evaluator, TwentySevenIntermediateResultsDoNotFit) {
    const std::string sums = Repeated("1 2 + ", 27);
    EXPECT_EQ(Failure(sums + Repeated("+ ", 26)), "Ran out of temporary field buffers.");
    EXPECT_EQ(DryFailure(sums), "Ran out of temporary field buffers.");
}

TEST_F(Evaluator, TextsOfAFailedEvaluationAreFreed) {
    Text("A", "ab");
    const std::string joined = Repeated("A A + ", 27);
    EXPECT_EQ(Failure(joined), "Ran out of temporary field buffers.");
    EXPECT_EQ(Failure("A A + A A + 1 +"), "Field type mismatch.");
    EXPECT_EQ(Failure("A A + A A +"), "Too many or too few fields.");
    EXPECT_EQ(Failure("A A + 1 0 /"), "Error: Division by zero.");
}

TEST_F(Evaluator, FieldTextThatCannotBeCopiedIsReported) {
    Text("A", "ab");
    const auto cells = Cells("A");
    FailAllocation(1);
    const Outcome outcome = Evaluate(cells, 1);
    FailAllocation(0);
    EXPECT_NE(outcome.code, CELL_END);
    EXPECT_EQ(boxes.Texts(),
              (std::vector<std::string>{"Memory Allocation Error (OurAlloc)",
                                        "Ran out of memory during expression calculation."}));
    EXPECT_EQ(boxes.LastTitle(), "");
}

TEST_F(Evaluator, AnyFailureIsAPlainBoxWithOneButton) {
    Failure("1 0 /");
    EXPECT_EQ(boxes.Log().front().buttons.size(), 1u);
}

TEST_F(Evaluator, ForgivenessIsWorkedOutAfreshByEveryScan) {
    session->form.ForgiveZero = 1;
    EXPECT_EQ(Failure("1 0 /"), "Error: Division by zero.");
    EXPECT_EQ(session->form.ForgiveZero, 0u);
}

TEST_F(Evaluator, MarkOfAnyOperandBeforeAnOperatorForgives) {
    Number("M", 1)->FieldFlags |= FIELD_BRANCH;
    EXPECT_EQ(Whole("M 5 7 0 / + +"), static_cast<int32_t>(2147483647u + 6u));
    EXPECT_EQ(Failure("7 0 / M +"), "Error: Division by zero.");
}

TEST_F(Evaluator, CellsOfADamagedListReferToNothing) {
    Number("A", 5);
    const uint16_t row = Cells("A")[0];
    const uint16_t strays[] = {0, 499, 500, 549, 700, 725, 999, CELL_CONSUMED, 1003, 65535};
    for (uint16_t stray : strays) {
        EXPECT_EQ(FailureOf({stray, CELL_END}, 1), "Too many or too few fields.") << stray;
        EXPECT_EQ(Evaluate({row, stray, CELL_END}, 1).whole, 5) << stray;
        EXPECT_EQ(FailureOf({row, stray, 503, CELL_END}, 1), "Invalid operator/operand position.")
            << stray;
    }
}

TEST_F(Evaluator, ParenthesesAndCommasOfADamagedListAreRefused) {
    for (uint16_t code : {501, 502, 518}) {
        auto cells = Cells("1 2 +");
        cells[2] = code;
        EXPECT_EQ(FailureOf(cells, 1), "Field type mismatch.") << code;
    }
}

TEST_F(Evaluator, ListWithoutTerminatorEndsWithItsArray) {
    Number("A", 5);
    const uint16_t row = Cells("A")[0];
    EXPECT_EQ(FailureOf(std::vector<uint16_t>(MAX_CELLS, row), 1), "Too many or too few fields.");
}

TEST_F(Evaluator, PictureIsNoOperandOfAnOperator) {
    Number("P", 1)->ValueType = TYPE_PICTURE;
    for (const char *list : {"P P +", "P P =", "P P <", "_ P ABS", "_ P .IF."})
        EXPECT_EQ(Failure(list), "Field type mismatch.") << list;
}

TEST_F(Evaluator, MissingRightOperandOfOneOperatorIsAMismatch) {
    FieldRecord result{};
    Number("A", 5);
    const int row = Cells("A")[0];
    EXPECT_EQ(ApplyOperator(session, row, CELL_NO_OPERAND, 503, &result, 1), 0);
    EXPECT_EQ(boxes.LastText(), "Field type mismatch.");
}

TEST_F(Evaluator, OneOperatorStartsFromADefaultRecordInARun) {
    FieldRecord result{};
    Number("A", 5);
    const int row = Cells("A")[0];
    result.Decimals = 3;
    result.FieldFlags = FIELD_BRANCH;
    EXPECT_EQ(ApplyOperator(session, row, row, 503, &result, 1), 1);
    EXPECT_EQ(+result.LongValue, 10);
    EXPECT_EQ(+result.Decimals, 0);
    EXPECT_EQ(+result.FieldFlags, 0);
    EXPECT_STREQ(result.NegativePrefix, "-");
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Evaluator, LeftGivesItsResultTheWidthThatWasAskedFor) {
    Text("T", "abc");
    const struct {
        const char *count;
        int width;
    } cases[] = {{"2", 2}, {"9", 9}, {"0", 0}, {"-4", 0}, {"2.9", 2}};
    for (const auto &row : cases) {
        const auto cells = Cells(std::string("T ") + row.count + " LEFT");
        FieldRecord result{};
        EXPECT_EQ(ApplyOperator(session, cells[0], cells[1], cells[2], &result, 1), 1);
        EXPECT_EQ(+result.FieldWidth, row.width) << row.count;
        OurFree(result.TextValue);
        result.FieldWidth = 77;
        ApplyOperator(session, cells[0], cells[1], cells[2], &result, 0);
        EXPECT_EQ(+result.FieldWidth, 77) << row.count; // left alone without a run
    }
}

TEST_F(Evaluator, DtosGivesItsResultTheSortableFormat) {
    Date("D", 19971231);
    const auto cells = Cells("_ D DTOS");
    FieldRecord result{};
    ApplyOperator(session, cells[0], cells[1], cells[2], &result, 0);
    EXPECT_EQ(+result.DateFormat, 0);
    EXPECT_EQ(ApplyOperator(session, cells[0], cells[1], cells[2], &result, 1), 1);
    EXPECT_EQ(+result.DateFormat, 8);
    OurFree(result.TextValue);
}

TEST_F(Evaluator, CompiledExpressionsGiveTheirValues) {
    const struct {
        const char *text;
        int type;
        double value;
    } cases[] = {{"1+2", TYPE_NUMERIC, 3},
                 {"1+2.5", TYPE_DOUBLE, 3.5},
                 {"7/2", TYPE_NUMERIC, 3},
                 {"7/2.0", TYPE_DOUBLE, 3.5},
                 {"2+3*4", TYPE_NUMERIC, 14},
                 {"(2+3)*4", TYPE_NUMERIC, 20},
                 {"-3+5", TYPE_NUMERIC, 2},
                 {"2>1.5", TYPE_LOGICAL, 1},
                 {".T.=.T.", TYPE_LOGICAL, 1},
                 {"MAX(1,2.5)", TYPE_DOUBLE, 2.5},
                 {"ROUND(1.25,1)", TYPE_DOUBLE, 1.3},
                 {".IF. 3>1 .THEN. 0 .ELSE. 5", TYPE_NUMERIC, 0},
                 {".IF. 0<>0 .THEN. 7/0 .ELSE. 0", TYPE_NUMERIC, 0},
                 {".IF. 0=0 .THEN. 0 .ELSE. 7/0", TYPE_NUMERIC, 0},
                 {"VAL({1/2/97})", TYPE_NUMERIC, 19970102},
                 {"DAY({12/31/97})", TYPE_NUMERIC, 31}};
    for (const auto &row : cases) {
        uint16_t infix[MAX_CELLS];
        uint16_t postfix[MAX_CELLS];
        int32_t position = 0;
        ASSERT_EQ(GenerateSymbols(session, row.text, infix, &position, 2), 1) << row.text;
        ASSERT_EQ(InfixToPostfix(session, infix, postfix), CELL_END) << row.text;
        FieldRecord result{};
        EXPECT_EQ(EvaluateExpression(session, postfix, &result, 1), CELL_END) << row.text;
        EXPECT_EQ(+result.ValueType, row.type) << row.text;
        EXPECT_DOUBLE_EQ(row.type == TYPE_DOUBLE ? result.DoubleValue : result.LongValue, row.value)
            << row.text;
    }
}
