#include "fuzz/runs.h"

#include <cstring>

#include "fuzz/places.h"
#include "tests/support/test_session.h"

namespace {

constexpr int RECORDS = 4;

template <size_t Size> void PutText(char (&field)[Size], const std::string &text) {
    std::strncpy(field, text.c_str(), Size - 1);
}

// A sheet of labels needs the library in label mode.
bool IsLabelForm(const std::string &form) {
    const std::string bytes = ReadWholeFile(ScratchPath(form));
    FormHeader header{};
    if (bytes.size() >= sizeof header) std::memcpy(&header, bytes.data(), sizeof header);
    return header.LabelType != 0;
}

void MakeUpValue(FieldRecord *row, int number) {
    row->LongValue = number % 3 ? 20240101 + number * 37 : number - 2;
    row->DoubleValue = (number - 1) * 1234.56;
    if (row->ValueType != TYPE_TEXT || !row->TextValue) return;
    const int length = row->FieldWidth < number * 5 ? row->FieldWidth : number * 5;
    for (int c = 0; c < length; ++c)
        row->TextValue[c] = c % 4 == 3 ? ' ' : static_cast<char>('a' + c % 26);
    row->TextValue[length > 0 ? length : 0] = 0;
}

} // namespace

FuzzRun::FuzzRun(const std::string &form) : label_form_(IsLabelForm(form)) {
    data_.LabelForm = &label_form_;
    SetCRepData(&data_);
    PutText(params_.FormFile, ScratchPath(form));
    PutText(params_.OutputFile, ScratchPath(ReportName()));
    PutText(params_.TempDir, ScratchPath(""));
    params_.Device = 'F';
    params_.Silent = 1;
    open_ = RepInit(&params_, 0, nullptr, nullptr) == CODE_DONE;
}

FuzzRun::~FuzzRun() {
    if (open_) RepExit(params_.SessionId, 1, nullptr);
    RemoveCRepData(&data_);
}

bool FuzzRun::MadeUpRecord(int number) {
    for (int row = 0; row < params_.FieldTotal; ++row) {
        FieldRecord *field = &params_.FieldTable[row];
        if (field->InUse && field->FieldKind == FIELD_DATA) MakeUpValue(field, number);
    }
    return Record();
}

void RunForm(const std::string &form) {
    FuzzRun run(form);
    for (int number = 0; run && number < RECORDS; ++number)
        if (!run.MadeUpRecord(number)) return;
}
