#include <gtest/gtest.h>

#include "host/base/failure.h"
#include "host/data/csv_source.h"

namespace {

std::string FailureOf(const std::string &text) {
    try {
        ParseCsv("t.csv", text);
    } catch (const Failure &failure) {
        return failure.what();
    }
    return "";
}

} // namespace

TEST(CsvSource, QuotedCellsHoldCommasQuotesAndLines) {
    const CsvTable table = ParseCsv("t.csv", "A,B\r\n\"x, \"\"y\"\"\",\"two\nlines\"\r\nlast,");
    ASSERT_EQ(table.rows.size(), 2u);
    EXPECT_EQ(table.rows[0].cells, (std::vector<std::string>{"x, \"y\"", "two\nlines"}));
    EXPECT_EQ(table.rows[1].cells, (std::vector<std::string>{"last", ""}));
    EXPECT_EQ(table.rows[1].line, 4);
    EXPECT_EQ(table.Column("b"), 1);
    EXPECT_EQ(table.Column("C"), -1);
}

TEST(CsvSource, RowsOfAnotherLengthAreToldWithTheirLine) {
    EXPECT_EQ(FailureOf("A,B\n1,2\n3\n"),
              "t.csv:3: the row has 1 values where the header names 2 columns");
    EXPECT_EQ(FailureOf("A,B\n1,2,3\n"),
              "t.csv:2: the row has 3 values where the header names 2 columns");
}

TEST(CsvSource, QuotesThatDoNotCloseAreToldWhereTheyOpen) {
    EXPECT_EQ(FailureOf("A\n\"x\ny\n"), "t.csv:2: a quote is opened here and never closed");
    EXPECT_EQ(FailureOf("A,B\n1,2\n3,\"x\n\n"), "t.csv:3: a quote is opened here and never closed");
}

TEST(CsvSource, QuotesWithinAValueAreRefused) {
    const std::string within = ": a quote stands within a value; put the whole value into quotes "
                               "and double each quote inside";
    EXPECT_EQ(FailureOf("A\n\"x\"y\n"), "t.csv:2" + within);
    EXPECT_EQ(FailureOf("A\nz\n5\" pipe\n"), "t.csv:3" + within);
}

TEST(CsvSource, EmptyTableIsRefused) {
    EXPECT_EQ(FailureOf(""), "t.csv: is empty; its first row must name the fields");
}

TEST(CsvSource, BlankLinesAreValuesOfATableWithOneColumnAlone) {
    const CsvTable one = ParseCsv("t.csv", "A\n1\n\n2\r\n\r\n");
    ASSERT_EQ(one.rows.size(), 4u);
    EXPECT_EQ(one.rows[1].cells, std::vector<std::string>{""});
    EXPECT_EQ(one.rows[1].line, 3);
    EXPECT_EQ(one.rows[3].line, 5);
    const CsvTable two = ParseCsv("t.csv", "A,B\n1,2\n\n\n3,4\n");
    ASSERT_EQ(two.rows.size(), 2u);
    EXPECT_EQ(two.rows[1].line, 5);
}

TEST(CsvSource, BlankLineWithinQuotesBelongsToTheValue) {
    const CsvTable table = ParseCsv("t.csv", "A\n\"\n\nx\"\ny\n");
    ASSERT_EQ(table.rows.size(), 2u);
    EXPECT_EQ(table.rows[0].cells[0], "\n\nx");
    EXPECT_EQ(table.rows[1].line, 5);
}

TEST(CsvSource, BlanksAroundAValueStay) {
    EXPECT_EQ(ParseCsv("t.csv", "A,B\n  x ,\ty\n").rows[0].cells,
              (std::vector<std::string>{"  x ", "\ty"}));
}

TEST(CsvSource, TextBecomesCodePage1252) {
    EXPECT_EQ(ToCodePage("Bras\xC3\xADlia"), "Bras\xEDlia");
    EXPECT_EQ(ToCodePage("\xE6\x97\xA5"), "?");
    EXPECT_EQ(ToCodePage("Bras\xEDlia"), "Bras\xEDlia");
}
