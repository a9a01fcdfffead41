// Sessions with a real printer and screen, on forms in files.
#pragma once

#include "tests/support/form_files.h"
#include "tests/support/host_window.h"

// Starts one session at a time, drawing on the host's window. The host's blocks are empty at first.
class FormSession : public testing::Test {
protected:
    FormSession();
    ~FormSession() override;

    // The code of CreateFormWindow for a designer ('F') or a report ('R') on this path.
    int Start(const std::string &path, int kind = tessarine::KIND_DESIGNER);
    int StartOn(const FormBuilder &form, int kind = tessarine::KIND_DESIGNER);
    // Another form in the session that stands: 1, 0 or the code of a fatal error.
    int Open(const std::string &path);
    std::string Save(const std::string &name); // the file's bytes
    void End();
    std::string Put(const std::string &bytes);

    Session *session = nullptr;
    HostWindow host;
    MessageBoxes boxes;
    TemporaryFolder folder;
    uint32_t edit_allowed = 77;

private:
    int files_ = 0;
};
