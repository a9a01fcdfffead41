#include "designer/dialogs/expression_dialog.h"

#include "designer/designer_state.h"
#include "designer/dialogs/function_list.h"
#include "form/defaults.h"
#include "tests/designer/dialog_session.h"

using namespace tessarine;

namespace {

class ExpressionDialog : public DialogSession {
protected:
    using Act = std::function<void(DialogDriver)>;

    void SetUp() override {
        DialogSession::SetUp();
        InitField(session, &session->dialog.EditField);
        Put("A+B", 1);
    }

    Designer &Desk() { return DesignerOf(session); }
    void Put(const char *text, int caret) {
        CopyText(text, Desk().Expression, sizeof Desk().Expression);
        Desk().ExpressionCaret = caret;
    }
    int Plain(const Act &act) { return Run("ExpParam", ExpParam, "Field Expression", act); }
    int WithDescription(const Act &act) {
        return Run("ExpParamField", ExpParam, "Field Expression", act);
    }
    // The text behind one click in the dialog, which starts with the caret in "A+B" behind the A.
    std::string After(const Act &insert) {
        std::string text;
        Plain([&](DialogDriver dialog) {
            insert(dialog);
            text = dialog.Text(EXPRESSION_TEXT);
            EXPECT_EQ(dialog.Focus(), EXPRESSION_TEXT);
            dialog.Press(IDCANCEL);
        });
        return text;
    }
};

} // namespace

TEST_F(ExpressionDialog, OpensWithTextCaretAndFunctions) {
    EXPECT_EQ(Plain([](DialogDriver dialog) {
                  EXPECT_EQ(dialog.Text(EXPRESSION_TEXT), "A+B");
                  EXPECT_EQ(SendMessageA(dialog.Control(EXPRESSION_TEXT), EM_GETSEL, 0, 0),
                            MAKELONG(1, 1));
                  EXPECT_EQ(SendMessageA(dialog.Control(EXPRESSION_TEXT), EM_GETLIMITTEXT, 0, 0),
                            600);
                  EXPECT_EQ(dialog.Focus(), EXPRESSION_TEXT);
                  EXPECT_FALSE(IsWindowVisible(dialog.Control(EXPRESSION_USER_FIELD)));
                  const auto rows = dialog.Rows(EXPRESSION_FUNCTIONS);
                  ASSERT_EQ(rows.size(), 22u);
                  EXPECT_EQ(rows.front(), "LEN(string)\t Length of string");
                  EXPECT_EQ(dialog.Selected(EXPRESSION_FUNCTIONS), 0);
                  EXPECT_EQ(HelpNumberOf(dialog), 3005);
                  dialog.Press(IDCANCEL);
              }),
              0);
    EXPECT_FALSE(Modified());
}

TEST_F(ExpressionDialog, TitleOfItsCallerReplacesItsOwn) {
    Desk().ExpressionTitle = "Section Selection Criteria";
    EXPECT_EQ(Run("ExpParam", ExpParam, "Section Selection Criteria",
                  [](DialogDriver dialog) { dialog.Press(IDCANCEL); }),
              0);
    Desk().ExpressionTitle = nullptr;
}

