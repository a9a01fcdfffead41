#include "tests/support/dialog_driver.h"

#include <algorithm>

#include "tests/support/window_driver.h"

namespace {

constexpr int NAME_EDIT = 0x480;
constexpr int NAME_COMBO = 0x47C;

struct ListMessages {
    UINT count, length, text, selected, select;
    int changed;
};
constexpr ListMessages list_box{LB_GETCOUNT,  LB_GETTEXTLEN, LB_GETTEXT,
                                LB_GETCURSEL, LB_SETCURSEL,  LBN_SELCHANGE};
constexpr ListMessages combo_box{CB_GETCOUNT,  CB_GETLBTEXTLEN, CB_GETLBTEXT,
                                 CB_GETCURSEL, CB_SETCURSEL,    CBN_SELCHANGE};

const ListMessages &MessagesOf(HWND list) {
    char name[20] = "";
    GetClassNameA(list, name, sizeof name);
    return lstrcmpiA(name, "ListBox") ? combo_box : list_box;
}

} // namespace

std::string DialogDriver::Title() const { return WindowText(dialog_); }

std::vector<std::string> DialogDriver::Texts() const {
    std::vector<std::string> texts{Title()};
    for (HWND child = GetWindow(dialog_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        texts.push_back(WindowText(child));
    return texts;
}

HWND DialogDriver::Control(int control) const {
    if (control != FILE_NAME) return GetDlgItem(dialog_, control);
    const HWND edit = GetDlgItem(dialog_, NAME_EDIT);
    return edit ? edit : GetDlgItem(dialog_, NAME_COMBO);
}

std::string DialogDriver::Text(int control) const { return WindowText(Control(control)); }

void DialogDriver::SetText(int control, const std::string &text) const {
    SendMessageA(Control(control), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

bool DialogDriver::Checked(int control) const {
    return SendMessageA(Control(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void DialogDriver::Click(int control) const { SendMessageA(Control(control), BM_CLICK, 0, 0); }

std::vector<std::string> DialogDriver::Rows(int control) const {
    const HWND list = Control(control);
    const ListMessages &of = MessagesOf(list);
    const auto count = static_cast<WPARAM>(SendMessageA(list, of.count, 0, 0));
    std::vector<std::string> rows;
    for (WPARAM row = 0; row < count; ++row) {
        std::string text(static_cast<size_t>(SendMessageA(list, of.length, row, 0)), ' ');
        SendMessageA(list, of.text, row, reinterpret_cast<LPARAM>(text.data()));
        rows.push_back(text);
    }
    return rows;
}

int DialogDriver::Selected(int control) const {
    const HWND list = Control(control);
    return static_cast<int>(SendMessageA(list, MessagesOf(list).selected, 0, 0));
}

void DialogDriver::Select(int control, int row) const {
    const HWND list = Control(control);
    const ListMessages &of = MessagesOf(list);
    SendMessageA(list, of.select, static_cast<WPARAM>(row), 0);
    Send(control, of.changed);
}

void DialogDriver::Select(int control, const std::string &row) const {
    const auto rows = Rows(control);
    const auto found = std::find(rows.begin(), rows.end(), row);
    Select(control, found == rows.end() ? -1 : static_cast<int>(found - rows.begin()));
}

void DialogDriver::Send(int control, int notification) const {
    SendMessageA(dialog_, WM_COMMAND, MAKEWPARAM(control, notification),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog_, control)));
}

void DialogDriver::Press(int control, int notification) const {
    PostMessageA(dialog_, WM_COMMAND, MAKEWPARAM(control, notification),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog_, control)));
}
