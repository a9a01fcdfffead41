// Forms built in memory and written as form files, for tests of runs.
#pragma once

#include <string>
#include <vector>

#include "tests/support/form_rows.h"

class FormBuilder : public FormRows {
public:
    FormBuilder(); // a report form with margins of half an inch and no sections

    int UserField(const std::string &name, int type, int order);
    void Filter(const std::vector<int> &cells) { Store(cells, header.ReportFilter); }

    std::string Bytes() const; // the form file
    void Write(const std::string &path) const;

    FormHeader header{};
    std::vector<FieldRecord> fields;
    std::vector<BreakFieldRecord> breaks;
    SectionRecord sections[MAX_SECTIONS]{};
    UserFieldRecord users[MAX_USER_FIELDS]{};
    std::vector<PortableFont> fonts;             // row 0 is Courier New, 11 points
    std::vector<ItemRecord> items[MAX_SECTIONS]; // by section, the bar first

private:
    int BarHeight() const override { return header.BarHeight; }
    SectionRecord &SectionRow(int section) override { return sections[section]; }
    FieldRecord &FieldRow(int row) override { return fields[static_cast<size_t>(row)]; }
    int AddField(const FieldRecord &field) override;
    ItemRecord &AddItem(const ItemRecord &item) override;
    void AddBreak(const BreakFieldRecord &row) override { breaks.push_back(row); }
};
