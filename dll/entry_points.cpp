// The exported functions. Each is the room's routine of the same name behind the C boundary, at
// which a failure becomes a return value and past which no exception goes.
#include "tessarine.h"

#include "designer/designer_state.h"
#include "designer/rest.h"
#include "device/device_names.h"
#include "device/margins.h"
#include "device/paper.h"
#include "dll/entry.h"
#include "expr/symbols.h"
#include "expr/validate.h"
#include "form/defaults.h"
#include "form/field_sample.h"
#include "form/field_table.h"
#include "form/font_table.h"
#include "form/form_writer.h"
#include "form/label_measure.h"
#include "form/pictures.h"
#include "frame/colors.h"
#include "frame/dialogs.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "frame/text.h"
#include "output/device_choice.h"
#include "output/jump_dialog.h"
#include "output/page_printing.h"
#include "output/page_store.h"
#include "output/preview_window.h"
#include "output/print_job.h"
#include "output/progress_dialogs.h"
#include "output/saved_report.h"
#include "run/prompts.h"
#include "run/record_driver.h"
#include "run/run_end.h"
#include "run/set_up.h"
#include "session/new_form.h"

using namespace tessarine::entry;

namespace {

// What a host gives to measure: a row of the font table, and a text.
bool Measurable(const Session *session, const char *text, int32_t font) {
    return IsOpen(session) && text && font >= 0 && font < MAX_FONTS;
}

} // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    tessarine::frc_format = 1;
    if (reason == DLL_PROCESS_ATTACH) {
        tessarine::module_instance = instance;
        tessarine::session_table = {};
        tessarine::help_message = RegisterWindowMessageA(HELPMSGSTRINGA);
    }
    if (reason == DLL_PROCESS_DETACH) WEP(0);
    return TRUE;
}

int32_t __stdcall WEP(int32_t) { return 1; }

int32_t __stdcall RepInit(RepParams *params, int32_t feedMode, HGLOBAL devNames, HGLOBAL devMode) {
    return params ? tessarine::RepInit(params, feedMode, devNames, devMode) : int32_t{CODE_FILE};
}

int32_t __stdcall RepRec(int32_t sessionId, int32_t, uint32_t outline) {
    return tessarine::RepRec(sessionId, outline);
}

int32_t __stdcall RepExit(int32_t sessionId, int32_t fill, int32_t *pageCount) {
    return tessarine::RepExit(sessionId, fill, pageCount);
}

HMETAFILE __stdcall RepView(RepViewParams *block, int32_t *pageNumber, HGLOBAL devNames,
                            HGLOBAL devMode) {
    if (!block || !pageNumber) return nullptr;
    return tessarine::RepView(block, pageNumber, devNames, devMode);
}

Session *__stdcall GetSessionPointer(HWND window, int32_t slot) {
    return tessarine::GetSessionPointer(window, slot);
}

HWND __stdcall RepGetParent(HWND window, int32_t slot) {
    return tessarine::RepGetParent(window, slot);
}

int32_t __stdcall RepSetMsgCallback(HWND window, int32_t slot, MessageRoutine routine) {
    return tessarine::RepSetMsgCallback(window, slot, routine);
}

int32_t __stdcall SetCRepData(HostData *block) { return tessarine::SetCRepData(block); }
int32_t __stdcall RemoveCRepData(HostData *block) { return tessarine::RemoveCRepData(block); }
int32_t __stdcall SetNewFormData(const NewFormData *block) {
    return tessarine::SetNewFormData(block);
}

int32_t __stdcall InitVariables(Session *session) {
    return OnForm(session, 0, [&] {
        tessarine::ResetDesigner(session); // while the rows that the clipboard holds are known
        tessarine::InitVariables(session);
        return 1;
    });
}

int32_t __stdcall InitNewForm(Session *session) {
    return OnForm(session, 0, [&] {
        tessarine::RestDesigner(session);
        return tessarine::InitNewForm(session);
    });
}

int32_t __stdcall FrSave(Session *session, char *path) {
    return OnForm(With(session, {path}), 0, [&] { return tessarine::FrSave(session, path); });
}

int32_t __stdcall CreateFieldLabel(Session *session, int32_t field, char *buffer, int32_t width,
                                   int32_t font) {
    return OnSession(With(session, {buffer}), 0, [&] {
        return tessarine::CreateFieldLabel(session, field, buffer, width, font);
    });
}

int32_t __stdcall GetFieldSize(Session *session, int32_t field, int32_t font, int32_t *height,
                               int32_t *width) {
    return OnSession(With(session, {height, width}), 0,
                     [&] { return tessarine::GetFieldSize(session, field, font, height, width); });
}

