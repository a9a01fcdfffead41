// A whole run of a form to a report file, from records to pages.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/support/form_builder.h"
#include "tests/support/test_session.h"

using Record = std::map<std::string, std::string>; // values by field name, as text

class ReportRun {
public:
    explicit ReportRun(const FormBuilder &form);

    // Starts the run; 0 or a code.
    int Start();
    // Feeds one record; the code of RepRec.
    int Feed(const Record &record);
    // Ends the run; the code of RepExit.
    int Finish(int fill = 0);

    // Start, all records, Finish: the code of the first that isn't 0.
    int Run(const std::vector<Record> &records);

    std::string Report() const { return ReadWholeFile(params.OutputFile); }
    FieldRecord *Row(const std::string &name) const;

    RepParams params{};
    int32_t page_count = -1;

private:
    TemporaryFolder folder_;
};
