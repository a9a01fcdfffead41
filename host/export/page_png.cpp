#include "host/export/page_png.h"

#include <algorithm>

#include "host/base/failure.h"
#include "host/export/page_play.h"
#include "host/export/picture.h"

namespace {

constexpr int MOST_SAMPLES = 3; // by which text is smoothed, across and down
constexpr int MOST_PIXELS = 60'000'000;

void PlaySheet(HDC device, const ReportPages &report, int page, int dpi) {
    const HMETAFILE metafile = MetafileOf(report.Page(page));
    if (!metafile) throw Failure("there is no memory for page " + std::to_string(page));
    PlayPage(device, metafile, {0, 0}, dpi);
    DeleteMetaFile(metafile);
}

} // namespace

void WritePagePng(const ReportPages &report, int page, int dpi, const std::string &path) {
    const int width = static_cast<int>(report.Header().PaperWidth * static_cast<float>(dpi));
    const int height = static_cast<int>(report.Header().PaperHeight * static_cast<float>(dpi));
    if (width < 1 || height < 1) throw Failure(path + ": the report names no paper size");
    int samples = MOST_SAMPLES;
    while (samples > 1 && static_cast<int64_t>(width) * height * samples * samples > MOST_PIXELS)
        --samples;
    const Picture picture(width * samples, height * samples);
    PlaySheet(picture.Device(), report, page, dpi * samples);
    picture.Write(path, samples);
}
