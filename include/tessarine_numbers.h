/* Tessarine: limits, and the numbers of kinds that stand in records and blocks. */
#ifndef TESSARINE_NUMBERS_H
#define TESSARINE_NUMBERS_H

/* ---- limits ------------------------------------------------------------------------------- */

enum {
    MAX_ITEMS = 320,         /* items in use; the table has one row more */
    MAX_FIELDS = 500,        /* field slots; the table has one row more */
    MAX_TEMP_FIELDS = 26,    /* intermediate results; the table has one row more */
    MAX_BREAKS = 9,          /* sort and break pairs */
    MAX_SECTIONS = 31,       /* fixed rows */
    MAX_USER_FIELDS = 12,    /* fixed rows */
    MAX_FONTS = 32,          /* rows for fonts and pictures */
    MAX_CELLS = 102,         /* cells of an expression: 99 tokens, the terminator, room */
    MAX_LABEL_TEXT = 300,    /* characters of a label, without the terminator */
    MAX_SESSIONS = 100,      /* run sessions in a process */
    MAX_SCR_PAGES = 5000,    /* pages of a report file */
    TEXT_BUFFER_SIZE = 1024, /* bytes of a session's scratch text */
    UNITS_PER_INCH = 250     /* form units */
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
       MESSAGE_EDITABLE_TEXT = 710, /* the selection: lParam is the text in 710 and 711 */
       MESSAGE_FIXED_TEXT = 711,
       MESSAGE_NO_FIXED_TEXT = 712,
       MESSAGE_NO_EDITABLE_TEXT = 713,
       MESSAGE_MAY_EDIT = 714, /* lParam 1: the text may be edited; comes first */
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

#endif
