#include "form/form_reader.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "form/defaults.h"
#include "form/field_table.h"
#include "form/font_rows.h"
#include "form/font_table.h"
#include "form/form_blocks.h"
#include "form/form_check.h"
#include "form/form_lock.h"
#include "form/versions.h"
#include "frame/fatal_error.h"
#include "frame/files.h"
#include "frame/host_data.h"
#include "frame/message_box.h"
#include "frame/owned.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr const char *NOT_A_FORM = "Not a valid form file";

bool IsFormSignature(uint16_t signature) {
    return signature == SIGNATURE_FORM || signature == SIGNATURE_FORM_OTHER;
}

void ShowSystemMessage(HWND owner, DWORD error, const char *title) {
    char text[512] = "";
    FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                   text, sizeof text, nullptr);
    ShowBox(owner, text, title);
}

bool MayWrite(const Session *session, const FormHeader &header) {
    if (session->SessionKind == KIND_REPORT) return false;
    if (header.HostWord == 0) return true;
    return header.HostWord == 1 && host_data.HostRightPtr && *host_data.HostRightPtr == 1;
}

void ReleaseLockOn(Session *session, const char *path) {
    const FormState &form = session->form;
    if (form.FormLock != INVALID_HANDLE_VALUE && !std::strcmp(form.LockedPath, path))
        ReleaseLock(session);
}

struct OpenedForm {
    HANDLE file = INVALID_HANDLE_VALUE;
    bool writable = false;  // as the header and the host's right say
    bool fell_back = false; // the open for writing failed
};

OpenedForm OpenFormFile(const Session *session, const char *path, const FormHeader &header) {
    OpenedForm opened;
    opened.writable = MayWrite(session, header);
    if (opened.writable) opened.file = OpenToKeep(path);
    if (opened.file != INVALID_HANDLE_VALUE) return opened;
    opened.fell_back = opened.writable;
    opened.file = OpenToRead(path);
    return opened;
}

void WarnOfReadOnly(const Session *session, const char *path) {
    const DWORD attributes = GetFileAttributesA(path);
    const char *text = "The selected report is being edited by another user. The report will be "
                       "opened in read-only mode.";
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY))
        text = "The selected file is marked read-only. It will be opened in read-only mode.";
    else if (session->LabelMode)
        text = "The selected label is being edited by another user. The label will be opened in "
               "read-only mode.";
    ShowSessionBox(session, text, "Warning");
}

void ReadHeader(Session *session, HANDLE file) {
    FormHeader *header = &session->form.Header;
    DWORD moved = 0;
    if (!ReadFile(file, header, sizeof *header, &moved, nullptr) || moved != sizeof *header ||
        !IsFormSignature(header->Signature) || !CountsFit(*header))
        FatalError(session, NOT_A_FORM, CODE_NOT_A_FORM);
}

void TellHost(const FormHeader &header, bool may_edit) {
    if (host_data.HostWordPtr)
        *host_data.HostWordPtr = static_cast<uint32_t>(static_cast<int16_t>(header.HostWord));
    if (host_data.EditAllowed) *host_data.EditAllowed = may_edit;
}

bool UsesFontRow(const ItemRecord &item) {
    return item.ItemType == ITEM_LABEL || item.ItemType == ITEM_FIELD ||
           item.ItemType == ITEM_PICTURE;
}

void ReadItems(Session *session, HANDLE file) {
    FormState &form = session->form;
    form.ReportHeight = 0;
    for (int row = 0; row < form.Header.ItemCount; ++row) {
        ItemRecord *item = &form.Items[row];
        if (!ReadBlock(file, item, sizeof *item))
            FatalError(session, "Error reading the item data", CODE_ITEMS);
        if (UsesFontRow(*item) && item->FontIndex >= 0 && item->FontIndex < MAX_FONTS)
            form.Fonts[item->FontIndex].InUse = 1;
        if (item->ItemType == ITEM_BAR) form.ReportHeight += item->height;
    }
    session->form.SelectedItem = 0;
}

void ReadUserFields(Session *session, HANDLE file) {
    FormState &form = session->form;
    if (!ReadBlock(file, form.UserFields, sizeof form.UserFields))
        FatalError(session, "User fields missing!", CODE_USER_FIELDS);
    if (!UserFieldsFit(session)) FatalError(session, NOT_A_FORM, CODE_NOT_A_FORM);
    form.UserFieldCount = static_cast<int32_t>(
        std::count_if(std::begin(form.UserFields), std::end(form.UserFields),
                      [](const UserFieldRecord &user) { return user.InUse != 0; }));
}

