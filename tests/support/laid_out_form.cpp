#include "tests/support/laid_out_form.h"

#include "designer/item_table.h"
#include "designer/place_rect.h"
#include "form/defaults.h"
#include "frame/text.h"
#include "tests/support/item_order.h"

using namespace tessarine;

LaidOutForm::LaidOutForm() {
    session->form.Header.BarHeight = 40;
    session->drawing.LogPixelsX = session->drawing.LogPixelsY = 96;
    DesignerOf(session).SnapToGrid = 0;
}

LaidOutForm::~LaidOutForm() { session->DropDesigner(session); }

void LaidOutForm::TearDown() {
    if (session->form.TotalItems) {
        EXPECT_EQ(WhatIsWrong(session), "") << Names();
    }
}

void LaidOutForm::Section(int section, int y, int height) {
    session->form.Sections[section].InUse = 1;
    session->form.Sections[section].BarItem = static_cast<int16_t>(session->form.TotalItems);
    session->form.ReportHeight += height;
    Add("bar" + std::to_string(section), ITEM_BAR, section, 62, y, 1876, height);
}

ItemRecord &LaidOutForm::Add(const std::string &name, int type, int section, int x, int y,
                             int width, int height) {
    ItemRecord &item = session->form.Items[session->form.TotalItems++];
    item = DefaultItem(session);
    item.ItemType = static_cast<uint16_t>(type);
    item.SectionIndex = static_cast<int16_t>(section);
    SetPlace(&item, {x, y, x + width, y + height});
    CopyText(name.c_str(), item.LabelText, sizeof item.LabelText);
    return item;
}

ItemRecord &LaidOutForm::AddFieldItem(const std::string &name, int section, int x, int y,
                                      int value_type, int kind) {
    ItemRecord &item = Add(name, ITEM_FIELD, section, x, y, 100, 50);
    item.FieldIndex = static_cast<int16_t>(session.AddField(kind, name, value_type));
    return item;
}

void LaidOutForm::MakeForm() {
    Section(SECTION_PAGE_HEADER, 0, 400);
    Add("group", ITEM_GROUP, SECTION_PAGE_HEADER, 63, 41, 0, 0);
    Add("a", ITEM_LABEL, SECTION_PAGE_HEADER, 100, 100, 200, 50);
    Add("b", ITEM_LABEL, SECTION_PAGE_HEADER, 400, 110, 100, 60);
    Add("c", ITEM_LINE, SECTION_PAGE_HEADER, 700, 200, 80, 40);
    Section(SECTION_DETAIL_1, 400, 400);
    Add("d", ITEM_LABEL, SECTION_DETAIL_1, 100, 500, 200, 50);
    Section(SECTION_PAGE_FOOTER, 800, 400);
    Add("e", ITEM_LABEL, SECTION_PAGE_FOOTER, 100, 900, 200, 50);
}

int LaidOutForm::Row(const std::string &name) const {
    for (int row = 0; row < session->form.TotalItems; ++row)
        if (name == session->form.Items[row].LabelText) return row;
    return NO_ROW;
}

ItemRecord &LaidOutForm::Item(const std::string &name) const {
    return session->form.Items[Row(name)];
}

FieldRecord &LaidOutForm::FieldOf(const std::string &name) const {
    return session->form.Fields[Item(name).FieldIndex];
}

std::string LaidOutForm::Names() const {
    std::string names;
    for (int row = 0; row < session->form.TotalItems; ++row)
        names += (row ? " " : "") + std::string(session->form.Items[row].LabelText);
    return names;
}

std::string LaidOutForm::PlaceOf(const std::string &name) const {
    const ItemRecord &item = Item(name);
    return std::to_string(item.x) + "," + std::to_string(item.y) + "," +
           std::to_string(item.width) + "," + std::to_string(item.height);
}

void LaidOutForm::SelectGroup(int x, int y, int width, int height) {
    ItemRecord group = Item("group");
    Focus() = {x, y, x + width, y + height};
    SetPlace(&group, Focus());
    group.SectionIndex = session->form.Items[SectionAt(session, y)].SectionIndex;
    session->form.SelectedItem = ReplaceRow(session, Row("group"), group);
}

void LaidOutForm::Snap(int grid_size, int ruler_flags) {
    DesignerOf(session).SnapToGrid = 1;
    DesignerOf(session).GridSize = grid_size;
    session->form.Header.RulerFlags = static_cast<uint16_t>(ruler_flags);
}
