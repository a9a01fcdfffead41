#include "designer/clipboard.h"

#include <gtest/gtest.h>

#include "commands.h"
#include "designer/delete_item.h"
#include "designer/designer_state.h"
#include "designer/group.h"
#include "designer/open.h"
#include "form/field_table.h"
#include "frame/boundary.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "tests/support/clipboard_form.h"
#include "tests/support/failing_call.h"
#include "tests/support/item_order.h"

using namespace tessarine;

namespace {

using ClipboardCopy = ClipboardForm;

const BoxRecord IN_USE{"Not Available", "Clipboard in use by another application", {IDOK}};

} // namespace

TEST_F(ClipboardCopy, ACopiedItemKeepsItsSizeAndLiesAtTheBlocksCorner) {
    Open();
    Copy(Row("Gamma"));
    const Designer &designer = DesignerOf(session);
    ASSERT_EQ(designer.ClipCount, 1);
    EXPECT_STREQ(designer.ClipItems[0]->LabelText, "Gamma");
    EXPECT_EQ(designer.ClipItems[0]->x, 0);
    EXPECT_EQ(designer.ClipItems[0]->y, 0);
    EXPECT_EQ(designer.ClipFields[0], nullptr);
    EXPECT_EQ(designer.ClipWidth, 200);
    EXPECT_EQ(designer.ClipHeight, 50);
}

TEST_F(ClipboardCopy, TheSystemsClipboardCarriesAMarkerAlone) {
    Open();
    Copy(Row("Gamma"));
    ASSERT_TRUE(OpenClipboard(host.Get()));
    EXPECT_EQ(CountClipboardFormats(), 1);
    const HANDLE marker = GetClipboardData(session->device.ClipFormat);
    ASSERT_NE(marker, nullptr);
    EXPECT_GE(GlobalSize(marker), 100u);
    EXPECT_STREQ(static_cast<const char *>(GlobalLock(marker)), "Tessarine Plus data");
    GlobalUnlock(marker);
    CloseClipboard();
}

