#include "expr/tokenizer.h"

#include <gtest/gtest.h>

#include "tests/support/box_owners.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

class Tokenizer : public testing::Test {
protected:
    struct Token {
        char token_class;
        std::string text;
        int consumed;
    };
    Token Next(const std::string &text) {
        char token[110];
        int32_t consumed = -1;
        const char token_class = NextToken(session, text.c_str(), token, &consumed);
        return {token_class, token, consumed};
    }
    // All tokens as "class:text", with the last "Z" or "E" left out.
    std::string All(const std::string &text) {
        std::string list;
        size_t place = 0;
        for (;;) {
            const Token token = Next(text.substr(place));
            if (token.token_class == 'Z') return list;
            if (!list.empty()) list += ' ';
            if (token.token_class == 'E') return list + "E";
            list += token.token_class + (":" + token.text);
            place += static_cast<size_t>(token.consumed);
        }
    }
    void ExpectBox(const std::string &text) {
        ASSERT_EQ(boxes.Log().size(), 1u);
        EXPECT_EQ(boxes.Log()[0], (BoxRecord{"", text, {IDOK}}));
        boxes.Clear();
    }

    BareSession session;
    MessageBoxes boxes;
};

} // namespace

TEST_F(Tokenizer, EmptyAndBlankTextsAreAtTheirEnd) {
    for (const char *text : {"", " ", "     "}) {
        const Token token = Next(text);
        EXPECT_EQ(token.token_class, 'Z');
        EXPECT_EQ(token.text, "");
    }
}

TEST_F(Tokenizer, BlanksAreSkippedBeforeATokenAndTabsAreNot) {
    const Token token = Next("   12 ");
    EXPECT_EQ(token.text, "12");
    EXPECT_EQ(token.consumed, 5);
    EXPECT_EQ(Next("\t1").token_class, 'F');
}

TEST_F(Tokenizer, EveryClassIsTold) {
    struct Case {
        const char *text;
        const char *tokens;
    };
    const Case cases[] = {
        {"\"a b\"", "S:\"a b\""},
        {"\"\"", "S:\"\""},
        {"{1/1/97}", "S:{1/1/97}"},
        {"{a\"b}", "S:{a\"b}"},
        {"007", "N:007"},
        {"1.50", "D:1.50"},
        {".5", "D:.5"},
        {".t.", "B:.T."},
        {".F.", "B:.F."},
        {"total", "F:TOTAL"},
        {"upper(x)", "G:UPPER L:( F:X R:)"},
        {".and.", "O:.AND."},
        {".a b.", "O:.A B."},
        {"..", "O:.."},
        {"a,b", "F:A C:, F:B"},
        {"1+2-3*4/5", "N:1 P:+ N:2 P:- N:3 P:* N:4 P:/ N:5"},
        {"a$b", "F:A P:$ F:B"},
        {"a<>b", "F:A P:<> F:B"},
        {"a>=b", "F:A P:>= F:B"},
        {"a<=b", "F:A P:<= F:B"},
        {"a=<b", "F:A P:= P:< F:B"},
        {"a>b", "F:A P:> F:B"},
    };
    for (const Case &test : cases) EXPECT_EQ(All(test.text), test.tokens) << test.text;
}

TEST_F(Tokenizer, PointBehindADigitDecidesTheNumbersClass) {
    EXPECT_EQ(All(".5"), "D:.5");
    EXPECT_EQ(All("5.5"), "D:5.5");
    EXPECT_EQ(All("5.AND.6"), "N:5 O:.AND. N:6");
    EXPECT_EQ(All("1.2.3"), "D:1.2 D:.3");
    EXPECT_EQ(All("1e5"), "N:1 F:E5");
}

TEST_F(Tokenizer, NumberWithABarePointIsFollowedByABrokenDotOperator) {
    EXPECT_EQ(All("1."), "N:1 E");
    ExpectBox("Missing dot in the dot operator");
    EXPECT_EQ(All("5. "), "N:5 E");
    ExpectBox("Missing dot in the dot operator");
}

TEST_F(Tokenizer, NameMayBeginWithDigitsAndAnArrow) {
    EXPECT_EQ(All("12->total+1"), "F:12->TOTAL P:+ N:1");
    EXPECT_EQ(All("12->total(1"), "F:12->TOTAL L:( N:1");
    EXPECT_EQ(All("12-3"), "N:12 P:- N:3");
}

