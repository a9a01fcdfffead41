#include "designer/section_fields.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "commands.h"
#include "designer/item_table.h"
#include "designer/section_edit.h"
#include "expr/validate.h"
#include "frame/boundary.h"
#include "frame/text.h"
#include "tests/support/designer_session.h"

using namespace tessarine;

namespace {

constexpr int HEADER = SECTION_SORT_HEADER_1;

class SectionFields : public DesignerSession {
protected:
    // What the user does in a dialog of this title.
    struct Act {
        std::string title;
        std::function<void(DialogDriver)> act;
    };

    SectionFields() {
        for (const char *name : {"NAME", "CITY", "ZIP"}) Know(name, TYPE_TEXT, 20);
        Know("AMOUNT", TYPE_NUMERIC, 9);
    }
    void SetUp() override {
        ASSERT_EQ(StartOn(TwoSections()), 0);
        AddNewSection(session, 1, HEADER, "NAME");
        AddNewSection(session, 1, HEADER + 1, "CITY");
        Choose(HEADER);
    }
    void Know(const char *name, int type, int width) {
        FieldRecord field{};
        CopyText(name, field.FieldName, sizeof field.FieldName);
        field.ValueType = static_cast<int16_t>(type);
        field.FieldWidth = static_cast<int16_t>(width);
        field.HostTable = 2;
        field.HostField = static_cast<int16_t>(known.size());
        known[name] = field;
    }
    void Choose(int section) { session->form.SelectedItem = BarOfSection(session, section); }

    std::string SortTitle(int section = HEADER) const {
        return std::string("Sort Field for Section: ") + session->form.SectionNames[section];
    }
    std::string BreakTitle(int section = HEADER) const {
        return std::string("Break Field for Section: ") + session->form.SectionNames[section];
    }
    static std::function<void(DialogDriver)> Types(const std::string &name) {
        return [name](DialogDriver dialog) {
            dialog.SetText(TEXT_INPUT, name);
            dialog.Press(IDOK);
        };
    }
    static std::function<void(DialogDriver)> Writes(const std::string &expression) {
        return [expression](DialogDriver dialog) {
            dialog.SetText(EXPRESSION_TEXT, expression);
            dialog.Press(IDOK);
        };
    }
    static std::function<void(DialogDriver)> Presses(int button) {
        return [button](DialogDriver dialog) { dialog.Press(button); };
    }
    // Leaves the dialog by Cancel if it shows the name.
    static std::function<void(DialogDriver)> SeesAndCancels(const std::string &name) {
        return [name](DialogDriver dialog) {
            EXPECT_EQ(dialog.Text(TEXT_INPUT), name);
            dialog.Press(IDCANCEL);
        };
    }

    // Runs a command under these acts, each of which must come, in this order.
    int Under(const std::vector<Act> &acts, int (*command)(Session *)) {
        size_t turn = 0;
        for (const Act &row : acts)
            boxes.OnDialog(row.title, [&, title = row.title](HWND dialog) {
                if (turn < acts.size() && acts[turn].title == title)
                    return acts[turn++].act(DialogDriver(dialog));
                ADD_FAILURE() << "out of turn: " << title;
                DialogDriver(dialog).Press(IDCANCEL);
            });
        const int result = command(session);
        EXPECT_EQ(turn, acts.size());
        EXPECT_EQ(boxes.Texts(), std::vector<std::string>{});
        return result;
    }
    int Breaks(const std::vector<Act> &acts) { return Under(acts, EditSectionBreak); }

