#include "designer/handles.h"

#include <algorithm>
#include <iterator>

#include "designer/designer_state.h"

namespace tessarine {

namespace {

constexpr int HANDLE_SIZE = 16; // form units

struct HandleRow {
    HandleSides sides;
    HCURSOR DeviceState::*cursor;
};
constexpr HandleRow handle_rows[HANDLES] = {
    {{0, -1}, &DeviceState::SizeNSCursor},    {{0, 1}, &DeviceState::SizeNSCursor},
    {{1, 0}, &DeviceState::SizeWECursor},     {{-1, 0}, &DeviceState::SizeWECursor},
    {{-1, -1}, &DeviceState::SizeNWSECursor}, {{1, -1}, &DeviceState::SizeNESWCursor},
    {{-1, 1}, &DeviceState::SizeNESWCursor},  {{1, 1}, &DeviceState::SizeNWSECursor}};

// On the side where the handle lies, or in the middle of the extent.
int StartOf(int place, int extent, int side) {
    if (side == 0) return place + (extent - HANDLE_SIZE) / 2;
    return place - HANDLE_SIZE / 2 + (side > 0 ? extent : 0);
}

void SwitchOff(RECT *handle) { handle->right = handle->left; }

// A bar is sized at its caption's lower edge and at its own.
void PlaceBarHandles(int bar_height, bool label_form, RECT *handles) {
    OffsetRect(&handles[HANDLE_TOP], 0, bar_height);
    for (int handle = label_form ? HANDLE_TOP : HANDLE_RIGHT; handle < HANDLES; ++handle)
        SwitchOff(&handles[handle]);
}

} // namespace

HandleSides SidesOf(int handle) { return handle_rows[handle].sides; }

int HandleOf(HandleSides sides) {
    const auto row = std::ranges::find(handle_rows, sides, &HandleRow::sides);
    if (row == std::end(handle_rows)) return NO_HANDLE;
    return static_cast<int>(row - std::begin(handle_rows));
}

void PlaceHandles(const ItemRecord &item, int bar_height, bool label_form, RECT *handles) {
    for (int handle = 0; handle < HANDLES; ++handle) {
        const auto [across, down] = handle_rows[handle].sides;
        const int left = StartOf(item.x, item.width, across);
        const int top = StartOf(item.y, item.height, down);
        handles[handle] = {left, top, left + HANDLE_SIZE, top + HANDLE_SIZE};
    }
    if (item.ItemType == ITEM_BAR) PlaceBarHandles(bar_height, label_form, handles);
}

bool HandleShown(const RECT &handle) { return handle.left != handle.right; }

int HandleAt(const RECT *handles, int x, int y) {
    for (int handle = 0; handle < HANDLES; ++handle)
        if (HandleShown(handles[handle]) && PtInRect(&handles[handle], {x, y})) return handle;
    return NO_HANDLE;
}

HCURSOR HandleCursor(const Session *session, int handle) {
    return session->device.*handle_rows[handle].cursor;
}

} // namespace tessarine
