#include "designer/host_words.h"

#include "frame/host_data.h"

namespace tessarine {

bool MayEdit() { return host_data.EditAllowed && *host_data.EditAllowed; }

} // namespace tessarine
