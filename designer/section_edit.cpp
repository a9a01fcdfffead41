#include "designer/section_edit.h"

#include <cstdio>

#include "designer/canvas_paint.h"
#include "designer/cell_edit.h"
#include "designer/dialogs/list_dialogs.h"
#include "designer/item_table.h"
#include "designer/properties.h"
#include "designer/section_bars.h"
#include "designer/section_fields.h"
#include "designer/section_rules.h"
#include "designer/selection.h"
#include "device/paper.h"
#include "form/defaults.h"
#include "form/field_table.h"
#include "form/host_field.h"
#include "form/modified.h"
#include "form/sections.h"
#include "frame/dialogs.h"
#include "frame/host_data.h"
#include "frame/message_box.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int NO_SECTION = -1;
constexpr int NAME_SIZE = 100;
constexpr int MODE_FILTER = 0;
constexpr uint32_t PAGES_LABEL = 11; // of the host's sheet
constexpr uint32_t PAGES_SECTION = 15;
constexpr uint32_t PAGES_SORT = 48;

int SelectedSection(const Session *session) {
    const ItemRecord *item = Selected(session);
    return item ? item->SectionIndex : NO_SECTION;
}

bool SortingAllowed() { return !host_data.SortAllowedPtr || *host_data.SortAllowedPtr; }

// The row that the user chose, or NO_SECTION.
int ChooseSection(Session *session) {
    const char *names[MAX_SECTIONS + 1] = {};
    int rows[MAX_SECTIONS];
    int count = 0;
    for (int section = 0; section < MAX_SECTIONS; ++section) {
        if (!MayAdd(session->form, section, SortingAllowed())) continue;
        names[count] = session->form.SectionNames[section];
        rows[count++] = section;
    }
    const INT_PTR place =
        RunDialog(session, "NewSecParam", NewSecParam, reinterpret_cast<LPARAM>(names));
    return place >= 0 && place < count ? rows[place] : NO_SECTION;
}

// The form as it stands takes the section.
bool CanTake(const Session *session, int section) {
    return session->State != STATE_ENDING && HasRoomForSection(session) &&
           MayAdd(session->form, section, true);
}

bool AskSortField(Session *session, int section, const char *name, FieldRecord *record) {
    const int level = section - 1; // from 1
    InitField(session, record);
    record->SummarySection = static_cast<int16_t>(section);
    if (!name) return PickHostField(session, session->Window, record, level);
    CopyText(name, record->FieldName, NAME_SIZE);
    return CheckHostField(session, session->Window, record, level);
}

// The field's row, or NO_SLOT after a message.
int StoreField(Session *session, const FieldRecord &record) {
    const int slot = NewFieldSlot(session);
    if (slot == NO_SLOT)
        ShowSessionBox(session, "Ran out of field table!");
    else
        session->form.Fields[slot] = record;
    return slot;
}

// At first a section sorts and breaks by two equal fields.
bool AddBreak(Session *session, int section, const FieldRecord &record) {
    const int sort_field = StoreField(session, record);
    if (sort_field == NO_SLOT) return false;
    const int break_field = StoreField(session, record);
    if (break_field == NO_SLOT) return false;
    session->form.Breaks[session->form.BreakCount++] = {static_cast<int16_t>(sort_field),
                                                        static_cast<int16_t>(break_field),
                                                        static_cast<int16_t>(section)};
    return true;
}

// In the middle of the view.
void SelectBar(Session *session, int row) {
    const ItemRecord &bar = session->form.Items[row];
    session->form.SelectedItem = row;
    session->view.OriginY = bar.y - (session->view.ViewHeight - bar.height) / 2;
}

// The fields of a sort header are had before anything changes.
bool Prepare(Session *session, int section, const char *name) {
    if (!CanTake(session, section)) return false;
    if (!IsSortHeader(section)) return true;
    FieldRecord record;
    return AskSortField(session, section, name, &record) && CanTake(session, section) &&
           AddBreak(session, section, record);
}

