// Forms as JSON and back, byte for byte.
#include <gtest/gtest.h>

#include "host/forms/form_from_json.h"
#include "host/forms/form_to_json.h"
#include "tests/support/form_files.h"

namespace {

FormImage ImageOf(const TemporaryFolder &folder, const std::string &bytes) {
    const std::string path = folder.Path("image.fp");
    WriteWholeFile(path, bytes);
    return ReadForm(path);
}

// The form behind a dump and a build, and its dump.
struct Again {
    Again(const TemporaryFolder &folder, const std::string &bytes)
        : first(JsonFromForm("f.fp", ImageOf(folder, bytes))),
          built(FormBytes(FormFromJson("f.json", first, ""))),
          second(JsonFromForm("f.fp", ImageOf(folder, built))) {}
    std::string first;
    std::string built;
    std::string second;
};

constexpr const char *EVERY_KIND = R"json({
  "form": { "name": "All", "filter": "N>5", "caller tag": "tag", "comment": "words" },
  "fonts": [ { "name": "a", "face": "Courier New", "points": 11 },
             { "name": "b", "points": 9, "bold": true, "style": ["italic", "underline"],
               "character set": 2, "italic byte": 255 },
             { "name": "p", "point height": 36, "point width": 72,
               "picture info": "2800", "picture bits": "0102ff" } ],
  "fields": [ { "name": "N", "type": "numeric", "summary": "total", "flags": ["retain"] },
              { "name": "T", "flags": ["word wrap", "variable lines"] },
              { "name": "SYS->PAGE", "kind": "system" },
              { "name": "DLG->CITY", "kind": "user", "table index": 0 },
              { "name": "CALC->Sum", "kind": "calculation", "expression": ".TOTAL-OF. N+5" },
              { "kind": "free" } ],
  "user fields": [ { "name": "CITY", "expression": "UPPER(T)"
} ],
  "breaks": [ { "section": "Sort Header 1", "sort": "T" } ],
  "sections": [
    { "section": "Sort Header 1", "height": 100, "flags": ["reprint", "page before"], "items": [
      { "item": "group", "at": [1, 2], "size": [3, 4] },
      { "item": "label", "at": [100, 0], "size": [200, 40], "text": "caf\u00e9", "font": "b",
        "flags": ["right", "bottom", "background"], "brush": { "style": 2, "color": "#102030",
        "hatch": 4 }, "outline": ["left", "top"], "outline style": 2, "keep size": 1 } ] },
    { "section": "Detail Section 1", "height": 100, "across": 2, "filter": "N<100", "items": [
      { "item": "field", "at": [100, 0], "size": [200, 40], "field": "CALC->Sum" },
      { "item": "field", "at": [100, 40], "size": [200, 40], "field": "DLG->CITY" },
      { "item": "picture", "at": [400, 0], "size": [90, 40], "font": "p" },
      { "item": "line", "at": [500, 0], "size": [90, 40], "line angle": 3, "line width": 7 } ] },
    { "section": "Sort Footer 1", "height": 50 } ]
})json";

} // namespace

TEST(FormRoundTrip, FormWithEveryKindOfItemIsTheSameAfterBuildDumpBuild) {
    const TemporaryFolder folder;
    const std::string form = FormBytes(FormFromJson("f.json", EVERY_KIND, ""));
    const Again again(folder, form);
    EXPECT_TRUE(form == again.built);
    EXPECT_EQ(again.first, again.second);
}

TEST(FormRoundTrip, DesignersFormWithAllTablesKeepsWhatItSays) {
    const TemporaryFolder folder;
    const std::string form = FullForm().Bytes();
    const Again again(folder, WithFontRow(form, PictureRow()));
    EXPECT_EQ(again.first, again.second);
    const FormImage built = ImageOf(folder, again.built);
    EXPECT_EQ(built.fonts.size(), 3u);
    EXPECT_EQ(built.users[0].UserTokens[0], FullForm().shared);
    EXPECT_EQ(built.users[0].UserTokens[1], CELL_END);
}