TEST_F(Tokenizer, ArrowBelongsToANameAndAMinusDoesNot) {
    EXPECT_EQ(All("sys->page"), "F:SYS->PAGE");
    EXPECT_EQ(All("a-b"), "F:A P:- F:B");
    EXPECT_EQ(All("a-b->c"), "F:A P:- F:B->C");
    EXPECT_EQ(All("a->b>c"), "F:A->B P:> F:C");
}

TEST_F(Tokenizer, NameEndsAtEachOfItsStops) {
    const std::string stops = "()*/+#<=\"' .$,";
    for (const char stop : stops) {
        const Token token = Next(std::string("ab") + stop + "cd");
        EXPECT_EQ(token.text, "AB") << stop;
        EXPECT_EQ(token.consumed, 2) << stop;
        EXPECT_EQ(token.token_class, stop == '(' ? 'G' : 'F') << stop;
    }
    EXPECT_EQ(Next("a_b:c!d|e").text, "A_B:C!D|E");
}

TEST_F(Tokenizer, FirstCharacterOfANameIsTakenWhateverItIs) {
    EXPECT_EQ(Next("#1").text, "#1");
    EXPECT_EQ(Next("'a'").text, "'A");
}

TEST_F(Tokenizer, BlankBeforeTheParenthesisMakesAFieldName) {
    EXPECT_EQ(All("LEN (A)"), "F:LEN L:( F:A R:)");
    EXPECT_EQ(All("LEN(A)"), "G:LEN L:( F:A R:)");
}

TEST_F(Tokenizer, StringOf99CharactersIsReadAndOneOf100IsTooLong) {
    const std::string longest(99, 'x');
    const Token token = Next("\"" + longest + "\"");
    EXPECT_EQ(token.token_class, 'S');
    EXPECT_EQ(token.text, "\"" + longest + "\"");
    EXPECT_EQ(Next("\"" + longest + "x\"").token_class, 'E');
    ExpectBox("String too long.");
    EXPECT_EQ(Next("\"" + longest + "x").token_class, 'E');
    ExpectBox("String too long.");
}

TEST_F(Tokenizer, BracketsHold99CharactersAndOneWith100IsNoDate) {
    const std::string longest(99, '1');
    EXPECT_EQ(Next("{" + longest + "}").token_class, 'S');
    EXPECT_EQ(Next("{" + longest + "1}").token_class, 'E');
    ExpectBox("Invalid date.");
}

TEST_F(Tokenizer, OnlyTooLongLiteralsAreToldWithoutAnOwner) {
    const HWND window = GetDesktopWindow();
    session->Window = window;
    const BoxOwners owners;
    const std::string longest(100, '1');
    for (const std::string &text :
         {"\"" + longest, "{" + longest, std::string("\"a"), std::string("{a"), std::string(".a")})
        EXPECT_EQ(Next(text).token_class, 'E');
    EXPECT_EQ(owners.Noted(), (std::vector<HWND>{nullptr, nullptr, window, window, window}));
}

TEST_F(Tokenizer, OpenLiteralsAreTold) {
    EXPECT_EQ(Next("\"abc").token_class, 'E');
    ExpectBox("Missing closing quotes");
    EXPECT_EQ(Next("{1/1/97").token_class, 'E');
    ExpectBox("Missing closing bracket");
    EXPECT_EQ(Next(".AND").token_class, 'E');
    ExpectBox("Missing dot in the dot operator");
}

TEST_F(Tokenizer, NameOf100CharactersIsReadAndALongerOneRefused) {
    const std::string longest(100, 'n');
    EXPECT_EQ(Next(longest).text, std::string(100, 'N'));
    for (const std::string &text : {longest + "n", std::string(4000, 'n'), "1->" + longest}) {
        EXPECT_EQ(Next(text).token_class, 'E');
        EXPECT_EQ(boxes.LastText().substr(0, 20), "Invalid data field: ");
        EXPECT_EQ(boxes.LastText().size(), 120u);
        boxes.Clear();
    }
}

TEST_F(Tokenizer, LongNumbersAndDotWordsStayInTheTokensBuffer) {
    EXPECT_EQ(Next(std::string(4000, '7')).token_class, 'N');
    EXPECT_EQ(Next(std::string(4000, '7')).consumed, 4000);
    EXPECT_EQ(Next("." + std::string(4000, '7')).token_class, 'D');
    EXPECT_EQ(Next("." + std::string(4000, 'a') + ".").token_class, 'O');
}
