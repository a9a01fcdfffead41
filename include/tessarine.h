/* Tessarine: all that a host program needs.
 *
 * A designer: form, then the host's message loop; its end is MESSAGE_SESSION_ENDED to the host's
 * window. The order of a run: RepInit; sort the records by the rows of BreakTable; for each record
 * write the values into FieldTable and call RepRec; RepExit once, in all cases. Everything happens
 * on the host's thread. Routines return 0 or one of the CODE_ numbers unless they say otherwise. */
#ifndef TESSARINE_H
#define TESSARINE_H

#include "tessarine_blocks.h"
#include "tessarine_numbers.h"
#include "tessarine_records.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- sessions and the run ------------------------------------------------------------------ */

/* Opens a designer on FormFile, or on a new form, and returns when its window stands; SetCRepData
 * first. The block comes back with FormWindow, DefaultFont, DesignerOpen and DesignerModified; the
 * session that GetSessionPointer gives for the window holds a copy of which the last two go on
 * changing. The session ends with WM_CLOSE, which asks about unsaved changes and keeps everything
 * when the user cancels (MESSAGE_NO_RESULT); its memory can still be looked at until the next form.
 * The menu's "Exit", COMMAND_CLOSE_FORM, ends it in every case, also on Cancel: then the form is
 * lost, and a window stays that takes nothing but WM_CLOSE. A host that wants to spare its users
 * that turns the command into WM_CLOSE before it reaches the window, as our own hosts do. */
int32_t __stdcall form(FormParams *params);

/* Starts a run. feedMode 1 keeps the centring of a label sheet in its feed. With both handles the
 * run uses that printer in place of the form's. On success the block comes back filled. */
int32_t __stdcall RepInit(RepParams *params, int32_t feedMode, HGLOBAL devNames, HGLOBAL devMode);

/* Processes the record that stands in FieldTable; 0 also when the report filter refuses it. A
 * non-zero outline draws the frames of labels. */
int32_t __stdcall RepRec(int32_t sessionId, int32_t ignored, uint32_t outline);

/* Finishes a run; fill completes a label sheet with frames; pageCount may be null. It is the last
 * call for a run, whatever it returns: a preview stays until its user closes it, all else is gone.
 * A run that is inside a call takes no other, and one that has ended none at all: CODE_NO_SESSION.
 */
int32_t __stdcall RepExit(int32_t sessionId, int32_t fill, int32_t *pageCount);

/* Fetches a page of a saved report. *pageNumber: in the page from 1, out the count of pages.
 * Returns a metafile handle, the caller's to play and delete, or null. SetCRepData first. */
HMETAFILE __stdcall RepView(RepViewParams *block, int32_t *pageNumber, HGLOBAL devNames,
                            HGLOBAL devMode);

/* The session of a window, or of a slot when the window is null; null when there is none, and for
 * windows of other programs. It begins with a SessionHead, which a host may read. */
struct Session *__stdcall GetSessionPointer(HWND window, int32_t slot);
HWND __stdcall RepGetParent(HWND window, int32_t slot);
/* The callback is called with 1024 when the session has ended. 1, or 0 without a session. */
int32_t __stdcall RepSetMsgCallback(HWND window, int32_t slot, MessageRoutine routine);

/* Makes the block current, of at most 10. Its slot; 10 when the table is full. */
int32_t __stdcall SetCRepData(HostData *block);
int32_t __stdcall RemoveCRepData(HostData *block);
int32_t __stdcall SetNewFormData(const NewFormData *block);
int32_t __stdcall WEP(int32_t ignored);

/* ---- working on an open form --------------------------------------------------------------- */

/* A run has made something else of its form: there these change nothing and give their failure
 * value, 0 or -1, and so do the routines below that set the printer. Measures, sample texts and the
 * printer's data can be had of a run too. The failure value also answers what can't be: null where
 * something is read or written, rows outside their table, a session that ends or never was, or one
 * whose printer's dialog is open.
 *
 * Sections are rows of the section table, 0 to 30. Places are form units from the form's top left
 * corner, fonts rows of the font table, 0 to 31. */

