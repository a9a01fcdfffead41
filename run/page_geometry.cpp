#include "run/page_geometry.h"

#include "device/printer.h"
#include "frame/host_data.h"
#include "frame/mapping.h"

namespace tessarine {

namespace {

constexpr int KEEP_CENTRED = 1; // feed mode

// Only a result of exactly -1 is taken for rounding; one further below zero stands.
int WithoutOffset(int origin, int offset) {
    const int result = origin - offset;
    return result == -1 ? 0 : result;
}

void TakeMargins(Session *session) {
    const FormHeader &header = session->form.Header;
    RunState &run = session->run;
    if (session->LabelMode) {
        const float left = header.LeftMargin + header.LabelGeometry.LeftOffset;
        const float top = header.TopMargin + header.LabelGeometry.TopOffset;
        run.LeftOrigin = InchesToUnits(left) + run.FeedOffset;
        run.TopOrigin = InchesToUnits(top);
        run.RightOrigin = 0;
        run.BottomOrigin = 0;
        return;
    }
    run.LeftOrigin = InchesToUnits(header.LeftMargin);
    run.RightOrigin = InchesToUnits(header.RightMargin);
    run.TopOrigin = InchesToUnits(header.TopMargin);
    run.BottomOrigin = InchesToUnits(header.BottomMargin);
}

} // namespace

void SettleFeedOffset(Session *session) {
    const float feed = host_data.FeedWidthPtr ? *host_data.FeedWidthPtr : 0.0F;
    const int page_width = InchesToUnits(session->form.Header.LabelGeometry.PageWidth);
    const int64_t room = int64_t{InchesToUnits(feed)} - page_width; // a host's width may be any
    session->run.FeedOffset = static_cast<int32_t>(room / 2);
}

void SettlePageGeometry(Session *session, int feedMode) {
    RunState &run = session->run;
    const PrinterState &printer = session->printer;
    TakeMargins(session);
    session->report.PageWidthUnits = InchesToUnits(printer.UsableWidth);
    ReadPrintOffset(printer.InfoDevice, &session->printer.PrintOffsetX,
                    &session->printer.PrintOffsetY);
    run.LeftOrigin = WithoutOffset(run.LeftOrigin, printer.PrintOffsetX);
    if (session->LabelMode && feedMode != KEEP_CENTRED) run.LeftOrigin -= run.FeedOffset;
    run.TopOrigin = WithoutOffset(run.TopOrigin, printer.PrintOffsetY);
    session->report.PageBottomUnits = InchesToUnits(printer.UsableHeight) + run.TopOrigin;
    const SectionRecord &footer = session->form.Sections[SECTION_PAGE_FOOTER];
    run.BodyBottom = session->report.PageBottomUnits - (footer.InUse ? footer.SectionHeight : 0);
}

} // namespace tessarine
