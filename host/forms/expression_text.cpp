#include "host/forms/expression_text.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <span>

#include "host/data/csv_source.h"
#include "operators.h"

namespace {

constexpr size_t MOST_CELLS = 99;

// By code, from 501 on.
constexpr const char *operators[] = {
    "(",      ")",      "+",          "-",        "*",        "/",        "=",          "<>",
    ".",      ">",      "<",          ">=",       "<=",       ".OR.",     ".AND.",      ".NOT.",
    "$",      ",",      ".TOTAL-OF.", ".AVE-OF.", ".MAX-OF.", ".MIN-OF.", ".COUNT-OF.", ".IF.",
    ".THEN.", ".ELSE.", "LEN",        "UPPER",    "LOWER",    "TRIM",     "WORD",       "CHAR",
    "MIN",    "MAX",    "VAL",        "ROUND",    "ABS",      "WEEKDAY",  "DAY",        "MONTH",
    "YEAR",   "LEFT",   "RIGHT",      "STR",      "DTOC",     "DTOS",     "CTOD",       "MONTHTOS",
};
static_assert(std::size(operators) == CELL_LAST_OPERATOR - CELL_FIRST_OPERATOR + 1);

constexpr const char *NAME_STOPS = "()*/+#<=\"' .$,";

struct SystemField {
    const char *name;
    int16_t type;
};
constexpr SystemField system_fields[] = {
    {"PAGE", TYPE_NUMERIC},      {"DATE", TYPE_DATE},       {"TIME", TYPE_TEXT},
    {"REC_COUNT", TYPE_NUMERIC}, {"PARA_BREAK", TYPE_TEXT}, {"REPORT_NAME", TYPE_TEXT},
};

bool IsSummary(int cell) { return cell >= OP_TOTAL && cell <= OP_COUNT; }
bool IsDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)); }

