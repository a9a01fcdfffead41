// A form without a window, for tests of what the designer draws of it.
#pragma once

#include <string>
#include <vector>

#include "tests/support/metafile_records.h"
#include "tests/support/test_session.h"
#include "tests/support/text_calls.h"

#include <gtest/gtest.h>

// The session has pens and colours and a view of 1000 by 800 units at the form's corner; texts are
// 12 units a character and 40 a line. Rulers count inches.
class DesignPaint : public testing::Test {
protected:
    using Lines = std::vector<std::string>;

    DesignPaint();
    ~DesignPaint() override;

    // Takes the next row: an item of the type at a place, without background, outline and text.
    ItemRecord &Add(int type, const RECT &place);
    ItemRecord &AddText(int type, const RECT &place, const std::string &text);
    // A field with its item.
    FieldRecord &AddField(int type, const RECT &place, const std::string &sample);
    int LastRow() { return session->form.TotalItems - 1; }
    ItemRecord &Last() { return session->form.Items[LastRow()]; }
    // A font row of its own, 20 units a character and 30 high.
    int AddFont();
    int AddPicture(); // of 8 by 4 pixels

    Lines Painted(int row);
    Lines Painted() { return Painted(LastRow()); }
    Lines Texts() { return LinesWith(Painted(), {"text"}); }
    static Lines Strokes(const Lines &lines) { return LinesWith(lines, {"move", "line"}); }

    BareSession session;
    TextCalls calls;
};
