// When the entries of the designer's menu may be chosen. Each condition is met only while no drag
// and no placement is in progress as well; a form that may not be edited has the same menu.
#pragma once

#include <span>

#include "state/session.h"

namespace tessarine {

bool Always(const Session *session);
bool FormIsModified(const Session *session);
bool PrinterIsNamed(const Session *session);
bool UndoStands(const Session *session);
bool ClipCanBePasted(const Session *session);
bool PictureOnClipboard(const Session *session);
bool UserFieldInUse(const Session *session);
bool UserFieldFree(const Session *session);

// By what is selected.
bool SomethingSelected(const Session *session);
bool ItemSelected(const Session *session); // no section bar
bool NoPictureSelected(const Session *session);
bool GroupSelected(const Session *session);
bool LabelSelected(const Session *session);
bool LineSelected(const Session *session);
bool TextSelected(const Session *session);    // a label, the group, or a field of text
bool FieldSelected(const Session *session);   // with a value that is no picture
bool FormulaSelected(const Session *session); // a calculation field
bool BarSelected(const Session *session);
bool SortBarSelected(const Session *session); // of a sort header

// Submenus, which have no number: their places at the top of the menu and in the entry there.
struct SubmenuRow {
    int place;
    int position;
    bool (*enabled)(const Session *session);
};
std::span<const SubmenuRow> DesignerSubmenus();

// Sets all entries of the designer's menu. True when one has changed.
bool EnableDesignerMenu(const Session *session, HMENU menu);

} // namespace tessarine
