#include "designer/section_rules.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <vector>

using namespace tessarine;

namespace {

constexpr const char *LAST = "Cannot delete the last section.";
constexpr const char *DETAILS = "Before this detail section can be deleted, all higher numbered "
                                "detail sections must be deleted.";
constexpr const char *FOOTER =
    "Before this sort header can be deleted, the sort footer must be deleted.";
constexpr const char *HEADERS = "Before this sort header can be deleted, all higher numbered sort "
                                "headers must be deleted.";

class SectionRules : public testing::Test {
protected:
    // A form with these sections; sort headers have their rows in the break table, in this order.
    void Use(std::initializer_list<int> sections) {
        form_ = std::make_unique<FormState>();
        for (const int section : sections) {
            form_->Sections[section].InUse = 1;
            if (section >= SECTION_SORT_HEADER_1 && section <= SECTION_SORT_HEADER_9)
                form_->Breaks[form_->BreakCount++].SectionIndex = static_cast<int16_t>(section);
        }
    }
    std::vector<int> Offered(bool sorting = true) const {
        std::vector<int> rows;
        for (int section = 0; section < MAX_SECTIONS; ++section)
            if (MayAdd(*form_, section, sorting)) rows.push_back(section);
        return rows;
    }
    std::string Refusal(int section) const {
        const char *text = WhyItStays(*form_, section);
        return text ? text : "";
    }

    std::unique_ptr<FormState> form_ = std::make_unique<FormState>();
};

using Rows = std::vector<int>;

} // namespace

TEST_F(SectionRules, OfferWhatNeedsNoOtherSection) {
    Use({SECTION_PAGE_HEADER, SECTION_DETAIL_1});
    EXPECT_EQ(Offered(), (Rows{1, 2, 12, 29, 30}));
    Use({});
    EXPECT_EQ(Offered(), (Rows{0, 1, 2, 11, 29, 30}));
}

TEST_F(SectionRules, BesideTwoSortHeadersTheThirdAndTwoFootersAreOfferedButNotTheFourth) {
    Use({0, 2, 3, 11});
    EXPECT_EQ(Offered(), (Rows{1, 4, 12, 27, 28, 29, 30}));
}

TEST_F(SectionRules, WithoutSortingNoHeaderIsOfferedButTheFooterOfOneThatStands) {
    Use({0, 2, 11});
    EXPECT_EQ(Offered(false), (Rows{1, 12, 28, 29, 30}));
}

TEST_F(SectionRules, DetailsFollowWithoutAGap) {
    Use({0, 11, 12, 13});
    EXPECT_TRUE(MayAdd(*form_, 14, true));
    EXPECT_FALSE(MayAdd(*form_, 15, true));
    Use({0, 11, 12, 13, 14, 15, 16, 17, 18, 19});
    EXPECT_EQ(Offered(), (Rows{1, 2, 29, 30}));
}

TEST_F(SectionRules, AllSectionsInUseLeaveNothingToOffer) {
    for (int section = 0; section < MAX_SECTIONS; ++section) form_->Sections[section].InUse = 1;
    EXPECT_EQ(Offered(), Rows{});
}

TEST_F(SectionRules, ARowOutsideTheTableIsNotAdded) {
    Use({11});
    for (const int section : {-1, 31, 1000}) EXPECT_FALSE(MayAdd(*form_, section, true)) << section;
}

TEST_F(SectionRules, AFullBreakTableTakesNoSortHeader) {
    Use({11});
    form_->BreakCount = MAX_BREAKS;
    EXPECT_FALSE(MayAdd(*form_, SECTION_SORT_HEADER_1, true));
}

TEST_F(SectionRules, DeletionsAreRefusedInTheirOrder) {
    struct Case {
        std::initializer_list<int> sections;
        int section;
        const char *text;
    };
    const Case cases[] = {
        {{11}, 11, LAST},
        {{2}, 2, LAST}, // before what a sort header needs
        {{0, 11}, 11, ""},
        {{11, 12}, 11, DETAILS},
        {{11, 12}, 12, ""},
        {{0, 11, 12, 13}, 12, DETAILS},
        {{11, 12, 13, 14, 15, 16, 17, 18, 19}, 18, DETAILS},
        {{2, 11, 28}, 2, FOOTER},
        {{2, 3, 11, 28}, 2, FOOTER}, // before the higher header
        {{2, 3, 11}, 2, HEADERS},
        {{2, 3, 11}, 3, ""},
        {{2, 3, 11, 28}, 3, ""}, // the footer is of another header
        {{2, 3, 11, 27}, 3, FOOTER},
        {{2, 11, 28}, 28, ""},
        {{0, 1, 11}, 0, ""},
        {{11, 29, 30}, 30, ""},
    };
    for (const Case &row : cases) {
        Use(row.sections);
        EXPECT_EQ(Refusal(row.section), row.text) << &row - cases;
    }
}

TEST_F(SectionRules, SortHeaderOneStaysWhileSortHeaderTwoIsInUse) {
    Use({2, 3, 11});
    EXPECT_EQ(Refusal(SECTION_SORT_HEADER_1), HEADERS);
}

TEST_F(SectionRules, TheLastSectionStays) {
    Use({SECTION_PAGE_FOOTER});
    EXPECT_EQ(Refusal(SECTION_PAGE_FOOTER), LAST);
}

TEST_F(SectionRules, DetailSectionNineNeedsNoTestForAHigherSection) {
    Use({11, 12, 13, 14, 15, 16, 17, 18, 19, 20}); // row 20, a footer, is no detail section
    EXPECT_EQ(Refusal(SECTION_DETAIL_9), "");
}

TEST_F(SectionRules, ASortHeaderWithoutARowInTheBreakTableStays) {
    Use({11});
    form_->Sections[2].InUse = 1;
    EXPECT_EQ(Refusal(2), HEADERS);
}
