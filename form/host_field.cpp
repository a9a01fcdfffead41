#include "form/host_field.h"

#include <cstring>

#include "frame/float_state.h"
#include "frame/host_data.h"

namespace tessarine {

namespace {

template <size_t Size> void End(char (&text)[Size]) { text[Size - 1] = 0; }

void EndTexts(FieldRecord *record) {
    End(record->FieldName);
    End(record->DateDelimiter);
    End(record->ThousandsChar);
    End(record->DecimalChar);
    End(record->PadChar);
    End(record->CurrencySymbol);
    End(record->TrueText);
    End(record->FalseText);
    End(record->NegativePrefix);
    End(record->NegativeSuffix);
    End(record->PositivePrefix);
    End(record->PositiveSuffix);
    End(record->ZeroText);
    End(record->Caption);
}

} // namespace

bool AskHostForField(const Session *session, FieldRecord *record) {
    const CheckFieldRoutine check = session->FormBlock.CheckFieldProc;
    if (!check) return false;
    const FieldRecord before = *record;
    bool known = false;
    {
        const OwnFloatState own; // the routine may leave the floating point units as it likes
        known = check(session->Window, record, 0, host_data.HostContext);
    }
    EndTexts(record);
    record->FieldKind = before.FieldKind;
    record->InUse = before.InUse;
    record->TableIndex = before.TableIndex;
    std::memcpy(record->FieldTokens, before.FieldTokens, sizeof before.FieldTokens);
    if (record->FieldWidth >= 0) return known;
    record->FieldWidth = before.FieldWidth;
    return false;
}

} // namespace tessarine
