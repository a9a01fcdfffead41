/* Tessarine: the records of form files (".FP") and report files (".FRC"), which stand in memory and
 * in a host just so.
 *
 * Every record here has a fixed byte layout without padding, little-endian, with 32-bit pointers.
 * Texts are zero-terminated single-byte strings. Measures called "form units" are 1/250 inch. */
#ifndef TESSARINE_RECORDS_H
#define TESSARINE_RECORDS_H

#include <stdint.h>
#include <windows.h>

#include "tessarine_numbers.h"

#ifdef __cplusplus
extern "C" {
#endif

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

#pragma pack(pop)

#ifdef __cplusplus
}
#endif

#endif
