// The texts of a field row that end in their own room.
#pragma once

#include "tessarine_records.h"

namespace tessarine {

// Calls visit with each in turn, for as long as it gives true. Whether all did.
template <typename Field, typename Visit> bool EachTextOf(Field &field, Visit visit) {
    return visit(field.FieldName) && visit(field.DateDelimiter) && visit(field.ThousandsChar) &&
           visit(field.DecimalChar) && visit(field.PadChar) && visit(field.CurrencySymbol) &&
           visit(field.TrueText) && visit(field.FalseText) && visit(field.NegativePrefix) &&
           visit(field.NegativeSuffix) && visit(field.PositivePrefix) &&
           visit(field.PositiveSuffix) && visit(field.ZeroText) && visit(field.Caption);
}

} // namespace tessarine
