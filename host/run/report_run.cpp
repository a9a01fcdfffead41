#include "host/run/report_run.h"

#include <cstring>
#include <utility>

#include "host/cli/failure.h"
#include "host/data/files.h"

namespace {

constexpr const char *PARTIAL_ENDING = ".part";

template <size_t Size>
void PutPath(char (&field)[Size], const std::string &path, const char *option) {
    char full[MAX_PATH] = "";
    GetFullPathNameA(path.c_str(), sizeof full, full, nullptr);
    if (std::strlen(full) >= Size)
        throw Failure(std::string(option) + " " + path + ": the path is too long", EXIT_USAGE);
    std::strcpy(field, full);
}

template <size_t Size> void PutTempDirectory(char (&field)[Size]) {
    char folder[MAX_PATH] = "";
    GetTempPathA(sizeof folder, folder);
    std::strncpy(field, folder, Size - 1);
}

} // namespace

LabelWords::LabelWords(bool label_form) : label_form_(label_form) {
    data_.LabelForm = &label_form_;
    SetCRepData(&data_);
}

LabelWords::~LabelWords() { RemoveCRepData(&data_); }

ReportRun::ReportRun(RunRequest request, Unattended *unattended)
    : request_(std::move(request)), unattended_(unattended) {
    PutPath(params_.FormFile, request_.form, "--form");
    PutTempDirectory(params_.TempDir);
    if (request_.target == Target::SCREEN) {
        params_.Device = 'S';
        params_.WindowStyle = WS_OVERLAPPEDWINDOW;
        params_.WindowX = params_.WindowY = CW_USEDEFAULT;
        params_.WindowWidth = params_.WindowHeight = CW_USEDEFAULT;
        return;
    }
    PutPath(params_.OutputFile, request_.output + PARTIAL_ENDING, "--output");
    params_.Device = 'F';
    params_.Silent = 1;
}

ReportRun::~ReportRun() {
    if (open_) RepExit(params_.SessionId, 0, nullptr);
    if (!kept_ && *params_.OutputFile) DeleteFileA(params_.OutputFile);
}

std::vector<std::string> ReportRun::Start() {
    const int code = RepInit(&params_, 0, nullptr, nullptr);
    if (!unattended_->Refused().empty())
        throw Failure(request_.form + ": the answer to \"" + unattended_->Refused() +
                      "\" was refused: " + LastText());
    if (code == CODE_NO_OUTPUT_FILE)
        throw Failure(request_.output + ": can't be written: " + LastText());
    Check(code, request_.form);
    open_ = true;
    return unattended_->TakeTexts();
}

// What can't be stored while records come is the report's, everything else the form's.
void ReportRun::Record() {
    const int code = RepRec(params_.SessionId, 0, 0);
    const bool storing = code == CODE_FILE && request_.target == Target::FILE;
    Check(code, storing ? request_.output : request_.form);
}

bool ReportRun::Finish() {
    open_ = false;
    const bool to_file = request_.target == Target::FILE;
    Check(RepExit(params_.SessionId, 0, nullptr), to_file ? request_.output : request_.form);
    kept_ = true;
    if (!to_file) return true;
    if (GetFileAttributesA(params_.OutputFile) == INVALID_FILE_ATTRIBUTES) return false;
    PutInPlace(params_.OutputFile, request_.output);
    return true;
}

void ReportRun::Show() {
    MSG message;
    while (GetSessionPointer(nullptr, params_.SessionId) && GetMessageA(&message, nullptr, 0, 0)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

std::string ReportRun::LastText() {
    const std::vector<std::string> texts = unattended_->TakeTexts();
    return texts.empty() ? "the library gave no reason" : texts.back();
}

void ReportRun::Check(int code, const std::string &file) {
    if (code == CODE_DONE) return;
    if (code == CODE_CANCELLED) throw Failure(file + ": the run was cancelled", EXIT_CANCELLED);
    throw Failure(file + ": " + LastText() + " (code " + std::to_string(code) + ")");
}
