// The exported functions of the designer, behind the same boundary as the others.
#include "tessarine.h"

#include "designer/dialogs/expression_dialog.h"
#include "designer/dialogs/item_dialogs.h"
#include "designer/dialogs/list_dialogs.h"
#include "designer/dialogs/section_dialogs.h"
#include "designer/dialogs/text_dialogs.h"
#include "designer/field_items.h"
#include "designer/focus_rect.h"
#include "designer/item_font.h"
#include "designer/modify_expression.h"
#include "designer/new_items.h"
#include "designer/open.h"
#include "designer/resize.h"
#include "designer/section_edit.h"
#include "designer/section_fields.h"
#include "designer/selection.h"
#include "designer/window.h"
#include "dll/entry.h"
#include "form/sections.h"

using namespace tessarine::entry;

namespace {

bool IsSection(int32_t row) { return row >= 0 && row < MAX_SECTIONS; }
bool IsFontRow(int32_t row) { return row >= 0 && row < MAX_FONTS; }

// The session, unless what the host names isn't there.
Session *If(bool named, Session *session) { return named ? session : nullptr; }

bool IsItem(const Session *session, int32_t row) {
    return IsOpen(session) && row >= 0 && row < session->form.TotalItems;
}

// A host that doesn't ask the user names a section, and for a sort header its field.
bool NamesNewSection(int32_t byHost, int32_t row, const char *field) {
    return !byHost || (IsSection(row) && (field || !tessarine::IsSortHeader(row)));
}

} // namespace

extern "C" {

int32_t __stdcall form(FormParams *params) {
    return params ? tessarine::form(params) : int32_t{CODE_FILE};
}

int32_t __stdcall AddNewDataField(Session *session, const char *name, int32_t section, int32_t x,
                                  int32_t y, int32_t wrap) {
    return OnForm(With(session, {name}), -1,
                  [&] { return tessarine::AddNewDataField(session, name, section, x, y, wrap); });
}

int32_t __stdcall AddNewCalcField(Session *session, const char *text, int32_t section,
                                  const char *description, int32_t x, int32_t y) {
    return OnForm(With(session, {text, description}), -1, [&] {
        return tessarine::AddNewCalcField(session, text, section, description, x, y);
    });
}

int32_t __stdcall AddNewSysField(Session *session, int32_t index, int32_t section, int32_t x,
                                 int32_t y) {
    return OnForm(session, -1,
                  [&] { return tessarine::AddNewSysField(session, index, section, x, y); });
}

int32_t __stdcall FrFonts(Session *session, const LOGFONTA *font) {
    return OnForm(session, 0, [&] { return tessarine::FrFonts(session, font); });
}

int32_t __stdcall AddNewLabelItem(Session *session, const char *text, int32_t section, int32_t x,
                                  int32_t y, int32_t font) {
    const bool named = text && IsSection(section) && IsFontRow(font);
    return OnForm(If(named, session), -1,
                  [&] { return tessarine::AddNewLabelItem(session, text, section, x, y, font); });
}

int32_t __stdcall AddNewLineItem(Session *session, int32_t section, int32_t angle,
                                 const RECT *rectangle, int32_t width) {
    return OnForm(If(rectangle && IsSection(section), session), -1, [&] {
        return tessarine::AddNewLineItem(session, section, angle, *rectangle, width);
    });
}

int32_t __stdcall AddNewSection(Session *session, int32_t byHost, int32_t section,
                                const char *fieldName) {
    return OnForm(If(NamesNewSection(byHost, section, fieldName), session), 0,
                  [&] { return tessarine::AddNewSection(session, byHost, section, fieldName); });
}

int32_t __stdcall DeleteSection(Session *session, int32_t noConfirm) {
    return OnForm(session, 0, [&] { return tessarine::DeleteSection(session, noConfirm); });
}

int32_t __stdcall EditSectionBreak(Session *session) {
    return OnForm(session, 0, [&] { return tessarine::EditSectionBreak(session); });
}

int32_t __stdcall SelectItem(Session *session, int32_t row) {
    return OnForm(If(IsItem(session, row), session), 0,
                  [&] { return tessarine::SelectItem(session, row); });
}

int32_t __stdcall SizeItem(Session *session) {
    return OnForm(session, 0, [&] { return tessarine::SizeItem(session); });
}

int32_t __stdcall SizeSection(Session *session) {
    return OnForm(session, 0, [&] { return tessarine::SizeSection(session); });
}

int32_t __stdcall FrDrawFocusRect(Session *session, HDC device, const RECT *rectangle) {
    return OnForm(With(session, {device, rectangle}), 0,
                  [&] { return tessarine::FrDrawFocusRect(session, device, *rectangle); });
}

int32_t __stdcall FrEraseFocusRect(Session *session, HDC device, const RECT *rectangle) {
    return OnForm(With(session, {device, rectangle}), 0,
                  [&] { return tessarine::FrEraseFocusRect(session, device, *rectangle); });
}

int32_t __stdcall UpdateLabelText(Session *session, char *text) {
    return OnForm(With(session, {text}), 0,
                  [&] { return tessarine::UpdateLabelText(session, text); });
}

int32_t __stdcall ModifyExp(Session *session, const uint16_t *cells, uint16_t *newCells,
                            const char *title, int32_t mode, HWND owner) {
    return OnForm(With(session, {cells, newCells}), -1, [&] {
        return tessarine::ModifyExp(session, cells, newCells, title, mode, owner);
    });
}

LRESULT __stdcall FrWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::FrWndProc(window, message, wParam, lParam);
}

LRESULT __stdcall FrEditSubclass(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::FrEditSubclass(window, message, wParam, lParam);
}

INT_PTR __stdcall NewSecParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::NewSecParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall SysParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::SysParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall FieldNameParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::FieldNameParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall ExpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::ExpParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall OpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::OpParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall FuctParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::FuctParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall DlgParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::DlgParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall CreateDlgParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::CreateDlgParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall ModifyDlgParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::ModifyDlgParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall SecSortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::SecSortParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall SecBreakParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::SecBreakParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall EditSecParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::EditSecParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall SumParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::SumParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall PosParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::PosParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall LineParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::LineParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall OutlineParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::OutlineParam(dialog, message, wParam, lParam);
}

} // extern "C"
