#include <gtest/gtest.h>

#include <cstring>

#include "frame/memory.h"
#include "frame/text.h"
#include "tests/support/failing_call.h"
#include "tests/support/host_state.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

namespace {

std::string WithEnding(const char *name) {
    char text[100];
    std::strcpy(text, name);
    tessarine::AddFileEnding(text, ".FRC", sizeof text);
    return text;
}

std::string debug_output;

void WINAPI TakeDebugOutput(const char *text) { debug_output += text; }

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
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{
                               {"", "Memory Allocation Error (OurAlloc)", {IDOK}},
                               {"", "Memory Allocation Error (OurRealloc)", {IDOK}},
                               {"", "Memory Allocation Error (sAlloc)", {IDOK}},
                               {"", "Memory Allocation Error (sReAlloc)", {IDOK}},
                               {"", "Memory Allocation Error (MemAlloc)", {IDOK}},
                               {"", "Memory Allocation Error (MemReAlloc)", {IDOK}},
                           }));
    tessarine::OurFree(block);
    tessarine::MemFree(heap);
    tessarine::FreeHandle(handle);
}

TEST(Memory, BlockWithoutRoomForItsLastByteLeavesNoHandleBehind) {
    MessageBoxes boxes;
    const FailingCall frees("GlobalFree", GlobalFree, nullptr, EVERY_CALL);
    EXPECT_EQ(tessarine::OurAlloc(SIZE_MAX), nullptr);
    EXPECT_EQ(frees.Seen(), 1);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Memory Allocation Error (OurAlloc)"});
}

TEST(Memory, NothingIsFreedAsWellAsSomething) {
    EXPECT_EQ(tessarine::MemFree(nullptr), 1);
    EXPECT_EQ(tessarine::MemFree(tessarine::MemAlloc(0)), 1);
    EXPECT_EQ(tessarine::FreeHandle(tessarine::sAlloc(0)), 1);
}

TEST(Memory, GrownBlocksKeepTheirContents) {
    auto *block = static_cast<char *>(tessarine::OurAlloc(3));
    std::strcpy(block, "abc");
    block = static_cast<char *>(tessarine::OurRealloc(block, 5000));
    ASSERT_NE(block, nullptr);
    EXPECT_STREQ(block, "abc");
    tessarine::OurFree(block);
}

TEST(Text, EndingIsAddedOnlyWhereNonePointStandsAmongTheLastFourCharacters) {
    EXPECT_EQ(WithEnding("C:\\A.B"), "C:\\A.B");
    EXPECT_EQ(WithEnding("C:\\REPORT.LONG"), "C:\\REPORT.LONG.FRC");
    EXPECT_EQ(WithEnding("C:\\REP"), "C:\\REP.FRC");
    EXPECT_EQ(WithEnding("C:\\REP.ABC"), "C:\\REP.ABC");
    EXPECT_EQ(WithEnding("C:\\A.B\\C"), "C:\\A.B\\C.FRC");
    EXPECT_EQ(WithEnding("A.:C"), "A.:C.FRC");
    EXPECT_EQ(WithEnding(""), ".FRC");
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
}

TEST(Text, BlanksAloneAreTrimmed) {
    char text[] = " \ta b\t ";
    EXPECT_STREQ(tessarine::RepStrTrim(text), "\ta b\t");
    char blanks[] = "    ";
    EXPECT_STREQ(tessarine::RepStrTrim(blanks), "");
}

TEST(Text, CaseChangesCharacterByCharacter) {
    char text[] = "aB1-z";
    EXPECT_STREQ(tessarine::UpperText(text), "AB1-Z");
    EXPECT_STREQ(tessarine::LowerText(text), "ab1-z");
}

TEST(Text, CaseIsThatOfPlainLettersWhateverTheHostsLocale) {
    const HostLocale german;
    ASSERT_TRUE(german.Set());
    char text[] = "@AZ[`az{\xC4\xE4\xD6\xF6\xDF";
    EXPECT_STREQ(tessarine::UpperText(text), "@AZ[`AZ{\xC4\xE4\xD6\xF6\xDF");
    EXPECT_STREQ(tessarine::LowerText(text), "@az[`az{\xC4\xE4\xD6\xF6\xDF");
}

TEST(Text, CopyIsSafeForOverlaps) {
    char text[] = "abcdef";
    tessarine::CopyBytes(text, text + 2, 4);
    EXPECT_STREQ(text, "ababcd");
    tessarine::CopyBytes(text + 2, text, 4);
    EXPECT_STREQ(text, "abcdcd");
}

TEST(DebugMessage, IsShownInABoxWithoutAViewer) {
    MessageBoxes boxes;
    tessarine::DebugMessage("row %d of %s", 7, "items");
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "row 7 of items", {IDOK}}}));
}

TEST(DebugMessage, GoesToTheViewerAsALine) {
    MessageBoxes boxes;
    WNDCLASSA viewer_class{};
    viewer_class.lpfnWndProc = DefWindowProcA;
    viewer_class.lpszClassName = "DBWin";
    RegisterClassA(&viewer_class);
    const HWND viewer =
        CreateWindowExA(0, "DBWin", "", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    debug_output.clear();
    {
        const ReplacedCall output("OutputDebugStringA", TakeDebugOutput);
        tessarine::DebugMessage("row %d", 7);
    }
    DestroyWindow(viewer);
    UnregisterClassA("DBWin", nullptr);
    EXPECT_EQ(debug_output, "row 7\n");
    EXPECT_TRUE(boxes.Log().empty());
}
