#include "form/fonts.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "frame/mapping.h"
#include "frame/message_box.h"
#include "frame/owned.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int TENTHS_PER_INCH = 720; // tenths of a point

void SelectStockFonts(const Session *session) {
    const HGDIOBJ system_font = GetStockObject(SYSTEM_FONT);
    if (session->drawing.ScreenDC) SelectObject(session->drawing.ScreenDC, system_font);
    if (session->printer.InfoDevice) SelectObject(session->printer.InfoDevice, system_font);
}

bool ReadMetrics(HDC device, HFONT font, TEXTMETRICA *metrics) {
    const HGDIOBJ old_font = SelectObject(device, font);
    if (!old_font) return false;
    const bool read = GetTextMetricsA(device, metrics);
    SelectObject(device, old_font);
    return read;
}

// A negative height is the characters' height already; reading it off a device would round it to
// that device's pixels, and a point be lost with each reading.
int CharacterHeight(HDC device, const LOGFONTA &font) {
    if (font.lfHeight < 0) return -font.lfHeight;
    const OwnedDrawingObject made(CreateFontIndirectA(&font));
    TEXTMETRICA metrics{};
    if (!made || !ReadMetrics(device, static_cast<HFONT>(made.Get()), &metrics)) return 0;
    return std::abs(metrics.tmHeight - metrics.tmInternalLeading);
}

// The size in whole points, whatever device the form was made on.
void NormaliseHeight(HDC device, LOGFONTA *font) {
    const int height = CharacterHeight(device, *font);
    if (!height) return;
    const int tenths = MulDiv(height, TENTHS_PER_INCH, UNITS_PER_INCH);
    const int points = static_cast<int>(tenths / 10.0 + 0.5) * 10;
    font->lfHeight = -MulDiv(points, UNITS_PER_INCH, TENTHS_PER_INCH);
}

// Designers ask for all widths at once; a report measures each character alone, as it will print.
bool AskWidths(const Session *session, HDC device, const TEXTMETRICA &metrics, FontEntry *row) {
    INT widths[256];
    if (session->SessionKind != KIND_DESIGNER || !GetCharWidthA(device, 0, 255, widths))
        return false;
    for (int character = 0; character < 256; ++character)
        row->CharWidth[character] = widths[character] - metrics.tmOverhang;
    return true;
}

void MeasureWidths(HDC device, FontEntry *row) {
    row->CharWidth[0] = 0;
    for (int character = 1; character < 256; ++character) {
        const char text = static_cast<char>(character);
        SIZE size{};
        GetTextExtentPointA(device, &text, 1, &size);
        row->CharWidth[character] = size.cx;
    }
}

void TakeWidths(const Session *session, HDC device, const TEXTMETRICA &metrics, FontEntry *row) {
    const HGDIOBJ old_font = SelectObject(device, row->Font);
    if (!AskWidths(session, device, metrics, row)) MeasureWidths(device, row);
    SelectObject(device, old_font);
}

// The screen with the unit mapping, for as long as it stands.
class MappedScreen {
public:
    explicit MappedScreen(Session *session)
        : screen_(GetDC(nullptr)), pixels_(session, screen_), saved_(SaveDC(screen_)) {
        ApplyMapping(session, screen_);
    }
    MappedScreen(const MappedScreen &) = delete;
    MappedScreen &operator=(const MappedScreen &) = delete;
    ~MappedScreen() {
        RestoreDC(screen_, saved_);
        ReleaseDC(nullptr, screen_);
    }
    HDC Get() const { return screen_; }

private:
    HDC screen_;
    PixelsOf pixels_;
    int saved_;
};

void DeleteOldFont(const Session *session, FontEntry *row) {
    if (!row->Font) return;
    SelectStockFonts(session);
    DeleteObject(row->Font);
    row->Font = nullptr;
}

