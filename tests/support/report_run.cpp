#include "tests/support/report_run.h"

#include <cstdlib>
#include <cstring>

#include "run/record_driver.h"
#include "run/run_end.h"
#include "run/set_up.h"

ReportRun::ReportRun(const FormBuilder &form) {
    const std::string path = folder_.Path("FORM.FP");
    form.Write(path);
    std::strcpy(params.FormFile, path.c_str());
    std::strcpy(params.OutputFile, folder_.Path("OUT.FRC").c_str());
    std::strcpy(params.TempDir, folder_.Root().c_str());
    params.Device = 'F';
    params.Silent = 1;
}

int ReportRun::Start() { return tessarine::RepInit(&params, 0, nullptr, nullptr); }

FieldRecord *ReportRun::Row(const std::string &name) const {
    for (int row = 0; row < params.FieldTotal; ++row)
        if (params.FieldTable[row].FieldName == name && params.FieldTable[row].InUse)
            return &params.FieldTable[row];
    return nullptr;
}

int ReportRun::Feed(const Record &record) {
    for (const auto &[name, text] : record) {
        FieldRecord *row = Row(name);
        if (!row) continue;
        if (row->ValueType == TYPE_TEXT)
            std::strcpy(row->TextValue, text.c_str());
        else if (row->ValueType == TYPE_DOUBLE)
            row->DoubleValue = std::strtod(text.c_str(), nullptr);
        else
            row->LongValue = std::strtol(text.c_str(), nullptr, 10);
    }
    return tessarine::RepRec(params.SessionId, 0);
}

int ReportRun::Finish(int fill) { return tessarine::RepExit(params.SessionId, fill, &page_count); }

int ReportRun::Run(const std::vector<Record> &records) {
    if (const int code = Start()) return code;
    int code = 0;
    for (size_t record = 0; record < records.size() && !code; ++record)
        code = Feed(records[record]);
    const int finished = Finish();
    return code ? code : finished;
}
