#include "designer/scrolling.h"

#include <algorithm>

#include "canvas/command_table.h"
#include "canvas/scroll_bars.h"
#include "designer/canvas_paint.h"

namespace tessarine {

namespace {

constexpr int THUMB_END = 100;

// The repaint holds the origin in the form.
void MoveOrigin(Session *session, int32_t ViewState::*origin, int distance) {
    session->view.*origin += distance;
    RepaintAll(session);
}

int LineHeight(const Session *session) { return static_cast<int>(session->form.Fonts[0].Height); }

void LineBack(Session *session, int32_t ViewState::*origin) {
    if (session->view.*origin >= 1) MoveOrigin(session, origin, -LineHeight(session));
}

void LineOn(Session *session, int32_t ViewState::*origin, int extent) {
    if (session->view.*origin < extent) MoveOrigin(session, origin, LineHeight(session));
}

void TrackThumb(Session *session, int32_t ViewState::*origin, WPARAM wParam, int extent) {
    const int position = std::clamp<int>(static_cast<short>(HIWORD(wParam)), 0, THUMB_END);
    MoveOrigin(session, origin, PlaceOfThumb(position, extent) - session->view.*origin);
}

void ViewUp(Session *session) {
    MoveOrigin(session, &ViewState::OriginY, -session->view.ViewHeight / 2);
}
void ViewDown(Session *session) {
    MoveOrigin(session, &ViewState::OriginY, session->view.ViewHeight / 2);
}
void ViewLeft(Session *session) {
    MoveOrigin(session, &ViewState::OriginX, -session->view.ViewWidth / 2);
}
void ViewRight(Session *session) {
    MoveOrigin(session, &ViewState::OriginX, session->view.ViewWidth / 2);
}

constexpr CommandRow codes_across[] = {{SB_LINELEFT, FormLineLeft},
                                       {SB_LINERIGHT, FormLineRight},
                                       {SB_PAGELEFT, ViewLeft},
                                       {SB_PAGERIGHT, ViewRight}};

constexpr CommandRow codes_down[] = {{SB_LINEUP, FormLineUp},
                                     {SB_LINEDOWN, FormLineDown},
                                     {SB_PAGEUP, ViewUp},
                                     {SB_PAGEDOWN, ViewDown}};

} // namespace

void FormLineUp(Session *session) { LineBack(session, &ViewState::OriginY); }
void FormLineDown(Session *session) {
    LineOn(session, &ViewState::OriginY, session->form.ReportHeight);
}
void FormLineLeft(Session *session) { LineBack(session, &ViewState::OriginX); }
void FormLineRight(Session *session) {
    LineOn(session, &ViewState::OriginX, session->printer.ReportWidth);
}

void HalfFormUp(Session *session) {
    MoveOrigin(session, &ViewState::OriginY, -session->form.ReportHeight / 2);
}
void HalfFormDown(Session *session) {
    MoveOrigin(session, &ViewState::OriginY, session->form.ReportHeight / 2);
}

void ScrollFormAcross(Session *session, WPARAM wParam) {
    if (LOWORD(wParam) == SB_THUMBTRACK)
        TrackThumb(session, &ViewState::OriginX, wParam, session->printer.ReportWidth);
    else
        RunCommand(session, codes_across, LOWORD(wParam));
}

void ScrollFormDown(Session *session, WPARAM wParam) {
    if (LOWORD(wParam) == SB_THUMBTRACK)
        TrackThumb(session, &ViewState::OriginY, wParam, session->form.ReportHeight);
    else
        RunCommand(session, codes_down, LOWORD(wParam));
}

} // namespace tessarine
