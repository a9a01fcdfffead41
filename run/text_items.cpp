#include "run/text_items.h"

#include <cstring>

#include "form/label_measure.h"
#include "frame/fatal_error.h"
#include "frame/memory.h"
#include "paint/text_measure.h"
#include "paint/text_place.h"
#include "run/items.h"

namespace tessarine {

namespace {

constexpr int ADVANCES_AT_HAND = 320; // a label's line needs no memory of its own

// Room for advance widths: on the stack, or for longer texts in a block.
class Advances {
public:
    Advances(Session *session, int count) {
        if (count <= ADVANCES_AT_HAND) return;
        block_ = static_cast<INT *>(MemAlloc(static_cast<size_t>(count) * sizeof(INT)));
        if (!block_) FatalError(session, "Ran out of memory for printing", CODE_MEMORY);
    }
    Advances(const Advances &) = delete;
    Advances &operator=(const Advances &) = delete;
    ~Advances() { MemFree(block_); }
    INT *Get() { return block_ ? block_ : at_hand_; }

private:
    INT at_hand_[ADVANCES_AT_HAND];
    INT *block_ = nullptr;
};

} // namespace

void PrintText(Session *session, HDC device, int x, int y, const char *text, int length, int font,
               const RECT &clip) {
    Advances advances(session, length + 1);
    const FontEntry &row = session->form.Fonts[font];
    for (int place = 0; place < length; ++place)
        advances.Get()[place] = row.CharWidth[static_cast<unsigned char>(text[place])];
    advances.Get()[length] = 0;
    ExtTextOutA(device, x, y, ETO_CLIPPED, &clip, text, static_cast<UINT>(length), advances.Get());
}

// Each line is aligned by itself; an empty one takes its height all the same.
void PrintLabel(Session *session, HDC device, int row) {
    const ItemRecord &item = session->form.Items[row];
    const RECT place = ItemRectangle(session, item);
    const FontEntry &font = session->form.Fonts[item.FontIndex];
    int y = TextTop(item, place, GetLabelHeight(font, item.LabelText));
    SelectTextStyle(device, font, item.TextColor);
    const char *line = item.LabelText;
    const char *end = line + std::strlen(line);
    while (line < end) {
        char text[MAX_LABEL_TEXT + 1];
        const size_t length = std::strcspn(line, "\r");
        std::memcpy(text, line, length);
        text[length] = 0;
        if (length > 0) {
            const int width = GetLabelLen(font, text);
            PrintText(session, device, TextLeft(item, place, width), y, text,
                      static_cast<int>(length), item.FontIndex, place);
        }
        y += static_cast<int>(font.Height);
        line += length + 2; // behind the carriage return and its line feed
    }
    RaiseRowBottom(session, item);
}

} // namespace tessarine
