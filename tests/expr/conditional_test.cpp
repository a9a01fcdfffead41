#include "tests/support/expressions.h"

#include "frame/memory.h"

using Conditional = Expressions;

TEST_F(Conditional, ChoosesByTheCondition) {
    EXPECT_EQ(Whole("_ .T. .IF. 3 .THEN. 5 .ELSE."), 3);
    EXPECT_EQ(Whole("_ .F. .IF. 3 .THEN. 5 .ELSE."), 5);
    EXPECT_EQ(Real("_ .T. .IF. 3.5 .THEN. 5.5 .ELSE."), 3.5);
    EXPECT_EQ(Real("_ .F. .IF. 3.5 .THEN. 5.5 .ELSE."), 5.5);
    EXPECT_EQ(TextOf("_ .T. .IF. 'a' .THEN. 'b' .ELSE."), "a");
    EXPECT_EQ(TextOf("_ .F. .IF. 'a' .THEN. 'b' .ELSE."), "b");
}

TEST_F(Conditional, ChoosesBetweenDates) {
    EXPECT_EQ(Whole("_ .T. .IF. {19970101} .THEN. {19971231} .ELSE.", TYPE_DATE), 19970101);
    EXPECT_EQ(Whole("_ .F. .IF. {19970101} .THEN. {19971231} .ELSE.", TYPE_DATE), 19971231);
}

TEST_F(Conditional, TakenBranchOfValueZeroIsTaken) {
    Number("A", 2);
    EXPECT_EQ(Whole("_ A 1 > .IF. 0 .THEN. 5 .ELSE."), 0);
    EXPECT_EQ(Real("_ .T. .IF. 0.0 .THEN. 5.0 .ELSE."), 0.0);
    Text("E", "");
    EXPECT_EQ(TextOf("_ .T. .IF. E .THEN. 'b' .ELSE."), "");
}

TEST_F(Conditional, ThenWithoutElseGivesZeroOrEmptyTextWhenFalse) {
    EXPECT_EQ(Whole("_ .F. .IF. 3 .THEN."), 0);
    EXPECT_EQ(Real("_ .F. .IF. 3.5 .THEN."), 0.0);
    EXPECT_EQ(TextOf("_ .F. .IF. 'a' .THEN."), "");
    EXPECT_EQ(Whole("_ .F. .IF. {19970101} .THEN.", TYPE_DATE), 0);
    EXPECT_EQ(Whole("_ .T. .IF. 3 .THEN."), 3);
    EXPECT_EQ(TextOf("_ .T. .IF. 'a' .THEN."), "a");
}

TEST_F(Conditional, TakenBranchMarksTheSideThatItsTypeDoesNotUse) {
    EXPECT_EQ(Run("_ .T. .IF. 3 .THEN.").real, 1.0);
    EXPECT_EQ(Run("_ .T. .IF. 3.5 .THEN.").whole, 1);
    const Outcome text = Run("_ .T. .IF. 'a' .THEN.");
    EXPECT_EQ(text.whole, 1);
    EXPECT_EQ(text.real, 1.0);
    EXPECT_EQ(Run("_ .F. .IF. 3 .THEN.").real, 0.0);
}

