// The geometry of a run's page, in form units from the top left of the printable area.
#pragma once

#include "state/session.h"

namespace tessarine {

void SettleFeedOffset(Session *session);
// Origins, width, body and bottom of the page. feedMode 1 keeps the centring of a label sheet.
void SettlePageGeometry(Session *session, int feedMode);

} // namespace tessarine
