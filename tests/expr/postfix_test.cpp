#include "expr/postfix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "expr/symbols.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

int32_t __stdcall AcceptNumber(HWND, FieldRecord *record, int32_t, void *) {
    record->ValueType = TYPE_NUMERIC;
    return 1;
}

class Postfix : public testing::Test {
protected:
    Postfix() { session->FormBlock.CheckFieldProc = AcceptNumber; }

    int Convert(const std::vector<int> &infix) {
        uint16_t cells[MAX_CELLS + 1];
        std::copy(infix.begin(), infix.end(), cells);
        cells[infix.size()] = CELL_END;
        return InfixToPostfix(session, cells, postfix);
    }
    int Convert(const std::string &text) {
        uint16_t cells[MAX_CELLS];
        int32_t position = 0;
        EXPECT_EQ(GenerateSymbols(session, text.c_str(), cells, &position, 2), 1) << text;
        return InfixToPostfix(session, cells, postfix);
    }
    // The postfix with names of fields and operators; "_" is the missing operand.
    std::string TextOf(const std::string &text) {
        if (Convert(text) != CELL_END) return "refused: " + boxes.LastText();
        std::string list;
        for (int place = 0; postfix[place] != CELL_END; ++place)
            list += (place ? " " : "") + NameOf(postfix[place]);
        return list;
    }
    std::string NameOf(int cell) {
        if (cell == CELL_NO_OPERAND) return "_";
        if (cell < MAX_FIELDS) return session->form.Fields[cell].FieldName;
        return session->form.OperatorTable[cell - CELL_FIRST_OPERATOR].Text;
    }
    int Length() const {
        return static_cast<int>(std::find(postfix, postfix + MAX_CELLS, uint16_t{CELL_END}) -
                                postfix);
    }

    BareSession session;
    MessageBoxes boxes;
    uint16_t postfix[MAX_CELLS];
};

struct PostfixCase {
    const char *infix;
    const char *postfix;
};

} // namespace

TEST_F(Postfix, EmptyListIsASuccess) {
    EXPECT_EQ(Convert(""), CELL_END);
    EXPECT_EQ(+postfix[0], CELL_END);
}

TEST_F(Postfix, PrecedenceAndParenthesesOrderTheOperators) {
    const PostfixCase cases[] = {
        {"2+3*4", "2 3 4 * +"},
        {"(2+3)*4", "2 3 + 4 *"},
        {"A-B-C", "A B - C -"},
        {"A+B=C*D", "A B + C D * ="},
        {"A=B .AND. C>D .OR. E=F", "A B = C D > .AND. E F = .OR."},
        {"A<>B=C", "A B <> C ="},
        {"A=B<=C", "A B C <= ="},
        {"A+B$C", "A B + C $"},
        {"((A))", "A"},
    };
    for (const PostfixCase &test : cases) EXPECT_EQ(TextOf(test.infix), test.postfix);
}

TEST_F(Postfix, UnaryOperatorsHaveAPlaceholderOnTheirLeft) {
    const PostfixCase cases[] = {
        {"LEN(A)+1", "_ A LEN 1 +"},
        {".NOT. A .AND. B", "_ A .NOT. B .AND."},
        {".TOTAL-OF. A + B", "_ A .TOTAL-OF. B +"},
        {".IF. A .THEN. B .ELSE. C", "_ A .IF. B .THEN. C .ELSE."},
        {".IF. A=1 .THEN. B+1 .ELSE. C", "_ A 1 = .IF. B 1 + .THEN. C .ELSE."},
        {"ABS(-A)", "_ _ A - ABS"},
        {"MONTHTOS(A)", "_ A MONTHTOS"}, // the table's last
    };
    for (const PostfixCase &test : cases) EXPECT_EQ(TextOf(test.infix), test.postfix);
}

TEST_F(Postfix, EqualUnaryOperatorsPopEachOther) {
    EXPECT_EQ(TextOf(".NOT. .NOT. A"), "_ _ .NOT. A .NOT.");
}

TEST_F(Postfix, FunctionsOfTwoArgumentsStandBetweenThem) {
    const PostfixCase cases[] = {
        {"LEFT(A,2)", "A 2 LEFT"},
        {"WORD(A,2)", "A 2 WORD"},
        {"MIN(A,MAX(B,C))", "A B C MAX MIN"},
        {"MIN(MAX(A,B),C)", "A B MAX C MIN"},
        {"ROUND(A,2)*B", "A 2 ROUND B *"},
    };
    for (const PostfixCase &test : cases) EXPECT_EQ(TextOf(test.infix), test.postfix);
}

