// The lines of wrapped text.
#include "run/wrapped_text.h"

#include <cstring>

#include "frame/memory.h"
#include "tests/support/composition.h"

using tessarine::NextTextLine;

namespace {

using Lines = std::vector<std::string>;

constexpr int FIVE_CHARACTERS = 61; // a width that the sixth character reaches

// The lines of a text in an item, one item a test.
class TextLines : public Composition {
protected:
    TextLines() { Section(SECTION_DETAIL_1, 300); }

    void Text(const std::string &text, int width, int flags) {
        FieldItem(0, 0, width, 100, TextField(text, flags));
    }
    // A line as "text|end"; "none" when there is none.
    std::string LineAt(int start) {
        char line[MAX_LABEL_TEXT + 1];
        const int end = NextTextLine(session, session->form.TotalItems - 1, line, start);
        return end < 0 ? "none" : std::string(line) + "|" + std::to_string(end);
    }
    Lines All() {
        Lines lines;
        char line[MAX_LABEL_TEXT + 1];
        const int row = session->form.TotalItems - 1;
        for (int end = NextTextLine(session, row, line, 0); end >= 0 && lines.size() < 5000;
             end = NextTextLine(session, row, line, end + 1))
            lines.emplace_back(line);
        return lines;
    }
    FieldRecord &Own() {
        return Field(session->form.Items[session->form.TotalItems - 1].FieldIndex);
    }
};

struct LineRow {
    const char *text;
    int width;
    int flags;
    int start;
    const char *line;
};

} // namespace

TEST_F(TextLines, LineIsCutWhereItIsFull) {
    const LineRow rows[] = {
        // The character that reaches the width doesn't fit.
        {"abcdefghij", 61, FIELD_WRAP, 0, "abcde|4"},
        {"abcdefghij", 60, FIELD_WRAP, 0, "abcd|3"},
        {"abcdefghij", 61, FIELD_WRAP, 5, "fghij|10"},
        {"ab cdefghij", 61, FIELD_WRAP, 0, "ab cd|4"},
        // With word wrap the last word stays whole.
        {"ab cdefghij", 61, FIELD_WORD_WRAP, 0, "ab|2"},
        {"a b cdefghij", 61, FIELD_WORD_WRAP, 0, "a b|3"},
        {"ab cdefghij", 61, FIELD_WRAP | FIELD_WORD_WRAP, 0, "ab|2"},
        // A word longer than the line is cut.
        {"abcdefghij", 61, FIELD_WORD_WRAP, 0, "abcde|4"},
        // The blank at the text's beginning is no place to break at; a later one is.
        {" abcdefghij", 61, FIELD_WORD_WRAP, 0, " abcd|4"},
        {"ab cdefghij", 61, FIELD_WORD_WRAP, 2, "|2"},
        // A text that ends in time needs no break.
        {"ab cd", 61, FIELD_WORD_WRAP, 0, "ab cd|5"},
    };
    for (const LineRow &row : rows) {
        Text(row.text, row.width, row.flags);
        EXPECT_EQ(LineAt(row.start), row.line) << row.text;
    }
}

TEST_F(TextLines, LastSingleCharacterNeverOpensALine) {
    const LineRow rows[] = {
        {"", 600, FIELD_WRAP, 0, "none"},       {"a", 600, FIELD_WRAP, 0, "none"},
        {"ab", 600, FIELD_WRAP, 0, "ab|2"},     {"ab", 600, FIELD_WRAP, 1, "none"},
        {"ab", 600, FIELD_WRAP, 90, "none"},    {"abcdef", 61, FIELD_WRAP, 5, "none"},
        {"abcdefg", 61, FIELD_WRAP, 5, "fg|7"},
    };
    for (const LineRow &row : rows) {
        Text(row.text, row.width, row.flags);
        EXPECT_EQ(LineAt(row.start), row.line) << row.text << " from " << row.start;
    }
}

TEST_F(TextLines, FieldWithoutATextHasNoLine) {
    Text("ab", 600, FIELD_WRAP);
    tessarine::OurFree(Own().TextValue);
    Own().TextValue = nullptr;
    EXPECT_EQ(LineAt(0), "none");
}

TEST_F(TextLines, BreakCharacterEndsALine) {
    Text("ab\rcd\r\ref", 600, FIELD_WORD_WRAP);
    EXPECT_EQ(LineAt(0), "ab|2");
    EXPECT_EQ(LineAt(3), "cd|5");
    EXPECT_EQ(LineAt(6), "|6");
    EXPECT_EQ(All(), (Lines{"ab", "cd", "", "ef"}));
}

