// Forms built in memory and written as form files, for tests of runs.
#pragma once

#include <string>
#include <vector>

#include "tessarine_records.h"

class FormBuilder {
public:
    FormBuilder(); // a report form with margins of half an inch and no sections

    // Adds a section with its bar; height in form units without the caption. Returns the section.
    int Section(int section, int height, int flags = 0);
    // Adds a field row and returns it.
    int Field(int kind, const std::string &name, int type, int width = 15);
    int Constant(const std::string &literal, int type, int32_t value = 0, double number = 0.0);
    // Adds items to a section; y in form units from the top of the section below its caption.
    ItemRecord &Label(int section, int x, int y, int width, int height, const std::string &text);
    ItemRecord &FieldItem(int section, int x, int y, int width, int height, int field);
    ItemRecord &Line(int section, int x, int y, int width, int height, int angle);
    void Break(int sort_field, int break_field, int header);
    int UserField(const std::string &name, int type, int order);
    void Filter(const std::vector<int> &cells) { Store(cells, header.ReportFilter); }
    // Writes cells and terminator to an expression, which may lie at any address.
    static void Store(const std::vector<int> &cells, void *target);

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
    ItemRecord &Item(int type, int section, int x, int y, int width, int height);
};
