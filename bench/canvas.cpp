// bench_canvas FORM: a designer on a form whose fields have samples. Prints how many items it has,
// milliseconds a repaint, milliseconds of the bare drawing of the same items, microseconds a step
// of a drag, microseconds of the two outlines that such a step draws, and those of the cursor that
// it sets.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>
#include <vector>

#include "bench/host.h"
#include "bench/measure.h"

namespace {

constexpr int REPAINTS = 200;
constexpr int STEPS = 2000;

struct Text {
    RECT place;
    int x;
    int y;
    HFONT font;
    UINT length;
    const ItemRecord *item;
};

// The same drawing calls for the same items with nothing to find out: all objects and places are at
// hand, a font is selected only where it changes, and of a bar there is the frame alone.
class Bare {
public:
    Bare(HWND window, const FormDesk &desk) : desk_(desk), window_(GetDC(window)) {
        RECT client;
        GetClientRect(window, &client);
        width_ = client.right;
        height_ = client.bottom;
        memory_ = CreateCompatibleDC(window_);
        bitmap_ = CreateCompatibleBitmap(window_, width_, height_);
        old_ = SelectObject(memory_, bitmap_);
        SetMapMode(memory_, MM_ANISOTROPIC);
        SetWindowExtEx(memory_, UNITS_PER_INCH, UNITS_PER_INCH, nullptr);
        SetViewportExtEx(memory_, GetDeviceCaps(memory_, LOGPIXELSX),
                         GetDeviceCaps(memory_, LOGPIXELSY), nullptr);
        for (int row = 0; row < *desk.TotalItems; ++row) Note(desk.Items[row]);
    }
    Bare(const Bare &) = delete;
    Bare &operator=(const Bare &) = delete;
    ~Bare() {
        SelectObject(memory_, old_);
        DeleteObject(bitmap_);
        DeleteDC(memory_);
    }

