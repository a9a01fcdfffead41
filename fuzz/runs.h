// Runs of the library to a report file in the scratch folder.
#pragma once

#include <string>

#include "tessarine.h"

class FuzzRun {
public:
    // Starts a run of a form file of the scratch folder.
    explicit FuzzRun(const std::string &form);
    ~FuzzRun(); // ends it
    FuzzRun(const FuzzRun &) = delete;
    FuzzRun &operator=(const FuzzRun &) = delete;

    explicit operator bool() const { return open_; }
    const RepParams &Params() const { return params_; }
    bool Record() { return RepRec(params_.SessionId, 0, 0) == CODE_DONE; }
    // Fills every data field with a value that the number settles, and processes the record.
    bool MadeUpRecord(int number);

    static std::string ReportName() { return "RUN.FRC"; }

private:
    RepParams params_{};
    uint32_t label_form_;
    HostData data_{};
    bool open_;
};

// A run of a few records.
void RunForm(const std::string &form);
