#include "host/data/values.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <numeric>

#include "host/base/failure.h"

namespace {

std::string Trimmed(const std::string &text) {
    const size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

double ParseNumber(const std::string &text) {
    char *end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    if (*end || !std::isfinite(number))
        throw Failure("\"" + text + "\" is no number; write digits with a point, as in 1234.5");
    return number;
}

Value ConvertWhole(const std::string &text, const FieldRecord &field) {
    Value value;
    if (text.empty()) return value;
    const double scaled = std::round(ParseNumber(text) * std::pow(10.0, field.Decimals));
    if (scaled < INT32_MIN || scaled > INT32_MAX)
        throw Failure("\"" + text + "\" doesn't fit a whole-number field with " +
                      std::to_string(field.Decimals) + " decimals; use a double field");
    value.whole = static_cast<int32_t>(scaled);
    return value;
}

Value ConvertDouble(const std::string &text, const FieldRecord &) {
    Value value;
    if (!text.empty()) value.number = ParseNumber(text);
    return value;
}

Value ConvertText(const std::string &text, const FieldRecord &) {
    Value value;
    value.text = text;
    return value;
}

Value ConvertLogical(const std::string &text, const FieldRecord &) {
    constexpr const char *yes[] = {"true", "yes", "y", "t", "1"};
    constexpr const char *no[] = {"false", "no", "n", "f", "0", ""};
    const auto is_text = [&](const char *word) { return !lstrcmpiA(word, text.c_str()); };
    Value value;
    if (std::any_of(std::begin(yes), std::end(yes), is_text))
        value.whole = 1;
    else if (!std::any_of(std::begin(no), std::end(no), is_text))
        throw Failure("\"" + text +
                      "\" is no logical value; write true or false, yes or no, 1 or 0");
    return value;
}

bool IsDate(int year, int month, int day) {
    constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1) return false;
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return day <= days[month - 1] + (month == 2 && leap);
}

Value ConvertDate(const std::string &text, const FieldRecord &) {
    Value value;
    if (text.empty() || text == "0") return value;
    int year = 0;
    int month = 0;
    int day = 0;
    int used = 0;
    const int size = static_cast<int>(text.size());
    const auto whole = [&](const char *format, int *a, int *b, int *c) {
        used = 0;
        return std::sscanf(text.c_str(), format, a, b, c, &used) == 3 && used == size;
    };
    const bool read = whole("%4d-%2d-%2d%n", &year, &month, &day) ||
                      whole("%2d/%2d/%4d%n", &month, &day, &year) ||
                      (size == 8 && whole("%4d%2d%2d%n", &year, &month, &day));
    if (!read || !IsDate(year, month, day))
        throw Failure("\"" + text + "\" is no date; write YYYY-MM-DD, YYYYMMDD or MM/DD/YYYY");
    value.whole = year * 10000 + month * 100 + day;
    return value;
}

struct ConversionRow {
    int value_type;
    Value (*convert)(const std::string &text, const FieldRecord &field);
};

constexpr ConversionRow conversions[] = {
    {TYPE_NUMERIC, ConvertWhole},   {TYPE_DOUBLE, ConvertDouble}, {TYPE_TEXT, ConvertText},
    {TYPE_LOGICAL, ConvertLogical}, {TYPE_DATE, ConvertDate},     {TYPE_PICTURE, ConvertWhole},
};

// A longer value than the field's block holds gets a block of its own, which the run takes on.
void WriteText(FieldRecord *row, const std::string &text) {
    if (static_cast<int>(text.size()) > row->FieldWidth) {
        const size_t size = std::min<size_t>(text.size(), INT16_MAX - 2);
        auto *longer = static_cast<char *>(OurAlloc(static_cast<uint32_t>(size + 2)));
        if (!longer)
            throw Failure("there is no memory for a text of " + std::to_string(text.size()) +
                          " characters");
        OurFree(row->TextValue);
        row->TextValue = longer;
        row->FieldWidth = static_cast<int16_t>(size);
    }
    const size_t length = std::min<size_t>(text.size(), static_cast<size_t>(row->FieldWidth));
    std::memcpy(row->TextValue, text.data(), length);
    row->TextValue[length] = 0;
}

} // namespace

