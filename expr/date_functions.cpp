#include "expr/date_functions.h"

#include "expr/date_text.h"
#include "expr/dates.h"
#include "format/format_date.h"
#include "format/month_names.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr const char *weekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                    "Thursday", "Friday", "Saturday"};
constexpr size_t NAME_BLOCK = 12; // a month's or weekday's name
constexpr int FORMAT_SORTABLE = 8;
constexpr int32_t NO_DATE = -1;

int GiveName(const Operation &operation, const char *name) {
    char *block = NewText(operation, NAME_BLOCK - 2);
    if (!block) return ANSWER_MEMORY;
    CopyText(name, block, NAME_BLOCK);
    return ANSWER_DONE;
}

int PartOfDate(const Operation &operation, int32_t (*part)(int32_t)) {
    if (operation.right->ValueType != TYPE_DATE) return ANSWER_MISMATCH;
    operation.result->ValueType = TYPE_NUMERIC;
    if (operation.run) operation.result->LongValue = part(operation.right->LongValue);
    return ANSWER_DONE;
}

int DateAsText(const Operation &operation) {
    char text[MAX_LABEL_TEXT + 1];
    FormatDate(operation.session, operation.right, operation.right->LongValue, text);
    return GiveText(operation, text);
}

int32_t DateOfText(const Operation &operation) {
    int32_t date = NO_DATE;
    const char *text = operation.right->TextValue;
    if (!text || ParseDateText(operation.session, text, &date) == DateShape::NotADate)
        return NO_DATE;
    return date;
}

} // namespace

int FunctionWeekday(const Operation &operation) {
    if (operation.right->ValueType != TYPE_DATE) return ANSWER_MISMATCH;
    operation.result->ValueType = TYPE_TEXT;
    if (!operation.run) return ANSWER_DONE;
    return GiveName(operation, weekdays[WeekdayOf(operation.right->LongValue)]);
}

int FunctionDay(const Operation &operation) { return PartOfDate(operation, DayOf); }
int FunctionMonth(const Operation &operation) { return PartOfDate(operation, MonthOf); }
int FunctionYear(const Operation &operation) { return PartOfDate(operation, YearOf); }

int FunctionDtoc(const Operation &operation) {
    if (operation.right->ValueType != TYPE_DATE) return ANSWER_MISMATCH;
    operation.result->ValueType = TYPE_TEXT;
    return operation.run ? DateAsText(operation) : ANSWER_DONE;
}

int FunctionDtos(const Operation &operation) {
    if (operation.right->ValueType != TYPE_DATE) return ANSWER_MISMATCH;
    operation.result->ValueType = TYPE_TEXT;
    if (!operation.run) return ANSWER_DONE;
    const int16_t own_format = operation.right->DateFormat;
    operation.right->DateFormat = FORMAT_SORTABLE;
    const int answer = DateAsText(operation);
    operation.right->DateFormat = own_format;
    operation.result->DateFormat = FORMAT_SORTABLE;
    return answer;
}

int FunctionCtod(const Operation &operation) {
    const int type = operation.right->ValueType;
    if (type != TYPE_TEXT && type != TYPE_DATE) return ANSWER_MISMATCH;
    operation.result->ValueType = TYPE_DATE;
    if (operation.run)
        operation.result->LongValue =
            type == TYPE_DATE ? operation.right->LongValue : DateOfText(operation);
    return ANSWER_DONE;
}

// The block is made without a run too. A number out of range leaves it empty.
int FunctionMonthtos(const Operation &operation) {
    if (operation.right->ValueType != TYPE_NUMERIC) return ANSWER_MISMATCH;
    operation.result->ValueType = TYPE_TEXT;
    int32_t month = operation.right->LongValue;
    if (month > 12)
        month -= 12;
    else if (month < 1)
        month += 12;
    return GiveName(operation, month >= 1 && month <= 12 ? LongMonths[month - 1] : "");
}

} // namespace tessarine
