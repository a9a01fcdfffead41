#include "form/defaults.h"

#include <cstdio>
#include <cstring>

#include "form/built_in_tables.h"
#include "form/form_lock.h"
#include "form/modified.h"
#include "frame/host_data.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int FILLER_CHARACTER = 215;

void ClearCounters(Session *session) {
    FormState &form = session->form;
    form.TotalItems = form.FieldCount = form.BreakCount = form.FontCount = 0;
    form.UserFieldCount = 0;
    form.Header.ReportFilter[0] = CELL_END; // it named rows that are gone
    ReleaseLock(session);                   // a host may start over on an open form
    form.FontMarker = FONT_MARKER;
    session->form.SelectedItem = -1;
    session->view.OriginX = session->view.OriginY = 0;
    session->printer.ReportWidth = 0;
    form.ReportHeight = 0;
    SetModified(session, 0);
}

void SetColors(Session *session) {
    session->palette.ForeColor = 0x000000;
    session->palette.BackColor = 0xFFFFFF;
    session->palette.GreyColor = 0x7F7F7F;
    session->palette.GroupColor = 0x0000FF;
    session->palette.TealColor = 0x7F7F00;
}

} // namespace

void SetHelpFile(Session *session) {
    const char *name = host_data.HelpFileName ? host_data.HelpFileName : "REP.HLP";
    std::snprintf(session->dialog.HelpFile, sizeof session->dialog.HelpFile, "%.259s>SECOND", name);
}

void InitSections(Session *session) {
    for (SectionRecord &section : session->form.Sections) {
        section.InUse = 0;
        section.SectionFlags = 0;
        section.Across = 1;
        section.SectionFilter[0] = CELL_END;
        section.PrintNow = 1;
        section.FirstItem = 0;
        section.ItemTotal = 0;
        std::memset(section.Reserved220, 0, sizeof section.Reserved220);
    }
}

void InitVariables(Session *session) {
    ClearCounters(session);
    SetColors(session);
    SetHelpFile(session);
    session->printer.PaperWidth = 8.5F;
    session->printer.PaperHeight = 11.0F;
    BuildSectionNames(session);
    InitSections(session);
    BuildSystemFields(session);
    BuildSummaryNames(session);
    BuildDateFormatNames(session);
    BuildOperatorTable(session);
    for (UserFieldRecord &user : session->form.UserFields) {
        user.InUse = 0;
        std::memset(user.Reserved434, 0, sizeof user.Reserved434);
    }
    session->Desk.AccelTable = nullptr; // the host's, which gives them anew
    session->Desk.EditWindow = nullptr;
    session->Desk.EditWndProc = nullptr;
    std::memset(session->form.FillerText, FILLER_CHARACTER, sizeof session->form.FillerText - 1);
}

ItemRecord DefaultItem(const Session *session) {
    ItemRecord item{};
    item.ItemType = ITEM_LABEL;
    item.ItemFlags = FLAG_LEFT | FLAG_MIDDLE;
    item.OutlineColor = session->palette.ForeColor;
    item.LineColor = session->palette.ForeColor;
    item.Background.Color = session->palette.BackColor;
    return item;
}

void InitField(const Session *, FieldRecord *record) {
    *record = FieldRecord{};
    record->HostTable = -1;
    record->HostField = -1;
    record->ValueType = TYPE_TEXT;
    record->FieldWidth = 15;
    record->Modifiable = 1;
    record->InUse = 1;
    record->TableIndex = -1;
    record->DateDelimiter[0] = '/';
    record->ThousandsChar[0] = ',';
    record->DecimalChar[0] = '.';
    record->TrueText[0] = 'Y';
    record->FalseText[0] = 'N';
    record->NegativePrefix[0] = '-';
    record->ZeroText[0] = '0';
    record->FieldTokens[0] = CELL_END;
    record->LineBreakChar[0] = '\r';
}

} // namespace tessarine
