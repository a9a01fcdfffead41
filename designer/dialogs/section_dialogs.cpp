#include "designer/dialogs/section_dialogs.h"

#include <cstdio>

#include "commands.h"
#include "form/host_field.h"
#include "form/modified.h"
#include "form/sections.h"
#include "frame/dialog_controls.h"
#include "frame/dialogs.h"
#include "frame/message_box.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int SORT_HELP = 3011;
constexpr int BREAK_HELP = 3012;
constexpr int SECTION_HELP = 3013;
constexpr int CALCULATION_WANTED = 2;
constexpr int LONGEST_NAME = 99; // characters
constexpr int NO_SECTION = -1;
constexpr int NO_LEVEL = 0;

// ---- the field that a section sorts or breaks by -----------------------------------------------

// The section whose field stands in DialogRow.
int SectionOfField(const Session *session, int16_t BreakFieldRecord::*field) {
    for (int row = 0; row < session->form.BreakCount; ++row)
        if (session->form.Breaks[row].*field == session->dialog.DialogRow)
            return session->form.Breaks[row].SectionIndex;
    return NO_SECTION;
}

template <int16_t BreakFieldRecord::*Field> bool FieldStands(const Session *session) {
    return IsSortHeader(SectionOfField(session, Field));
}

int SortLevel(const Session *session) {
    return SectionOfField(session, &BreakFieldRecord::SortField) - 1;
}

void ShowTitle(HWND dialog, const Session *session, const char *format, int section) {
    char title[100];
    std::snprintf(title, sizeof title, format, session->form.SectionNames[section]);
    SetWindowTextA(dialog, title);
}

void ShowField(HWND dialog, const Session *session) {
    LimitTextItem(dialog, TEXT_INPUT, LONGEST_NAME);
    SetDlgItemTextA(dialog, TEXT_INPUT, session->dialog.EditField.FieldName);
}

void Pick(HWND dialog, Session *session, int level) {
    if (PickHostField(session, dialog, &session->dialog.EditField, level))
        SetDlgItemTextA(dialog, TEXT_INPUT, session->dialog.EditField.FieldName);
}

// What was typed goes to the field table if the host knows it.
template <int16_t BreakFieldRecord::*Field>
void TakeField(HWND dialog, Session *session, int level, const char *refusal) {
    FieldRecord field = session->dialog.EditField;
    char name[LONGEST_NAME + 1];
    ReadTextItem(dialog, TEXT_INPUT, name);
    CopyText(UpperText(name), field.FieldName, sizeof field.FieldName);
    if (!CheckHostField(session, dialog, &field, level)) {
        ShowBox(dialog, refusal);
        SetFocus(GetDlgItem(dialog, TEXT_INPUT));
        return;
    }
    if (!FieldStands<Field>(session)) { // the host's routine has taken the row away
        EndDialog(dialog, 0);
        return;
    }
    session->dialog.EditField = field;
    session->form.Fields[session->dialog.DialogRow] = field;
    EndDialog(dialog, 1);
    SetModified(session, 1);
}

bool OpenSort(HWND dialog, Session *session, LPARAM) {
    session->dialog.EditField = session->form.Fields[session->dialog.DialogRow];
    ShowTitle(dialog, session, "Sort Field for Section: %s",
              SectionOfField(session, &BreakFieldRecord::SortField));
    ShowField(dialog, session);
    return true;
}

void PickSort(HWND dialog, Session *session) { Pick(dialog, session, SortLevel(session)); }
void TakeSort(HWND dialog, Session *session) {
    TakeField<&BreakFieldRecord::SortField>(dialog, session, SortLevel(session),
                                            "Invalid sort field.");
}

bool OpenBreak(HWND dialog, Session *session, LPARAM) {
    EndText(session->dialog.EditField.FieldName);
    ShowTitle(dialog, session, "Break Field for Section: %s",
              SectionOfField(session, &BreakFieldRecord::BreakField));
    ShowField(dialog, session);
    return true;
}

void PickBreak(HWND dialog, Session *session) { Pick(dialog, session, NO_LEVEL); }
void TakeBreak(HWND dialog, Session *session) {
    TakeField<&BreakFieldRecord::BreakField>(dialog, session, NO_LEVEL, "Invalid break rield.");
}
void WantCalculation(HWND dialog, Session *session) {
    session->dialog.EditField.FieldName[0] = 0;
    EndDialog(dialog, CALCULATION_WANTED);
}

constexpr ControlRow sort_controls[] = {{IDOK, TakeSort}, {PICK_FIELD, PickSort}};
constexpr Dialog sort_dialog{SORT_HELP, OpenSort, sort_controls, 0,
                             FieldStands<&BreakFieldRecord::SortField>};
constexpr ControlRow break_controls[] = {
    {IDOK, TakeBreak}, {PICK_FIELD, PickBreak}, {BREAK_ON_CALCULATION, WantCalculation}};
constexpr Dialog break_dialog{BREAK_HELP, OpenBreak, break_controls, 0,
                              FieldStands<&BreakFieldRecord::BreakField>};

// ---- the parameters of a section ---------------------------------------------------------------

constexpr ValueRow section_flags[] = {
    {SECTION_PAGE_BEFORE, SECTION_ADVANCE_BEFORE},   {SECTION_PAGE_AFTER, SECTION_ADVANCE_AFTER},
    {SECTION_CLOSE_BEFORE, SECTION_COMPRESS_BEFORE}, {SECTION_CLOSE_AFTER, SECTION_COMPRESS_AFTER},
    {SECTION_TITLES_AGAIN, SECTION_REPRINT},         {SECTION_PAGE_FROM_ONE, SECTION_RESET_PAGE},
};
constexpr int of_sort_headers[] = {SECTION_TITLES_AGAIN, SECTION_PAGE_FROM_ONE};
constexpr int of_details[] = {SECTION_ACROSS};

bool SectionStands(const Session *session) {
    return session->dialog.DialogRow >= 0 && session->dialog.DialogRow < MAX_SECTIONS;
}

bool OpenSection(HWND dialog, Session *session, LPARAM) {
    const int row = session->dialog.DialogRow;
    const SectionRecord &section = session->form.Sections[row];
    ShowTitle(dialog, session, "%s", row);
    ShowBits(dialog, section_flags, section.SectionFlags);
    SetDlgItemInt(dialog, SECTION_ACROSS, static_cast<UINT>(section.Across), TRUE);
    EnableItems(dialog, of_sort_headers, IsSortHeader(row));
    EnableItems(dialog, of_details, IsDetail(row));
    return true;
}

void TakeSection(HWND dialog, Session *session) {
    const int row = session->dialog.DialogRow;
    SectionRecord &section = session->form.Sections[row];
    if (IsDetail(row)) {
        const int across = ReadWholeItem(dialog, SECTION_ACROSS);
        if (across < 1) {
            SetFocus(GetDlgItem(dialog, SECTION_ACROSS));
            return;
        }
        section.Across = static_cast<int16_t>(across);
    }
    section.SectionFlags =
        static_cast<uint16_t>(ReadBits(dialog, section_flags, section.SectionFlags));
    EndDialog(dialog, 1);
    SetModified(session, 1);
}

constexpr ControlRow section_controls[] = {{IDOK, TakeSection}};
constexpr Dialog section_dialog{SECTION_HELP, OpenSection, section_controls, 0, SectionStands};

} // namespace

INT_PTR CALLBACK SecSortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(sort_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK SecBreakParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(break_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK EditSecParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(section_dialog, dialog, message, wParam, lParam);
}

} // namespace tessarine
