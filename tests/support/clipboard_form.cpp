#include "tests/support/clipboard_form.h"

#include "commands.h"
#include "designer/clipboard.h"
#include "designer/designer_state.h"
#include "designer/group.h"

using namespace tessarine;

ClipboardForm::ClipboardForm() {
    if (!OpenClipboard(host.Get())) return;
    EmptyClipboard();
    CloseClipboard();
}

FormBuilder ClipboardForm::Builder() {
    FormBuilder form;
    form.Section(SECTION_PAGE_HEADER, 400);
    form.Item(ITEM_GROUP, SECTION_PAGE_HEADER, 150, 60, 0, 0);
    form.Label(SECTION_PAGE_HEADER, 200, 50, 200, 50, "Alpha");
    form.Section(SECTION_DETAIL_1, 400);
    form.Label(SECTION_DETAIL_1, 300, 50, 200, 50, "Gamma");
    const int name = form.Field(FIELD_DATA, "NAME", TYPE_TEXT);
    calculation_ = form.Field(FIELD_CALC, "CALC->SUM", TYPE_NUMERIC);
    constant = form.Constant("12", TYPE_NUMERIC, 12);
    FormBuilder::Store({constant, CELL_FIRST_OPERATOR + 2, constant},
                       form.fields[static_cast<size_t>(calculation_)].FieldTokens);
    form.FieldItem(SECTION_DETAIL_1, 600, 50, 200, 50, name);
    form.FieldItem(SECTION_DETAIL_1, 900, 50, 200, 50, calculation_);
    form.Line(SECTION_DETAIL_1, 1200, 50, 300, 50, 0);
    return form;
}

int ClipboardForm::RowOfType(int type) const {
    for (int row = 0; row < session->form.TotalItems; ++row)
        if (session->form.Items[row].ItemType == type) return row;
    return -1;
}

int ClipboardForm::FieldsInUse() const {
    int count = 0;
    for (int row = 0; row < session->form.FieldCount; ++row)
        count += session->form.Fields[row].InUse != 0;
    return count;
}

int ClipboardForm::References() const { return session->form.Fields[constant].RefCount; }

void ClipboardForm::ChooseAll() {
    const int row = GroupRow(session);
    ItemRecord &group = session->form.Items[row];
    group.x = 125;
    group.y = 0;
    group.width = 2000;
    group.height = 1500;
    Choose(row);
}

void ClipboardForm::Copy(int row) {
    Choose(row);
    CopyItems(session, 0);
}

void ClipboardForm::Cut(int row) {
    Choose(row);
    CopyItems(session, 1);
}

void ClipboardForm::PasteAt(int x, int y) {
    Designer &designer = DesignerOf(session);
    designer.PendingCommand = COMMAND_PASTE;
    designer.FocusRect = {x, y, x + designer.ClipWidth, y + designer.ClipHeight};
    session->form.SelectedItem = NOTHING_SELECTED;
    PlacePaste(session);
}

bool ClipboardForm::MarkerStands() const {
    return IsClipboardFormatAvailable(session->device.ClipFormat);
}

ClipboardHolder::ClipboardHolder()
    : held_(CreateEventA(nullptr, TRUE, FALSE, nullptr)),
      end_(CreateEventA(nullptr, TRUE, FALSE, nullptr)), thread_([this] {
          const HWND window = CreateWindowExA(0, "STATIC", "", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr,
                                              nullptr, nullptr);
          EXPECT_TRUE(OpenClipboard(window));
          SetEvent(held_);
          WaitForSingleObject(end_, INFINITE);
          CloseClipboard();
          DestroyWindow(window);
      }) {
    WaitForSingleObject(held_, INFINITE);
}

ClipboardHolder::~ClipboardHolder() {
    SetEvent(end_);
    thread_.join();
    CloseHandle(held_);
    CloseHandle(end_);
}
