#include "host/forms/form_to_json.h"

#include <algorithm>

#include "host/forms/expression_text.h"
#include "host/forms/form_check.h"
#include "host/forms/form_members.h"
#include "host/forms/form_names.h"

namespace {

template <size_t Count>
void Dump(const Member (&members)[Count], const void *record, const void *defaults, Json *object) {
    DumpMembers(members, Count, record, defaults, object);
}

template <size_t Count>
void DumpSet(const FlagWord (&words)[Count], int flags, int usual, const char *name, Json *object) {
    if (flags != usual) (*object)[name] = DumpFlags(words, Count, flags);
}

template <size_t Count>
void DumpName(const char *const (&names)[Count], int value, int usual, const char *name,
              Json *object) {
    if (value == usual) return;
    if (value >= 0 && value < static_cast<int>(Count))
        (*object)[name] = names[value];
    else
        (*object)[name] = value;
}

void DumpCells(const FormImage &form, const Cells &cells, const char *name, Json *object) {
    if (cells[0] != CELL_END) (*object)[name] = ExpressionOf(form, cells);
}

Json DumpHeader(const FormImage &form) {
    const FormHeader usual = DefaultHeader();
    Json object = Json::object();
    Dump(header_members, &form.header, &usual, &object);
    DumpCells(form, CellsAt(form.header.ReportFilter), "filter", &object);
    Json label = Json::object();
    Dump(label_members, &form.header.LabelGeometry, &usual.LabelGeometry, &label);
    if (!label.empty()) object["label"] = label;
    Json paper = Json::object();
    Dump(paper_members, &form.header.PrinterMode, &usual.PrinterMode, &paper);
    if (!paper.empty()) object["printer mode"] = paper;
    return object;
}

std::string Hex(const std::string &bytes) {
    constexpr const char *digits = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        text += digits[static_cast<unsigned char>(c) >> 4];
        text += digits[static_cast<unsigned char>(c) & 15];
    }
    return text;
}

Json DumpFont(const FontImage &font) {
    Json object = Json::object();
    if (font.picture) {
        object["point height"] = font.point_height;
        object["point width"] = font.point_width;
        object["picture info"] = Hex(font.info);
        object["picture bits"] = Hex(font.bits);
        return object;
    }
    PortableFont usual = DefaultFont();
    usual.Italic = font.font.Italic ? 1 : 0;
    usual.Underline = font.font.Underline ? 1 : 0;
    usual.StrikeOut = font.font.StrikeOut ? 1 : 0;
    Dump(font_members, &font.font, &usual, &object);
    const int style =
        (font.font.Italic ? 1 : 0) | (font.font.Underline ? 2 : 0) | (font.font.StrikeOut ? 4 : 0);
    DumpSet(font_flags, style, 0, "style", &object);
    return object;
}

bool IsSortedBy(const FormImage &form, size_t row) {
    return std::ranges::any_of(form.breaks, [row](const BreakFieldRecord &level) {
        return level.SortField == static_cast<int>(row);
    });
}

Json DumpField(const FormImage &form, size_t row) {
    const FieldRecord &field = form.fields[row];
    if (field.FieldKind == FIELD_FREE)
        return {{"kind", "free"}}; // what else it holds means nothing
    const FieldRecord usual = DefaultField();
    Json object = Json::object();
    if (*field.FieldName) object["name"] = ToUtf8(field.FieldName);
    DumpName(kind_names, field.FieldKind, FIELD_DATA, "kind", &object);
    DumpName(type_names, field.ValueType, TYPE_TEXT, "type", &object);
    Dump(field_members, &field, &usual, &object);
    if (!*field.Caption && IsSortedBy(form, row)) object["caption"] = ""; // not the field's name
    DumpName(summary_names, field.SummaryType, SUMMARY_VALUE, "summary", &object);
    DumpName(symbol_names, field.SymbolKind, SYMBOL_NONE, "symbol", &object);
    DumpSet(symbol_flags, field.SymbolWhen, 0, "symbol when", &object);
    DumpSet(field_flags, field.FieldFlags, 0, "flags", &object);
    DumpCells(form, CellsAt(field.FieldTokens), "expression", &object);
    return object;
}