    FieldRecord &SortField(int place = 0) const {
        return session->form.Fields[session->form.Breaks[place].SortField];
    }
    FieldRecord &BreakField(int place = 0) const {
        return session->form.Fields[session->form.Breaks[place].BreakField];
    }
    std::string TextOf(const Cell *cells) const {
        char text[600];
        ExpressionText(session, cells, text, sizeof text);
        return text;
    }
    // To the shared row of this name.
    int References(const std::string &name) const {
        int count = 0;
        for (int row = 0; row < session->form.FieldCount; ++row) {
            const FieldRecord &field = session->form.Fields[row];
            if (field.InUse && (field.FieldFlags & FIELD_SHARED) && field.FieldName == name)
                count += field.RefCount;
        }
        return count;
    }
    void MakeCalculation() {
        Breaks({{BreakTitle(), Presses(BREAK_ON_CALCULATION)}, {"COMP_EXP1", Writes("AMOUNT+1")}});
        ASSERT_EQ(+BreakField().FieldKind, FIELD_CALC);
    }
};

} // namespace

TEST_F(SectionFields, AHeaderAndItsFooterFindTheSameRow) {
    EXPECT_EQ(FindBreak(session, HEADER), 0);
    EXPECT_EQ(FindBreak(session, SECTION_SORT_FOOTER_1), 0);
    EXPECT_EQ(FindBreak(session, HEADER + 1), 1);
    EXPECT_EQ(FindBreak(session, SECTION_SORT_FOOTER_1 - 1), 1);
    for (const int section : {SECTION_PAGE_HEADER, SECTION_DETAIL_1, SECTION_SORT_HEADER_9,
                              SECTION_SORT_FOOTER_9, SECTION_REPORT_FOOTER, SECTION_PAGE_FOOTER}) {
        EXPECT_EQ(FindBreak(session, section), -1) << section;
        EXPECT_EQ(FindSortField(session, section), -1) << section;
    }
    EXPECT_EQ(FindSortField(session, SECTION_SORT_FOOTER_1), +session->form.Breaks[0].SortField);
}

TEST_F(SectionFields, OnlyASortHeaderHasASortAndABreakField) {
    for (const int section : {SECTION_PAGE_HEADER, SECTION_DETAIL_1, SECTION_PAGE_FOOTER}) {
        Choose(section); // the last isn't there: nothing is selected
        EXPECT_EQ(EditSortField(session), 0) << section;
        EXPECT_EQ(EditSectionBreak(session), 0) << section;
    }
}

TEST_F(SectionFields, ASortHeaderWithoutItsRowIsFatal) {
    session->form.BreakCount = 0;
    for (int (*const edit)(Session *) : {EditSortField, EditSectionBreak}) {
        const int code = AtEntry(
            session, [&] { return edit(session); }, [&] { return session->ErrorCode; });
        EXPECT_EQ(code, 10);
        EXPECT_EQ(boxes.LastText(), "Invalid Section, File Corruption Detected!");
        EXPECT_EQ(boxes.LastTitle(), "Fatal Error");
    }
}

TEST_F(SectionFields, ABreakFieldThatIsEqualFollowsTheSortField) {
    BreakField().SummarySection = 5;
    EXPECT_EQ(Under({{SortTitle(), Types("amount")}}, EditSortField), 1);
    for (const FieldRecord *field : {&SortField(), &BreakField()}) {
        EXPECT_STREQ(field->FieldName, "AMOUNT");
        EXPECT_EQ(+field->ValueType, TYPE_NUMERIC);
        EXPECT_EQ(+field->FieldWidth, 9);
        EXPECT_EQ(+field->HostTable, 2);
        EXPECT_EQ(+field->HostField, +known["AMOUNT"].HostField);
    }
    EXPECT_EQ(+BreakField().SummarySection, 5);
}

TEST_F(SectionFields, ABreakFieldOfItsOwnStaysWhenTheSortFieldChanges) {
    EXPECT_EQ(Breaks({{BreakTitle(), Types("ZIP")}}), 1);
    EXPECT_STREQ(BreakField().FieldName, "ZIP");
    EXPECT_STREQ(SortField().FieldName, "NAME");
    Under({{SortTitle(), Types("CITY")}}, EditSortField);
    EXPECT_STREQ(SortField().FieldName, "CITY");
    EXPECT_STREQ(BreakField().FieldName, "ZIP");
}

