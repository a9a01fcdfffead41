#include "designer/canvas_paint.h"

#include <initializer_list>

#include "canvas/canvas.h"
#include "designer/designer_state.h"
#include "designer/focus_rect.h"
#include "designer/item_paint.h"
#include "designer/item_table.h"
#include "designer/rulers.h"
#include "designer/selection.h"
#include "designer/view.h"
#include "form/form_check.h"
#include "form/modified.h"
#include "frame/host_data.h"
#include "frame/mapping.h"
#include "frame/owned.h"

namespace tessarine {

namespace {

// ---- the label ----

bool IsLabelOf(const FormHeader &header, const LabelGeometry &label) {
    return IsMeasure(label.LabelWidth) && IsMeasure(label.LabelHeight) &&
           header.BarHeight + InchesToUnits(label.LabelHeight) <= INT16_MAX;
}

void SizeLabelBar(Session *session) {
    const int row = BarOfSection(session, SECTION_DETAIL_1);
    if (row == NO_ROW) return;
    ItemRecord &bar = session->form.Items[row];
    const LabelGeometry &label = session->form.Header.LabelGeometry;
    const int height = session->form.Header.BarHeight + InchesToUnits(label.LabelHeight);
    session->form.ReportHeight += height - bar.height;
    bar.width = static_cast<int16_t>(InchesToUnits(label.LabelWidth));
    bar.height = static_cast<int16_t>(height);
}

void TakeHostLabel(Session *session) {
    FormHeader &header = session->form.Header;
    const LabelGeometry label =
        host_data.LabelGeometryPtr ? *host_data.LabelGeometryPtr : header.LabelGeometry;
    if (!IsLabelOf(header, label)) return;
    if (host_data.LabelTypePtr) header.LabelType = *host_data.LabelTypePtr;
    header.LabelGeometry = label;
    SizeLabelBar(session);
    SetModified(session, 1);
}

bool LabelChanged() { return host_data.LabelChangedPtr && *host_data.LabelChangedPtr; }

// ---- the repaint ----

bool BarIsSelected(const Session *session) {
    const ItemRecord *item = Selected(session);
    return item && item->ItemType == ITEM_BAR;
}

// The part of the form that the mode covers, cleared.
RECT Cleared(const Session *session, int mode) {
    RECT part = VisibleRectangle(session);
    if (mode == PAINT_RULERS || mode == PAINT_BORDERS) part.top -= session->view.RulerBandHeight;
    FillRect(session->view.MemoryDC, &part, session->device.BackBrush);
    return part;
}

void PaintBand(const Session *session, int mode) {
    const HDC device = session->view.MemoryDC;
    if (mode == PAINT_BORDERS) PaintBandLines(session, device);
    if (mode == PAINT_RULERS || mode == PAINT_BORDERS) PaintTopRuler(session, device);
}

HRGN CanvasRegion(const Session *session) {
    const RECT &client = session->view.ClipRect;
    return CreateRectRgn(0, CanvasTop(session), client.right, client.bottom);
}

// What the painting leaves selected would otherwise keep a font alive that the form gives up.
void GiveBackObjects(HDC device) {
    for (const int object : {SYSTEM_FONT, BLACK_PEN}) SelectObject(device, GetStockObject(object));
}

void PaintOffscreen(Session *session, HRGN canvas) {
    const HDC device = session->view.MemoryDC;
    const int mode = DesignerOf(session).PaintMode;
    SelectClipRgn(device, nullptr);
    const RECT part = Cleared(session, mode);
    PaintBand(session, mode);
    SelectClipRgn(device, canvas);
    for (int row = 0; row < session->form.TotalItems; ++row) PaintItem(session, device, row);
    GiveBackObjects(device);
    SelectClipRgn(session->drawing.ScreenDC, nullptr);
    CopyToWindow(session, part);
}

// Handles and the dotted rectangle lie on the screen alone. The host hears of the selection and
// may end the session over it.
void PaintSelection(Session *session, bool focus_shown) {
    const bool selected = Selected(session);
    if (selected) SelectItem(session, session->form.SelectedItem);
    if (session->State == STATE_ENDING) return;
    if (focus_shown || selected)
        FrDrawFocusRect(session, session->drawing.ScreenDC, DesignerOf(session).FocusRect);
}

} // namespace

void LayOutCanvas(Session *session) {
    if (LabelChanged()) {
        TakeHostLabel(session);
        if (host_data.LabelChangedPtr) *host_data.LabelChangedPtr = 0;
    }
    session->view.RulerBandHeight = BandHeight(session);
    ResizeCanvas(session);
}

void RepaintCanvas(Session *session) {
    if (!session->view.PaintEnabled || !session->view.MemoryDC) return;
    if (session->State == STATE_ENDING) return;
    Designer &designer = DesignerOf(session);
    const bool focus_shown = designer.FocusVisible;
    designer.FocusVisible = 0; // the copy covers it
    if (BarIsSelected(session) && designer.PaintMode != PAINT_RULERS)
        designer.PaintMode = PAINT_BORDERS;
    ClampOrigin(session);
    const OwnedDrawingObject canvas(CanvasRegion(session));
    PaintOffscreen(session, static_cast<HRGN>(canvas.Get()));
    SelectClipRgn(session->drawing.ScreenDC, static_cast<HRGN>(canvas.Get()));
    PaintSelection(session, focus_shown);
    if (session->State == STATE_ENDING) return;
    DesignerOf(session).PaintMode = PAINT_BORDERS;
    if (session->view.HorzScroll || session->view.VertScroll) SyncScrollBars(session);
    ValidateRect(session->Window, nullptr);
}

void RepaintAll(Session *session) {
    DesignerOf(session).PaintMode = PAINT_RULERS;
    RepaintCanvas(session);
}

} // namespace tessarine
