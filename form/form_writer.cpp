#include "form/form_writer.h"

#include <cstring>

#include "form/file_dialog.h"
#include "form/font_rows.h"
#include "form/form_blocks.h"
#include "form/form_check.h"
#include "form/form_lock.h"
#include "form/modified.h"
#include "frame/fatal_error.h"
#include "frame/files.h"
#include "frame/host_data.h"
#include "frame/message_box.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr size_t PATH_SIZE = sizeof(FormParams::FormFile);
constexpr const char *FORM_FILTER = "Tessarine+ Files(*.FP)|*.FP|";

enum class Save { Done, Silent, Recover };

Save Fail(const Session *session, const char *text, const char *title = "") {
    ShowSessionBox(session, text, title);
    return Save::Recover;
}

bool IsReadOnly() { return host_data.EditAllowed && !*host_data.EditAllowed; }

// A point among the last five characters makes the name complete.
void AddFormEnding(char *path) {
    const int length = static_cast<int>(std::strlen(path));
    for (int index = length - 1; index >= 0 && index >= length - 5; --index) {
        if (path[index] == '.') return;
        if (path[index] == '\\') break;
    }
    if (static_cast<size_t>(length) + 4 <= PATH_SIZE) std::strcat(path, ".FP");
}

void BackupName(const char *path, char (&backup)[PATH_SIZE + 4]) {
    CopyText(path, backup, PATH_SIZE);
    const int length = static_cast<int>(std::strlen(backup));
    for (int index = length - 1; index >= 0 && index >= length - 4; --index) {
        if (backup[index] == '\\') break;
        if (backup[index] != '.') continue;
        backup[index] = 0;
        break;
    }
    std::strcat(backup, ".BP");
}

enum class Before { NONE, RENAMED, COPIED, HELD };

// The form as it was stays beside it while it is written. The session's own lock keeps it from
// being renamed: then a copy does.
Before KeepBefore(const char *path, const char *backup) {
    if (!FileStands(path)) return Before::NONE;
    DeleteFileA(backup);
    if (MoveFileA(path, backup)) return Before::RENAMED;
    return CopyFileA(path, backup, FALSE) ? Before::COPIED : Before::HELD;
}

bool HoldsLockOn(const Session *session, const char *path) {
    return session->form.FormLock != INVALID_HANDLE_VALUE &&
           !lstrcmpiA(session->form.LockedPath, path);
}

bool TakeLock(Session *session, const char *path) {
    session->form.FormLock = OpenToKeep(path);
    CopyText(path, session->form.LockedPath, sizeof session->form.LockedPath);
    return session->form.FormLock != INVALID_HANDLE_VALUE;
}

Save OpenOutput(Session *session, const char *path) {
    FormState &form = session->form;
    if (!FileStands(path)) {
        const HANDLE made = MakeNew(path);
        if (made == INVALID_HANDLE_VALUE) return Fail(session, "Error creating the output file.");
        FlushFileBuffers(made);
        CloseHandle(made);
        ReleaseLock(session);
    }
    if (!HoldsLockOn(session, path)) { // that on another file would take the form there
        ReleaseLock(session);
        if (!TakeLock(session, path)) return Fail(session, "Error Opening the Output File");
    } else {
        SetFilePointer(form.FormLock, 0, nullptr, FILE_BEGIN);
    }
    return Save::Done;
}

void PrepareHeader(Session *session, const char *path) {
    FormState &form = session->form;
    FormHeader &header = form.Header;
    header.Signature = SIGNATURE_FORM;
    RepStrTrim(header.ReportName);
    if (!*header.ReportName) CopyText(path, header.ReportName, sizeof header.ReportName);
    header.ItemCount = static_cast<uint16_t>(form.TotalItems);
    header.FieldCount = static_cast<uint16_t>(form.FieldCount);
    header.BreakCount = static_cast<uint16_t>(form.BreakCount);
    header.FontCount = static_cast<uint16_t>(form.FontCount);
    header.FormVersion = FORM_VERSION;
    const PrinterModeRecord &mode = header.PrinterMode;
    const int16_t again[5] = {mode.Orientation, mode.PaperSize, mode.PaperLength, mode.PaperWidth,
                              mode.PrintQuality};
    std::memcpy(header.PrinterModeAgain, again, sizeof again);
    if (host_data.HostWordPtr && host_data.HostRightPtr && *host_data.HostRightPtr == 1)
        header.HostWord = static_cast<uint16_t>(*host_data.HostWordPtr);
}

