// bench_report FORM OUTPUT RECORDS: a run of made-up records to a report file.
// Prints seconds, pages and peak memory in kilobytes.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bench/host.h"
#include "bench/measure.h"

int main(int count, char **arguments) {
    if (count != 4) return 2;
    const int records = std::atoi(arguments[3]);
    RepParams run{};
    std::strncpy(run.FormFile, arguments[1], sizeof run.FormFile - 1);
    std::strncpy(run.OutputFile, arguments[2], sizeof run.OutputFile - 1);
    GetTempPathA(150, run.TempDir);
    run.Device = 'F';
    run.Silent = 1;
    const Measure measure;
    Check(RepInit(&run, 0, nullptr, nullptr));
    FieldRecord *id = Row(run, "ID");
    FieldRecord *name = Row(run, "NAME");
    FieldRecord *city = Row(run, "CITY");
    FieldRecord *amount = Row(run, "AMOUNT");
    FieldRecord *day = Row(run, "DAY");
    for (int record = 0; record < records; ++record) {
        id->LongValue = record;
        std::snprintf(name->TextValue, 30, "Customer %d", record * 7919 % 100003);
        std::snprintf(city->TextValue, 30, "City of %d", record * 31 % 997);
        amount->DoubleValue = record % 10000 + 0.25;
        day->LongValue = 20200101 + record % 28;
        Check(RepRec(run.SessionId, 0, 0));
    }
    int32_t pages = 0;
    Check(RepExit(run.SessionId, 0, &pages));
    std::printf("%.3f %d %lu\n", measure.Seconds(), pages, PeakKilobytes());
    return 0;
}
