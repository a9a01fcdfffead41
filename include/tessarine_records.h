/* Tessarine: the blocks, records and constants that a host and the library share.
 *
 * Every record here has a fixed byte layout without padding, little-endian, with 32-bit pointers.
 * Texts are zero-terminated single-byte strings. Measures called "form units" are 1/250 inch.
 * The same records stand in memory, in form files (".FP") and in report files (".FRC"). */
#ifndef TESSARINE_RECORDS_H
#define TESSARINE_RECORDS_H

#include <stdint.h>
#include <windows.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- limits ------------------------------------------------------------------------------- */

enum {
    MAX_ITEMS = 320,      /* items in use; the table has one row more */
    MAX_FIELDS = 500,     /* field slots; the table has one row more */
    MAX_TEMP_FIELDS = 26, /* intermediate results; the table has one row more */
    MAX_BREAKS = 9,       /* sort and break pairs */
    MAX_SECTIONS = 31,    /* fixed rows */
    MAX_USER_FIELDS = 12, /* fixed rows */
    MAX_FONTS = 32,       /* rows for fonts and pictures */
    MAX_CELLS = 102,      /* cells of an expression: 99 tokens, the terminator, room */
    MAX_LABEL_TEXT = 300, /* characters of a label, without the terminator */
    MAX_SESSIONS = 100,   /* run sessions in a process */
    MAX_SCR_PAGES = 5000, /* pages of a report file */
    UNITS_PER_INCH = 250  /* form units */
};

/* ---- numbers of kinds --------------------------------------------------------------------- */

enum { /* ItemRecord.ItemType */
       ITEM_GROUP = 0,
       ITEM_LABEL = 16,
       ITEM_FIELD = 32,
       ITEM_BAR = 64,
       ITEM_PICTURE = 128,
       ITEM_LINE = 256
};

enum { /* ItemRecord.ItemFlags */
       FLAG_BACKGROUND = 2,
       FLAG_LEFT = 4,
       FLAG_RIGHT = 8,
       FLAG_CENTER = 16,
       FLAG_TOP = 32,
       FLAG_MIDDLE = 64,
       FLAG_BOTTOM = 128,
       FLAG_GROUP_TOGGLE = 256
};

enum { SIDE_LEFT = 1, SIDE_RIGHT = 2, SIDE_TOP = 4, SIDE_BOTTOM = 8 }; /* OutlineSides */

enum { /* FieldRecord.FieldKind */
       FIELD_DATA = 0,
       FIELD_CALC = 1,
       FIELD_SYSTEM = 2,
       FIELD_CONSTANT = 3,
       FIELD_FREE = 4,
       FIELD_USER = 5
};

enum { /* ValueType */
       TYPE_NUMERIC = 1,
       TYPE_DOUBLE = 2,
       TYPE_TEXT = 3,
       TYPE_LOGICAL = 4,
       TYPE_DATE = 5,
       TYPE_PICTURE = 6
};

enum { /* FieldRecord.FieldFlags */
       FIELD_TRIM = 0x0001,
       FIELD_UPPER = 0x0008,
       FIELD_CAPITALIZE = 0x0010,
       FIELD_LOWER = 0x0020,
       FIELD_WRAP = 0x0080,
       FIELD_WORD_WRAP = 0x0100,
       FIELD_RETAIN = 0x0200,
       FIELD_VARIABLE_LINES = 0x0400,
       FIELD_IN_FOOTER = 0x0800, /* computed as its footer prints, not with the record */
       FIELD_SHARED = 0x1000,    /* made by the expression compiler, counted by RefCount */
       FIELD_BRANCH = 0x2000,    /* evaluator: what follows is a branch not taken */
       FIELD_POSTNET = 0x4000
};

enum { /* FieldRecord.SummaryType */
       SUMMARY_VALUE = 0,
       SUMMARY_TOTAL = 1,
       SUMMARY_AVERAGE = 2,
       SUMMARY_COUNT = 3,
       SUMMARY_MAX = 4,
       SUMMARY_MIN = 5
};

enum { SYMBOL_NONE = 0, SYMBOL_CURRENCY = 1, SYMBOL_PERCENT = 2 };         /* SymbolKind */
enum { WHEN_ALWAYS = 1, WHEN_FIRST_ON_PAGE = 2, WHEN_FIRST_IN_GROUP = 4 }; /* SymbolWhen */

