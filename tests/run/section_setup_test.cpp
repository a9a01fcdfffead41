#include "run/section_setup.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "frame/host_data.h"
#include "run/page_geometry.h"
#include "tests/support/failing_call.h"
#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

constexpr int BAR_HEIGHT = 40;

// Sections as a form has them: bars with their caption, items in form coordinates.
class SectionSetUp : public testing::Test {
protected:
    SectionSetUp() : input(MAX_FIELDS) {
        session->form.Header.BarHeight = BAR_HEIGHT;
        session->form.Header.LeftMargin = 0.5F;
        session->run.InputTable = input.data();
    }
    SectionRecord &Section(int number, int y, int height, int flags = 0) {
        number_ = number;
        SectionRecord &section = session->form.Sections[number];
        section.InUse = 1;
        section.SectionFlags = static_cast<uint16_t>(flags);
        section.BarItem = static_cast<int16_t>(session->form.TotalItems);
        Item(ITEM_BAR, 125, y, 1875, height + BAR_HEIGHT);
        return section;
    }
    ItemRecord &Item(int type, int x, int y, int width, int height, int field = 0) {
        ItemRecord &item = session->form.Items[session->form.TotalItems++];
        item.ItemType = static_cast<uint16_t>(type);
        item.x = static_cast<int16_t>(x);
        item.y = static_cast<int16_t>(y);
        item.width = static_cast<int16_t>(width);
        item.height = static_cast<int16_t>(height);
        item.FieldIndex = static_cast<int16_t>(field);
        item.SectionIndex = static_cast<int16_t>(number_);
        return item;
    }
    int Field(int kind, int type, int summary, int flags = 0) {
        const int row = session.AddField(kind, "F", type);
        FieldRecord &field = session->form.Fields[row];
        field.FieldFlags = static_cast<uint16_t>(flags);
        field.SummaryType = static_cast<int16_t>(summary);
        input[static_cast<size_t>(row)].SummaryType = field.SummaryType;
        return row;
    }
    FieldRecord &At(int row) { return session->form.Fields[row]; }

    BareSession session;
    std::vector<FieldRecord> input;

private:
    int number_ = 0;
};

} // namespace

TEST_F(SectionSetUp, SectionOfABarAloneHasTheBarsHeightWithoutItsCaption) {
    const SectionRecord &section = Section(SECTION_DETAIL_1, 300, 75);
    PrepareSections(session);
    EXPECT_EQ(section.SectionHeight, 75);
    EXPECT_EQ(section.ItemTotal, 1);
    EXPECT_EQ(session->form.Items[0].y, 0);
    EXPECT_EQ(session->form.Items[0].height, 76);
    EXPECT_EQ(session->form.Items[0].x, 0);
}

TEST_F(SectionSetUp, EmptySectionCompressedAtBothEndsPrintsNothing) {
    const SectionRecord &section =
        Section(SECTION_DETAIL_1, 300, 75, SECTION_COMPRESS_BEFORE | SECTION_COMPRESS_AFTER);
    PrepareSections(session);
    EXPECT_EQ(section.SectionHeight, 0);
    EXPECT_EQ(section.ItemTotal, 0);
}

TEST_F(SectionSetUp, CompressionTakesTheRoomAboveAndBelowTheItems) {
    for (const int flags : {0, 8, 16, 8 | 16}) {
        session->form.TotalItems = 0;
        const SectionRecord &section = Section(SECTION_DETAIL_1, 300, 100, flags);
        const ItemRecord &item = Item(ITEM_LABEL, 200, 300 + BAR_HEIGHT + 20, 50, 30);
        PrepareSections(session);
        const int above = flags & SECTION_COMPRESS_BEFORE ? 0 : 20;
        const int below = flags & SECTION_COMPRESS_AFTER ? 0 : 50;
        EXPECT_EQ(section.SectionHeight, above + 30 + below) << flags;
        EXPECT_EQ(item.y, above) << flags;
        EXPECT_EQ(item.x, 75) << flags;
    }
}

TEST_F(SectionSetUp, SpanReachesFromTheHighestItemToTheLowestInAnyOrder) {
    const SectionRecord &section =
        Section(SECTION_DETAIL_1, 300, 200, SECTION_COMPRESS_BEFORE | SECTION_COMPRESS_AFTER);
    const ItemRecord &lowest = Item(ITEM_LABEL, 200, 300 + BAR_HEIGHT + 90, 50, 30);
    const ItemRecord &highest = Item(ITEM_LABEL, 300, 300 + BAR_HEIGHT + 20, 50, 30);
    Item(ITEM_LABEL, 400, 300 + BAR_HEIGHT + 40, 50, 30);
    PrepareSections(session);
    EXPECT_EQ(section.SectionHeight, 100);
    EXPECT_EQ(highest.y, 0);
    EXPECT_EQ(lowest.y, 70);
}