// Under a box or a host's routine the form may have changed, or have been closed.
bool MayStillGo(const Session *session, int section) {
    return session->State != STATE_ENDING && session->form.Sections[section].InUse &&
           !WhyItStays(session->form, section);
}

bool Confirmed(Session *session, int section) {
    char question[40];
    std::snprintf(question, sizeof question, "Delete%s?", session->form.SectionNames[section]);
    return ShowSessionBox(session, question, "Confirmation", MB_YESNO) == IDYES &&
           MayStillGo(session, section);
}

// What the host changed may change the number of records across.
void FitBar(Session *session, int section) {
    const SectionRecord &record = session->form.Sections[section];
    if (!IsDetail(section) || !record.InUse) return;
    session->form.Items[record.BarItem].width = static_cast<int16_t>(BarWidth(session, section));
}

} // namespace

int AddNewSection(Session *session, int byHost, int sectionRow, const char *fieldName) {
    if (session->LabelMode) return 1;
    if (session->form.TotalItems >= MAX_ITEMS) {
        ShowSessionBox(session, "Item Table Full!");
        return 1;
    }
    if (Selected(session)) Deselect(session);
    if (session->State == STATE_ENDING) return 0;
    const int section = byHost ? sectionRow : ChooseSection(session);
    const char *name = fieldName ? fieldName : "";
    if (!Prepare(session, section, byHost ? name : nullptr)) return 0;
    const int bar = InsertSection(session, section);
    SelectBar(session, bar);
    SetModified(session, 1);
    if (!byHost) RepaintCanvas(session);
    return 1;
}

int DeleteSection(Session *session, int noConfirm) {
    const int section = SelectedSection(session);
    if (session->LabelMode || section == NO_SECTION) return 0;
    if (const char *text = WhyItStays(session->form, section)) {
        ShowSessionBox(session, text);
        return 0;
    }
    if (!noConfirm && !Confirmed(session, section)) return 0;
    SetModified(session, 1); // first, while the host still sees a form that agrees with itself
    if (!MayStillGo(session, section) || !RemoveSection(session, section)) return 0;
    session->form.SelectedItem = NO_ROW;
    RepaintCanvas(session);
    return 1;
}

void EditSection(Session *session) {
    const int section = SelectedSection(session);
    if (section == NO_SECTION) return;
    session->dialog.DialogRow = section;
    uint32_t pages = session->LabelMode ? PAGES_LABEL : PAGES_SECTION;
    if (IsSortHeader(section) && FindBreak(session, section) != NO_ROW) pages += PAGES_SORT;
    const int changed = AskHostForProperties(session, pages);
    if (session->State == STATE_ENDING) return;
    if (!session->LabelMode) FitBar(session, section);
    RepaintCanvas(session);
    if (changed) SetModified(session, 1);
}

void EditSectionFilter(Session *session) {
    const int section = SelectedSection(session);
    if (section == NO_SECTION) return;
    SectionRecord &record = session->form.Sections[section];
    EditCells(session, record.SectionFilter, record.SectionFilter, "Section Selection Criteria",
              MODE_FILTER);
    if (record.InUse || session->State == STATE_ENDING) return;
    ReleaseSymbols(session, record.SectionFilter); // the section went under the dialog
    record.SectionFilter[0] = CELL_END;
}

void EditReportFilter(Session *session) {
    FormHeader &header = session->form.Header;
    if (EditCells(session, header.ReportFilter, header.ReportFilter, "Report Filter",
                  MODE_FILTER) == CELLS_KEPT)
        return;
    header.FormFlags &= static_cast<uint16_t>(~FORM_HAS_FILTER);
    if (header.ReportFilter[0] != CELL_END) header.FormFlags |= FORM_HAS_FILTER;
    SetModified(session, 1);
}

} // namespace tessarine
