#include "designer/section_edit.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "commands.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "designer/section_fields.h"
#include "device/paper.h"
#include "expr/validate.h"
#include "frame/host_data.h"
#include "frame/text.h"
#include "tests/support/designer_session.h"
#include "tests/support/item_order.h"

using namespace tessarine;

namespace {

constexpr const char *LIST = "Select New Section";

struct Asked {
    uint32_t pages;
    uint32_t writable;
    int32_t row;

    bool operator==(const Asked &other) const = default;
};
std::vector<Asked> asked;
int answer = 0;
int across = 1;

int32_t __stdcall Sheet(Session *session, uint32_t pages, uint32_t writable, void *) {
    asked.push_back({pages, writable, session->dialog.DialogRow});
    session->form.Sections[SECTION_DETAIL_1].Across = static_cast<int16_t>(across);
    return answer;
}

class SectionCommands : public DesignerSession {
protected:
    SectionCommands() {
        asked.clear();
        answer = 0;
        across = 1;
        for (const char *name : {"NAME", "AMOUNT"}) {
            FieldRecord field{};
            CopyText(name, field.FieldName, sizeof field.FieldName);
            field.ValueType = *name == 'A' ? TYPE_NUMERIC : TYPE_TEXT;
            field.FieldWidth = 9;
            known[name] = field;
        }
        picked = known["NAME"];
    }
    void Choose(int section) { session->form.SelectedItem = BarOfSection(session, section); }
    // The row of the list that the user takes, or Cancel.
    void Take(const std::string &row) {
        boxes.OnDialog(LIST, [this, row](HWND dialog) {
            const DialogDriver driver(dialog);
            offered = driver.Rows(LIST_CHOICE);
            if (!row.empty()) driver.Select(LIST_CHOICE, row);
            driver.Press(row.empty() ? IDCANCEL : IDOK);
        });
    }
    int Add(const std::string &row) {
        Take(row);
        return AddNewSection(session, 0, -1, nullptr);
    }
    std::string Name(int section) const { return session->form.SectionNames[section]; }
    std::vector<std::string> Names(const std::vector<int> &sections) const {
        std::vector<std::string> names;
        for (const int section : sections) names.push_back(Name(section));
        return names;
    }
    void Write(const std::string &title, const std::string &expression, int button = IDOK) {
        boxes.OnDialog(title, [=](HWND dialog) {
            const DialogDriver driver(dialog);
            driver.SetText(EXPRESSION_TEXT, expression);
            driver.Press(button);
        });
    }
    std::string TextOf(const Cell *cells) const {
        char text[600];
        ExpressionText(session, cells, text, sizeof text);
        return text;
    }
    std::string FilterOf(int section) const {
        return TextOf(session->form.Sections[section].SectionFilter);
    }

    std::vector<std::string> offered;
};

} // namespace

