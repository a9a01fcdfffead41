#include "designer/section_bar.h"

#include <algorithm>
#include <cstring>

#include "designer/item_table.h"
#include "designer/panel.h"
#include "designer/rulers.h"
#include "designer/section_fields.h"
#include "form/sections.h"
#include "paint/strokes.h"

namespace tessarine {

namespace {

template <size_t Size> std::string TextOf(const char (&field)[Size]) {
    return {field, strnlen(field, Size)};
}

void PaintCaption(const Session *session, HDC device, const ItemRecord &bar) {
    RECT panel{bar.x, bar.y + 1, bar.x + bar.width + 2, bar.y + session->form.Header.BarHeight + 1};
    RaisedPanel(device, panel, session->device.SolidPen);
    const std::string caption = CaptionOf(session, bar.SectionIndex);
    SetTextColor(device, session->palette.ForeColor);
    SetBkColor(device, session->palette.BackColor);
    SetBkMode(device, OPAQUE);
    DrawTextA(device, caption.c_str(), static_cast<int>(caption.size()), &panel,
              DT_CENTER | DT_VCENTER);
}

} // namespace

std::string CaptionOf(const Session *session, int section) {
    const FormState &form = session->form;
    if (section < 0 || section >= MAX_SECTIONS) return "";
    const std::string name = TextOf(form.SectionNames[section]);
    if (!IsSortHeader(section) && !IsSortFooter(section)) return name;
    const int row = FindBreak(session, section);
    if (row < 0 || row >= form.BreakCount) return name;
    const int field = form.Breaks[row].SortField;
    if (field < 0 || field >= form.FieldCount) return name;
    return name + " (" + TextOf(form.Fields[field].Caption) + ")";
}

void PaintSectionBar(Session *session, HDC device, const ItemRecord &bar) {
    const ViewState &view = session->view;
    if (!bar.OutlineSides) {
        SelectObject(device, session->device.SolidPen);
        DrawFrame(device, RectOf(bar));
    }
    const int right = bar.x + bar.width;
    const int view_right = view.OriginX + view.ViewWidth;
    if (std::min(right, view_right) <= std::max<int>(bar.x, view.OriginX)) return;
    const RulerFont font(device);
    PaintCaption(session, device, bar);
    if (bar.x > view.OriginX) PaintSideRuler(session, device, bar, BarSide::LEFT);
    if (right < view_right) PaintSideRuler(session, device, bar, BarSide::RIGHT);
}

} // namespace tessarine
