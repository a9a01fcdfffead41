// The form in memory and its built-in tables, as a session holds them.
#pragma once

#include "state/windows.h"
#include "tessarine_records.h"

namespace tessarine {

struct SystemFieldRow {
    char Name[101];
    int32_t ValueType;
    int32_t Width; // characters
};

struct OperatorRow {
    char Text[14];
    char *HelpLine; // a block of OurAlloc, empty for rows without help
    int32_t Precedence;
    uint32_t Unary;
    uint32_t Restricted; // usable in expression mode 1 alone
    uint32_t Function;
};

constexpr int OPERATOR_ROWS = 48;

// A cell of an expression where it stands: records are packed, so at any address.
using Cell [[gnu::aligned(1)]] = uint16_t;

struct FormState {
    FormHeader Header;

    // The live counters; the header's are taken over at a load and written at a save.
    int32_t TotalItems;
    int32_t FieldCount;
    int32_t BreakCount;
    int32_t FontCount;
    int32_t UserFieldCount; // rows in use

    // Movable blocks and their locked pointers.
    HGLOBAL ItemMemory;
    HGLOBAL FontMemory;
    HGLOBAL FieldMemory;
    HGLOBAL TempFieldMemory;
    uint32_t TablesAllocated;
    int32_t FieldCapacity; // rows of Fields that may be in use
    ItemRecord *Items;     // 321 rows
    FontEntry *Fonts;      // 32 rows
    FieldRecord *Fields;   // 501 rows, in a run as many as FieldCount and one more; swapped for
                           // the input table while filters are evaluated
    FieldRecord *TempFld;  // 27 rows, intermediate results of the evaluator

    BreakFieldRecord Breaks[MAX_BREAKS];
    SectionRecord Sections[MAX_SECTIONS];
    UserFieldRecord UserFields[MAX_USER_FIELDS];

    char SectionNames[MAX_SECTIONS][20];
    SystemFieldRow SystemFields[6];
    char SummaryNames[6][12];
    char DateFormatNames[8][12];
    OperatorRow OperatorTable[OPERATOR_ROWS]; // row = code - 501

    HANDLE FormLock;       // the open handle that locks the form's file, or INVALID_HANDLE_VALUE
    char LockedPath[260];  // the file that FormLock holds
    uint8_t FontMarker;    // 190
    char FillerText[101];  // 100 characters of the value 215; nothing reads it
    uint32_t ForgiveZero;  // evaluator: a division by zero gives a substitute value
    int32_t ReportHeight;  // form units: bottom of the last section bar
    int32_t SelectedItem;  // row of the item with the focus, -1 none
    uint32_t FormModified; // changed through SetModified alone
};

} // namespace tessarine
