// tess: reports from the command line.
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>

#include <CLI/CLI.hpp>
#include <windows.h>

#include "host/base/failure.h"
#include "host/tess/design_command.h"
#include "host/tess/form_commands.h"
#include "host/tess/info_command.h"
#include "host/tess/pages_command.h"
#include "host/tess/pdf_command.h"
#include "host/tess/print_command.h"
#include "host/tess/printers_command.h"
#include "host/tess/run_command.h"
#include "host/tess/view_command.h"

namespace {

void Describe(CLI::App *command, RunOptions *options) {
    command->add_option("--form", options->form, "the form (.FP)")->required();
    command->add_option("--data", options->data, "the table (.csv, or .json: a list of records)")
        ->required();
    command
        ->add_option("--to", options->to,
                     "file, printer, or screen for a preview that fills as it runs")
        ->check(CLI::IsMember({"file", "screen", "printer"}))
        ->capture_default_str();
    command->add_option("--output", options->output, "the report file to write (.FRC)");
    command->add_option("--printer", options->printer,
                        "lay the pages out for this printer; see tess printers");
    command->add_option("--paper", options->paper, "on this of its papers, such as A4");
    command->add_flag("--landscape", options->landscape, "on the paper turned");
    command->add_option("--set", options->answers, "answer a user field, as NAME=VALUE")
        ->allow_extra_args(false);
    command->add_flag("--silent", options->silent, "say nothing when all goes well");
}

void Describe(CLI::App *command, DesignOptions *options) {
    command->add_option("form", options->form, "the form (.FP); a new one when it isn't there")
        ->required();
    command->add_option("--data", options->data,
                        "the table (.csv, .json) whose columns are the fields");
}

void Describe(CLI::App *command, PagesOptions *options) {
    command->add_option("report", options->report, "the report (.FRC)")->required();
    CLI::Option *folder =
        command->add_option("--png", options->folder, "draw each page as a picture in this folder");
    CLI::Option *text =
        command->add_flag("--text", options->text, "print each text with its place in form units");
    command->add_option("--pages", options->pages, "only these, as 2 or 1-3");
    command->add_option("--dpi", options->dpi, "pixels to the inch")->check(CLI::Range(10, 1200));
    folder->excludes(text);
}

void Describe(CLI::App *command, PrintOptions *options) {
    command->add_option("report", options->report, "the report (.FRC)")->required();
    command->add_option("--pages", options->pages, "only these, as 2 or 1-3");
    command->add_option("--printer", options->printer, "its name; see tess printers");
    command->add_option("--copies", options->copies, "of each page")->check(CLI::Range(1, 999));
}

void Describe(CLI::App *command, PdfOptions *options) {
    command->add_option("report", options->report, "the report (.FRC)")->required();
    command->add_option("pdf", options->pdf, "the PDF to write")->required();
    command->add_option("--pages", options->pages, "only these, as 2 or 1-3");
    command->add_option("--printer", options->printer, "its name; see tess printers");
}

void Describe(CLI::App *command, FormOptions *options) {
    command->add_option("from", options->from, "what to read")->required();
    command->add_option("to", options->to, "what to write")->required();
}

void Describe(CLI::App *command, std::string *path) {
    command->add_option("file", *path, "the file")->required();
}

void Describe(CLI::App *, PrintersOptions *) {}

using Action = std::function<int()>;

// Gives the command its options; what comes back runs it on them.
template <typename Options, int (*Command)(const Options &)> Action Prepare(CLI::App *command) {
    const auto options = std::make_shared<Options>();
    Describe(command, options.get());
    return [options] { return Command(*options); };
}

struct CommandRow {
    const char *name;
    const char *about;
    Action (*prepare)(CLI::App *command);
};

constexpr CommandRow commands[] = {
    {"run", "Run a report from a form and a table", Prepare<RunOptions, RunCommand>},
    {"design", "Lay a form (.FP) out in the designer", Prepare<DesignOptions, DesignCommand>},
    {"view", "Show a report (.FRC) in a window", Prepare<std::string, ViewCommand>},
    {"pages", "Draw or list the pages of a report", Prepare<PagesOptions, PagesCommand>},
    {"print", "Print pages of a report", Prepare<PrintOptions, PrintCommand>},
    {"pdf", "Make a PDF of a report by a printer for PDF", Prepare<PdfOptions, PdfCommand>},
    {"printers", "List the printers; * is the default", Prepare<PrintersOptions, PrintersCommand>},
    {"info", "Tell what a form (.FP) or a report (.FRC) holds", Prepare<std::string, InfoCommand>},
};

constexpr CommandRow form_commands[] = {
    {"build", "Make a form (.FP) from its JSON", Prepare<FormOptions, FormBuildCommand>},
    {"dump", "Write a form (.FP) as JSON", Prepare<FormOptions, FormDumpCommand>},
};

template <size_t Count> void Offer(CLI::App *app, const CommandRow (&rows)[Count], int *code) {
    app->require_subcommand(1);
    for (const CommandRow &row : rows) {
        CLI::App *command = app->add_subcommand(row.name, row.about);
        command->callback([action = row.prepare(command), code] { *code = action(); });
    }
}

// A report as the only argument is shown: that is how a desktop opens a file.
bool IsReportAlone(int count, char **arguments) {
    if (count != 2 || GetFileAttributesA(arguments[1]) == INVALID_FILE_ATTRIBUTES) return false;
    const char *ending = std::strrchr(arguments[1], '.');
    return ending && (!lstrcmpiA(ending, ".frc") || !lstrcmpiA(ending, ".fr"));
}

} // namespace

int main(int count, char **arguments) {
    CLI::App app("Tessarine reports from the command line");
    int code = EXIT_DONE;
    Offer(&app, commands, &code);
    Offer(app.add_subcommand("form", "A form as JSON text and back"), form_commands, &code);
    try {
        if (IsReportAlone(count, arguments)) return ViewCommand(arguments[1]);
        app.parse(count, arguments);
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? EXIT_DONE : EXIT_USAGE;
    } catch (const Failure &failure) {
        std::fprintf(stderr, "tess: %s\n", failure.what());
        return failure.code;
    } catch (const std::exception &failure) {
        std::fprintf(stderr, "tess: %s\n", failure.what());
        return EXIT_FAILED;
    }
    return code;
}
