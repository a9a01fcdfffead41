#include "frame/colors.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/failing_call.h"

namespace {

constexpr COLORREF CHOSEN = 0x00123456;

CHOOSECOLORA asked;
std::vector<COLORREF> custom;
BOOL answer;

BOOL WINAPI Choose(CHOOSECOLORA *choice) {
    asked = *choice;
    custom.assign(choice->lpCustColors, choice->lpCustColors + 16);
    choice->rgbResult = CHOSEN;
    return answer;
}

uint32_t Edit(uint32_t color, int full_open, BOOL result) {
    const ReplacedCall dialog("ChooseColorA", Choose);
    answer = result;
    return tessarine::EditColor(nullptr, color, full_open);
}

} // namespace

TEST(EditColor, ChosenColorComesBackAndCancelGivesTheCurrentOne) {
    EXPECT_EQ(Edit(0x00FF00, 0, TRUE), CHOSEN);
    EXPECT_EQ(asked.rgbResult, 0x00FF00u);
    EXPECT_EQ(Edit(0x00FF00, 0, FALSE), 0x00FF00u);
}

TEST(EditColor, CustomPartShowsOnRequestAlone) {
    Edit(0, 0, TRUE);
    EXPECT_EQ(asked.Flags, DWORD{CC_RGBINIT | CC_PREVENTFULLOPEN});
    Edit(0, 1, TRUE);
    EXPECT_EQ(asked.Flags, DWORD{CC_RGBINIT | CC_FULLOPEN});
}

TEST(EditColor, CustomColorsAreSixteenShadesOfGrey) {
    Edit(0, 0, TRUE);
    const int greys[] = {15, 31, 47, 63, 79, 95, 111, 127, 143, 159, 175, 191, 207, 223, 239, 255};
    for (size_t shade = 0; shade < 16; ++shade)
        EXPECT_EQ(custom[shade], RGB(greys[shade], greys[shade], greys[shade])) << shade;
}

TEST(PackedBrush, BrushesAreWidenedAndNarrowed) {
    LOGBRUSH brush{BS_HATCHED, RGB(1, 2, 3), HS_DIAGCROSS};
    RepLogbrush packed{};
    EXPECT_EQ(tessarine::WriteRepLogbrush(&brush, &packed), 1);
    LOGBRUSH read{};
    EXPECT_EQ(tessarine::ReadRepLogbrush(&packed, &read), 1);
    EXPECT_EQ(read.lbStyle, brush.lbStyle);
    EXPECT_EQ(read.lbColor, brush.lbColor);
    EXPECT_EQ(read.lbHatch, brush.lbHatch);
}

TEST(PackedBrush, BrushBeyond16BitsKeepsItsColorAlone) {
    const LOGBRUSH brush{0x10000, RGB(9, 8, 7), 2};
    RepLogbrush packed{1, 0, 1};
    EXPECT_EQ(tessarine::WriteRepLogbrush(&brush, &packed), 0);
    EXPECT_EQ(+packed.Style, 1);
    EXPECT_EQ(+packed.Color, static_cast<uint32_t>(RGB(9, 8, 7)));
}
