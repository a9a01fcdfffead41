#include "host/data/json_source.h"

#include <algorithm>

#include <nlohmann/json.hpp>
#include <windows.h>

#include "host/base/failure.h"
#include "host/base/files.h"

namespace {

using Json = nlohmann::ordered_json;

size_t ColumnOf(CsvTable *table, const std::string &name) {
    const auto found = std::find(table->names.begin(), table->names.end(), name);
    if (found == table->names.end()) {
        table->names.push_back(name);
        return table->names.size() - 1;
    }
    return static_cast<size_t>(found - table->names.begin());
}

std::string CellOf(const Json &value, const std::string &where) {
    if (value.is_null()) return "";
    if (value.is_string()) return ToCodePage(value.get<std::string>());
    if (value.is_structured())
        throw Failure(where + " is a list or a record; write a text, a number, true or false");
    return value.dump();
}

CsvRow RowOf(CsvTable *table, const Json &record, int number) {
    const std::string where = table->path + ": record " + std::to_string(number);
    if (!record.is_object()) throw Failure(where + " is no record; write {\"NAME\": value, ...}");
    CsvRow row{number, {}};
    for (const auto &[name, value] : record.items()) {
        const size_t column = ColumnOf(table, ToCodePage(name));
        row.cells.resize(std::max(row.cells.size(), column + 1));
        row.cells[column] = CellOf(value, where + ", " + name);
    }
    return row;
}

} // namespace

CsvTable ParseJsonTable(const std::string &path, const std::string &text) {
    Json records;
    try {
        records = Json::parse(text);
    } catch (const Json::exception &error) {
        throw Failure(path + ": " + error.what());
    }
    if (!records.is_array()) throw Failure(path + ": is no list of records; write [{...}, {...}]");
    CsvTable table{path, {}, {}};
    for (const Json &record : records)
        table.rows.push_back(RowOf(&table, record, static_cast<int>(table.rows.size()) + 1));
    if (table.names.empty())
        throw Failure(path + ": has no records; the members of its records name the fields");
    for (CsvRow &row : table.rows) row.cells.resize(table.names.size());
    return table;
}

CsvTable ReadJsonTable(const std::string &path) {
    return ParseJsonTable(path, ReadFileBytes(path));
}

CsvTable ReadTable(const std::string &path) {
    const size_t point = path.find_last_of('.');
    const bool json = point != std::string::npos && !lstrcmpiA(path.substr(point).c_str(), ".json");
    return json ? ReadJsonTable(path) : ReadCsv(path);
}
