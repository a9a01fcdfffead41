#include "run/wrapped_text.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "form/label_measure.h"
#include "format/format_field.h"
#include "frame/text.h"
#include "paint/text_measure.h"
#include "paint/text_place.h"
#include "run/items.h"
#include "run/page_break.h"
#include "run/sections.h"

namespace tessarine {

namespace {

constexpr int NO_LINE = -1;
constexpr int NO_BLANK = -1;
constexpr int LINE_LIMIT = 300;
constexpr int TAB_BLANKS = 3; // in front of the one that stands for the tab itself

// A walk along the text of an item that fills one line.
struct LineWalk {
    const char *text;
    int length;
    const int32_t *widths;
    int item_width;
    char *out;
    int place;
    int count = 0; // characters of the line
    int used = 0;  // their width
    int blank_place = NO_BLANK;
    int blank_count = NO_BLANK;

    bool Full() const { return count >= LINE_LIMIT || used >= item_width; }
    void Put(char c) {
        out[count++] = c;
        used += widths[static_cast<unsigned char>(c)];
    }
    // Blanks of a tab; one that doesn't fit is taken back with the place in the text.
    void PutTab() {
        for (int blank = 0; blank < TAB_BLANKS; ++blank) {
            Put(' ');
            if (!Full()) continue;
            --count;
            --place;
            return;
        }
    }
};

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

enum class WalkEnd { Text, Break, Full };

WalkEnd Walk(LineWalk *walk, char break_char) {
    while (walk->place < walk->length) {
        char c = walk->text[walk->place];
        if (c == break_char) return WalkEnd::Break;
        if (IsLineEnd(c)) {
            if (walk->count > 0 && walk->out[walk->count - 1] == ' ') {
                ++walk->place;
                continue;
            }
            c = ' ';
        }
        if (c == '\t') {
            walk->PutTab();
            c = ' ';
        }
        walk->Put(c);
        if (walk->Full()) return WalkEnd::Full;
        ++walk->place;
        if (c == ' ') {
            walk->blank_place = walk->place - 1;
            walk->blank_count = walk->count - 1;
        }
    }
    return WalkEnd::Text;
}

LineWalk StartWalk(const Session *session, const ItemRecord &item, char *out, int start) {
    const char *text = session->form.Fields[item.FieldIndex].TextValue;
    LineWalk walk{};
    walk.text = text;
    walk.length = text ? static_cast<int>(std::strlen(text)) : 0;
    walk.widths = session->form.Fonts[item.FontIndex].CharWidth;
    walk.item_width = item.width;
    walk.out = out;
    walk.place = start;
    walk.blank_place = walk.blank_count = NO_BLANK;
    return walk;
}

} // namespace

int NextTextLine(Session *session, int row, char *out, int start) {
    const ItemRecord &item = session->form.Items[row];
    const FieldRecord &field = session->form.Fields[item.FieldIndex];
    out[0] = 0;
    LineWalk walk = StartWalk(session, item, out, start);
    if (start >= walk.length - 1) return NO_LINE;
    const WalkEnd end = Walk(&walk, field.LineBreakChar[0]);
    if (end == WalkEnd::Break) {
        out[walk.count] = 0;
        return walk.place;
    }
    if (end == WalkEnd::Full) { // the last character didn't fit
        walk.count = std::max(walk.count - 1, 0);
        --walk.place;
    }
    if ((field.FieldFlags & FIELD_WORD_WRAP) && walk.blank_place >= 1 &&
        walk.used >= walk.item_width) {
        walk.place = walk.blank_place;
        walk.count = walk.blank_count;
    }
    // An item narrower than a character still takes one of them a line.
    if (walk.place < start) {
        walk.place = start;
        walk.count = 1;
    }
    out[walk.count] = 0;
    return walk.place;
}

namespace {

// A wrapped text on its way down the page.
struct TextColumn {
    RECT place; // on the page that the text has reached
    int y;
    bool spilled = false;
};

// The sections at the page's edges are none of the row's, which goes on in its column.
void BeginOnNextPage(Session *session, HDC *device, const ItemRecord &item, TextColumn *column) {
    RunState &run = session->run;
    const int across = std::exchange(run.AcrossIndex, 0);
    const int x = run.CurrentX;
    run.PageFresh = 0;
    PageBreak(session, SECTION_DETAIL_1);
    run.AcrossIndex = across;
    run.CurrentX = x;
    run.RowBottom = run.CurrentY;
    column->y = column->place.top = run.RowBottom;
    column->place.bottom = column->place.top + run.BodyBottom;
    column->spilled = true;
    *device = PageDevice(session);
    SelectTextStyle(*device, session->form.Fonts[item.FontIndex], item.TextColor);
}

void DrawLine(const Session *session, HDC device, const ItemRecord &item, const TextColumn &column,
              char *line) {
    RepStrTrim(line);
    if (!*line) return;
    const int width = GetLabelLen(session->form.Fonts[item.FontIndex], line);
    TextOutA(device, TextLeft(item, column.place, width), column.y, line,
             static_cast<int>(std::strlen(line)));
}

// False when no further line has room.
bool MakeRoom(Session *session, HDC *device, const ItemRecord &item, TextColumn *column,
              bool variable) {
    const int line_height = static_cast<int>(session->form.Fonts[item.FontIndex].Height);
    if (column->y + line_height > column->place.bottom && !variable) return false;
    if (column->y + line_height <= session->run.BodyBottom) return true;
    if (item.SectionIndex != SECTION_DETAIL_1) return false;
    BeginOnNextPage(session, device, item, column);
    return true;
}

// What stands below keeps its distance to the text's end.
void PushItemsBelow(Session *session, int row, const TextColumn &column) {
    const ItemRecord &item = session->form.Items[row];
    const SectionRecord &section = session->form.Sections[item.SectionIndex];
    const int grown = column.y - column.place.top;
    if (grown == item.height) return;
    for (int below = row + 1; below < section.FirstItem + section.ItemTotal; ++below) {
        ItemRecord *other = &session->form.Items[below];
        if (other->ItemType == ITEM_BAR || other->ItemType == ITEM_GROUP ||
            other->SectionIndex != item.SectionIndex || other->y <= item.y + item.height)
            continue;
        const int offset = column.spilled ? grown - other->y + (other->y - (item.y + item.height))
                                          : other->RunOffset + grown - item.height;
        other->RunOffset = static_cast<int16_t>(offset);
    }
}

} // namespace

void PrintWrappedField(Session *session, HDC device, int row) {
    ItemRecord *item = &session->form.Items[row];
    FieldRecord *field = &session->form.Fields[item->FieldIndex];
    const bool variable = field->FieldFlags & FIELD_VARIABLE_LINES;
    const int line_height = static_cast<int>(session->form.Fonts[item->FontIndex].Height);
    FormatField(session, field, item->LabelText);
    SelectTextStyle(device, session->form.Fonts[item->FontIndex], item->TextColor);
    const RECT place = ItemRectangle(session, *item);
    TextColumn column{place, place.top};
    char line[LINE_LIMIT + 2];
    int end = NextTextLine(session, row, line, 0);
    while (end != NO_LINE) {
        DrawLine(session, device, *item, column, line);
        column.y += line_height;
        if (!MakeRoom(session, &device, *item, &column, variable)) break;
        end = NextTextLine(session, row, line, end + 1);
    }
    if (variable) PushItemsBelow(session, row, column);
    session->run.RowBottom = std::max(session->run.RowBottom, column.y);
    // Further columns stand beside the rest of the text, so a row across keeps its place there.
    const SectionRecord &section = session->form.Sections[item->SectionIndex];
    if (column.spilled && section.Across == 1) session->run.CurrentY -= section.SectionHeight;
}

} // namespace tessarine
