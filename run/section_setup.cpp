#include "run/section_setup.h"

#include <algorithm>
#include <utility>

#include "form/sections.h"
#include "frame/mapping.h"

namespace tessarine {

namespace {

constexpr int NO_SPAN = -1;
constexpr int NO_ITEM = -1;

struct Span { // what the items of a section reach, form units
    int top = NO_SPAN;
    int bottom = NO_SPAN;
};

int16_t Short(int value) { return static_cast<int16_t>(value); }

int LeftShift(const Session *session) {
    if (session->LabelMode) return BAR_LEFT_EDGE;
    return std::max(InchesToUnits(session->form.Header.LeftMargin), BAR_LEFT_EDGE);
}

bool InSection(const Session *session, int row, int section) {
    return row < session->form.TotalItems && session->form.Items[row].SectionIndex == section;
}

void PrepareBar(Session *session, SectionRecord *section, ItemRecord *bar, int shift) {
    const FormHeader &header = session->form.Header;
    if (session->LabelMode) {
        section->Across = static_cast<int16_t>(header.LabelGeometry.LabelsAcross);
        bar->width = Short(InchesToUnits(header.LabelGeometry.HorizontalPitch));
        bar->height = Short(InchesToUnits(header.LabelGeometry.VerticalPitch));
    } else {
        bar->height = Short(bar->height - header.BarHeight);
    }
    bar->x = Short(bar->x - shift);
    bar->y = Short(bar->y + header.BarHeight);
}

// A calculation in a footer passes the section on to the summaries that it reads, and is then
// computed as the footer prints.
void DeferFooterCalculation(Session *session, FieldRecord *field, int section) {
    for (int place = 0; place < MAX_CELLS && field->FieldTokens[place] != CELL_END; ++place) {
        const int cell = field->FieldTokens[place];
        if (cell >= session->form.FieldCount) continue;
        FieldRecord *operand = &session->form.Fields[cell];
        if (operand->SummaryType == SUMMARY_VALUE) continue;
        operand->SummarySection = Short(section);
        session->run.InputTable[cell].SummarySection = Short(section);
        field->FieldFlags |= FIELD_IN_FOOTER;
        field->SummaryType = SUMMARY_VALUE;
    }
}

void SettleSummary(Session *session, int row, int section) {
    FieldRecord *field = &session->form.Fields[row];
    FieldRecord *input = &session->run.InputTable[row];
    field->SummarySection = Short(section);
    input->SummarySection = Short(section);
    if (!IsFooter(section)) {
        field->SummaryType = SUMMARY_VALUE;
        input->SummaryType = SUMMARY_VALUE;
    } else if (field->FieldKind == FIELD_CALC) {
        DeferFooterCalculation(session, field, section);
    }
}

void AddItem(Session *session, ItemRecord *item, int section, int shift, Span *span) {
    if (span->top == NO_SPAN || item->y < span->top) span->top = item->y;
    item->x = Short(item->x - shift);
    span->bottom = std::max<int>(span->bottom, item->y + item->height);
    if (item->ItemType == ITEM_FIELD) SettleSummary(session, item->FieldIndex, section);
}

bool IsWrappedText(const Session *session, const ItemRecord &item) {
    if (item.ItemType != ITEM_FIELD) return false;
    const FieldRecord &field = session->form.Fields[item.FieldIndex];
    return field.ValueType == TYPE_TEXT && (field.FieldFlags & (FIELD_WRAP | FIELD_WORD_WRAP));
}

// Of the wrapped texts in the first detail section, the one that nothing stands under is painted
// last, so that text running over the page's end leaves no other item of the record behind.
void MoveWrappedItemLast(Session *session, const SectionRecord &section) {
    ItemRecord *items = session->form.Items;
    int &wrapped = session->run.WrapItem;
    wrapped = NO_ITEM;
    if (section.ItemTotal < 1) return;
    const int last = section.FirstItem + section.ItemTotal - 1;
    for (int row = section.FirstItem; row <= last; ++row) {
        const ItemRecord &item = items[row];
        if (item.ItemType == ITEM_GROUP || item.ItemType == ITEM_BAR) continue;
        if (wrapped != NO_ITEM && item.y >= items[wrapped].y + items[wrapped].height)
            wrapped = NO_ITEM;
        if (IsWrappedText(session, item)) wrapped = row;
    }
    if (wrapped == NO_ITEM || wrapped == last) return;
    std::swap(items[wrapped], items[last]);
    wrapped = last;
}

void SettleHeight(Session *session, int number, const Span &span) {
    SectionRecord *section = &session->form.Sections[number];
    if (span.top == NO_SPAN || span.bottom == NO_SPAN) {
        section->ItemTotal = 0;
        section->SectionHeight = 0;
        return;
    }
    section->SectionHeight = Short(span.bottom - span.top);
    for (int row = section->FirstItem; InSection(session, row, number); ++row)
        session->form.Items[row].y = Short(session->form.Items[row].y - span.top);
    ItemRecord *bar = &session->form.Items[section->FirstItem];
    bar->y = 0;
    bar->height = Short(span.bottom - span.top + 1);
}

void PrepareSection(Session *session, int number, int shift) {
    SectionRecord *section = &session->form.Sections[number];
    ItemRecord *bar = &session->form.Items[section->BarItem];
    PrepareBar(session, section, bar, shift);
    section->FirstItem = section->BarItem;
    section->ItemTotal = 1;
    Span span;
    for (int row = section->BarItem + 1; InSection(session, row, number); ++row) {
        ++section->ItemTotal;
        ItemRecord *item = &session->form.Items[row];
        if (item->ItemType != ITEM_GROUP) AddItem(session, item, number, shift, &span);
    }
    if (!(section->SectionFlags & SECTION_COMPRESS_BEFORE)) span.top = bar->y;
    if (session->LabelMode || !(section->SectionFlags & SECTION_COMPRESS_AFTER))
        span.bottom = bar->y + bar->height;
    SettleHeight(session, number, span);
    if (number == SECTION_DETAIL_1) MoveWrappedItemLast(session, *section);
}

} // namespace

void PrepareSections(Session *session) {
    const int shift = LeftShift(session);
    for (int number = 0; number < MAX_SECTIONS; ++number)
        if (session->form.Sections[number].InUse) PrepareSection(session, number, shift);
}

} // namespace tessarine
