// The columns of a table as the data fields of a form.
#pragma once

#include <string>
#include <vector>

#include "host/data/csv_source.h"
#include "tessarine.h"

// A field for each column: its name in upper case, and by what its values look like its type,
// width and decimals. Numbers that begin with a zero are texts, as postal codes are.
std::vector<FieldRecord> FieldsOf(const CsvTable &table);

// What a person calls the field's kind of value, as "number with 2 decimals".
std::string TypeText(const FieldRecord &field);
