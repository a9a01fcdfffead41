#include "host/design/columns.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <functional>
#include <limits>

#include "host/base/failure.h"
#include "host/data/values.h"

namespace {

constexpr int HEADROOM = 2; // digits that a total needs beyond its numbers
constexpr int MOST_WIDTH = 32000;
constexpr int EMPTY_WIDTH = 15;
constexpr int DATE_WIDTH = 8;

using Cells = std::vector<std::string>;

bool IsDigits(const std::string &text) {
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](unsigned char c) { return std::isdigit(c) != 0; });
}

// Digits with at most one point; a leading zero stands only alone or ahead of the point.
bool IsNumber(const std::string &cell) {
    const std::string text = cell.substr(cell[0] == '-');
    const size_t point = text.find('.');
    const std::string whole = text.substr(0, point);
    if (!IsDigits(whole) || (whole.size() > 1 && whole[0] == '0')) return false;
    return point == std::string::npos || IsDigits(text.substr(point + 1));
}

bool IsWord(const std::string &cell) {
    constexpr const char *words[] = {"true", "false", "yes", "no", "y", "n", "t", "f"};
    return std::any_of(std::begin(words), std::end(words),
                       [&](const char *word) { return !lstrcmpiA(word, cell.c_str()); });
}

bool Converts(const std::string &cell, const FieldRecord &field) {
    try {
        ConvertValue(cell, field);
        return true;
    } catch (const Failure &) {
        return false;
    }
}

bool IsDate(const std::string &cell) {
    FieldRecord date{};
    date.ValueType = TYPE_DATE;
    return cell.find_first_of("-/") != std::string::npos && cell[0] != '-' && Converts(cell, date);
}

int Decimals(const Cells &cells) {
    size_t most = 0;
    for (const std::string &cell : cells) {
        const size_t point = cell.find('.');
        if (point != std::string::npos) most = std::max(most, cell.size() - point - 1);
    }
    return static_cast<int>(most);
}

int Longest(const Cells &cells) {
    size_t longest = 1;
    for (const std::string &cell : cells) longest = std::max(longest, cell.size());
    return static_cast<int>(std::min<size_t>(longest, MOST_WIDTH));
}

void SetType(FieldRecord *field, int type, int width) {
    field->ValueType = static_cast<int16_t>(type);
    field->FieldWidth = static_cast<int16_t>(width);
}

// Whole numbers in units of their last decimal where they fit, so that totals are exact.
void SetNumber(FieldRecord *field, const Cells &cells) {
    field->Decimals = static_cast<int16_t>(std::min(Decimals(cells), EMPTY_WIDTH));
    SetType(field, TYPE_NUMERIC, std::min(Longest(cells) + HEADROOM, MOST_WIDTH));
    const bool fit = std::all_of(cells.begin(), cells.end(),
                                 [&](const std::string &cell) { return Converts(cell, *field); });
    if (!fit) field->ValueType = TYPE_DOUBLE;
}

FieldRecord FieldOf(const std::string &name, const Cells &cells) {
    FieldRecord field{};
    const size_t length = std::min(name.size(), sizeof field.FieldName - 1);
    std::memcpy(field.FieldName, name.data(), length);
    CharUpperA(field.FieldName);
    const auto all = [&](bool (*is)(const std::string &)) {
        return !cells.empty() && std::all_of(cells.begin(), cells.end(), is);
    };
    if (all(IsNumber))
        SetNumber(&field, cells);
    else if (all(IsDate))
        SetType(&field, TYPE_DATE, DATE_WIDTH);
    else if (all(IsWord))
        SetType(&field, TYPE_LOGICAL, 1);
    else
        SetType(&field, TYPE_TEXT, cells.empty() ? EMPTY_WIDTH : Longest(cells));
    return field;
}

} // namespace

std::vector<FieldRecord> FieldsOf(const CsvTable &table) {
    std::vector<FieldRecord> fields;
    for (size_t column = 0; column < table.names.size(); ++column) {
        Cells cells;
        for (const CsvRow &row : table.rows)
            if (!row.cells[column].empty()) cells.push_back(row.cells[column]);
        fields.push_back(FieldOf(table.names[column], cells));
        fields.back().HostField = static_cast<int16_t>(column);
    }
    return fields;
}

std::string TypeText(const FieldRecord &field) {
    constexpr const char *names[] = {"",          "number", "number", "text",
                                     "yes or no", "date",   "picture"};
    std::string text = names[field.ValueType];
    if (field.ValueType == TYPE_NUMERIC && field.Decimals)
        text += " with " + std::to_string(field.Decimals) +
                (field.Decimals == 1 ? " decimal" : " decimals");
    if (field.ValueType == TYPE_TEXT)
        text += " of " + std::to_string(field.FieldWidth) + " characters";
    return text;
}
