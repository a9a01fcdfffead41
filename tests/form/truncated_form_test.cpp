// Files that end too early.
#include <random>

#include "tests/support/form_files.h"

namespace {

class TruncatedForm : public FormFiles {
protected:
    // What a file of this length must end with: the message of the block that ran short.
    struct End {
        int outcome;
        const char *text;
    };
    void ExpectEnd(const std::string &bytes, size_t length, const End &end) {
        SCOPED_TRACE(length);
        boxes.Clear();
        ASSERT_EQ(ReadBytes(bytes.substr(0, length)), end.outcome);
        if (!end.text)
            EXPECT_TRUE(boxes.Log().empty());
        else
            ExpectBox(end.text, end.outcome == READ_DONE ? "" : "Fatal Error");
    }

    FullForm form;
};

class TruncatedForm4 : public TruncatedForm {
protected:
    TruncatedForm4() : bytes(WithFontRow(form.Bytes(), PictureRow())), blocks(bytes) {}

    End EndAt(size_t length) const {
        if (length < blocks.items) return {READ_REFUSED, nullptr};
        if (length < blocks.fields) return {35, "Error reading the item data"};
        if (length < blocks.breaks) return {36, "Error reading the fields"};
        if (length < blocks.sections) return {36, "Error reading the break fields"};
        if (length < blocks.users) return {36, "Error reading the sections"};
        if (length < blocks.marker) return {37, "User fields missing!"};
        if (length < bytes.size()) return {READ_DONE, "Font Table Incomplete!"};
        return {READ_DONE, nullptr};
    }

    std::string bytes;
    FormBlocks blocks;
};

} // namespace

TEST_F(TruncatedForm4, EndsWithTheMessageOfTheBlockThatRanShort) {
    for (const size_t edge : {blocks.items, blocks.fields, blocks.breaks, blocks.sections,
                              blocks.users, blocks.marker, blocks.fonts, bytes.size()})
        for (const size_t length : {edge - 1, edge, edge + 1})
            if (length <= bytes.size()) ExpectEnd(bytes, length, EndAt(length));
}

TEST_F(TruncatedForm4, EndsInAnOrderlyWayAtAnyByte) {
    std::mt19937 random(20261121);
    for (int round = 0; round < 150; ++round) {
        const size_t length = random() % bytes.size();
        ExpectEnd(bytes, length, EndAt(length));
    }
}

TEST_F(TruncatedForm4, EndsInAnOrderlyWayAtEveryByteOfTheFontTable) {
    for (size_t length = blocks.fonts; length < blocks.fonts + 2 * 52 + 14 + 60; length += 3)
        ExpectEnd(bytes, length, EndAt(length));
}

TEST_F(TruncatedForm, OldestVersionTellsFieldsAndExtraBytesApart) {
    const std::string bytes = InOldVersion(form.Bytes(), 0);
    const size_t fields = FormBlocks(bytes).fields;
    constexpr size_t ROW = sizeof(FieldRecord) + 4;
    ExpectEnd(bytes, fields + 1, {36, "Error reading one field"});
    ExpectEnd(bytes, fields + 542, {36, "Error reading one field"});
    ExpectEnd(bytes, fields + 543, {36, "Error reading field extra bytes"});
    ExpectEnd(bytes, fields + 546, {36, "Error reading field extra bytes"});
    ExpectEnd(bytes, fields + ROW, {36, "Error reading one field"});
    ExpectEnd(bytes, fields + form.fields.size() * ROW, {36, "Error reading the break fields"});
}

TEST_F(TruncatedForm, OldVersionsTellTheTwoHalvesOfTheSectionsApart) {
    for (const int version : {0, 1}) {
        const std::string bytes = InOldVersion(form.Bytes(), version);
        const size_t extra = version == 0 ? 4 * form.fields.size() : 0;
        const size_t sections = FormBlocks(bytes).sections + extra;
        const size_t footers = sections + 12 * sizeof(SectionRecord);
        const size_t users = sections + 23 * sizeof(SectionRecord);
        ExpectEnd(bytes, sections, {36, "Error reading one section"});
        ExpectEnd(bytes, footers - 1, {36, "Error reading one section"});
        ExpectEnd(bytes, footers, {36, "Error reading one section(B)"});
        ExpectEnd(bytes, users - 1, {36, "Error reading one section(B)"});
        ExpectEnd(bytes, users, {37, "User fields missing!"});
    }
}
