#include <atomic>
#include <cstdio>
#include <map>

#include <io.h>

#include "host/cli/commands.h"
#include "host/cli/failure.h"
#include "host/data/files.h"
#include "host/data/values.h"
#include "host/export/report_pages.h"
#include "host/forms/form_image.h"
#include "host/run/preview_keys.h"
#include "host/run/report_run.h"
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

RunRequest Request(const RunOptions &options) {
    RunRequest request{options.form, options.output, Target::FILE};
    if (options.to == "screen") request.target = Target::SCREEN;
    if (request.target == Target::FILE && options.output.empty())
        throw Failure("run: name the report file to write with --output", EXIT_USAGE);
    if (request.target != Target::FILE && !options.output.empty())
        throw Failure("run: --output is for runs --to file", EXIT_USAGE);
    return request;
}

void Feed(const RunOptions &options, const CsvTable &table, ReportRun *run) {
    for (const std::string &remark : run->Start())
        std::fprintf(stderr, "tess: %s: %s\n", options.form.c_str(), remark.c_str());
    const RecordFeed feed(table, run->Params());
    for (const std::string &column : feed.unused)
        std::fprintf(stderr, "tess: %s: no field of the form takes the column \"%s\"\n",
                     table.path.c_str(), column.c_str());
    const Progress progress(feed.Count());
    for (size_t place = 0; place < feed.Count(); ++place) {
        if (stop_wanted) throw Failure("stopped; no report was written", EXIT_CANCELLED);
        feed.Write(place, run->Params());
        run->Record();
        progress.Show(place + 1);
    }
}

void Summarize(const std::string &output) {
    const ReportFileHeader header = ReadReport(output).header;
    std::printf("%s: %d page%s, %d record%s\n", output.c_str(), +header.PageCount,
                header.PageCount == 1 ? "" : "s", +header.RecordCount,
                header.RecordCount == 1 ? "" : "s");
}

void ShowPreview(ReportRun *run) {
    std::fprintf(stderr, "the preview is open; close its window to end\n");
    std::fflush(stderr);
    run->Show();
}

} // namespace

int RunCommand(const RunOptions &options) {
    const RunRequest request = Request(options);
    const FormImage form = ReadForm(options.form);
    const CsvTable table = ReadCsv(options.data);
    const bool preview = request.target == Target::SCREEN;
    Unattended unattended(Answers(options, form), preview ? Person::PRESENT : Person::ABSENT);
    const LabelWords words(form.header.LabelType != 0);
    SetConsoleCtrlHandler(OnInterrupt, TRUE);
    ReportRun run(request, &unattended);
    const PreviewKeys keys;
    Feed(options, table, &run);
    if (!run.Finish())
        std::fprintf(stderr, "tess: %s: no record was selected, so there is no report\n",
                     options.data.c_str());
    else if (preview)
        ShowPreview(&run);
    else if (!options.silent)
        Summarize(options.output);
    return EXIT_DONE;
}
