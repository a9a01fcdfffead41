// The names of a session's page files and the claim on them.
#pragma once

#include "state/session.h"

namespace tessarine {

void MakePageFileNames(Session *session); // ReportPath and the three scratch paths
// Deletes the scratch files of a session that has made its names, a preview's report file and a
// report that has not become whole, and gives the claim back.
void DeletePageFiles(Session *session);

} // namespace tessarine
