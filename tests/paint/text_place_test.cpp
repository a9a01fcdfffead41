#include "paint/text_place.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

constexpr RECT PLACE{60, 120, 260, 220};

ItemRecord ItemWith(int flags) {
    ItemRecord item{};
    item.width = 200;
    item.height = 100;
    item.ItemFlags = static_cast<uint16_t>(flags);
    return item;
}

struct PlaceRow {
    int flags;
    int at; // of text that is 36 by 40
};

} // namespace

TEST(TextPlace, LeftStandsByTheFlagsAcross) {
    const PlaceRow rows[] = {
        {FLAG_LEFT, 70},
        {FLAG_RIGHT, 214},
        {FLAG_CENTER, 142},
        {0, 142},
        {FLAG_LEFT | FLAG_RIGHT, 70},
    };
    for (const PlaceRow &row : rows)
        EXPECT_EQ(TextLeft(ItemWith(row.flags), PLACE, 36), row.at) << row.flags;
}

TEST(TextPlace, TopStandsByTheFlagsUpAndDown) {
    const PlaceRow rows[] = {
        {FLAG_TOP, 120},
        {FLAG_BOTTOM, 180},
        {FLAG_MIDDLE, 150},
        {0, 150},
        {FLAG_TOP | FLAG_BOTTOM, 120},
    };
    for (const PlaceRow &row : rows)
        EXPECT_EQ(TextTop(ItemWith(row.flags), PLACE, 40), row.at) << row.flags;
}

TEST(TextPlace, HalvesTruncateTowardsZero) {
    ItemRecord item{};
    item.width = 10;
    item.height = 10;
    EXPECT_EQ(TextLeft(item, RECT{}, 15), -2);
    EXPECT_EQ(TextLeft(item, RECT{}, 5), 2);
    EXPECT_EQ(TextTop(item, RECT{}, 15), -2);
    EXPECT_EQ(TextTop(item, RECT{}, 5), 2);
}

TEST(TextPlace, RowWithoutAFontTakesTheSystemFont) {
    const HDC device = CreateCompatibleDC(nullptr);
    const HFONT font = CreateFontA(40, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "Arial");
    FontEntry row{};
    row.Font = font;
    SelectTextStyle(device, row, 0x0000FF);
    EXPECT_EQ(GetCurrentObject(device, OBJ_FONT), font);
    EXPECT_EQ(GetTextColor(device), 0x0000FFU);
    EXPECT_EQ(GetBkMode(device), TRANSPARENT);
    row.Font = nullptr;
    SelectTextStyle(device, row, 0);
    EXPECT_EQ(GetCurrentObject(device, OBJ_FONT), GetStockObject(SYSTEM_FONT));
    DeleteDC(device);
    DeleteObject(font);
}