TEST_F(ClipboardCopy, ACopyEndsTheSelectionAndChangesNoForm) {
    Open();
    const int items = session->form.TotalItems;
    Copy(Row("Gamma"));
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
    EXPECT_EQ(session->form.TotalItems, items);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(ClipboardCopy, ACutRemovesTheItemsAndLeavesTheGroupWithItsRectangle) {
    Open();
    ChooseAll();
    Cut(GroupRow(session));
    EXPECT_EQ(session->form.TotalItems, 3); // two bars and the group
    const ItemRecord &group = session->form.Items[GroupRow(session)];
    EXPECT_EQ(group.width, 2000);
    EXPECT_EQ(group.height, 1500);
    EXPECT_EQ(DesignerOf(session).ClipCount, 5);
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_EQ(WhatIsWrong(session), "");
}

TEST_F(ClipboardCopy, AGroupsBlockIsAroundItsMembers) {
    Open();
    ChooseAll();
    session->form.Items[GroupRow(session)].y = 500; // the detail's items alone
    Copy(GroupRow(session));
    const Designer &designer = DesignerOf(session);
    ASSERT_EQ(designer.ClipCount, 4);
    EXPECT_EQ(designer.ClipWidth, 1500 - 300);
    EXPECT_EQ(designer.ClipHeight, 50);
    EXPECT_EQ(designer.ClipItems[0]->x, 0);
    EXPECT_EQ(designer.ClipItems[3]->x, 900);
    for (int row = 0; row < session->form.TotalItems; ++row)
        EXPECT_EQ(+session->form.Items[row].GroupMark, 0) << row;
}

TEST_F(ClipboardCopy, ARowAboveTheFirstMovesTheLeftEdgeAndNotTheTop) {
    Open();
    ChooseAll();
    ItemRecord &line = session->form.Items[RowOfType(ITEM_LINE)];
    Item("Alpha").y = 90;
    line.y = 70; // the last row, and above the first
    Copy(GroupRow(session));
    const Designer &designer = DesignerOf(session);
    ASSERT_EQ(designer.ClipCount, 5);
    EXPECT_EQ(designer.ClipItems[0]->x, 200 - 70);
    EXPECT_EQ(designer.ClipItems[0]->y, 0);
    EXPECT_EQ(designer.ClipItems[4]->x, 1200 - 70);
    EXPECT_EQ(designer.ClipItems[4]->y, 70 - 90);
    EXPECT_EQ(designer.ClipWidth, 1500 - 70);
}

TEST_F(ClipboardCopy, OfAHundredAndOneItemsAHundredAreCopiedWithoutAWord) {
    FormBuilder form = TwoSections();
    for (int number = 0; number < 98; ++number)
        form.Label(SECTION_DETAIL_1, 600, 100, 50, 20, "Many");
    StartOn(form);
    ChooseAll();
    Copy(GroupRow(session));
    EXPECT_EQ(DesignerOf(session).ClipCount, 100);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_TRUE(MarkerStands());
}

TEST_F(ClipboardCopy, ANewCopyTakesThePlaceOfTheOld) {
    Open();
    const int blocks = LiveBlocks();
    ChooseAll();
    Copy(GroupRow(session));
    Copy(Row("Gamma"));
    EXPECT_EQ(DesignerOf(session).ClipCount, 1);
    ClearClip(session);
    EXPECT_EQ(DesignerOf(session).ClipCount, 0);
    EXPECT_EQ(LiveBlocks(), blocks);
}

TEST_F(ClipboardCopy, ACopiedCalculationHoldsItsSharedRows) {
    Open();
    ASSERT_EQ(References(), 2);
    const int row = RowOfType(ITEM_FIELD) + 1;
    Copy(row);
    EXPECT_EQ(References(), 4);
    Cut(row); // the old copy goes first, and the field itself last
    EXPECT_EQ(References(), 2);
    EXPECT_EQ(+session->form.Fields[constant].InUse, 1);
    ClearClip(session);
    EXPECT_EQ(References(), 0);
    EXPECT_EQ(+session->form.Fields[constant].InUse, 0);
}

TEST_F(ClipboardCopy, AnEndedSessionGivesItsStoreBackAndTellsTheHostNothing) {
    const int blocks = LiveBlocks();
    Open();
    ChooseAll();
    Copy(GroupRow(session));
    const int told = host.Count(MESSAGE_MODIFIED);
    End();
    EXPECT_EQ(host.Count(MESSAGE_MODIFIED), told);
    EXPECT_EQ(LiveBlocks(), blocks);
}

TEST_F(ClipboardCopy, AClipboardThatAnotherThreadHoldsEndsTheCommand) {
    Open();
    Copy(Row("Alpha"));
    {
        const ClipboardHolder holder;
        Cut(Row("Gamma"));
    }
    EXPECT_EQ(boxes.Log(), std::vector<BoxRecord>{IN_USE});
    EXPECT_GE(Row("Gamma"), 0);
    EXPECT_EQ(session->form.SelectedItem, Row("Gamma"));
    EXPECT_STREQ(DesignerOf(session).ClipItems[0]->LabelText, "Alpha");
}

TEST_F(ClipboardCopy, AClipboardThatAnotherWindowHoldsEndsTheCommand) {
    Open();
    ASSERT_TRUE(OpenClipboard(host.Get()));
    Copy(Row("Gamma"));
    CloseClipboard();
    EXPECT_EQ(boxes.Log(), std::vector<BoxRecord>{IN_USE});
    EXPECT_EQ(DesignerOf(session).ClipCount, 0);
}

TEST_F(ClipboardCopy, AHostsCopyOfNothingEmptiesTheStoreAndLeavesTheClipboardOpenForTheNext) {
    Open();
    for (const int row : {NOTHING_SELECTED, 0}) {
        Copy(Row("Gamma"));
        Copy(row); // nothing, or a bar
        EXPECT_EQ(DesignerOf(session).ClipCount, 0);
        EXPECT_EQ(GetOpenClipboardWindow(), session->Window);
        EXPECT_EQ(session->form.SelectedItem, row);
    }
    Copy(Row("Gamma"));
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
    EXPECT_TRUE(MarkerStands());
}

TEST_F(ClipboardCopy, AClipboardLeftOpenIsFreeAgainBehindTheWindow) {
    Open();
    Copy(NOTHING_SELECTED);
    End();
    EXPECT_TRUE(OpenClipboard(host.Get()));
    CloseClipboard();
}

TEST_F(ClipboardCopy, WithoutMemoryForTheMarkerNothingIsSetAndTheClipboardStaysOpen) {
    Open();
    Choose(Row("Gamma"));
    {
        const FailingCall failing("GlobalAlloc", GlobalAlloc, nullptr);
        CopyItems(session, 0);
    }
    EXPECT_FALSE(MarkerStands());
    EXPECT_EQ(GetOpenClipboardWindow(), session->Window);
    EXPECT_EQ(DesignerOf(session).ClipCount, 1);
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
    CloseClipboard();
}

TEST_F(ClipboardCopy, AMarkerThatCantBeLockedIsNotSet) {
    Open();
    Choose(Row("Gamma"));
    {
        const FailingCall failing("GlobalLock", GlobalLock, nullptr);
        CopyItems(session, 0);
    }
    EXPECT_FALSE(MarkerStands());
    EXPECT_EQ(GetOpenClipboardWindow(), session->Window);
    CloseClipboard();
}

TEST_F(ClipboardCopy, AGroupWithoutMembersPutsNothing) {
    Open();
    Copy(GroupRow(session));
    EXPECT_EQ(DesignerOf(session).ClipCount, 0);
    EXPECT_FALSE(MarkerStands());
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
}

TEST_F(ClipboardCopy, WithoutMemoryForAnItemItsRowCountsAndNothingIsCut) {
    Open();
    Choose(Row("Gamma"));
    FailAllocation(1);
    CopyItems(session, 1);
    FailAllocation(0);
    EXPECT_EQ(boxes.Log(),
              (std::vector<BoxRecord>{{"", "Memory Allocation Error (MemAlloc)", {IDOK}},
                                      {"", "Ran Out of Memory(AddClipItem)", {IDOK}}}));
    EXPECT_EQ(DesignerOf(session).ClipCount, 1);
    EXPECT_EQ(DesignerOf(session).ClipItems[0], nullptr);
    EXPECT_GE(Row("Gamma"), 0);
    PasteAt(300, 600);
    EXPECT_EQ(WhatIsWrong(session), "");
}

TEST_F(ClipboardCopy, WithoutMemoryForAFieldItsRecordStaysAndIsPastedAsALabel) {
    Open();
    Choose(RowOfType(ITEM_FIELD));
    FailAllocation(2);
    CopyItems(session, 0);
    FailAllocation(0);
    EXPECT_EQ(boxes.LastText(), "Ran Out of Memory(AddClipField a)");
    EXPECT_EQ(DesignerOf(session).ClipCount, 1);
    ASSERT_NE(DesignerOf(session).ClipItems[0], nullptr);
    EXPECT_EQ(DesignerOf(session).ClipFields[0], nullptr);
    const int fields = FieldsInUse();
    PasteAt(300, 700);
    EXPECT_EQ(session->form.Items[session->form.SelectedItem].ItemType, ITEM_LABEL);
    EXPECT_EQ(FieldsInUse(), fields);
}

TEST_F(ClipboardCopy, AGroupThatFindsNoMemoryIsToldOnceAndNotCut) {
    Open();
    ChooseAll();
    FailAllocation(2);
    Cut(GroupRow(session));
    FailAllocation(0);
    EXPECT_EQ(boxes.Texts().back(), "Ran Out of Memory(AddClipItem)");
    EXPECT_EQ(boxes.Log().size(), 2u);
    EXPECT_EQ(session->form.TotalItems, 8);
    EXPECT_EQ(DesignerOf(session).ClipCount, 2);
}

TEST_F(ClipboardCopy, ACalculationThatFindsNoRowIsNotCut) {
    FormBuilder form = Builder();
    const int operand = form.Field(FIELD_DATA, "AMOUNT", TYPE_NUMERIC);
    form.Store({operand}, form.fields[2].FieldTokens);
    StartOn(form);
    session->form.FieldCapacity = session->form.FieldCount;
    const int row = RowOfType(ITEM_FIELD) + 1;
    Cut(row);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Ran out of field table(CopyCreateExp)!"});
    EXPECT_EQ(session->form.Items[row].ItemType, ITEM_FIELD);
}

TEST_F(ClipboardCopy, APictureIsDeletedBesideARowThatHasNoBlock) {
    Open();
    FailAllocation(1);
    Copy(Row("Gamma"));
    FailAllocation(0);
    session->form.Items[Row("Alpha")].ItemType = ITEM_PICTURE;
    Choose(Row("Alpha"));
    DeleteItem(session);
    EXPECT_EQ(Row("Alpha"), -1);
}

TEST_F(ClipboardCopy, WhatOneWindowHasCopiedIsGreyInAnothersMenu) {
    Open();
    Copy(Row("Gamma"));
    FormParams other = params;
    *other.FormFile = 0;
    ASSERT_EQ(form(&other), 0);
    Session *second = GetSessionPointer(other.FormWindow, 0);
    EXPECT_NE(second->device.ClipFormat, session->device.ClipFormat);
    EXPECT_FALSE(IsClipboardFormatAvailable(second->device.ClipFormat));
    const DrivenWindow window(other.FormWindow);
    window.OpenMenu();
    EXPECT_FALSE(window.MenuEnabled(COMMAND_PASTE));
    OpenMenu();
    EXPECT_TRUE(MenuEnabled(COMMAND_PASTE));
    second->form.FormModified = 0;
    WantEnd(second);
    ReleaseIfDue(second);
}

TEST_F(ClipboardCopy, TheStoreOutlivesAnotherProgramsClipboard) {
    Open();
    Copy(Row("Gamma"));
    ASSERT_TRUE(OpenClipboard(host.Get()));
    EmptyClipboard();
    CloseClipboard();
    EXPECT_FALSE(MarkerStands());
    EXPECT_EQ(DesignerOf(session).ClipCount, 1);
    PasteAt(300, 700);
    EXPECT_STREQ(session->form.Items[session->form.SelectedItem].LabelText, "Gamma");
}
