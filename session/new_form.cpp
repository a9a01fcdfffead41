#include "session/new_form.h"

#include <algorithm>
#include <cstring>

#include "device/paper.h"
#include "form/defaults.h"
#include "form/form_check.h"
#include "form/form_writer.h"
#include "form/modified.h"
#include "form/sections.h"
#include "frame/host_data.h"
#include "frame/mapping.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int BAND_HEIGHT = 400;
constexpr int GROUP_WIDTH = 600;
constexpr uint32_t UNNAMED_LABEL = 1; // 0 marks a report form
constexpr int GROUP_HEIGHT = 100;

// As many bytes as the header's field holds: a text that fills it has no terminator there.
template <size_t Size> void TakeHostText(char (&field)[Size], const char *text) {
    if (text) std::memcpy(field, text, strnlen(text, Size));
}

void FillHeader(Session *session) {
    FormState &form = session->form;
    FormHeader &header = form.Header;
    header = FormHeader{};
    header.Signature = SIGNATURE_FORM;
    header.FormVersion = FORM_VERSION;
    CopyText(session->CurrentFile, header.ReportName, sizeof header.ReportName);
    header.ItemCount = static_cast<uint16_t>(form.TotalItems);
    header.FieldCount = static_cast<uint16_t>(form.FieldCount);
    header.BreakCount = static_cast<uint16_t>(form.BreakCount);
    header.FontCount = static_cast<uint16_t>(form.FontCount);
    header.RulerFlags = RULER_INCHES | RULER_SHOWN;
    header.BarHeight = static_cast<int16_t>(session->device.FontHeight);
    header.Reserved742 = 1;
    CopyText(session->FormBlock.CallerTag, header.CallerTag, sizeof header.CallerTag);
    header.ReportFilter[0] = CELL_END;
}

// Measures that no form unit holds.
void LeaveOutUnfit(LabelGeometry *label) {
    const auto settle = [](float measure) { return IsMeasure(measure) ? measure : 0.0F; };
    label->PageWidth = settle(label->PageWidth);
    label->PageHeight = settle(label->PageHeight);
    label->TopOffset = settle(label->TopOffset);
    label->LeftOffset = settle(label->LeftOffset);
    label->LabelHeight = settle(label->LabelHeight);
    label->LabelWidth = settle(label->LabelWidth);
    label->VerticalPitch = settle(label->VerticalPitch);
    label->HorizontalPitch = settle(label->HorizontalPitch);
}

void SetMargins(Session *session) {
    FormHeader &header = session->form.Header;
    if (session->LabelMode) {
        const bool typed = host_data.LabelTypePtr && *host_data.LabelTypePtr;
        header.LabelType = typed ? *host_data.LabelTypePtr : UNNAMED_LABEL;
        if (host_data.LabelGeometryPtr) header.LabelGeometry = *host_data.LabelGeometryPtr;
        LeaveOutUnfit(&header.LabelGeometry);
        return;
    }
    header.LeftMargin = header.RightMargin = 0.25F;
    header.TopMargin = header.BottomMargin = 0.5F;
}

bool TakeNewFormData(Session *session) {
    if (!*new_form_data.NewFormName) return false;
    FormHeader &header = session->form.Header;
    CopyText(new_form_data.NewFormName, header.ReportName, sizeof header.ReportName);
    CopyText(new_form_data.NewFormFile, session->CurrentFile, sizeof session->CurrentFile);
    const auto settle = [](float wanted, float usual) {
        return IsMeasure(wanted) ? wanted : usual;
    };
    header.TopMargin = settle(new_form_data.NewFormTop, header.TopMargin);
    header.LeftMargin = settle(new_form_data.NewFormLeft, header.LeftMargin);
    header.RightMargin = settle(new_form_data.NewFormRight, header.RightMargin);
    header.BottomMargin = settle(new_form_data.NewFormBottom, header.BottomMargin);
    return true;
}

