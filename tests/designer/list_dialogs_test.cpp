#include "designer/dialogs/list_dialogs.h"

#include "designer/designer_state.h"
#include "tests/designer/dialog_session.h"

using namespace tessarine;

namespace {

using Rows = std::vector<std::string>;

struct ListCase {
    const char *name;
    DLGPROC procedure;
    const char *title;
    int help;
    int cancelled;
    bool modifies;
};

const char *section_names[] = {"One", "Two", "Three", nullptr};

const ListCase list_cases[] = {
    {"NewSecParam", NewSecParam, "Select New Section", 3002, -1, true},
    {"SysParam", SysParam, "Select System Field", 3003, -1, true},
    {"DlgParam", DlgParam, "Select User Field", 3008, -1, false},
    {"SumParam", SumParam, "Summary", 3014, 0, true},
    {"OpParam", OpParam, "Operators", 3006, 0, false},
    {"FuctParam", FuctParam, "Select Function", 3007, 0, false},
};

class ListDialogs : public DialogSession {
protected:
    void SetUp() override {
        DialogSession::SetUp();
        AddUserField(2, "FIRST");
        AddUserField(5, "SECOND");
        session->form.FormModified = 0;
    }

    int RunList(const ListCase &list, const std::function<void(DialogDriver)> &act,
                LPARAM extra = 0) {
        const auto names = reinterpret_cast<LPARAM>(section_names);
        return Run(list.name, list.procedure, list.title, act,
                   list.procedure == NewSecParam ? names : extra);
    }
    int Choose(int which, const std::string &row, int button = IDOK, int notification = 0) {
        return RunList(list_cases[which], [&](DialogDriver dialog) {
            dialog.Select(LIST_CHOICE, row);
            dialog.Press(button, notification);
        });
    }
    Rows RowsOf(int which) {
        Rows rows;
        RunList(list_cases[which], [&](DialogDriver dialog) {
            rows = dialog.Rows(LIST_CHOICE);
            dialog.Press(IDCANCEL);
        });
        return rows;
    }
};

enum { NEW_SECTION, SYSTEM_FIELD, USER_FIELD, SUMMARY, OPERATORS, FUNCTIONS };

} // namespace

TEST_F(ListDialogs, EachStartsOnItsFirstRowAndCancelsWithItsResult) {
    for (const ListCase &list : list_cases) {
        session->form.FormModified = 0;
        const int result = RunList(list, [](DialogDriver dialog) {
            EXPECT_EQ(dialog.Selected(LIST_CHOICE), 0);
            EXPECT_EQ(dialog.Focus(), LIST_CHOICE);
            dialog.Press(IDCANCEL);
        });
        EXPECT_EQ(result, list.cancelled) << list.name;
        EXPECT_FALSE(Modified()) << list.name;
    }
}

TEST_F(ListDialogs, EachCallsTheHelpWithItsNumberAndStaysOpen) {
    for (const ListCase &list : list_cases)
        RunList(list, [&](DialogDriver dialog) {
            EXPECT_EQ(HelpNumberOf(dialog), list.help) << list.name;
            dialog.Press(IDCANCEL);
        });
}

TEST_F(ListDialogs, ThoseThatChangeTheFormMarkIt) {
    for (const ListCase &list : list_cases) {
        session->form.FormModified = 0;
        RunList(list, [](DialogDriver dialog) { dialog.Press(IDOK); });
        EXPECT_EQ(Modified(), list.modifies) << list.name;
    }
}

TEST_F(ListDialogs, DoubleClickCountsAsOkInAll) {
    for (const ListCase &list : list_cases) {
        session->form.FormModified = 0;
        RunList(list, [](DialogDriver dialog) { dialog.Press(LIST_CHOICE, LBN_DBLCLK); });
        EXPECT_EQ(Modified(), list.modifies) << list.name;
    }
}

TEST_F(ListDialogs, SectionsStandInTheOrderGiven) {
    EXPECT_EQ(RowsOf(NEW_SECTION), (Rows{"One", "Two", "Three"}));
    EXPECT_EQ(Choose(NEW_SECTION, "Three"), 2);
    EXPECT_EQ(Choose(NEW_SECTION, "Two", LIST_CHOICE, LBN_DBLCLK), 1);
}

TEST_F(ListDialogs, NoSectionsAtAllGiveNone) {
    const char **const none[] = {nullptr, section_names + 3};
    for (const char **names : none)
        EXPECT_EQ(Run(
                      "NewSecParam", NewSecParam, "Select New Section",
                      [](DialogDriver dialog) { dialog.Press(IDOK); },
                      reinterpret_cast<LPARAM>(names)),
                  -1);
}

TEST_F(ListDialogs, SystemFieldsAreSortedAndGiveTheirRows) {
    EXPECT_EQ(RowsOf(SYSTEM_FIELD),
              (Rows{"Page Number", "Record Count", "Report Name", "System Date", "System Time"}));
    EXPECT_EQ(Choose(SYSTEM_FIELD, "Page Number"), SYSTEM_PAGE);
    EXPECT_EQ(Choose(SYSTEM_FIELD, "System Date"), SYSTEM_DATE);
    EXPECT_EQ(Choose(SYSTEM_FIELD, "System Time"), SYSTEM_TIME);
    EXPECT_EQ(Choose(SYSTEM_FIELD, "Record Count"), SYSTEM_REC_COUNT);
    EXPECT_EQ(Choose(SYSTEM_FIELD, "Report Name"), SYSTEM_REPORT_NAME);
}