/* Sets a session to its start, which empties its counts, the clipboard, what can be undone and the
 * host's three slots in FormDesk. 1. */
int32_t __stdcall InitVariables(struct Session *session);
/* Makes an empty form, of a label in label mode, in place of the one that stands: a drag or a
 * placement ends without effect, and nothing can be undone. 1. */
int32_t __stdcall InitNewForm(struct Session *session);
/* Saves the form; path has room for 260 characters and takes the ending and the chosen name, an
 * empty one asks. Non-zero when the save has run, also with an error that the user was told of:
 * then the form stays modified. */
int32_t __stdcall FrSave(struct Session *session, char *path);

/* Each returns the new item's row, or -1: a drag or a placement is in progress, a table is full
 * (after a message), the section isn't in the form, the place isn't in it. A negative x or y puts
 * a field into the middle of its section. */
int32_t __stdcall AddNewDataField(struct Session *session, const char *name, int32_t section,
                                  int32_t x, int32_t y, int32_t wrap);
int32_t __stdcall AddNewCalcField(struct Session *session, const char *text, int32_t section,
                                  const char *description, int32_t x, int32_t y);
/* index: SYSTEM_PAGE to SYSTEM_REPORT_NAME */
int32_t __stdcall AddNewSysField(struct Session *session, int32_t index, int32_t section, int32_t x,
                                 int32_t y);
/* text: up to MAX_LABEL_TEXT characters; the font serves to measure it alone */
int32_t __stdcall AddNewLabelItem(struct Session *session, const char *text, int32_t section,
                                  int32_t x, int32_t y, int32_t font);
/* The rectangle lies inside the section, edges included; angle and width as in ItemRecord. */
int32_t __stdcall AddNewLineItem(struct Session *session, int32_t section, int32_t angle,
                                 const RECT *rectangle, int32_t width);

/* byHost 0 asks the user which section, and section and fieldName are ignored; otherwise section
 * is its row, and fieldName the field of a sort header, null for others. Non-zero unless it was
 * stopped. */
int32_t __stdcall AddNewSection(struct Session *session, int32_t byHost, int32_t section,
                                const char *fieldName);
/* Deletes the section of the selected item, after asking unless noConfirm. Non-zero when it has. */
int32_t __stdcall DeleteSection(struct Session *session, int32_t noConfirm);
/* The dialog about the break of the selected sort header. */
int32_t __stdcall EditSectionBreak(struct Session *session);

/* Selects a row of the item table, 0 to its count less 1: handles on the screen, and the host is
 * told as of a user's click. Non-zero. */
int32_t __stdcall SelectItem(struct Session *session, int32_t row);
/* Give the selected item, or the selected section, the rectangle that the user has dragged.
 * Non-zero when it was applied. */
int32_t __stdcall SizeItem(struct Session *session);
int32_t __stdcall SizeSection(struct Session *session);
/* The dotted rectangle of a drag, on a context with the form's mapping; neither draws twice.
 * Non-zero, and 0 from the first when the dragged rectangle has no width. */
int32_t __stdcall FrDrawFocusRect(struct Session *session, HDC device, const RECT *rectangle);
int32_t __stdcall FrEraseFocusRect(struct Session *session, HDC device, const RECT *rectangle);
/* Takes a text for the selected label, or the name of the selected calculation field, which goes
 * back in upper case behind "CALC->": text has room for 6 characters more. */
int32_t __stdcall UpdateLabelText(struct Session *session, char *text);

/* Writes at most 300 characters of sample text; width in form units, 0 for no limit. */
int32_t __stdcall CreateFieldLabel(struct Session *session, int32_t field, char *buffer,
                                   int32_t width, int32_t font);
int32_t __stdcall GetFieldSize(struct Session *session, int32_t field, int32_t font,
                               int32_t *height, int32_t *width);
