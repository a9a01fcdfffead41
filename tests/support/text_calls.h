// What is asked of the system's layout of text, which a metafile can't show since it measures
// nothing.
#pragma once

#include <string>
#include <vector>

// While one stands, DrawTextA and SelectClipRgn are logged, a line a call:
//   "measure 10,20,110,60 as 821"  "draw 10,20,110,60 as 821: text"  "clip 4,8,44,24"  "no clip"
// Text measures 40 a line in logical units, and drawing it leaves "text" records.
class TextCalls {
public:
    TextCalls();
    ~TextCalls();
    TextCalls(const TextCalls &) = delete;
    TextCalls &operator=(const TextCalls &) = delete;

    std::vector<std::string> Take(); // the lines so far, which are forgotten

private:
    void *draw_; // the true routines
    void *clip_;
};
