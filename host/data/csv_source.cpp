#include "host/data/csv_source.h"

#include <algorithm>

#include <csv.h>
#include <windows.h>

#include "host/base/failure.h"
#include "host/base/files.h"

namespace {

// Rows as the library's reader finds them. It gets the text line by line, which tells where a row
// begins.
class CsvParser {
public:
    explicit CsvParser(const std::string &path) : path_(path) {
        if (csv_init(&reader_, CSV_STRICT | CSV_STRICT_FINI))
            throw Failure(path + ": " + NO_MEMORY);
        csv_set_space_func(&reader_, [](unsigned char) { return 0; }); // blanks belong to values
    }
    ~CsvParser() { csv_free(&reader_); }
    CsvParser(const CsvParser &) = delete;
    CsvParser &operator=(const CsvParser &) = delete;

    std::vector<CsvRow> Rows(const std::string &text) {
        for (size_t start = 0; start < text.size(); ++line_) {
            const size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
            Line(text.data() + start, end - start);
            start = end;
        }
        if (csv_fini(&reader_, TakeCell, TakeRow, this))
            Fail(row_.line, "a quote is opened here and never closed");
        return std::move(rows_);
    }

private:
    static constexpr const char *NO_MEMORY = "there is no memory for its values";

    void Line(const char *line, size_t size) {
        const size_t before = rows_.size();
        if (!inside_) row_.line = line_;
        const bool blank =
            std::all_of(line, line + size, [](char c) { return c == '\r' || c == '\n'; });
        if (csv_parse(&reader_, line, size, TakeCell, TakeRow, this) != size)
            Fail(line_, csv_error(&reader_) == CSV_EPARSE
                            ? "a quote stands within a value; put the whole value into quotes and "
                              "double each quote inside"
                            : NO_MEMORY);
        if (rows_.size() > before)
            inside_ = false;
        else if (blank && !inside_)
            rows_.push_back({line_, {""}});
        else
            inside_ = true;
    }

    static void TakeCell(void *text, size_t size, void *parser) {
        auto *self = static_cast<CsvParser *>(parser);
        self->row_.cells.emplace_back(static_cast<const char *>(text), size);
    }
    static void TakeRow(int, void *parser) {
        auto *self = static_cast<CsvParser *>(parser);
        self->rows_.push_back(std::move(self->row_));
        self->row_ = {self->line_, {}};
    }

    [[noreturn]] void Fail(int line, const std::string &text) const {
        throw Failure(path_ + ":" + std::to_string(line) + ": " + text);
    }

    const std::string &path_;
    csv_parser reader_{};
    std::vector<CsvRow> rows_;
    CsvRow row_{1, {}};
    bool inside_ = false; // a row whose quotes hold the line's end
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
    std::vector<CsvRow> rows = CsvParser(path).Rows(text);
    if (rows.empty()) throw Failure(path + ": is empty; its first row must name the fields");
    CsvTable table{path, std::move(rows[0].cells), {}};
    rows.erase(rows.begin());
    if (table.names.size() > 1) std::erase_if(rows, IsBlank);
    for (const CsvRow &row : rows)
        if (row.cells.size() != table.names.size())
            throw Failure(path + ":" + std::to_string(row.line) + ": the row has " +
                          std::to_string(row.cells.size()) + " values where the header names " +
                          std::to_string(table.names.size()) + " columns");
    table.rows = std::move(rows);
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