int32_t __stdcall CreateDefaultBoldFont(struct Session *session);
/* Gives the selected label, field or group the font, or one that the user chooses for null. 0 when
 * the user cancelled or no font row is free. */
int32_t __stdcall FrFonts(struct Session *session, const LOGFONTA *font);
int32_t __stdcall ValidateMargins(struct Session *session, int32_t showMessage);

/* Text measures in form units, by the widths of a font row. */
int32_t __stdcall GetLabelLen(struct Session *session, const char *text, int32_t font);
int32_t __stdcall GetLabelHeight(struct Session *session, const char *text, int32_t font);
int32_t __stdcall TruncateText(struct Session *session, char *text, int32_t width, int32_t font);

/* Expressions as cells; cells and positions as in the records. */
int32_t __stdcall GenerateSymbols(struct Session *session, const char *text, uint16_t *cells,
                                  int32_t *errorPosition, int32_t mode);
int32_t __stdcall ValidateExp(struct Session *session, const uint16_t *cells, int32_t mode);
int32_t __stdcall ReleaseSymbols(struct Session *session, const uint16_t *cells);
/* Edits an expression in its dialog, over owner or, for null, the designer's window. newCells has
 * room for MAX_CELLS; the caller copies it over the old cells, terminator included. title: null for
 * the usual one. mode: 0 a filter, whose result must be logical; 1 a calculation in a footer, 2 in
 * another section, 3 with its description. The type of the result, or -1 on Cancel. */
int32_t __stdcall ModifyExp(struct Session *session, const uint16_t *cells, uint16_t *newCells,
                            const char *title, int32_t mode, HWND owner);

/* ---- brushes and colours ------------------------------------------------------------------- */

int32_t __stdcall ReadRepLogbrush(const RepLogbrush *packed, LOGBRUSH *brush);
int32_t __stdcall WriteRepLogbrush(const LOGBRUSH *brush, RepLogbrush *packed);
uint32_t __stdcall EditColor(HWND owner, uint32_t color, int32_t fullOpen);

/* ---- printer ------------------------------------------------------------------------------- */

HGLOBAL __stdcall GetDevNames(struct Session *session);
HGLOBAL __stdcall GetDevMode(struct Session *session);
int32_t __stdcall SetDevNames(struct Session *session, HGLOBAL handle);
int32_t __stdcall SetDevMode(struct Session *session, HGLOBAL handle, int32_t takeAll);
int32_t __stdcall ProcessPrinterData(struct Session *session);
/* Gets page pageIndex, from 0, out of the session's report file; deletes oldHandle first. */
HMETAFILE __stdcall ReadMetaFilePage(struct Session *session, int32_t pageIndex,
                                     const char *scratchPath, HMETAFILE oldHandle);

/* ---- memory and text ----------------------------------------------------------------------- */

void *__stdcall OurAlloc(uint32_t size);
int32_t __stdcall OurFree(void *memory);
char *__stdcall RepStrTrim(char *text);

/* ---- procedures that the window system calls ----------------------------------------------- */

LRESULT __stdcall RepWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT __stdcall FrWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/* For the edit control that a host puts into FormDesk: Enter gives the focus to the designer's
 * window, all else goes to EditWndProc. The text comes back by UpdateLabelText. */
LRESULT __stdcall FrEditSubclass(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall DlgInputParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall DeviceParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall JumpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall PrintParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall PrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall ScrPrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall FilePrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall NewSecParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall SysParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall FieldNameParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall ExpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall OpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall FuctParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall DlgParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall CreateDlgParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall ModifyDlgParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall SecSortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall SecBreakParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall EditSecParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall SumParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall PosParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall LineParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall OutlineParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
BOOL __stdcall PrintProc(HDC device, int code);
BOOL __stdcall ScrPrintProc(HDC device, int code);

#ifdef __cplusplus
}
#endif

#endif
