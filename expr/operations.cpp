#include "expr/operations.h"

#include "frame/memory.h"
#include "frame/whole_numbers.h"

namespace tessarine {

std::string_view TextOf(const FieldRecord *record) {
    return record->TextValue ? record->TextValue : "";
}

int32_t CountOf(const FieldRecord *number) {
    return number->ValueType == TYPE_DOUBLE ? ToInt32(number->DoubleValue) : number->LongValue;
}

double RealOf(const FieldRecord *number) {
    return number->ValueType == TYPE_DOUBLE ? number->DoubleValue : number->LongValue;
}

char *NewText(const Operation &operation, size_t length) {
    operation.result->TextValue = static_cast<char *>(OurAlloc(length + 2));
    return operation.result->TextValue;
}

int GiveText(const Operation &operation, std::string_view text) {
    char *block = NewText(operation, text.size());
    if (!block) return ANSWER_MEMORY;
    text.copy(block, text.size());
    block[text.size()] = 0;
    return ANSWER_DONE;
}

int GiveCopy(const Operation &operation, const FieldRecord *record) {
    operation.result->TextValue = nullptr;
    return record->TextValue ? GiveText(operation, record->TextValue) : ANSWER_DONE;
}

} // namespace tessarine
