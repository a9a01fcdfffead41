#include "designer/section_edit.h"

#include <gtest/gtest.h>

#include "designer/designer_state.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "designer/section_fields.h"
#include "designer/undo.h"
#include "form/field_table.h"
#include "frame/boundary.h"
#include "frame/host_data.h"
#include "frame/mapping.h"
#include "frame/memory.h"
#include "tests/support/designer_session.h"
#include "tests/support/item_order.h"

using namespace tessarine;

namespace {

constexpr int BAND = 400; // below the caption, in the form of the fixture

Session *hearing = nullptr;

// A host that deletes the selected section as soon as it hears that the form changes.
LRESULT CALLBACK DeleteOnHearing(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == MESSAGE_MODIFIED) DeleteSection(hearing, 1);
    return DefWindowProcA(window, message, wParam, lParam);
}

class SectionEdit : public DesignerSession {
protected:
    SectionEdit() {
        FieldRecord name{};
        CopyField(&name, "NAME");
        known["NAME"] = name;
        known[std::string(99, 'L')] = name;
        CopyField(&picked, "CITY");
    }
    static void CopyField(FieldRecord *field, const char *name) {
        std::snprintf(field->FieldName, sizeof field->FieldName, "%s", name);
        field->ValueType = TYPE_TEXT;
        field->FieldWidth = 20;
        field->HostTable = 1;
        field->HostField = 7;
    }
    static FormBuilder GroupInTheMiddle() {
        FormBuilder form;
        form.Section(SECTION_PAGE_HEADER, BAND);
        form.Label(SECTION_PAGE_HEADER, 200, 50, 200, 50, "Alpha");
        form.Section(SECTION_DETAIL_1, BAND);
        form.Item(ITEM_GROUP, SECTION_DETAIL_1, 300, 110, 100, 100); // from its own bar on
        form.Section(SECTION_PAGE_FOOTER, BAND);
        return form;
    }
    int Caption() const { return session->form.Header.BarHeight; }
    int NewHeight() const { return Caption() + 2 * session->device.FontHeight + 20; }
    int Add(int section, const char *field = nullptr) {
        return AddNewSection(session, 1, section, field);
    }
    int Delete(int section, int noConfirm = 1) {
        session->form.SelectedItem = BarOfSection(session, section);
        return DeleteSection(session, noConfirm);
    }
    int FieldsInUse() const {
        int count = 0;
        for (int row = 0; row < session->form.FieldCount; ++row)
            count += session->form.Fields[row].InUse != 0;
        return count;
    }
    // Bars lie one under the other, and the report ends with the last.
    void ExpectBands() const {
        EXPECT_EQ(WhatIsWrong(session), "");
        int y = 0;
        for (int row = 0; row < session->form.TotalItems; ++row) {
            const ItemRecord &item = session->form.Items[row];
            if (item.ItemType != ITEM_BAR) continue;
            EXPECT_EQ(item.y, y) << "section " << item.SectionIndex;
            y += item.height;
        }
        EXPECT_EQ(session->form.ReportHeight, y);
    }
};

} // namespace

TEST_F(SectionEdit, ANewBandComesInItsPlaceAndMovesWhatIsBelow) {
    StartOn(TwoSections());
    const int gamma = Item("Gamma").y;
    const int alpha = Item("Alpha").y;
    EXPECT_EQ(Add(SECTION_REPORT_HEADER), 1);
    const ItemRecord &bar = Bar(SECTION_REPORT_HEADER);
    EXPECT_EQ(bar.ItemType, ITEM_BAR);
    EXPECT_EQ(bar.y, BAND + Caption());
    EXPECT_EQ(bar.height, NewHeight());
    EXPECT_EQ(bar.x, std::max(InchesToUnits(session->form.Header.LeftMargin), 62));
    EXPECT_EQ(bar.width, session->printer.ReportWidth -
                             InchesToUnits(static_cast<double>(session->form.Header.LeftMargin) +
                                           session->form.Header.RightMargin));
    EXPECT_EQ(Item("Gamma").y, gamma + NewHeight());
    EXPECT_EQ(Item("Alpha").y, alpha);
    ExpectBands();
}