enum { /* rows of the section table */
       SECTION_PAGE_HEADER = 0,
       SECTION_REPORT_HEADER = 1,
       SECTION_SORT_HEADER_1 = 2,
       SECTION_SORT_HEADER_9 = 10,
       SECTION_DETAIL_1 = 11, /* "Label" on a label form */
       SECTION_DETAIL_9 = 19,
       SECTION_SORT_FOOTER_9 = 20,
       SECTION_SORT_FOOTER_1 = 28,
       SECTION_REPORT_FOOTER = 29,
       SECTION_PAGE_FOOTER = 30 /* the footer of header r is 30 - r */
};

enum { /* SectionRecord.SectionFlags */
       SECTION_ADVANCE_BEFORE = 1,
       SECTION_ADVANCE_AFTER = 2,
       SECTION_REPRINT = 4,
       SECTION_COMPRESS_BEFORE = 8,
       SECTION_COMPRESS_AFTER = 16,
       SECTION_RESET_PAGE = 32
};

enum { FORM_REPORT_HEADER_FIRST = 2, FORM_HAS_FILTER = 4 };        /* FormHeader.FormFlags */
enum { RULER_INCHES = 1, RULER_CENTIMETRES = 2, RULER_SHOWN = 4 }; /* FormHeader.RulerFlags */

enum { /* cells of an expression: field rows lie below 500 */
       CELL_FIRST_OPERATOR = 501,
       CELL_LAST_OPERATOR = 548,
       CELL_TEMP = 700,
       CELL_CONSUMED = 1000,
       CELL_NO_OPERAND = 1001,
       CELL_END = 1002
};

enum { /* rows of the system field table */
       SYSTEM_PAGE = 0,
       SYSTEM_DATE = 1,
       SYSTEM_TIME = 2,
       SYSTEM_REC_COUNT = 3,
       SYSTEM_PARA_BREAK = 4,
       SYSTEM_REPORT_NAME = 5
};

enum { /* messages to the host's window */
       MESSAGE_NO_RESULT = 631,
       MESSAGE_SESSION_ENDED = 1024,
       MESSAGE_MODIFIED = 1025,
       MESSAGE_UNMODIFIED = 1026
};

enum { /* return codes of form, RepInit, RepRec and RepExit */
       CODE_DONE = 0,
       CODE_FILE = 1,
       CODE_NO_DEVICE = 2,
       CODE_MEMORY = 3,
       CODE_EXPRESSION = 4,
       CODE_CANCELLED = 5,
       CODE_PRINTER = 10,
       CODE_FORM_NOT_READ = 11,
       CODE_DISPLAY = 12,
       CODE_FORM_CONTRADICTION = 15,
       CODE_NO_SLOT = 17,
       CODE_NO_SESSION = 18,
       CODE_NO_OUTPUT_FILE = 19,
       CODE_WARNING = 20,
       CODE_REOPEN = 32,
       CODE_NOT_A_FORM = 33,
       CODE_ITEMS = 35,
       CODE_TABLES = 36,
       CODE_USER_FIELDS = 37,
       CODE_NOT_A_REPORT_FORM = 101,
       CODE_NOT_A_LABEL_FORM = 102
};

enum { /* leading words of the files, and the form's versions */
       SIGNATURE_FORM = 57018,
       SIGNATURE_REPORT = 57019,
       SIGNATURE_FORM_OTHER = 57020,
       FORM_VERSION = 4,
       FONT_MARKER = 190
};

/* ---- records of a form --------------------------------------------------------------------- */

#pragma pack(push, 1)

typedef struct RepLogbrush { /* a brush in 8 bytes */
    uint16_t Style;          /* 0 solid, 2 hatched */
    uint32_t Color;          /* COLORREF */
    int16_t Hatch;           /* 0 horizontal to 5 diagonal cross */
} RepLogbrush;

typedef struct LabelGeometry { /* measures of a label sheet, inches */
    uint16_t HostWord1;
    float PageWidth;
    float PageHeight;
    float TopOffset;  /* added to TopMargin at run time */
    float LeftOffset; /* added to LeftMargin at run time */
    float LabelHeight;
    float LabelWidth;
    float VerticalPitch; /* from one label's top to the next */
    float HorizontalPitch;
    uint16_t LabelsDown;
    uint16_t LabelsAcross;
    uint16_t HostWord2;
} LabelGeometry;

