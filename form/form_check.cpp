#include "form/form_check.h"

#include <algorithm>
#include <iterator>

namespace tessarine {

namespace {

bool Within(int value, int count) { return value >= 0 && value < count; }

template <size_t Size> bool Ends(const char (&text)[Size]) {
    return std::find(text, text + Size, '\0') != text + Size;
}

// An expression ends inside its cells, and each cell names a field row or an operator.
bool CellsFit(const Session *session, const Cell *cells) {
    for (int place = 0; place < MAX_CELLS; ++place) {
        const int cell = cells[place];
        if (cell == CELL_END) return true;
        const bool operation = cell >= CELL_FIRST_OPERATOR && cell <= CELL_LAST_OPERATOR;
        if (!operation && cell >= session->form.FieldCount) return false;
    }
    return false;
}

bool HeaderFits(const Session *session) {
    const FormHeader &header = session->form.Header;
    return Ends(header.ReportName) && Ends(header.CallerTag) && Ends(header.PrinterDevice) &&
           Ends(header.PrinterDriver) && Ends(header.PrinterPort) &&
           CellsFit(session, header.ReportFilter);
}

bool ItemFits(const Session *session, const ItemRecord &item) {
    if (!Within(item.SectionIndex, MAX_SECTIONS) || !Ends(item.LabelText)) return false;
    if (item.ItemType == ITEM_FIELD && !Within(item.FieldIndex, session->form.FieldCount))
        return false;
    const bool has_font =
        item.ItemType == ITEM_LABEL || item.ItemType == ITEM_FIELD || item.ItemType == ITEM_PICTURE;
    return !has_font || Within(item.FontIndex, MAX_FONTS);
}

bool FieldTextsEnd(const FieldRecord &field) {
    return Ends(field.FieldName) && Ends(field.DateDelimiter) && Ends(field.ThousandsChar) &&
           Ends(field.DecimalChar) && Ends(field.PadChar) && Ends(field.CurrencySymbol) &&
           Ends(field.TrueText) && Ends(field.FalseText) && Ends(field.NegativePrefix) &&
           Ends(field.NegativeSuffix) && Ends(field.PositivePrefix) && Ends(field.PositiveSuffix) &&
           Ends(field.ZeroText) && Ends(field.Caption);
}

bool FieldFits(const Session *session, const FieldRecord &field) {
    if (field.FieldKind == FIELD_FREE) return true;
    if (!FieldTextsEnd(field) || field.FieldWidth < 0) return false;
    if (field.FieldKind == FIELD_USER && !Within(field.TableIndex, MAX_USER_FIELDS)) return false;
    return field.FieldKind != FIELD_CALC || CellsFit(session, field.FieldTokens);
}

bool BreakFits(const Session *session, const BreakFieldRecord &row) {
    return Within(row.SortField, session->form.FieldCount) &&
           Within(row.BreakField, session->form.FieldCount) &&
           row.SectionIndex >= SECTION_SORT_HEADER_1 && row.SectionIndex <= SECTION_SORT_HEADER_9;
}

bool SectionFits(const Session *session, int number) {
    const SectionRecord &section = session->form.Sections[number];
    if (!section.InUse) return true;
    if (!Within(section.BarItem, session->form.TotalItems) || section.Across < 1) return false;
    const ItemRecord &bar = session->form.Items[section.BarItem];
    return bar.ItemType == ITEM_BAR && bar.SectionIndex == number &&
           CellsFit(session, section.SectionFilter);
}

bool UserFieldFits(const Session *session, const UserFieldRecord &user) {
    return !user.InUse || (Ends(user.UserName) && Ends(user.UserPrompt) && Ends(user.UserText) &&
                           user.UserWidth >= 0 && CellsFit(session, user.UserTokens));
}

} // namespace

bool CountsFit(const FormHeader &header) {
    return header.ItemCount <= MAX_ITEMS && header.FieldCount <= MAX_FIELDS &&
           header.BreakCount <= MAX_BREAKS;
}

bool TablesAgree(const Session *session) {
    const FormState &form = session->form;
    for (int row = 0; row < form.TotalItems; ++row)
        if (!ItemFits(session, form.Items[row])) return false;
    for (int row = 0; row < form.FieldCount; ++row)
        if (!FieldFits(session, form.Fields[row])) return false;
    for (int row = 0; row < form.BreakCount; ++row)
        if (!BreakFits(session, form.Breaks[row])) return false;
    for (int row = 0; row < MAX_SECTIONS; ++row)
        if (!SectionFits(session, row)) return false;
    return HeaderFits(session);
}

bool UserFieldsFit(const Session *session) {
    return std::all_of(
        std::begin(session->form.UserFields), std::end(session->form.UserFields),
        [session](const UserFieldRecord &user) { return UserFieldFits(session, user); });
}

} // namespace tessarine