    void Draw() {
        const RECT all{0, 0, 10 * width_, 10 * height_};
        FillRect(memory_, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        SetBkMode(memory_, TRANSPARENT);
        for (const RECT &line : lines_) {
            MoveToEx(memory_, line.left, line.top, nullptr);
            LineTo(memory_, line.right, line.bottom);
        }
        for (const Text &text : texts_) DrawOne(text);
        RECT part{0, 0, width_, height_};
        DPtoLP(memory_, reinterpret_cast<POINT *>(&part), 2);
        BitBlt(window_, 0, 0, part.right, part.bottom, memory_, 0, 0, SRCCOPY);
    }

private:
    void Note(const ItemRecord &item) {
        const RECT place{item.x, item.y, item.x + item.width, item.y + item.height};
        if (item.ItemType == ITEM_LINE)
            lines_.push_back(
                {place.left, item.y + item.height / 2, place.right, item.y + item.height / 2});
        if (item.ItemType == ITEM_LABEL || item.ItemType == ITEM_FIELD)
            texts_.push_back({place, item.x + 10, item.y + 4, desk_.Fonts[item.FontIndex].Font,
                              static_cast<UINT>(std::strlen(item.LabelText)), &item});
        if (item.ItemType != ITEM_BAR) return;
        lines_.push_back({place.left, place.top, place.right, place.top});
        lines_.push_back({place.right, place.top, place.right, place.bottom});
        lines_.push_back({place.right, place.bottom, place.left, place.bottom});
        lines_.push_back({place.left, place.bottom, place.left, place.top});
    }
    void DrawOne(const Text &text) {
        if (font_ != text.font) SelectObject(memory_, font_ = text.font);
        SetTextColor(memory_, text.item->TextColor);
        if (text.item->ItemType == ITEM_LABEL)
            DrawLabel(text);
        else
            ExtTextOutA(memory_, text.x, text.y, ETO_CLIPPED, &text.place, text.item->LabelText,
                        text.length, nullptr);
    }
    void DrawLabel(const Text &text) {
        constexpr UINT FORMAT = DT_NOPREFIX | DT_EXTERNALLEADING;
        const auto length = static_cast<int>(text.length);
        RECT place = text.place;
        DrawTextA(memory_, text.item->LabelText, length, &place, FORMAT | DT_CALCRECT);
        const HRGN clip = CreateRectRgn(0, 0, width_, height_);
        SelectClipRgn(memory_, clip);
        DeleteObject(clip);
        DrawTextA(memory_, text.item->LabelText, length, &place, FORMAT);
        SelectClipRgn(memory_, nullptr);
    }

    const FormDesk &desk_;
    HDC window_;
    HDC memory_;
    HBITMAP bitmap_;
    HGDIOBJ old_;
    HFONT font_ = nullptr;
    int width_ = 0;
    int height_ = 0;
    std::vector<RECT> lines_;
    std::vector<Text> texts_;
};

// The best of some rounds, since what else the machine does is no part of it.
template <typename Body> double SecondsOf(int times, Body body) {
    constexpr int ROUNDS = 20;
    body();
    double best = std::numeric_limits<double>::max();
    for (int round = 0; round < ROUNDS; ++round) {
        const Measure measure;
        for (int time = 0; time < times / ROUNDS; ++time) body();
        best = std::min(best, measure.Seconds() / (times / ROUNDS));
    }
    return best;
}

LPARAM At(int x, int y) { return MAKELPARAM(x, y); }

// The first label of the form, dragged to and fro.
double Drag(HWND window, const FormDesk &desk) {
    const ItemRecord *item = desk.Items;
    while (item->ItemType != ITEM_LABEL) ++item;
    const HDC device = GetDC(window); // the window's own, with its mapping
    POINT middle{item->x + item->width / 2, item->y + item->height / 2};
    LPtoDP(device, &middle, 1);
    SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, At(middle.x, middle.y));
    SendMessageA(window, WM_MOUSEMOVE, MK_LBUTTON, At(middle.x + 1, middle.y));
    int step = 0;
    const double seconds = SecondsOf(STEPS, [&] {
        const int way = ++step % 100;
        SendMessageA(window, WM_MOUSEMOVE, MK_LBUTTON, At(middle.x + way, middle.y + way));
    });
    SendMessageA(window, WM_MOUSEMOVE, 0, At(middle.x, middle.y)); // gives the drag up
    return seconds;
}

double Outlines(HWND window) {
    const HDC device = GetDC(window);
    const HPEN dots = CreatePen(PS_DOT, 1, 0);
    const HGDIOBJ old = SelectObject(device, dots);
    const int mode = SetROP2(device, R2_NOTXORPEN);
    const POINT corners[] = {{200, 200}, {420, 200}, {420, 236}, {200, 236}, {200, 200}};
    const double seconds = SecondsOf(STEPS, [&] {
        Polyline(device, corners, 5);
        Polyline(device, corners, 5);
    });
    SetROP2(device, mode);
    SelectObject(device, old);
    DeleteObject(dots);
    return seconds;
}

double Cursor() {
    const HCURSOR cross = LoadCursorA(nullptr, IDC_CROSS);
    return SecondsOf(STEPS, [&] { SetCursor(cross); });
}

} // namespace

int main(int count, char **arguments) {
    if (count != 2) return 2;
    uint32_t may_edit = 1;
    HostData host{};
    host.EditAllowed = &may_edit;
    SetCRepData(&host);
    FormParams params{};
    std::strncpy(params.FormFile, arguments[1], sizeof params.FormFile - 1);
    params.WindowStyle = WS_OVERLAPPEDWINDOW;
    params.WindowWidth = 1000;
    params.WindowHeight = 900;
    Check(form(&params));
    const HWND window = params.FormWindow;
    const Session *session = GetSessionPointer(window, 0);
    const FormDesk &desk = reinterpret_cast<const SessionHead *>(session)->Desk;
    for (int row = 0; row < *desk.TotalItems; ++row)
        if (desk.Items[row].ItemType == ITEM_FIELD)
            std::strcpy(desk.Items[row].LabelText, "$999,999.99");
    Bare bare(window, desk);
    const double drawing = SecondsOf(REPAINTS, [&] { bare.Draw(); });
    const double repaint = SecondsOf(
        REPAINTS, [&] { SendMessageA(window, WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 0), 0); });
    const double drag = Drag(window, desk);
    const double outlines = Outlines(window);
    const double cursor = Cursor();
    std::printf("%d %.3f %.3f %.2f %.2f %.2f\n", static_cast<int>(*desk.TotalItems), repaint * 1e3,
                drawing * 1e3, drag * 1e6, outlines * 1e6, cursor * 1e6);
    SendMessageA(window, WM_CLOSE, 0, 0);
    return 0;
}
