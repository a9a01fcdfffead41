// The one way in which tests make the rows of a form, whether it goes to a file or into a session.
#pragma once

#include <string>
#include <vector>

#include "tessarine_records.h"

class FormRows {
public:
    virtual ~FormRows() = default;

    // Adds a section with its bar; height in form units without the caption. Returns the section.
    int Section(int section, int height, int flags = 0);
    // Adds a field row and returns it.
    int Field(int kind, const std::string &name, int type, int width = 15);
    int Constant(const std::string &literal, int type, int32_t value = 0, double number = 0.0);
    // Adds items to a section; y in form units from the top of the section below its caption.
    ItemRecord &Label(int section, int x, int y, int width, int height, const std::string &text);
    ItemRecord &FieldItem(int section, int x, int y, int width, int height, int field);
    ItemRecord &Line(int section, int x, int y, int width, int height, int angle);
    // An item of any type; y as it stands in the row.
    ItemRecord &Item(int type, int section, int x, int y, int width, int height);
    void Break(int sort_field, int break_field, int header);
    // Writes cells and terminator to an expression, which may lie at any address.
    static void Store(const std::vector<int> &cells, void *target);

protected:
    FormRows() = default;
    FormRows(const FormRows &) = default;
    FormRows &operator=(const FormRows &) = default;

private:
    // Where the rows stand.
    virtual int BarHeight() const = 0;
    virtual SectionRecord &SectionRow(int section) = 0;
    virtual FieldRecord &FieldRow(int row) = 0;
    virtual int AddField(const FieldRecord &field) = 0;
    virtual ItemRecord &AddItem(const ItemRecord &item) = 0;
    virtual void AddBreak(const BreakFieldRecord &row) = 0;
};
