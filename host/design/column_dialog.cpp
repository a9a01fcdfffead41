#include "host/design/column_dialog.h"

#include "host/design/columns.h"
#include "host/design/resource_ids.h"

namespace {

struct Question {
    const std::vector<FieldRecord> &fields;
    const std::string &title;
    const std::string &name;
};

constexpr int NAME_WIDTH = 90; // dialog units of the column with the names

void Fill(HWND dialog, const Question &question) {
    SetWindowTextA(dialog, question.title.c_str());
    const HWND list = GetDlgItem(dialog, COLUMN_LIST);
    const int tab = NAME_WIDTH;
    SendMessageA(list, LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&tab));
    WPARAM selected = 0;
    for (size_t place = 0; place < question.fields.size(); ++place) {
        const FieldRecord &field = question.fields[place];
        const std::string row = std::string(field.FieldName) + "\t" + TypeText(field);
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
        if (!lstrcmpiA(field.FieldName, question.name.c_str())) selected = place;
    }
    SendMessageA(list, LB_SETCURSEL, selected, 0);
    EnableWindow(GetDlgItem(dialog, IDOK), !question.fields.empty());
}

INT_PTR CALLBACK Serve(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        Fill(dialog, *reinterpret_cast<const Question *>(lParam));
        return TRUE;
    }
    if (message != WM_COMMAND) return FALSE;
    const bool chosen = LOWORD(wParam) == COLUMN_LIST && HIWORD(wParam) == LBN_DBLCLK;
    if (LOWORD(wParam) == IDOK || chosen)
        EndDialog(dialog, SendDlgItemMessageA(dialog, COLUMN_LIST, LB_GETCURSEL, 0, 0));
    else if (LOWORD(wParam) == IDCANCEL)
        EndDialog(dialog, -1);
    return TRUE;
}

} // namespace

int AskForColumn(HWND owner, const std::vector<FieldRecord> &fields, const std::string &title,
                 const std::string &name) {
    Question question{fields, title, name};
    return static_cast<int>(DialogBoxParamA(GetModuleHandleA(nullptr),
                                            MAKEINTRESOURCEA(COLUMN_DIALOG), owner, Serve,
                                            reinterpret_cast<LPARAM>(&question)));
}
