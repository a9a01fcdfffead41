#include <cstring>
#include <exception>

#include "fuzz/changes.h"
#include "fuzz/kinds.h"
#include "fuzz/places.h"
#include "fuzz/runs.h"
#include "host/export/page_play.h"
#include "host/export/page_text.h"
#include "host/export/picture.h"
#include "host/export/report_pages.h"
#include "tests/support/test_session.h"

namespace {

constexpr int MOST_PAGES = 3;
constexpr double PIXELS_PER_INCH = 40;

std::vector<std::string> Seeds() {
    std::vector<std::string> reports;
    for (const std::string &json : SeedForms()) {
        WriteScratch("SEED.FP", FormFile(json));
        RunForm("SEED.FP");
        reports.push_back(ReadWholeFile(ScratchPath(FuzzRun::ReportName())));
    }
    return reports;
}

// Odd numbers in the header, in the page table, or at a record of a page.
std::string Changed(Random *random, const std::string &input) {
    std::string bytes = input;
    ReportFileHeader header{};
    if (bytes.size() < sizeof header || random->OneIn(4)) return ChangedBytes(random, bytes);
    std::memcpy(&header, bytes.data(), sizeof header);
    const uint32_t number = OddNumber(random);
    size_t place = sizeof header + random->Below(bytes.size() - sizeof header) / 2 * 2;
    if (random->OneIn(3)) {
        ChangeRecord(random, &header, offsetof(ReportFileHeader, Reserved108));
        std::memcpy(bytes.data(), &header, sizeof header);
        return bytes;
    }
    if (random->OneIn(3) && header.PageTableOffset > 0)
        place = static_cast<size_t>(header.PageTableOffset) + random->Below(4) * 4;
    const size_t size = random->OneIn(2) ? 2 : 4;
    if (place + size <= bytes.size()) std::memcpy(bytes.data() + place, &number, size);
    return bytes;
}

void View(const std::string &input) {
    WriteScratch("CASE.FRC", input);
    int32_t pages = 1;
    for (int32_t page = 1; page <= pages && page <= MOST_PAGES; ++page) {
        RepViewParams block{};
        std::strcpy(block.ReportFileName, ScratchPath("CASE.FRC").c_str());
        std::strcpy(block.TempDir, ScratchPath("").c_str());
        block.Device = 'P';
        block.Silent = 1;
        int32_t number = page;
        if (const HMETAFILE metafile = RepView(&block, &number, nullptr, nullptr)) {
            DeleteMetaFile(metafile);
            pages = number;
        }
    }
}

void Play(const std::string &bytes) {
    static const Picture picture(360, 480);
    PageText(bytes);
    const HMETAFILE page = MetafileOf(bytes);
    if (!page) return;
    const int state = SaveDC(picture.Device());
    PlayPage(picture.Device(), page, {}, PIXELS_PER_INCH);
    RestoreDC(picture.Device(), state);
    DeleteMetaFile(page);
}

void PlayPageOf(const ReportPages &report, int page) {
    try {
        Play(report.Page(page));
    } catch (const std::exception &) { // told to the user
    }
}

void ReadPages(const std::string &input) {
    WriteScratch("CASE.FRC", input);
    try {
        const ReportPages report(ScratchPath("CASE.FRC"));
        for (int page = 1; page <= report.Count() && page <= MOST_PAGES; ++page)
            PlayPageOf(report, page);
    } catch (const std::exception &) { // told to the user
    }
}

} // namespace

const Kind report_files = {"report", Seeds, Changed, View};
const Kind report_pages = {"pages", Seeds, Changed, ReadPages};
