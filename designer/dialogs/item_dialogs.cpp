#include "designer/dialogs/item_dialogs.h"

#include "commands.h"
#include "designer/designer_state.h"
#include "frame/colors.h"
#include "frame/dialog_controls.h"
#include "frame/dialogs.h"

namespace tessarine {

namespace {

constexpr int POSITION_HELP = 3021;
constexpr int LINE_HELP = 3022;
constexpr int OUTLINE_HELP = 3033;
constexpr int GRID_HELP = 3034;
constexpr int BACKGROUND_HELP = 3035;
constexpr int FULL_OPEN = 1; // the colour dialog with its custom part

bool ItemStands(const Session *session) {
    const int row = session->form.SelectedItem;
    return row >= 0 && row < session->form.TotalItems;
}

ItemRecord &EditedItem(Session *session) { return session->form.Items[session->form.SelectedItem]; }

int16_t ReadShort(HWND dialog, int control) {
    return static_cast<int16_t>(ReadWholeItem(dialog, control));
}

int16_t ReadShort(HWND dialog, std::span<const ValueRow> rows, int16_t none) {
    return static_cast<int16_t>(ReadChoice(dialog, rows, none));
}

// ---- text in its item --------------------------------------------------------------------------

constexpr ValueRow across[] = {
    {POSITION_LEFT, FLAG_LEFT}, {POSITION_CENTER, FLAG_CENTER}, {POSITION_RIGHT, FLAG_RIGHT}};
constexpr ValueRow down[] = {
    {POSITION_TOP, FLAG_TOP}, {POSITION_MIDDLE, FLAG_MIDDLE}, {POSITION_BOTTOM, FLAG_BOTTOM}};
constexpr int ACROSS = FLAG_LEFT | FLAG_CENTER | FLAG_RIGHT;
constexpr int DOWN = FLAG_TOP | FLAG_MIDDLE | FLAG_BOTTOM;

bool OpenPosition(HWND dialog, Session *session, LPARAM) {
    const int flags = EditedItem(session).ItemFlags;
    ShowChoice(dialog, across, flags & ACROSS);
    ShowChoice(dialog, down, flags & DOWN);
    SetFocus(GetDlgItem(dialog, IDOK));
    return false;
}

void TakePosition(HWND dialog, Session *session) {
    ItemRecord &item = EditedItem(session);
    const int flags = item.ItemFlags;
    item.ItemFlags = static_cast<uint16_t>((flags & ~(ACROSS | DOWN)) |
                                           ReadChoice(dialog, across, flags & ACROSS) |
                                           ReadChoice(dialog, down, flags & DOWN));
    EndDialog(dialog, 1);
}

constexpr ControlRow position_controls[] = {{IDOK, TakePosition}};
constexpr Dialog position_dialog{POSITION_HELP, OpenPosition, position_controls, 0, ItemStands};

// ---- outlines and lines ------------------------------------------------------------------------

constexpr ValueRow sides[] = {{OUTLINE_LEFT, SIDE_LEFT},
                              {OUTLINE_RIGHT, SIDE_RIGHT},
                              {OUTLINE_TOP, SIDE_TOP},
                              {OUTLINE_BOTTOM, SIDE_BOTTOM}};
constexpr ValueRow strokes[] = {
    {STROKE_SOLID, 0}, {STROKE_DASHES, 1}, {STROKE_DOTS, 2}, {STROKE_DASH_AND_DOTS, 3}};
constexpr ValueRow angles[] = {
    {LINE_HORIZONTAL, 0}, {LINE_VERTICAL, 1}, {LINE_DIAGONAL, 2}, {LINE_BACK_DIAGONAL, 3}};
constexpr int of_sides[] = {STROKE_WIDTH,  STROKE_COLOR, STROKE_SOLID,
                            STROKE_DASHES, STROKE_DOTS,  STROKE_DASH_AND_DOTS};

void EnableOutline(HWND dialog, Session *) {
    EnableItems(dialog, of_sides, ReadBits(dialog, sides, 0) != 0);
}

void ShowStroke(HWND dialog, int style, int width) {
    ShowChoice(dialog, strokes, style);
    SetDlgItemInt(dialog, STROKE_WIDTH, static_cast<UINT>(width), TRUE);
}

bool OpenOutline(HWND dialog, Session *session, LPARAM) {
    const ItemRecord &item = EditedItem(session);
    ShowBits(dialog, sides, item.OutlineSides);
    ShowStroke(dialog, item.OutlineStyle, item.OutlineWidth);
    EnableOutline(dialog, session);
    return true;
}

// The colour is the item's at once, whatever becomes of the dialog.
void EditOutlineColor(HWND dialog, Session *session) {
    const uint32_t color = EditColor(dialog, EditedItem(session).OutlineColor, FULL_OPEN);
    if (ItemStands(session)) EditedItem(session).OutlineColor = color;
}

void TakeOutline(HWND dialog, Session *session) {
    ItemRecord &item = EditedItem(session);
    item.OutlineSides = static_cast<uint16_t>(ReadBits(dialog, sides, item.OutlineSides));
    item.OutlineStyle = ReadShort(dialog, strokes, item.OutlineStyle);
    item.OutlineWidth = ReadShort(dialog, STROKE_WIDTH);
    EndDialog(dialog, 1);
}

bool OpenLine(HWND dialog, Session *session, LPARAM) {
    const ItemRecord &item = EditedItem(session);
    ShowChoice(dialog, angles, item.LineAngle);
    ShowStroke(dialog, item.LineStyle, item.LineWidth);
    return true;
}

void EditLineColor(HWND dialog, Session *session) {
    const uint32_t color = EditColor(dialog, EditedItem(session).LineColor, FULL_OPEN);
    if (ItemStands(session)) EditedItem(session).LineColor = color;
}

void TakeLine(HWND dialog, Session *session) {
    ItemRecord &item = EditedItem(session);
    item.LineAngle = ReadShort(dialog, angles, item.LineAngle);
    item.LineStyle = ReadShort(dialog, strokes, item.LineStyle);
    item.LineWidth = ReadShort(dialog, STROKE_WIDTH);
    EndDialog(dialog, 1);
}

constexpr ControlRow outline_controls[] = {
    {IDOK, TakeOutline},           {STROKE_COLOR, EditOutlineColor},
    {OUTLINE_LEFT, EnableOutline}, {OUTLINE_RIGHT, EnableOutline},
    {OUTLINE_TOP, EnableOutline},  {OUTLINE_BOTTOM, EnableOutline},
};
constexpr Dialog outline_dialog{OUTLINE_HELP, OpenOutline, outline_controls, 0, ItemStands};
constexpr ControlRow line_controls[] = {{IDOK, TakeLine}, {STROKE_COLOR, EditLineColor}};
constexpr Dialog line_dialog{LINE_HELP, OpenLine, line_controls, 0, ItemStands};

// ---- backgrounds -------------------------------------------------------------------------------

// A brush as one value: solid, or its hatch. One of another kind has no button, and stays.
constexpr int SOLID = -1;
constexpr int OTHER_BRUSH = -2;
constexpr ValueRow brushes[] = {
    {BRUSH_SOLID, SOLID},
    {BRUSH_HORIZONTAL, HS_HORIZONTAL},
    {BRUSH_VERTICAL, HS_VERTICAL},
    {BRUSH_FORWARD_DIAGONAL, HS_FDIAGONAL},
    {BRUSH_BACKWARD_DIAGONAL, HS_BDIAGONAL},
    {BRUSH_CROSS, HS_CROSS},
    {BRUSH_DIAGONAL_CROSS, HS_DIAGCROSS},
};
constexpr ValueRow painted[] = {{BACKGROUND_PAINT, FLAG_BACKGROUND}};
constexpr int of_paint[] = {BRUSH_COLOR,
                            BRUSH_SOLID,
                            BRUSH_HORIZONTAL,
                            BRUSH_VERTICAL,
                            BRUSH_FORWARD_DIAGONAL,
                            BRUSH_BACKWARD_DIAGONAL,
                            BRUSH_CROSS,
                            BRUSH_DIAGONAL_CROSS};

int BrushOf(const RepLogbrush &brush) {
    if (brush.Style == BS_SOLID) return SOLID;
    return brush.Style == BS_HATCHED ? brush.Hatch : OTHER_BRUSH;
}

void EnableBrush(HWND dialog, Session *) {
    EnableItems(dialog, of_paint, IsChecked(dialog, BACKGROUND_PAINT));
}

bool OpenBackground(HWND dialog, Session *session, LPARAM) {
    const ItemRecord &item = EditedItem(session);
    ShowBits(dialog, painted, item.ItemFlags);
    ShowChoice(dialog, brushes, BrushOf(item.Background));
    EnableBrush(dialog, session);
    return true;
}

void EditBrushColor(HWND dialog, Session *session) {
    const uint32_t color = EditColor(dialog, EditedItem(session).Background.Color, FULL_OPEN);
    if (ItemStands(session)) EditedItem(session).Background.Color = color;
}

void TakeBackground(HWND dialog, Session *session) {
    ItemRecord &item = EditedItem(session);
    const int chosen = ReadChoice(dialog, brushes, BrushOf(item.Background));
    LOGBRUSH brush;
    ReadRepLogbrush(&item.Background, &brush);
    if (chosen != OTHER_BRUSH) brush.lbStyle = chosen == SOLID ? BS_SOLID : BS_HATCHED;
    if (chosen >= 0) brush.lbHatch = static_cast<ULONG_PTR>(chosen);
    WriteRepLogbrush(&brush, &item.Background);
    item.ItemFlags = static_cast<uint16_t>(ReadBits(dialog, painted, item.ItemFlags));
    EndDialog(dialog, 1);
}

constexpr ControlRow background_controls[] = {
    {IDOK, TakeBackground}, {BRUSH_COLOR, EditBrushColor}, {BACKGROUND_PAINT, EnableBrush}};
constexpr Dialog background_dialog{BACKGROUND_HELP, OpenBackground, background_controls, 0,
                                   ItemStands};

// ---- the grid ----------------------------------------------------------------------------------

constexpr int of_snapping[] = {GRID_THICKNESS};

void EnableGrid(HWND dialog, Session *) {
    EnableItems(dialog, of_snapping, IsChecked(dialog, GRID_SNAP));
}

bool OpenGrid(HWND dialog, Session *session, LPARAM) {
    const Designer &designer = DesignerOf(session);
    CheckDlgButton(dialog, GRID_SNAP, designer.SnapToGrid ? BST_CHECKED : BST_UNCHECKED);
    SetDlgItemInt(dialog, GRID_THICKNESS, static_cast<UINT>(designer.GridSize), TRUE);
    EnableGrid(dialog, session);
    return true;
}

void TakeGrid(HWND dialog, Session *session) {
    Designer &designer = DesignerOf(session);
    designer.SnapToGrid = IsChecked(dialog, GRID_SNAP);
    designer.GridSize = ReadWholeItem(dialog, GRID_THICKNESS);
    EndDialog(dialog, 1);
}

constexpr ControlRow grid_controls[] = {{IDOK, TakeGrid}, {GRID_SNAP, EnableGrid}};
constexpr Dialog grid_dialog{GRID_HELP, OpenGrid, grid_controls};

} // namespace

INT_PTR CALLBACK PosParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(position_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK OutlineParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(outline_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK LineParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(line_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK BackgroundParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(background_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK GridParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(grid_dialog, dialog, message, wParam, lParam);
}

} // namespace tessarine