std::string Upper(std::string text) {
    for (char &c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

template <size_t Size> void Put(char (&field)[Size], const std::string &text) {
    const size_t length = std::min(text.size(), Size - 1);
    std::memcpy(field, text.data(), length);
    field[length] = 0;
}

// ---- dates -------------------------------------------------------------------------------------

// The date of a literal that has the shape of one, 0 of any other: month and day in the form's
// order, then the year.
int32_t DateOf(const FormImage &form, const std::string &literal) {
    if (literal.size() < 8 || literal.size() > 12) return 0;
    int first = 0;
    int second = 0;
    int year = 0;
    int used = 0;
    char a = 0;
    char b = 0;
    const std::string inner = literal.substr(1, literal.size() - 2);
    const int found =
        std::sscanf(inner.c_str(), "%2d%c%2d%c%4d%n", &first, &a, &second, &b, &year, &used);
    if (found != 5 || used != static_cast<int>(inner.size()) || a != b || !std::strchr("-/,", a))
        return 0;
    if (form.header.DateEntryFormat) std::swap(first, second);
    if (first < 1 || first > 12 || second < 1 || second > 31) return 0;
    return (year <= 99 ? year + 1900 : year) * 10000 + first * 100 + second;
}

// ---- tokens ------------------------------------------------------------------------------------

// Gives the row of a field that isn't there yet.
using NewRow = int (*)(FormImage *form, const FieldRecord &field, const JsonPlace &place);

class Compiler {
public:
    Compiler(FormImage *form, const JsonPlace &place, NewRow new_row)
        : form_(form), place_(place), new_row_(new_row), text_(place.CodePageText()) {}

    Cells Compile() {
        Cells cells{};
        size_t count = 0;
        for (Blanks(); at_ < text_.size(); Blanks()) {
            if (count == MOST_CELLS)
                place_.Fail("the expression is too long: 99 names, operators and functions fit");
            cells[count] = static_cast<uint16_t>(Cell(count ? cells[count - 1] : 0));
            ++count;
        }
        cells[count] = CELL_END;
        return cells;
    }

private:
    void Blanks() { at_ = std::min(text_.find_first_not_of(' ', at_), text_.size()); }
    char Next(size_t ahead = 0) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
    }

    int Cell(int before) {
        const char c = Next();
        if (c == '"' || c == '{') return Literal(c == '"' ? '"' : '}', before);
        if (IsDigit(c) || (c == '.' && IsDigit(Next(1)))) return Number(before);
        if (c == '.') return DotWord(before);
        if (const int code = LongestOperator()) return code;
        if (c == '#') return NumberedRow();
        return Name(before);
    }

    int Literal(char closing, int before) {
        const size_t end = text_.find(closing, at_ + 1);
        if (end == std::string::npos)
            place_.Fail(std::string("a ") + closing + " is missing in the expression");
        const std::string literal = text_.substr(at_, end + 1 - at_);
        if (literal.size() > 101) place_.Fail("a literal has at most 99 characters");
        at_ = end + 1;
        FieldRecord field = Constant(literal, TYPE_TEXT);
        field.LongValue = DateOf(*form_, literal);
        if (field.LongValue)
            field.ValueType = TYPE_DATE;
        else
            field.FieldWidth = static_cast<int16_t>(literal.size() + 1);
        return Operand(field, before);
    }

    int Number(int before) {
        const size_t start = at_;
        while (IsDigit(Next())) ++at_;
        if (Next() == '-' && Next(1) == '>') {
            at_ = start;
            return Name(before);
        }
        const bool decimal = Next() == '.' && IsDigit(Next(1));
        if (decimal) ++at_;
        while (decimal && IsDigit(Next())) ++at_;
        const std::string digits = text_.substr(start, at_ - start);
        if (digits.size() > 100 || (!decimal && std::strtod(digits.c_str(), nullptr) > INT32_MAX))
            place_.Fail(digits + " is too large; write a point and a zero behind it");
        FieldRecord field = Constant(digits, decimal ? TYPE_DOUBLE : TYPE_NUMERIC);
        if (decimal)
            field.DoubleValue = std::strtod(digits.c_str(), nullptr);
        else
            field.LongValue = static_cast<int32_t>(std::strtol(digits.c_str(), nullptr, 10));
        return Operand(field, before);
    }

    int DotWord(int before) {
        const size_t end = text_.find('.', at_ + 1);
        if (end == std::string::npos) place_.Fail("a point is missing behind a dot operator");
        const std::string word = Upper(text_.substr(at_, end + 1 - at_));
        at_ = end + 1;
        if (word == ".T." || word == ".F.") {
            FieldRecord field = Constant(word, TYPE_LOGICAL);
            field.LongValue = word == ".T.";
            return Operand(field, before);
        }
        return CodeOf(word, "is no dot operator");
    }

    int CodeOf(const std::string &word, const char *refusal) const {
        for (size_t index = 0; index < std::size(operators); ++index)
            if (word == operators[index]) return CELL_FIRST_OPERATOR + static_cast<int>(index);
        place_.Fail("\"" + word + "\" " + refusal);
    }

    int LongestOperator() {
        size_t longest = 0;
        int code = 0;
        for (size_t index = 0; index < 26; ++index) {
            const size_t length = std::strlen(operators[index]);
            if (length > longest && !text_.compare(at_, length, operators[index])) {
                longest = length;
                code = CELL_FIRST_OPERATOR + static_cast<int>(index);
            }
        }
        at_ += longest;
        return code;
    }

    bool NameStops(size_t start) const {
        const char c = Next();
        if (!c || std::strchr(NAME_STOPS, c)) return true;
        if (c == '-') return Next(1) != '>';
        return c == '>' && (at_ == start || text_[at_ - 1] != '-');
    }

    int Name(int before) {
        const size_t start = at_++;
        while (!NameStops(start)) ++at_;
        const std::string name = text_.substr(start, at_ - start);
        if (Next() == '(') return CodeOf(Upper(name), "is no function");
        if (const int row = NamedRow(*form_, name)) return row;
        return NamedOperand(Upper(name), before);
    }

    int NumberedRow() {
        const size_t start = at_++;
        while (IsDigit(Next())) ++at_;
        const std::string text = text_.substr(start, at_ - start);
        const int row = NamedRow(*form_, text);
        if (!row) place_.Fail("the form has no field in row " + text);
        return row;
    }

    int NamedOperand(const std::string &name, int before) {
        if (name.size() >= sizeof FieldRecord::FieldName) place_.Fail("a name is too long");
        FieldRecord field = DefaultField();
        Put(field.FieldName, name);
        if (!name.compare(0, 5, "SYS->"))
            MakeSystem(name.substr(5), &field);
        else if (!name.compare(0, 5, "DLG->"))
            MakeUser(name.substr(5), &field);
        else
            MakeData(name, &field);
        return Operand(field, before);
    }

    void MakeSystem(const std::string &name, FieldRecord *field) const {
        for (size_t row = 0; row < std::size(system_fields); ++row) {
            if (name != system_fields[row].name) continue;
            field->FieldKind = FIELD_SYSTEM;
            field->ValueType = system_fields[row].type;
            field->TableIndex = static_cast<int16_t>(row);
            if (row == SYSTEM_REC_COUNT) field->SummaryType = SUMMARY_COUNT;
            return;
        }
        place_.Fail("there is no system field " + name);
    }

    void MakeUser(const std::string &name, FieldRecord *field) const {
        for (int row = 0; row < MAX_USER_FIELDS; ++row) {
            if (!form_->users[row].InUse || name != form_->users[row].UserName) continue;
            field->FieldKind = FIELD_USER;
            field->ValueType = form_->users[row].ValueType;
            field->TableIndex = static_cast<int16_t>(row);
            return;
        }
        place_.Fail("the form has no user field " + name);
    }

    void MakeData(const std::string &name, FieldRecord *field) const {
        for (const FieldRecord &known : form_->fields) {
            if (known.FieldKind != FIELD_DATA || !known.InUse ||
                lstrcmpiA(name.c_str(), known.FieldName))
                continue;
            if (known.ValueType == TYPE_PICTURE) place_.Fail(name + " is a picture");
            std::memcpy(field->FieldName, known.FieldName, sizeof field->FieldName);
            field->ValueType = known.ValueType;
            field->FieldWidth = known.FieldWidth;
            field->Decimals = known.Decimals;
            return;
        }
        place_.Fail("the form has no field " + name + "; add it to \"fields\"");
    }

    static FieldRecord Constant(const std::string &literal, int type) {
        FieldRecord field = DefaultField();
        field.FieldKind = FIELD_CONSTANT;
        field.ValueType = static_cast<int16_t>(type);
        Put(field.FieldName, literal);
        return field;
    }

    // An operand of a summary has a row of its own, in which the summary accumulates; all others
    // are shared.
    int Operand(FieldRecord field, int before) {
        if (!IsSummary(before)) {
            field.FieldFlags |= FIELD_SHARED;
            for (size_t row = 1; row < form_->fields.size(); ++row)
                if (Same(form_->fields[row], field)) return static_cast<int>(row);
        }
        return new_row_(form_, field, place_);
    }

    static bool Same(const FieldRecord &row, const FieldRecord &field) {
        return row.InUse && (row.FieldFlags & FIELD_SHARED) && row.FieldKind == field.FieldKind &&
               row.ValueType == field.ValueType && !std::strcmp(row.FieldName, field.FieldName);
    }

    FormImage *form_;
    const JsonPlace &place_;
    NewRow new_row_;
    std::string text_;
    size_t at_ = 0;
};

[[noreturn]] int RefuseRow(FormImage *, const FieldRecord &, const JsonPlace &) {
    throw JsonMistake{"", "a row is missing"};
}

// Whether a text means these cells, without a new row.
bool Means(const FormImage &form, const std::string &text, std::span<const uint16_t> cells) {
    const Json value = ToUtf8(text);
    AskedMembers asked;
    const JsonPlace place(value, "", &asked);
    try {
        // nothing is appended, so the form stays as it is
        const Cells found = Compiler(const_cast<FormImage *>(&form), place, RefuseRow).Compile();
        return std::equal(cells.begin(), cells.end(), found.begin()) &&
               found[cells.size()] == CELL_END;
    } catch (const JsonMistake &) {
        return false;
    }
}

std::string OperandText(const FormImage &form, uint16_t cell) {
    const size_t row = cell;
    const std::string name = form.fields[row].FieldName;
    const std::string marked = name + "@" + std::to_string(row);
    if (Means(form, name, {&cell, 1}) && form.fields[row].FieldFlags & FIELD_SHARED) return name;
    return Means(form, marked, {&cell, 1}) ? marked : "#" + std::to_string(row);
}

std::string OperatorText(int cell, bool first) {
    const std::string word = operators[cell - CELL_FIRST_OPERATOR];
    const bool spaced = word.size() > 1 && word.front() == '.';
    return spaced ? (first ? "" : " ") + word + " " : word;
}

} // namespace

