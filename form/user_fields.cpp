#include "form/user_fields.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "form/field_table.h"
#include "form/modified.h"
#include "frame/message_box.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int TEXT_WIDTH = 20;

struct WidthRow {
    int value_type;
    int width; // characters
};

constexpr WidthRow widths[] = {
    {TYPE_NUMERIC, 12}, {TYPE_DOUBLE, 12}, {TYPE_DATE, 8}, {TYPE_LOGICAL, 3}, {TYPE_PICTURE, 10},
};

int CountInUse(const Session *session) {
    return static_cast<int>(
        std::count_if(std::begin(session->form.UserFields), std::end(session->form.UserFields),
                      [](const UserFieldRecord &user) { return user.InUse != 0; }));
}

void Tell(const Session *session, const char *text) { ShowSessionBox(session, text); }

void TellUse(const Session *session, const char *format, const char *name) {
    char text[200];
    // cppcheck-suppress wrongPrintfScanfArgNum ; some formats take no name
    std::snprintf(text, sizeof text, format, name);
    Tell(session, text);
}

bool IsNameCharacter(char c) { return c == '_' || IsLetter(c) || IsDigit(c); }

bool IsTaken(const Session *session, int row, const char *name) {
    for (int other = 0; other < MAX_USER_FIELDS; ++other) {
        const UserFieldRecord &user = session->form.UserFields[other];
        if (other != row && user.InUse && !lstrcmpiA(user.UserName, name)) return true;
    }
    return false;
}

// Each of the checks tells where the user field is in use.

bool InReportFilter(Session *session, int row) {
    if (!UsesUserField(session, session->form.Header.ReportFilter, row)) return false;
    Tell(session, "Field in Use by Report Selection Expression!");
    return true;
}

bool InSectionFilter(Session *session, int row) {
    for (int section = 0; section < MAX_SECTIONS; ++section) {
        const SectionRecord &record = session->form.Sections[section];
        if (!record.InUse || !UsesUserField(session, record.SectionFilter, row)) continue;
        TellUse(session, "Field in Use by Criteria for Section: %s !",
                session->form.SectionNames[section]);
        return true;
    }
    return false;
}

bool InUserField(Session *session, int row) {
    for (int other = 0; other < MAX_USER_FIELDS; ++other) {
        const UserFieldRecord &user = session->form.UserFields[other];
        if (other == row || !user.InUse || !UsesUserField(session, user.UserTokens, row)) continue;
        TellUse(session, "Field in Use by User Field: %s !", user.UserName);
        return true;
    }
    return false;
}

bool OnLayout(const Session *session, int field) {
    const ItemRecord *items = session->form.Items;
    return std::any_of(items, items + session->form.TotalItems, [field](const ItemRecord &item) {
        return item.ItemType == ITEM_FIELD && item.FieldIndex == field;
    });
}

// Rows of the user field that nothing shows are released on the way, also when a later row then
// stops the deletion.
bool InFieldTable(Session *session, int row) {
    for (int field = 0; field < session->form.FieldCount; ++field) {
        const FieldRecord &record = session->form.Fields[field];
        if (!record.InUse) continue;
        if (record.FieldKind == FIELD_USER && record.TableIndex == row) {
            if (OnLayout(session, field)) {
                Tell(session, "This User Field is Being Used in the Layout, Can Not Delete");
                return true;
            }
            ReleaseField(session, field);
        } else if (record.FieldKind == FIELD_CALC &&
                   UsesUserField(session, record.FieldTokens, row)) {
            TellUse(session, "Field in Use by %s !", record.FieldName);
            return true;
        }
    }
    return false;
}

} // namespace

bool HasUserFields(const Session *session) {
    if (CountInUse(session) > 0) return true;
    Tell(session, "User Field Table Empty!");
    return false;
}

int NewUserField(Session *session) {
    UserFieldRecord *rows = session->form.UserFields;
    for (int row = 0; row < MAX_USER_FIELDS; ++row) {
        if (rows[row].InUse) continue;
        rows[row] = {};
        rows[row].ValueType = TYPE_TEXT;
        rows[row].PromptOrder = static_cast<uint16_t>(row);
        rows[row].UserWidth = TEXT_WIDTH;
        rows[row].UserTokens[0] = CELL_END;
        return row;
    }
    Tell(session, "User Field Table Full!");
    return -1;
}

bool NameUserField(Session *session, HWND owner, int row, const char *typed) {
    char name[MAX_USER_NAME + 1];
    CopyText(typed, name, sizeof name);
    UpperText(RepStrTrim(name));
    if (!name[0]) return false;
    if (!std::all_of(name, name + std::strlen(name), IsNameCharacter)) {
        ShowBox(owner,
                "Invalid character in the field name. Only letters, numbers, and underscores are "
                "allowed.",
                "Naming Error");
        return false;
    }
    if (IsTaken(session, row, name)) {
        ShowBox(owner, "Duplicate name not allowed.");
        return false;
    }
    UserFieldRecord *user = &session->form.UserFields[row];
    CopyText(name, user->UserName, sizeof user->UserName);
    return true;
}

void SettleUserField(Session *session, int row) {
    UserFieldRecord *user = &session->form.UserFields[row];
    user->InUse = 1;
    CopyText(user->UserName, user->UserPrompt, sizeof user->UserPrompt);
    user->UserWidth = TEXT_WIDTH;
    for (const WidthRow &width : widths)
        if (width.value_type == user->ValueType)
            user->UserWidth = static_cast<int16_t>(width.width);
    session->form.UserFieldCount = CountInUse(session);
}

bool UsesUserField(const Session *session, const Cell *cells, int row) {
    for (int place = 0; place < MAX_CELLS && cells[place] != CELL_END; ++place) {
        if (cells[place] >= session->form.FieldCount) continue;
        const FieldRecord &field = session->form.Fields[cells[place]];
        if (field.InUse && field.FieldKind == FIELD_USER && field.TableIndex == row) return true;
    }
    return false;
}

int DeleteUserField(Session *session, int row) {
    for (const auto in_use : {InReportFilter, InSectionFilter, InUserField, InFieldTable})
        if (in_use(session, row)) return 0;
    UserFieldRecord *user = &session->form.UserFields[row];
    ReleaseSymbols(session, user->UserTokens);
    user->InUse = 0;
    session->form.UserFieldCount = CountInUse(session);
    SetModified(session, 1);
    return 1;
}

} // namespace tessarine
