// Form files for tests of reading and writing: a form that has something of everything, where its
// blocks stand, and a session that reads and saves.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/form_builder.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

// Sections with items of every kind, all kinds of fields, a free row full of rubbish, a break, a
// user field and two fonts.
struct FullForm : FormBuilder {
    FullForm();
    int shared; // row of a constant that one calculation, the filters and a user field share
};

// A picture row as a form file holds it: an 8-bit bitmap of 4 by 2 pixels.
std::string PictureRow();
// A form's bytes with one more font row.
std::string WithFontRow(std::string bytes, const std::string &row);
// A form's bytes in the shape of version 0 or 1, which knew one detail section alone.
std::string InOldVersion(const std::string &bytes, int version);

// Where the blocks of a form file of version 4 begin.
struct FormBlocks {
    explicit FormBlocks(const std::string &bytes);
    size_t items, fields, breaks, sections, users, marker, fonts;
};

// A record inside a form's bytes.
template <typename Record> Record RecordAt(const std::string &bytes, size_t place) {
    Record record;
    bytes.copy(reinterpret_cast<char *>(&record), sizeof record, place);
    return record;
}
template <typename Record> void PutRecord(std::string *bytes, size_t place, const Record &record) {
    bytes->replace(place, sizeof record, reinterpret_cast<const char *>(&record), sizeof record);
}

constexpr int READ_DONE = 0; // otherwise one of the next two, or the code of a fatal error
constexpr int READ_REFUSED = -1;
constexpr int READ_UNOPENED = -2;

// A designer's session without window and printer, and a folder. The host's blocks are empty.
class FormFiles : public testing::Test {
protected:
    FormFiles();
    ~FormFiles() override;

    // Writes a file; without a name each has its own, since the last one read is still locked.
    std::string Put(const std::string &bytes, std::string name = "");
    int Read(const std::string &path);
    int ReadBytes(const std::string &bytes) { return Read(Put(bytes)); }
    // FrSave: its result, or the code of a fatal error as a negative number.
    int Save(const std::string &path);
    std::string SavedPath() const { return buffer_; } // what the last save left in its buffer
    void ExpectBox(const char *text, const char *title);

    BareSession session;
    MessageBoxes boxes;
    TemporaryFolder folder;

private:
    char buffer_[260] = "";
    int files_ = 0;
};