TEST_F(SectionEdit, ANewBandCompressesBothSpacesAndPrintsEveryRecord) {
    StartOn(TwoSections());
    session->form.Sections[SECTION_PAGE_FOOTER].SectionFlags = 3;
    Add(SECTION_PAGE_FOOTER);
    const SectionRecord &section = session->form.Sections[SECTION_PAGE_FOOTER];
    EXPECT_EQ(+section.InUse, 1);
    EXPECT_EQ(+section.SectionFlags, 24);
    EXPECT_EQ(section.SectionFilter[0], CELL_END);
    EXPECT_EQ(+section.BarItem, session->form.TotalItems - 1);
    EXPECT_EQ(session->form.FormModified, 1u);
    ExpectBands();
}

TEST_F(SectionEdit, ANewBarIsSelectedInTheMiddleOfTheView) {
    StartOn(TwoSections());
    Add(SECTION_PAGE_FOOTER);
    const ItemRecord &bar = Bar(SECTION_PAGE_FOOTER);
    EXPECT_EQ(Selected(session), &bar);
    EXPECT_EQ(session->view.OriginY, bar.y - (session->view.ViewHeight - bar.height) / 2);
}

TEST_F(SectionEdit, AFirstBandGoesToTheTopOfTheForm) {
    FormBuilder form;
    form.Section(SECTION_DETAIL_1, BAND);
    form.Item(ITEM_GROUP, SECTION_DETAIL_1, 0, 0, 0, 0);
    StartOn(form);
    Add(SECTION_PAGE_HEADER);
    EXPECT_EQ(Bar(SECTION_PAGE_HEADER).y, 0);
    EXPECT_EQ(+session->form.Sections[SECTION_PAGE_HEADER].BarItem, 0);
    ExpectBands();
}

TEST_F(SectionEdit, ASortHeaderSortsAndBreaksByTwoEqualFields) {
    StartOn(TwoSections());
    const int before = FieldsInUse();
    levels.clear();
    EXPECT_EQ(Add(SECTION_SORT_HEADER_1, "NAME"), 1);
    EXPECT_EQ(levels, std::vector<int>{1});
    ASSERT_EQ(+session->form.BreakCount, 1);
    const BreakFieldRecord row = session->form.Breaks[0];
    EXPECT_EQ(row.SectionIndex, SECTION_SORT_HEADER_1);
    EXPECT_NE(+row.SortField, +row.BreakField);
    EXPECT_EQ(FieldsInUse(), before + 2);
    for (const int field : {row.SortField, row.BreakField}) {
        EXPECT_STREQ(session->form.Fields[field].FieldName, "NAME");
        EXPECT_EQ(+session->form.Fields[field].HostField, 7);
        EXPECT_EQ(+session->form.Fields[field].SummarySection, SECTION_SORT_HEADER_1);
    }
    ExpectBands();
}

TEST_F(SectionEdit, TheSecondSortLevelAsksForLevelTwo) {
    StartOn(TwoSections());
    Add(SECTION_SORT_HEADER_1, "NAME");
    levels.clear();
    Add(SECTION_SORT_HEADER_1 + 1, "NAME");
    EXPECT_EQ(levels, std::vector<int>{2});
    EXPECT_EQ(session->form.Breaks[1].SectionIndex, SECTION_SORT_HEADER_1 + 1);
}

TEST_F(SectionEdit, ANameOfTheHostThatIsTooLongIsCut) {
    StartOn(TwoSections());
    EXPECT_EQ(Add(SECTION_SORT_HEADER_1, std::string(150, 'L').c_str()), 1);
    EXPECT_EQ(+session->form.BreakCount, 1);
}