typedef struct PrinterModeRecord { /* the public fields of a DEVMODE */
    char DeviceName[32];
    uint16_t SpecVersion;
    uint16_t DriverVersion;
    uint16_t Size;
    uint16_t DriverExtra;
    uint32_t Fields;
    int16_t Orientation;
    int16_t PaperSize;
    int16_t PaperLength;
    int16_t PaperWidth;
    int16_t Scale;
    int16_t Copies;
    int16_t DefaultSource;
    int16_t PrintQuality;
    int16_t Color;
    int16_t Duplex;
    int16_t YResolution;
    int16_t TTOption;
} PrinterModeRecord;

typedef struct FormHeader { /* the leading record of a form */
    uint16_t Signature;
    char ReportName[52];
    char CallerTag[20];
    uint16_t ItemCount;
    uint16_t FieldCount; /* free slots included */
    uint16_t BreakCount;
    uint16_t FontCount;
    float LeftMargin; /* inches, as the other three */
    float RightMargin;
    float TopMargin;
    float BottomMargin;
    uint16_t ReportFilter[MAX_CELLS];
    PrinterModeRecord PrinterMode;
    int16_t PrinterModeAgain[5]; /* Orientation, PaperSize, PaperLength, PaperWidth, PrintQuality */
    char PrinterDevice[52];
    char PrinterDriver[52];
    char PrinterPort[52];
    uint16_t FormFlags;
    uint16_t DateEntryFormat; /* 0 month first, otherwise day first */
    uint16_t RulerFlags;
    int16_t BarHeight; /* caption of a section bar, form units */
    int16_t FormVersion;
    uint8_t Reserved546[146];
    uint16_t HostWord; /* protection word */
    char HostName1[16];
    char HostName2[16];
    uint16_t HostShort;
    uint8_t Reserved728[4];
    uint16_t Reserved732;
    uint8_t Reserved734[8];
    uint16_t Reserved742; /* 1 on a new form */
    int16_t RunWord;
    uint32_t LabelType; /* 0 on a report form */
    struct LabelGeometry LabelGeometry;
    char HostComment[202];
} FormHeader;

typedef struct ItemRecord { /* one object of the layout; places and sizes in form units */
    uint16_t ItemType;
    int16_t x;
    int16_t y;
    int16_t width;
    int16_t height;
    uint16_t ItemFlags;
    int16_t SectionIndex;
    int16_t FontIndex;
    int16_t FieldIndex;
    char LabelText[MAX_LABEL_TEXT + 1];
    uint32_t TextColor; /* COLORREF */
    uint16_t OutlineSides;
    int16_t OutlineStyle; /* 0 solid, 1 dashes, 2 dots, 3 dash and dots */
    int16_t OutlineWidth; /* 1/10 mm */
    uint32_t OutlineColor;
    int16_t LineAngle; /* 0 horizontal, 1 vertical, 2 diagonal, 3 back diagonal */
    int16_t LineStyle;
    int16_t LineWidth;
    uint32_t LineColor;
    RepLogbrush Background;
    uint16_t GroupMark;
    uint16_t KeepSize;
    int16_t RunOffset; /* work state of a run */
    uint8_t Reserved357[155];
} ItemRecord;

typedef struct FieldRecord { /* a value with its printing rules */
    uint16_t FieldKind;
    char FieldName[102];
    int16_t HostTable;
    int16_t HostField;
    int16_t ValueType;
    int16_t FieldWidth; /* characters */
    int16_t Decimals;
    uint16_t Modifiable;
    uint16_t InUse;
    uint16_t FieldFlags;
    int16_t SummaryType;
    int16_t TableIndex;
    int16_t DateFormat;
    uint16_t TimeForm; /* 0: 12-hour form of the system time */
    char DateDelimiter[2];
    char ThousandsChar[2];
    char DecimalChar[2];
    char PadChar[2];
    char CurrencySymbol[3];
    char TrueText[21];
    char FalseText[21];
    char NegativePrefix[4];
    char NegativeSuffix[4];
    char PositivePrefix[4];
    char PositiveSuffix[4];
    char ZeroText[21];
    uint16_t SymbolKind;
    uint16_t SymbolWhen;
    uint16_t FieldTokens[MAX_CELLS];
    char *TextValue; /* a block of OurAlloc; FieldWidth + 2 bytes in a run */
    int32_t LongValue;
    double DoubleValue;
    int32_t LongSummary;
    double DoubleSummary;
    int32_t SummaryCount;
    int16_t SummarySection;
    uint16_t Reserved460;
    char LineBreakChar[2];
    uint16_t RefCount;
    char Caption[52];
    char PickerTag[25];
} FieldRecord;

