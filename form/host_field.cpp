#include "form/host_field.h"

#include <cstring>

#include "form/field_texts.h"
#include "frame/float_state.h"
#include "frame/host_data.h"
#include "frame/text.h"

namespace tessarine {

namespace {

// The routine may leave the floating point units as it likes.
bool Call(PickFieldRoutine routine, HWND owner, FieldRecord *record, int level) {
    const OwnFloatState own;
    return routine(owner, record, level, host_data.HostContext) != 0;
}

void KeepOurOwn(const FieldRecord &before, FieldRecord *record) {
    EachTextOf(*record, [](auto &text) {
        EndText(text);
        return true;
    });
    record->FieldKind = before.FieldKind;
    record->InUse = before.InUse;
    record->TableIndex = before.TableIndex;
    std::memcpy(record->FieldTokens, before.FieldTokens, sizeof before.FieldTokens);
}

bool Ask(PickFieldRoutine routine, HWND owner, FieldRecord *record, int level) {
    if (!routine) return false;
    const FieldRecord before = *record;
    const bool accepted = Call(routine, owner, record, level);
    KeepOurOwn(before, record);
    if (record->FieldWidth >= 0) return accepted;
    record->FieldWidth = before.FieldWidth;
    return false;
}

} // namespace

bool PickHostField(const Session *session, HWND owner, FieldRecord *record, int level) {
    FieldRecord picked = *record;
    if (!Ask(session->FormBlock.PickFieldProc, owner, &picked, level)) return false;
    *record = picked;
    return true;
}

bool CheckHostField(const Session *session, HWND owner, FieldRecord *record, int level) {
    return Ask(session->FormBlock.CheckFieldProc, owner, record, level);
}

bool AskHostForField(const Session *session, FieldRecord *record) {
    return CheckHostField(session, session->Window, record, 0);
}

} // namespace tessarine
