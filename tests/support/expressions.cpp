#include "tests/support/expressions.h"

#include <sstream>

#include "expr/evaluator.h"
#include "frame/memory.h"
#include "frame/text.h"

using namespace tessarine;

FieldRecord *Expressions::Add(const std::string &name, int type) {
    rows_[name] = session.AddField(FIELD_DATA, name, type);
    return Field(name);
}

FieldRecord *Expressions::Field(const std::string &name) {
    return &session->form.Fields[rows_.at(name)];
}

FieldRecord *Expressions::Number(const std::string &name, int32_t value) {
    FieldRecord *field = Add(name, TYPE_NUMERIC);
    field->LongValue = value;
    return field;
}

FieldRecord *Expressions::Double(const std::string &name, double value) {
    FieldRecord *field = Add(name, TYPE_DOUBLE);
    field->DoubleValue = value;
    return field;
}

FieldRecord *Expressions::Text(const std::string &name, const std::string &value) {
    FieldRecord *field = NullText(name);
    field->TextValue = static_cast<char *>(OurAlloc(value.size() + 2));
    CopyText(value.c_str(), field->TextValue, value.size() + 1);
    return field;
}

FieldRecord *Expressions::NullText(const std::string &name) {
    FieldRecord *field = Add(name, TYPE_TEXT);
    OurFree(field->TextValue);
    field->TextValue = nullptr;
    return field;
}

FieldRecord *Expressions::Logical(const std::string &name, bool value) {
    FieldRecord *field = Add(name, TYPE_LOGICAL);
    field->LongValue = value;
    return field;
}

FieldRecord *Expressions::Date(const std::string &name, int32_t value) {
    FieldRecord *field = Add(name, TYPE_DATE);
    field->LongValue = value;
    return field;
}

bool Expressions::AddLiteral(const std::string &word) {
    const char first = word.front();
    const bool number =
        isdigit(static_cast<unsigned char>(first)) || (first == '-' && word.size() > 1);
    if (first == '\'')
        Text(word, word.substr(1, word.size() - 2));
    else if (first == '{')
        Date(word, std::stoi(word.substr(1)));
    else if (word == ".T." || word == ".F.")
        Logical(word, word == ".T.");
    else if (number && word.find('.') != std::string::npos)
        Double(word, std::stod(word));
    else if (number)
        Number(word, static_cast<int32_t>(std::stoll(word)));
    else
        return false;
    return true;
}

uint16_t Expressions::Cell(const std::string &word) {
    if (word == "_") return CELL_NO_OPERAND;
    if (!rows_.count(word)) {
        for (int row = 0; row < OPERATOR_ROWS; ++row)
            if (word == session->form.OperatorTable[row].Text)
                return static_cast<uint16_t>(CELL_FIRST_OPERATOR + row);
        if (!AddLiteral(word)) ADD_FAILURE() << "unknown word " << word;
    }
    return static_cast<uint16_t>(rows_.at(word));
}

std::vector<uint16_t> Expressions::Cells(const std::string &list) {
    std::vector<uint16_t> cells;
    std::istringstream words(list);
    for (std::string word; words >> word;) cells.push_back(Cell(word));
    cells.push_back(CELL_END);
    return cells;
}

Outcome Expressions::Evaluate(const std::vector<uint16_t> &cells, int run) {
    const int blocks = LiveBlocks();
    FieldRecord result{};
    Outcome outcome{};
    outcome.code = EvaluateExpression(session, cells.data(), &result, run);
    outcome.type = result.ValueType;
    outcome.whole = result.LongValue;
    outcome.real = result.DoubleValue;
    outcome.has_text = result.TextValue != nullptr;
    if (result.TextValue) outcome.text = result.TextValue;
    OurFree(result.TextValue);
    EXPECT_EQ(LiveBlocks(), blocks);
    return outcome;
}

int32_t Expressions::Whole(const std::string &list, int type) {
    const Outcome outcome = Run(list);
    EXPECT_EQ(outcome.code, CELL_END) << boxes.LastText();
    EXPECT_EQ(outcome.type, type);
    return outcome.whole;
}

double Expressions::Real(const std::string &list) {
    const Outcome outcome = Run(list);
    EXPECT_EQ(outcome.code, CELL_END) << boxes.LastText();
    EXPECT_EQ(outcome.type, TYPE_DOUBLE);
    return outcome.real;
}

std::string Expressions::TextOf(const std::string &list) {
    const Outcome outcome = Run(list);
    EXPECT_EQ(outcome.code, CELL_END) << boxes.LastText();
    EXPECT_EQ(outcome.type, TYPE_TEXT);
    EXPECT_TRUE(outcome.has_text);
    return outcome.text;
}

bool Expressions::Holds(const std::string &list) { return Whole(list, TYPE_LOGICAL) != 0; }

std::string Expressions::FailureOf(const std::vector<uint16_t> &cells, int run) {
    boxes.Clear();
    EXPECT_NE(Evaluate(cells, run).code, CELL_END);
    EXPECT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(boxes.LastTitle(), "");
    return boxes.LastText();
}
