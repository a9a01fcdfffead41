// Trial records, for aligning forms in the printer.
#include "commands.h"
#include "run/trial_print.h"
#include "tests/support/composition.h"
#include "tests/support/page_texts.h"

using tessarine::TrialPrint;

namespace {

using Lines = std::vector<std::string>;

class TrialRecords : public Composition {
protected:
    TrialRecords() { StartFile(); }
    void AddBands(int across = 1) {
        Band(SECTION_PAGE_HEADER, 50, "head");
        Band(SECTION_REPORT_HEADER, 50, "report");
        Section(SECTION_DETAIL_1, 50, 0, across);
        Marker("row");
        Band(SECTION_PAGE_FOOTER, 50, "foot");
    }
    int RowsOfATrial() {
        boxes.Answer(IDYES);
        TrialPrint(session);
        int rows = 0;
        for (const std::string &mark : PageMarks(0)) rows += mark.find("row") != std::string::npos;
        return rows;
    }
    const BoxRecord first{"Trial Print", "Print a Trial Record Now?", {IDYES, IDNO}};
    const BoxRecord again{"Trial Record", "Print another Trial Record?", {IDYES, IDNO}};
};

} // namespace

TEST_F(TrialRecords, NoPrintsNothing) {
    AddBands();
    TrialPrint(session);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{first}));
    EXPECT_TRUE(Marks().empty());
    EXPECT_EQ(run.TrialMode, 0);
}

TEST_F(TrialRecords, EverySectionPrintsOnceInTheOrderOfTheRows) {
    AddBands();
    boxes.Answer(IDYES);
    TrialPrint(session);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{first, again}));
    Lines words;
    for (const std::string &mark : PageMarks(0)) words.push_back(mark.substr(mark.find(' ') + 1));
    EXPECT_EQ(words, (Lines{"head", "report", "row", "foot", "foot"})); // the last ends the page
    EXPECT_TRUE(Marks().empty()); // the next page has no header
    EXPECT_EQ(session->report.PageCount, 1);
    EXPECT_EQ(run.TrialMode, 0);
}

TEST_F(TrialRecords, DetailFillsItsRowAcross) {
    AddBands(3);
    EXPECT_EQ(RowsOfATrial(), 3);
}

TEST_F(TrialRecords, DetailWithoutColumnsPrintsOnce) {
    AddBands(0);
    EXPECT_EQ(RowsOfATrial(), 1);
}

TEST_F(TrialRecords, YesRepeatsOnAFreshPage) {
    AddBands();
    for (const int answer : {IDYES, IDYES, IDYES, IDNO}) boxes.Answer(answer);
    TrialPrint(session);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{first, again, again, again}));
    EXPECT_EQ(session->report.PageCount, 1);
}

TEST_F(TrialRecords, DetailsAloneEndNoPage) {
    Section(SECTION_DETAIL_1, 50);
    Marker("row");
    boxes.Answer(IDYES);
    TrialPrint(session);
    EXPECT_EQ(Marks(), (Lines{"100 row"}));
}
