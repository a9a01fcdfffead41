#include "expr/validate.h"

#include <gtest/gtest.h>

#include <cstring>

#include "expr/symbols.h"
#include "form/field_table.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

int32_t __stdcall CheckField(HWND, FieldRecord *record, int32_t, void *) {
    record->ValueType = record->FieldName[0] == 'T'   ? TYPE_TEXT
                        : record->FieldName[0] == 'D' ? TYPE_DATE
                                                      : TYPE_NUMERIC;
    return 1;
}

class Validate : public testing::Test {
protected:
    Validate() { session->FormBlock.CheckFieldProc = CheckField; }

    const uint16_t *Cells(const std::string &text) {
        int32_t position = 0;
        EXPECT_EQ(GenerateSymbols(session, text.c_str(), cells, &position, 2), 1) << text;
        return cells;
    }
    std::string TextOf(const std::string &text, int size = 600) {
        std::string buffer(static_cast<size_t>(size), '?');
        ExpressionText(session, Cells(text), buffer.data(), size);
        return buffer.c_str();
    }

    BareSession session;
    MessageBoxes boxes;
    uint16_t cells[MAX_CELLS];
};

} // namespace

TEST_F(Validate, TypeOfTheResultIsGivenBack) {
    const std::pair<const char *, int> cases[] = {
        {"A+1", TYPE_NUMERIC},
        {"A*1.5", TYPE_DOUBLE},
        {"T", TYPE_TEXT},
        {"A>1 .AND. T=\"x\"", TYPE_LOGICAL},
        {"D", TYPE_DATE},
        {"LEN(T)", TYPE_NUMERIC},
        {"UPPER(T)", TYPE_TEXT},
        {".IF. A=1 .THEN. T .ELSE. \"no\"", TYPE_TEXT},
        {"CTOD(\"{1/1/97}\")", TYPE_DATE},
    };
    for (const auto &[text, type] : cases)
        for (int mode : {1, 2, 3}) EXPECT_EQ(ValidateExp(session, Cells(text), mode), type) << text;
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Validate, FilterMustBeLogical) {
    EXPECT_EQ(ValidateExp(session, Cells("A=1"), 0), TYPE_LOGICAL);
    EXPECT_EQ(ValidateExp(session, Cells("A+1"), 0), 0);
    ASSERT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(boxes.Log()[0],
              (BoxRecord{"", "This expression must evaluate to a TRUE/FALSE result.", {IDOK}}));
}

TEST_F(Validate, EmptyFilterIsNoError) {
    EXPECT_NE(ValidateExp(session, Cells(""), 0), 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Validate, SignAndMismatchAreChecked) {
    EXPECT_EQ(ValidateExp(session, Cells("-A"), 2), TYPE_NUMERIC);
    EXPECT_EQ(ValidateExp(session, Cells("B*(-A)"), 2), TYPE_NUMERIC);
    EXPECT_EQ(ValidateExp(session, Cells("B*-A"), 2), 0);
    EXPECT_EQ(boxes.LastText(), "Field missing for an operator");
    EXPECT_EQ(ValidateExp(session, Cells("T+A"), 2), 0);
    EXPECT_EQ(boxes.LastText(), "Field type mismatch.");
    EXPECT_EQ(ValidateExp(session, Cells(".NOT. .NOT. A=1"), 2), 0);
    EXPECT_EQ(boxes.LastText(), "Invalid unary operator position.");
}

TEST_F(Validate, TypesThatDoNotFitAreRefused) {
    for (const char *text : {"\"A\"+1", "{1/1/97}+1", ".T.>.F.", ".TOTAL-OF. T", ".COUNT-OF. D",
                             ".IF. A=1 .THEN. .T. .ELSE. .F.", "LEN(A)", "D-D"}) {
        boxes.Clear();
        EXPECT_EQ(ValidateExp(session, Cells(text), 2), 0) << text;
        EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Field type mismatch.", {IDOK}}}))
            << text;
    }
}

TEST_F(Validate, DivisionByZeroIsNoMistakeBeforeARun) {
    EXPECT_EQ(ValidateExp(session, Cells("A/0"), 2), TYPE_NUMERIC);
    EXPECT_EQ(ValidateExp(session, Cells("A/0.0=1"), 0), TYPE_LOGICAL);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Validate, CellsAreLeftAsTheyWere) {
    uint16_t before[MAX_CELLS];
    Cells("LEFT(T,2)");
    memcpy(before, cells, sizeof cells);
    ValidateExp(session, cells, 2);
    EXPECT_EQ(memcmp(before, cells, sizeof cells), 0);
}

TEST_F(Validate, CopySharesWhatIsSharedAndCopiesTheRest) {
    uint16_t copy[MAX_CELLS];
    Cells("A+.TOTAL-OF. B");
    session->form.Fields[cells[3]].Decimals = 4;
    EXPECT_EQ(CopyCreateExp(session, cells, copy), 1);
    EXPECT_EQ(copy[0], cells[0]);
    EXPECT_EQ(copy[1], cells[1]);
    EXPECT_EQ(copy[2], cells[2]);
    EXPECT_NE(copy[3], cells[3]);
    EXPECT_EQ(+copy[4], CELL_END);
    EXPECT_EQ(+session->form.Fields[copy[0]].RefCount, 2);
    EXPECT_STREQ(session->form.Fields[copy[3]].FieldName, "B");
    EXPECT_EQ(+session->form.Fields[copy[3]].Decimals, 4);
    ReleaseSymbols(session, copy);
    EXPECT_EQ(+session->form.Fields[cells[0]].InUse, 1);
    EXPECT_EQ(+session->form.Fields[cells[3]].InUse, 1);
}

TEST_F(Validate, CopyNeedsAFreeRow) {
    uint16_t copy[MAX_CELLS];
    Cells("A+.TOTAL-OF. B");
    while (NewFieldSlot(session) != NO_SLOT) session.AddField(FIELD_DATA, "X", TYPE_NUMERIC);
    EXPECT_EQ(CopyCreateExp(session, cells, copy), 0);
    EXPECT_EQ(boxes.Log(),
              (std::vector<BoxRecord>{{"", "Ran out of field table(CopyCreateExp)!", {IDOK}}}));
    EXPECT_EQ(+copy[3], CELL_END);
}

TEST_F(Validate, TextIsTheListsPiecesWithoutBlanks) {
    EXPECT_EQ(TextOf(" a + .if. A > 1 .then. left( TX , 2 ) .else. \"x y\""),
              "A+.IF.A>1.THEN.LEFT(TX,2).ELSE.\"x y\"");
    EXPECT_EQ(TextOf(""), "");
}

TEST_F(Validate, TextCompilesToTheSameListAgain) {
    const std::string text = TextOf("5 .AND. (.T. .OR. .F.) .AND. 1.5 = .5 + SYS->PAGE - A->B");
    uint16_t before[MAX_CELLS];
    memcpy(before, cells, sizeof cells);
    Cells(text);
    EXPECT_EQ(memcmp(before, cells, sizeof(uint16_t) * 19), 0) << text;
}

TEST_F(Validate, TextStopsBeforeThePieceThatWouldPassTheSize) {
    EXPECT_EQ(TextOf("A+BCD+E", 6), "A+BCD");
    EXPECT_EQ(TextOf("A+BCD+E", 5), "A+");
    const std::string name(99, 'N');
    std::string text = name;
    for (int count = 0; count < 9; ++count) text += "+" + name;
    EXPECT_EQ(TextOf(text).size(), 599u);
    EXPECT_EQ(TextOf(text).back(), 'N');
}
