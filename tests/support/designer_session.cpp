#include "tests/support/designer_session.h"

#include "designer/open.h"
#include "designer/view.h"
#include "frame/boundary.h"
#include "frame/host_data.h"
#include "frame/session_table.h"
#include "frame/text.h"

using namespace tessarine;

namespace {

DesignerSession *standing = nullptr; // the host's routines know no other way to it

void TakeType(const FieldRecord &from, FieldRecord *record) {
    CopyText(from.FieldName, record->FieldName, sizeof record->FieldName);
    record->HostTable = from.HostTable;
    record->HostField = from.HostField;
    record->ValueType = from.ValueType;
    record->FieldWidth = from.FieldWidth;
    record->Decimals = from.Decimals;
}

} // namespace

DesignerSession::DesignerSession() {
    host_data = HostData{};
    host_data.EditAllowed = &edit_allowed;
    params.WindowX = params.WindowY = 0;
    params.WindowWidth = 900;
    params.WindowHeight = 700;
    params.ShowMenu = params.HorzScroll = params.VertScroll = 1;
    params.ParentWindow = host.Get();
    params.WindowStyle = WS_OVERLAPPEDWINDOW;
    params.PickFieldProc = Pick;
    params.CheckFieldProc = Check;
    standing = this;
}

DesignerSession::~DesignerSession() {
    End();
    standing = nullptr;
    host_data = HostData{};
    new_form_data = NewFormData{};
}

int DesignerSession::Start(const std::string &path) {
    End();
    CopyText(path.c_str(), params.FormFile, sizeof params.FormFile);
    const int code = form(&params);
    session = code ? nullptr : GetSessionPointer(params.FormWindow, 0);
    return code;
}

int DesignerSession::StartOn(const FormBuilder &form) { return Start(Put(form)); }

void DesignerSession::End() {
    if (!session || !SessionStands(session)) return;
    session->form.FormModified = 0;
    WantEnd(session);
    ReleaseIfDue(session);
    session = nullptr;
}

std::string DesignerSession::Put(const FormBuilder &form) {
    const std::string path = folder.Path("FORM" + std::to_string(++files_) + ".FP");
    form.Write(path);
    return path;
}

int DesignerSession::Row(const std::string &label) const {
    for (int row = 0; row < session->form.TotalItems; ++row)
        if (session->form.Items[row].LabelText == label) return row;
    return -1;
}

ItemRecord &DesignerSession::Item(const std::string &label) const {
    const int row = Row(label);
    EXPECT_GE(row, 0) << label;
    return session->form.Items[row < 0 ? 0 : row];
}

ItemRecord &DesignerSession::Bar(int section) const {
    return session->form.Items[session->form.Sections[section].BarItem];
}

FormView DesignerSession::View() const {
    return {{0, CanvasTop(session)},
            {session->view.OriginX, session->view.OriginY},
            session->drawing.LogPixelsX,
            session->drawing.LogPixelsY};
}

void DesignerSession::PressAt(int x, int y, MouseButton button) {
    Press(View().Pixel(x, y), button);
}

void DesignerSession::ReleaseAt(int x, int y, MouseButton button) {
    Release(View().Pixel(x, y), button);
}

void DesignerSession::ClickAt(int x, int y, MouseButton button) {
    Click(View().Pixel(x, y), button);
}

void DesignerSession::MoveTo(int x, int y) { Move(View().Pixel(x, y)); }

void DesignerSession::DragTo(int x, int y, int to_x, int to_y, MouseButton button) {
    PressAt(x, y, button);
    MoveTo((x + to_x) / 2, (y + to_y) / 2);
    MoveTo(to_x, to_y);
    ReleaseAt(to_x, to_y, button);
}

FormBuilder DesignerSession::TwoSections() {
    FormBuilder form;
    form.header.RulerFlags = RULER_INCHES | RULER_SHOWN;
    form.Section(SECTION_PAGE_HEADER, 400);
    form.Item(ITEM_GROUP, SECTION_PAGE_HEADER, 0, 0, 0, 0);
    form.Label(SECTION_PAGE_HEADER, 200, 50, 200, 50, "Alpha");
    form.Label(SECTION_PAGE_HEADER, 500, 150, 200, 50, "Beta");
    form.Section(SECTION_DETAIL_1, 400);
    form.Label(SECTION_DETAIL_1, 300, 50, 200, 50, "Gamma");
    return form;
}

int32_t __stdcall DesignerSession::Pick(HWND, FieldRecord *record, int32_t level, void *) {
    standing->levels.push_back(level);
    if (!*standing->picked.FieldName) return 0;
    TakeType(standing->picked, record);
    return 1;
}

int32_t __stdcall DesignerSession::Check(HWND, FieldRecord *record, int32_t level, void *) {
    standing->levels.push_back(level);
    const auto found = standing->known.find(record->FieldName);
    if (found == standing->known.end()) return 0;
    TakeType(found->second, record);
    return 1;
}
