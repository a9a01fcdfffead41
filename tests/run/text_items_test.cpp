// Labels: where their lines stand, and by which widths they are drawn.
#include "run/text_items.h"

#include <cstring>

#include "frame/memory.h"
#include "tests/support/composition.h"

using tessarine::PrintLabel;

namespace {

using Lines = std::vector<std::string>;

// Labels of 200 by 100 at 10, 20: at 60, 120 on the page.
class Labels : public Composition {
protected:
    Labels() { Section(SECTION_DETAIL_1, 300); }

    ItemRecord &Label(const std::string &text, int flags = FLAG_LEFT | FLAG_TOP) {
        ItemRecord &item = Item(ITEM_LABEL, 10, 20, 200, 100);
        std::strcpy(item.LabelText, text.c_str());
        item.ItemFlags = static_cast<uint16_t>(flags);
        return item;
    }
    // The texts of the label as "x,y text".
    Lines Texts() {
        Lines texts;
        for (const std::string &line : LinesWith(DrawingOfLast(), {"text"}))
            texts.push_back(line.substr(5, line.find(" clip") - 5));
        return texts;
    }
};

struct PlaceRow {
    int flags;
    const char *text;
};

} // namespace

TEST_F(Labels, TextIsPlacedByItsFlags) {
    const PlaceRow rows[] = {
        {FLAG_LEFT | FLAG_TOP, "70,120 abc"},      {FLAG_RIGHT | FLAG_TOP, "214,120 abc"},
        {FLAG_CENTER | FLAG_TOP, "142,120 abc"},   {FLAG_LEFT | FLAG_MIDDLE, "70,150 abc"},
        {FLAG_LEFT | FLAG_BOTTOM, "70,180 abc"},   {0, "142,150 abc"},
        {FLAG_RIGHT | FLAG_BOTTOM, "214,180 abc"}, {FLAG_TOP | FLAG_BOTTOM, "142,120 abc"},
        {FLAG_LEFT | FLAG_RIGHT, "70,150 abc"},
    };
    ItemRecord &item = Label("abc");
    for (const PlaceRow &row : rows) {
        item.ItemFlags = static_cast<uint16_t>(row.flags);
        EXPECT_EQ(Texts(), (Lines{row.text})) << row.flags;
    }
}

TEST_F(Labels, EachLineIsAlignedByItself) {
    ItemRecord &item = Label("abcdef\r\nab\r\nabcd", FLAG_RIGHT | FLAG_TOP);
    EXPECT_EQ(Texts(), (Lines{"178,120 abcdef", "226,160 ab", "202,200 abcd"}));
    item.ItemFlags = FLAG_CENTER | FLAG_TOP;
    EXPECT_EQ(Texts(), (Lines{"124,120 abcdef", "148,160 ab", "136,200 abcd"}));
}

TEST_F(Labels, WholeHeightIsPlacedUpAndDown) {
    ItemRecord &item = Label("a\r\nb", FLAG_LEFT | FLAG_BOTTOM);
    EXPECT_EQ(Texts(), (Lines{"70,140 a", "70,180 b"}));
    item.ItemFlags = FLAG_LEFT;
    EXPECT_EQ(Texts(), (Lines{"70,130 a", "70,170 b"}));
}

TEST_F(Labels, EmptyLineTakesItsHeight) {
    Label("a\r\n\r\nb");
    EXPECT_EQ(Texts(), (Lines{"70,120 a", "70,200 b"}));
}

TEST_F(Labels, LineEndAtTheEndOfTheTextDrawsNoMore) {
    Label("a\r\n");
    EXPECT_EQ(Texts(), (Lines{"70,120 a"}));
    Label("a\r");
    EXPECT_EQ(Texts(), (Lines{"70,120 a"}));
    Label("\r");
    EXPECT_TRUE(Texts().empty());
}

TEST_F(Labels, LineBeginsTwoCharactersBehindTheCarriageReturn) {
    Label("ab\rcd");
    EXPECT_EQ(Texts(), (Lines{"70,120 ab", "70,160 d"}));
}

