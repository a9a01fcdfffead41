// shot NAME FORM DATA REPORT PICTURE: takes a picture of a window for the documents.
#include <cstdio>
#include <cstring>
#include <map>
#include <string>

#include <windows.h>

#include "commands.h"
#include "host/data/csv_source.h"
#include "host/data/values.h"
#include "host/run/report_run.h"
#include "host/view/resource_ids.h"
#include "host/view/viewer.h"
#include "tools/shot/contact_sheet.h"
#include "tools/shot/designer_shots.h"
#include "tools/shot/window_picture.h"

namespace {

constexpr size_t RECORDS_OF_RUNNING = 60; // enough that a page is finished

struct Request {
    std::string form;
    std::string data;
    std::string report;
    std::string picture;
};

HWND Preview() { return FindWindowA("RepClass32", nullptr); }

void TakePreview(const Request &request, bool finish, WPARAM command) {
    const CsvTable table = ReadCsv(request.data);
    Unattended unattended({}, Person::ABSENT);
    const LabelWords words(false);
    ReportRun run({request.form, "", Target::SCREEN}, &unattended);
    run.Start();
    const RecordFeed feed(table, run.Params());
    for (size_t place = 0; place < feed.Count(); ++place) {
        if (!finish && place == RECORDS_OF_RUNNING) break;
        feed.Write(place, run.Params());
        run.Record();
    }
    if (finish) run.Finish();
    Settle(Preview());
    const std::string records = std::to_string(feed.Count()) + " records";
    run.Tell(finish ? records : std::to_string(RECORDS_OF_RUNNING) + " of " + records);
    if (command) SendMessageA(Preview(), WM_COMMAND, command, 0);
    TakeWindow(Preview(), request.picture);
    if (finish) SendMessageA(Preview(), WM_CLOSE, 0, 0);
}

void TakeViewer(const Request &request) {
    Viewer viewer(request.report);
    Settle(viewer.Window());
    viewer.Command(VIEW_FIT_WIDTH);
    TakeWindow(viewer.Window(), request.picture);
}

template <void (*Show)(HWND, const std::string &)> void TakeDesigner(const Request &request) {
    TakeDesignerOn(request.form, request.data, request.picture, Show);
}

} // namespace

constexpr struct {
    const char *name;
    void (*take)(const Request &request);
} shots[] = {
    {"preview", [](const Request &request) { TakePreview(request, true, 0); }},
    {"preview-fitted", [](const Request &request) { TakePreview(request, true, COMMAND_FIT); }},
    {"preview-running", [](const Request &request) { TakePreview(request, false, 0); }},
    {"viewer", TakeViewer},
    {"dialogs", [](const Request &request) { TakeDialogs(request.picture); }},
    {"designer", TakeDesigner<ShowItem>},
    {"designer-group", TakeDesigner<ShowGroup>},
    {"designer-labels", TakeDesigner<ShowLabels>},
    {"designer-expression", TakeDesigner<ShowExpression>},
};

int main(int count, char **arguments) {
    if (count == 6) {
        for (const auto &shot : shots) {
            if (std::strcmp(shot.name, arguments[1])) continue;
            try {
                shot.take({arguments[2], arguments[3], arguments[4], arguments[5]});
                return 0;
            } catch (const std::exception &failure) {
                std::fprintf(stderr, "shot: %s\n", failure.what());
                return 1;
            }
        }
    }
    std::fprintf(stderr, "usage: shot NAME FORM DATA REPORT PICTURE; the names are");
    for (const auto &shot : shots) std::fprintf(stderr, " %s", shot.name);
    std::fprintf(stderr, "\n");
    return 2;
}
