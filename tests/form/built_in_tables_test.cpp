#include "form/built_in_tables.h"

#include <gtest/gtest.h>

#include "frame/host_data.h"
#include "frame/memory.h"
#include "tests/support/test_session.h"

using namespace tessarine;

TEST(BuiltInTables, SectionNamesKeepTheirBlanks) {
    const char *names[] = {
        " Page Header   ",   " Report Header ",   " Sort Header 1",    " Sort Header 2",
        " Sort Header 3",    " Sort Header 4",    " Sort Header 5",    " Sort Header 6",
        " Sort Header 7",    " Sort Header 8",    " Sort Header 9",    " Detail Section 1",
        " Detail Section 2", " Detail Section 3", " Detail Section 4", " Detail Section 5",
        " Detail Section 6", " Detail Section 7", " Detail Section 8", " Detail Section 9",
        " Sort Footer 9",    " Sort Footer 8",    " Sort Footer 7",    " Sort Footer 6",
        " Sort Footer 5",    " Sort Footer 4",    " Sort Footer 3",    " Sort Footer 2",
        " Sort Footer 1",    " Report Footer ",   " Page Footer   "};
    host_data = HostData{};
    BareSession session;
    for (int row = 0; row < MAX_SECTIONS; ++row)
        EXPECT_STREQ(session->form.SectionNames[row], names[row]);
}

TEST(BuiltInTables, FirstDetailSectionOfALabelFormIsNamedLabel) {
    uint32_t label = 1;
    host_data.LabelForm = &label;
    BareSession session;
    EXPECT_STREQ(session->form.SectionNames[SECTION_DETAIL_1], " Label ");
    EXPECT_STREQ(session->form.SectionNames[SECTION_DETAIL_1 + 1], " Detail Section 2");
    host_data = HostData{};
}

TEST(BuiltInTables, SystemFieldsHaveTheirTypesAndWidths) {
    const struct {
        const char *name;
        int type;
        int width;
    } rows[] = {{"PAGE", 1, 4},      {"DATE", 5, 10},      {"TIME", 3, 10},
                {"REC_COUNT", 1, 6}, {"PARA_BREAK", 3, 2}, {"REPORT_NAME", 3, 52}};
    BareSession session;
    for (int row = 0; row < 6; ++row) {
        EXPECT_STREQ(session->form.SystemFields[row].Name, rows[row].name);
        EXPECT_EQ(session->form.SystemFields[row].ValueType, rows[row].type);
        EXPECT_EQ(session->form.SystemFields[row].Width, rows[row].width);
    }
}

TEST(BuiltInTables, SummariesAndDateFormatsAreNamed) {
    const char *summaries[] = {"Value", "Total", "Average", "Count", "Max", "Min"};
    const char *formats[] = {"MMDDYY",     "DDMMYY",   "MMDDYYYY",  "MMMDDYYYY",
                             "MMMMDDYYYY", "DDMMYYYY", "DDMMMYYYY", "DDMMMMYYYY"};
    BareSession session;
    for (int row = 0; row < 6; ++row) EXPECT_STREQ(session->form.SummaryNames[row], summaries[row]);
    for (int row = 0; row < 8; ++row)
        EXPECT_STREQ(session->form.DateFormatNames[row], formats[row]);
}

