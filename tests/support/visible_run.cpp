#include "tests/support/visible_run.h"

#include <cstring>

ListForm::ListForm(bool footer) {
    const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
    Section(SECTION_DETAIL_1, 500);
    FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
    if (!footer) return;
    Section(SECTION_REPORT_FOOTER, 2000);
    Label(SECTION_REPORT_FOOTER, 200, 0, 500, 50, "end");
}

TitlePage::TitlePage() {
    header.FormFlags = FORM_REPORT_HEADER_FIRST;
    Section(SECTION_REPORT_HEADER, 100, SECTION_ADVANCE_AFTER);
    Label(SECTION_REPORT_HEADER, 200, 0, 500, 50, "title");
}

VisibleRun::VisibleRun() {
    boxes.OnDialog("Printing In Progress...", [](HWND) {});
    boxes.OnDialog("Printing to File...", [](HWND) {});
}

int VisibleRun::Start(char device, const FormBuilder &form) {
    run = std::make_unique<ReportRun>(form);
    run->params.Device = device;
    run->params.Silent = silent;
    run->params.ParentWindow = owner;
    if (!output.empty()) std::strcpy(run->params.OutputFile, output.c_str());
    const int code = run->Start();
    session = tessarine::GetSessionPointer(nullptr, run->params.SessionId);
    return code;
}

int VisibleRun::Feed(int records) {
    int code = 0;
    for (int record = 0; record < records && !code; ++record)
        code = run->Feed({{"NAME", "record"}});
    return code;
}