TEST_F(Conditional, DivisionByZeroBehindAFalseConditionIsForgiven) {
    Number("A", 7);
    Number("B", 0);
    EXPECT_EQ(Whole("_ B 0 <> .IF. A B / .THEN. 0 .ELSE."), 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Conditional, DivisionByZeroBehindATakenBranchIsForgiven) {
    Number("A", 7);
    Number("B", 0);
    EXPECT_EQ(Whole("_ B 0 = .IF. 0 .THEN. A B / .ELSE."), 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Conditional, DivisionByZeroInTheChosenBranchFails) {
    Number("A", 7);
    Number("B", 0);
    EXPECT_EQ(Failure("_ .T. .IF. A B / .THEN. 0 .ELSE."), "Error: Division by zero.");
    EXPECT_EQ(Failure("_ .F. .IF. 0 .THEN. A B / .ELSE."), "Error: Division by zero.");
    EXPECT_EQ(Failure("_ A B / 1 > .IF. 0 .THEN. 1 .ELSE."), "Error: Division by zero.");
}

TEST_F(Conditional, ForgivenDivisionGivesTheLargestWholeNumber) {
    Number("A", 7);
    // The mark of the condition stands to the left of every later operand.
    Field("A")->FieldFlags |= FIELD_BRANCH;
    EXPECT_EQ(Whole("A 0 /"), 2147483647);
    EXPECT_EQ(Real("A 0.0 /"), 2147483647.0);
}

TEST_F(Conditional, OnlyADivisionByZeroIsForgiven) {
    EXPECT_EQ(Failure("_ .F. .IF. 'a' 1 + .THEN. 0 .ELSE."), "Field type mismatch.");
}

TEST_F(Conditional, NestedConditionsForgiveTheirOwnBranchesAlone) {
    Number("A", 7);
    Number("Z", 0);
    // outer then-branch taken, inner condition true: the outer else-branch is forgiven
    EXPECT_EQ(Whole("_ .T. .IF. _ .T. .IF. 1 .THEN. 2 .ELSE. .THEN. A Z / .ELSE."), 1);
    // inner condition inside a branch not taken
    EXPECT_EQ(Whole("_ .F. .IF. _ .T. .IF. A Z / .THEN. 2 .ELSE. .THEN. 3 .ELSE."), 3);
    EXPECT_EQ(Whole("_ .F. .IF. 1 .THEN. _ .F. .IF. A Z / .THEN. 4 .ELSE. .ELSE."), 4);
    // behind a whole conditional nothing is forgiven any more
    EXPECT_EQ(Failure("_ .T. .IF. 1 .THEN. 2 .ELSE. A Z / +"), "Error: Division by zero.");
    EXPECT_EQ(Failure("_ .F. .IF. 1 .THEN. 2 .ELSE. A Z / +"), "Error: Division by zero.");
}

TEST_F(Conditional, ConditionMustBeLogical) {
    for (const char *list :
         {"_ 1 .IF. 2 .THEN.", "_ 'a' .IF. 2 .THEN.", "_ {19970101} .IF. 1 .THEN."})
        EXPECT_EQ(Failure(list), "Field type mismatch.") << list;
}

TEST_F(Conditional, LogicalValueAfterThenIsAMismatch) {
    for (const char *condition : {".T.", ".F."}) {
        const std::string list = std::string("_ ") + condition + " .IF. .T. .THEN.";
        EXPECT_EQ(Failure(list), "Field type mismatch.") << list;
        EXPECT_EQ(DryFailure(list), "Field type mismatch.") << list;
    }
}

TEST_F(Conditional, BranchesOfDifferentTypesFailInTheDryRunAlone) {
    EXPECT_EQ(DryFailure("_ .T. .IF. 1 .THEN. 'a' .ELSE."), "Field type mismatch.");
    EXPECT_EQ(DryFailure("_ .T. .IF. 1 .THEN. 2.5 .ELSE."), "Field type mismatch.");
    EXPECT_EQ(DryRun("_ .T. .IF. 1 .THEN. 2 .ELSE.").type, TYPE_NUMERIC);
    EXPECT_EQ(Whole("_ .T. .IF. 1 .THEN. 'a' .ELSE."), 1);
    EXPECT_EQ(TextOf("_ .F. .IF. 1 .THEN. 'a' .ELSE."), "a");
}

TEST_F(Conditional, DryRunMakesNoTexts) {
    const Outcome outcome = DryRun("_ .F. .IF. 'a' .THEN. 'b' .ELSE.");
    EXPECT_EQ(outcome.type, TYPE_TEXT);
    EXPECT_FALSE(outcome.has_text);
}

TEST_F(Conditional, NullBranchGivesANullText) {
    NullText("N");
    EXPECT_FALSE(Run("_ .T. .IF. N .THEN. 'b' .ELSE.").has_text);
    EXPECT_FALSE(Run("_ .F. .IF. 'a' .THEN. N .ELSE.").has_text);
}

TEST_F(Conditional, MissingMemoryFailsWithoutALeak) {
    const auto cells = Cells("_ .T. .IF. 'a' .THEN. 'b' .ELSE.");
    const auto untaken = Cells("_ .F. .IF. 'a' .THEN. 'b' .ELSE.");
    for (const auto *list : {&cells, &untaken})
        for (int allocation : {1, 2}) {
            tessarine::FailAllocation(allocation);
            const Outcome outcome = Evaluate(*list, 1);
            tessarine::FailAllocation(0);
            EXPECT_NE(outcome.code, CELL_END);
            EXPECT_EQ(boxes.LastText(), "Ran out of memory for string calculation.");
        }
}
