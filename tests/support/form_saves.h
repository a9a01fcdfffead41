// A session that saves the form that it has read.
#pragma once

#include <string>

#include "frame/host_data.h"
#include "frame/owned.h"
#include "tests/support/form_files.h"

class FormSaves : public FormFiles {
protected:
    FormSaves() { tessarine::host_data.EditAllowed = &edit_allowed; }

    std::string Load(const std::string &name = "FORM.FP") {
        const std::string path = Put(form.Bytes(), name);
        EXPECT_EQ(Read(path), READ_DONE);
        return path;
    }
    void DropLock() {
        tessarine::CloseFileHandle(session->form.FormLock);
        session->form.FormLock = INVALID_HANDLE_VALUE;
    }
    bool Stands(const std::string &name) const {
        return GetFileAttributesA(folder.Path(name).c_str()) != INVALID_FILE_ATTRIBUTES;
    }

    uint32_t edit_allowed = 1;
    FullForm form;
};
