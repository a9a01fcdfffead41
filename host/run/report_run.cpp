#include "host/run/report_run.h"

#include <cstring>
#include <utility>

#include "host/base/failure.h"
#include "host/base/interrupt.h"
#include "host/export/report_pages.h"
#include "host/print/printers.h"

namespace {

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
    NeedUsualPrinter();
    if (request_.wish.Any()) copy_ = std::make_unique<FormCopy>(request_.form, request_.wish);
    PutPath(params_.FormFile, copy_ ? copy_->Path() : request_.form, "--form");
    PutTempDirectory(params_.TempDir);
    if (request_.target == Target::SCREEN) {
        params_.Device = 'S';
        params_.WindowStyle = WS_OVERLAPPEDWINDOW;
        params_.WindowX = params_.WindowY = CW_USEDEFAULT;
        params_.WindowWidth = params_.WindowHeight = CW_USEDEFAULT;
        return;
    }
    params_.Silent = 1;
    if (request_.target == Target::PRINTER) {
        params_.Device = 'P';
        return;
    }
    part_.emplace(request_.output);
    PutPath(params_.OutputFile, part_->Path(), "--output");
    params_.Device = 'F';
}

ReportRun::~ReportRun() {
    // The end of a run sends its print job off, so one that mustn't be printed is left to the
    // system, which drops the unfinished job of a program that ends.
    if (open_ && request_.target != Target::PRINTER) RepExit(params_.SessionId, 0, nullptr);
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
    if (copy_ && lstrcmpiA(Printer().c_str(), copy_->Printer().c_str()))
        throw Failure(copy_->Printer() + ": the printer has no entry among the system's devices; "
                                         "add it anew, or name another with --printer");
    return unattended_->TakeTexts();
}

// What can't be stored while records come is the report's, everything else the form's.
void ReportRun::Record() {
    const int code = RepRec(params_.SessionId, 0, 0);
    const bool storing = code == CODE_FILE && request_.target == Target::FILE;
    Check(code, storing ? request_.output : request_.form);
}

void ReportRun::Tell(const std::string &text) {
    told_ = text;
    shown_ = {-1, -1}; // none that a preview shows
    TellPage();
}

// The title is set anew only when it changes.
void ReportRun::TellPage() {
    const auto *head =
        reinterpret_cast<const SessionHead *>(GetSessionPointer(nullptr, params_.SessionId));
    if (!head || !std::memcmp(&head->Preview, &shown_, sizeof shown_)) return;
    shown_ = head->Preview;
    const std::string name = request_.form.substr(request_.form.find_last_of("\\/:") + 1);
    std::string title = name + " - ";
    if (shown_.PageOnView > 0)
        title += "page " + std::to_string(+shown_.PageOnView) + " of " +
                 std::to_string(+shown_.FinishedPages) + ", ";
    SetWindowTextA(head->View.ReportWindow, (title + told_).c_str());
}

std::string ReportRun::Printer() const {
    const HGLOBAL block = GetDevNames(GetSessionPointer(nullptr, params_.SessionId));
    if (!block) throw Failure("there is no memory for the printer's name");
    const auto *names = static_cast<const DEVNAMES *>(GlobalLock(block));
    const std::string device = reinterpret_cast<const char *>(names) + names->wDeviceOffset;
    GlobalUnlock(block);
    GlobalFree(block);
    return device;
}

int ReportRun::Finish() {
    open_ = false;
    const bool to_file = request_.target == Target::FILE;
    int32_t pages = 0;
    Check(RepExit(params_.SessionId, 0, &pages), to_file ? request_.output : request_.form);
    if (to_file && pages > 0) {
        made_ = ReadReportHeader(part_->Path());
        part_->PutInPlace();
    }
    return pages;
}

bool ReportRun::Show() {
    MSG message;
    while (GetSessionPointer(nullptr, params_.SessionId)) {
        if (!AwaitMessage()) return false;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        TellPage();
    }
    return true;
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
