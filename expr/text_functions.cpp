#include "expr/text_functions.h"

#include <algorithm>

#include "format/format_field.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr const char *WORD_DELIMITERS = " ,;.";
constexpr size_t MAX_WORD = 100;

bool IsTextAndNumber(const Operation &operation) {
    return operation.left->ValueType == TYPE_TEXT && IsNumber(operation.right);
}

int ChangedText(const Operation &operation, char *(*change)(char *)) {
    if (operation.right->ValueType != TYPE_TEXT) return ANSWER_MISMATCH;
    operation.result->ValueType = TYPE_TEXT;
    if (!operation.run) return ANSWER_DONE;
    const int answer = GiveText(operation, TextOf(operation.right));
    if (answer == ANSWER_DONE) change(operation.result->TextValue);
    return answer;
}

// The word of that number from 1, the last one when there are fewer.
std::string_view WordAt(std::string_view text, int32_t number) {
    std::string_view word;
    size_t end = 0;
    for (int32_t count = 0; count < number; ++count) {
        const size_t start = text.find_first_not_of(WORD_DELIMITERS, end);
        if (start == std::string_view::npos) break;
        end = std::min(text.find_first_of(WORD_DELIMITERS, start), text.size());
        word = text.substr(start, end - start);
    }
    return word.substr(0, MAX_WORD);
}

std::string_view CharAt(std::string_view text, int32_t place) {
    if (place < 1 || static_cast<size_t>(place) > text.size()) return {};
    return text.substr(static_cast<size_t>(place) - 1, 1);
}

std::string_view FirstOf(std::string_view text, int32_t count) {
    return text.substr(0, static_cast<size_t>(std::max(count, 0)));
}

std::string_view LastOf(std::string_view text, int32_t count) {
    const size_t taken = std::min(static_cast<size_t>(std::max(count, 0)), text.size());
    return text.substr(text.size() - taken);
}

int PartOfText(const Operation &operation, std::string_view (*part)(std::string_view, int32_t)) {
    if (!IsTextAndNumber(operation)) return ANSWER_MISMATCH;
    operation.result->ValueType = TYPE_TEXT;
    if (!operation.run) return ANSWER_DONE;
    return GiveText(operation, part(TextOf(operation.left), CountOf(operation.right)));
}

} // namespace

int FunctionLen(const Operation &operation) {
    if (operation.right->ValueType != TYPE_TEXT) return ANSWER_MISMATCH;
    operation.result->ValueType = TYPE_NUMERIC;
    if (operation.run)
        operation.result->LongValue = static_cast<int32_t>(TextOf(operation.right).size());
    return ANSWER_DONE;
}

int FunctionUpper(const Operation &operation) { return ChangedText(operation, UpperText); }
int FunctionLower(const Operation &operation) { return ChangedText(operation, LowerText); }
int FunctionTrim(const Operation &operation) { return ChangedText(operation, RepStrTrim); }

int FunctionWord(const Operation &operation) { return PartOfText(operation, WordAt); }
int FunctionChar(const Operation &operation) { return PartOfText(operation, CharAt); }
int FunctionRight(const Operation &operation) { return PartOfText(operation, LastOf); }

int FunctionLeft(const Operation &operation) {
    const int answer = PartOfText(operation, FirstOf);
    if (answer == ANSWER_DONE && operation.run)
        operation.result->FieldWidth = static_cast<int16_t>(std::max(CountOf(operation.right), 0));
    return answer;
}

int FunctionStr(const Operation &operation) {
    operation.result->ValueType = TYPE_TEXT;
    if (!operation.run) return ANSWER_DONE;
    if (operation.right->ValueType == TYPE_TEXT)
        return GiveText(operation, TextOf(operation.right));
    char text[MAX_LABEL_TEXT + 1] = "";
    FormatField(operation.session, operation.right, text);
    return GiveText(operation, text);
}

} // namespace tessarine
