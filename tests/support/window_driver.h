// Drives windows as their users do, by messages, and tells what their menus and scroll bars show.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "state/windows.h"

std::string WindowText(HWND window);

// Hands out the messages that wait on this thread, but for those that the routine takes.
void ServeMessages(const std::function<bool(MSG *)> &taken = nullptr);
// Hands out messages until it holds; false when that doesn't come within a minute.
bool PumpUntil(const std::function<bool()> &holds);

// While one stands, GetKeyState finds the key down.
class HeldKey {
public:
    explicit HeldKey(int key) : key_(key) { Set(0x80); }
    ~HeldKey() { Set(0); }
    HeldKey(const HeldKey &) = delete;
    HeldKey &operator=(const HeldKey &) = delete;

private:
    void Set(BYTE state) const;
    int key_;
};

// Where a window shows its form, for a mouse that is moved in form units.
struct FormView {
    POINT corner; // top left of what it shows: pixels of the client area
    POINT origin; // the same place in form units
    int pixels_x; // an inch
    int pixels_y;

    POINT Pixel(int x, int y) const; // the nearest
};

enum class MouseButton { LEFT, MIDDLE, RIGHT };

// A window that is driven. A fixture derives from it and says which window it is; all messages are
// sent, unless they are said to be posted.
class WindowDriver {
public:
    virtual ~WindowDriver() = default;
    virtual HWND Window() const = 0;

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(Window(), message, wParam, lParam);
    }
    void Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        PostMessageA(Window(), message, wParam, lParam);
    }
    void Command(int number) const { Send(WM_COMMAND, static_cast<WPARAM>(number)); }
    void PostCommand(int number) const { Post(WM_COMMAND, static_cast<WPARAM>(number)); }

    void KeyDown(int key) const { Send(WM_KEYDOWN, static_cast<WPARAM>(key)); }
    void KeyUp(int key) const { Send(WM_KEYUP, static_cast<WPARAM>(key)); }
    void Key(int key) const;

    // The mouse, in pixels of the client area. Each message tells which buttons are down, and Shift
    // and Ctrl as HeldKey has them.
    void Press(POINT place, MouseButton button = MouseButton::LEFT);
    void Release(POINT place, MouseButton button = MouseButton::LEFT);
    void Click(POINT place, MouseButton button = MouseButton::LEFT);
    void DoubleClick(POINT place, MouseButton button = MouseButton::LEFT);
    void Move(POINT place) const;
    void Drag(POINT from, POINT to, MouseButton button = MouseButton::LEFT);
    // The buttons come up outside, so that the window isn't told.
    void LoseButtons() { buttons_ = 0; }

    void OpenMenu() const; // as far as the window sets its entries
    bool MenuEnabled(int number) const { return !(MenuState(number) & (MF_GRAYED | MF_DISABLED)); }
    bool MenuChecked(int number) const { return MenuState(number) & MF_CHECKED; }
    std::string MenuText(int number) const;

    // message: WM_HSCROLL or WM_VSCROLL; bar: SB_HORZ or SB_VERT.
    void Scroll(UINT message, int code, int position = 0) const {
        Send(message, MAKEWPARAM(code, position));
    }
    int ScrollPosition(int bar) const { return GetScrollPos(Window(), bar); }
    std::pair<int, int> ScrollRange(int bar) const;
    bool ScrollShown(int bar) const;

private:
    UINT MenuState(int number) const; // every bit of an entry that isn't there
    void Mouse(UINT message, POINT place) const;

    WPARAM buttons_ = 0; // MK_LBUTTON, MK_MBUTTON, MK_RBUTTON
};

// A window that no fixture stands for.
class DrivenWindow : public WindowDriver {
public:
    explicit DrivenWindow(HWND window) : window_(window) {}
    HWND Window() const override { return window_; }

private:
    HWND window_;
};
