#include "form/label_measure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

using namespace tessarine;

namespace {

// Every character 12 wide, lines 40 high.
FontEntry EvenFont() {
    FontEntry font{};
    std::fill(std::begin(font.CharWidth), std::end(font.CharWidth), 12);
    font.Height = 40;
    return font;
}

} // namespace

TEST(LabelMeasure, HeightCountsLineFeedsAlone) {
    EXPECT_EQ(GetLabelHeight(EvenFont(), "a\rb"), 40);
    EXPECT_EQ(GetLabelHeight(EvenFont(), "a\r\nb"), 80);
}

TEST(LabelMeasure, LengthIsThatOfTheWidestLine) {
    EXPECT_EQ(GetLabelLen(EvenFont(), "ab\r\nabcd\r\na"), 48);
    FontEntry font = EvenFont();
    font.CharWidth[0xE9] = 17;
    EXPECT_EQ(GetLabelLen(font, "\xE9"), 17);
}

TEST(LabelMeasure, WidthBelowTheFirstCharacterLeavesAnEmptyText) {
    char text[] = "abc";
    TruncateText(EvenFont(), text, 24);
    EXPECT_STREQ(text, "ab");
    TruncateText(EvenFont(), text, 11);
    EXPECT_STREQ(text, "");
    TruncateText(EvenFont(), nullptr, 11);
}