TEST_F(SectionFields, CancelKeepsTheSortField) {
    EXPECT_EQ(Under({{SortTitle(), SeesAndCancels("NAME")}}, EditSortField), 1);
    EXPECT_STREQ(SortField().FieldName, "NAME");
    EXPECT_STREQ(BreakField().FieldName, "NAME");
}

TEST_F(SectionFields, CancelKeepsTheBreakField) {
    EXPECT_EQ(Breaks({{BreakTitle(), SeesAndCancels("NAME")}}), 1);
    EXPECT_STREQ(BreakField().FieldName, "NAME");
}

TEST_F(SectionFields, ACalculatedBreakIsNamedByItsPlace) {
    MakeCalculation();
    EXPECT_STREQ(BreakField().FieldName, "COMP_EXP1");
    EXPECT_EQ(+BreakField().ValueType, TYPE_NUMERIC);
    EXPECT_EQ(TextOf(BreakField().FieldTokens), "AMOUNT+1");
    EXPECT_EQ(References("AMOUNT"), 1);
    EXPECT_STREQ(SortField().FieldName, "NAME");
    Choose(HEADER + 1);
    Breaks({{BreakTitle(HEADER + 1), Presses(BREAK_ON_CALCULATION)},
            {"COMP_EXP2", Writes("AMOUNT+2")}});
    EXPECT_STREQ(BreakField(1).FieldName, "COMP_EXP2");
    EXPECT_EQ(References("AMOUNT"), 2);
}

TEST_F(SectionFields, ACalculationTakesTheTypeOfItsResult) {
    Breaks({{BreakTitle(), Presses(BREAK_ON_CALCULATION)}, {"COMP_EXP1", Writes("AMOUNT>1")}});
    EXPECT_EQ(+BreakField().ValueType, TYPE_LOGICAL);
}

TEST_F(SectionFields, LeavingTheExpressionReturnsToABreakOnTheSortField) {
    Breaks({{BreakTitle(), Types("ZIP")}});
    Breaks({{BreakTitle(), Presses(BREAK_ON_CALCULATION)},
            {"COMP_EXP1", Presses(IDCANCEL)},
            {BreakTitle(), SeesAndCancels("NAME")}});
    EXPECT_STREQ(BreakField().FieldName, "ZIP");
}

TEST_F(SectionFields, AnEmptyExpressionReturnsToABreakOnTheSortField) {
    Breaks({{BreakTitle(), Presses(BREAK_ON_CALCULATION)},
            {"COMP_EXP1", Writes("")},
            {BreakTitle(), Presses(BREAK_ON_CALCULATION)},
            {"COMP_EXP1", Writes("")},
            {BreakTitle(), Types("CITY")}});
    EXPECT_STREQ(BreakField().FieldName, "CITY");
    EXPECT_EQ(+BreakField().FieldKind, FIELD_DATA);
}

TEST_F(SectionFields, ACalculationGoesStraightToItsExpression) {
    MakeCalculation();
    Breaks({{"COMP_EXP1", Writes("AMOUNT*AMOUNT")}});
    EXPECT_EQ(TextOf(BreakField().FieldTokens), "AMOUNT*AMOUNT");
    EXPECT_EQ(References("AMOUNT"), 2);
    EXPECT_EQ(References("1"), 0);
}

TEST_F(SectionFields, ACalculationThatIsLeftTwiceStays) {
    MakeCalculation();
    Breaks({{"COMP_EXP1", Presses(IDCANCEL)}, {BreakTitle(), SeesAndCancels("NAME")}});
    EXPECT_EQ(TextOf(BreakField().FieldTokens), "AMOUNT+1");
    EXPECT_EQ(References("AMOUNT"), 1);
}

