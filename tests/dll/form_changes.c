#include "tests/dll/form_changes.h"

#include <string.h>

int change_label(struct Session *session, const char *old_text, const char *new_text) {
    const FormDesk *desk = &((const SessionHead *)session)->Desk;
    char text[MAX_LABEL_TEXT + 1];
    int row = 0;
    while (row < *desk->TotalItems && strcmp(desk->Items[row].LabelText, old_text) != 0) ++row;
    if (row == *desk->TotalItems || !SelectItem(session, row)) return -1;
    *desk->SelectedItem = row;
    desk->Items[row].TextColor = 0x0000FF;
    strcpy(text, new_text);
    UpdateLabelText(session, text);
    InvalidateRect(((const SessionHead *)session)->Form.FormWindow, 0, 0);
    return row;
}