TEST_F(SectionSetUp, LeftShiftIsAtLeast62) {
    session->form.Header.LeftMargin = 0.1F;
    Section(SECTION_DETAIL_1, 0, 50);
    const ItemRecord &item = Item(ITEM_LABEL, 100, 50, 50, 30);
    PrepareSections(session);
    EXPECT_EQ(item.x, 38);
}

TEST_F(SectionSetUp, LabelTakesItsPitchAndIsNeverCompressedAtItsFoot) {
    session->LabelMode = 1;
    LabelGeometry &sheet = session->form.Header.LabelGeometry;
    sheet.LabelsAcross = 3;
    sheet.HorizontalPitch = 2.5F;
    sheet.VerticalPitch = 1.0F;
    const SectionRecord &section = Section(SECTION_DETAIL_1, 0, 90, SECTION_COMPRESS_AFTER);
    const ItemRecord &item = Item(ITEM_LABEL, 100, BAR_HEIGHT, 50, 30);
    PrepareSections(session);
    EXPECT_EQ(section.Across, 3);
    EXPECT_EQ(section.SectionHeight, 250);
    EXPECT_EQ(session->form.Items[0].width, 625);
    EXPECT_EQ(item.x, 38);
}

TEST_F(SectionSetUp, FieldOfTwoSectionsBelongsToTheLater) {
    const int field = Field(FIELD_DATA, TYPE_NUMERIC, SUMMARY_TOTAL);
    Section(SECTION_SORT_FOOTER_1, 0, 50);
    Item(ITEM_FIELD, 200, 40, 50, 30, field);
    Section(SECTION_REPORT_FOOTER, 90, 50);
    Item(ITEM_FIELD, 200, 130, 50, 30, field);
    PrepareSections(session);
    EXPECT_EQ(+At(field).SummarySection, SECTION_REPORT_FOOTER);
    EXPECT_EQ(+input[static_cast<size_t>(field)].SummarySection, SECTION_REPORT_FOOTER);
    EXPECT_EQ(+At(field).SummaryType, SUMMARY_TOTAL);
}

TEST_F(SectionSetUp, SummaryOutsideAFooterIsAPlainValue) {
    const int field = Field(FIELD_DATA, TYPE_NUMERIC, SUMMARY_TOTAL);
    Section(SECTION_DETAIL_9, 0, 50);
    Item(ITEM_FIELD, 200, 40, 50, 30, field);
    PrepareSections(session);
    EXPECT_EQ(+At(field).SummaryType, SUMMARY_VALUE);
    EXPECT_EQ(+input[static_cast<size_t>(field)].SummaryType, SUMMARY_VALUE);
}

TEST_F(SectionSetUp, CalculationOverASummaryIsMadeAtItsFooterAlone) {
    const int summed = Field(FIELD_DATA, TYPE_NUMERIC, SUMMARY_TOTAL);
    const int calc = Field(FIELD_CALC, TYPE_NUMERIC, SUMMARY_TOTAL);
    At(calc).FieldTokens[0] = static_cast<Cell>(summed);
    At(calc).FieldTokens[1] = CELL_END;
    Section(SECTION_SORT_FOOTER_1, 0, 50);
    Item(ITEM_FIELD, 200, 40, 50, 30, calc);
    PrepareSections(session);
    EXPECT_EQ(+At(summed).SummarySection, SECTION_SORT_FOOTER_1);
    EXPECT_EQ(+input[static_cast<size_t>(summed)].SummarySection, SECTION_SORT_FOOTER_1);
    EXPECT_EQ(+At(summed).SummaryType, SUMMARY_TOTAL);
    EXPECT_EQ(+At(calc).FieldFlags & 0x0800, 0x0800);
    EXPECT_EQ(+At(calc).SummaryType, SUMMARY_VALUE);
}

TEST_F(SectionSetUp, DataInAFooterPassesItsSectionOnToNoOther) {
    const int summed = Field(FIELD_DATA, TYPE_NUMERIC, SUMMARY_TOTAL);
    const int data = Field(FIELD_DATA, TYPE_NUMERIC, SUMMARY_TOTAL);
    At(data).FieldTokens[0] = static_cast<Cell>(summed); // left over, and without a meaning
    At(data).FieldTokens[1] = CELL_END;
    Section(SECTION_SORT_FOOTER_1, 0, 50);
    Item(ITEM_FIELD, 200, 40, 50, 30, data);
    PrepareSections(session);
    EXPECT_EQ(+At(summed).SummarySection, 0);
    EXPECT_EQ(+At(data).SummaryType, SUMMARY_TOTAL);
}

