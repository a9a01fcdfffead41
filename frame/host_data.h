// The host's blocks: HostData, of which up to 10 are remembered, and NewFormData.
#pragma once

#include "state/session.h"

namespace tessarine {

extern HostData host_data;        // the working copy that all code reads; all null at load
extern NewFormData new_form_data; // off while NewFormName is empty

int SetCRepData(HostData *block);
int RemoveCRepData(HostData *block);
int SetNewFormData(const NewFormData *block);

// The word behind LabelForm, 0 for a null slot: the whole library is in label mode.
bool LabelModeWanted();

} // namespace tessarine