Save WriteTables(Session *session, HANDLE file) {
    const FormState &form = session->form;
    DWORD moved = 0;
    if (!WriteFile(file, &form.Header, sizeof form.Header, &moved, nullptr) ||
        moved != sizeof form.Header)
        return Fail(session, "Error writing to output file");
    if (!WriteBlock(file, form.Items, form.Header.ItemCount * sizeof(ItemRecord)))
        return Fail(session, "Error writing to output file!");
    if (!WriteBlock(file, form.Fields, form.Header.FieldCount * sizeof(FieldRecord)) ||
        !WriteBlock(file, form.Breaks, form.Header.BreakCount * sizeof(BreakFieldRecord)) ||
        !WriteBlock(file, form.Sections, sizeof form.Sections) ||
        !WriteBlock(file, form.UserFields, sizeof form.UserFields))
        return Fail(session, "Error Writing the field information!");
    return WriteBlock(file, &form.FontMarker, sizeof form.FontMarker) ? Save::Done : Save::Silent;
}

Save WriteForm(Session *session, const char *path) {
    if (const Save opened = OpenOutput(session, path); opened != Save::Done) return opened;
    SetCursor(session->device.WaitCursor);
    PrepareHeader(session, path);
    const HANDLE file = session->form.FormLock;
    if (const Save written = WriteTables(session, file); written != Save::Done) return written;
    switch (WriteFontRows(session, file)) {
    case FontWrite::Silent: return Save::Silent;
    case FontWrite::NoMemory: return Fail(session, "Ran Out of Memory", "File Save Incomplete!");
    case FontWrite::Done: break;
    }
    SetModified(session, 0);
    if (session->SessionKind == KIND_DESIGNER) SetWindowTextA(session->Window, path);
    return Save::Done;
}

} // namespace

int FrSave(Session *session, char *path) {
    if (IsReadOnly()) {
        ShowSessionBox(session, "Read-Only form cannot be saved");
        return 0;
    }
    if (!TablesAgree(session) || !UserFieldsFit(session)) {
        ShowBox(session->Window, "The form contradicts itself and can't be saved.");
        return 0;
    }
    if (!*path && (!AskFileName(session, path, FORM_FILTER, "Save", true) || !*path)) return 0;
    AddFormEnding(path);
    char backup[PATH_SIZE + 4];
    BackupName(path, backup);
    const Before before = KeepBefore(path, backup);
    if (before == Before::HELD && HoldsLockOn(session, path)) {
        ShowSessionBox(session, "There is no room for a backup beside the form. Make room, or save "
                                "the form elsewhere.");
        return 0;
    }
    UpperText(path);
    const HCURSOR old_cursor = GetCursor();
    const Save outcome = WriteForm(session, path);
    if (outcome == Save::Done && before == Before::COPIED) DeleteFileA(backup);
    ReleaseLock(session);
    if (outcome == Save::Recover) {
        MoveFileA(backup, path);
        if (!TakeLock(session, path))
            FatalError(session, "Could Not Re-Open the File.", CODE_REOPEN);
        ReleaseLock(session);
    }
    TakeLock(session, path);
    SetCursor(old_cursor);
    return 1;
}

int SaveAs(Session *session, char *path) {
    if (IsReadOnly()) {
        ShowSessionBox(session, "Read-Only form cannot be saved");
        return 0;
    }
    UpperText(path);
    FormHeader &header = session->form.Header;
    if (!std::strcmp(header.ReportName, path)) header.ReportName[0] = 0;
    char chosen[PATH_SIZE];
    CopyText(path, chosen, sizeof chosen);
    if (!AskFileName(session, chosen, FORM_FILTER, "Save As", true)) return 0;
    CopyText(chosen, path, PATH_SIZE);
    CopyText(chosen, session->FormBlock.FormFile, sizeof session->FormBlock.FormFile);
    return FrSave(session, path);
}

} // namespace tessarine
