#include "form/form_check.h"

#include "form/field_texts.h"
#include "form/sections.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace tessarine {

namespace {

// What 16-bit form units can hold.
constexpr float MOST_INCHES = static_cast<float>(INT16_MAX / int{UNITS_PER_INCH});

bool Within(int value, int count) { return value >= 0 && value < count; }

bool AreMeasures(std::initializer_list<float> inches) {
    return std::all_of(inches.begin(), inches.end(), IsMeasure);
}

template <size_t Size> bool Ends(const char (&text)[Size]) {
    return std::find(text, text + Size, '\0') != text + Size;
}

bool GeometryFits(const LabelGeometry &label) {
    return AreMeasures({label.PageWidth, label.PageHeight, label.TopOffset, label.LeftOffset,
                        label.LabelHeight, label.LabelWidth, label.VerticalPitch,
                        label.HorizontalPitch});
}

bool FieldTextsEnd(const FieldRecord &field) {
    return EachTextOf(field, [](const auto &text) { return Ends(text); });
}

// A free row is carried as it stands, so it may hold anything until something names it.
bool IsUsableField(const Session *session, int row) {
    if (!Within(row, session->form.FieldCount)) return false;
    const FieldRecord &field = session->form.Fields[row];
    return FieldTextsEnd(field) && field.FieldWidth >= 0;
}

// An expression ends inside its cells, and each cell names a usable field row or an operator.
bool CellsFit(const Session *session, const Cell *cells) {
    for (int place = 0; place < MAX_CELLS; ++place) {
        const int cell = cells[place];
        if (cell == CELL_END) return true;
        const bool operation = cell >= CELL_FIRST_OPERATOR && cell <= CELL_LAST_OPERATOR;
        if (!operation && !IsUsableField(session, cell)) return false;
    }
    return false;
}

bool HeaderFits(const Session *session) {
    const FormHeader &header = session->form.Header;
    if (header.LabelType != 0 && !GeometryFits(header.LabelGeometry)) return false;
    return AreMeasures(
               {header.LeftMargin, header.RightMargin, header.TopMargin, header.BottomMargin}) &&
           Ends(header.ReportName) && Ends(header.CallerTag) && Ends(header.PrinterDevice) &&
           Ends(header.PrinterDriver) && Ends(header.PrinterPort) &&
           CellsFit(session, header.ReportFilter);
}

bool NamesFontRow(const ItemRecord &item) {
    return item.ItemType != ITEM_BAR && item.ItemType != ITEM_LINE;
}

bool ItemFits(const Session *session, const ItemRecord &item) {
    if (!Within(item.SectionIndex, MAX_SECTIONS) || !Ends(item.LabelText)) return false;
    if (item.ItemType == ITEM_FIELD && !IsUsableField(session, item.FieldIndex)) return false;
    return !NamesFontRow(item) || Within(item.FontIndex, MAX_FONTS);
}

bool FieldFits(const Session *session, int row) {
    const FieldRecord &field = session->form.Fields[row];
    if (field.FieldKind == FIELD_FREE) return true;
    if (!IsUsableField(session, row)) return false;
    if (field.FieldKind == FIELD_USER && !Within(field.TableIndex, MAX_USER_FIELDS)) return false;
    return field.FieldKind != FIELD_CALC || CellsFit(session, field.FieldTokens);
}

bool BreakFits(const Session *session, const BreakFieldRecord &row) {
    return IsUsableField(session, row.SortField) && IsUsableField(session, row.BreakField) &&
           IsSortHeader(row.SectionIndex);
}

bool SectionFits(const Session *session, int number) {
    const SectionRecord &section = session->form.Sections[number];
    if (!section.InUse) return true;
    if (!Within(section.BarItem, session->form.TotalItems)) return false;
    if (IsDetail(number) && section.Across < 1) return false;
    const ItemRecord &bar = session->form.Items[section.BarItem];
    return bar.ItemType == ITEM_BAR && bar.SectionIndex == number &&
           CellsFit(session, section.SectionFilter);
}

bool IsNamed(const Session *session, int user_row) {
    const FormState &form = session->form;
    return std::any_of(form.Fields, form.Fields + form.FieldCount,
                       [user_row](const FieldRecord &field) {
                           return field.FieldKind == FIELD_USER && field.TableIndex == user_row;
                       });
}

bool UserFieldFits(const Session *session, int row) {
    const UserFieldRecord &user = session->form.UserFields[row];
    if (!user.InUse && !IsNamed(session, row)) return true;
    return Ends(user.UserName) && Ends(user.UserPrompt) && Ends(user.UserText) &&
           user.UserWidth >= 0 && (!user.InUse || CellsFit(session, user.UserTokens));
}

} // namespace

// What is no number at all fails here too.
bool IsMeasure(float inches) { return std::fabs(inches) <= MOST_INCHES; }

bool CountsFit(const FormHeader &header) {
    return header.ItemCount <= MAX_ITEMS && header.FieldCount <= MAX_FIELDS &&
           header.BreakCount <= MAX_BREAKS;
}

bool TablesAgree(const Session *session) {
    const FormState &form = session->form;
    for (int row = 0; row < form.TotalItems; ++row)
        if (!ItemFits(session, form.Items[row])) return false;
    for (int row = 0; row < form.FieldCount; ++row)
        if (!FieldFits(session, row)) return false;
    for (int row = 0; row < form.BreakCount; ++row)
        if (!BreakFits(session, form.Breaks[row])) return false;
    for (int row = 0; row < MAX_SECTIONS; ++row)
        if (!SectionFits(session, row)) return false;
    return HeaderFits(session);
}

bool UserFieldsFit(const Session *session) {
    for (int row = 0; row < MAX_USER_FIELDS; ++row)
        if (!UserFieldFits(session, row)) return false;
    return true;
}

} // namespace tessarine
