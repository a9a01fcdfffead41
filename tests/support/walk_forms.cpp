#include "tests/support/walk_forms.h"

#include "tessarine_numbers.h"

FormBuilder SortedForm() {
    FormBuilder form;
    form.header.RulerFlags = RULER_INCHES | RULER_SHOWN;
    const int amount = form.Field(FIELD_DATA, "AMOUNT", TYPE_NUMERIC, 9);
    const int region = form.Field(FIELD_DATA, "REGION", TYPE_TEXT, 12);
    const int region_break = form.Field(FIELD_DATA, "REGION", TYPE_TEXT, 12);
    const int city = form.Field(FIELD_DATA, "CITY", TYPE_TEXT, 12);
    const int city_break = form.Field(FIELD_DATA, "CITY", TYPE_TEXT, 12);
    const int shown_region = form.Field(FIELD_DATA, "REGION", TYPE_TEXT, 12);
    const int shown_city = form.Field(FIELD_DATA, "CITY", TYPE_TEXT, 12);
    form.Section(SECTION_PAGE_HEADER, 200);
    form.Item(ITEM_GROUP, SECTION_PAGE_HEADER, 0, 0, 0, 0);
    form.Label(SECTION_PAGE_HEADER, 100, 30, 300, 50, "Sales");
    form.Label(SECTION_PAGE_HEADER, 600, 30, 200, 50, "Page");
    form.Section(SECTION_SORT_HEADER_1, 150);
    form.FieldItem(SECTION_SORT_HEADER_1, 100, 20, 300, 50, shown_region);
    form.Section(SECTION_SORT_HEADER_1 + 1, 150);
    form.FieldItem(SECTION_SORT_HEADER_1 + 1, 150, 20, 300, 50, shown_city);
    form.Section(SECTION_DETAIL_1, 250);
    form.FieldItem(SECTION_DETAIL_1, 200, 20, 200, 50, amount);
    form.Line(SECTION_DETAIL_1, 100, 100, 400, 20, 0);
    form.Section(SECTION_DETAIL_1 + 1, 150);
    form.Label(SECTION_DETAIL_1 + 1, 100, 20, 200, 50, "More");
    form.Section(SECTION_SORT_FOOTER_1 - 1, 150);
    form.Section(SECTION_SORT_FOOTER_1, 150);
    form.Label(SECTION_SORT_FOOTER_1, 100, 20, 200, 50, "Total");
    form.Section(SECTION_REPORT_FOOTER, 150);
    form.Break(region, region_break, SECTION_SORT_HEADER_1);
    form.Break(city, city_break, SECTION_SORT_HEADER_1 + 1);
    return form;
}

FormBuilder LabelSheetForm() {
    FormBuilder form;
    form.header.LabelType = 1;
    form.header.LabelGeometry = {0, 8.5F, 11.0F, 0.5F, 0.25F, 1.5F, 4.0F, 1.5F, 4.0F, 6, 2, 0};
    form.Section(SECTION_DETAIL_1, 375);
    form.Item(ITEM_GROUP, SECTION_DETAIL_1, 0, 0, 0, 0);
    form.Label(SECTION_DETAIL_1, 100, 30, 300, 50, "Name");
    form.Label(SECTION_DETAIL_1, 100, 130, 300, 50, "Street");
    return form;
}