// Makes the font for the device, with the measures that it has on another.
int MakeMeasured(Session *session, HDC device, HDC measuring, int number, bool normalise) {
    FontEntry *row = &session->form.Fonts[number];
    if (normalise) NormaliseHeight(measuring, &row->LogFont);
    row->Font = CreateFontIndirectA(&row->LogFont);
    TEXTMETRICA metrics{};
    if (!row->Font || !ReadMetrics(device, row->Font, &metrics) || metrics.tmAscent == 0) return 0;
    if (number == 0) session->device.Metrics = metrics;
    if (measuring != device && !ReadMetrics(measuring, row->Font, &metrics)) return 0;
    TakeWidths(session, measuring, metrics, row);
    row->Height = static_cast<uint32_t>(metrics.tmHeight);
    row->Ascent = static_cast<uint32_t>(metrics.tmAscent);
    row->InUse = 1;
    return 1;
}

} // namespace

bool SameFont(const LOGFONTA &a, const LOGFONTA &b) {
    return !std::memcmp(&a, &b, offsetof(LOGFONTA, lfFaceName)) &&
           !std::strcmp(a.lfFaceName, b.lfFaceName);
}

int MakeFont(Session *session, HDC device, int number, bool normalise) {
    FontEntry *row = &session->form.Fonts[number];
    if (row->IsPicture) return 1;
    DeleteOldFont(session, row);
    row->LogFont.lfFaceName[LF_FACESIZE - 1] = 0;
    if (!session->OutputToPrinter) return MakeMeasured(session, device, device, number, normalise);
    // A run to the printer has the screen's measures, so that all outputs break lines and pages
    // alike.
    const MappedScreen screen(session);
    return MakeMeasured(session, device, screen.Get(), number, normalise);
}

int SetDefaultFont(Session *session, HDC device, int row, const char *face, int points) {
    LOGFONTA &font = session->form.Fonts[row].LogFont;
    font = LOGFONTA{};
    font.lfHeight = -(points * UNITS_PER_INCH / 72);
    CopyText(face, font.lfFaceName, sizeof font.lfFaceName);
    return MakeFont(session, device, row, false);
}

void ClearFontRow(Session *session, int row) { session->form.Fonts[row] = FontEntry{}; }

bool ReadPortableFont(const PortableFont &packed, LOGFONTA *font) {
    font->lfHeight = packed.Height;
    font->lfWidth = packed.Width;
    font->lfEscapement = packed.Escapement;
    font->lfOrientation = packed.Orientation;
    font->lfWeight = packed.Weight;
    font->lfItalic = packed.Italic;
    font->lfUnderline = packed.Underline;
    font->lfStrikeOut = packed.StrikeOut;
    font->lfCharSet = packed.CharSet;
    font->lfOutPrecision = packed.OutPrecision;
    font->lfClipPrecision = packed.ClipPrecision;
    font->lfQuality = packed.Quality;
    font->lfPitchAndFamily = packed.PitchAndFamily;
    CopyText(packed.FaceName, font->lfFaceName, sizeof font->lfFaceName - 1);
    return true;
}

bool WritePortableFont(const LOGFONTA &font, PortableFont *packed) {
    for (const LONG number :
         {font.lfHeight, font.lfWidth, font.lfEscapement, font.lfOrientation, font.lfWeight})
        if (number < INT16_MIN || number > INT16_MAX) return false;
    *packed = PortableFont{};
    packed->Height = static_cast<int16_t>(font.lfHeight);
    packed->Width = static_cast<int16_t>(font.lfWidth);
    packed->Escapement = static_cast<int16_t>(font.lfEscapement);
    packed->Orientation = static_cast<int16_t>(font.lfOrientation);
    packed->Weight = static_cast<int16_t>(font.lfWeight);
    packed->Italic = font.lfItalic;
    packed->Underline = font.lfUnderline;
    packed->StrikeOut = font.lfStrikeOut;
    packed->CharSet = font.lfCharSet;
    packed->OutPrecision = OUT_TT_ONLY_PRECIS;
    packed->ClipPrecision = font.lfClipPrecision;
    packed->Quality = font.lfQuality;
    packed->PitchAndFamily = font.lfPitchAndFamily;
    CopyText(font.lfFaceName, packed->FaceName, sizeof packed->FaceName - 1);
    return true;
}

} // namespace tessarine