TEST_F(Labels, EmptyLabelDrawsNothingAndTakesItsRoom) {
    Label("");
    EXPECT_TRUE(Texts().empty());
    EXPECT_EQ(run.RowBottom, 220);
}

TEST_F(Labels, TextIsDrawnInTheItemsColourAndClippedByTheItem) {
    ItemRecord &item = Label("abc");
    item.TextColor = 0x00FF80;
    item.RunOffset = 4;
    const Lines drawn = DrawingOfLast();
    EXPECT_EQ(LinesWith(drawn, {"color", "mode", "text"}),
              (Lines{"color 00FF80", "mode 1", "text 70,124 abc clip 60,124,260,224 by 12,12,12"}));
    EXPECT_EQ(run.RowBottom, 224);
}

TEST_F(Labels, TextSpacesByTheTableOfTheFont) {
    session->form.Fonts[0].CharWidth['i'] = 5;
    session->form.Fonts[0].CharWidth[0xE4] = 17;
    Label("i\xE4x");
    EXPECT_EQ(LinesWith(DrawingOfLast(), {"text"}),
              (Lines{"text 70,120 i\xE4x clip 60,120,260,220 by 5,17,12"}));
}

TEST_F(Labels, TextOfOtherFontSpacesByItsOwnRow) {
    FontEntry &font = session->form.Fonts[2];
    font = session->form.Fonts[0];
    font.Height = 70;
    font.CharWidth['a'] = 30;
    Label("a\r\na").FontIndex = 2;
    EXPECT_EQ(LinesWith(DrawingOfLast(), {"text"}),
              (Lines{"text 70,120 a clip 60,120,260,220 by 30",
                     "text 70,190 a clip 60,120,260,220 by 30"}));
}

TEST_F(Labels, LongestLabelNeedsNoMemory) {
    Label(std::string(MAX_LABEL_TEXT, 'a'));
    const int blocks = tessarine::LiveBlocks();
    tessarine::FailAllocation(1);
    EXPECT_EQ(CodeOf([&] { PrintLabel(session, session->pages.PageRecorder, 1); }), 0);
    tessarine::FailAllocation(0);
    EXPECT_EQ(tessarine::LiveBlocks(), blocks);
    EXPECT_TRUE(boxes.Log().empty());
    const Lines drawn = LinesWith(Drawing(), {"text"});
    ASSERT_EQ(drawn.size(), 1U);
    EXPECT_NE(drawn[0].find(std::string(MAX_LABEL_TEXT, 'a') + " clip"), std::string::npos);
}

TEST_F(Labels, LongerTextTakesMemoryAndGivesItBack) {
    const std::string text(1000, 'a');
    const RECT clip{0, 0, 100, 100};
    const int blocks = tessarine::LiveBlocks();
    tessarine::PrintText(session, session->pages.PageRecorder, 1, 2, text.c_str(), 1000, 0, clip);
    EXPECT_EQ(tessarine::LiveBlocks(), blocks);
    const Lines drawn = Drawing();
    ASSERT_EQ(drawn.size(), 1U);
    EXPECT_EQ(drawn[0].rfind("text 1,2 " + text + " clip 0,0,100,100 by 12,", 0), 0U);
}

TEST_F(Labels, TextWithoutMemoryForItsWidthsEndsTheRunWithThree) {
    const std::string text(1000, 'a');
    tessarine::FailAllocation(1);
    const int code = CodeOf([&] {
        tessarine::PrintText(session, session->pages.PageRecorder, 1, 2, text.c_str(), 1000, 0,
                             RECT{});
    });
    tessarine::FailAllocation(0);
    EXPECT_EQ(code, CODE_MEMORY);
    EXPECT_EQ(boxes.LastText(), "Ran out of memory for printing");
    EXPECT_EQ(boxes.LastTitle(), "Fatal Error");
}
