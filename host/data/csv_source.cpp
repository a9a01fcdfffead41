#include "host/data/csv_source.h"

#include <windows.h>

#include "host/cli/failure.h"
#include "host/data/files.h"

namespace {

class CsvParser {
public:
    CsvParser(const std::string &path, const std::string &text) : path_(path), text_(text) {}

    bool AtEnd() const { return place_ >= text_.size(); }

    CsvRow Row() {
        CsvRow row{line_, {}};
        row.cells.push_back(Cell());
        while (!AtEnd() && text_[place_] == ',') {
            ++place_;
            row.cells.push_back(Cell());
        }
        EndLine();
        return row;
    }

private:
    std::string Cell() {
        if (!AtEnd() && text_[place_] == '"') return QuotedCell();
        const size_t end = std::min(text_.find_first_of(",\r\n", place_), text_.size());
        std::string cell = text_.substr(place_, end - place_);
        place_ = end;
        return cell;
    }

    std::string QuotedCell() {
        const int opened = line_;
        std::string cell;
        for (++place_;; ++place_) {
            if (AtEnd()) Fail(opened, "a quote is opened here and never closed");
            if (text_[place_] == '\n') ++line_;
            if (text_[place_] == '"') {
                ++place_;
                if (AtEnd() || text_[place_] != '"') break;
            }
            cell += text_[place_];
        }
        if (!AtEnd() && text_.find_first_of(",\r\n", place_) != place_)
            Fail(line_, "text stands behind a closing quote; double a quote inside a value");
        return cell;
    }

    void EndLine() {
        if (!AtEnd() && text_[place_] == '\r') ++place_;
        if (!AtEnd() && text_[place_] == '\n') ++place_;
        ++line_;
    }

    [[noreturn]] void Fail(int line, const std::string &text) const {
        throw Failure(path_ + ":" + std::to_string(line) + ": " + text);
    }

    const std::string &path_;
    const std::string &text_;
    size_t place_ = 0;
    int line_ = 1;
};

bool IsBlank(const CsvRow &row) { return row.cells.size() == 1 && row.cells[0].empty(); }

} // namespace

int CsvTable::Column(const std::string &name) const {
    for (size_t column = 0; column < names.size(); ++column)
        if (!lstrcmpiA(names[column].c_str(), name.c_str())) return static_cast<int>(column);
    return -1;
}

CsvTable ParseCsv(const std::string &path, const std::string &text) {
    CsvTable table{path, {}, {}};
    CsvParser parser(path, text);
    if (parser.AtEnd()) throw Failure(path + ": is empty; its first row must name the fields");
    table.names = parser.Row().cells;
    while (!parser.AtEnd()) {
        CsvRow row = parser.Row();
        if (IsBlank(row) && table.names.size() > 1) continue;
        if (row.cells.size() != table.names.size())
            throw Failure(path + ":" + std::to_string(row.line) + ": the row has " +
                          std::to_string(row.cells.size()) + " values where the header names " +
                          std::to_string(table.names.size()) + " columns");
        table.rows.push_back(std::move(row));
    }
    return table;
}

std::string ToCodePage(const std::string &utf8) {
    const int size = static_cast<int>(utf8.size());
    const int wide_size =
        MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), size, nullptr, 0);
    if (wide_size <= 0) return utf8;
    std::wstring wide(static_cast<size_t>(wide_size), L'\0');
    MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), size, wide.data(), wide_size);
    const int narrow_size =
        WideCharToMultiByte(1252, 0, wide.data(), wide_size, nullptr, 0, "?", nullptr);
    std::string narrow(static_cast<size_t>(narrow_size), '\0');
    WideCharToMultiByte(1252, 0, wide.data(), wide_size, narrow.data(), narrow_size, "?", nullptr);
    return narrow;
}

CsvTable ReadCsv(const std::string &path) {
    std::string text = ReadFileBytes(path);
    if (text.rfind("\xEF\xBB\xBF", 0) == 0) text.erase(0, 3);
    return ParseCsv(path, ToCodePage(text));
}
