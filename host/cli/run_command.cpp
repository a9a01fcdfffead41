#include <cstdio>
#include <map>

#include "host/cli/commands.h"
#include "host/cli/failure.h"
#include "host/cli/interrupt.h"
#include "host/cli/progress.h"
#include "host/data/files.h"
#include "host/data/values.h"
#include "host/export/report_pages.h"
#include "host/forms/form_image.h"
#include "host/run/preview_keys.h"
#include "host/run/report_run.h"
#include "host/run/unattended.h"

namespace {

constexpr size_t PROGRESS_STEP = 500; // records

// Answers by the prompt under which the form asks for a field.
std::map<std::string, std::string> Answers(const RunOptions &options) {
    std::map<std::string, std::string> answers;
    if (options.answers.empty()) return answers;
    const FormImage form = ReadForm(options.form);
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
    const Progress progress(feed.Count(), "records", PROGRESS_STEP);
    for (size_t place = 0; place < feed.Count(); ++place) {
        if (StopWanted()) throw Failure("stopped; no report was written", EXIT_CANCELLED);
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
    const FormHeader form = ReadFormHeader(options.form);
    const CsvTable table = ReadCsv(options.data);
    const bool preview = request.target == Target::SCREEN;
    Unattended unattended(Answers(options), preview ? Person::PRESENT : Person::ABSENT);
    const LabelWords words(form.LabelType != 0);
    WatchInterrupt();
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
