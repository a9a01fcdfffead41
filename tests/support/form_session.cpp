#include "tests/support/form_session.h"

#include "form/form_writer.h"
#include "frame/boundary.h"
#include "frame/host_data.h"
#include "frame/session_table.h"
#include "frame/text.h"
#include "session/open_form.h"
#include "session/session_life.h"

using namespace tessarine;

FormSession::FormSession() {
    host_data = HostData{};
    host_data.EditAllowed = &edit_allowed;
}

FormSession::~FormSession() {
    End();
    host_data = HostData{};
    new_form_data = NewFormData{};
}

int FormSession::Start(const std::string &path, int kind) {
    End();
    EXPECT_EQ(OpenRunSession(&session), CODE_DONE);
    session->SessionKind = kind;
    session->ParentWindow = host.Get();
    session->OutputToFile = 1;
    CopyText(path.c_str(), session->CurrentFile, sizeof session->CurrentFile);
    return AtEntry(
        session, [&] { return CreateFormWindow(session, 0, 0, 0, 0, 0); },
        [&] { return session->ErrorCode; });
}

int FormSession::StartOn(const FormBuilder &form, int kind) {
    return Start(Put(form.Bytes()), kind);
}

int FormSession::Open(const std::string &path) {
    char buffer[260];
    CopyText(path.c_str(), buffer, sizeof buffer);
    return AtEntry(
        session, [&] { return OpenForm(session, buffer); }, [&] { return session->ErrorCode; });
}

std::string FormSession::Save(const std::string &name) {
    char path[260];
    CopyText(folder.Path(name).c_str(), path, sizeof path);
    EXPECT_EQ(FrSave(session, path), 1);
    return ReadWholeFile(path);
}

void FormSession::End() {
    if (!session) return;
    session->form.FormModified = 0;
    if (session->form.TablesAllocated) CloseSession(session);
    FreeSession(session);
    session = nullptr;
}

std::string FormSession::Put(const std::string &bytes) {
    const std::string path = folder.Path("FORM" + std::to_string(++files_) + ".FP");
    WriteWholeFile(path, bytes);
    return path;
}
