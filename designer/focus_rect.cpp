#include "designer/focus_rect.h"

#include <iterator>

#include "designer/designer_state.h"
#include "frame/fatal_error.h"

namespace tessarine {

namespace {

// Drawn a second time, the same lines take themselves away.
void Trace(const Session *session, HDC device, const RECT &r) {
    const POINT corners[] = {{r.left, r.top},
                             {r.right, r.top},
                             {r.right, r.bottom},
                             {r.left, r.bottom},
                             {r.left, r.top}};
    const HGDIOBJ pen = SelectObject(device, session->device.DotPen);
    const int mode = SetROP2(device, R2_NOTXORPEN);
    Polyline(device, corners, std::size(corners));
    SetROP2(device, mode);
    SelectObject(device, pen);
}

// To ask the system, even who has the focus, costs more than the lines do.
void TakeInput(Session *session) {
    if (DesignerOf(session).HasInput) return;
    // A window that has it already hears nothing.
    if (SetFocus(session->Window) == session->Window) DesignerOf(session).HasInput = 1;
    RaisePending(session);
}

} // namespace

int FrDrawFocusRect(Session *session, HDC device, const RECT &rectangle) {
    Designer &designer = DesignerOf(session);
    if (designer.FocusRect.right - designer.FocusRect.left < 1) return 0;
    if (designer.FocusVisible) return 1;
    Trace(session, device, rectangle);
    designer.FocusVisible = 1;
    TakeInput(session);
    return 1;
}

int FrEraseFocusRect(Session *session, HDC device, const RECT &rectangle) {
    Designer &designer = DesignerOf(session);
    if (!designer.FocusVisible) return 1;
    Trace(session, device, rectangle);
    designer.FocusVisible = 0;
    return 1;
}

void ShowFocus(Session *session) {
    FrDrawFocusRect(session, session->drawing.ScreenDC, DesignerOf(session).FocusRect);
}

void HideFocus(Session *session) {
    FrEraseFocusRect(session, session->drawing.ScreenDC, DesignerOf(session).FocusRect);
}

} // namespace tessarine