// Cells that name every field in turn, whose plain names would find another row or none.
TEST(FormRoundTrip, OperandsThatTheirPlainNamesWouldNotFindKeepTheirRows) {
    const TemporaryFolder folder;
    FormBuilder form;
    const std::vector<int> rows = {
        form.Field(FIELD_DATA, "ONE->NAME", TYPE_TEXT),
        form.Field(FIELD_DATA, "TWO->NAME", TYPE_TEXT),
        form.Field(FIELD_DATA, "TWO->NAME", TYPE_NUMERIC),
        form.Field(FIELD_DATA, "LAST NAME", TYPE_TEXT),
        form.Field(FIELD_DATA, "a+b", TYPE_NUMERIC),
        form.Field(FIELD_DATA, "A@2", TYPE_NUMERIC),
        form.Field(FIELD_DATA, "lower", TYPE_TEXT),
        form.Field(FIELD_DATA, "", TYPE_TEXT),
        form.Field(FIELD_DATA, "SYS->PAGE", TYPE_NUMERIC),
        form.Field(FIELD_DATA, "DLG->CITY", TYPE_TEXT),
        form.Field(FIELD_CALC, "CALC->My sum", TYPE_NUMERIC),
        form.Field(FIELD_DATA, "#1", TYPE_TEXT),
        form.Constant("\"{01/02/98}\"", TYPE_TEXT),
        form.Constant("{01/02/98}", TYPE_TEXT),
        form.Constant("5", TYPE_NUMERIC, 5),
        form.Constant("5", TYPE_DOUBLE, 5),
    };
    form.UserField("CITY", TYPE_TEXT, 0);
    for (const int row : rows) { // each once as it is, once as a row that expressions share
        const FieldRecord field = form.fields[static_cast<size_t>(row)];
        for (const int flags : {0, int{FIELD_SHARED}}) {
            const int copy = form.Field(field.FieldKind, field.FieldName, field.ValueType);
            form.fields[static_cast<size_t>(copy)].FieldFlags = static_cast<uint16_t>(flags);
        }
    }
    form.Section(SECTION_DETAIL_1, 100);
    std::vector<int> cells;
    for (int row = 1; row < static_cast<int>(form.fields.size()); ++row) {
        if (row == 32) continue;
        if (!cells.empty()) cells.push_back(503);
        cells.push_back(row);
    }
    cells.push_back(CELL_END);
    form.Filter(cells);
    const Again again(folder, form.Bytes());
    const FormImage built = ImageOf(folder, again.built);
    ASSERT_EQ(built.fields.size(), form.fields.size());
    for (size_t place = 0; place < cells.size(); ++place)
        EXPECT_EQ(built.header.ReportFilter[place], cells[place]) << again.first.substr(0, 900);
}

TEST(FormRoundTrip, ExpressionThatItsTextWouldChangeIsWrittenCellByCell) {
    const TemporaryFolder folder;
    FormBuilder form;
    const int n = form.Field(FIELD_DATA, "N", TYPE_NUMERIC);
    form.Section(SECTION_DETAIL_1, 100);
    const std::vector<int> cells = {n, 504, 510, n, 517, 511, CELL_END}; // N - > N $ >=
    form.Filter(cells);
    const FormImage built = ImageOf(folder, Again(folder, form.Bytes()).built);
    for (size_t place = 0; place < cells.size(); ++place)
        EXPECT_EQ(built.header.ReportFilter[place], cells[place]);
}

TEST(FormRoundTrip, OldVersionsAreBroughtUpToDate) {
    const TemporaryFolder folder;
    FullForm form;
    const Again now(folder, form.Bytes());
    for (const int version : {0, 1}) {
        const Again old(folder, InOldVersion(form.Bytes(), version));
        EXPECT_EQ(old.first, now.first) << version;
        EXPECT_TRUE(old.built == now.built) << version;
    }
    for (const int version : {2, 3}) {
        form.header.FormVersion = static_cast<int16_t>(version);
        EXPECT_EQ(Again(folder, form.Bytes()).first, now.first) << version;
    }
}

TEST(FormRoundTrip, BitsAndNumbersThatHaveNoWordAreKept) {
    const TemporaryFolder folder;
    FullForm form;
    form.fields[1].FieldFlags = 0x8001;
    form.fields[2].SummaryType = 77;
    const FormImage built = ImageOf(folder, Again(folder, form.Bytes()).built);
    EXPECT_EQ(+built.fields[1].FieldFlags, 0x8001);
    EXPECT_EQ(+built.fields[2].SummaryType, 77);
}

TEST(FormRoundTrip, SortFieldIsCaptionedByItsNameUnlessTheJsonSaysOtherwise) {
    const TemporaryFolder folder;
    const std::string form = R"json({
      "form": {},
      "fields": [ { "name": "REGION" }, { "name": "CITY", "caption": "Town" },
                  { "name": "STREET", "caption": "" }, { "name": "HOUSE" } ],
      "breaks": [ { "section": "Sort Header 1", "sort": "REGION", "break": "HOUSE" },
                  { "section": "Sort Header 2", "sort": "CITY" },
                  { "section": "Sort Header 3", "sort": "STREET" } ],
      "sections": [ { "section": "Sort Header 1", "height": 50 },
                    { "section": "Sort Header 2", "height": 50 },
                    { "section": "Sort Header 3", "height": 50 },
                    { "section": "Detail Section 1", "height": 50 } ] })json";
    const std::string bytes = FormBytes(FormFromJson("f.json", form, ""));
    const FormImage built = ImageOf(folder, bytes);
    EXPECT_STREQ(built.fields[1].Caption, "REGION");
    EXPECT_STREQ(built.fields[2].Caption, "Town");
    EXPECT_STREQ(built.fields[3].Caption, "");
    EXPECT_STREQ(built.fields[4].Caption, "");
    const Again again(folder, bytes);
    EXPECT_TRUE(bytes == again.built);
    EXPECT_EQ(again.first, again.second);
}