TEST_F(SectionSetUp, SameCalculationInADetailSectionIsMadeForEachRecord) {
    const int summed = Field(FIELD_DATA, TYPE_NUMERIC, SUMMARY_TOTAL);
    const int calc = Field(FIELD_CALC, TYPE_NUMERIC, SUMMARY_TOTAL);
    At(calc).FieldTokens[0] = static_cast<Cell>(summed);
    At(calc).FieldTokens[1] = CELL_END;
    Section(SECTION_DETAIL_1, 0, 50);
    Item(ITEM_FIELD, 200, 40, 50, 30, calc);
    PrepareSections(session);
    EXPECT_EQ(+At(calc).FieldFlags & 0x0800, 0);
    EXPECT_EQ(+At(calc).SummaryType, SUMMARY_VALUE);
    EXPECT_EQ(+At(summed).SummarySection, 0);
}

TEST_F(SectionSetUp, WrappedTextThatNothingStandsUnderIsPaintedLast) {
    const int text = Field(FIELD_DATA, TYPE_TEXT, 0, FIELD_WORD_WRAP);
    Section(SECTION_DETAIL_1, 0, 200);
    Item(ITEM_FIELD, 200, 40, 300, 50, text);
    Item(ITEM_LABEL, 600, 40, 100, 50);
    Item(ITEM_LABEL, 800, 60, 100, 50);
    PrepareSections(session);
    EXPECT_EQ(+session->form.Items[3].ItemType, ITEM_FIELD);
    EXPECT_EQ(+session->form.Items[1].x, 800 - 125);
    EXPECT_EQ(session->run.WrapItem, 3);
}

TEST_F(SectionSetUp, WrappedTextWithAnItemUnderItStaysInItsPlace) {
    const int text = Field(FIELD_DATA, TYPE_TEXT, 0, FIELD_WRAP);
    Section(SECTION_DETAIL_1, 0, 200);
    Item(ITEM_FIELD, 200, 40, 300, 50, text);
    Item(ITEM_LABEL, 600, 90, 100, 50); // begins exactly where the text ends
    PrepareSections(session);
    EXPECT_EQ(+session->form.Items[1].ItemType, ITEM_FIELD);
    EXPECT_EQ(session->run.WrapItem, -1);
}

TEST_F(SectionSetUp, LabelIsNoWrappedTextWhateverFieldItsRowNames) {
    const int text = Field(FIELD_DATA, TYPE_TEXT, 0, FIELD_WRAP);
    Section(SECTION_DETAIL_1, 0, 200);
    Item(ITEM_LABEL, 200, 40, 300, 50, text);
    Item(ITEM_LINE, 600, 40, 100, 50);
    PrepareSections(session);
    EXPECT_EQ(+session->form.Items[1].ItemType, ITEM_LABEL);
    EXPECT_EQ(session->run.WrapItem, -1);
}

TEST_F(SectionSetUp, OtherDetailSectionsKeepTheOrderOfTheirItems) {
    const int text = Field(FIELD_DATA, TYPE_TEXT, 0, FIELD_WRAP);
    Section(SECTION_DETAIL_1 + 1, 0, 200);
    Item(ITEM_FIELD, 200, 40, 300, 50, text);
    Item(ITEM_LABEL, 600, 40, 100, 50);
    PrepareSections(session);
    EXPECT_EQ(+session->form.Items[1].ItemType, ITEM_FIELD);
}

// ---- the page ----------------------------------------------------------------------------------

