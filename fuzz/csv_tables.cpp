#include <algorithm>
#include <exception>
#include <memory>

#include "fuzz/changes.h"
#include "fuzz/kinds.h"
#include "fuzz/places.h"
#include "fuzz/runs.h"
#include "host/data/values.h"

namespace {

constexpr size_t MOST_RECORDS = 4;
constexpr int TABLES_A_RUN = 200; // pages pile up in a run's scratch files

constexpr const char *words[] = {",",
                                 "\n",
                                 "\r\n",
                                 "\r",
                                 "\"",
                                 "\"\"",
                                 ";",
                                 "\t",
                                 "\xEF\xBB\xBF",
                                 "\xC3\xA9",
                                 "\xF0\x9F\x98\x80",
                                 "\xC3",
                                 "-1",
                                 "0",
                                 "1e308",
                                 "-1e308",
                                 "1e400",
                                 "2147483648",
                                 "99999999999999999999",
                                 "12.5.3",
                                 "2026-03-01",
                                 "20260301",
                                 "03/01/2026",
                                 "13/45/9999",
                                 "true",
                                 "no",
                                 " ",
                                 "nan",
                                 "inf",
                                 "0x10"};

std::string Lines(const char *name, int count) {
    const std::string text = SampleText(name);
    size_t end = 0;
    for (int line = 0; line < count && end != std::string::npos; ++line)
        end = text.find('\n', end + 1);
    return text.substr(0, end);
}

std::vector<std::string> Seeds() { return {Lines("countries.csv", 5), Lines("countries.csv", 2)}; }

std::string Changed(Random *random, const std::string &input) {
    return ChangedText(random, input, words);
}

FuzzRun &OpenRun() {
    static std::unique_ptr<FuzzRun> run;
    static int tables = 0;
    if (!run) WriteScratch("TABLE.FP", FormFile(SampleText("countries.json")));
    if (!run || ++tables % TABLES_A_RUN == 0) {
        run.reset();
        run = std::make_unique<FuzzRun>("TABLE.FP");
    }
    return *run;
}

void Run(const std::string &input) {
    FuzzRun &run = OpenRun();
    try {
        const CsvTable table = ParseCsv("case.csv", input);
        const RecordFeed feed(table, run.Params());
        for (size_t place = 0; place < std::min(feed.Count(), MOST_RECORDS); ++place) {
            feed.Write(place, run.Params());
            run.Record();
        }
    } catch (const std::exception &) { // told to the user
    }
}

} // namespace

const Kind csv_tables = {"csv", Seeds, Changed, Run};
