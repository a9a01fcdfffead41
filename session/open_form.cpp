#include "session/open_form.h"

#include <cstdio>

#include "device/margins.h"
#include "device/paper.h"
#include "device/printer.h"
#include "form/font_table.h"
#include "form/fonts.h"
#include "form/form_reader.h"
#include "form/host_field.h"
#include "form/pictures.h"
#include "frame/cursor.h"
#include "frame/fatal_error.h"
#include "frame/files.h"
#include "frame/host_data.h"
#include "frame/message_box.h"
#include "frame/text.h"
#include "session/new_form.h"
#include "session/session_life.h"

namespace tessarine {

namespace {

bool CreateWanted(const Session *session, const char *path) {
    char text[400];
    std::snprintf(text, sizeof text, "File %s does not exist. Create a new form?", path);
    return ShowSessionBox(session, text, "New Form", MB_YESNO) == IDYES;
}

void TellHostOfLabel(const Session *session) {
    if (!session->LabelMode) return;
    if (host_data.LabelTypePtr) *host_data.LabelTypePtr = session->form.Header.LabelType;
    if (host_data.LabelGeometryPtr)
        *host_data.LabelGeometryPtr = session->form.Header.LabelGeometry;
}

// Row 0 is always in use; a row that no item names is given up with all that was read into it.
void MakeFontRows(Session *session) {
    session->form.Fonts[0].InUse = 1;
    for (int row = 0; row < session->form.FontCount; ++row) {
        const FontEntry &font = session->form.Fonts[row];
        if (!font.InUse) {
            ReleaseFontRow(session, row);
        } else if (font.IsPicture) {
            RestoreBitmap(session, session->drawing.ScreenDC, row);
        } else if (!MakeFont(session, session->drawing.ScreenDC, row, true)) {
            FatalErrorWith(session, "Error Creating Font: %s", font.LogFont.lfFaceName,
                           CODE_DISPLAY);
        }
    }
}

// A data field is the host's: it is found anew by its name.
void OfferDataFields(Session *session) {
    const bool asked = IsWindow(session->Window);
    for (int row = 0; row < session->form.FieldCount; ++row) {
        FieldRecord *field = &session->form.Fields[row];
        if (field->FieldKind != FIELD_DATA) continue;
        field->HostTable = -1;
        field->HostField = -1;
        if (asked) AskHostForField(session, field);
    }
}

} // namespace

int OpenForm(Session *session, char *path) {
    TrimRight(UpperText(path));
    if (!*path) return InitNewForm(session);
    if (!FileStands(path)) {
        if (CreateWanted(session, path)) return InitNewForm(session);
        CloseSession(session);
        return 0;
    }
    const CursorKept cursor;
    switch (ReadFormFile(session, path)) {
    case FormRead::Done: break;
    case FormRead::Refused: return 0;
    case FormRead::Unopened: CloseSession(session); return 0;
    }
    BindFormPrinter(session);
    TellHostOfLabel(session);
    ProcessPrinterData(session);
    MakeFontRows(session);
    OfferDataFields(session);
    CountAllReferences(session);
    ValidateMargins(session, 1);
    return 1;
}

} // namespace tessarine
