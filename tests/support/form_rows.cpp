#include "tests/support/form_rows.h"

#include <cstring>

#include "form/defaults.h"
#include "frame/text.h"

namespace {

template <size_t Size> void Put(char (&field)[Size], const std::string &text) {
    tessarine::CopyText(text.c_str(), field, Size);
}

int16_t Short(int value) { return static_cast<int16_t>(value); }

} // namespace

int FormRows::Section(int section, int height, int flags) {
    SectionRow(section).InUse = 1;
    SectionRow(section).SectionFlags = static_cast<uint16_t>(flags);
    Item(ITEM_BAR, section, 125, 0, 1875, height + BarHeight());
    return section;
}

int FormRows::Field(int kind, const std::string &name, int type, int width) {
    FieldRecord field;
    tessarine::InitField(nullptr, &field);
    field.FieldKind = static_cast<uint16_t>(kind);
    field.ValueType = Short(type);
    field.FieldWidth = Short(width);
    Put(field.FieldName, name);
    return AddField(field);
}

int FormRows::Constant(const std::string &literal, int type, int32_t value, double number) {
    const int row = Field(FIELD_CONSTANT, literal, type, static_cast<int>(literal.size()) + 1);
    FieldRecord &field = FieldRow(row);
    field.LongValue = value;
    field.DoubleValue = number;
    field.FieldFlags = FIELD_SHARED;
    return row;
}

ItemRecord &FormRows::Item(int type, int section, int x, int y, int width, int height) {
    ItemRecord item{};
    item.ItemType = static_cast<uint16_t>(type);
    item.x = Short(x);
    item.y = Short(y);
    item.width = Short(width);
    item.height = Short(height);
    item.ItemFlags = FLAG_LEFT | FLAG_MIDDLE;
    item.SectionIndex = Short(section);
    return AddItem(item);
}

ItemRecord &FormRows::Label(int section, int x, int y, int width, int height,
                            const std::string &text) {
    ItemRecord &item = Item(ITEM_LABEL, section, x, y + BarHeight(), width, height);
    Put(item.LabelText, text);
    return item;
}

ItemRecord &FormRows::FieldItem(int section, int x, int y, int width, int height, int field) {
    ItemRecord &item = Item(ITEM_FIELD, section, x, y + BarHeight(), width, height);
    item.FieldIndex = Short(field);
    return item;
}

ItemRecord &FormRows::Line(int section, int x, int y, int width, int height, int angle) {
    ItemRecord &item = Item(ITEM_LINE, section, x, y + BarHeight(), width, height);
    item.LineAngle = Short(angle);
    return item;
}

void FormRows::Break(int sort_field, int break_field, int section) {
    AddBreak({Short(sort_field), Short(break_field), Short(section)});
}

void FormRows::Store(const std::vector<int> &cells, void *target) {
    std::vector<uint16_t> list(cells.begin(), cells.end());
    list.push_back(CELL_END);
    std::memcpy(target, list.data(), list.size() * sizeof list[0]);
}