TEST_F(ExpressionDialog, OkTakesTheTextOfAtMost599Characters) {
    EXPECT_EQ(Plain([](DialogDriver dialog) {
                  dialog.SetText(EXPRESSION_TEXT, std::string(700, '1'));
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_EQ(Desk().Expression, std::string(599, '1'));
    EXPECT_TRUE(Modified());
}

TEST_F(ExpressionDialog, CancelLeavesTheTextAsItWas) {
    Plain([](DialogDriver dialog) {
        dialog.SetText(EXPRESSION_TEXT, "other");
        dialog.Press(IDCANCEL);
    });
    EXPECT_STREQ(Desk().Expression, "A+B");
    EXPECT_FALSE(Modified());
}

TEST_F(ExpressionDialog, EachOperatorButtonInsertsTheOperatorOfItsRow) {
    for (int control = EXPRESSION_FIRST_OPERATOR; control <= EXPRESSION_LAST_OPERATOR; ++control) {
        if (control == EXPRESSION_FIRST_OPERATOR + 8) continue; // the point has no button
        const std::string text = session->form.OperatorTable[control - 501].Text;
        EXPECT_EQ(After([&](DialogDriver dialog) {
                      ASSERT_TRUE(dialog.Control(control)) << control;
                      dialog.Click(control);
                  }),
                  "A" + text + "+B");
    }
}

TEST_F(ExpressionDialog, PointHasNoButton) {
    Plain([](DialogDriver dialog) {
        EXPECT_FALSE(dialog.Control(EXPRESSION_FIRST_OPERATOR + 8));
        dialog.Press(IDCANCEL);
    });
}

TEST_F(ExpressionDialog, InsertingReplacesTheSelection) {
    EXPECT_EQ(After([](DialogDriver dialog) {
                  SendMessageA(dialog.Control(EXPRESSION_TEXT), EM_SETSEL, 0, 2);
                  dialog.Click(EXPRESSION_FIRST_OPERATOR + 14);
              }),
              ".AND.B");
}

TEST_F(ExpressionDialog, PickedDataFieldIsInsertedByName) {
    CopyText("ORDERS->NO", picked.FieldName, sizeof picked.FieldName);
    EXPECT_EQ(After([](DialogDriver dialog) { dialog.Click(PICK_FIELD); }), "AORDERS->NO+B");
    EXPECT_EQ(levels, std::vector{0});
}

TEST_F(ExpressionDialog, FieldThatIsNotPickedInsertsNothing) {
    Plain([](DialogDriver dialog) {
        dialog.Click(PICK_FIELD);
        EXPECT_EQ(dialog.Text(EXPRESSION_TEXT), "A+B");
        dialog.Press(IDCANCEL);
    });
}

TEST_F(ExpressionDialog, SystemFieldIsAskedOverTheDialogAndInserted) {
    boxes.OnDialog("Select System Field", [](DialogDriver list) {
        EXPECT_EQ(WindowText(GetParent(list)), "Field Expression");
        list.Select(LIST_CHOICE, "System Date");
        list.Press(IDOK);
    });
    EXPECT_EQ(After([](DialogDriver dialog) { dialog.Send(EXPRESSION_SYSTEM_FIELD); }),
              "ASYS->DATE+B");
}

TEST_F(ExpressionDialog, CancelledSystemFieldInsertsNothing) {
    boxes.AnswerDialog("Select System Field", IDCANCEL);
    Plain([](DialogDriver dialog) {
        dialog.Send(EXPRESSION_SYSTEM_FIELD);
        EXPECT_EQ(dialog.Text(EXPRESSION_TEXT), "A+B");
        dialog.Press(IDCANCEL);
    });
}

TEST_F(ExpressionDialog, UserFieldWouldBeInsertedByName) {
    AddUserField(4, "REGION");
    boxes.AnswerDialog("Select User Field", IDOK);
    EXPECT_EQ(After([](DialogDriver dialog) { dialog.Send(EXPRESSION_USER_FIELD); }),
              "ADLG->REGION+B");
}

TEST_F(ExpressionDialog, FunctionIsInsertedWithItsParenthesisAndNoArguments) {
    for (const auto &[row, inserted] :
         {std::pair{0, "LEN("}, {4, "WORD("}, {6, "MIN("}, {21, "MONTHTOS("}})
        EXPECT_EQ(After([place = row](DialogDriver dialog) {
                      dialog.Select(EXPRESSION_FUNCTIONS, place);
                      dialog.Send(EXPRESSION_FUNCTIONS, CBN_SELENDOK);
                  }),
                  std::string("A") + inserted + "+B");
}

TEST_F(ExpressionDialog, FunctionChosenInTheOpenListIsInserted) {
    EXPECT_EQ(After([](DialogDriver dialog) {
                  const HWND list = dialog.Control(EXPRESSION_FUNCTIONS);
                  SetFocus(list);
                  SendMessageA(list, CB_SHOWDROPDOWN, TRUE, 0);
                  SendMessageA(list, WM_KEYDOWN, VK_DOWN, 0);
                  SendMessageA(list, WM_KEYDOWN, VK_RETURN, 0);
              }),
              "AUPPER(+B");
}

TEST_F(ExpressionDialog, EmptyDescriptionIsRefused) {
    EXPECT_EQ(WithDescription([this](DialogDriver dialog) {
                  for (const char *description : {"", "  "}) {
                      boxes.Clear();
                      SetFocus(dialog.Control(EXPRESSION_TEXT));
                      dialog.SetText(EXPRESSION_DESCRIPTION, description);
                      dialog.Send(IDOK);
                      ASSERT_EQ(boxes.Log().size(), 1u);
                      EXPECT_EQ(
                          boxes.Log()[0],
                          (BoxRecord{"Calculation Field", "A description is required.", {IDOK}}));
                      EXPECT_TRUE(IsWindowVisible(dialog));
                      EXPECT_EQ(dialog.Focus(), EXPRESSION_DESCRIPTION);
                  }
                  dialog.Press(IDCANCEL);
              }),
              0);
    EXPECT_FALSE(Modified());
}

TEST_F(ExpressionDialog, DescriptionIsTypedIn44CharactersAndReadIn43) {
    EXPECT_EQ(WithDescription([](DialogDriver dialog) {
                  const HWND description = dialog.Control(EXPRESSION_DESCRIPTION);
                  EXPECT_EQ(SendMessageA(description, EM_GETLIMITTEXT, 0, 0), 44);
                  dialog.SetText(EXPRESSION_DESCRIPTION, std::string(44, 'd'));
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_EQ(session->dialog.EditField.FieldName, "CALC->" + std::string(43, 'd'));
}

// ---- the drawn list

TEST_F(ExpressionDialog, RowsOfTheFunctionListAre18PixelsHigh) {
    Plain([](DialogDriver dialog) {
        EXPECT_EQ(SendMessageA(dialog.Control(EXPRESSION_FUNCTIONS), CB_GETITEMHEIGHT, 0, 0), 18);
        dialog.Press(IDCANCEL);
    });
}

namespace {

// A bitmap on which rows of a combo box with one function are drawn.
class FunctionRow : public testing::Test {
protected:
    FunctionRow()
        : list(CreateWindowExA(0, "COMBOBOX", "",
                               WS_POPUP | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS, 0,
                               0, 300, 100, nullptr, nullptr, nullptr, nullptr)),
          device(CreateCompatibleDC(nullptr)) {
        const HDC screen = GetDC(nullptr);
        bitmap = CreateCompatibleBitmap(screen, WIDTH, HEIGHT);
        ReleaseDC(nullptr, screen);
        SelectObject(device, bitmap);
        SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("LEN(string)\t Length"));
    }
    ~FunctionRow() override {
        DestroyWindow(list);
        DeleteDC(device);
        DeleteObject(bitmap);
    }

    void Draw(UINT row, UINT state, UINT action = ODA_DRAWENTIRE) {
        PatBlt(device, 0, 0, WIDTH, HEIGHT, WHITENESS);
        DrawFunctionRow({ODT_COMBOBOX, 790, row, action, state, list, device, place, 0});
    }
    COLORREF At(LONG x, LONG y) const { return GetPixel(device, x, y); }
    bool Has(COLORREF color, LONG from, LONG to) const {
        for (LONG x = from; x < to; ++x)
            for (LONG y = place.top; y < place.bottom; ++y)
                if (At(x, y) == color) return true;
        return false;
    }

    static constexpr int WIDTH = 300;
    static constexpr int HEIGHT = 40;
    const RECT place{10, 10, 280, 28};
    HWND list;
    HDC device;
    HBITMAP bitmap;
};

} // namespace

TEST_F(FunctionRow, IsFilledTwoPixelsBeyondItsPlaceInTheColorsOfItsState) {
    for (const UINT action : {ODA_DRAWENTIRE, ODA_SELECT, ODA_FOCUS})
        for (const auto &[state, ground, text] :
             {std::tuple{UINT{ODS_SELECTED}, COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT},
              std::tuple{UINT{0}, COLOR_MENU, COLOR_MENUTEXT}}) {
            Draw(0, state, action);
            for (const POINT corner : {POINT{8, 8}, POINT{281, 8}, POINT{8, 29}, POINT{281, 29}})
                EXPECT_EQ(At(corner.x, corner.y), GetSysColor(ground));
            EXPECT_EQ(At(7, 8), RGB(255, 255, 255));
            EXPECT_EQ(At(282, 29), RGB(255, 255, 255));
            EXPECT_TRUE(Has(GetSysColor(text), 12, 100));
        }
}

TEST_F(FunctionRow, ExplanationStandsInASecondColumn) {
    Draw(0, 0);
    const COLORREF text = GetSysColor(COLOR_MENUTEXT);
    EXPECT_TRUE(Has(text, 12, 120));
    EXPECT_FALSE(Has(text, 120, 12 + 132));
    EXPECT_TRUE(Has(text, 12 + 132, 280));
}

TEST_F(FunctionRow, FocusIsARectangleAroundIt) {
    Draw(0, 0);
    const COLORREF plain = At(10, 10);
    Draw(0, ODS_FOCUS);
    int changed = 0;
    for (LONG x = 10; x < 280; ++x) changed += At(x, 10) != plain;
    EXPECT_GT(changed, 100);
    EXPECT_EQ(At(9, 15), plain);
}

TEST_F(FunctionRow, RowThatIsNoneHasItsFocusRectangleAlone) {
    Draw(UINT_MAX, 0);
    EXPECT_EQ(At(8, 8), RGB(255, 255, 255));
    for (LONG x = 12; x < 278; ++x) EXPECT_EQ(At(x, 15), RGB(255, 255, 255));
    int changed = 0;
    for (LONG x = 10; x < 280; ++x) changed += At(x, 10) != RGB(255, 255, 255);
    EXPECT_GT(changed, 100);
}
