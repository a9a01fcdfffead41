#include "designer/keys.h"

#include <algorithm>

#include "commands.h"
#include "designer/delete_item.h"
#include "designer/host_words.h"

namespace tessarine {

namespace {

template <WPARAM Command> void SendCommand(Session *session) {
    SendMessageA(session->Window, WM_COMMAND, Command, 0);
}

// Behind a deleted item nothing is selected when its key comes up; behind a deleted section the
// second deletion acts on what is selected then.
constexpr KeyRow keys[] = {
    {VK_PRIOR, SendCommand<COMMAND_PAGE_UP>, nullptr},
    {VK_NEXT, SendCommand<COMMAND_PAGE_DOWN>, nullptr},
    {VK_UP, SendCommand<COMMAND_LINE_UP>, nullptr},
    {VK_DOWN, SendCommand<COMMAND_LINE_DOWN>, nullptr},
    {VK_LEFT, SendCommand<COMMAND_LEFT>, nullptr},
    {VK_RIGHT, SendCommand<COMMAND_RIGHT>, nullptr},
    {VK_DELETE, DeleteItem, DeleteItem},
};

void Act(Session *session, WPARAM key, void (*KeyRow::*act)(Session *)) {
    if (!MayEdit()) return;
    const auto *const row = std::ranges::find(keys, key, &KeyRow::key);
    if (row != std::end(keys) && row->*act) (row->*act)(session);
}

} // namespace

std::span<const KeyRow> DesignerKeys() { return keys; }

void KeyGoesDown(Session *session, WPARAM key) { Act(session, key, &KeyRow::down); }
void KeyComesUp(Session *session, WPARAM key) { Act(session, key, &KeyRow::up); }

} // namespace tessarine
