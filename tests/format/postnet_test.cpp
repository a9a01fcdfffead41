#include "format/postnet.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

using tessarine::PostnetText;

namespace {

struct Barcode {
    int result;
    std::string text;
};

Barcode Made(const std::string &zip, int limit = 300) {
    char text[320];
    strcpy(text, zip.c_str());
    const int result = PostnetText(text, static_cast<int>(zip.size()), limit);
    return {result, text};
}

} // namespace

TEST(PostnetText, CheckDigitIsTheSumsLastDigitAndNotItsComplement) {
    EXPECT_EQ(Made("12345-6789").text, "!1234567895!"); // the sum is 45
    EXPECT_EQ(Made("12345-6789").result, 1);
}

TEST(PostnetText, TakesFiveNineAndElevenDigits) {
    EXPECT_EQ(Made("12345").text, "!123455!");
    EXPECT_EQ(Made("99999").text, "!999995!");
    EXPECT_EQ(Made("920082324").text, "!9200823240!");
    EXPECT_EQ(Made("12345678901").text, "!123456789016!");
}

TEST(PostnetText, IgnoresHyphensWhereverTheyStandAndBlanksAtTheEnds) {
    EXPECT_EQ(Made("  1-2-3-4-5 ").text, "!123455!");
}

TEST(PostnetText, LeavesOtherCountsOfDigitsAsTheyAre) {
    for (const std::string zip : {"", "1234", "123456", "1234567890", "123456789012", "-"}) {
        const Barcode barcode = Made(zip);
        EXPECT_EQ(barcode.result, 0) << zip;
        EXPECT_EQ(barcode.text, zip);
    }
}

TEST(PostnetText, LeavesTextWithOtherCharactersAsItIs) {
    for (const std::string zip : {"1234a", "12 345", "12345.6789",
                                  "\xB2"
                                  "2345"}) {
        const Barcode barcode = Made(zip);
        EXPECT_EQ(barcode.result, 0) << zip;
        EXPECT_EQ(barcode.text, zip);
    }
}

TEST(PostnetText, NeedsRoomForTheFrameAndTheCheckDigit) {
    EXPECT_EQ(Made("12345", 8).result, 0);
    EXPECT_EQ(Made("12345", 9).result, 1);
    EXPECT_EQ(Made(" 12345 ", 9).result, 1);
}

TEST(PostnetText, LongTextOfDigitsIsNoZipCode) {
    const std::string digits(290, '7');
    EXPECT_EQ(Made(digits).result, 0);
    EXPECT_EQ(Made(digits).text, digits);
}
