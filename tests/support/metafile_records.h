// The records of a Windows metafile, read off its bytes and checked for soundness.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "state/windows.h"

struct MetafileRecord {
    uint16_t function; // META_TEXTOUT and the like, 0 for the end
    std::string bytes; // the parameters

    int At(size_t word) const; // a parameter, signed; 0 behind the end
    uint32_t DoubleAt(size_t word) const;
};

// What a text record draws; clip and advances only when the record has them.
struct MetafileText {
    int x;
    int y;
    std::string text;
    bool clipped;
    RECT clip;
    std::vector<int> advances;
};

struct Metafile {
    std::vector<MetafileRecord> records; // the end record included
    std::string fault;                   // what is wrong with header, sizes or object numbers

    bool Sound() const { return fault.empty(); }
};

Metafile ReadMetafile(const std::string &bytes);
std::string BytesOfMetafile(HMETAFILE metafile);

bool IsText(const MetafileRecord &record);
MetafileText TextOf(const MetafileRecord &record);

// The drawing as lines of text, one a record: "text 10,20 abc clip 0,0,90,40 by 12,12,12",
// "move 1,2", "line 3,4", "select pen 0 3 0000FF", "delete pen 0 3 0000FF" and so on. Objects
// stand by what they are, so making them has no line of its own. A fault is the last line.
std::vector<std::string> DrawingOf(const std::string &bytes);
// What the routine draws on a recording of its own.
std::vector<std::string> DrawingBy(const std::function<void(HDC)> &draw);
// The lines that begin with one of the words.
std::vector<std::string> LinesWith(const std::vector<std::string> &lines,
                                   const std::vector<std::string> &words);
