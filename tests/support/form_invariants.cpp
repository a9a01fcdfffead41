#include "tests/support/form_invariants.h"

#include <vector>

#include "designer/designer_state.h"
#include "form/sections.h"
#include "tests/support/item_order.h"

using namespace tessarine;

namespace {

// Adds what a list of cells mentions.
void Count(const void *cells_of_record, std::vector<int> *uses) {
    const Cell *cells = static_cast<const Cell *>(cells_of_record);
    for (int place = 0; place < MAX_CELLS && cells[place] != CELL_END; ++place)
        if (cells[place] < MAX_FIELDS) ++(*uses)[cells[place]];
}

std::vector<int> UsesOfRows(Session *session) {
    const FormState &form = session->form;
    std::vector<int> uses(MAX_FIELDS);
    Count(form.Header.ReportFilter, &uses);
    for (const SectionRecord &section : form.Sections)
        if (section.InUse) Count(section.SectionFilter, &uses);
    for (int row = 0; row < form.FieldCount; ++row)
        if (form.Fields[row].InUse && form.Fields[row].FieldKind == FIELD_CALC)
            Count(form.Fields[row].FieldTokens, &uses);
    for (const UserFieldRecord &user : form.UserFields)
        if (user.InUse) Count(user.UserTokens, &uses);
    const Designer &designer = DesignerOf(session);
    for (int row = 0; row < designer.ClipCount; ++row)
        if (designer.ClipFields[row] && designer.ClipFields[row]->FieldKind == FIELD_CALC)
            Count(designer.ClipFields[row]->FieldTokens, &uses);
    return uses;
}

std::string FaultOfExpressions(Session *session) {
    const std::vector<int> uses = UsesOfRows(session);
    for (int row = 0; row < session->form.FieldCount; ++row) {
        const FieldRecord &field = session->form.Fields[row];
        const std::string name = "field row " + std::to_string(row) + " (" + field.FieldName + ")";
        if (!field.InUse && uses[static_cast<size_t>(row)])
            return name + " is free and an expression uses it";
        if (field.InUse && field.FieldFlags & FIELD_SHARED &&
            field.RefCount != uses[static_cast<size_t>(row)])
            return name + " counts " + std::to_string(field.RefCount) + " uses of " +
                   std::to_string(uses[static_cast<size_t>(row)]);
    }
    return "";
}

std::string FaultOfBreaks(const Session *session) {
    const FormState &form = session->form;
    int headers = 0;
    for (int section = SECTION_SORT_HEADER_1; section <= SECTION_SORT_HEADER_9; ++section) {
        headers += form.Sections[section].InUse != 0;
        if (form.Sections[FooterOf(section)].InUse && !form.Sections[section].InUse)
            return "a sort footer stands without its header";
    }
    if (headers != form.BreakCount)
        return std::to_string(headers) + " sort headers have " + std::to_string(form.BreakCount) +
               " break rows";
    for (int row = 0; row < form.BreakCount; ++row) {
        const BreakFieldRecord &fields = form.Breaks[row];
        if (!form.Sections[fields.SectionIndex].InUse) return "a break row has no section";
        for (const int field : {int{fields.SortField}, int{fields.BreakField}})
            if (field < 0 || field >= form.FieldCount || !form.Fields[field].InUse)
                return "a break row names field row " + std::to_string(field);
    }
    return "";
}

std::string FaultOfItems(const Session *session) {
    const FormState &form = session->form;
    for (int row = 0; row < form.TotalItems; ++row) {
        const ItemRecord &item = form.Items[row];
        if (item.ItemType == ITEM_FIELD &&
            (item.FieldIndex < 0 || item.FieldIndex >= form.FieldCount ||
             !form.Fields[item.FieldIndex].InUse))
            return "item " + std::to_string(row) + " shows field row " +
                   std::to_string(item.FieldIndex);
        if (item.FontIndex < 0 || item.FontIndex >= MAX_FONTS)
            return "item " + std::to_string(row) + " has a font row out of range";
    }
    if (form.SelectedItem < -1 || form.SelectedItem >= form.TotalItems)
        return "row " + std::to_string(form.SelectedItem) + " is selected";
    return "";
}

} // namespace

std::string FaultOfForm(Session *session) {
    for (const std::string &fault : {WhatIsWrong(session), FaultOfItems(session),
                                     FaultOfBreaks(session), FaultOfExpressions(session)})
        if (!fault.empty()) return fault;
    return "";
}