void ReadFonts(Session *session, HANDLE file) {
    uint8_t marker = 0;
    if (!ReadBlock(file, &marker, sizeof marker) || marker != session->form.FontMarker ||
        !ReadFontRows(session, file))
        ShowSessionBox(session, "Font Table Incomplete!");
}

// The rows count from the header, cut to what the table holds.
void TakeCounters(Session *session) {
    FormState &form = session->form;
    form.TotalItems = form.Header.ItemCount;
    form.FieldCount = form.Header.FieldCount;
    form.BreakCount = form.Header.BreakCount;
    form.FontCount = std::min<int>(form.Header.FontCount, MAX_FONTS);
}

void ReadTables(Session *session, HANDLE file) {
    ReadItems(session, file);
    ReadFields(session, file);
    FormState &form = session->form;
    if (!ReadBlock(file, form.Breaks, form.Header.BreakCount * sizeof(BreakFieldRecord)))
        FatalError(session, "Error reading the break fields", CODE_TABLES);
    ReadSections(session, file);
    TakeCounters(session);
    if (!TablesAgree(session)) FatalError(session, NOT_A_FORM, CODE_NOT_A_FORM);
    ReadUserFields(session, file);
    ReadFonts(session, file);
}

// Until the tables are whole and agree, the session has no form: rows of a half-read one name
// what isn't there.
class HalfReadForm {
public:
    explicit HalfReadForm(Session *session) : session_(session) {}
    HalfReadForm(const HalfReadForm &) = delete;
    HalfReadForm &operator=(const HalfReadForm &) = delete;
    ~HalfReadForm() {
        if (whole_) return;
        FormState &form = session_->form;
        form.TotalItems = form.FieldCount = form.BreakCount = form.UserFieldCount = 0;
        InitSections(session_);
        for (UserFieldRecord &user : form.UserFields) user.InUse = 0;
        session_->form.SelectedItem = -1;
    }
    void IsWhole() { whole_ = true; }

private:
    Session *session_;
    bool whole_ = false;
};

void KeepLock(Session *session, OwnedFile *file, const char *path) {
    FormState &form = session->form;
    ReleaseLock(session);
    form.FormLock = file->Leave();
    CopyText(path, form.LockedPath, sizeof form.LockedPath);
}

bool FitsSession(const Session *session, const FormHeader &header) {
    return (header.LabelType != 0) == (session->LabelMode != 0);
}

} // namespace

bool PeekFormHeader(Session *session, const char *path, FormHeader *header) {
    const OwnedFile file(OpenToRead(path));
    if (!file) {
        ShowSystemMessage(session->Window, GetLastError(), "Open");
        return false;
    }
    DWORD moved = 0;
    return ReadFile(file.Get(), header, sizeof *header, &moved, nullptr) &&
           moved == sizeof *header && IsFormSignature(header->Signature);
}

FormRead ReadFormFile(Session *session, char *path) {
    ReleaseLockOn(session, path);
    FormHeader header;
    if (!PeekFormHeader(session, path, &header)) return FormRead::Refused;
    session->form.Header.LabelType = header.LabelType;
    if (!FitsSession(session, header)) return FormRead::Refused;
    const OpenedForm opened = OpenFormFile(session, path, header);
    if (opened.file == INVALID_HANDLE_VALUE) {
        ShowSystemMessage(session->Window, GetLastError(), "Open");
        return FormRead::Unopened;
    }
    OwnedFile file(opened.file);
    if (opened.fell_back) WarnOfReadOnly(session, path);
    SetCursor(session->device.WaitCursor);
    for (int row = 1; row < MAX_FONTS; ++row)
        if (session->form.Fonts[row].InUse) ReleaseFontRow(session, row);
    HalfReadForm form(session);
    ReadHeader(session, file.Get());
    TellHost(session->form.Header, opened.writable && !opened.fell_back);
    ReadTables(session, file.Get());
    form.IsWhole();
    if (opened.writable) KeepLock(session, &file, path);
    return FormRead::Done;
}

void CountAllReferences(Session *session) {
    FormState &form = session->form;
    for (int row = 0; row < form.FieldCount; ++row) form.Fields[row].RefCount = 0;
    CountReferences(session, form.Header.ReportFilter);
    for (int row = 0; row < form.FieldCount; ++row) {
        const FieldRecord &field = form.Fields[row];
        if (field.InUse && field.FieldKind == FIELD_CALC)
            CountReferences(session, field.FieldTokens);
    }
    for (const SectionRecord &section : form.Sections)
        if (section.InUse) CountReferences(session, section.SectionFilter);
    for (const UserFieldRecord &user : form.UserFields)
        if (user.InUse) CountReferences(session, user.UserTokens);
}

} // namespace tessarine
