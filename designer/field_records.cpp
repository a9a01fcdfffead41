#include "designer/field_records.h"

#include <algorithm>
#include <cstdio>

#include "form/defaults.h"
#include "form/field_table.h"
#include "frame/message_box.h"

namespace tessarine {

namespace {

constexpr int DESCRIPTION_LENGTH = 43;

void Name(FieldRecord *field, const char *prefix, const char *name) {
    std::snprintf(field->FieldName, sizeof field->FieldName, "%s%.94s", prefix, name);
}

} // namespace

int TakeFieldRow(Session *session) {
    const int row = NewFieldSlot(session);
    if (row == NO_SLOT)
        ShowSessionBox(session, "Ran out of TempFld table!");
    else
        session->form.Fields[row] = DefaultField(session);
    return row;
}

FieldRecord DefaultField(const Session *session) {
    FieldRecord field;
    InitField(session, &field);
    return field;
}

FieldRecord CalculationField(const Session *session, const char *description) {
    FieldRecord field = DefaultField(session);
    field.FieldKind = FIELD_CALC;
    std::snprintf(field.FieldName, sizeof field.FieldName, "CALC->%.*s", DESCRIPTION_LENGTH,
                  description);
    return field;
}

FieldRecord SystemField(const Session *session, int index) {
    const SystemFieldRow &row = session->form.SystemFields[index];
    FieldRecord field = DefaultField(session);
    field.FieldKind = FIELD_SYSTEM;
    Name(&field, "SYS->", row.Name);
    field.ValueType = static_cast<int16_t>(row.ValueType);
    field.FieldWidth = static_cast<int16_t>(row.Width);
    field.TableIndex = static_cast<int16_t>(index);
    return field;
}

FieldRecord UserField(const Session *session, int row) {
    const UserFieldRecord &user = session->form.UserFields[row];
    FieldRecord field = DefaultField(session);
    field.FieldKind = FIELD_USER;
    Name(&field, "DLG->", user.UserName);
    field.ValueType = user.ValueType;
    field.FieldWidth = std::max<int16_t>(user.UserWidth, 0);
    field.TableIndex = static_cast<int16_t>(row);
    return field;
}

} // namespace tessarine
