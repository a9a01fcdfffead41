// Sections come, go and are edited.
#pragma once

#include "state/session.h"

namespace tessarine {

// byHost 0 asks the user; otherwise the row, and for a sort header the field's name. 0 when it was
// stopped, otherwise 1, also when the table is full or the form is a label.
int AddNewSection(Session *session, int byHost, int sectionRow, const char *fieldName);
// The section of the selected item; 1 when it was removed.
int DeleteSection(Session *session, int noConfirm);
void EditSection(Session *session); // its parameters, by the host's sheet
void EditSectionFilter(Session *session);
void EditReportFilter(Session *session);

} // namespace tessarine
