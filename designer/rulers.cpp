#include "designer/rulers.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "designer/item_table.h"
#include "designer/panel.h"
#include "form/label_measure.h"
#include "form/sections.h"
#include "frame/mapping.h"
#include "paint/strokes.h"

namespace tessarine {

namespace {

constexpr int TICK = 30; // form units: a major tick, and the scale's share of the band
constexpr int MIDDLE_TICK = 20;
constexpr int SMALL_TICK = 10;
constexpr int NUMBER_GAP = 5;

struct Steps { // form units
    float major;
    float middle;
    float small;
};

constexpr Steps inches{250, 125, 31.25F};
constexpr Steps centimetres{100, 50, 10}; // of 100 form units each, not exactly metric

struct Scale {
    float start;
    float end;
    Steps steps;
};

bool Shown(const Session *session) { return session->form.Header.RulerFlags & RULER_SHOWN; }

Steps StepsOf(const Session *session) {
    return session->form.Header.RulerFlags & RULER_INCHES ? inches : centimetres;
}

int Place(float position) { return static_cast<int>(position); }

void TakeRulerStyle(const Session *session, HDC device) {
    SelectObject(device, session->device.SolidPen);
    SetTextColor(device, session->palette.ForeColor);
    SetBkMode(device, TRANSPARENT);
}

// A number of the scale, and the room that it takes across.
struct Number {
    char text[16];
    int length;
    int width;

    Number(const Session *session, int value) {
        length = std::snprintf(text, sizeof text, "%d", value);
        width = GetLabelLen(session->form.Fonts[0], text);
    }
    void Draw(HDC device, int x, int y) const { TextOutA(device, x, y, text, length); }
};

// ---- the top ruler ----

void DrawTopTick(HDC device, float position, int base, int length) {
    DrawStroke(device, {Place(position), base}, {Place(position), base + length});
}

// No form is wider; what is no number at all ends the scale at once.
float EndOfScale(double end) { return static_cast<float>(std::fmin(std::fmax(end, 0), INT16_MAX)); }

Scale LabelScale(const Session *session) {
    const int bar = BarOfSection(session, SECTION_DETAIL_1);
    const int start = bar == NO_ROW ? 0 : session->form.Items[bar].x;
    const double width = session->form.Header.LabelGeometry.LabelWidth * double{UNITS_PER_INCH};
    return {static_cast<float>(start), EndOfScale(start + width), StepsOf(session)};
}

// The scale reads distance from the paper's left edge, as the leftmost bar stands at its least
// left edge or at the margin.
Scale ReportScale(const Session *session) {
    const int start = std::max(BAR_LEFT_EDGE - InchesToUnits(session->form.Header.LeftMargin), 0);
    return {static_cast<float>(start), EndOfScale(1.0 * session->printer.ReportWidth + start),
            StepsOf(session)};
}

void DrawTopNumbers(const Session *session, HDC device, const Scale &scale, int base) {
    const RulerFont font(device);
    int value = 1;
    for (float x = scale.start + scale.steps.major; x <= scale.end; x += scale.steps.major) {
        const Number number(session, value++);
        DrawTopTick(device, x, base, TICK);
        number.Draw(device, Place(x) - number.width / 2, base - session->device.FontHeight);
    }
}

void DrawTopTicks(HDC device, const Scale &scale, int base, float step, int length) {
    for (float x = scale.start + step; x < scale.end; x += step)
        DrawTopTick(device, x, base, length);
}

void PaintTopScale(const Session *session, HDC device) {
    const ViewState &view = session->view;
    const int base = view.OriginY - TICK;
    const Scale scale = session->LabelMode ? LabelScale(session) : ReportScale(session);
    DrawStroke(device, {view.OriginX, base}, {view.OriginX + view.ViewWidth, base});
    if (session->LabelMode || scale.start > 0) DrawTopTick(device, scale.start, base, TICK);
    DrawTopNumbers(session, device, scale, base);
    DrawTopTick(device, scale.end, base, TICK);
    DrawTopTicks(device, scale, base, scale.steps.middle, MIDDLE_TICK);
    DrawTopTicks(device, scale, base, scale.steps.small, SMALL_TICK);
}

// ---- the side rulers ----

// Where a side ruler's ticks begin, and which way they lead to the bar.
struct SideScale {
    int line;
    int toward; // 1 or -1
    Scale scale;