TEST_F(TextLines, OtherBreakCharacterLeavesLineEndsAsBlanks) {
    const LineRow rows[] = {
        {"ab;cd", 600, FIELD_WRAP, 0, "ab|2"},
        {"a\nb", 600, FIELD_WRAP, 0, "a b|3"},
        // Two line ends in a row give one blank.
        {"a\n\nb", 600, FIELD_WRAP, 0, "a b|4"},
        {"a\r\nb", 600, FIELD_WRAP, 0, "a b|4"},
        {"a \n\r\n b", 600, FIELD_WRAP, 0, "a  b|7"},
        {"\n\nab", 600, FIELD_WRAP, 0, " ab|4"},
        {"a\n\n", 600, FIELD_WRAP, 0, "a |3"},
        // The blank of a line end is a place to break at.
        {"ab\ncdefgh", 61, FIELD_WORD_WRAP, 0, "ab|2"},
    };
    for (const LineRow &row : rows) {
        Text(row.text, row.width, row.flags);
        Own().LineBreakChar[0] = ';';
        EXPECT_EQ(LineAt(row.start), row.line) << row.text;
    }
}

TEST_F(TextLines, TabIsFourBlanks) {
    Text("a\tb", 600, FIELD_WRAP);
    EXPECT_EQ(LineAt(0), "a    b|3");
}

TEST_F(TextLines, TabNearTheRightEdgeDoesNotOverrunTheWidth) {
    const LineRow rows[] = {
        // The fourth blank reaches the width.
        {"abc\tef", 84, FIELD_WRAP, 0, "abc   |2"},
        // One of the three does: a place of the text is taken back for it, and another for the
        // fourth.
        {"abc\tef", 72, FIELD_WRAP, 0, "abc  |1"},
        {"abc\tef", 48, FIELD_WRAP, 0, "abc|1"},
        {"abc\tef", 72, FIELD_WORD_WRAP, 0, "abc  |1"},
        {"a bc\tef", 72, FIELD_WORD_WRAP, 0, "a|1"},
    };
    for (const LineRow &row : rows) {
        Text(row.text, row.width, row.flags);
        EXPECT_EQ(LineAt(row.start), row.line) << row.width;
    }
}

TEST_F(TextLines, LineHasAtMostThreeHundredCharacters) {
    Text(std::string(700, 'a'), 32767, FIELD_WRAP);
    EXPECT_EQ(LineAt(0), std::string(299, 'a') + "|298");
    Text(std::string(298, 'a') + "\tb", 32767, FIELD_WRAP);
    EXPECT_EQ(LineAt(0), std::string(298, 'a') + " |296");
}

TEST_F(TextLines, WidthsAreThoseOfTheTable) {
    session->form.Fonts[0].CharWidth[0xE4] = 30;
    session->form.Fonts[0].CharWidth['i'] = 4;
    Text("\xE4iiii\xE4x", FIVE_CHARACTERS, FIELD_WRAP);
    EXPECT_EQ(LineAt(0), "\xE4iiii|4");
}

TEST_F(TextLines, ItemNarrowerThanACharacterTakesOneALine) {
    for (const int width : {11, 1, 0, -1, -32768}) {
        Text("abcd", width, FIELD_WORD_WRAP);
        EXPECT_EQ(All(), (Lines{"a", "b", "c"})) << width;
        Text("\t\t\tb", width, FIELD_WRAP);
        EXPECT_EQ(All(), (Lines{" ", " ", " "})) << width;
    }
}

TEST_F(TextLines, EveryLineGoesOnInTheText) {
    const char letters[] = {'a', ' ', '\t', '\r', '\n', 'b'};
    uint32_t seed = 1;
    const auto next = [&seed](uint32_t limit) {
        seed = seed * 1664525U + 1013904223U;
        return (seed >> 16) % limit;
    };
    Text("", 1, FIELD_WRAP);
    ItemRecord &item = session->form.Items[session->form.TotalItems - 1];
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (uint32_t length = next(40); length > 0; --length) text += letters[next(6)];
        std::strcpy(Own().TextValue, text.c_str());
        item.width = static_cast<int16_t>(next(130));
        Own().FieldFlags = next(2) ? FIELD_WRAP : FIELD_WORD_WRAP;
        Own().LineBreakChar[0] = next(2) ? '\r' : ';';
        char line[MAX_LABEL_TEXT + 1];
        int start = 0;
        for (int end = 0; end >= 0; start = end + 1) {
            end = NextTextLine(session, session->form.TotalItems - 1, line, start);
            if (end < 0) break;
            ASSERT_GE(end, start) << text << " in " << item.width;
            ASSERT_LE(end, static_cast<int>(text.size()));
        }
    }
}
