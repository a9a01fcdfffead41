#include "tests/support/three_sections.h"

#include <algorithm>

#include "form/defaults.h"

ThreeSections::ThreeSections() {
    session->form.Header.BarHeight = CAPTION;
    AddBar(SECTION_PAGE_HEADER, 0);
    AddItem(ITEM_GROUP, SECTION_PAGE_HEADER, 100, 300);
    AddBar(SECTION_DETAIL_1, 400);
    AddBar(SECTION_PAGE_FOOTER, 800);
    session->form.ReportHeight = 1200;
}

ItemRecord &ThreeSections::AddItem(int type, int section, int x, int y) {
    ItemRecord &item = session->form.Items[session->form.TotalItems++];
    item = tessarine::DefaultItem(session);
    item.ItemType = static_cast<uint16_t>(type);
    item.SectionIndex = static_cast<int16_t>(section);
    item.x = static_cast<int16_t>(x);
    item.y = static_cast<int16_t>(y);
    return item;
}

void ThreeSections::AddBar(int section, int y) {
    session->form.Sections[section].InUse = 1;
    session->form.Sections[section].BarItem = static_cast<int16_t>(session->form.TotalItems);
    ItemRecord &bar = AddItem(ITEM_BAR, section, BAR_X, y);
    bar.width = BAR_WIDTH;
    bar.height = 400;
}

void ThreeSections::FillTable(int rows) {
    while (session->form.TotalItems < rows) AddItem(ITEM_LABEL, SECTION_PAGE_FOOTER, 0, 900);
}

int ThreeSections::FieldsInUse() {
    const FieldRecord *fields = session->form.Fields;
    return static_cast<int>(
        std::count_if(fields, fields + session->form.FieldCount,
                      [](const FieldRecord &field) { return field.InUse != 0; }));
}
