// Bitmap files that a form as text names.
#include <gtest/gtest.h>

#include "host/base/failure.h"
#include "host/forms/form_from_json.h"
#include "tests/support/bitmaps.h"
#include "tests/support/test_session.h"

namespace {

class FormPictures : public testing::Test {
protected:
    // The picture of a form that names a bitmap file with these blocks.
    FontImage PictureOf(const std::string &info, const std::string &bits) {
        BITMAPFILEHEADER file{};
        file.bfType = 0x4D42;
        file.bfOffBits = static_cast<DWORD>(sizeof file + info.size());
        WriteWholeFile(folder.Path("a.bmp"),
                       std::string(reinterpret_cast<const char *>(&file), sizeof file) + info +
                           bits);
        return FormFromJson("f.json",
                            R"({ "form": {}, "fonts": [ { "point height": 36, "point width": 72,
                                "picture": "a.bmp" } ] })",
                            folder.Path(""))
            .fonts.at(0);
    }
    TemporaryFolder folder;
};

} // namespace

TEST_F(FormPictures, BitmapsOfEveryDepthAndCompressionGoIntoTheForm) {
    for (const SampleBitmap &sample : AllSampleBitmaps()) {
        const FontImage picture = PictureOf(sample.info, sample.bits);
        EXPECT_EQ(picture.info, sample.info) << sample.name;
        EXPECT_EQ(picture.bits, sample.bits) << sample.name;
    }
}

TEST_F(FormPictures, FileThatHoldsFewerBitsThanItsSizeNeedsIsTold) {
    const SampleBitmap sample(24, BI_RGB);
    try {
        PictureOf(sample.info, sample.bits.substr(1));
        ADD_FAILURE() << "taken";
    } catch (const Failure &failure) {
        EXPECT_STREQ(failure.what(), "f.json:2: /fonts/0/picture: a.bmp is cut off: it holds fewer "
                                     "bits than its size needs");
    }
}
