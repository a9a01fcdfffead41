#include "frame/host_data.h"

#include <cstring>

#include "frame/text.h"

namespace tessarine {

HostData host_data{};
NewFormData new_form_data{};

namespace {

constexpr int BLOCKS = 10; // also the answer for a block that has no slot
constexpr int NONE = -1;

HostData *blocks[BLOCKS];
int current_slot = NONE;
int previous_slot = NONE;

int SlotOf(const HostData *block) {
    for (int slot = 0; slot < BLOCKS; ++slot)
        if (blocks[slot] == block) return slot;
    return NONE;
}

bool Pinned() { return current_slot != NONE && host_data.PinnedPtr && *host_data.PinnedPtr; }

void MakeCurrent(int slot) {
    if (slot == current_slot) return;
    previous_slot = current_slot;
    current_slot = slot;
}

} // namespace

int SetCRepData(HostData *block) {
    if (Pinned()) return current_slot;
    if (!block) return BLOCKS;
    int slot = SlotOf(block);
    if (slot == NONE) {
        slot = SlotOf(nullptr);
        if (slot != NONE) blocks[slot] = block;
    }
    if (slot != NONE) MakeCurrent(slot);
    host_data = *block;
    return slot == NONE ? BLOCKS : slot;
}

int RemoveCRepData(HostData *block) {
    const int slot = block ? SlotOf(block) : NONE;
    if (slot == NONE) return BLOCKS;
    if (slot == current_slot) {
        current_slot = previous_slot;
        previous_slot = NONE;
    } else if (slot == previous_slot) {
        previous_slot = NONE;
    }
    if (current_slot == NONE)
        host_data = HostData{};
    else
        host_data = *blocks[current_slot];
    blocks[slot] = nullptr;
    return slot;
}

int SetNewFormData(const NewFormData *block) {
    if (block) {
        new_form_data = *block;
        EndText(new_form_data.NewFormName);
        EndText(new_form_data.NewFormFile);
    } else {
        new_form_data.NewFormName[0] = 0;
        new_form_data.NewFormFile[0] = 0;
    }
    return 1;
}

bool LabelModeWanted() { return host_data.LabelForm && *host_data.LabelForm; }

} // namespace tessarine
