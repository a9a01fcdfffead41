// Damaged report files: no page of theirs crashes or holds up what plays it, or loses a text
// unseen.
#include <algorithm>
#include <cstring>

#include "host/base/failure.h"
#include "host/export/page_check.h"
#include "host/export/page_play.h"
#include "host/export/page_text.h"
#include "host/export/picture.h"
#include "host/export/report_pages.h"
#include "host/run/unattended.h"
#include "host/view/report_reader.h"
#include "tests/support/tess_program.h"

namespace {

constexpr const char *FORM = R"json({
  "form": { "name": "Small" },
  "fonts": [ { "name": "text", "face": "Arial", "points": 9 },
             { "name": "p", "point height": 12, "point width": 24,
               "picture info": "2800000008000000020000000100010000000000080000000000000000000000020000000000000000000000ffffff00",
               "picture bits": "aa00000055000000" } ],
  "fields": [ { "name": "N", "type": "numeric" } ],
  "sections": [
    { "section": "Page Header", "height": 60, "items": [
      { "item": "label", "at": [100, 0], "size": [300, 40], "text": "head", "flags": ["background"],
        "brush": { "style": 2, "color": "#102030", "hatch": 4 }, "outline": ["left", "top"] },
      { "item": "picture", "at": [500, 0], "size": [90, 40], "font": "p" } ] },
    { "section": "Detail Section 1", "height": 60, "flags": ["page before"], "items": [
      { "item": "field", "at": [100, 0], "size": [200, 40], "field": "N" },
      { "item": "line", "at": [500, 0], "size": [90, 40], "line angle": 3 } ] } ]
})json";

constexpr size_t METAFILE_HEADER = 18; // bytes

uint16_t WordAt(const std::string &bytes, size_t place) {
    return static_cast<uint16_t>(static_cast<unsigned char>(bytes[place]) |
                                 static_cast<unsigned char>(bytes[place + 1]) << 8);
}

class DamagedReports : public Tess {
protected:
    DamagedReports() : report(folder.Path("r.frc")) {
        WriteWholeFile(folder.Path("f.json"), FORM);
        WriteWholeFile(folder.Path("t.csv"), "N\n1\n2\n");
        EXPECT_EQ(Run("form build " + folder.Path("f.json") + " " + folder.Path("f.fp")).code, 0u);
        const Outcome run = Run("run --form " + folder.Path("f.fp") + " --data " +
                                folder.Path("t.csv") + " --output " + report);
        EXPECT_EQ(run.code, 0u) << run.output;
        sound = ReadWholeFile(report);
        std::memcpy(&header, sound.data(), sizeof header);
    }

    // Where a page begins in the report.
    size_t Start(int page) const {
        uint32_t start = 0;
        std::memcpy(&start,
                    sound.data() + header.PageTableOffset + static_cast<size_t>(page - 1) * 4,
                    sizeof start);
        return start;
    }
    // Where the first record of a function begins in a page.
    size_t Record(int page, uint16_t function) const {
        size_t place = Start(page) + METAFILE_HEADER;
        while (WordAt(sound, place + 4) != function) place += WordAt(sound, place) * size_t{2};
        return place;
    }
    void Damage(size_t place, uint16_t word) {
        std::string bytes = sound;
        bytes[place] = static_cast<char>(word);
        bytes[place + 1] = static_cast<char>(word >> 8);
        WriteWholeFile(report, bytes);
    }
    void ExpectTold(const std::string &text) {
        for (const std::string &command :
             {"pages " + report + " --text", "pages " + report + " --png " + folder.Path("png"),
              "pdf " + report + " " + folder.Path("r.pdf"), "print " + report}) {
            const Outcome outcome = Run(command);
            EXPECT_EQ(outcome.code, 1u) << command << outcome.output;
            EXPECT_TRUE(Holds(outcome.output, "r.frc: page 2 is damaged: ")) << outcome.output;
            EXPECT_TRUE(Holds(outcome.output, text)) << outcome.output;
        }
        EXPECT_EQ(Run("pages " + report + " --text --pages 1").code, 0u);
    }

    std::string report;
    std::string sound;
    ReportFileHeader header{};
};