TEST_F(SectionCommands, TheListOffersWhatMayComeInTheOrderOfTheRows) {
    StartOn(TwoSections());
    EXPECT_EQ(Add(""), 0);
    EXPECT_EQ(offered, Names({1, 2, 12, 29, 30}));
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(SectionCommands, WithSortHeadersOneAndTwoTheThirdAndTwoFootersAreOfferedButNotTheFourth) {
    StartOn(TwoSections());
    AddNewSection(session, 1, 2, "NAME");
    AddNewSection(session, 1, 3, "NAME");
    Add("");
    EXPECT_EQ(offered, Names({1, 4, 12, 27, 28, 29, 30}));
}

TEST_F(SectionCommands, AHostThatForbidsSortingOffersNoSortHeader) {
    const uint32_t allowed = 0;
    host_data.SortAllowedPtr = &allowed;
    StartOn(TwoSections());
    Add("");
    EXPECT_EQ(offered, Names({1, 12, 29, 30}));
}

TEST_F(SectionCommands, TheChosenSectionComesIntoTheForm) {
    StartOn(TwoSections());
    EXPECT_EQ(Add(Name(SECTION_PAGE_FOOTER)), 1);
    EXPECT_EQ(+session->form.Sections[SECTION_PAGE_FOOTER].InUse, 1);
    EXPECT_EQ(session->form.SelectedItem, BarOfSection(session, SECTION_PAGE_FOOTER));
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_EQ(WhatIsWrong(session), "");
}

TEST_F(SectionCommands, TheHostsUserPicksTheSortFieldOfItsLevel) {
    StartOn(TwoSections());
    levels.clear();
    EXPECT_EQ(Add(Name(2)), 1);
    EXPECT_EQ(Add(Name(3)), 1);
    EXPECT_EQ(levels, (std::vector<int>{1, 2}));
    EXPECT_STREQ(session->form.Fields[FindSortField(session, 3)].FieldName, "NAME");
}

TEST_F(SectionCommands, WithoutAPickedFieldNoSortHeaderComes) {
    StartOn(TwoSections());
    *picked.FieldName = 0;
    EXPECT_EQ(Add(Name(2)), 0);
    EXPECT_EQ(+session->form.Sections[2].InUse, 0);
    EXPECT_EQ(+session->form.BreakCount, 0);
    EXPECT_EQ(WhatIsWrong(session), "");
}

TEST_F(SectionCommands, ASectionThatComesUnderTheListIsNotAddedTwice) {
    StartOn(TwoSections());
    boxes.OnDialog(LIST, [this](HWND dialog) {
        AddNewSection(session, 1, SECTION_PAGE_FOOTER, nullptr);
        DialogDriver(dialog).Select(LIST_CHOICE, Name(SECTION_PAGE_FOOTER));
        DialogDriver(dialog).Press(IDOK);
    });
    EXPECT_EQ(AddNewSection(session, 0, -1, nullptr), 0);
    EXPECT_EQ(WhatIsWrong(session), "");
}

TEST_F(SectionCommands, TheMenusCommandAddsASection) {
    StartOn(TwoSections());
    Take(Name(SECTION_REPORT_FOOTER));
    Command(COMMAND_NEW_SECTION);
    EXPECT_EQ(+session->form.Sections[SECTION_REPORT_FOOTER].InUse, 1);
}

TEST_F(SectionCommands, DeleteOnABarAsksAndTakesTheSection) {
    StartOn(TwoSections());
    Choose(SECTION_PAGE_HEADER);
    boxes.Answer(IDYES);
    Command(COMMAND_DELETE);
    EXPECT_EQ(boxes.LastText(), "Delete Page Header   ?");
    EXPECT_EQ(+session->form.Sections[SECTION_PAGE_HEADER].InUse, 0);
    EXPECT_EQ(WhatIsWrong(session), "");
}

// ---- parameters -------------------------------------------------------------------------------

TEST_F(SectionCommands, TheHostsSheetGetsThePagesOfTheSection) {
    host_data.ItemPropertiesCallback = Sheet;
    StartOn(TwoSections());
    AddNewSection(session, 1, 2, "NAME");
    AddNewSection(session, 1, 28, nullptr);
    for (const int section : {0, 2, 28, 11}) {
        Choose(section);
        EditSection(session);
    }
    edit_allowed = 0;
    EditSection(session);
    EXPECT_EQ(asked,
              (std::vector<Asked>{{15, 1, 0}, {63, 1, 2}, {15, 1, 28}, {15, 1, 11}, {15, 0, 11}}));
}

TEST_F(SectionCommands, ASortHeaderWithoutABreakRowHasNoSortPages) {
    host_data.ItemPropertiesCallback = Sheet;
    StartOn(TwoSections());
    AddNewSection(session, 1, 2, "NAME");
    session->form.BreakCount = 0;
    Choose(2);
    EditSection(session);
    EXPECT_EQ(asked, (std::vector<Asked>{{15, 1, 2}}));
}

TEST_F(SectionCommands, TheHostsAnswerSaysWhetherTheFormIsModified) {
    host_data.ItemPropertiesCallback = Sheet;
    StartOn(TwoSections());
    Choose(SECTION_PAGE_HEADER);
    EditSection(session);
    EXPECT_EQ(session->form.FormModified, 0u);
    answer = 1;
    EditSection(session);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(SectionCommands, ADetailsBarFitsItsNewColumns) {
    host_data.ItemPropertiesCallback = Sheet;
    StartOn(TwoSections());
    across = 3;
    Choose(SECTION_PAGE_HEADER);
    const int width = Bar(SECTION_PAGE_HEADER).width;
    EditSection(session);
    EXPECT_EQ(Bar(SECTION_PAGE_HEADER).width, width);
    Choose(SECTION_DETAIL_1);
    EditSection(session);
    EXPECT_EQ(Bar(SECTION_DETAIL_1).width, FullBarWidth(session) / 3);
}

TEST_F(SectionCommands, WithoutASheetASectionIsNotModified) {
    StartOn(TwoSections());
    Choose(SECTION_DETAIL_1);
    EditSection(session);
    EXPECT_EQ(session->form.FormModified, 0u);
    session->form.SelectedItem = -1;
    host_data.ItemPropertiesCallback = Sheet;
    EditSection(session);
    EXPECT_TRUE(asked.empty());
}

TEST_F(SectionCommands, ALabelFormsSheetHasOtherPages) {
    uint32_t label = 1;
    LabelGeometry geometry{};
    geometry.PageWidth = 8.5F;
    geometry.PageHeight = 11;
    geometry.LabelWidth = 4;
    geometry.LabelHeight = 2;
    geometry.LabelsAcross = geometry.LabelsDown = 2;
    host_data.LabelForm = &label;
    host_data.LabelGeometryPtr = &geometry;
    host_data.ItemPropertiesCallback = Sheet;
    ASSERT_EQ(StartNew(), 0);
    answer = 1;
    across = 2;
    session->form.SelectedItem = 0;
    const int width = session->form.Items[0].width;
    EditSection(session);
    EXPECT_EQ(asked, (std::vector<Asked>{{11, 1, 11}}));
    EXPECT_EQ(session->form.Items[0].width, width);
    EXPECT_EQ(session->form.FormModified, 1u);
}

// ---- filters ----------------------------------------------------------------------------------

TEST_F(SectionCommands, ASectionsFilterIsEditedInItsPlace) {
    StartOn(TwoSections());
    Choose(SECTION_DETAIL_1);
    Write("Section Selection Criteria", "AMOUNT>12");
    EditSectionFilter(session);
    EXPECT_EQ(FilterOf(SECTION_DETAIL_1), "AMOUNT>12");
    EXPECT_EQ(FilterOf(SECTION_PAGE_HEADER), "");
    EXPECT_EQ(session->form.FormModified, 1u);
    Write("Section Selection Criteria", "AMOUNT>13", IDCANCEL);
    EditSectionFilter(session);
    EXPECT_EQ(FilterOf(SECTION_DETAIL_1), "AMOUNT>12");
    Write("Section Selection Criteria", "");
    EditSectionFilter(session);
    EXPECT_EQ(FilterOf(SECTION_DETAIL_1), "");
}

TEST_F(SectionCommands, WithoutASelectionNoFilterIsAsked) {
    StartOn(TwoSections());
    session->form.SelectedItem = -1;
    EditSectionFilter(session);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(SectionCommands, AFilterWhoseSectionGoesUnderTheDialogHoldsNothing) {
    StartOn(TwoSections());
    Choose(SECTION_DETAIL_1);
    boxes.OnDialog("Section Selection Criteria", [this](HWND dialog) {
        EXPECT_EQ(DeleteSection(session, 1), 1);
        DialogDriver(dialog).SetText(EXPRESSION_TEXT, "AMOUNT>12");
        DialogDriver(dialog).Press(IDOK);
    });
    EditSectionFilter(session);
    EXPECT_EQ(FilterOf(SECTION_DETAIL_1), "");
    for (int row = 0; row < session->form.FieldCount; ++row)
        EXPECT_EQ(+session->form.Fields[row].InUse, 0) << row;
}

TEST_F(SectionCommands, TheReportFilterSetsItsFlagWhileItHoldsSomething) {
    StartOn(TwoSections());
    FormHeader &header = session->form.Header;
    header.FormFlags = FORM_REPORT_HEADER_FIRST;
    Write("Report Filter", "AMOUNT>12");
    EditReportFilter(session);
    EXPECT_EQ(TextOf(header.ReportFilter), "AMOUNT>12");
    EXPECT_EQ(+header.FormFlags, FORM_REPORT_HEADER_FIRST | FORM_HAS_FILTER);
    EXPECT_EQ(session->form.FormModified, 1u);
    Write("Report Filter", "");
    EditReportFilter(session);
    EXPECT_EQ(header.ReportFilter[0], CELL_END);
    EXPECT_EQ(+header.FormFlags, FORM_REPORT_HEADER_FIRST);
}

TEST_F(SectionCommands, CancelKeepsTheReportFilter) {
    StartOn(TwoSections());
    Write("Report Filter", "AMOUNT>12", IDCANCEL);
    EditReportFilter(session);
    EXPECT_EQ(session->form.Header.ReportFilter[0], CELL_END);
    EXPECT_EQ(session->form.Header.FormFlags & FORM_HAS_FILTER, 0);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(SectionCommands, Command628EditsTheReportFilterAnd629DoesNothing) {
    StartOn(TwoSections());
    Write("Report Filter", "AMOUNT>12");
    Command(COMMAND_REPORT_FILTER_ENTRY);
    EXPECT_EQ(session->form.Header.ReportFilter[0], CELL_END);
    Command(COMMAND_REPORT_FILTER);
    EXPECT_EQ(TextOf(session->form.Header.ReportFilter), "AMOUNT>12");
}