TEST_F(SectionFields, ADataFieldInACalculationsPlaceGivesUpWhatItHeld) {
    MakeCalculation();
    Breaks({{"COMP_EXP1", Presses(IDCANCEL)}, {BreakTitle(), Types("ZIP")}});
    EXPECT_STREQ(BreakField().FieldName, "ZIP");
    EXPECT_EQ(+BreakField().FieldTokens[0], CELL_END);
    EXPECT_EQ(References("AMOUNT"), 0);
}

TEST_F(SectionFields, AnotherCalculationInItsPlaceGivesUpWhatTheFirstHeld) {
    MakeCalculation();
    Breaks({{"COMP_EXP1", Presses(IDCANCEL)},
            {BreakTitle(), Presses(BREAK_ON_CALCULATION)},
            {"COMP_EXP1", Writes("AMOUNT*3")}});
    EXPECT_EQ(TextOf(BreakField().FieldTokens), "AMOUNT*3");
    EXPECT_EQ(References("AMOUNT"), 1);
    EXPECT_EQ(References("1"), 0);
}

TEST_F(SectionFields, ACalculationThatIsEmptiedBreaksOnTheSortFieldEvenAfterCancel) {
    MakeCalculation();
    Breaks({{"COMP_EXP1", Writes("")}, {BreakTitle(), SeesAndCancels("NAME")}});
    EXPECT_STREQ(BreakField().FieldName, "NAME");
    EXPECT_EQ(+BreakField().FieldKind, FIELD_DATA);
    EXPECT_EQ(References("AMOUNT"), 0);
}

TEST_F(SectionFields, DeletingTheHeaderGivesUpItsCalculation) {
    Choose(HEADER + 1);
    Breaks({{BreakTitle(HEADER + 1), Presses(BREAK_ON_CALCULATION)},
            {"COMP_EXP2", Writes("AMOUNT+2")}});
    EXPECT_EQ(DeleteSection(session, 1), 1);
    EXPECT_EQ(References("AMOUNT"), 0);
}

TEST_F(SectionFields, AFieldThatIsEditedUnderTheExpressionDoesNotMixWithIt) {
    const auto edits_another = [this](DialogDriver dialog) {
        EditSortField(session);
        Writes("AMOUNT+1")(dialog);
    };
    Breaks({{BreakTitle(), Presses(BREAK_ON_CALCULATION)},
            {"COMP_EXP1", edits_another},
            {SortTitle(), SeesAndCancels("NAME")}});
    EXPECT_EQ(+BreakField().FieldKind, FIELD_CALC);
    EXPECT_STREQ(BreakField().FieldName, "COMP_EXP1");
    EXPECT_EQ(TextOf(BreakField().FieldTokens), "AMOUNT+1");
}

TEST_F(SectionFields, ACalculationThatGoesUnderItsDialogIsGivenUpOnce) {
    MakeCalculation();
    Choose(HEADER + 1);
    Breaks({{BreakTitle(HEADER + 1), Presses(BREAK_ON_CALCULATION)},
            {"COMP_EXP2", Writes("AMOUNT+2")}});
    ASSERT_EQ(References("AMOUNT"), 2);
    const auto deletes = [this](DialogDriver dialog) {
        EXPECT_EQ(DeleteSection(session, 1), 1);
        Writes("AMOUNT+3")(dialog);
    };
    EXPECT_EQ(Breaks({{"COMP_EXP2", deletes}}), 1);
    EXPECT_EQ(References("AMOUNT"), 1); // of the first header
    EXPECT_EQ(References("3"), 0);
    EXPECT_EQ(TextOf(BreakField().FieldTokens), "AMOUNT+1");
}

TEST_F(SectionFields, ASectionThatGoesUnderTheDialogIsLeftAlone) {
    Choose(HEADER + 1);
    const auto deletes = [this](DialogDriver dialog) {
        Choose(HEADER + 1);
        EXPECT_EQ(DeleteSection(session, 1), 1);
        dialog.Press(IDCANCEL);
    };
    EXPECT_EQ(Breaks({{BreakTitle(HEADER + 1), deletes}}), 1);
    EXPECT_EQ(+session->form.BreakCount, 1);
}
