#include "host/data/json_source.h"

#include <gtest/gtest.h>

#include "host/base/failure.h"
#include "tests/support/test_session.h"

namespace {

std::string FailureOf(const std::string &text) {
    try {
        ParseJsonTable("r.json", text);
    } catch (const Failure &failure) {
        return failure.what();
    }
    return "";
}

} // namespace

TEST(JsonSource, ColumnsStandInTheOrderInWhichTheirNamesFirstCome) {
    const CsvTable table =
        ParseJsonTable("r.json", R"([{"b": "x", "a": 1.50}, {"a": true, "c": null}])");
    EXPECT_EQ(table.names, (std::vector<std::string>{"b", "a", "c"}));
    ASSERT_EQ(table.rows.size(), 2U);
    EXPECT_EQ(table.rows[0].cells, (std::vector<std::string>{"x", "1.5", ""}));
    EXPECT_EQ(table.rows[1].cells, (std::vector<std::string>{"", "true", ""}));
}

TEST(JsonSource, TextsAreTurnedToTheCodePage) {
    EXPECT_EQ(ParseJsonTable("r.json", "[{\"n\": \"\xC3\xA4\"}]").rows[0].cells[0], "\xE4");
}

TEST(JsonSource, WhatIsNoListOfRecordsIsRefusedWithThePlace) {
    EXPECT_EQ(FailureOf("{}"), "r.json: is no list of records; write [{...}, {...}]");
    EXPECT_EQ(FailureOf("[]"),
              "r.json: has no records; the members of its records name the fields");
    EXPECT_EQ(FailureOf("[{\"a\": 1}, 5]"),
              "r.json: record 2 is no record; write {\"NAME\": value, ...}");
    EXPECT_EQ(FailureOf("[{\"a\": [1]}]"), "r.json: record 1, a is a list or a record; write a "
                                           "text, a number, true or false");
    EXPECT_NE(FailureOf("[{").find("r.json: "), std::string::npos);
}

TEST(JsonSource, TheEndingOfAFileTellsItsKind) {
    const TemporaryFolder folder;
    WriteWholeFile(folder.Path("a.JSON"), "[{\"n\": 1}]");
    WriteWholeFile(folder.Path("a.csv"), "n\n2\n");
    EXPECT_EQ(ReadTable(folder.Path("a.JSON")).rows[0].cells[0], "1");
    EXPECT_EQ(ReadTable(folder.Path("a.csv")).rows[0].cells[0], "2");
}
