#include "host/forms/form_names.h"

#include <cstring>

namespace {

constexpr int BAR_HEIGHT = 40; // form units

struct ItemName {
    int type;
    const char *name;
};

constexpr ItemName item_names[] = {
    {ITEM_GROUP, "group"}, {ITEM_LABEL, "label"},     {ITEM_FIELD, "field"},
    {ITEM_BAR, "bar"},     {ITEM_PICTURE, "picture"}, {ITEM_LINE, "line"},
};

} // namespace

std::string SectionName(int section) {
    if (section == SECTION_PAGE_HEADER) return "Page Header";
    if (section == SECTION_REPORT_HEADER) return "Report Header";
    if (section <= SECTION_SORT_HEADER_9) return "Sort Header " + std::to_string(section - 1);
    if (section <= SECTION_DETAIL_9) return "Detail Section " + std::to_string(section - 10);
    if (section <= SECTION_SORT_FOOTER_1) return "Sort Footer " + std::to_string(29 - section);
    return section == SECTION_REPORT_FOOTER ? "Report Footer" : "Page Footer";
}

int SectionNumber(const std::string &name) {
    if (name == "Label") return SECTION_DETAIL_1;
    for (int section = 0; section < MAX_SECTIONS; ++section)
        if (SectionName(section) == name) return section;
    return -1;
}

const char *ItemTypeName(int item_type) {
    for (const ItemName &row : item_names)
        if (row.type == item_type) return row.name;
    return "unknown";
}

int ItemTypeNumber(const std::string &name) {
    for (const ItemName &row : item_names)
        if (name == row.name) return row.type;
    return -1;
}

FormHeader DefaultHeader() {
    FormHeader header{};
    header.Signature = SIGNATURE_FORM;
    header.FormVersion = FORM_VERSION;
    header.LeftMargin = header.RightMargin = 0.25F;
    header.TopMargin = header.BottomMargin = 0.5F;
    header.RulerFlags = RULER_INCHES | RULER_SHOWN;
    header.BarHeight = BAR_HEIGHT;
    header.ReportFilter[0] = CELL_END;
    header.Reserved742 = 1;
    header.PrinterMode.Orientation = DMORIENT_PORTRAIT;
    header.PrinterMode.PaperSize = DMPAPER_LETTER;
    return header;
}

SectionRecord DefaultSection() {
    SectionRecord section{};
    section.Across = 1;
    section.SectionFilter[0] = CELL_END;
    section.PrintNow = 1;
    return section;
}

ItemRecord DefaultItem(int item_type) {
    ItemRecord item{};
    item.ItemType = static_cast<uint16_t>(item_type);
    item.ItemFlags = FLAG_LEFT | FLAG_MIDDLE;
    item.Background.Color = 0xFFFFFF;
    return item;
}

PortableFont DefaultFont() {
    PortableFont font{};
    font.Height = -35;
    font.OutPrecision = 7;
    std::strcpy(font.FaceName, "Arial");
    return font;
}
