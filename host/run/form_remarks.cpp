#include "host/run/form_remarks.h"

#include <cstring>
#include <set>

#include <windows.h>

#include "host/forms/fixed_text.h"

namespace {

class Device {
public:
    explicit Device(HDC device) : device_(device) {}
    ~Device() { DeleteDC(device_); }
    Device(const Device &) = delete;
    Device &operator=(const Device &) = delete;

    bool Has(const char *face) const {
        LOGFONTA font{};
        font.lfCharSet = DEFAULT_CHARSET;
        std::strcpy(font.lfFaceName, face);
        bool found = false;
        EnumFontFamiliesExA(device_, &font, Note, reinterpret_cast<LPARAM>(&found), 0);
        return found;
    }
    // The font that text in this one is drawn with.
    std::string Face(const PortableFont &portable) const {
        const HFONT font = CreateFontA(
            portable.Height, 0, 0, 0, portable.Weight, portable.Italic, portable.Underline,
            portable.StrikeOut, portable.CharSet, portable.OutPrecision, portable.ClipPrecision,
            portable.Quality, portable.PitchAndFamily, portable.FaceName);
        if (!font) return "";
        char face[LF_FACESIZE] = "";
        const HGDIOBJ before = SelectObject(device_, font);
        GetTextFaceA(device_, sizeof face, face);
        SelectObject(device_, before);
        DeleteObject(font);
        return face;
    }

private:
    static int CALLBACK Note(const LOGFONTA *, const TEXTMETRICA *, DWORD, LPARAM parameter) {
        *reinterpret_cast<bool *>(parameter) = true;
        return 0;
    }

    HDC device_;
};

std::set<int> FontsInUse(const FormImage &form) {
    std::set<int> rows;
    for (const ItemRecord &item : form.items)
        if (item.ItemType == ITEM_LABEL || item.ItemType == ITEM_FIELD) rows.insert(item.FontIndex);
    return rows;
}

} // namespace

std::vector<std::string> PrinterRemarks(const FormHeader &form, const std::string &printer) {
    const std::string own = FixedText(form.PrinterDevice);
    if (own.empty() || !lstrcmpiA(own.c_str(), printer.c_str())) return {};
    return {"its printer \"" + own + "\" isn't on this machine; \"" + printer +
            "\" takes its place"};
}

std::vector<std::string> FontRemarks(const FormImage &form, const std::string &printer) {
    const Device display(CreateCompatibleDC(nullptr));
    const Device device(CreateICA("WINSPOOL", printer.c_str(), nullptr, nullptr));
    std::set<std::string> told;
    std::vector<std::string> remarks;
    for (const int row : FontsInUse(form)) {
        if (row < 0 || row >= static_cast<int>(form.fonts.size())) continue;
        const FontImage &image = form.fonts[static_cast<size_t>(row)];
        PortableFont font = image.font;
        font.FaceName[sizeof font.FaceName - 1] = 0;
        if (image.picture || !*font.FaceName || display.Has(font.FaceName) ||
            device.Has(font.FaceName) || !told.insert(font.FaceName).second)
            continue;
        remarks.push_back("its font \"" + std::string(font.FaceName) +
                          "\" isn't on this machine; \"" + display.Face(font) +
                          "\" takes its place");
    }
    return remarks;
}