TEST_F(SectionEdit, AnUnknownSortFieldChangesNothing) {
    StartOn(TwoSections());
    const int items = session->form.TotalItems;
    const int fields = FieldsInUse();
    for (const char *name : {"NOBODY", "", static_cast<const char *>(nullptr)})
        EXPECT_EQ(Add(SECTION_SORT_HEADER_1, name), 0);
    EXPECT_EQ(session->form.TotalItems, items);
    EXPECT_EQ(FieldsInUse(), fields);
    EXPECT_EQ(+session->form.BreakCount, 0);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(SectionEdit, AHostCantBreakTheOrderOfSections) {
    StartOn(TwoSections());
    for (const int section : {-1, 31, 0, 11, 3, 13, 28}) EXPECT_EQ(Add(section, "NAME"), 0);
    EXPECT_EQ(session->form.FormModified, 0u);
    ExpectBands();
}

TEST_F(SectionEdit, AFullItemTableTakesNoSection) {
    StartOn(TwoSections());
    session->form.TotalItems = MAX_ITEMS;
    EXPECT_EQ(Add(SECTION_PAGE_FOOTER), 1);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Item Table Full!", {IDOK}}}));
    EXPECT_EQ(+session->form.Sections[SECTION_PAGE_FOOTER].InUse, 0);
    session->form.TotalItems = 6;
}

TEST_F(SectionEdit, AFullFieldTableTakesNoSortHeader) {
    StartOn(TwoSections());
    session->form.FieldCapacity = session->form.FieldCount;
    EXPECT_EQ(Add(SECTION_SORT_HEADER_1, "NAME"), 0);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Ran out of field table!", {IDOK}}}));
    EXPECT_EQ(+session->form.BreakCount, 0);
    ExpectBands();
}

TEST_F(SectionEdit, AFieldTableWithoutASecondSlotKeepsTheFirst) {
    StartOn(TwoSections());
    const int slot = NewFieldSlot(session);
    session->form.FieldCapacity = session->form.FieldCount;
    EXPECT_EQ(Add(SECTION_SORT_HEADER_1, "NAME"), 0);
    EXPECT_EQ(boxes.LastText(), "Ran out of field table!");
    EXPECT_EQ(+session->form.BreakCount, 0);
    EXPECT_EQ(+session->form.Fields[slot].InUse, 1);
    ExpectBands();
}

TEST_F(SectionEdit, AFormThatIsAsLongAsItsNumbersAllowTakesNoSection) {
    StartOn(TwoSections());
    session->form.ReportHeight = INT16_MAX - NewHeight() + 1;
    EXPECT_EQ(Add(SECTION_PAGE_FOOTER), 0);
    EXPECT_EQ(+session->form.Sections[SECTION_PAGE_FOOTER].InUse, 0);
}

TEST_F(SectionEdit, AnItemThatCantGoFurtherDownKeepsSectionsOut) {
    StartOn(TwoSections());
    Item("Gamma").y = static_cast<int16_t>(INT16_MAX - NewHeight() - Item("Gamma").height + 1);
    EXPECT_EQ(Add(SECTION_REPORT_HEADER), 0);
    Item("Gamma").y = static_cast<int16_t>(Item("Gamma").y - 1);
    EXPECT_EQ(Add(SECTION_REPORT_HEADER), 1);
    EXPECT_EQ(Item("Gamma").y + Item("Gamma").height, INT16_MAX);
}

TEST_F(SectionEdit, ALabelFormKeepsItsOneSectionAndSaysNothing) {
    uint32_t label = 1;
    LabelGeometry geometry{};
    geometry.PageWidth = 8.5F;
    geometry.PageHeight = 11;
    geometry.LabelWidth = 4;
    geometry.LabelHeight = 2;
    geometry.LabelsAcross = geometry.LabelsDown = 2;
    host_data.LabelForm = &label;
    host_data.LabelGeometryPtr = &geometry;
    ASSERT_EQ(StartNew(), 0);
    const int items = session->form.TotalItems;
    EXPECT_EQ(Add(SECTION_PAGE_HEADER), 1);
    EXPECT_EQ(AddNewSection(session, 0, -1, nullptr), 1);
    session->form.SelectedItem = 0;
    EXPECT_EQ(DeleteSection(session, 0), 0);
    EXPECT_EQ(session->form.TotalItems, items);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(SectionEdit, DeletingABandTakesItsItemsAndClosesTheGap) {
    StartOn(TwoSections());
    const int gamma = Item("Gamma").y;
    EXPECT_EQ(Delete(SECTION_PAGE_HEADER), 1);
    EXPECT_EQ(Row("Alpha"), -1);
    EXPECT_EQ(Row("Beta"), -1);
    EXPECT_EQ(Item("Gamma").y, gamma - BAND - Caption());
    EXPECT_EQ(+session->form.Sections[SECTION_PAGE_HEADER].InUse, 0);
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_EQ(session->view.PaintEnabled, 1u);
    ExpectBands();
}

TEST_F(SectionEdit, DeletingTheFirstBandTakesTheGroupToTheNext) {
    StartOn(TwoSections());
    session->form.Items[GroupRow(session)].y = static_cast<int16_t>(Caption() + 100);
    EXPECT_EQ(Delete(SECTION_PAGE_HEADER), 1);
    const ItemRecord &group = session->form.Items[GroupRow(session)];
    EXPECT_EQ(group.SectionIndex, SECTION_DETAIL_1);
    EXPECT_EQ(group.x, session->form.Items[0].x);
    EXPECT_EQ(group.y, Caption());
    ExpectBands();
}

TEST_F(SectionEdit, WithoutMemoryToMoveRowsTheGroupStillFindsItsPlace) {
    StartOn(TwoSections());
    session->form.Items[GroupRow(session)].y = static_cast<int16_t>(Caption() + 100);
    FailAllocation(1);
    EXPECT_EQ(Delete(SECTION_PAGE_HEADER), 1);
    FailAllocation(0);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Memory Allocation Error (OurAlloc)"});
    const ItemRecord &group = session->form.Items[GroupRow(session)];
    EXPECT_EQ(group.SectionIndex, SECTION_DETAIL_1);
    EXPECT_EQ(group.x, session->form.Items[0].x);
    EXPECT_EQ(group.y, Caption());
    ExpectBands();
}

TEST_F(SectionEdit, DeletingTheBandOfTheGroupMovesItToTheFirst) {
    StartOn(GroupInTheMiddle());
    EXPECT_EQ(Delete(SECTION_DETAIL_1), 1);
    const ItemRecord &group = session->form.Items[GroupRow(session)];
    EXPECT_EQ(group.SectionIndex, SECTION_PAGE_HEADER);
    EXPECT_EQ(group.x, Bar(SECTION_PAGE_HEADER).x);
    EXPECT_EQ(group.y, Caption());
    EXPECT_EQ(group.width, 100);
    ExpectBands();
}

TEST_F(SectionEdit, GroupOfADeletedBandThatLiesAtItsTargetAlreadyGoesToTheFirst) {
    StartOn(GroupInTheMiddle());
    ItemRecord &item = session->form.Items[GroupRow(session)];
    item.x = session->form.Items[0].x;
    item.y = static_cast<int16_t>(Caption());
    EXPECT_EQ(Delete(SECTION_DETAIL_1), 1);
    EXPECT_EQ(GroupRow(session), 1);
    EXPECT_EQ(+session->form.Items[1].SectionIndex, SECTION_PAGE_HEADER);
    EXPECT_EQ(+session->form.Items[1].y, Caption());
    ExpectBands();
}

TEST_F(SectionEdit, ABandThatComesInPlaceOfAnotherDropsTheUndoImage) {
    StartOn(TwoSections());
    SaveUndo(session);
    EXPECT_EQ(Add(SECTION_REPORT_HEADER), 1);
    EXPECT_EQ(DesignerOf(session).UndoImage, nullptr);
}

TEST_F(SectionEdit, DeletingAnotherBandLeavesTheGroup) {
    StartOn(GroupInTheMiddle());
    EXPECT_EQ(Delete(SECTION_PAGE_FOOTER), 1);
    EXPECT_EQ(Delete(SECTION_PAGE_HEADER), 1);
    const ItemRecord &group = session->form.Items[GroupRow(session)];
    EXPECT_EQ(group.SectionIndex, SECTION_DETAIL_1);
    EXPECT_EQ(group.x, 300);
    EXPECT_EQ(group.y, 110);
    ExpectBands();
}

TEST_F(SectionEdit, DeletingASortHeaderFreesItsTwoFields) {
    StartOn(TwoSections());
    const int fields = FieldsInUse();
    Add(SECTION_SORT_HEADER_1, "NAME");
    Add(SECTION_SORT_HEADER_1 + 1, "NAME");
    EXPECT_EQ(Delete(SECTION_SORT_HEADER_1 + 1), 1);
    EXPECT_EQ(+session->form.BreakCount, 1);
    EXPECT_EQ(FieldsInUse(), fields + 2);
    EXPECT_EQ(Delete(SECTION_SORT_HEADER_1), 1);
    EXPECT_EQ(FieldsInUse(), fields);
    ExpectBands();
}

TEST_F(SectionEdit, DeletingABandGivesUpWhatItsFilterNames) {
    FormBuilder form = TwoSections();
    const int constant = form.Constant(".T.", TYPE_LOGICAL, 1);
    form.Store({constant}, form.sections[SECTION_DETAIL_1].SectionFilter);
    StartOn(form);
    ASSERT_EQ(+session->form.Fields[constant].RefCount, 1);
    Delete(SECTION_DETAIL_1);
    EXPECT_EQ(+session->form.Fields[constant].InUse, 0);
    EXPECT_EQ(session->form.Sections[SECTION_DETAIL_1].SectionFilter[0], CELL_END);
}

TEST_F(SectionEdit, ADeletionIsConfirmedUnderTheSectionsName) {
    StartOn(TwoSections());
    boxes.Answer(IDNO);
    EXPECT_EQ(Delete(SECTION_PAGE_HEADER, 0), 0);
    EXPECT_EQ(boxes.Log(),
              (std::vector<BoxRecord>{{"Confirmation", "Delete Page Header   ?", {IDYES, IDNO}}}));
    EXPECT_GE(Row("Alpha"), 0);
    boxes.Answer(IDYES);
    EXPECT_EQ(Delete(SECTION_PAGE_HEADER, 0), 1);
    EXPECT_EQ(Row("Alpha"), -1);
}

TEST_F(SectionEdit, WhatMustStayIsToldBeforeAnyQuestion) {
    StartOn(TwoSections());
    Add(SECTION_SORT_HEADER_1, "NAME");
    Add(SECTION_SORT_HEADER_1 + 1, "NAME");
    EXPECT_EQ(Delete(SECTION_SORT_HEADER_1, 0), 0);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{
                               {"",
                                "Before this sort header can be deleted, all higher numbered sort "
                                "headers must be deleted.",
                                {IDOK}}}));
    Delete(SECTION_PAGE_HEADER);
    Delete(SECTION_SORT_HEADER_1 + 1);
    Delete(SECTION_SORT_HEADER_1);
    boxes.Clear();
    EXPECT_EQ(Delete(SECTION_DETAIL_1, 0), 0);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Cannot delete the last section."});
}

