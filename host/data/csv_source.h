// Comma-separated values as RFC 4180 describes them, with a header row that names the fields.
#pragma once

#include <string>
#include <vector>

struct CsvRow {
    int line; // where the row begins in the file, from 1
    std::vector<std::string> cells;
};

struct CsvTable {
    std::string path;
    std::vector<std::string> names;
    std::vector<CsvRow> rows;

    int Column(const std::string &name) const; // -1 when there is none; case doesn't count
};

// Reads a table in UTF-8 (with or without a mark) as code page 1252. A row with more or fewer
// cells than the header, or an unclosed quote, throws Failure with file and line.
CsvTable ReadCsv(const std::string &path);
CsvTable ParseCsv(const std::string &path, const std::string &text);

// UTF-8 to code page 1252; what the page lacks becomes a question mark. Bytes that are no UTF-8
// stand for themselves.
std::string ToCodePage(const std::string &utf8);
