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

int FormBuilder::AddField(const FieldRecord &field) {
    if (fields.size() == 32) fields.push_back(FreeField());
    fields.push_back(field);
    return static_cast<int>(fields.size()) - 1;
}

ItemRecord &FormBuilder::AddItem(const ItemRecord &item) {
    auto &own = items[item.SectionIndex];
    own.push_back(item);
    return own.back();
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
