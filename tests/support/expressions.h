// Expressions for tests, written in postfix with names and literals.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

struct Outcome {
    int code; // 1002 for success
    int type;
    int32_t whole;
    double real;
    std::string text;
    bool has_text;
};

// A list is written with blanks between its cells: a field's name, an operator's text, "_" for a
// missing left operand, or a literal: 12, 2.5, 'text' without blanks, .T., .F., {19971231}.
class Expressions : public testing::Test {
protected:
    FieldRecord *Number(const std::string &name, int32_t value);
    FieldRecord *Double(const std::string &name, double value);
    FieldRecord *Text(const std::string &name, const std::string &value);
    FieldRecord *NullText(const std::string &name);
    FieldRecord *Logical(const std::string &name, bool value);
    FieldRecord *Date(const std::string &name, int32_t value);
    FieldRecord *Field(const std::string &name); // of a name that was given above

    std::vector<uint16_t> Cells(const std::string &list);
    // Evaluates, and expects that no block is left behind.
    Outcome Run(const std::string &list) { return Evaluate(Cells(list), 1); }
    Outcome DryRun(const std::string &list) { return Evaluate(Cells(list), 0); }
    Outcome Evaluate(const std::vector<uint16_t> &cells, int run);

    // The value of a run that must succeed with that type.
    int32_t Whole(const std::string &list, int type = TYPE_NUMERIC);
    double Real(const std::string &list);
    std::string TextOf(const std::string &list);
    bool Holds(const std::string &list);

    // The text of the only box of a run that must fail.
    std::string Failure(const std::string &list) { return FailureOf(Cells(list), 1); }
    std::string DryFailure(const std::string &list) { return FailureOf(Cells(list), 0); }
    std::string FailureOf(const std::vector<uint16_t> &cells, int run);

    BareSession session;
    MessageBoxes boxes;

private:
    FieldRecord *Add(const std::string &name, int type);
    uint16_t Cell(const std::string &word);
    bool AddLiteral(const std::string &word);

    std::map<std::string, int> rows_;
};
