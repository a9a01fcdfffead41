// What only the designer knows of a session: one object that the session owns from its first use
// until it is closed. All rectangles and places are form units, origin top left of the form.
#pragma once

#include "state/session.h"

namespace tessarine {

constexpr int IDLE = -1;             // PendingCommand: nothing is in progress
constexpr int NOTHING_SELECTED = -1; // SelectedItem
constexpr int HANDLES = 8;
constexpr int MAX_CLIP_ITEMS = 100;
constexpr int EXPRESSION_LENGTH = 600; // characters of an expression's text

enum {                 // PaintMode
    PAINT_CANVAS = 2,  // the canvas alone; the band on the screen stays
    PAINT_RULERS = 3,  // canvas, and the band with its rulers
    PAINT_BORDERS = 5, // the same with the band's border lines: the mode after every repaint
};

struct Designer {
    int32_t PendingCommand;    // IDLE, else the number of the drag or the placement in progress
    int32_t ActiveHandle;      // held by a size drag, 0 to 7
    int32_t HandleCount;       // HANDLES while an item is selected, else 0
    RECT HandleRects[HANDLES]; // one whose left equals its right is switched off
    RECT FocusRect;            // what the user sees and drags
    uint32_t FocusVisible;     // the dotted rectangle is now on the screen
    uint32_t HasInput;         // the window is known to have the focus of the keyboard
    int32_t PaintMode;         // what the next repaint covers
    uint32_t HoverOnly;        // a pointer move only chooses the cursor
    uint32_t OutOfBounds; // the item last clicked lay outside the limits: right and bottom are free
    int32_t LastClickX;   // of the last hit test
    int32_t LastClickY;
    uint32_t SnapToGrid;
    int32_t GridSize; // as typed

    ItemRecord *UndoImage; // a block of OurAlloc
    int32_t UndoCount;     // its rows

    ItemRecord *ClipItems[MAX_CLIP_ITEMS];   // places from the copied block's corner
    FieldRecord *ClipFields[MAX_CLIP_ITEMS]; // of rows that are fields
    int32_t ClipCount;
    int32_t ClipWidth; // of the copied block
    int32_t ClipHeight;

    uint32_t HelpPending; // the next WM_COMMAND is a request for help
    uint32_t CloseAsked;  // the user is being asked about unsaved changes
    int32_t NewField;     // field row that waits for its placement
    int32_t NewPicture;   // picture row that waits for its placement

    int32_t ExpressionMode;
    char Expression[EXPRESSION_LENGTH + 1]; // the text in the expression dialog
    int32_t ExpressionCaret;
    const char *ExpressionTitle; // of that dialog; null: the template's own
};

// The session's designer, made with its start values when there is none. Fatal with code 3.
Designer &DesignerOf(Session *session);
// Gives an idle start to the designer, if the session has one.
void ResetDesigner(Session *session);

} // namespace tessarine