TEST(BuiltInTables, OperatorsStandInTheOrderOfTheirCodes) {
    const struct {
        int code;
        const char *text;
        int precedence;
        uint32_t unary;
        uint32_t function;
    } rows[] = {
        {501, "(", 1000, 0, 0},         {502, ")", 1000, 0, 0},
        {503, "+", 600, 0, 0},          {504, "-", 600, 0, 0},
        {505, "*", 700, 0, 0},          {506, "/", 700, 0, 0},
        {507, "=", 300, 0, 0},          {508, "<>", 300, 0, 0},
        {509, ".", 300, 0, 0},          {510, ">", 400, 0, 0},
        {511, "<", 400, 0, 0},          {512, ">=", 400, 0, 0},
        {513, "<=", 400, 0, 0},         {514, ".OR.", 100, 0, 0},
        {515, ".AND.", 200, 0, 0},      {516, ".NOT.", 800, 1, 0},
        {517, "$", 500, 0, 0},          {518, ",", 30, 0, 0},
        {519, ".TOTAL-OF.", 900, 1, 0}, {520, ".AVE-OF.", 900, 1, 0},
        {521, ".MAX-OF.", 900, 1, 0},   {522, ".MIN-OF.", 900, 1, 0},
        {523, ".COUNT-OF.", 900, 1, 0}, {524, ".IF.", 60, 1, 0},
        {525, ".THEN.", 50, 0, 0},      {526, ".ELSE.", 40, 0, 0},
        {527, "LEN", 950, 1, 1},        {528, "UPPER", 950, 1, 1},
        {529, "LOWER", 950, 1, 1},      {530, "TRIM", 950, 1, 1},
        {531, "WORD", 950, 0, 1},       {532, "CHAR", 950, 0, 1},
        {533, "MIN", 950, 0, 1},        {534, "MAX", 950, 0, 1},
        {535, "VAL", 950, 1, 1},        {536, "ROUND", 950, 0, 1},
        {537, "ABS", 950, 1, 1},        {538, "WEEKDAY", 950, 1, 1},
        {539, "DAY", 950, 1, 1},        {540, "MONTH", 950, 1, 1},
        {541, "YEAR", 950, 1, 1},       {542, "LEFT", 950, 0, 1},
        {543, "RIGHT", 950, 0, 1},      {544, "STR", 950, 1, 1},
        {545, "DTOC", 950, 1, 1},       {546, "DTOS", 950, 1, 1},
        {547, "CTOD", 950, 1, 1},       {548, "MONTHTOS", 950, 1, 1},
    };
    static_assert(std::size(rows) == OPERATOR_ROWS);
    BareSession session;
    for (const auto &row : rows) {
        SCOPED_TRACE(row.code);
        const OperatorRow &table = session->form.OperatorTable[row.code - CELL_FIRST_OPERATOR];
        EXPECT_STREQ(table.Text, row.text);
        EXPECT_EQ(table.Precedence, row.precedence);
        EXPECT_EQ(table.Unary, row.unary);
        EXPECT_EQ(table.Function, row.function);
        EXPECT_EQ(table.Restricted, 0u);
        EXPECT_EQ(*table.HelpLine != 0, row.function != 0);
    }
}

TEST(BuiltInTables, EveryFunctionHasItsHelpLine) {
    const char *lines[] = {
        "LEN(string)\t Length of string",
        "UPPER(string)\t Convert to UPPER CASE",
        "LOWER(string)\t Convert to lower case",
        "TRIM(string)\t Trim excess spaces",
        "WORD(string,num)\t Get the num word in string",
        "CHAR(string,num)\t Get the num char in string",
        "MIN(num1,num2)\t Find smallest number",
        "MAX(num1,num2)\t Find largest number",
        "VAL(string/date)\t Convert any value to an integer value",
        "ROUND(num1,num2)\t Round num1 to num2 decimals",
        "ABS(num)\t Find absolute value",
        "WEEKDAY(date)\t Get day of week as a string",
        "DAY(date)\t Get day of week as a number",
        "MONTH(date)\t Get month as a number",
        "YEAR(date)\t Get year as a 4-digit number",
        "LEFT(string,num)\t Get first num chars of string",
        "RIGHT(string,num)\t Get last num chars of string",
        "STR(num)\t Convert value to a string",
        "DTOC(date)\t Get date as a string formatted as \"12/31/97\"",
        "DTOS(date)\t Get date as a string formatted as \"1997 12/31\"",
        "CTOD(string)\t Get date from a string formatted as \"12/31/97\"",
        "MONTHTOS(date)\t Get a month number as a month string",
    };
    BareSession session;
    for (size_t line = 0; line < std::size(lines); ++line)
        EXPECT_STREQ(session->form.OperatorTable[26 + line].HelpLine, lines[line]);
}

TEST(BuiltInTables, OperatorTableIsFreedAndBuiltAgainWithoutALoss) {
    BareSession session;
    const int blocks = LiveBlocks();
    BuildOperatorTable(session);
    EXPECT_EQ(LiveBlocks(), blocks);
    FreeOperatorTable(session);
    EXPECT_EQ(LiveBlocks(), blocks - OPERATOR_ROWS);
    FreeOperatorTable(session);
    EXPECT_EQ(LiveBlocks(), blocks - OPERATOR_ROWS);
}