void TakeHostValues(Session *session) {
    FormHeader &header = session->form.Header;
    if (host_data.EditAllowed) *host_data.EditAllowed = 1;
    TakeHostText(header.HostName1, host_data.NewHostName);
    TakeHostText(header.HostComment, host_data.NewHostComment);
    if (host_data.NewHostShort) header.HostShort = *host_data.NewHostShort;
}

ItemRecord *AddItem(Session *session, int type, const RECT &place, int section) {
    ItemRecord *item = &session->form.Items[session->form.TotalItems++];
    *item = DefaultItem(session);
    item->ItemType = static_cast<uint16_t>(type);
    item->x = static_cast<int16_t>(place.left);
    item->y = static_cast<int16_t>(place.top);
    item->width = static_cast<int16_t>(place.right - place.left);
    item->height = static_cast<int16_t>(place.bottom - place.top);
    item->SectionIndex = static_cast<int16_t>(section);
    return item;
}

void UseSection(Session *session, int section, int bar, int flags) {
    SectionRecord *record = &session->form.Sections[section];
    record->InUse = 1;
    record->BarItem = static_cast<int16_t>(bar);
    record->SectionFlags = static_cast<uint16_t>(flags);
}

RECT Place(int x, int y, int width, int height) { return RECT{x, y, x + width, y + height}; }

void MakeLabelItems(Session *session) {
    const FormHeader &header = session->form.Header;
    const int width = InchesToUnits(header.LabelGeometry.LabelWidth);
    const int height = header.BarHeight + InchesToUnits(header.LabelGeometry.LabelHeight);
    AddItem(session, ITEM_BAR, Place(BAR_LEFT_EDGE, 0, width, height), SECTION_DETAIL_1);
    AddItem(session, ITEM_GROUP, Place(BAR_LEFT_EDGE, 0, 0, 0), SECTION_DETAIL_1);
    UseSection(session, SECTION_DETAIL_1, 0, 0);
}

void MakeReportItems(Session *session) {
    const FormHeader &header = session->form.Header;
    const int x = std::max(InchesToUnits(header.LeftMargin), BAR_LEFT_EDGE);
    const int width = FullBarWidth(session);
    const int group_x = x + (width - GROUP_WIDTH) / 2;
    const int room = BAND_HEIGHT - header.BarHeight;
    const int group_y = header.BarHeight + (room - GROUP_HEIGHT) / 2;
    AddItem(session, ITEM_BAR, Place(x, 0, width, BAND_HEIGHT), SECTION_PAGE_HEADER);
    AddItem(session, ITEM_GROUP, Place(group_x, group_y, GROUP_WIDTH, GROUP_HEIGHT),
            SECTION_PAGE_HEADER);
    AddItem(session, ITEM_BAR, Place(x, BAND_HEIGHT, width, BAND_HEIGHT), SECTION_DETAIL_1);
    constexpr int COMPRESS = SECTION_COMPRESS_BEFORE | SECTION_COMPRESS_AFTER;
    UseSection(session, SECTION_PAGE_HEADER, 0, COMPRESS);
    UseSection(session, SECTION_DETAIL_1, 2, COMPRESS);
}

} // namespace

int InitNewForm(Session *session) {
    if (session->SessionKind == KIND_REPORT) return 1;
    InitSections(session); // those of a form that stood before lose their bars
    session->form.BreakCount = 0;
    FillHeader(session);
    SetMargins(session);
    const bool preset = TakeNewFormData(session);
    TakeHostValues(session);
    ProcessPrinterData(session);
    session->form.TotalItems = 0;
    if (session->LabelMode)
        MakeLabelItems(session);
    else
        MakeReportItems(session);
    session->form.SelectedItem = 0;
    const ItemRecord &last_bar = session->form.Items[session->LabelMode ? 0 : 2];
    session->form.ReportHeight = last_bar.y + last_bar.height;
    if (preset) {
        CopyText(session->CurrentFile, session->FormBlock.FormFile,
                 sizeof session->FormBlock.FormFile);
        FrSave(session, session->CurrentFile);
    }
    SetModified(session, 0);
    return 1;
}

} // namespace tessarine
