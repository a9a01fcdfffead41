#include "designer/command_rows.h"

#include "commands.h"
#include "designer/arrange.h"
#include "designer/clipboard.h"
#include "designer/delete_item.h"
#include "designer/designer_state.h"
#include "designer/dialogs/item_dialogs.h"
#include "designer/enabling.h"
#include "designer/ending.h"
#include "designer/field_edit.h"
#include "designer/field_placement.h"
#include "designer/help.h"
#include "designer/item_font.h"
#include "designer/item_style.h"
#include "designer/nudge.h"
#include "designer/picture_items.h"
#include "designer/placement.h"
#include "designer/properties.h"
#include "designer/relocate.h"
#include "designer/room.h"
#include "designer/scrolling.h"
#include "designer/section_edit.h"
#include "designer/section_fields.h"
#include "designer/undo.h"
#include "designer/user_field_commands.h"
#include "device/printer_options.h"
#include "form/form_writer.h"
#include "frame/dialogs.h"
#include "frame/message_box.h"

namespace tessarine {

namespace {

// An arrow moves the selected item; with nothing to move it scrolls by a line.
template <int Command, void (*Scroll)(Session *)> void NudgeOrScroll(Session *session) {
    if (ItemSelected(session))
        NudgeItem(session, Command);
    else
        Scroll(session);
}

template <int Command> void PlaceNewField(Session *session) { BeginField(session, Command); }
template <int Command> void PlaceNewPicture(Session *session) { BeginPicture(session, Command); }

void EditLabel(Session *session) {
    if (session->Desk.EditWindow)
        SetFocus(session->Desk.EditWindow);
    else if (LabelSelected(session))
        EditLabelItem(session);
}

void EditLine(Session *session) {
    if (LineSelected(session)) EditLineItem(session);
}

void Save(Session *session) { FrSave(session, session->CurrentFile); }
void SaveUnderANewName(Session *session) { SaveAs(session, session->CurrentFile); }

void TellReportParameters(Session *session) {
    ShowSessionBox(session, "Not available.", "Report Parameters");
}

void SetUpPrinter(Session *session) { FrPrintOptions(session); }
void ChooseFont(Session *session) { FrFonts(session, nullptr); }
void AddSection(Session *session) { AddNewSection(session, 0, -1, nullptr); }
void SortField(Session *session) { EditSortField(session); }
void BreakField(Session *session) { EditSectionBreak(session); }
void Cut(Session *session) { CopyItems(session, 1); }
void Copy(Session *session) { CopyItems(session, 0); }
void SetGrid(Session *session) { RunDialog(session, "GridParam", GridParam, 0); }
void DoNothing(Session *) {}

constexpr CommandRow commands[] = {
    {COMMAND_PAGE_UP, HalfFormUp},
    {COMMAND_PAGE_DOWN, HalfFormDown},
    {COMMAND_LINE_UP, NudgeOrScroll<COMMAND_LINE_UP, FormLineUp>},
    {COMMAND_LINE_DOWN, NudgeOrScroll<COMMAND_LINE_DOWN, FormLineDown>},
    {COMMAND_LEFT, NudgeOrScroll<COMMAND_LEFT, FormLineLeft>},
    {COMMAND_RIGHT, NudgeOrScroll<COMMAND_RIGHT, FormLineRight>},

    {COMMAND_SAVE, Save, FormIsModified},
    {COMMAND_SAVE_AS, SaveUnderANewName, Always},
    {COMMAND_CLOSE_FORM, ExitDesigner, Always},
    {COMMAND_REPORT_PARAMETERS, TellReportParameters, Always},
    {COMMAND_REPORT_FILTER, EditReportFilter, Always},
    {COMMAND_REPORT_FILTER_ENTRY, DoNothing},
    {COMMAND_PRINTER_SETUP, SetUpPrinter, PrinterIsNamed},

    {COMMAND_CUT, Cut, ItemSelected},
    {COMMAND_COPY, Copy, ItemSelected},
    {COMMAND_PASTE, BeginPaste, ClipCanBePasted},
    {COMMAND_FONTS, ChooseFont, TextSelected},
    {COMMAND_POSITION, EditPosition, TextSelected},
    {COMMAND_OUTLINE, EditOutline, SomethingSelected},
    {COMMAND_BACKGROUND, EditBackground, NoPictureSelected},
    {COMMAND_DELETE, DeleteItem, SomethingSelected},
    {COMMAND_CENTER, CenterItem, ItemSelected},
    {COMMAND_EXPAND_ACROSS, ExpandAcross, GroupSelected},
    {COMMAND_EXPAND_DOWN, ExpandDown, GroupSelected},
    {COMMAND_COMPRESS_ACROSS, CompressAcross, GroupSelected},
    {COMMAND_COMPRESS_DOWN, CompressDown, GroupSelected},
    {COMMAND_GRID, SetGrid, Always},
    {COMMAND_ITEM_PROPERTIES, ItemProperties},
    {COMMAND_NONE, DoNothing, nullptr, true},

    {COMMAND_BARCODE_FIELD, PlaceNewField<COMMAND_BARCODE_FIELD>, Always},
    {COMMAND_APPLICATION_FIELD, PlaceNewField<COMMAND_APPLICATION_FIELD>, Always},
    {COMMAND_DATA_FIELD, PlaceNewField<COMMAND_DATA_FIELD>, Always},
    {COMMAND_CALC_FIELD, PlaceNewField<COMMAND_CALC_FIELD>, Always},
    {COMMAND_SYSTEM_FIELD, PlaceNewField<COMMAND_SYSTEM_FIELD>, Always},
    {COMMAND_USER_FIELD, PlaceNewField<COMMAND_USER_FIELD>, UserFieldInUse},
    {COMMAND_EDIT_FIELD, EditSelectedField, FieldSelected},
    {COMMAND_FIELD_EXPRESSION, EditFieldExpression, FormulaSelected},
    {COMMAND_CREATE_USER_FIELD, CreateUserField, UserFieldFree},
    {COMMAND_MODIFY_USER_FIELD, ModifyUserField, UserFieldInUse},
    {COMMAND_DELETE_USER_FIELD, RemoveUserField, UserFieldInUse},

    {COMMAND_NEW_SECTION, AddSection, Always},
    {COMMAND_EDIT_SECTION, EditSection, BarSelected},
    {COMMAND_SECTION_FILTER, EditSectionFilter, BarSelected},
    {COMMAND_SORT_FIELD, SortField, SortBarSelected},
    {COMMAND_BREAK_FIELD, BreakField, SortBarSelected},

    {COMMAND_NEW_LINE, BeginLine, Always},
    {COMMAND_EDIT_LINE, EditLine, LineSelected},
    {COMMAND_NEW_LABEL, BeginLabel, Always},
    {COMMAND_EDIT_LABEL, EditLabel, LabelSelected},
    {COMMAND_PICTURE_PASTED, PlaceNewPicture<COMMAND_PICTURE_PASTED>, PictureOnClipboard},
    {COMMAND_PICTURE_FILE, PlaceNewPicture<COMMAND_PICTURE_FILE>, Always},

    // Those of the group are greyed with the submenu that they stand in.
    {COMMAND_ALIGN_TOP, AlignTop},
    {COMMAND_ALIGN_BOTTOM, AlignBottom},
    {COMMAND_ALIGN_MIDDLE, AlignMiddle},
    {COMMAND_ALIGN_LEFT, AlignLeft},
    {COMMAND_ALIGN_RIGHT, AlignRight},
    {COMMAND_ALIGN_CENTER, AlignCenter},
    {COMMAND_EVEN_WIDTH, SizeEvenWidth},
    {COMMAND_EVEN_HEIGHT, SizeEvenHeight},
    {COMMAND_SPACE_ACROSS, SpaceAcross},
    {COMMAND_SPACE_DOWN, SpaceDown},
    {COMMAND_UNDO, RestoreUndo, UndoStands, true},

    {COMMAND_HELP, ShowHelpIndex, Always},
};

} // namespace

CommandTable DesignerCommands() { return commands; }

bool RunDesignerCommand(Session *session, WPARAM wParam) {
    const CommandRow *row = FindCommand(commands, LOWORD(wParam));
    if (!row || !row->keeps_undo) DropUndo(session);
    if (row) row->action(session);
    return row != nullptr;
}

} // namespace tessarine
