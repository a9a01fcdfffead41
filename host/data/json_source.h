// A JSON array of records as a table.
#pragma once

#include <string>

#include "host/data/csv_source.h"

// An array of objects; the columns stand in the order in which their names first come. A member
// that a record lacks, and null, are empty. Throws Failure for anything else.
CsvTable ReadJsonTable(const std::string &path);
CsvTable ParseJsonTable(const std::string &path, const std::string &text);

// A table by the ending of its file: .json, or else comma-separated values.
CsvTable ReadTable(const std::string &path);
