// The properties of the selected item, which are the host's to edit, and the item's menu.
#pragma once

#include "state/session.h"

namespace tessarine {

// The host's answer, 0 without its routine; pages tells it what is edited.
int AskHostForProperties(Session *session, uint32_t pages);
void ItemProperties(Session *session); // while idle, by the kind of what is selected
void EditLabelItem(Session *session);  // the selected label
void EditLineItem(Session *session);   // the selected line
// Of the selected item, at a place of the client area. Its commands go to the host.
void ShowItemMenu(Session *session, POINT pixel);

} // namespace tessarine
