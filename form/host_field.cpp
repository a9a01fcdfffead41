#include "form/host_field.h"

#include <cstring>

#include "form/field_texts.h"
#include "frame/float_state.h"
#include "frame/host_data.h"
#include "frame/text.h"

namespace tessarine {

bool AskHostForField(const Session *session, FieldRecord *record) {
    const CheckFieldRoutine check = session->FormBlock.CheckFieldProc;
    if (!check) return false;
    const FieldRecord before = *record;
    bool known = false;
    {
        const OwnFloatState own; // the routine may leave the floating point units as it likes
        known = check(session->Window, record, 0, host_data.HostContext);
    }
    EachTextOf(*record, [](auto &text) {
        EndText(text);
        return true;
    });
    record->FieldKind = before.FieldKind;
    record->InUse = before.InUse;
    record->TableIndex = before.TableIndex;
    std::memcpy(record->FieldTokens, before.FieldTokens, sizeof before.FieldTokens);
    if (record->FieldWidth >= 0) return known;
    record->FieldWidth = before.FieldWidth;
    return false;
}

} // namespace tessarine
