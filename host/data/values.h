// Values of a table in the terms of a run's fields.
#pragma once

#include <string>
#include <vector>

#include "host/data/csv_source.h"
#include "tessarine.h"

struct Value {
    int32_t whole = 0; // numbers in units of 10 to the minus decimals, logicals, dates
    double number = 0.0;
    std::string text;
};

// Converts a cell by a field's ValueType and Decimals. An empty cell is zero, false, no date or
// no text. Throws Failure with a text that says what was expected.
Value ConvertValue(const std::string &cell, const FieldRecord &field);

// Less, equal or greater than 0, as a run's break detection compares.
int CompareValues(const Value &a, const Value &b, int value_type);

// A table's records in the order that a run wants, each field bound to its column.
class RecordFeed {
public:
    // Binds every data field of the run; a field that the table lacks throws Failure. Columns
    // that no field names are listed in unused.
    RecordFeed(const CsvTable &table, const RepParams &run);

    size_t Count() const { return order_.size(); }
    // Writes record number place, in sorted order, into the run's table.
    void Write(size_t place, const RepParams &run) const;

    std::vector<std::string> unused;

private:
    struct Binding {
        int row;
        int column;
    };
    void Convert(const CsvTable &table, const RepParams &run);
    void Sort(const CsvTable &table, const RepParams &run);

    std::vector<Binding> bindings_;
    std::vector<std::vector<Value>> values_; // by record, in the order of bindings_
    std::vector<size_t> order_;
};
