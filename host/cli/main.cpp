// tess: reports from the command line.
#include <cstdio>
#include <cstring>

#include <CLI/CLI.hpp>
#include <windows.h>

#include "host/cli/commands.h"
#include "host/cli/failure.h"

namespace {

void AddRun(CLI::App *app, RunOptions *options, int *code) {
    CLI::App *command = app->add_subcommand("run", "Run a report from a form and a CSV table");
    command->add_option("--form", options->form, "the form (.FP)")->required();
    command->add_option("--data", options->data, "the table (.csv); its header names the fields")
        ->required();
    command->add_option("--to", options->to, "file, or screen for a preview that fills as it runs")
        ->check(CLI::IsMember({"file", "screen"}))
        ->capture_default_str();
    command->add_option("--output", options->output, "the report file to write (.FRC)");
    command->add_option("--set", options->answers, "answer a user field, as NAME=VALUE")
        ->allow_extra_args(false);
    command->add_flag("--silent", options->silent, "print nothing when all went well");
    command->callback([=] { *code = RunCommand(*options); });
}

void AddPages(CLI::App *app, PagesOptions *options, int *code) {
    CLI::App *command = app->add_subcommand("pages", "Draw or list the pages of a report");
    command->add_option("report", options->report, "the report (.FRC)")->required();
    CLI::Option *folder =
        command->add_option("--png", options->folder, "draw each page as a picture in this folder");
    CLI::Option *text =
        command->add_flag("--text", options->text, "print each text with its place in form units");
    command->add_option("--pages", options->pages, "only these, as 2 or 1-3");
    command->add_option("--dpi", options->dpi, "pixels to the inch")->check(CLI::Range(10, 1200));
    folder->excludes(text);
    command->callback([=] {
        if (options->folder.empty() && !options->text)
            throw Failure("pages: say what to make: --png FOLDER or --text", EXIT_USAGE);
        *code = PagesCommand(*options);
    });
}

void AddPrint(CLI::App *app, PrintOptions *options, int *code) {
    CLI::App *print = app->add_subcommand("print", "Print pages of a report");
    CLI::App *pdf = app->add_subcommand("pdf", "Make a PDF of a report by a printer for PDF");
    for (CLI::App *command : {print, pdf}) {
        command->add_option("report", options->report, "the report (.FRC)")->required();
        command->add_option("--pages", options->pages, "only these, as 2 or 1-3");
        command->add_option("--printer", options->printer, "its name; see tess printers");
    }
    print->add_option("--copies", options->copies, "of each page")->check(CLI::Range(1, 999));
    print->callback([=] { *code = PrintCommand(*options); });
    pdf->add_option("pdf", options->output, "the PDF to write")->required();
    pdf->callback([=] { *code = PdfCommand(*options); });
    CLI::App *printers = app->add_subcommand("printers", "List the printers; * is the default");
    printers->callback([=] { *code = PrintersCommand(); });
}

void AddForm(CLI::App *app, std::string *from, std::string *to, int *code) {
    CLI::App *form = app->add_subcommand("form", "A form as JSON text and back");
    form->require_subcommand(1);
    CLI::App *build = form->add_subcommand("build", "Make a form from its JSON");
    build->add_option("json", *from, "the JSON")->required();
    build->add_option("form", *to, "the form to write (.FP)")->required();
    build->callback([=] { *code = FormBuildCommand(*from, *to); });
    CLI::App *dump = form->add_subcommand("dump", "Write a form as JSON");
    dump->add_option("form", *from, "the form (.FP)")->required();
    dump->add_option("json", *to, "the JSON to write")->required();
    dump->callback([=] { *code = FormDumpCommand(*from, *to); });
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
    app.require_subcommand(1);
    RunOptions run;
    PagesOptions pages;
    PrintOptions print;
    std::string path;
    std::string from;
    std::string to;
    int code = EXIT_DONE;
    AddRun(&app, &run, &code);
    AddPages(&app, &pages, &code);
    AddPrint(&app, &print, &code);
    CLI::App *info = app.add_subcommand("info", "Tell what a form or a report holds");
    info->add_option("file", path, "the form (.FP) or report (.FRC)")->required();
    info->callback([&] { code = InfoCommand(path); });
    CLI::App *view = app.add_subcommand("view", "Show a report in a window");
    view->add_option("report", path, "the report (.FRC)")->required();
    view->callback([&] { code = ViewCommand(path); });
    AddForm(&app, &from, &to, &code);
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
