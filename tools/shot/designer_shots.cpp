#include "tools/shot/designer_shots.h"

#include "commands.h"
#include "host/data/json_source.h"
#include "host/design/columns.h"
#include "host/design/form_designer.h"
#include "host/forms/form_image.h"
#include "tools/shot/window_picture.h"

namespace {

FormDesk &DeskOf(HWND window) {
    return reinterpret_cast<SessionHead *>(GetSessionPointer(window, 0))->Desk;
}

// A place of the form in the window, as mouse messages tell it.
LPARAM Pixel(HWND window, int x, int y) {
    POINT place{x, y};
    const HDC device = GetDC(window);
    LPtoDP(device, &place, 1);
    ReleaseDC(window, device);
    return MAKELPARAM(place.x, place.y);
}

void Press(HWND window, int x, int y) {
    SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, Pixel(window, x, y));
}

void Release(HWND window, int x, int y) {
    SendMessageA(window, WM_LBUTTONUP, 0, Pixel(window, x, y));
}

// The last label of the form's first section with labels.
const ItemRecord *SomeLabel(HWND window) {
    const FormDesk &desk = DeskOf(window);
    const ItemRecord *label = nullptr;
    for (int row = 0; row < *desk.TotalItems; ++row)
        if (desk.Items[row].ItemType == ITEM_LABEL &&
            (!label || desk.Items[row].SectionIndex == label->SectionIndex))
            label = &desk.Items[row];
    return label;
}

// What the dialog of an expression is filled with, and where its picture goes.
std::string dialog_picture;

void CALLBACK ServeDialog(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND dialog = GetActiveWindow();
    if (!dialog || !GetDlgItem(dialog, EXPRESSION_TEXT)) return;
    KillTimer(nullptr, timer);
    SetDlgItemTextA(dialog, EXPRESSION_DESCRIPTION, "DENSITY");
    SetDlgItemTextA(dialog, EXPRESSION_TEXT, "POPULATION / AREA");
    RedrawWindow(dialog, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    TakePicture(dialog, dialog_picture);
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
}

} // namespace

void TakeDesignerOn(const std::string &form, const std::string &data, const std::string &picture,
                    void (*show)(HWND window, const std::string &picture)) {
    FormDesigner designer(form, FieldsOf(ReadTable(data)), ReadFormHeader(form).LabelType != 0);
    const HWND window = designer.Window();
    const std::string name = form.substr(form.find_last_of("/\\") + 1);
    SetWindowTextA(window, name.c_str()); // no place of the machine in a picture
    Settle(window);
    show(window, picture);
}

void ShowItem(HWND window, const std::string &picture) {
    if (const ItemRecord *label = SomeLabel(window)) {
        const int x = label->x + label->width / 2;
        const int y = label->y + label->height / 2;
        Press(window, x, y);
        Release(window, x, y);
    }
    ServeMessages();
    TakePicture(window, picture);
}

void ShowGroup(HWND window, const std::string &picture) {
    const FormDesk &desk = DeskOf(window);
    const ItemRecord &bar = desk.Items[0];
    const int left = bar.x + 4;
    const int top = bar.y + desk.Header->BarHeight + 2;
    const int right = bar.x + bar.width * 3 / 5;
    const int bottom = bar.y + bar.height - 4;
    Press(window, left, top);
    for (const POINT at : {POINT{(left + right) / 2, (top + bottom) / 2}, POINT{right, bottom}})
        SendMessageA(window, WM_MOUSEMOVE, MK_LBUTTON, Pixel(window, at.x, at.y));
    Release(window, right, bottom);
    ServeMessages();
    TakePicture(window, picture);
}

void ShowLabels(HWND window, const std::string &picture) { ShowItem(window, picture); }

void ShowExpression(HWND window, const std::string &picture) {
    dialog_picture = picture;
    SetTimer(nullptr, 0, 100, ServeDialog);
    SendMessageA(window, WM_COMMAND, COMMAND_CALC_FIELD, 0);
}