TEST_F(ListDialogs, LabelModeHasNoPageAndALabelName) {
    session->LabelMode = 1;
    EXPECT_EQ(RowsOf(SYSTEM_FIELD),
              (Rows{"Label Name", "Record Count", "System Date", "System Time"}));
    EXPECT_EQ(Choose(SYSTEM_FIELD, "Label Name"), SYSTEM_REPORT_NAME);
    session->LabelMode = 0;
}

TEST_F(ListDialogs, UserFieldsInUseGiveTheirRows) {
    EXPECT_EQ(RowsOf(USER_FIELD), (Rows{"FIRST", "SECOND"}));
    EXPECT_EQ(Choose(USER_FIELD, "FIRST"), 2);
    EXPECT_EQ(Choose(USER_FIELD, "SECOND"), 5);
}

TEST_F(ListDialogs, UserFieldIsFoundWithoutRegardToCase) {
    RunList(list_cases[USER_FIELD], [&](DialogDriver dialog) {
        dialog.Select(LIST_CHOICE, 1);
        std::strcpy(session->form.UserFields[5].UserName, "Second");
        dialog.Press(IDOK);
    });
    EXPECT_EQ(RunList(list_cases[USER_FIELD],
                      [&](DialogDriver dialog) {
                          dialog.Select(LIST_CHOICE, 1);
                          session->form.UserFields[5].InUse = 0;
                          dialog.Press(IDOK);
                      }),
              -1);
}

TEST_F(ListDialogs, UserFieldListWithNoRowGivesNone) {
    session->form.UserFields[2].InUse = session->form.UserFields[5].InUse = 0;
    EXPECT_EQ(Choose(USER_FIELD, "FIRST"), -1);
}

TEST_F(ListDialogs, SummariesStartOnTheRowGiven) {
    EXPECT_EQ(RowsOf(SUMMARY), (Rows{"Value", "Total", "Average", "Count", "Max", "Min"}));
    for (const auto &[extra, selected] : {std::pair{3, 3}, {5, 5}, {6, 0}, {-1, 0}})
        EXPECT_EQ(RunList(
                      list_cases[SUMMARY], [](DialogDriver dialog) { dialog.Press(IDOK); }, extra),
                  selected);
    EXPECT_EQ(Choose(SUMMARY, "Count"), SUMMARY_COUNT);
}

TEST_F(ListDialogs, OperatorsAreThoseThatAreNoFunctions) {
    const Rows rows = RowsOf(OPERATORS);
    ASSERT_EQ(rows.size(), 26u);
    EXPECT_EQ(rows.front(), "(");
    EXPECT_EQ(rows.back(), ".ELSE.");
    PutText("?");
    EXPECT_EQ(Choose(OPERATORS, ".AND."), 1);
    EXPECT_STREQ(session->TextBuffer, ".AND.");
}

TEST_F(ListDialogs, FunctionGivesItsNameAndParenthesis) {
    const Rows rows = RowsOf(FUNCTIONS);
    ASSERT_EQ(rows.size(), 22u);
    EXPECT_EQ(rows.front(), "LEN(string)\t Length of string");
    EXPECT_EQ(Choose(FUNCTIONS, "MAX(num1,num2)\t Find largest number"), 1);
    EXPECT_STREQ(session->TextBuffer, "MAX(");
}

TEST_F(ListDialogs, FunctionsAreNotCutOffAndTheirColumnsStandApart) {
    RunList(list_cases[FUNCTIONS], [](DialogDriver dialog) {
        const HWND list = dialog.Control(LIST_CHOICE);
        const HDC device = GetDC(list);
        SelectObject(device, reinterpret_cast<HFONT>(SendMessageA(list, WM_GETFONT, 0, 0)));
        RECT units{0, 0, 76, 8}; // to the second column
        MapDialogRect(dialog, &units);
        const INT stop = units.right;
        RECT client{};
        GetClientRect(list, &client);
        for (const std::string &row : dialog.Rows(LIST_CHOICE)) {
            const auto width = [&](const std::string &text) {
                return LOWORD(GetTabbedTextExtentA(device, text.c_str(),
                                                   static_cast<int>(text.size()), 1, &stop));
            };
            EXPECT_LT(width(row.substr(0, row.find('\t'))), stop) << row;
            EXPECT_LE(width(row), client.right) << row;
        }
        ReleaseDC(list, device);
        dialog.Press(IDCANCEL);
    });
}

TEST_F(ListDialogs, FunctionThatNothingMatchesGivesNone) {
    session->form.OperatorTable[0] = session->form.OperatorTable[OPERATOR_ROWS - 1];
    session->form.OperatorTable[0].HelpLine = const_cast<char *>("nothing\tat all");
    PutText("?");
    EXPECT_EQ(Choose(FUNCTIONS, "nothing\tat all"), 0);
    EXPECT_STREQ(session->TextBuffer, "?");
    session->form.OperatorTable[0] = {};
}

TEST_F(ListDialogs, RestrictedRowsAreOfferedInModeOneAlone) {
    session->form.OperatorTable[0].Restricted = 1;
    session->form.OperatorTable[OPERATOR_ROWS - 1].Restricted = 1;
    for (const int mode : {0, 1, 2, 3}) {
        DesignerOf(session).ExpressionMode = mode;
        EXPECT_EQ(RowsOf(OPERATORS).size(), mode == 1 ? 26u : 25u) << mode;
        EXPECT_EQ(RowsOf(FUNCTIONS).size(), mode == 1 ? 22u : 21u) << mode;
    }
}
