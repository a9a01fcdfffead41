// Sessions for tests.
#pragma once

#include <string>

#include "state/session.h"
#include "tests/support/form_rows.h"

// Makes rows in the tables of a session, in the order in which they come. A text has a value with
// room for its width.
class SessionForm : public FormRows {
public:
    explicit SessionForm(Session *session) : session_(session) {}

private:
    int BarHeight() const override { return session_->form.Header.BarHeight; }
    SectionRecord &SectionRow(int section) override { return session_->form.Sections[section]; }
    FieldRecord &FieldRow(int row) override { return session_->form.Fields[row]; }
    int AddField(const FieldRecord &field) override;
    ItemRecord &AddItem(const ItemRecord &item) override;
    void AddBreak(const BreakFieldRecord &row) override {
        session_->form.Breaks[session_->form.BreakCount++] = row;
    }

    Session *session_;
};

// A session with its built-in tables and its four fixed tables, without window, printer or form.
// It stands in the session table for as long as the object lives. Font row 0 is a font of
// constant width: every character 12 form units wide, 40 high.
class BareSession {
public:
    BareSession();
    ~BareSession();
    BareSession(const BareSession &) = delete;
    BareSession &operator=(const BareSession &) = delete;

    Session *operator->() { return session_; }
    operator Session *() { return session_; }

    // Takes the next field row: kind, name, type and width.
    int AddField(int kind, const std::string &name, int type, int width = 15) {
        return SessionForm(session_).Field(kind, name, type, width);
    }

private:
    Session *session_;
};

int OpenSessions(); // slots of the session table that are taken

// A folder of its own in the system's temporary folder, removed with all that is in it.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    std::string Path(const std::string &name) const { return path_ + "\\" + name; }
    const std::string &Root() const { return path_; }

private:
    std::string path_;
};

std::string ReadWholeFile(const std::string &path);
void WriteWholeFile(const std::string &path, const std::string &bytes);