TEST_F(SectionEdit, ASectionThatTheHostDeletesAsItHearsOfTheChangeIsNotDeletedTwice) {
    StartOn(TwoSections());
    hearing = session;
    SetWindowLongA(host.Get(), GWL_WNDPROC, reinterpret_cast<LONG>(DeleteOnHearing));
    EXPECT_EQ(Delete(SECTION_PAGE_HEADER), 0);
    EXPECT_EQ(+session->form.Sections[SECTION_PAGE_HEADER].InUse, 0);
    EXPECT_TRUE(boxes.Log().empty());
    ExpectBands();
}

TEST_F(SectionEdit, AnArrangementOfOtherSectionsIsNotUndone) {
    StartOn(TwoSections());
    SaveUndo(session);
    Add(SECTION_PAGE_FOOTER);
    EXPECT_EQ(DesignerOf(session).UndoImage, nullptr);
    Add(SECTION_REPORT_HEADER);
    SaveUndo(session);
    Delete(SECTION_REPORT_HEADER);
    EXPECT_EQ(DesignerOf(session).UndoImage, nullptr);
}

TEST_F(SectionEdit, NothingSelectedDeletesNothing) {
    StartOn(TwoSections());
    session->form.SelectedItem = NOTHING_SELECTED;
    EXPECT_EQ(DeleteSection(session, 1), 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(SectionEdit, ASectionWithoutItsBarIsFatal) {
    StartOn(TwoSections());
    session->form.SelectedItem = Row("Gamma");
    session->form.Items[session->form.Sections[SECTION_DETAIL_1].BarItem].ItemType = ITEM_LABEL;
    const int code = AtEntry(
        session, [&] { return DeleteSection(session, 1); }, [&] { return session->ErrorCode; });
    EXPECT_EQ(code, CODE_FORM_CONTRADICTION);
    EXPECT_EQ(boxes.LastText(), "Section Not Found!(DeleteSection)");
    EXPECT_EQ(session->view.PaintEnabled, 1u);
}

TEST_F(SectionEdit, AFormWithoutAGroupIsFatalToADeletion) {
    StartOn(TwoSections());
    session->form.Items[GroupRow(session)].ItemType = ITEM_LINE;
    const int code = AtEntry(
        session, [&] { return Delete(SECTION_DETAIL_1); }, [&] { return session->ErrorCode; });
    EXPECT_EQ(code, CODE_FORM_CONTRADICTION);
    EXPECT_EQ(boxes.LastText(), "Group Item Not Found!(DeleteSection)");
    EXPECT_EQ(session->view.PaintEnabled, 1u);
}

TEST_F(SectionEdit, EverySectionComesAndGoesAgain) {
    StartOn(TwoSections());
    for (int section = 0; section < MAX_SECTIONS; ++section) {
        if (section == SECTION_PAGE_HEADER || section == SECTION_DETAIL_1) continue;
        EXPECT_EQ(Add(section, "NAME"), 1) << section;
        ExpectBands();
    }
    EXPECT_EQ(+session->form.BreakCount, MAX_BREAKS);
    for (int section = MAX_SECTIONS - 1; section > 0; --section) {
        EXPECT_EQ(Delete(section), 1) << section << boxes.LastText();
        ExpectBands();
    }
    EXPECT_EQ(+session->form.BreakCount, 0);
}
