#include <gtest/gtest.h>

#include <cstring>

#include "frame/memory.h"
#include "frame/text.h"
#include "frame/text_measure.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

namespace {

std::string WithEnding(const char *name) {
    char text[100];
    std::strcpy(text, name);
    tessarine::AddFileEnding(text, ".FRC", sizeof text);
    return text;
}

} // namespace

TEST(Memory, OurFreeOfNullDoesNothing) { EXPECT_EQ(tessarine::OurFree(nullptr), 0); }

TEST(Memory, OurAllocOfNothingGivesABlockOfOneByte) {
    auto *memory = static_cast<char *>(tessarine::OurAlloc(0));
    ASSERT_NE(memory, nullptr);
    EXPECT_GE(GlobalSize(GlobalHandle(memory)), 1u);
    memory[0] = 1;
    tessarine::OurFree(memory);
}

TEST(Memory, EachAllocatorNamesItsOwnFailure) {
    MessageBoxes boxes;
    void *block = tessarine::OurAlloc(4);
    void *heap = tessarine::MemAlloc(4);
    HGLOBAL handle = tessarine::sAlloc(4);
    tessarine::FailAllocation(1);
    EXPECT_EQ(tessarine::OurAlloc(4), nullptr);
    EXPECT_EQ(tessarine::OurRealloc(block, 8), nullptr);
    EXPECT_EQ(tessarine::sAlloc(4), nullptr);
    EXPECT_EQ(tessarine::sReAlloc(handle, 8), nullptr);
    EXPECT_EQ(tessarine::MemAlloc(4), nullptr);
    EXPECT_EQ(tessarine::MemReAlloc(heap, 8), nullptr);
    tessarine::FailAllocation(0);
    EXPECT_EQ(boxes.Texts(),
              (std::vector<std::string>{
                  "Memory Allocation Error (OurAlloc)", "Memory Allocation Error (OurRealloc)",
                  "Memory Allocation Error (sAlloc)", "Memory Allocation Error (sReAlloc)",
                  "Memory Allocation Error (MemAlloc)", "Memory Allocation Error (MemReAlloc)"}));
    tessarine::OurFree(block);
    tessarine::MemFree(heap);
    tessarine::FreeHandle(handle);
}

TEST(Text, EndingIsAddedOnlyWhereNonePointStandsAmongTheLastFourCharacters) {
    EXPECT_EQ(WithEnding("C:\\A.B"), "C:\\A.B");
    EXPECT_EQ(WithEnding("C:\\REPORT.LONG"), "C:\\REPORT.LONG.FRC");
    EXPECT_EQ(WithEnding("C:\\REP"), "C:\\REP.FRC");
}

TEST(Text, PaddingLeavesATextThatIsLongEnough) {
    char text[20] = "abc";
    tessarine::PadLeft(text, 3);
    EXPECT_STREQ(text, "abc");
    tessarine::PadLeft(text, 5);
    EXPECT_STREQ(text, "  abc");
    tessarine::PadRight(text, 7);
    EXPECT_STREQ(text, "  abc  ");
    EXPECT_STREQ(tessarine::RepStrTrim(text), "abc");
}

TEST(Text, SearchesTellWhereOrHowLong) {
    EXPECT_EQ(tessarine::FindCharAt("abc", 'c', 3), 2);
    EXPECT_EQ(tessarine::FindCharAt("abc", 'x', 3), 3);
    EXPECT_EQ(tessarine::FindTextAt("abcabc", "ca"), 2);
    EXPECT_EQ(tessarine::FindTextAt("abc", "x"), 3);
    EXPECT_EQ(tessarine::HasPrefix("SYS->PAGE", "SYS->"), 1);
    EXPECT_EQ(tessarine::FileLength("C:\\no such file"), -1);
}

TEST(TextMeasure, HeightCountsLineFeedsAlone) {
    BareSession session;
    EXPECT_EQ(tessarine::GetLabelHeight(session, "a\rb", 0), 40);
    EXPECT_EQ(tessarine::GetLabelHeight(session, "a\r\nb", 0), 80);
}

TEST(TextMeasure, LengthIsThatOfTheWidestLine) {
    BareSession session;
    EXPECT_EQ(tessarine::GetLabelLen(session, "ab\r\nabcd\r\na", 0), 48);
    EXPECT_EQ(tessarine::GetLabelLen(session, "\xE9", 0), 12);
}

TEST(TextMeasure, WidthBelowTheFirstCharacterLeavesAnEmptyText) {
    BareSession session;
    char text[] = "abc";
    EXPECT_EQ(tessarine::TruncateText(session, text, 24, 0), 1);
    EXPECT_STREQ(text, "ab");
    tessarine::TruncateText(session, text, 11, 0);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(tessarine::TruncateText(session, nullptr, 11, 0), 1);
}
