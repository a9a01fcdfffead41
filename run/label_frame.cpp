#include "run/label_frame.h"

#include "frame/mapping.h"
#include "frame/owned.h"
#include "paint/shapes.h"
#include "run/shape_items.h"

namespace tessarine {

namespace {

constexpr COLORREF WHITE = 0xFFFFFF;

struct Frame {
    RECT place;
    int radius;
};

void DrawFrame(HDC device, const Frame &frame) {
    RoundRect(device, frame.place.left, frame.place.top, frame.place.right, frame.place.bottom,
              frame.radius, frame.radius);
}

// A frame that is wanted shows, as the pen in force stays.
void FillFrame(HDC device, const Frame &frame, const RepLogbrush &background, uint32_t outline) {
    OwnedDrawingObject pen(CreatePen(PS_NULL, 1, WHITE));
    if (!outline) SelectObject(device, pen.Get());
    OwnedDrawingObject fill(MakeBackgroundBrush(background));
    SetBkMode(device, TRANSPARENT);
    SelectObject(device, fill.Get());
    DrawFrame(device, frame);
    SelectObject(device, GetStockObject(WHITE_BRUSH));
    fill.Reset();
    SelectObject(device, GetStockObject(BLACK_PEN));
}

Frame FrameOf(const Session *session, const ItemRecord &bar) {
    const FormHeader &header = session->form.Header;
    Frame frame{};
    frame.place.left = bar.x + session->run.CurrentX - InchesToUnits(header.LeftMargin);
    frame.place.right = frame.place.left + bar.width;
    frame.place.top =
        session->run.CurrentY + bar.y + bar.RunOffset - InchesToUnits(header.TopMargin);
    frame.place.bottom = frame.place.top + bar.height;
    frame.radius = bar.height / 4;
    return frame;
}

} // namespace

// Frames are a matter of the preview and the report file: a printer run has no recording.
void PrintLabelFrame(Session *session, int row, uint32_t outline) {
    const HDC device = session->pages.PageRecorder;
    ItemRecord *bar = &session->form.Items[row];
    const LabelGeometry &label = session->form.Header.LabelGeometry;
    const int16_t pitch_width = bar->width;
    const int16_t pitch_height = bar->height;
    bar->width = static_cast<int16_t>(InchesToUnits(label.LabelWidth));
    bar->height = static_cast<int16_t>(InchesToUnits(label.LabelHeight));
    const Frame frame = FrameOf(session, *bar);
    RECT sides = frame.place; // from the item's own left edge
    OffsetRect(&sides, bar->x + session->run.CurrentX - sides.left, 0);
    if (device) {
        if (bar->ItemFlags & FLAG_BACKGROUND)
            FillFrame(device, frame, bar->Background, outline);
        else if (outline)
            DrawFrame(device, frame);
        if (!outline) PrintOutline(device, *bar, sides);
    }
    bar->width = pitch_width;
    bar->height = pitch_height;
}

} // namespace tessarine
