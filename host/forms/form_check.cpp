#include "host/forms/form_check.h"

#include "host/base/failure.h"
#include "host/forms/form_names.h"

namespace {

class Check {
public:
    Check(const std::string &path, const FormImage &form) : path_(path), form_(form) {}

    void Whole() {
        CheckItems();
        for (int number = 0; number < MAX_SECTIONS; ++number) CheckSection(number);
        CheckFields();
        CheckBreaks();
        CheckCells("the report filter", form_.header.ReportFilter);
        for (size_t row = 0; row < MAX_USER_FIELDS; ++row)
            if (form_.users[row].InUse)
                CheckCells(Row("user field", row) + ": its expression",
                           form_.users[row].UserTokens);
    }

private:
    static std::string Row(const char *table, size_t row) {
        return std::string(table) + " " + std::to_string(row);
    }

    [[noreturn]] void Fail(const std::string &row, const std::string &text) const {
        throw Failure(path_ + ": the form is damaged: " + row + " " + text +
                      "; open its backup (.BP) instead");
    }

    void Need(const std::string &row, const char *member, int value, size_t count) const {
        if (value < 0 || value >= static_cast<int>(count))
            Fail(row, std::string("names ") + member + " " + std::to_string(value) +
                          ", which isn't there");
    }

    void CheckItems() {
        int last_bar = -1;
        for (size_t row = 0; row < form_.items.size(); ++row) {
            const ItemRecord &item = form_.items[row];
            const std::string name = Row("item", row);
            if (ItemTypeNumber(ItemTypeName(item.ItemType)) < 0) Fail(name, "has no known type");
            Need(name, "section", item.SectionIndex, MAX_SECTIONS);
            if (item.ItemType == ITEM_FIELD)
                Need(name, "field", item.FieldIndex, form_.fields.size());
            if (item.FontIndex) Need(name, "font", item.FontIndex, form_.fonts.size());
            if (item.ItemType != ITEM_BAR) continue;
            if (item.SectionIndex <= last_bar) Fail(name, "is a section out of its order");
            last_bar = item.SectionIndex;
            barred_[last_bar] = true;
        }
        for (size_t row = 0; row < form_.items.size(); ++row)
            if (!barred_[form_.items[row].SectionIndex])
                Fail(Row("item", row), "stands in a section without a bar");
    }

    void CheckSection(int number) const {
        const SectionRecord &section = form_.sections[number];
        if ((section.InUse != 0) != barred_[number])
            Fail(SectionName(number), section.InUse ? "has no bar" : "has a bar but is not in use");
        if (section.InUse) CheckCells(SectionName(number) + ": its filter", section.SectionFilter);
    }

    void CheckFields() const {
        for (size_t row = 0; row < form_.fields.size(); ++row) {
            const FieldRecord &field = form_.fields[row];
            if (!field.InUse || field.FieldKind == FIELD_FREE) continue;
            const std::string name = Row("field", row);
            if (field.FieldKind == FIELD_SYSTEM)
                Need(name, "system field", field.TableIndex, SYSTEM_REPORT_NAME + 1);
            if (field.FieldKind == FIELD_USER)
                Need(name, "user field", field.TableIndex, MAX_USER_FIELDS);
            if (field.FieldKind == FIELD_CALC)
                CheckCells(name + ": its expression", field.FieldTokens);
        }
    }

    void CheckBreaks() const {
        for (size_t row = 0; row < form_.breaks.size(); ++row) {
            const std::string name = Row("break", row);
            const BreakFieldRecord &pair = form_.breaks[row];
            Need(name, "sort field", pair.SortField, form_.fields.size());
            Need(name, "break field", pair.BreakField, form_.fields.size());
            if (pair.SectionIndex < SECTION_SORT_HEADER_1 ||
                pair.SectionIndex > SECTION_SORT_HEADER_9)
                Fail(name, "belongs to no sort header");
        }
    }

    void CheckCells(const std::string &name, const void *record_cells) const {
        const Cells cells = CellsAt(record_cells);
        for (const int cell : cells) {
            if (cell == CELL_END) return;
            if (cell < CELL_FIRST_OPERATOR || cell > CELL_LAST_OPERATOR)
                Need(name, "field", cell, form_.fields.size());
        }
        Fail(name, "has no end");
    }

    const std::string &path_;
    const FormImage &form_;
    bool barred_[MAX_SECTIONS] = {};
};

} // namespace

void CheckForm(const std::string &path, const FormImage &form) { Check(path, form).Whole(); }
