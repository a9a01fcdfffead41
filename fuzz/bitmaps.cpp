#include <cstring>
#include <exception>

#include "fuzz/changes.h"
#include "fuzz/kinds.h"
#include "fuzz/places.h"
#include "fuzz/runs.h"
#include "host/forms/form_from_json.h"
#include "host/forms/form_image.h"
#include "state/windows.h"

namespace {

constexpr size_t FILE_HEADER = sizeof(BITMAPFILEHEADER);

constexpr const char *form_text =
    R"({"form":{"name":"Picture"},"fonts":[{"face":"Arial","points":9},{"name":"p","picture":"CASE.BMP","point width":72,
    "point height":72}],"sections":[{"section":"Detail Section 1","height":300,"items":[
    {"item":"picture","at":[200,0],"size":[250,250],"font":"p"}]}]})";

// A bitmap of some depth, 9 by 5 pixels.
std::string Bitmap(int depth, uint32_t compression, size_t colors, const std::string &bits) {
    BITMAPINFOHEADER info{};
    info.biSize = sizeof info;
    info.biWidth = 9;
    info.biHeight = 5;
    info.biPlanes = 1;
    info.biBitCount = static_cast<WORD>(depth);
    info.biCompression = compression;
    info.biSizeImage = compression ? static_cast<DWORD>(bits.size()) : 0;
    std::string rest(reinterpret_cast<const char *>(&info), sizeof info);
    for (size_t byte = 0; byte < colors * 4; ++byte) rest += static_cast<char>(byte * 29);
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;
    file.bfOffBits = static_cast<DWORD>(FILE_HEADER + rest.size());
    file.bfSize = static_cast<DWORD>(file.bfOffBits + bits.size());
    return std::string(reinterpret_cast<const char *>(&file), FILE_HEADER) + rest + bits;
}

std::string Plain(int depth) {
    const size_t row = static_cast<size_t>(9 * depth + 31) / 32 * 4;
    return Bitmap(depth, BI_RGB, depth <= 8 ? size_t{1} << depth : 0, std::string(row * 5, '\x5A'));
}

std::vector<std::string> Seeds() {
    const std::string runs("\x09\x11\x00\x00\x04\x22\x05\x33\x00\x00\x00\x01", 12);
    const std::string masks("\x00\x00\xFF\x00\x00\xFF\x00\x00\xFF\x00\x00\x00", 12);
    return {Plain(1),
            Plain(4),
            Plain(8),
            Plain(16),
            Plain(24),
            Plain(32),
            Bitmap(8, BI_RLE8, 256, runs),
            Bitmap(4, BI_RLE4, 16, runs),
            Bitmap(32, BI_BITFIELDS, 0, masks + std::string(180, '\x5A'))};
}

std::string Changed(Random *random, const std::string &input) {
    std::string bytes = input;
    BITMAPINFOHEADER info{};
    if (bytes.size() < FILE_HEADER + sizeof info || random->OneIn(3))
        return ChangedBytes(random, bytes);
    std::memcpy(&info, bytes.data() + FILE_HEADER, sizeof info);
    ChangeRecord(random, &info, offsetof(BITMAPINFOHEADER, biXPelsPerMeter));
    std::memcpy(bytes.data() + FILE_HEADER, &info, sizeof info);
    return random->OneIn(4) ? ChangedBytes(random, bytes) : bytes;
}

// The same blocks as a form file would hold them, whatever they are.
void RunAsItIs(const std::string &input) {
    static const FormImage plain = [] {
        WriteScratch("CASE.BMP", Plain(24));
        return FormFromJson("case.json", form_text, ScratchPath(""));
    }();
    BITMAPFILEHEADER file{};
    if (input.size() < FILE_HEADER) return;
    std::memcpy(&file, input.data(), FILE_HEADER);
    const size_t bits = file.bfOffBits < input.size() && file.bfOffBits > FILE_HEADER
                            ? file.bfOffBits
                            : input.size();
    FormImage form = plain;
    form.fonts.back().info = input.substr(FILE_HEADER, bits - FILE_HEADER);
    form.fonts.back().bits = input.substr(bits);
    WriteScratch("CASE.FP", FormBytes(form));
    RunForm("CASE.FP");
}

void Run(const std::string &input) {
    RunAsItIs(input);
    WriteScratch("CASE.BMP", input);
    try {
        WriteScratch("CASE.FP", FormBytes(FormFromJson("case.json", form_text, ScratchPath(""))));
        RunForm("CASE.FP");
    } catch (const std::exception &) { // told to the user
    }
}

} // namespace

const Kind bitmaps = {"bitmap", Seeds, Changed, Run};
