#include "tests/support/form_builder.h"

#include <cstring>

#include "frame/text.h"
#include "tests/support/test_session.h"

namespace {

constexpr int BAR_HEIGHT = 40;

template <size_t Size> void Put(char (&field)[Size], const std::string &text) {
    tessarine::CopyText(text.c_str(), field, Size);
}

template <typename Record> void Append(std::string *bytes, const Record &record) {
    bytes->append(reinterpret_cast<const char *>(&record), sizeof record);
}

int16_t Short(int value) { return static_cast<int16_t>(value); }

FieldRecord FreeField() {
    FieldRecord field{};
    field.FieldKind = FIELD_FREE;
    field.FieldTokens[0] = CELL_END;
    return field;
}

} // namespace

FormBuilder::FormBuilder() {
    header.Signature = SIGNATURE_FORM;
    header.FormVersion = FORM_VERSION;
    header.BarHeight = BAR_HEIGHT;
    header.LeftMargin = header.RightMargin = header.TopMargin = header.BottomMargin = 0.5F;
    header.ReportFilter[0] = CELL_END;
    Put(header.ReportName, "Test");
    fields.push_back(FreeField());
    for (SectionRecord &section : sections) {
        section.Across = 1;
        section.SectionFilter[0] = CELL_END;
        section.PrintNow = 1;
    }
    for (UserFieldRecord &user : users) user.UserTokens[0] = CELL_END;
    PortableFont font{};
    font.Height = -38;
    font.OutPrecision = 7;
    Put(font.FaceName, "Courier New");
    fonts.push_back(font);
}

int FormBuilder::Section(int section, int height, int flags) {
    sections[section].InUse = 1;
    sections[section].SectionFlags = static_cast<uint16_t>(flags);
    Item(ITEM_BAR, section, 125, 0, 1875, height + BAR_HEIGHT);
    return section;
}

int FormBuilder::Field(int kind, const std::string &name, int type, int width) {
    if (fields.size() == 32) fields.push_back(FreeField());
    FieldRecord field{};
    field.FieldKind = static_cast<uint16_t>(kind);
    field.HostTable = field.HostField = -1;
    field.ValueType = Short(type);
    field.FieldWidth = Short(width);
    field.Modifiable = field.InUse = 1;
    field.TableIndex = -1;
    Put(field.FieldName, name);
    Put(field.DateDelimiter, "/");
    Put(field.ThousandsChar, ",");
    Put(field.DecimalChar, ".");
    Put(field.TrueText, "Y");
    Put(field.FalseText, "N");
    Put(field.NegativePrefix, "-");
    Put(field.ZeroText, "0");
    field.FieldTokens[0] = CELL_END;
    field.LineBreakChar[0] = '\r';
    fields.push_back(field);
    return static_cast<int>(fields.size()) - 1;
}

int FormBuilder::Constant(const std::string &literal, int type, int32_t value, double number) {
    const int row = Field(FIELD_CONSTANT, literal, type, static_cast<int>(literal.size()) + 1);
    fields[static_cast<size_t>(row)].LongValue = value;
    fields[static_cast<size_t>(row)].DoubleValue = number;
    fields[static_cast<size_t>(row)].FieldFlags = FIELD_SHARED;
    return row;
}

ItemRecord &FormBuilder::Item(int type, int section, int x, int y, int width, int height) {
    ItemRecord item{};
    item.ItemType = static_cast<uint16_t>(type);
    item.x = Short(x);
    item.y = Short(y);
    item.width = Short(width);
    item.height = Short(height);
    item.ItemFlags = FLAG_LEFT | FLAG_MIDDLE;
    item.SectionIndex = Short(section);
    items[section].push_back(item);
    return items[section].back();
}

ItemRecord &FormBuilder::Label(int section, int x, int y, int width, int height,
                               const std::string &text) {
    ItemRecord &item = Item(ITEM_LABEL, section, x, y + BAR_HEIGHT, width, height);
    Put(item.LabelText, text);
    return item;
}

ItemRecord &FormBuilder::FieldItem(int section, int x, int y, int width, int height, int field) {
    ItemRecord &item = Item(ITEM_FIELD, section, x, y + BAR_HEIGHT, width, height);
    item.FieldIndex = Short(field);
    return item;
}

ItemRecord &FormBuilder::Line(int section, int x, int y, int width, int height, int angle) {
    ItemRecord &item = Item(ITEM_LINE, section, x, y + BAR_HEIGHT, width, height);
    item.LineAngle = Short(angle);
    return item;
}

void FormBuilder::Break(int sort_field, int break_field, int section) {
    breaks.push_back({Short(sort_field), Short(break_field), Short(section)});
}

int FormBuilder::UserField(const std::string &name, int type, int order) {
    int row = 0;
    while (users[row].InUse) ++row;
    users[row].InUse = 1;
    users[row].ValueType = Short(type);
    users[row].PromptOrder = static_cast<uint16_t>(order);
    users[row].UserWidth = 20;
    Put(users[row].UserName, name);
    Put(users[row].UserPrompt, name);
    return row;
}

void FormBuilder::Store(const std::vector<int> &cells, void *target) {
    std::vector<uint16_t> list(cells.begin(), cells.end());
    list.push_back(CELL_END);
    std::memcpy(target, list.data(), list.size() * sizeof list[0]);
}

std::string FormBuilder::Bytes() const {
    FormHeader head = header;
    SectionRecord bands[MAX_SECTIONS];
    std::memcpy(bands, sections, sizeof bands);
    std::string rows;
    int y = 0;
    int count = 0;
    for (int section = 0; section < MAX_SECTIONS; ++section) {
        const auto &own = items[section];
        if (own.empty()) continue;
        bands[section].BarItem = Short(count);
        for (ItemRecord item : own) {
            item.y = Short(item.y + y);
            Append(&rows, item);
            ++count;
        }
        y += own.front().height;
    }
    head.ItemCount = static_cast<uint16_t>(count);
    head.FieldCount = static_cast<uint16_t>(fields.size());
    head.BreakCount = static_cast<uint16_t>(breaks.size());
    head.FontCount = static_cast<uint16_t>(fonts.size());
    std::string bytes;
    Append(&bytes, head);
    bytes += rows;
    for (const FieldRecord &field : fields) Append(&bytes, field);
    for (const BreakFieldRecord &row : breaks) Append(&bytes, row);
    Append(&bytes, bands);
    Append(&bytes, users);
    bytes += static_cast<char>(FONT_MARKER);
    for (const PortableFont &font : fonts) {
        Append(&bytes, uint16_t{0});
        Append(&bytes, font);
    }
    return bytes;
}

void FormBuilder::Write(const std::string &path) const { WriteWholeFile(path, Bytes()); }
