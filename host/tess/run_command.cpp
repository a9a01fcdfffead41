#include "host/tess/run_command.h"

#include <cstdio>
#include <map>

#include "host/base/failure.h"
#include "host/base/files.h"
#include "host/base/interrupt.h"
#include "host/base/progress.h"
#include "host/data/json_source.h"
#include "host/data/values.h"
#include "host/forms/form_image.h"
#include "host/run/form_remarks.h"
#include "host/run/preview_keys.h"
#include "host/run/report_run.h"
#include "host/run/unattended.h"

namespace {

constexpr size_t PROGRESS_STEP = 500; // records
constexpr size_t TITLE_STEP = 10;

struct TargetName {
    const char *name;
    Target target;
};

constexpr TargetName targets[] = {
    {"file", Target::FILE}, {"screen", Target::SCREEN}, {"printer", Target::PRINTER}};

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
    RunRequest request{options.form,
                       options.output,
                       Target::FILE,
                       {options.printer, options.paper, options.landscape}};
    for (const TargetName &row : targets)
        if (options.to == row.name) request.target = row.target;
    if (request.target == Target::FILE && options.output.empty())
        throw Failure("run: name the report file to write with --output", EXIT_USAGE);
    if (request.target != Target::FILE && !options.output.empty())
        throw Failure("run: --output is for runs --to file", EXIT_USAGE);
    return request;
}

void TellRemarks(const std::string &path, const std::vector<std::string> &remarks) {
    for (const std::string &remark : remarks)
        std::fprintf(stderr, "tess: %s: %s\n", path.c_str(), remark.c_str());
}

void Start(const RunOptions &options, const FormHeader &form, ReportRun *run) {
    TellRemarks(options.form, run->Start());
    const std::string printer = run->Printer();
    if (options.printer.empty()) TellRemarks(options.form, PrinterRemarks(form, printer));
    TellRemarks(options.form, FontRemarks(ReadForm(options.form), printer));
}

// The count of records.
size_t Feed(const CsvTable &table, ReportRun *run, const RunOptions &options) {
    const RecordFeed feed(table, run->Params());
    for (const std::string &column : feed.unused)
        std::fprintf(stderr, "tess: %s: no field of the form takes the column \"%s\"\n",
                     table.path.c_str(), column.c_str());
    const Progress progress(feed.Count(), "records", PROGRESS_STEP);
    for (size_t place = 0; place < feed.Count(); ++place) {
        if (StopWanted()) throw Failure("stopped; no report was made", EXIT_CANCELLED);
        feed.Write(place, run->Params());
        run->Record();
        if (!options.silent) progress.Show(place + 1);
        if (options.to == "screen" && place % TITLE_STEP == 0)
            run->Tell(std::to_string(place + 1) + " of " + std::to_string(feed.Count()) +
                      " records");
    }
    return feed.Count();
}

void Summarize(const std::string &output, const ReportFileHeader &header) {
    std::printf("%s: %d page%s, %d record%s\n", output.c_str(), +header.PageCount,
                header.PageCount == 1 ? "" : "s", +header.RecordCount,
                header.RecordCount == 1 ? "" : "s");
}

void SummarizePrint(const std::string &printer, int pages, size_t records) {
    std::printf("%s: %d page%s printed from %zu record%s\n", printer.c_str(), pages,
                pages == 1 ? "" : "s", records, records == 1 ? "" : "s");
}

// An earlier report would pass for the one of this run.
void TellNothingSelected(const RunOptions &options) {
    const bool removed = !options.output.empty() && RemoveFile(options.output);
    std::fprintf(stderr, "tess: %s: no record was selected, so there is no report%s\n",
                 options.data.c_str(),
                 removed ? ("; the earlier " + options.output + " was removed").c_str() : "");
}

void ShowPreview(ReportRun *run, size_t records) {
    run->Tell(std::to_string(records) + (records == 1 ? " record" : " records"));
    std::fprintf(stderr, "the preview is open; close its window to end\n");
    std::fflush(stderr);
    if (!run->Show()) throw Failure("stopped; the preview was closed", EXIT_CANCELLED);
}

} // namespace

int RunCommand(const RunOptions &options) {
    const RunRequest request = Request(options);
    for (const std::string &input : {options.form, options.data}) KeepInput(options.output, input);
    const FormHeader form = ReadFormHeader(options.form);
    const CsvTable table = ReadTable(options.data);
    const bool preview = request.target == Target::SCREEN;
    Unattended unattended(Answers(options), preview ? Person::PRESENT : Person::ABSENT);
    const LabelWords words(form.LabelType != 0);
    WatchInterrupt();
    ReportRun run(request, &unattended);
    const PreviewKeys keys;
    Start(options, form, &run);
    const std::string printer = run.Printer();
    const size_t records = Feed(table, &run, options);
    const int pages = run.Finish();
    if (preview)
        ShowPreview(&run, records);
    else if (pages == 0)
        TellNothingSelected(options);
    else if (!options.silent && request.target == Target::PRINTER)
        SummarizePrint(printer, pages, records);
    else if (!options.silent)
        Summarize(options.output, run.Made());
    return EXIT_DONE;
}
