#include "frame/files.h"

#include <gtest/gtest.h>

#include "frame/owned.h"
#include "tests/support/test_session.h"

using namespace tessarine;

TEST(Files, LengthIsThatOfTheFile) {
    const TemporaryFolder folder;
    WriteWholeFile(folder.Path("A"), "12345");
    EXPECT_EQ(FileLength(folder.Path("A").c_str()), 5);
    EXPECT_EQ(FileLength(folder.Path("B").c_str()), -1);
}

TEST(Files, LengthGoesBeyondWhatThirtyTwoBitsTell) {
    constexpr int64_t LONG = 5LL << 30;
    const TemporaryFolder folder;
    {
        const OwnedFile file(CreateFileA(folder.Path("LONG").c_str(), GENERIC_WRITE, 0, nullptr,
                                         CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(SeekTo(file.Get(), LONG));
        ASSERT_TRUE(SetEndOfFile(file.Get()));
    }
    EXPECT_EQ(FileLength(folder.Path("LONG").c_str()), LONG);
}

TEST(Files, FileIsTheSameUnderEverySpellingAndLink) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("ONE.FP");
    WriteWholeFile(path, "same");
    WriteWholeFile(folder.Path("TWO.FP"), "same");
    ASSERT_TRUE(CreateHardLinkA(folder.Path("LINK.FP").c_str(), path.c_str(), nullptr));
    EXPECT_TRUE(SameFile(path.c_str(), path.c_str()));
    EXPECT_TRUE(SameFile(path.c_str(), folder.Path("one.fp").c_str()));
    EXPECT_TRUE(SameFile(path.c_str(), folder.Path(".\\ONE.FP").c_str()));
    EXPECT_TRUE(SameFile(path.c_str(), folder.Path("LINK.FP").c_str()));
    EXPECT_FALSE(SameFile(path.c_str(), folder.Path("TWO.FP").c_str()));
    EXPECT_FALSE(SameFile(path.c_str(), folder.Path("NONE.FP").c_str()));
    EXPECT_FALSE(SameFile(folder.Path("NONE.FP").c_str(), folder.Path("NONE.FP").c_str()));
}
