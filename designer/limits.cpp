#include "designer/limits.h"

#include <climits>

#include "designer/item_table.h"
#include "form/sections.h"
#include "frame/mapping.h"

namespace tessarine {

namespace {

int PrintableWidth(const Session *session) {
    const FormHeader &header = session->form.Header;
    const double margins = static_cast<double>(header.LeftMargin) + header.RightMargin;
    return session->printer.ReportWidth - InchesToUnits(margins);
}

int HeightOfSection(const Session *session, int section) {
    const int bar = BarOfSection(session, section);
    return bar == NO_ROW ? 0 : session->form.Items[bar].height;
}

} // namespace

RECT FormLimits(const Session *session) {
    const ItemRecord &bar = session->form.Items[0]; // row 0 is always one
    const bool label = session->LabelMode;
    const int left = bar.x + 1;
    const int width = label ? bar.width : PrintableWidth(session);
    const int height = label ? bar.height : session->form.ReportHeight;
    return {left, bar.y + session->form.Header.BarHeight, left + width - 1, bar.y + height};
}

int PageLimit(const Session *session) { return InchesToUnits(session->printer.UsableHeight); }

int MostBarHeight(const Session *session, int section) {
    int others = 0;
    if (section == SECTION_PAGE_HEADER)
        others = HeightOfSection(session, SECTION_DETAIL_1) +
                 HeightOfSection(session, SECTION_REPORT_HEADER);
    else if (section == SECTION_REPORT_HEADER)
        others = HeightOfSection(session, SECTION_PAGE_HEADER);
    else if (IsDetail(section))
        others = HeightOfSection(session, SECTION_PAGE_HEADER) +
                 HeightOfSection(session, SECTION_REPORT_HEADER);
    else
        return INT_MAX;
    return PageLimit(session) - others;
}

// The paper's width counts here in full, margins and all.
bool LiesOutside(const Session *session, const RECT &place) {
    const ItemRecord &bar = session->form.Items[0];
    const bool label = session->LabelMode;
    const int width = label ? bar.width : session->printer.ReportWidth;
    const int height = label ? bar.height : session->form.ReportHeight;
    return place.left < bar.x || place.right > bar.x + width ||
           place.top < bar.y + session->form.Header.BarHeight || place.bottom > bar.y + height;
}

} // namespace tessarine
