// What a host's words say of the open form.
#pragma once

namespace tessarine {

// The word behind EditAllowed; false for a null slot.
bool MayEdit();

} // namespace tessarine