Json DumpUser(const FormImage &form, const UserFieldRecord &user, int row) {
    UserFieldRecord usual{};
    usual.UserWidth = 20;
    Json object = Json::object();
    object["row"] = row;
    Dump(user_members, &user, &usual, &object);
    DumpName(type_names, user.ValueType, TYPE_TEXT, "type", &object);
    DumpCells(form, CellsAt(user.UserTokens), "expression", &object);
    return object;
}

std::string FieldReference(const FormImage &form, int row) {
    return std::string(form.fields[static_cast<size_t>(row)].FieldName) + "@" + std::to_string(row);
}

void DumpOutline(const ItemRecord &item, Json *object) {
    DumpSet(side_flags, item.OutlineSides, 0, "outline", object);
}

Json DumpItem(const FormImage &form, const ItemRecord &item, int section_top) {
    const ItemRecord usual = DefaultItem(item.ItemType);
    Json object = Json::object();
    object["item"] = ItemTypeName(item.ItemType);
    object["at"] = {item.x, item.y - section_top};
    object["size"] = {item.width, item.height};
    if (item.ItemType == ITEM_FIELD)
        object["field"] = ToUtf8(FieldReference(form, item.FieldIndex));
    if (item.FontIndex) object["font"] = item.FontIndex;
    Dump(item_members, &item, &usual, &object);
    DumpSet(item_flags, item.ItemFlags, usual.ItemFlags, "flags", &object);
    DumpOutline(item, &object);
    Json brush = Json::object();
    Dump(brush_members, &item.Background, &usual.Background, &brush);
    if (!brush.empty()) object["brush"] = brush;
    return object;
}

// A bar is told by its section, its own place by what stands above it.
Json DumpSection(const FormImage &form, int number, size_t bar_row) {
    const SectionRecord &section = form.sections[number];
    const ItemRecord &bar = form.items[bar_row];
    const SectionRecord usual = DefaultSection();
    Json object = Json::object();
    object["section"] = SectionName(number);
    object["height"] = bar.height - form.header.BarHeight;
    DumpSet(section_flags, section.SectionFlags, 0, "flags", &object);
    Dump(section_members, &section, &usual, &object);
    DumpCells(form, CellsAt(section.SectionFilter), "filter", &object);
    Json bar_object = DumpItem(form, bar, bar.y);
    bar_object.erase("item");
    object["bar"] = bar_object;
    Json items = Json::array();
    for (const ItemRecord &item : form.items)
        if (item.ItemType != ITEM_BAR && item.SectionIndex == number)
            items.push_back(DumpItem(form, item, bar.y + form.header.BarHeight));
    object["items"] = items;
    return object;
}

} // namespace

std::string JsonFromForm(const std::string &path, const FormImage &form) {
    CheckForm(path, form);
    Json root = Json::object();
    root["form"] = DumpHeader(form);
    for (const FontImage &font : form.fonts) root["fonts"].push_back(DumpFont(font));
    for (size_t row = 0; row < form.fields.size(); ++row)
        if (row != 0 && row != 32) root["fields"].push_back(DumpField(form, row));
    for (int row = 0; row < MAX_USER_FIELDS; ++row)
        if (form.users[row].InUse)
            root["user fields"].push_back(DumpUser(form, form.users[row], row));
    for (const BreakFieldRecord &row : form.breaks)
        root["breaks"].push_back({{"section", SectionName(row.SectionIndex)},
                                  {"sort", ToUtf8(FieldReference(form, row.SortField))},
                                  {"break", ToUtf8(FieldReference(form, row.BreakField))}});
    for (size_t row = 0; row < form.items.size(); ++row)
        if (form.items[row].ItemType == ITEM_BAR)
            root["sections"].push_back(DumpSection(form, form.items[row].SectionIndex, row));
    return root.dump(2) + "\n";
}
