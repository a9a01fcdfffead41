#include "form/bitmaps.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "tests/support/bitmaps.h"

using namespace tessarine;

namespace {

// Bytes at the very end of their pages: what lies behind them can't be read.
class GuardedBytes {
public:
    explicit GuardedBytes(const std::string &bytes) : size_(bytes.size()) {
        const size_t pages = (size_ + PAGE - 1) / PAGE * PAGE;
        memory_ = static_cast<char *>(
            VirtualAlloc(nullptr, pages + PAGE, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
        DWORD old = 0;
        VirtualProtect(memory_ + pages, PAGE, PAGE_NOACCESS, &old);
        bytes_ = memory_ + pages - size_;
        bytes.copy(bytes_, size_);
    }
    ~GuardedBytes() { VirtualFree(memory_, 0, MEM_RELEASE); }
    GuardedBytes(const GuardedBytes &) = delete;
    GuardedBytes &operator=(const GuardedBytes &) = delete;
    char *Get() const { return bytes_; }
    std::string Bytes() const { return std::string(bytes_, size_); }

private:
    static constexpr size_t PAGE = 4096;
    size_t size_;
    char *memory_;
    char *bytes_;
};

// A bitmap in guarded memory, checked and then drawn in all the ways of the library.
class CheckedBitmap {
public:
    CheckedBitmap(const std::string &info, const std::string &bits) : info_(info), bits_(bits) {
        sound = MendBitmap(Info(), info.size(), bits_.Get(), bits.size());
    }
    std::string InfoBytes() const { return info_.Bytes(); }
    const BITMAPINFOHEADER &Header() const { return Info()->bmiHeader; }

    // The colours of the corners at the top left and the bottom right.
    std::pair<COLORREF, COLORREF> Draw() const {
        Record();
        const HDC screen = GetDC(nullptr);
        const HDC memory = CreateCompatibleDC(screen);
        const int height = std::abs(Header().biHeight);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, Header().biWidth, height);
        SetDIBits(screen, bitmap, 0, static_cast<UINT>(height), bits_.Get(), Info(),
                  DIB_RGB_COLORS);
        const HGDIOBJ old = SelectObject(memory, bitmap);
        const std::pair<COLORREF, COLORREF> corners{
            GetPixel(memory, 0, 0), GetPixel(memory, Header().biWidth - 1, height - 1)};
        StretchDIBits(memory, 0, 0, 9, 9, 0, 0, Header().biWidth, Header().biHeight, bits_.Get(),
                      Info(), DIB_RGB_COLORS, SRCCOPY);
        SelectObject(memory, old);
        DeleteObject(bitmap);
        DeleteDC(memory);
        ReleaseDC(nullptr, screen);
        return corners;
    }

    BITMAPINFO *Info() const { return reinterpret_cast<BITMAPINFO *>(info_.Get()); }

    bool sound;

private:
    void Record() const {
        const HDC page = CreateMetaFileA(nullptr);
        StretchDIBits(page, 0, 0, 9, 9, 0, 0, Header().biWidth, Header().biHeight, bits_.Get(),
                      FullBitmapInfo(*Info()).Get(), DIB_RGB_COLORS, SRCCOPY);
        DeleteMetaFile(CloseMetaFile(page));
    }

    GuardedBytes info_;
    GuardedBytes bits_;
};

std::string With(std::string bytes, size_t place, uint32_t value) {
    std::memcpy(bytes.data() + place, &value, sizeof value);
    return bytes;
}

DWORD MendedSize(const SampleBitmap &sample) {
    const bool compressed = sample.name.ends_with('1') || sample.name.ends_with('2');
    return compressed ? static_cast<DWORD>(sample.bits.size()) : 0;
}

constexpr size_t WIDTH = offsetof(BITMAPINFOHEADER, biWidth);
constexpr size_t HEIGHT = offsetof(BITMAPINFOHEADER, biHeight);
constexpr size_t IMAGE_SIZE = offsetof(BITMAPINFOHEADER, biSizeImage);
constexpr size_t COLORS = offsetof(BITMAPINFOHEADER, biClrUsed);

} // namespace

TEST(Bitmaps, SoundBitmapsOfEveryDepthAndCompressionPassAsTheyAre) {
    for (const SampleBitmap &sample : AllSampleBitmaps()) {
        SCOPED_TRACE(sample.name);
        const CheckedBitmap bitmap(sample.info, sample.bits);
        ASSERT_TRUE(bitmap.sound);
        EXPECT_EQ(bitmap.InfoBytes(), sample.info);
        EXPECT_EQ(bitmap.Draw(), (std::pair<COLORREF, COLORREF>(RGB(255, 0, 0), RGB(0, 0, 255))));
    }
}

TEST(Bitmaps, SizeOfTheImageIsMendedToWhatTheBitsHold) {
    for (const SampleBitmap &sample : AllSampleBitmaps()) {
        SCOPED_TRACE(sample.name);
        for (const uint32_t lie : {1u, 7u, 1000u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
            const CheckedBitmap bitmap(With(sample.info, IMAGE_SIZE, lie), sample.bits);
            ASSERT_TRUE(bitmap.sound);
            EXPECT_EQ(bitmap.Header().biSizeImage, MendedSize(sample)) << lie;
        }
    }
}

TEST(Bitmaps, PlainBitsMayLeaveTheSizeOfTheImageOut) {
    for (const SampleBitmap &sample : AllSampleBitmaps()) {
        const CheckedBitmap bitmap(With(sample.info, IMAGE_SIZE, 0), sample.bits);
        EXPECT_TRUE(bitmap.sound);
        EXPECT_EQ(bitmap.Header().biSizeImage, MendedSize(sample)) << sample.name;
    }
}

TEST(Bitmaps, DrawingsGetTheSizeAndTheColorsThatAHeaderLeavesOut) {
    for (const SampleBitmap &sample : AllSampleBitmaps()) {
        SCOPED_TRACE(sample.name);
        CheckedBitmap bitmap(With(sample.info, IMAGE_SIZE, 0), sample.bits);
        const FullBitmapInfo full(*bitmap.Info());
        const BITMAPINFOHEADER &header = full.Get()->bmiHeader;
        EXPECT_EQ(header.biSizeImage, sample.bits.size());
        EXPECT_EQ(header.biClrUsed, header.biBitCount <= 8 ? 1u << header.biBitCount : 0u);
        EXPECT_EQ(std::memcmp(full.Get()->bmiColors, sample.info.data() + sizeof header,
                              sample.info.size() - sizeof header),
                  0);
    }
}

TEST(Bitmaps, SizeThatCountsBytesBehindTheImageStays) {
    for (const SampleBitmap &sample : AllSampleBitmaps()) {
        const CheckedBitmap bitmap(With(sample.info, IMAGE_SIZE, sample.bits.size() + 2),
                                   sample.bits + "two more");
        EXPECT_TRUE(bitmap.sound);
        EXPECT_EQ(bitmap.Header().biSizeImage, sample.bits.size() + 2) << sample.name;
    }
}

TEST(Bitmaps, BlocksThatAreShorterThanTheHeaderSaysAreRefused) {
    for (const SampleBitmap &sample : AllSampleBitmaps()) {
        for (size_t cut = 1; cut <= sample.bits.size(); ++cut)
            EXPECT_FALSE(
                CheckedBitmap(sample.info, sample.bits.substr(0, sample.bits.size() - cut)).sound)
                << sample.name;
        for (const size_t cut : {1u, 4u, 40u})
            EXPECT_FALSE(
                CheckedBitmap(sample.info.substr(0, sample.info.size() - cut), sample.bits).sound)
                << sample.name;
    }
}

TEST(Bitmaps, HeadersThatNoBitmapHasAreRefused) {
    const SampleBitmap plain(8, BI_RGB);
    const SampleBitmap packed(8, BI_RLE8);
    const struct {
        size_t place;
        uint32_t value;
    } lies[] = {
        {0, 12},
        {0, 41},
        {WIDTH, 0},
        {WIDTH, 0xFFFFFFFF},
        {WIDTH, 5},
        {WIDTH, 65536},
        {HEIGHT, 0},
        {HEIGHT, 0x80000000},
        {HEIGHT, 3},
        {HEIGHT, 65536},
        {COLORS, 257},
        {COLORS, 0xFFFFFFFF},
        {12, 8u << 16},
        {12, 2 | 8u << 16},
        {12, 1 | 7u << 16},
        {12, 1 | 16u << 16},
        {16, BI_RLE4},
        {16, 4},
    };
    for (const auto &lie : lies) {
        const CheckedBitmap bitmap(With(plain.info, lie.place, lie.value), plain.bits);
        EXPECT_FALSE(bitmap.sound) << lie.place << " " << lie.value;
    }
    EXPECT_TRUE(CheckedBitmap(With(plain.info, HEIGHT, 0xFFFFFFFE), plain.bits).sound);
    const std::string end_mark("\0\1", 2);
    for (const std::string &runs : {packed.bits, end_mark}) // those stand bottom up alone
        EXPECT_FALSE(CheckedBitmap(With(packed.info, HEIGHT, 0xFFFFFFFE), runs).sound);
    // A few bytes of runs that would take more memory than any device has.
    const std::string vast = With(With(packed.info, WIDTH, 65536), HEIGHT, 65536);
    EXPECT_FALSE(CheckedBitmap(vast, packed.bits).sound);
}

TEST(Bitmaps, RunsStayInsideTheirRowsAndTheirBlock) {
    using namespace std::string_literals;
    const SampleBitmap sample(8, BI_RLE8);
    const struct {
        std::string bits;
        bool sound;
    } cases[] = {
        {"\4\1\0\0\4\2\0\1"s, true},
        {"\4\1\0\0\4\2\0\0\0\1"s, true},
        {"\0\1"s, true},
        {"\0\2\3\1\1\2\0\1"s, true},
        {"\5\1\0\1"s, false},
        {"\0\2\5\0\0\1"s, false},
        {"\0\2\0\3\0\1"s, false},
        {"\0\0\0\0\1\1\0\1"s, false},
        {"\0\3\1\2\3\0\0\1"s, true},
        {"\0\3\1\2\3"s, false},
        {"\0\xFF\1\2"s, false},
        {"\0\2\1"s, false},
        {"\4\1\0\0\4\2"s, false},
        {"\4"s, false},
        {"\0\0\0\0\0\0\0\1"s, false},
    };
    for (const auto &row : cases)
        EXPECT_EQ(CheckedBitmap(sample.info, row.bits).sound, row.sound)
            << testing::PrintToString(row.bits);
}

TEST(Bitmaps, NoFourBytesMakeADrawingReadBehindItsBlocks) {
    std::mt19937 random(1);
    const uint32_t values[] = {0,     1,          2,          3,          4,         5,
                               8,     16,         255,        256,        257,       65535,
                               65536, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
    int drawn = 0;
    for (const SampleBitmap &sample : AllSampleBitmaps()) {
        const auto attempt = [&](const std::string &info, const std::string &bits) {
            const CheckedBitmap bitmap(info, bits);
            if (!bitmap.sound ||
                std::abs(bitmap.Header().biWidth * 1.0 * bitmap.Header().biHeight) > 1e6)
                return;
            bitmap.Draw();
            ++drawn;
        };
        for (size_t place = 0; place + 4 <= sizeof(BITMAPINFOHEADER); place += 2)
            for (const uint32_t value : values)
                attempt(With(sample.info, place, value), sample.bits);
        for (int round = 0; round < 200; ++round) {
            const size_t place = random() % (sample.bits.size() - 3);
            attempt(sample.info, With(sample.bits, place, random() & 0x03030303));
            attempt(With(sample.info, random() % (sample.info.size() - 3), random()), sample.bits);
        }
    }
    EXPECT_GT(drawn, 1000);
}