namespace {

// A printer of 250 pixels an inch that can't reach the first pixels of a sheet.
class PageGeometry : public testing::Test {
protected:
    PageGeometry() {
        real_escape_ = ReplaceImport("Escape", reinterpret_cast<void *>(AnswerEscape));
        real_caps_ = ReplaceImport("GetDeviceCaps", reinterpret_cast<void *>(AnswerCaps));
        FormHeader &header = session->form.Header;
        header.LeftMargin = header.TopMargin = 0.1F;
        header.RightMargin = 0.5F;
        header.BottomMargin = 0.25F;
        session->printer.UsableWidth = 7.0F;
        session->printer.UsableHeight = 10.0F;
    }
    ~PageGeometry() override {
        ReplaceImport("Escape", real_escape_);
        ReplaceImport("GetDeviceCaps", real_caps_);
        host_data = HostData{};
    }
    void Settle(int x, int y, int feed_mode = 0) {
        offset_ = {x, y};
        SettleFeedOffset(session);
        SettlePageGeometry(session, feed_mode);
    }
    void MakeLabelSheet() {
        session->LabelMode = 1;
        LabelGeometry &sheet = session->form.Header.LabelGeometry;
        sheet.PageWidth = 8.5F;
        sheet.LeftOffset = 0.4F;
        sheet.TopOffset = 0.3F;
    }
    BareSession session;

private:
    static int WINAPI AnswerEscape(HDC, int, int, LPCSTR, void *out) {
        *static_cast<POINT *>(out) = offset_;
        return 1;
    }
    static int WINAPI AnswerCaps(HDC, int) { return 250; }
    static inline POINT offset_;
    void *real_escape_;
    void *real_caps_;
};

} // namespace

TEST_F(PageGeometry, OriginsAreTheMarginsWithoutWhatThePrinterCannotReach) {
    Settle(10, 20);
    const RunState &run = session->run;
    EXPECT_EQ(run.LeftOrigin, 25 - 10);
    EXPECT_EQ(run.TopOrigin, 25 - 20);
    EXPECT_EQ(run.RightOrigin, 125);
    EXPECT_EQ(run.BottomOrigin, 62);
    EXPECT_EQ(session->report.PageWidthUnits, 1750);
    EXPECT_EQ(session->report.PageBottomUnits, 2500 + 5);
    EXPECT_EQ(run.BodyBottom, 2505);
    EXPECT_EQ(session->printer.PrintOffsetX, 10);
    EXPECT_EQ(session->printer.PrintOffsetY, 20);
}

TEST_F(PageGeometry, OriginOfMinusOneIsZeroAndOneFurtherLeftStands) {
    Settle(26, 26);
    EXPECT_EQ(session->run.LeftOrigin, 0);
    EXPECT_EQ(session->run.TopOrigin, 0);
    Settle(27, 27);
    EXPECT_EQ(session->run.LeftOrigin, -2);
    EXPECT_EQ(session->run.TopOrigin, -2);
}

TEST_F(PageGeometry, PageFooterTakesItsRoomFromTheBody) {
    session->form.Sections[SECTION_PAGE_FOOTER].SectionHeight = 100;
    Settle(0, 0);
    EXPECT_EQ(session->run.BodyBottom, 2525); // the footer isn't in use
    session->form.Sections[SECTION_PAGE_FOOTER].InUse = 1;
    Settle(0, 0);
    EXPECT_EQ(session->run.BodyBottom, 2425);
}

TEST_F(PageGeometry, LabelSheetWithoutAFeedIsOffHalfItsWidthUnlessThatIsTakenOut) {
    MakeLabelSheet();
    Settle(0, 0, 0);
    EXPECT_EQ(session->run.FeedOffset, -(2125 / 2));
    EXPECT_EQ(session->run.LeftOrigin, 125); // margin and offset are added before they are cut
    EXPECT_EQ(session->run.TopOrigin, 100);
    EXPECT_EQ(session->run.RightOrigin, 0);
    EXPECT_EQ(session->run.BottomOrigin, 0);
    Settle(0, 0, 1);
    EXPECT_EQ(session->run.LeftOrigin, 125 - 2125 / 2);
}

TEST_F(PageGeometry, FeedOfAnyWidthIsHalved) {
    MakeLabelSheet();
    float feed = -8e6F;
    host_data.FeedWidthPtr = &feed;
    session->form.Header.LabelGeometry.PageWidth = 8e6F;
    Settle(0, 0, 0);
    EXPECT_EQ(session->run.FeedOffset, -2000000000);
    feed = 8.501F; // a unit less than the sheet and one more, both cut towards zero
    session->form.Header.LabelGeometry.PageWidth = 8.505F;
    Settle(0, 0, 0);
    EXPECT_EQ(session->run.FeedOffset, 0);
    session->form.Header.LabelGeometry.PageWidth = 8.497F;
    Settle(0, 0, 0);
    EXPECT_EQ(session->run.FeedOffset, 0);
}

TEST_F(PageGeometry, LabelSheetStandsInTheMiddleOfAWiderFeed) {
    MakeLabelSheet();
    float feed = 10.0F;
    host_data.FeedWidthPtr = &feed;
    Settle(0, 0, 1);
    EXPECT_EQ(session->run.FeedOffset, (2500 - 2125) / 2);
    EXPECT_EQ(session->run.LeftOrigin, 125 + 187);
}
