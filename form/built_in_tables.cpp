#include "form/built_in_tables.h"

#include <cstring>
#include <iterator>

#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/text.h"

namespace tessarine {

namespace {

// The blanks belong to the names, as they are painted on the section bars.
constexpr const char *section_names[MAX_SECTIONS] = {
    " Page Header   ",   " Report Header ",   " Sort Header 1",    " Sort Header 2",
    " Sort Header 3",    " Sort Header 4",    " Sort Header 5",    " Sort Header 6",
    " Sort Header 7",    " Sort Header 8",    " Sort Header 9",    " Detail Section 1",
    " Detail Section 2", " Detail Section 3", " Detail Section 4", " Detail Section 5",
    " Detail Section 6", " Detail Section 7", " Detail Section 8", " Detail Section 9",
    " Sort Footer 9",    " Sort Footer 8",    " Sort Footer 7",    " Sort Footer 6",
    " Sort Footer 5",    " Sort Footer 4",    " Sort Footer 3",    " Sort Footer 2",
    " Sort Footer 1",    " Report Footer ",   " Page Footer   ",
};

constexpr SystemFieldRow system_fields[] = {
    {"PAGE", TYPE_NUMERIC, 4},      {"DATE", TYPE_DATE, 10},      {"TIME", TYPE_TEXT, 10},
    {"REC_COUNT", TYPE_NUMERIC, 6}, {"PARA_BREAK", TYPE_TEXT, 2}, {"REPORT_NAME", TYPE_TEXT, 52},
};

constexpr const char *summary_names[] = {"Value", "Total", "Average", "Count", "Max", "Min"};

constexpr const char *date_format_names[] = {"MMDDYY",     "DDMMYY",   "MMDDYYYY",  "MMMDDYYYY",
                                             "MMMMDDYYYY", "DDMMYYYY", "DDMMMYYYY", "DDMMMMYYYY"};

struct OperatorSource {
    const char *text;
    int precedence;
    bool unary;
    const char *help; // of functions alone
};

// In the order of the codes from 501 on. A higher precedence binds tighter.
constexpr OperatorSource operators[OPERATOR_ROWS] = {
    {"(", 1000, false, nullptr},
    {")", 1000, false, nullptr},
    {"+", 600, false, nullptr},
    {"-", 600, false, nullptr},
    {"*", 700, false, nullptr},
    {"/", 700, false, nullptr},
    {"=", 300, false, nullptr},
    {"<>", 300, false, nullptr},
    {".", 300, false, nullptr},
    {">", 400, false, nullptr},
    {"<", 400, false, nullptr},
    {">=", 400, false, nullptr},
    {"<=", 400, false, nullptr},
    {".OR.", 100, false, nullptr},
    {".AND.", 200, false, nullptr},
    {".NOT.", 800, true, nullptr},
    {"$", 500, false, nullptr},
    {",", 30, false, nullptr},
    {".TOTAL-OF.", 900, true, nullptr},
    {".AVE-OF.", 900, true, nullptr},
    {".MAX-OF.", 900, true, nullptr},
    {".MIN-OF.", 900, true, nullptr},
    {".COUNT-OF.", 900, true, nullptr},
    {".IF.", 60, true, nullptr},
    {".THEN.", 50, false, nullptr},
    {".ELSE.", 40, false, nullptr},
    {"LEN", 950, true, "LEN(string)\t Length of string"},
    {"UPPER", 950, true, "UPPER(string)\t Convert to UPPER CASE"},
    {"LOWER", 950, true, "LOWER(string)\t Convert to lower case"},
    {"TRIM", 950, true, "TRIM(string)\t Trim excess spaces"},
    {"WORD", 950, false, "WORD(string,num)\t Get the num word in string"},
    {"CHAR", 950, false, "CHAR(string,num)\t Get the num char in string"},
    {"MIN", 950, false, "MIN(num1,num2)\t Find smallest number"},
    {"MAX", 950, false, "MAX(num1,num2)\t Find largest number"},
    {"VAL", 950, true, "VAL(string/date)\t Convert any value to an integer value"},
    {"ROUND", 950, false, "ROUND(num1,num2)\t Round num1 to num2 decimals"},
    {"ABS", 950, true, "ABS(num)\t Find absolute value"},
    {"WEEKDAY", 950, true, "WEEKDAY(date)\t Get day of week as a string"},
    {"DAY", 950, true, "DAY(date)\t Get day of week as a number"},
    {"MONTH", 950, true, "MONTH(date)\t Get month as a number"},
    {"YEAR", 950, true, "YEAR(date)\t Get year as a 4-digit number"},
    {"LEFT", 950, false, "LEFT(string,num)\t Get first num chars of string"},
    {"RIGHT", 950, false, "RIGHT(string,num)\t Get last num chars of string"},
    {"STR", 950, true, "STR(num)\t Convert value to a string"},
    {"DTOC", 950, true, "DTOC(date)\t Get date as a string formatted as \"12/31/97\""},
    {"DTOS", 950, true, "DTOS(date)\t Get date as a string formatted as \"1997 12/31\""},
    {"CTOD", 950, true, "CTOD(string)\t Get date from a string formatted as \"12/31/97\""},
    {"MONTHTOS", 950, true, "MONTHTOS(date)\t Get a month number as a month string"},
};

void SetOperator(OperatorRow *row, const OperatorSource &source) {
    const char *help = source.help ? source.help : "";
    CopyText(source.text, row->Text, sizeof row->Text);
    row->Precedence = source.precedence;
    row->Unary = source.unary;
    row->Restricted = 0;
    row->Function = source.help != nullptr;
    OurFree(row->HelpLine);
    row->HelpLine = static_cast<char *>(OurAlloc(std::strlen(help) + 1));
    if (row->HelpLine) std::strcpy(row->HelpLine, help);
}

} // namespace

void BuildSectionNames(Session *session) {
    for (int section = 0; section < MAX_SECTIONS; ++section)
        CopyText(section_names[section], session->form.SectionNames[section],
                 sizeof session->form.SectionNames[section]);
    if (LabelModeWanted())
        CopyText(" Label ", session->form.SectionNames[SECTION_DETAIL_1],
                 sizeof session->form.SectionNames[SECTION_DETAIL_1]);
}

void BuildSystemFields(Session *session) {
    std::memcpy(session->form.SystemFields, system_fields, sizeof system_fields);
}

void BuildSummaryNames(Session *session) {
    for (int type = SUMMARY_VALUE; type <= SUMMARY_MIN; ++type)
        CopyText(summary_names[type], session->form.SummaryNames[type],
                 sizeof session->form.SummaryNames[type]);
}

void BuildDateFormatNames(Session *session) {
    for (size_t format = 0; format < std::size(date_format_names); ++format)
        CopyText(date_format_names[format], session->form.DateFormatNames[format],
                 sizeof session->form.DateFormatNames[format]);
}

void BuildOperatorTable(Session *session) {
    for (int row = 0; row < OPERATOR_ROWS; ++row)
        SetOperator(&session->form.OperatorTable[row], operators[row]);
}

void FreeOperatorTable(Session *session) {
    for (OperatorRow &row : session->form.OperatorTable) {
        OurFree(row.HelpLine);
        row.HelpLine = nullptr;
    }
}

} // namespace tessarine