Value ConvertValue(const std::string &cell, const FieldRecord &field) {
    for (const ConversionRow &row : conversions)
        if (row.value_type == field.ValueType)
            return row.convert(field.ValueType == TYPE_TEXT ? cell : Trimmed(cell), field);
    return {};
}

int CompareValues(const Value &a, const Value &b, int value_type) {
    if (value_type == TYPE_TEXT) return lstrcmpA(a.text.c_str(), b.text.c_str());
    if (value_type == TYPE_DOUBLE) return a.number < b.number ? -1 : a.number > b.number;
    return a.whole < b.whole ? -1 : a.whole > b.whole;
}

RecordFeed::RecordFeed(const CsvTable &table, const RepParams &run) {
    std::vector<bool> used(table.names.size());
    for (int row = 0; row < run.FieldTotal; ++row) {
        const FieldRecord &field = run.FieldTable[row];
        if (field.FieldKind != FIELD_DATA || !field.InUse) continue;
        const int column = table.Column(field.FieldName);
        if (column < 0)
            throw Failure(table.path + ": has no column \"" + field.FieldName +
                          "\", which the form prints; add it to the header row");
        used[static_cast<size_t>(column)] = true;
        bindings_.push_back({row, column});
    }
    for (size_t column = 0; column < used.size(); ++column)
        if (!used[column]) unused.push_back(table.names[column]);
    Convert(table, run);
    Sort(table, run);
}

void RecordFeed::Convert(const CsvTable &table, const RepParams &run) {
    values_.reserve(table.rows.size());
    for (const CsvRow &row : table.rows) {
        std::vector<Value> record;
        record.reserve(bindings_.size());
        for (const Binding &binding : bindings_) {
            const FieldRecord &field = run.FieldTable[binding.row];
            try {
                record.push_back(
                    ConvertValue(row.cells[static_cast<size_t>(binding.column)], field));
            } catch (const Failure &failure) {
                throw Failure(table.path + ":" + std::to_string(row.line) + ": column \"" +
                              field.FieldName + "\": " + failure.what());
            }
        }
        values_.push_back(std::move(record));
    }
}

void RecordFeed::Sort(const CsvTable &table, const RepParams &run) {
    struct Key {
        size_t binding;
        int value_type;
    };
    std::vector<Key> keys;
    for (int level = 0; level < run.BreakTotal; ++level) {
        const FieldRecord &field = run.BreakTable[level];
        if (field.FieldKind != FIELD_DATA) continue;
        const int column = table.Column(field.FieldName);
        const auto bound =
            std::find_if(bindings_.begin(), bindings_.end(),
                         [&](const Binding &binding) { return binding.column == column; });
        if (bound == bindings_.end())
            throw Failure(table.path + ": has no column \"" + field.FieldName +
                          "\", by which the form sorts");
        keys.push_back({static_cast<size_t>(bound - bindings_.begin()), field.ValueType});
    }
    order_.resize(values_.size());
    std::iota(order_.begin(), order_.end(), size_t{0});
    std::stable_sort(order_.begin(), order_.end(), [&](size_t a, size_t b) {
        for (const Key &key : keys) {
            const int order =
                CompareValues(values_[a][key.binding], values_[b][key.binding], key.value_type);
            if (order) return order < 0;
        }
        return false;
    });
}

void RecordFeed::Write(size_t place, const RepParams &run) const {
    const std::vector<Value> &record = values_[order_[place]];
    for (size_t index = 0; index < bindings_.size(); ++index) {
        FieldRecord *row = &run.FieldTable[bindings_[index].row];
        if (row->ValueType == TYPE_TEXT)
            WriteText(row, record[index].text);
        else if (row->ValueType == TYPE_DOUBLE)
            row->DoubleValue = record[index].number;
        else
            row->LongValue = record[index].whole;
    }
}
