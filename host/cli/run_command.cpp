#include <atomic>
#include <cstdio>
#include <cstring>
#include <map>

#include <io.h>

#include "host/cli/commands.h"
#include "host/cli/failure.h"
#include "host/data/files.h"
#include "host/data/values.h"
#include "host/export/report_pages.h"
#include "host/forms/form_image.h"
#include "host/run/unattended.h"

namespace {

constexpr size_t PROGRESS_STEP = 500; // records

std::atomic<bool> stop_wanted = false;

BOOL WINAPI OnInterrupt(DWORD) {
    stop_wanted = true;
    return TRUE;
}

// Answers by the prompt under which the form asks for a field.
std::map<std::string, std::string> Answers(const RunOptions &options, const FormImage &form) {
    std::map<std::string, std::string> answers;
    for (const std::string &answer : options.answers) {
        const size_t equals = answer.find('=');
        if (equals == std::string::npos)
            throw Failure("--set " + answer + ": write it as NAME=VALUE", EXIT_USAGE);
        const std::string name = answer.substr(0, equals);
        bool known = false;
        for (const UserFieldRecord &user : form.users) {
            if (!user.InUse || lstrcmpiA(user.UserName, name.c_str())) continue;
            answers[user.UserPrompt] = answer.substr(equals + 1);
            known = true;
        }
        if (!known)
            throw Failure("--set " + answer + ": the form " + options.form + " has no user field " +
                          name);
    }
    return answers;
}

// The words of the host that make the library work in label mode.
class LabelWords {
public:
    explicit LabelWords(const FormImage &form) : label_form_(form.header.LabelType != 0) {
        data_.LabelForm = &label_form_;
        SetCRepData(&data_);
    }
    LabelWords(const LabelWords &) = delete;
    LabelWords &operator=(const LabelWords &) = delete;
    ~LabelWords() { RemoveCRepData(&data_); }

private:
    uint32_t label_form_;
    HostData data_{};
};

class Progress {
public:
    explicit Progress(size_t total) : total_(total), live_(_isatty(_fileno(stderr)) != 0) {}
    void Show(size_t done) const {
        if (done % PROGRESS_STEP && done != total_) return;
        std::fprintf(stderr, live_ ? "\r%zu of %zu records" : "%zu of %zu records\n", done, total_);
        if (live_ && done == total_) std::fprintf(stderr, "\n");
        std::fflush(stderr);
    }

private:
    size_t total_;
    bool live_;
};

template <size_t Size>
void PutPath(char (&field)[Size], const std::string &path, const char *option) {
    char full[MAX_PATH] = "";
    GetFullPathNameA(path.c_str(), sizeof full, full, nullptr);
    if (std::strlen(full) >= Size)
        throw Failure(std::string(option) + " " + path + ": the path is too long", EXIT_USAGE);
    std::strcpy(field, full);
}

// A run of the library that is ended, whatever comes.
class Run {
public:
    Run(const RunOptions &options, Unattended *unattended)
        : options_(options), unattended_(unattended), partial_(options.output + ".part") {
        PutPath(params_.FormFile, options.form, "--form");
        PutPath(params_.OutputFile, partial_, "--output");
        TakeTempDirectory();
        params_.Device = 'F';
        params_.Silent = 1;
    }
    Run(const Run &) = delete;
    Run &operator=(const Run &) = delete;
    ~Run() {
        if (open_) RepExit(params_.SessionId, 0, nullptr);
        if (!kept_) DeleteFileA(params_.OutputFile);
    }

    void Start() {
        const int code = RepInit(&params_, 0, nullptr, nullptr);
        if (!unattended_->Refused().empty())
            throw Failure(options_.form + ": the answer to \"" + unattended_->Refused() +
                          "\" was refused: " + LastText());
        if (code == CODE_NO_OUTPUT_FILE)
            throw Failure(options_.output + ": can't be written: " + LastText());
        Check(code, options_.form);
        open_ = true;
        for (const std::string &text : unattended_->TakeTexts())
            std::fprintf(stderr, "tess: %s: %s\n", options_.form.c_str(), text.c_str());
    }

    // False when the user stopped it.
    bool Feed(const CsvTable &table) {
        const RecordFeed feed(table, params_);
        for (const std::string &column : feed.unused)
            std::fprintf(stderr, "tess: %s: no field of the form takes the column \"%s\"\n",
                         table.path.c_str(), column.c_str());
        const Progress progress(feed.Count());
        for (size_t place = 0; place < feed.Count(); ++place) {
            if (stop_wanted) return false;
            feed.Write(place, params_);
            Check(RepRec(params_.SessionId, 0, 0), options_.form);
            progress.Show(place + 1);
        }
        return true;
    }

    // False when no record was selected, which leaves no report.
    bool Finish() {
        open_ = false;
        Check(RepExit(params_.SessionId, 0, nullptr), options_.output);
        if (GetFileAttributesA(params_.OutputFile) == INVALID_FILE_ATTRIBUTES) {
            std::fprintf(stderr, "tess: %s: no record was selected, so there is no report\n",
                         options_.data.c_str());
            kept_ = true;
            return false;
        }
        PutInPlace(params_.OutputFile, options_.output);
        kept_ = true;
        return true;
    }

private:
    void TakeTempDirectory() {
        char folder[MAX_PATH] = "";
        GetTempPathA(sizeof folder, folder);
        std::strncpy(params_.TempDir, folder, sizeof params_.TempDir - 1);
    }

    std::string LastText() {
        const std::vector<std::string> texts = unattended_->TakeTexts();
        return texts.empty() ? "the library gave no reason" : texts.back();
    }

    void Check(int code, const std::string &file) {
        if (code == CODE_DONE) return;
        const int exit_code = code == CODE_CANCELLED ? EXIT_CANCELLED : EXIT_FAILED;
        throw Failure(file + ": " + LastText() + " (code " + std::to_string(code) + ")", exit_code);
    }

    const RunOptions &options_;
    Unattended *unattended_;
    std::string partial_;
    RepParams params_{};
    bool open_ = false;
    bool kept_ = false;
};

} // namespace

int RunCommand(const RunOptions &options) {
    const FormImage form = ReadForm(options.form);
    const CsvTable table = ReadCsv(options.data);
    Unattended unattended(Answers(options, form));
    const LabelWords words(form);
    SetConsoleCtrlHandler(OnInterrupt, TRUE);
    Run run(options, &unattended);
    run.Start();
    if (!run.Feed(table)) throw Failure("stopped; no report was written", EXIT_CANCELLED);
    if (!run.Finish() || options.silent) return EXIT_DONE;
    const ReportFileHeader header = ReadReport(options.output).header;
    std::printf("%s: %d page%s, %d record%s\n", options.output.c_str(), +header.PageCount,
                header.PageCount == 1 ? "" : "s", +header.RecordCount,
                header.RecordCount == 1 ? "" : "s");
    return EXIT_DONE;
}
