// What the library saves it reads again.
#include <gtest/gtest.h>

#include "tests/support/bitmaps.h"
#include "tests/support/form_files.h"

using namespace tessarine;

namespace {

class SavedAgain : public FormFiles {
protected:
    FullForm form;
};

} // namespace

TEST_F(SavedAgain, PicturesOfEveryDepthAndCompressionAreSavedAsTheyWereRead) {
    form.Label(SECTION_DETAIL_1, 1000, 0, 100, 100, "").ItemType = ITEM_PICTURE;
    form.items[SECTION_DETAIL_1].back().FontIndex = 2;
    for (const SampleBitmap &sample : AllSampleBitmaps()) {
        const std::string bytes = WithFontRow(form.Bytes(), PictureRowOf(sample.info, sample.bits));
        ASSERT_EQ(ReadBytes(bytes), READ_DONE);
        const std::string path = folder.Path("PICTURE.FP");
        ASSERT_EQ(Save(path), 1);
        const std::string saved = ReadWholeFile(path);
        EXPECT_EQ(saved.substr(FormBlocks(saved).fonts), bytes.substr(FormBlocks(bytes).fonts))
            << sample.name;
    }
    EXPECT_TRUE(boxes.Log().empty()) << boxes.LastText();
}
