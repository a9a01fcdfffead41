#include "host/design/item_sheets.h"

#include <cstring>

namespace {

// What the library's dialogs take as their creation parameter.
struct DialogStart {
    Session *session;
    LPARAM extra;
};

constexpr uint32_t LINE_CODE = 259;
constexpr uint32_t SECTION_CODE = 15;
constexpr uint32_t LABEL_SECTION_CODE = 11;
constexpr uint32_t SORTED_CODES = 48;
constexpr uint32_t FIELD_BIT = 0x8000;
constexpr uint32_t CALC_BIT = 0x4000;
constexpr uint32_t LABEL_CODE = 41027; // has the field bit too

FormDesk &DeskOf(Session *session) { return reinterpret_cast<SessionHead *>(session)->Desk; }

INT_PTR Run(HWND owner, Session *session, const char *name, DLGPROC procedure, LPARAM extra = 0) {
    DialogStart start{session, extra};
    return DialogBoxParamA(GetModuleHandleA("tessarine.dll"), name, owner, procedure,
                           reinterpret_cast<LPARAM>(&start));
}

bool EditLine(HWND owner, Session *session) {
    return Run(owner, session, "LineParam", LineParam) == 1;
}

bool EditSection(HWND owner, Session *session) {
    return Run(owner, session, "EditSecParam", EditSecParam) == 1;
}

FieldRecord &SelectedField(Session *session) {
    const FormDesk &desk = DeskOf(session);
    return desk.Fields[desk.Items[*desk.SelectedItem].FieldIndex];
}

bool RenameCalculation(HWND owner, Session *session) {
    char *text = DeskOf(session).TextBuffer;
    lstrcpynA(text, SelectedField(session).FieldName, sizeof FieldRecord::FieldName);
    if (Run(owner, session, "FieldNameParam", FieldNameParam) != 1) return false;
    lstrcpynA(SelectedField(session).FieldName, text, sizeof FieldRecord::FieldName);
    return true;
}

// The dialog's result doesn't tell a cancelled choice from its first row.
bool chosen;
INT_PTR CALLBACK WatchedSumParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool ok = LOWORD(wParam) == IDOK || HIWORD(wParam) == LBN_DBLCLK;
    if (message == WM_COMMAND && ok) chosen = true;
    return SumParam(dialog, message, wParam, lParam);
}

bool ChooseSummary(HWND owner, Session *session) {
    chosen = false;
    const INT_PTR summary =
        Run(owner, session, "SumParam", WatchedSumParam, SelectedField(session).SummaryType);
    if (chosen) SelectedField(session).SummaryType = static_cast<int16_t>(summary);
    return chosen;
}

bool SumsUp(Session *session) {
    const FormDesk &desk = DeskOf(session);
    const FieldRecord &field = SelectedField(session);
    const bool number = field.ValueType == TYPE_NUMERIC || field.ValueType == TYPE_DOUBLE;
    return number && field.FieldKind != FIELD_SYSTEM &&
           desk.Items[*desk.SelectedItem].SectionIndex >= SECTION_SORT_FOOTER_9;
}

bool EditField(HWND owner, Session *session, bool calculation) {
    bool changed = calculation && RenameCalculation(owner, session);
    if (SumsUp(session)) return ChooseSummary(owner, session) || changed;
    if (!calculation)
        MessageBoxA(owner,
                    "Nothing is to be set for this field here. Its font, position, outline and "
                    "background are in the menu; a number in a footer has a way to be summed up.",
                    "Properties", MB_OK | MB_ICONINFORMATION);
    return changed;
}

} // namespace

bool OpenItemSheet(HWND designer, Session *session, uint32_t code) {
    const uint32_t section = code & ~SORTED_CODES;
    if (section == SECTION_CODE || section == LABEL_SECTION_CODE)
        return EditSection(designer, session);
    if (code == LINE_CODE) return EditLine(designer, session);
    if (code != LABEL_CODE && code & FIELD_BIT)
        return EditField(designer, session, code & CALC_BIT);
    MessageBeep(MB_OK); // a picture has nothing to set
    return false;
}
