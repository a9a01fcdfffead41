// A run in the middle of its records, for tests of composition: sections made by hand, real page
// recordings and a report file. What a page draws is read off its metafile.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/message_boxes.h"
#include "tests/support/metafile_records.h"
#include "tests/support/test_session.h"

class Composition : public testing::Test {
protected:
    // The body reaches from 100 to 1000 form units, sections begin at x 50. Font row 0 is that of
    // BareSession: 12 form units a character, 40 a line.
    Composition();
    ~Composition() override;

    // A section with its bar, 500 wide; the items that are added next belong to it.
    SectionRecord &Section(int section, int height, int flags = 0, int across = 1);
    ItemRecord &Item(int type, int x, int y, int width, int height);
    // A label at the top left of an item at 0, 0: its text marks where the section lands.
    ItemRecord &Marker(const std::string &text, int height = 40);
    ItemRecord &FieldItem(int x, int y, int width, int height, int field);
    // A section whose only item is a marker as high as the section.
    SectionRecord &Band(int section, int height, const std::string &text, int flags = 0);

    // The row of a field; texts have room for 1000 characters.
    int TextField(const std::string &value, int flags = 0);
    int NumberField(int32_t value);
    int CalcField(const std::vector<int> &cells);
    int Constant(int32_t value);
    void Break(int field, int header);
    void Filter(int section, const std::vector<int> &cells);
    FieldRecord &Field(int row) { return session->form.Fields[row]; }

    // Draws the last item that was added and gives the drawing since the last look.
    std::vector<std::string> DrawingOfLast();

    // The open recording as lines; it is then a fresh one.
    std::vector<std::string> Drawing();
    // Its markers, as "y text".
    std::vector<std::string> Marks();
    std::vector<std::string> PageMarks(int page); // of a finished page, from 0

    void StartFile(); // pages go to a report file

    // The code with which the routine unwinds; 0 when it returns.
    template <typename Routine> int CodeOf(Routine routine);

    BareSession session;
    MessageBoxes boxes;
    TemporaryFolder folder;
    tessarine::RunState &run;

private:
    static std::vector<std::string> MarksOf(const std::string &metafile);
    std::string Record(); // the bytes of the open recording, which a fresh one follows

    SessionForm rows_{session};
    std::vector<FieldRecord> input_;
    DEVMODEA mode_{};
    int section_ = 0;
};

int CodeOfUnwinding(Session *session, void (*routine)(void *), void *data);

template <typename Routine> int Composition::CodeOf(Routine routine) {
    return CodeOfUnwinding(
        session, [](void *data) { (*static_cast<Routine *>(data))(); }, &routine);
}
