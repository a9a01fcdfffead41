/* Tessarine: all that a host program needs.
 *
 * The order of a run: RepInit; sort the records by the rows of BreakTable; for each record write
 * the values into FieldTable and call RepRec; RepExit once, in all cases. Everything happens on
 * the host's thread. Routines return 0 or one of the CODE_ numbers unless they say otherwise. */
#ifndef TESSARINE_H
#define TESSARINE_H

#include "tessarine_blocks.h"
#include "tessarine_numbers.h"
#include "tessarine_records.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- sessions and the run ------------------------------------------------------------------ */

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
 * printer's data can be had of a run too. */

int32_t __stdcall InitVariables(struct Session *session);
int32_t __stdcall InitNewForm(struct Session *session);
/* Saves the form; an empty path asks. Non-zero when the save has run. */
int32_t __stdcall FrSave(struct Session *session, char *path);
/* Each returns the new item's row or -1. */
int32_t __stdcall AddNewDataField(struct Session *session, const char *name, int32_t section,
                                  int32_t x, int32_t y, int32_t wrap);
int32_t __stdcall AddNewCalcField(struct Session *session, const char *text, int32_t section,
                                  const char *description, int32_t x, int32_t y);
int32_t __stdcall AddNewSysField(struct Session *session, int32_t index, int32_t section, int32_t x,
                                 int32_t y);
/* Writes at most 300 characters of sample text; width in form units, 0 for no limit. */
int32_t __stdcall CreateFieldLabel(struct Session *session, int32_t field, char *buffer,
                                   int32_t width, int32_t font);
int32_t __stdcall GetFieldSize(struct Session *session, int32_t field, int32_t font,
                               int32_t *height, int32_t *width);
int32_t __stdcall CreateDefaultBoldFont(struct Session *session);
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
INT_PTR __stdcall DlgInputParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall DeviceParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall JumpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall PrintParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall PrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall ScrPrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR __stdcall FilePrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
BOOL __stdcall PrintProc(HDC device, int code);
BOOL __stdcall ScrPrintProc(HDC device, int code);

#ifdef __cplusplus
}
#endif

#endif
