#include <gtest/gtest.h>

#include <vector>

#include "frame/host_data.h"

namespace {

// Blocks that are given up again, whatever the test did.
struct Blocks {
    std::vector<HostData> blocks = std::vector<HostData>(12);
    ~Blocks() {
        for (HostData &block : blocks) tessarine::RemoveCRepData(&block);
    }
};

} // namespace

TEST(HostData, BlockBecomesCurrentAndItsPointersAreCopied) {
    Blocks own;
    uint32_t word = 5;
    own.blocks[0].EditAllowed = &word;
    const int slot = tessarine::SetCRepData(&own.blocks[0]);
    EXPECT_EQ(tessarine::host_data.EditAllowed, &word);
    EXPECT_EQ(tessarine::SetCRepData(&own.blocks[0]), slot);
    EXPECT_EQ(tessarine::RemoveCRepData(&own.blocks[0]), slot);
    EXPECT_EQ(tessarine::host_data.EditAllowed, nullptr);
    EXPECT_EQ(tessarine::RemoveCRepData(&own.blocks[0]), 10);
}

TEST(HostData, PreviousBlockComesBackWhenTheCurrentOneGoes) {
    Blocks own;
    uint32_t first = 1;
    uint32_t second = 2;
    own.blocks[0].LabelTypePtr = &first;
    own.blocks[1].LabelTypePtr = &second;
    tessarine::SetCRepData(&own.blocks[0]);
    tessarine::SetCRepData(&own.blocks[1]);
    tessarine::RemoveCRepData(&own.blocks[1]);
    EXPECT_EQ(tessarine::host_data.LabelTypePtr, &first);
}

TEST(HostData, RemovedPreviousBlockDoesNotComeBack) {
    Blocks own;
    uint32_t word = 1;
    for (int block : {0, 1}) {
        own.blocks[static_cast<size_t>(block)].LabelTypePtr = &word;
        tessarine::SetCRepData(&own.blocks[static_cast<size_t>(block)]);
    }
    tessarine::RemoveCRepData(&own.blocks[0]);
    EXPECT_EQ(tessarine::host_data.LabelTypePtr, &word);
    tessarine::RemoveCRepData(&own.blocks[1]);
    EXPECT_EQ(tessarine::host_data.LabelTypePtr, nullptr);
}

TEST(HostData, PreviousBlockThatCameBackHasNoOtherBehindIt) {
    Blocks own;
    uint32_t words[3] = {1, 2, 3};
    for (size_t block = 0; block < 3; ++block) {
        own.blocks[block].LabelTypePtr = &words[block];
        tessarine::SetCRepData(&own.blocks[block]);
    }
    tessarine::RemoveCRepData(&own.blocks[2]);
    EXPECT_EQ(tessarine::host_data.LabelTypePtr, &words[1]);
    tessarine::RemoveCRepData(&own.blocks[1]);
    EXPECT_EQ(tessarine::host_data.LabelTypePtr, nullptr);
}

TEST(HostData, EleventhBlockGives10AndTheWorkingCopyIsReplaced) {
    Blocks own;
    uint32_t word = 3;
    own.blocks[10].LabelTypePtr = &word;
    for (int block = 0; block < 10; ++block)
        ASSERT_LT(tessarine::SetCRepData(&own.blocks[static_cast<size_t>(block)]), 10);
    EXPECT_EQ(tessarine::SetCRepData(&own.blocks[10]), 10);
    EXPECT_EQ(tessarine::host_data.LabelTypePtr, &word);
}

TEST(HostData, PinnedBlockStaysWhicheverIsPassed) {
    Blocks own;
    uint32_t pinned = 1;
    own.blocks[0].PinnedPtr = &pinned;
    const int slot = tessarine::SetCRepData(&own.blocks[0]);
    uint32_t other = 2;
    own.blocks[1].LabelTypePtr = &other;
    EXPECT_EQ(tessarine::SetCRepData(&own.blocks[1]), slot);
    EXPECT_EQ(tessarine::host_data.LabelTypePtr, nullptr);
    EXPECT_EQ(tessarine::SetCRepData(nullptr), slot);
    pinned = 0;
    EXPECT_EQ(tessarine::SetCRepData(nullptr), 10);
    EXPECT_EQ(tessarine::host_data.PinnedPtr, &pinned);
    EXPECT_NE(tessarine::SetCRepData(&own.blocks[1]), slot);
}

TEST(HostData, BlockThatIsNeitherCurrentNorPreviousGoesWithoutAChange) {
    Blocks own;
    uint32_t word = 1;
    own.blocks[2].LabelTypePtr = &word;
    for (int block = 0; block < 3; ++block)
        tessarine::SetCRepData(&own.blocks[static_cast<size_t>(block)]);
    EXPECT_EQ(tessarine::RemoveCRepData(&own.blocks[0]), 0);
    EXPECT_EQ(tessarine::host_data.LabelTypePtr, &word);
    EXPECT_EQ(tessarine::RemoveCRepData(&own.blocks[1]), 1); // the previous one
    EXPECT_EQ(tessarine::RemoveCRepData(&own.blocks[2]), 2);
    EXPECT_EQ(tessarine::host_data.LabelTypePtr, nullptr);
}

TEST(NewFormData, EmptyNameOrNullTurnsTheBlockOff) {
    NewFormData block{};
    block.NewFormName[0] = 'A';
    block.NewFormFile[0] = 'B';
    EXPECT_EQ(tessarine::SetNewFormData(&block), 1);
    EXPECT_STREQ(tessarine::new_form_data.NewFormName, "A");
    EXPECT_EQ(tessarine::SetNewFormData(nullptr), 1);
    EXPECT_STREQ(tessarine::new_form_data.NewFormName, "");
    EXPECT_STREQ(tessarine::new_form_data.NewFormFile, "");
    tessarine::SetNewFormData(&block);
    block.NewFormName[0] = 0;
    EXPECT_EQ(tessarine::SetNewFormData(&block), 1);
    EXPECT_STREQ(tessarine::new_form_data.NewFormName, "");
}
