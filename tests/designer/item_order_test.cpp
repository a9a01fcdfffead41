#include "tests/support/item_order.h"

#include <algorithm>
#include <iterator>
#include <random>
#include <vector>

#include "designer/arrange.h"
#include "designer/delete_item.h"
#include "designer/item_table.h"
#include "designer/relocate.h"
#include "designer/resize.h"
#include "designer/room.h"
#include "designer/undo.h"
#include "tests/support/laid_out_form.h"

using namespace tessarine;

namespace {

struct ItemOrder : LaidOutForm {
    ItemOrder() { MakeForm(); }
};

// A seeded walk over all that moves rows.
class Walk {
public:
    Walk(Session *session, unsigned seed) : session_(session), random_(seed) {}

    void Step() {
        session_->form.SelectedItem = Number(0, session_->form.TotalItems - 1);
        DesignerOf(session_).SnapToGrid = static_cast<uint32_t>(Number(0, 1));
        const int x = Number(-100, 2100);
        const int y = Number(-100, session_->form.ReportHeight + 100);
        DesignerOf(session_).FocusRect = {x, y, x + Number(-50, 600), y + Number(-50, 300)};
        if (Number(0, 2) == 0) MakeGroup();
        steps[static_cast<size_t>(Number(0, static_cast<int>(std::size(steps)) - 1))](session_);
    }

private:
    static void DeleteContent(Session *session) {
        const bool bar = Selected(session)->ItemType == ITEM_BAR;
        if (!bar && session->form.TotalItems > 20) DeleteItem(session);
    }
    static void Size(Session *session) { SizeItem(session); }
    static void SizeBar(Session *session) {
        session->form.SelectedItem = BarOfSection(session, Selected(session)->SectionIndex);
        SizeItem(session);
    }
    // What a drag of the rubber band leaves.
    void MakeGroup() {
        for (int row = 0; row < session_->form.TotalItems; ++row)
            if (session_->form.Items[row].ItemType == ITEM_GROUP) session_->form.SelectedItem = row;
        const RECT place = DesignerOf(session_).FocusRect;
        SizeItem(session_);
        DesignerOf(session_).FocusRect = place;
        OffsetRect(&DesignerOf(session_).FocusRect, Number(-40, 40), Number(-40, 40));
    }
    int Number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }

    static constexpr void (*steps[])(Session *) = {
        Size,           MoveItem,    MoveItem,     SizeBar,      CenterItem,     AlignTop,
        AlignBottom,    AlignLeft,   AlignRight,   AlignCenter,  AlignMiddle,    SpaceAcross,
        SpaceDown,      ExpandDown,  ExpandAcross, CompressDown, CompressAcross, SizeEvenWidth,
        SizeEvenHeight, RestoreUndo, DeleteContent};

    Session *session_;
    std::mt19937 random_;
};

} // namespace

TEST_F(ItemOrder, FormInOrderHasNothingWrong) {
    EXPECT_EQ(WhatIsWrong(session), "");
    EXPECT_EQ(WhatIsUnsorted(session), "");
}

TEST_F(ItemOrder, EachDisorderIsNamed) {
    struct {
        const char *wrong;
        void (*damage)(FormState *form);
    } constexpr cases[] = {
        {"row 0: no bar", [](FormState *form) { form->Items[0].ItemType = ITEM_LABEL; }},
        {"0 groups", [](FormState *form) { form->Items[1].ItemType = ITEM_LABEL; }},
        {"2 groups", [](FormState *form) { form->Items[6].ItemType = ITEM_GROUP; }},
        {"row 3: in no section", [](FormState *form) { form->Items[3].SectionIndex = 31; }},
        {"row 3: in section 7, which isn't in use",
         [](FormState *form) { form->Items[3].SectionIndex = 7; }},
        {"row 6: behind a later section", [](FormState *form) { form->Items[6].SectionIndex = 0; }},
        {"row 4: in front of its bar", [](FormState *form) { form->Items[4].SectionIndex = 11; }},
        {"row 6: a second bar", [](FormState *form) { form->Items[6].ItemType = ITEM_BAR; }},
        {"section 11: BarItem 2 is not its bar",
         [](FormState *form) { form->Sections[11].BarItem = 2; }},
        {"section 5: BarItem 0 is not its bar",
         [](FormState *form) { form->Sections[5].InUse = 1; }},
    };
    const std::vector<ItemRecord> rows(session->form.Items, session->form.Items + 9);
    for (const auto &row : cases) {
        row.damage(&session->form);
        EXPECT_EQ(WhatIsWrong(session), row.wrong);
        std::copy(rows.begin(), rows.end(), session->form.Items);
        session->form.Sections[5].InUse = 0;
        RenewBars(session, 0);
    }
    Item("b").y = 99;
    EXPECT_EQ(WhatIsUnsorted(session), "row 3: in front of the one before");
}

TEST_F(ItemOrder, HoldsWhateverMovesTheRows) {
    for (int number = 0; number < 60; ++number) {
        Add("n" + std::to_string(number), ITEM_LABEL, SECTION_PAGE_FOOTER, 100, 1000, 100, 50);
        RelocateItem(session, session->form.TotalItems - 1, 20 * number, -15 * number);
    }
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const std::vector<ItemRecord> rows(session->form.Items,
                                           session->form.Items + session->form.TotalItems);
        Walk walk(session, seed);
        for (int step = 0; step < 200; ++step) {
            walk.Step();
            ASSERT_EQ(WhatIsWrong(session), "") << seed << " at " << step << ": " << Names();
        }
        std::copy(rows.begin(), rows.end(), session->form.Items);
        session->form.TotalItems = static_cast<int>(rows.size());
        session->form.ReportHeight = 1200;
        RenewBars(session, 0);
    }
}
