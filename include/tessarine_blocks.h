/* Tessarine: the blocks that a host passes, with the layout rules of the records. */
#ifndef TESSARINE_BLOCKS_H
#define TESSARINE_BLOCKS_H

#include <stdint.h>
#include <windows.h>

#include "tessarine_records.h"

#ifdef __cplusplus
extern "C" {
#endif

#pragma pack(push, 1)

typedef int32_t(__stdcall *PickFieldRoutine)(HWND window, FieldRecord *record, int32_t level,
                                             void *hostContext);
typedef int32_t(__stdcall *CheckFieldRoutine)(HWND window, FieldRecord *record, int32_t level,
                                              void *hostContext);
/* rectangle: left, top, right, bottom in form units on the page */
typedef int32_t(__stdcall *PictureRoutine)(HDC page, int32_t value, int32_t hostTable,
                                           int32_t hostField, const int32_t *rectangle,
                                           int32_t sessionId);
typedef int32_t(__stdcall *MessageRoutine)(HWND window, uint32_t message);

typedef struct FormParams { /* given to form */
    int32_t WindowX;
    int32_t WindowY;
    int32_t WindowWidth;
    int32_t WindowHeight;
    PickFieldRoutine PickFieldProc;
    CheckFieldRoutine CheckFieldProc;
    char FormFile[260]; /* empty: a new form */
    char CallerTag[20];
    uint32_t ShowMenu;
    uint32_t HorzScroll;
    uint32_t VertScroll;
    uint8_t Reserved[8];
    HWND ParentWindow;
    HWND FormWindow; /* out */
    uint32_t WindowStyle;
    char DefaultFont[32];
    uint32_t DesignerOpen;     /* out */
    uint32_t DesignerModified; /* out */
} FormParams;

typedef struct RepParams { /* given to RepInit */
    char FormFile[260];
    char Device; /* "S" screen, "P" printer, "F" file, "A" ask */
    int32_t WindowX;
    int32_t WindowY;
    int32_t WindowWidth;
    int32_t WindowHeight;
    FieldRecord *FieldTable; /* out: the host writes its record here */
    int32_t FieldTotal;      /* out */
    FieldRecord *BreakTable; /* out: sort by these, first row first */
    int32_t BreakTotal;      /* out */
    char CallerTag[20];      /* out */
    char TempDir[268];
    HWND ParentWindow;
    uint32_t WindowStyle;
    PictureRoutine PictureProc;
    uint32_t Silent;
    uint32_t KeepPrinter;
    int32_t SessionId; /* out */
    char OutputFile[276];
    int32_t RunWord; /* out */
} RepParams;

typedef struct RepViewParams { /* given to RepView */
    char ReportFileName[260];  /* in and out; empty: ask */
    char Device;               /* "S" screen, "A" ask, otherwise printer */
    int32_t WindowX;
    int32_t WindowY;
    int32_t WindowWidth;
    int32_t WindowHeight;
    char TempDir[268]; /* in and out */
    HWND ParentWindow;
    HWND ReportWindow; /* out */
    uint32_t WindowStyle;
    uint32_t Silent;
    uint32_t SessionId; /* out */
} RepViewParams;

struct Session;

typedef struct HostData { /* 19 pointers; each may be null */
    int32_t(__stdcall *ItemPropertiesCallback)(struct Session *session, uint32_t code,
                                               uint32_t writable, void *hostContext);
    void(__stdcall *FieldSelectedCallback)(FieldRecord *row, void *hostContext);
    void(__stdcall *LabelSelectedCallback)(uint32_t value, void *hostContext);
    uint32_t *HostWordPtr;
    uint32_t *HostRightPtr;
    uint32_t *EditAllowed;
    const char *NewHostName;
    const char *NewHostComment;
    const uint16_t *NewHostShort;
    const char *FileDialogDir;
    uint32_t *LabelForm;
    uint32_t *LabelTypePtr;
    uint32_t *LabelChangedPtr;
    LabelGeometry *LabelGeometryPtr;
    const char *HelpFileName;
    const uint32_t *SortAllowedPtr;
    const float *FeedWidthPtr; /* inches */
    const uint32_t *PinnedPtr;
    void *HostContext;
} HostData;

typedef struct NewFormData { /* values of the next new form */
    char NewFormName[52];    /* empty: off */
    char NewFormFile[258];
    float NewFormTop; /* inches */
    float NewFormLeft;
    float NewFormRight;
    float NewFormBottom;
    uint32_t Reserved;
} NewFormData;

typedef struct PreviewWords { /* of a run's preview, as its status strip shows them */
    int32_t PageOnView;       /* from 1; 0 while no page is finished */
    int32_t FinishedPages;
} PreviewWords;

/* The form of a designer session, for a host's own sheets and panels: where each table stands and
 * where its count of rows stands. The addresses stay for the life of the session.
 *
 * A host may change what the rows mean and SelectedItem, but no count, no order, no ItemType and
 * no row's section. Afterwards it calls
 * - UpdateLabelText for the text of the selected label, in place of writing it;
 * - SelectItem for SelectedItem, which brings handles and messages up to date;
 * - InvalidateRect on the window for colours, styles, and all else that is painted.
 * An item's place changes its row in the order of the table, so it isn't written: it comes from the
 * library's routines and the user. The form counts as modified once a routine of the library or the
 * result of ItemPropertiesCallback says so. EditField, DialogRow and TextBuffer are what the
 * library's dialogs work on. The three slots at the end are the host's to fill; InitVariables
 * empties them. */
typedef struct FormDesk {
    FormHeader *Header;
    ItemRecord *Items; /* in the order of sections, each bar before its items, these by y and x */
    int32_t *TotalItems;
    FieldRecord *Fields;
    int32_t *FieldCount;
    FontEntry *Fonts;
    int32_t *FontCount;
    SectionRecord *Sections; /* MAX_SECTIONS rows */
    BreakFieldRecord *Breaks;
    int32_t *BreakCount;
    UserFieldRecord *UserFields; /* MAX_USER_FIELDS rows */
    int32_t *UserFieldCount;     /* rows in use */
    int32_t *SelectedItem;       /* row of Items, -1: nothing is selected */
    int32_t *DialogRow;          /* the row that the library's dialogs work on */
    FieldRecord *EditField;      /* the field that they edit */
    char *TextBuffer;            /* texts between a dialog and its caller; TEXT_BUFFER_SIZE bytes */
    HACCEL AccelTable;           /* keys of commands, translated as the window's messages come */
    HWND EditWindow;             /* an edit control over a label, a child of the window */
    WNDPROC EditWndProc;         /* its procedure behind FrEditSubclass */
} FormDesk;

typedef struct SessionHead { /* at the pointer of GetSessionPointer; a host changes nothing of it */
    FormParams Form;         /* in a designer session */
    RepParams Run;           /* in a run */
    RepViewParams View;      /* ReportWindow in a run with a preview too */
    PreviewWords Preview;
    FormDesk Desk; /* in a designer session */
} SessionHead;

#pragma pack(pop)

#ifdef __cplusplus
}
#endif

#endif