size_t TextCount(const std::string &page) {
    const std::string text = PageText(page);
    return static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
}

void Play(const std::string &page) {
    constexpr int SIDE = 100;
    const Picture picture(SIDE, SIDE);
    const HMETAFILE metafile = MetafileOf(page);
    PlayPage(picture.Device(), metafile, {0, 0}, SIDE / 10);
    DeleteMetaFile(metafile);
}

void ReadAll(const std::string &path) {
    try {
        ReportReader report(path);
        for (int page = 1; page <= std::min(report.PageCount(), 3); ++page) report.Page(page);
    } catch (const Failure &failure) {
        EXPECT_NE(std::string(failure.what()).find("r.frc: "), std::string::npos);
    }
}

} // namespace

TEST_F(DamagedReports, RecordWithoutASizeIsToldWithItsPage) {
    Damage(Record(2, META_EXTTEXTOUT), 0);
    ExpectTold("has a wrong size");
}

TEST_F(DamagedReports, RecordThatPassesThePageIsTold) {
    Damage(Record(2, META_EXTTEXTOUT), 0x7000);
    ExpectTold("has a wrong size");
}

TEST_F(DamagedReports, TextLongerThanItsRecordIsTold) {
    Damage(Record(2, META_EXTTEXTOUT) + 10, 1000);
    ExpectTold("has a wrong size");
}

TEST_F(DamagedReports, NumberOfNoObjectIsTold) {
    Damage(Record(2, META_SELECTOBJECT) + 6, 9999);
    ExpectTold("names an object that isn't there");
}

TEST_F(DamagedReports, DeletedNumberOfNoObjectIsTold) {
    Damage(Record(2, META_DELETEOBJECT) + 6, 9999);
    ExpectTold("names an object that isn't there");
}

TEST_F(DamagedReports, PictureLargerThanItsRecordIsTold) {
    constexpr size_t WIDTH = 6 + 22 + 4; // of the bitmap's header behind the record's parameters
    Damage(Record(2, META_STRETCHDIB) + WIDTH, 0x7FFF);
    ExpectTold("has a wrong size");
}

TEST_F(DamagedReports, UnknownRecordIsTold) {
    Damage(Record(2, META_EXTTEXTOUT) + 4, 0x7777);
    ExpectTold("is of no known kind");
}

TEST_F(DamagedReports, PageWithoutItsEndIsTold) {
    const size_t end = static_cast<size_t>(header.PageTableOffset) - 6;
    Damage(end + 4, META_SAVEDC);
    ExpectTold("it has no end");
}

TEST_F(DamagedReports, EveryFlippedByteOfAPageIsToldOrLosesNoText) {
    const std::string page = ReportPages(report).Page(2);
    const size_t texts = TextCount(page);
    EXPECT_EQ(texts, 2u);
    int played = 0;
    for (size_t place = 0; place < page.size(); ++place)
        for (int mask = 1; mask < 256; mask = mask == 128 ? 255 : mask * 2) {
            std::string flipped = page;
            flipped[place] = static_cast<char>(flipped[place] ^ mask);
            if (!PageFault(flipped).empty()) continue;
            EXPECT_EQ(TextCount(flipped), texts) << place << " " << mask;
            Play(flipped);
            ++played;
        }
    EXPECT_GT(played, 100); // what is drawn may change
}

TEST_F(DamagedReports, EveryFlippedByteOfHeaderAndPageTableIsSoundOrTold) {
    const Unattended unattended({}, Person::ABSENT);
    for (size_t place = 0; place < sound.size(); ++place) {
        if (place == sizeof header) place = static_cast<size_t>(header.PageTableOffset);
        std::string flipped = sound;
        flipped[place] = static_cast<char>(~flipped[place]);
        WriteWholeFile(report, flipped);
        ReadAll(report);
    }
}

TEST_F(DamagedReports, EveryTruncatedReportIsTold) {
    for (size_t size = 0; size < sound.size(); size += 61) {
        WriteWholeFile(report, sound.substr(0, size));
        EXPECT_THROW(ReportPages(report).Page(1), Failure) << size;
    }
}
