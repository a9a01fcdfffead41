#include "designer/window.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "designer/accelerators.h"
#include "designer/canvas_paint.h"
#include "designer/command_rows.h"
#include "designer/designer_state.h"
#include "designer/enabling.h"
#include "designer/ending.h"
#include "designer/focus_rect.h"
#include "designer/help.h"
#include "designer/item_table.h"
#include "designer/keys.h"
#include "designer/properties.h"
#include "designer/scrolling.h"
#include "designer/tracking.h"
#include "frame/boundary.h"
#include "frame/session_table.h"

namespace tessarine {

namespace {

constexpr UINT HELP_BUTTON = 9; // of a common dialog
constexpr WPARAM HELP_ON_COMMON_DIALOGS = 7234;
constexpr LRESULT WANTED_KEYS = DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTALLKEYS | DLGC_WANTCHARS;
static_assert(WANTED_KEYS == 135);

using Reply = std::optional<LRESULT>; // none: the message goes on to the system
constexpr Reply HANDLED = 0;

Reply OnDestroy(Session *session, WPARAM, LPARAM) {
    session->FormBlock.DesignerOpen = 0;
    return HANDLED;
}

// Its children have gone by now, and with them the last that looked for the session by its window.
Reply OnLastMessage(Session *session, WPARAM, LPARAM) {
    LoseWindow(session);
    return std::nullopt;
}

Reply OnFocus(Session *session, WPARAM, LPARAM) {
    DesignerOf(session).HasInput = 1;
    DesignerOf(session).PaintMode = PAINT_RULERS;
    InvalidateRect(session->Window, nullptr, FALSE);
    return HANDLED;
}

// The dotted rectangle stays on the screen while the focus is elsewhere.
Reply OnFocusLost(Session *session, WPARAM, LPARAM) {
    DesignerOf(session).HasInput = 0;
    if (Selected(session))
        FrDrawFocusRect(session, session->drawing.ScreenDC, DesignerOf(session).FocusRect);
    return HANDLED;
}

Reply OnHelpButton(Session *session, WPARAM, LPARAM) {
    ShowHelpOn(session, HELP_ON_COMMON_DIALOGS);
    return HANDLED;
}

// A window that was sized hears of it here alone.
Reply OnPaint(Session *session, WPARAM, LPARAM) {
    PAINTSTRUCT paint;
    BeginPaint(session->Window, &paint);
    EndPaint(session->Window, &paint);
    LayOutCanvas(session);
    RepaintAll(session);
    return HANDLED;
}

Reply OnClose(Session *session, WPARAM, LPARAM) {
    CloseDesigner(session);
    return HANDLED;
}

Reply OnSystemEnd(Session *session, WPARAM, LPARAM) {
    return CloseDesigner(session) ? TRUE : FALSE;
}

Reply OnDialogCode(Session *, WPARAM, LPARAM) { return WANTED_KEYS; }

Reply OnKeyDown(Session *session, WPARAM wParam, LPARAM) {
    KeyGoesDown(session, wParam);
    return HANDLED;
}

Reply OnKeyUp(Session *session, WPARAM wParam, LPARAM) {
    KeyComesUp(session, wParam);
    return HANDLED;
}

Reply OnCommand(Session *session, WPARAM wParam, LPARAM) {
    Designer &designer = DesignerOf(session);
    if (designer.HelpPending) {
        designer.HelpPending = 0;
        ShowHelpOn(session, wParam);
        return HANDLED;
    }
    return RunDesignerCommand(session, wParam) ? HANDLED : std::nullopt;
}

Reply OnScrollAcross(Session *session, WPARAM wParam, LPARAM) {
    ScrollFormAcross(session, wParam);
    return HANDLED;
}

Reply OnScrollDown(Session *session, WPARAM wParam, LPARAM) {
    ScrollFormDown(session, wParam);
    return HANDLED;
}

// A menu that the host shows over the window is its own.
Reply OnMenu(Session *session, WPARAM wParam, LPARAM) {
    const auto menu = reinterpret_cast<HMENU>(wParam);
    if (menu && menu == GetMenu(session->Window) && EnableDesignerMenu(session, menu))
        DrawMenuBar(session->Window);
    return HANDLED;
}

Reply OnIdle(Session *session, WPARAM wParam, LPARAM) {
    if (wParam == MSGF_MENU) AskForHelpInMenu(session);
    return HANDLED;
}

Reply OnMouseMove(Session *session, WPARAM wParam, LPARAM lParam) {
    if (DesignerOf(session).HoverOnly)
        HoverCursor(session, lParam);
    else
        MouseMove(session, wParam, lParam);
    return HANDLED;
}

Reply OnButtonDown(Session *session, WPARAM wParam, LPARAM lParam) {
    MouseDown(session, wParam, lParam);
    return HANDLED;
}

Reply OnButtonUp(Session *session, WPARAM wParam, LPARAM lParam) {
    MouseUp(session, wParam, lParam);
    return HANDLED;
}

Reply OnDoubleClick(Session *session, WPARAM, LPARAM) {
    ItemProperties(session);
    return HANDLED;
}

Reply OnRightButton(Session *session, WPARAM wParam, LPARAM lParam) {
    MouseDown(session, wParam, lParam);
    if (session->State == STATE_ENDING) return HANDLED;
    ShowItemMenu(session, {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
    return HANDLED;
}

Reply OnNothing(Session *, WPARAM, LPARAM) { return HANDLED; }

enum class Tail { SETTLES, LEAVES }; // whether the host's DesignerModified follows the form

struct MessageRow {
    UINT message;
    Reply (*handle)(Session *session, WPARAM wParam, LPARAM lParam);
    Tail tail = Tail::SETTLES;
};

constexpr MessageRow messages[] = {
    {WM_DESTROY, OnDestroy},
    {WM_NCDESTROY, OnLastMessage, Tail::LEAVES},
    {WM_SETFOCUS, OnFocus},
    {WM_KILLFOCUS, OnFocusLost},
    {HELP_BUTTON, OnHelpButton},
    {WM_PAINT, OnPaint},
    {WM_CLOSE, OnClose, Tail::LEAVES},
    {WM_QUERYENDSESSION, OnSystemEnd, Tail::LEAVES},
    {WM_GETDLGCODE, OnDialogCode, Tail::LEAVES},
    {WM_KEYDOWN, OnKeyDown},
    {WM_KEYUP, OnKeyUp},
    {WM_COMMAND, OnCommand},
    {WM_HSCROLL, OnScrollAcross},
    {WM_VSCROLL, OnScrollDown},
    {WM_INITMENU, OnMenu},
    {WM_ENTERIDLE, OnIdle},
    {WM_MOUSEMOVE, OnMouseMove},
    {WM_LBUTTONDOWN, OnButtonDown},
    {WM_MBUTTONDOWN, OnButtonDown},
    {WM_LBUTTONUP, OnButtonUp},
    {WM_MBUTTONUP, OnButtonUp},
    {WM_LBUTTONDBLCLK, OnDoubleClick},
    {WM_RBUTTONDOWN, OnRightButton},
    {WM_RBUTTONUP, OnNothing},
    {WM_RBUTTONDBLCLK, OnNothing},
    {WM_MBUTTONDBLCLK, OnNothing},
};

// The number is compared as the 16 bits that it is.
bool IsHelpButton(UINT message) { return help_message && LOWORD(message) == LOWORD(help_message); }

Reply Handle(Session *session, UINT message, WPARAM wParam, LPARAM lParam) {
    if (TranslateKey(session, message, wParam, lParam)) return TRUE;
    const UINT wanted = IsHelpButton(message) ? HELP_BUTTON : message;
    const auto *const row = std::ranges::find(messages, wanted, &MessageRow::message);
    if (row == std::end(messages)) return std::nullopt;
    const Reply reply = row->handle(session, wParam, lParam);
    if (reply && row->tail == Tail::SETTLES)
        session->FormBlock.DesignerModified = session->form.FormModified;
    return reply;
}

// The session may be released at the end of this.
Reply HandleWhole(Session *session, UINT message, WPARAM wParam, LPARAM lParam) {
    const InMessage inside(session);
    return Guarded(session, HANDLED, [&] { return Handle(session, message, wParam, lParam); });
}

// Until its form stands and from the moment that it ends a window takes nothing, but that another
// destroys it must be heard; its own destruction finds IgnoreMessages set.
bool IsDeaf(const Session *session, UINT message) {
    if (session->IgnoreMessages) return true;
    return session->State != STATE_FORM_OPEN && message != WM_DESTROY && message != WM_NCDESTROY;
}

} // namespace

LRESULT CALLBACK FrWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Session *session = window ? GetSessionPointer(window, 0) : nullptr;
    Reply reply;
    if (session && !IsDeaf(session, message)) reply = HandleWhole(session, message, wParam, lParam);
    return reply ? *reply : DefWindowProcA(window, message, wParam, lParam);
}

LRESULT CALLBACK FrEditSubclass(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND parent = GetParent(window);
    const Session *session = parent ? GetSessionPointer(parent, 0) : nullptr;
    if (!session) return 0;
    if (message == WM_CHAR && wParam == VK_RETURN) {
        SetFocus(session->Window);
        return 1;
    }
    if (!session->Desk.EditWndProc) return DefWindowProcA(window, message, wParam, lParam);
    return CallWindowProcA(session->Desk.EditWndProc, window, message, wParam, lParam);
}

} // namespace tessarine
