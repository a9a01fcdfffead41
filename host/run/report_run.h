// A run of the library to one of its devices.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/base/part_file.h"
#include "host/run/form_copy.h"
#include "host/run/unattended.h"
#include "tessarine.h"

enum class Target { FILE, SCREEN, PRINTER };

struct RunRequest {
    std::string form;
    std::string output; // of a run to a file
    Target target = Target::FILE;
    PaperWish wish{};
};

// The words of the host that make the library work in label mode.
class LabelWords {
public:
    explicit LabelWords(bool label_form);
    LabelWords(const LabelWords &) = delete;
    LabelWords &operator=(const LabelWords &) = delete;
    ~LabelWords();

private:
    uint32_t label_form_;
    HostData data_{};
};

// Ended whatever comes: a run that doesn't reach Finish leaves no file and no print job behind, the
// job because it ends with the program. Every routine throws Failure with what the library said.
class ReportRun {
public:
    ReportRun(RunRequest request, Unattended *unattended);
    ReportRun(const ReportRun &) = delete;
    ReportRun &operator=(const ReportRun &) = delete;
    ~ReportRun();

    // Remarks of the library about the form, which don't hinder the run, are returned.
    std::vector<std::string> Start();
    // The run's tables, from Start on.
    const RepParams &Params() const { return params_; }
    // Puts the page on view and this text into the preview's title, behind the form's name.
    void Tell(const std::string &text);
    // Processes the record that stands in the tables.
    void Record();
    // The printer that the pages are laid out for, from Start on.
    std::string Printer() const;
    // The count of pages; 0 when no record was selected, which makes no report file.
    int Finish();
    // The header of the report file that Finish has put in place.
    const ReportFileHeader &Made() const { return made_; }
    // Serves the preview until the user closes it; false when an interrupt came first.
    bool Show();

private:
    void Check(int code, const std::string &file);
    std::string LastText();
    void TellPage();

    RunRequest request_;
    Unattended *unattended_;
    std::unique_ptr<FormCopy> copy_;
    RepParams params_{};
    std::optional<PartFile> part_; // of the report file
    ReportFileHeader made_{};
    bool open_ = false;
    std::string told_; // what the title says behind the page
    PreviewWords shown_{};
};