int32_t __stdcall CreateDefaultBoldFont(Session *session) {
    return OnForm(session, 0, [&] { return tessarine::CreateDefaultBoldFont(session); });
}

int32_t __stdcall ValidateMargins(Session *session, int32_t showMessage) {
    return OnForm(session, 0, [&] { return tessarine::ValidateMargins(session, showMessage); });
}

int32_t __stdcall GetLabelLen(Session *session, const char *text, int32_t font) {
    return Measurable(session, text, font) ? tessarine::GetLabelLen(session->form.Fonts[font], text)
                                           : 0;
}

int32_t __stdcall GetLabelHeight(Session *session, const char *text, int32_t font) {
    return Measurable(session, text, font)
               ? tessarine::GetLabelHeight(session->form.Fonts[font], text)
               : 0;
}

int32_t __stdcall TruncateText(Session *session, char *text, int32_t width, int32_t font) {
    if (Measurable(session, text, font))
        tessarine::TruncateText(session->form.Fonts[font], text, width);
    return 1;
}

int32_t __stdcall GenerateSymbols(Session *session, const char *text, uint16_t *cells,
                                  int32_t *errorPosition, int32_t mode) {
    return OnForm(With(session, {text, cells, errorPosition}), 0, [&] {
        return tessarine::GenerateSymbols(session, text, cells, errorPosition, mode);
    });
}

int32_t __stdcall ValidateExp(Session *session, const uint16_t *cells, int32_t mode) {
    return OnForm(With(session, {cells}), 0,
                  [&] { return tessarine::ValidateExp(session, cells, mode); });
}

int32_t __stdcall ReleaseSymbols(Session *session, const uint16_t *cells) {
    return OnForm(With(session, {cells}), 1,
                  [&] { return tessarine::ReleaseSymbols(session, cells); });
}

int32_t __stdcall ReadRepLogbrush(const RepLogbrush *packed, LOGBRUSH *brush) {
    return packed && brush ? tessarine::ReadRepLogbrush(packed, brush) : 0;
}

int32_t __stdcall WriteRepLogbrush(const LOGBRUSH *brush, RepLogbrush *packed) {
    return packed && brush ? tessarine::WriteRepLogbrush(brush, packed) : 0;
}

uint32_t __stdcall EditColor(HWND owner, uint32_t color, int32_t fullOpen) {
    return tessarine::EditColor(owner, color, fullOpen);
}

HGLOBAL __stdcall GetDevNames(Session *session) {
    return OnSession(session, HGLOBAL{}, [&] { return tessarine::GetDevNames(session); });
}

HGLOBAL __stdcall GetDevMode(Session *session) {
    return OnSession(session, HGLOBAL{}, [&] { return tessarine::GetDevMode(session); });
}

int32_t __stdcall SetDevNames(Session *session, HGLOBAL handle) {
    return OnForm(session, 0, [&] { return tessarine::SetDevNames(session, handle); });
}

int32_t __stdcall SetDevMode(Session *session, HGLOBAL handle, int32_t takeAll) {
    return OnForm(session, 0, [&] { return tessarine::SetDevMode(session, handle, takeAll); });
}

int32_t __stdcall ProcessPrinterData(Session *session) {
    return OnForm(session, 0, [&] { return tessarine::ProcessPrinterData(session); });
}

HMETAFILE __stdcall ReadMetaFilePage(Session *session, int32_t pageIndex, const char *scratchPath,
                                     HMETAFILE oldHandle) {
    return OnSession(With(session, {scratchPath}), HMETAFILE{}, [&] {
        return tessarine::ReadMetaFilePage(session, pageIndex, scratchPath, oldHandle);
    });
}

void *__stdcall OurAlloc(uint32_t size) { return tessarine::OurAlloc(size); }
int32_t __stdcall OurFree(void *memory) { return tessarine::OurFree(memory); }
char *__stdcall RepStrTrim(char *text) { return text ? tessarine::RepStrTrim(text) : nullptr; }

LRESULT __stdcall RepWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::RepWndProc(window, message, wParam, lParam);
}

INT_PTR __stdcall DlgInputParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::DlgInputParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall DeviceParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::DeviceParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall JumpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::JumpParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall PrintParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::PrintParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall PrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::PrintAbortParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall ScrPrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::ScrPrintAbortParam(dialog, message, wParam, lParam);
}

INT_PTR __stdcall FilePrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return tessarine::FilePrintAbortParam(dialog, message, wParam, lParam);
}

BOOL __stdcall PrintProc(HDC device, int code) { return tessarine::PrintProc(device, code); }
BOOL __stdcall ScrPrintProc(HDC device, int code) { return tessarine::ScrPrintProc(device, code); }

} // extern "C"
