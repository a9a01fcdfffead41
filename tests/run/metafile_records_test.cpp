// The reader of metafiles that other tests rely on: what it calls sound, and what it doesn't.
#include "tests/support/metafile_records.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using Lines = std::vector<std::string>;

std::string SoundBytes() {
    const HDC recorder = CreateMetaFileA(nullptr);
    const HPEN pen = CreatePen(PS_DOT, 1, 0x0000FF);
    SelectObject(recorder, pen);
    MoveToEx(recorder, 1, -2, nullptr);
    LineTo(recorder, 3, 4);
    SelectObject(recorder, GetStockObject(BLACK_PEN));
    DeleteObject(pen);
    TextOutA(recorder, 5, 6, "abc", 3);
    const HMETAFILE metafile = CloseMetaFile(recorder);
    const std::string bytes = BytesOfMetafile(metafile);
    DeleteMetaFile(metafile);
    return bytes;
}

struct DamageRow {
    size_t offset;
    uint16_t word;
    const char *fault;
};

} // namespace

TEST(MetafileRecords, DrawingIsToldLineByLine) {
    EXPECT_EQ(DrawingOf(SoundBytes()),
              (Lines{"select pen 2 1 0000FF", "move 1,-2", "line 3,4", "select pen 0 0 000000",
                     "delete pen 2 1 0000FF", "text 5,6 abc"}));
}

TEST(MetafileRecords, LinesAreChosenByTheirFirstWords) {
    EXPECT_EQ(LinesWith(DrawingOf(SoundBytes()), {"move", "text"}),
              (Lines{"move 1,-2", "text 5,6 abc"}));
}

TEST(MetafileRecords, DamageIsFound) {
    constexpr DamageRow rows[] = {
        {2, 8, "there is no header"},        {6, 1000, "the size isn't the header's"},
        {10, 0, "a number names no object"}, {12, 90, "the largest record isn't the header's"},
        {18, 2, "a record passes the end"},  {18, 9000, "a record passes the end"},
    };
    for (const DamageRow &row : rows) {
        std::string bytes = SoundBytes();
        ASSERT_TRUE(ReadMetafile(bytes).Sound());
        std::memcpy(bytes.data() + row.offset, &row.word, sizeof row.word);
        EXPECT_EQ(ReadMetafile(bytes).fault, row.fault) << row.offset;
        EXPECT_EQ(DrawingOf(bytes).back(), std::string("fault: ") + row.fault);
    }
}

TEST(MetafileRecords, BytesThatAreCutShortAreNoMetafile) {
    const std::string bytes = SoundBytes();
    for (size_t length = 0; length < bytes.size(); length += 2)
        EXPECT_FALSE(ReadMetafile(bytes.substr(0, length)).Sound()) << length;
    EXPECT_FALSE(ReadMetafile(bytes + "ab").Sound());
}