    void DrawTick(HDC device, float position, int length) const {
        DrawStroke(device, {line, Place(position)}, {line + toward * length, Place(position)});
    }
    int NumberLeft(int width) const { return toward > 0 ? line - width : line + NUMBER_GAP; }
};

SideScale SideScaleOf(const Session *session, const ItemRecord &bar, BarSide side) {
    const int right = bar.x + bar.width;
    const Scale scale{static_cast<float>(bar.y + session->device.FontHeight),
                      static_cast<float>(bar.y + bar.height), StepsOf(session)};
    if (side == BarSide::LEFT) return {bar.x - TICK, 1, scale};
    return {right + TICK, -1, scale};
}

void DrawSideNumbers(const Session *session, HDC device, const SideScale &side) {
    int value = 0;
    for (float y = side.scale.start; y <= side.scale.end; y += side.scale.steps.major) {
        const Number number(session, value++);
        side.DrawTick(device, y, TICK);
        number.Draw(device, side.NumberLeft(number.width),
                    Place(y) - session->device.FontHeight / 2);
    }
}

void DrawSideTicks(HDC device, const SideScale &side, float step, int length) {
    for (float y = side.scale.start + step; y <= side.scale.end; y += step)
        side.DrawTick(device, y, length);
}

// The right panel has the bar's left edge in it twice.
RECT SidePanel(const ItemRecord &bar, BarSide side) {
    const int right = bar.x + bar.width;
    const int bottom = bar.y + bar.height + 1;
    if (side == BarSide::LEFT) return {-1, bar.y + 1, bar.x + 1, bottom};
    return {right, bar.y + 1, right + bar.x, bottom};
}

} // namespace

int BandHeight(const Session *session) {
    return Shown(session) ? static_cast<int>(session->form.Fonts[0].Height) + TICK : 0;
}

void PaintBandLines(const Session *session, HDC device) {
    const ViewState &view = session->view;
    const int right = view.OriginX + view.ViewWidth;
    SelectObject(device, session->device.SolidPen);
    for (const int y : {view.OriginY - view.RulerBandHeight, view.OriginY})
        DrawStroke(device, {view.OriginX, y}, {right, y});
}

// The panel has the origin in its right edge twice.
void PaintTopRuler(const Session *session, HDC device) {
    const ViewState &view = session->view;
    const int top = view.OriginY - TICK - session->device.FontHeight - 1;
    RaisedPanel(device,
                {view.OriginX - 1, top, 2 * view.OriginX - 1 + view.ViewWidth,
                 top + view.RulerBandHeight + 1},
                session->device.SolidPen);
    if (!Shown(session)) return;
    TakeRulerStyle(session, device);
    PaintTopScale(session, device);
}

void PaintSideRuler(const Session *session, HDC device, const ItemRecord &bar, BarSide side) {
    RaisedPanel(device, SidePanel(bar, side), session->device.SolidPen);
    if (!Shown(session)) return;
    TakeRulerStyle(session, device);
    const SideScale ruler = SideScaleOf(session, bar, side);
    const Scale &scale = ruler.scale;
    DrawStroke(device, {ruler.line, Place(scale.start)}, {ruler.line, Place(scale.end)});
    DrawSideNumbers(session, device, ruler);
    ruler.DrawTick(device, scale.end, TICK);
    DrawSideTicks(device, ruler, scale.steps.middle, MIDDLE_TICK);
    DrawSideTicks(device, ruler, scale.steps.small, SMALL_TICK);
}

} // namespace tessarine
