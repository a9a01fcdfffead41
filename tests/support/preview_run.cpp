#include "tests/support/preview_run.h"

FiveAPage::FiveAPage() {
    const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
    Section(SECTION_DETAIL_1, 500);
    FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
    Label(SECTION_DETAIL_1, 800, 100, 400, 60, "label");
    Line(SECTION_DETAIL_1, 200, 300, 1000, 100, 2);
}

PreviewRun::PreviewRun(const FormBuilder &form) : run(form) {
    run.params.Device = 'S';
    run.params.WindowStyle = WS_OVERLAPPEDWINDOW;
    run.params.WindowWidth = 500;
    run.params.WindowHeight = 500;
}

PreviewRun::~PreviewRun() {
    if (!session || !Open()) return;
    if (session->report.RunPhase != tessarine::PHASE_FINISHED) run.Finish();
    if (Open()) Send(WM_CLOSE, 0);
}

void PreviewRun::Start() {
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    session = tessarine::GetSessionPointer(nullptr, run.params.SessionId);
}

int PreviewRun::Feed(int records) {
    int code = 0;
    for (int record = 0; record < records && !code; ++record)
        code = run.Feed({{"NAME", "record " + std::to_string(session->report.RecordCount)}});
    return code;
}

void PreviewRun::Finish(int records) {
    ASSERT_EQ(Feed(records), 0) << boxes.LastText();
    ASSERT_EQ(run.Finish(), 0) << boxes.LastText();
}

bool PreviewRun::Open() const {
    return tessarine::GetSessionPointer(nullptr, run.params.SessionId) == session;
}

std::string PreviewRun::Enabled() const {
    std::string enabled;
    for (const int number : {COMMAND_JUMP, COMMAND_PRINT, COMMAND_FIT, COMMAND_SAVE, COMMAND_EXIT})
        enabled += MenuEnabled(number) ? 'x' : '-';
    return enabled;
}

int PreviewRun::FilesOfPages() const {
    WIN32_FIND_DATAA found{};
    const std::string pattern = std::string(run.params.TempDir) + "\\*.MF*";
    const HANDLE search = FindFirstFileA(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return 0;
    int count = 1;
    while (FindNextFileA(search, &found)) ++count;
    FindClose(search);
    return count;
}