FieldRecord DefaultField() {
    FieldRecord field{};
    field.HostTable = field.HostField = -1;
    field.ValueType = TYPE_TEXT;
    field.FieldWidth = 15;
    field.Modifiable = field.InUse = 1;
    field.TableIndex = -1;
    Put(field.DateDelimiter, "/");
    Put(field.ThousandsChar, ",");
    Put(field.DecimalChar, ".");
    Put(field.TrueText, "Y");
    Put(field.FalseText, "N");
    Put(field.NegativePrefix, "-");
    Put(field.ZeroText, "0");
    field.FieldTokens[0] = CELL_END;
    Put(field.LineBreakChar, "\r");
    return field;
}

int AppendField(FormImage *form, const FieldRecord &field, const JsonPlace &place) {
    while (form->fields.empty() || form->fields.size() == 32) {
        FieldRecord free_row = DefaultField();
        free_row.FieldKind = FIELD_FREE;
        free_row.InUse = 0;
        form->fields.push_back(free_row);
    }
    if (form->fields.size() >= MAX_FIELDS) place.Fail("the form has more than 498 fields");
    form->fields.push_back(field);
    return static_cast<int>(form->fields.size()) - 1;
}

std::string ExpressionOf(const FormImage &form, const Cells &cells) {
    std::string text;
    std::string spaced;
    size_t count = 0;
    for (; count < MAX_CELLS && cells[count] != CELL_END; ++count) {
        const uint16_t cell = cells[count];
        const std::string part = cell >= CELL_FIRST_OPERATOR && cell <= CELL_LAST_OPERATOR
                                     ? OperatorText(cell, count == 0)
                                 : cell < form.fields.size() ? OperandText(form, cell)
                                                             : "";
        text += part;
        spaced += (count ? " " : "") + part;
    }
    while (!text.empty() && text.back() == ' ') text.pop_back();
    return ToUtf8(Means(form, text, {cells.data(), count}) ? text : spaced);
}

int NamedRow(const FormImage &form, const std::string &text) {
    const size_t mark = text.find_last_of("@#");
    if (mark == std::string::npos || (text[mark] == '#' && mark > 0)) return 0;
    const std::string digits = text.substr(mark + 1);
    if (digits.empty() || digits.size() > 3 ||
        digits.find_first_not_of("0123456789") != digits.npos)
        return 0;
    const auto row = static_cast<size_t>(std::stoi(digits));
    if (row < 1 || row >= form.fields.size()) return 0;
    const bool named = text[mark] == '#' || text.substr(0, mark) == form.fields[row].FieldName;
    return named ? static_cast<int>(row) : 0;
}

Cells CompileExpression(FormImage *form, const JsonPlace &place) {
    return Compiler(form, place, AppendField).Compile();
}