typedef struct SectionRecord {
    uint16_t InUse;
    uint16_t SectionFlags;
    int16_t Across;
    uint16_t SectionFilter[MAX_CELLS];
    int16_t PrintNow;
    int16_t BarItem;
    int16_t SectionHeight;
    int16_t FirstItem;
    int16_t ItemTotal;
    uint8_t Reserved220[16];
} SectionRecord;

typedef struct BreakFieldRecord {
    int16_t SortField;    /* field row that names the sort order */
    int16_t BreakField;   /* field row whose change of value ends a group */
    int16_t SectionIndex; /* row of the sort header, 2 to 10 */
} BreakFieldRecord;

typedef struct UserFieldRecord { /* a value that the user types in when a run starts */
    uint16_t InUse;
    char UserName[102];
    char UserPrompt[52];
    int16_t ValueType;
    uint16_t PromptOrder;
    char UserText[52];
    int32_t LongValue;
    double DoubleValue;
    uint8_t Reserved224[4];
    int16_t UserWidth;
    uint16_t UserTokens[MAX_CELLS];
    uint8_t Reserved434[20];
} UserFieldRecord;

typedef struct FontEntry { /* a font or a picture with its measures in form units */
    uint32_t InUse;
    uint32_t IsPicture;
    HFONT Font;
    LOGFONTA LogFont; /* lfHeight and lfWidth in form units */
    HBITMAP Bitmap;
    uint32_t BitsSize; /* bytes of the DIB bits */
    uint32_t InfoSize; /* bytes of the DIB information block */
    HGLOBAL BitsBlock;
    HGLOBAL InfoBlock;
    uint32_t PixelHeight;
    uint32_t PixelWidth;
    uint32_t PointHeight; /* 1/72 inch */
    uint32_t PointWidth;
    uint32_t Height;
    uint32_t Ascent;
    int32_t CharWidth[256];
} FontEntry;

typedef struct PortableFont { /* a font as a form file holds it */
    int16_t Height;
    int16_t Width;
    int16_t Escapement;
    int16_t Orientation;
    int16_t Weight;
    uint8_t Italic;
    uint8_t Underline;
    uint8_t StrikeOut;
    uint8_t CharSet;
    uint8_t OutPrecision;
    uint8_t ClipPrecision;
    uint8_t Quality;
    uint8_t PitchAndFamily;
    char FaceName[32];
} PortableFont;

/* ---- records of a report file -------------------------------------------------------------- */

typedef struct ReportFileHeader { /* at offset 0; the pages follow at 490, the page table behind */
    uint32_t Magic;               /* 57019 */
    char ReportName[52];
    int32_t PageCount;
    int32_t PageTableOffset; /* (PageCount + 1) u32 offsets stand there */
    int32_t RecordCount;
    float PageWidth;  /* usable, inches */
    float PageHeight; /* usable, inches */
    float PageBottom; /* inches at which the page ends, top origin included */
    float PaperWidth;
    float PaperHeight;
    int32_t Orientation;
    int32_t PaperSize;
    int32_t PaperLength;
    int32_t PaperWidthTenths;
    int32_t PrintQuality;
    uint8_t Reserved108[100];
    uint16_t HostWord;
    char HostName1[16];
    char HostName2[16];
    uint16_t HostShort;
    uint32_t LabelType;
    struct LabelGeometry LabelGeometry;
    char HostComment[202];
} ReportFileHeader;

/* ---- parameter blocks ---------------------------------------------------------------------- */

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

#pragma pack(pop)

#ifdef __cplusplus
}
#endif

#endif
