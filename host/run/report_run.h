// A run of the library to one of its devices.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/data/csv_source.h"
#include "host/run/unattended.h"
#include "tessarine.h"

enum class Target { FILE, SCREEN };

struct RunRequest {
    std::string form;
    std::string output; // of a run to a file
    Target target = Target::FILE;
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

// Ended whatever comes: a run that doesn't reach Finish leaves no file behind. Every routine
// throws Failure with what the library said.
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
    // Processes the record that stands in the tables.
    void Record();
    // False when no record was selected, which leaves no report file.
    bool Finish();
    // Serves the preview until the user closes it.
    void Show();

private:
    void Check(int code, const std::string &file);
    std::string LastText();

    RunRequest request_;
    Unattended *unattended_;
    RepParams params_{};
    bool open_ = false;
    bool kept_ = false;
};