TEST_F(Postfix, SignIsUnaryOnlyAtTheStartOfAnExpressionOrParenthesis) {
    EXPECT_EQ(TextOf("-A"), "_ A -");
    EXPECT_EQ(TextOf("+A*B"), "_ A B * +");
    EXPECT_EQ(TextOf("B*(-A)"), "B _ A - *");
    EXPECT_EQ(TextOf("B*-A"), "refused: Field missing for an operator");
    EXPECT_EQ(TextOf("MAX(A,-B)"), "refused: Field missing for an operator");
    EXPECT_EQ(TextOf("A--B"), "refused: Field missing for an operator");
}

TEST_F(Postfix, BrokenListsAreRefusedWithTheirReason) {
    const PostfixCase cases[] = {
        {"*", "Field missing for an operator"},
        {"A,B", "Parenthesis mismatch or stack underflow."},
        {"A)", "Parenthesis mismatch or stack underflow."},
        {"LEN(A,2)", "Parenthesis mismatch or stack underflow."},
        {"A)+B", "Parenthesis mismatch or stack underflow."},
        {"LEFT(A)", "Invalid expression."},
        {"(A", "Parenthesis mismatch."},
        {"(A+(B", "Parenthesis mismatch."},
        {"A+", "Field missing for an operator"},
        {"+", "Field missing for an operator"},
        {"A B", "Operator missing for a field"},
        {"1 2 3", "Operator missing for a field"},
    };
    for (const PostfixCase &test : cases) {
        boxes.Clear();
        EXPECT_NE(Convert(test.infix), CELL_END) << test.infix;
        ASSERT_EQ(boxes.Log().size(), 1u) << test.infix;
        EXPECT_EQ(boxes.Log()[0], (BoxRecord{"", test.postfix, {IDOK}})) << test.infix;
    }
}

TEST_F(Postfix, ParenthesesOf99CellsStillFitTheStack) {
    std::vector<int> cells(49, 501);
    cells.push_back(1);
    cells.insert(cells.end(), 49, 502);
    EXPECT_EQ(Convert(cells), CELL_END);
}

TEST_F(Postfix, HundredEntriesFillTheStackAndOneMoreOverflowsIt) {
    // the conversion's own parenthesis is the first entry
    EXPECT_NE(Convert(std::vector<int>(99, 501)), CELL_END);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Parenthesis mismatch."});
    boxes.Clear();
    EXPECT_NE(Convert(std::vector<int>(100, 501)), CELL_END);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"ReportWriter stack overflow."});
}

TEST_F(Postfix, MoreThan100EntriesOverflowTheStack) {
    EXPECT_NE(Convert(std::vector<int>(101, 501)), CELL_END);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "ReportWriter stack overflow.", {IDOK}}}));
}

TEST_F(Postfix, ListOf99CellsWithManyUnaryOperatorsHasALongerPostfix) {
    // ".NOT. A .AND. .NOT. A ..." : each pair of cells with a unary operator grows by one.
    std::vector<int> cells = {503, 1}; // a sign makes the first cell unary
    while (cells.size() < 98) cells.insert(cells.end(), {505, 1});
    EXPECT_EQ(Convert(cells), CELL_END);
    EXPECT_EQ(Length(), 99);
}

TEST_F(Postfix, PostfixOf101CellsIsTheLongestThatAFormsCellsHold) {
    const auto with_unary = [](int count, int size) {
        std::vector<int> cells;
        for (int made = 0; made < count; ++made) cells.insert(cells.end(), {516, 1, 515});
        cells.push_back(1);
        while (static_cast<int>(cells.size()) + 2 <= size) cells.insert(cells.end(), {515, 1});
        return cells;
    };
    EXPECT_EQ(Convert(with_unary(2, 99)), CELL_END);
    EXPECT_EQ(Length(), 101);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_NE(Convert(with_unary(4, 99)), CELL_END);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"ReportWriter stack overflow."});
}

TEST_F(Postfix, ListWithoutATerminatorIsReadOnlyToItsEnd) {
    uint16_t cells[MAX_CELLS];
    std::fill(std::begin(cells), std::end(cells), uint16_t{516});
    EXPECT_NE(InfixToPostfix(session, cells, postfix), CELL_END);
    std::fill(std::begin(cells), std::end(cells), uint16_t{1});
    EXPECT_NE(InfixToPostfix(session, cells, postfix), CELL_END);
    std::fill(std::begin(cells), std::end(cells), uint16_t{60000});
    EXPECT_NE(InfixToPostfix(session, cells, postfix), CELL_END);
}
