#include "designer/dialogs/item_dialogs.h"

#include "designer/designer_state.h"
#include "tests/designer/dialog_session.h"

using namespace tessarine;

namespace {

constexpr COLORREF CHOSEN = RGB(10, 20, 30);

BOOL WINAPI ChooseColor10(CHOOSECOLORA *choice) {
    choice->rgbResult = CHOSEN;
    return TRUE;
}

class ItemDialogs : public DialogSession {
protected:
    using Act = std::function<void(DialogDriver)>;

    void SetUp() override {
        DialogSession::SetUp();
        session->form.SelectedItem = Row("Alpha");
        session->form.FormModified = 0;
    }
    void TearDown() override { EXPECT_FALSE(session->form.FormModified); } // the caller's part

    ItemRecord &Alpha() { return Item("Alpha"); }
    int Position(const Act &act) {
        return Run("PosParam", PosParam, "Text Position within Item Outlines", act);
    }
    int Outline(const Act &act) {
        return Run("OutlineParam", OutlineParam, "Item Outline Style and Color", act);
    }
    int Line(const Act &act) { return Run("LineParam", LineParam, "Line Style and Color", act); }
    int Background(const Act &act) {
        return Run("BackgroundParam", BackgroundParam, "Edit Item Background", act);
    }
    int Grid(const Act &act) { return Run("GridParam", GridParam, "Edit Grid Parameters", act); }

    static Act Clicks(int control, int button = IDOK) {
        return [=](DialogDriver dialog) {
            dialog.Click(control);
            dialog.Press(button);
        };
    }
    static void ExpectChecked(DialogDriver dialog, const std::vector<int> &controls, int checked) {
        for (const int control : controls)
            EXPECT_EQ(dialog.Checked(control), control == checked) << control;
    }
};

const std::vector<int> strokes{STROKE_SOLID, STROKE_DASHES, STROKE_DOTS, STROKE_DASH_AND_DOTS};
const std::vector<int> of_sides{STROKE_WIDTH,  STROKE_COLOR, STROKE_SOLID,
                                STROKE_DASHES, STROKE_DOTS,  STROKE_DASH_AND_DOTS};
const std::vector<int> of_paint{BRUSH_COLOR,
                                BRUSH_SOLID,
                                BRUSH_HORIZONTAL,
                                BRUSH_VERTICAL,
                                BRUSH_FORWARD_DIAGONAL,
                                BRUSH_BACKWARD_DIAGONAL,
                                BRUSH_CROSS,
                                BRUSH_DIAGONAL_CROSS};

} // namespace

TEST_F(ItemDialogs, EachPositionReplacesThoseOfItsAxisAlone) {
    const std::pair<int, int> cases[] = {{POSITION_LEFT, 4 | 64},   {POSITION_CENTER, 16 | 64},
                                         {POSITION_RIGHT, 8 | 64},  {POSITION_TOP, 4 | 32},
                                         {POSITION_MIDDLE, 4 | 64}, {POSITION_BOTTOM, 4 | 128}};
    for (const auto &[control, bits] : cases) {
        Alpha().ItemFlags = 2 | 4 | 64 | 256;
        EXPECT_EQ(Position(Clicks(control)), 1);
        EXPECT_EQ(Alpha().ItemFlags, 2 | 256 | bits) << control;
    }
}

TEST_F(ItemDialogs, PositionOpensOnTheItemsWithTheFocusOnOk) {
    Alpha().ItemFlags = FLAG_RIGHT | FLAG_BOTTOM;
    EXPECT_EQ(
        Position([](DialogDriver dialog) {
            ExpectChecked(dialog, {POSITION_LEFT, POSITION_CENTER, POSITION_RIGHT}, POSITION_RIGHT);
            ExpectChecked(dialog, {POSITION_TOP, POSITION_MIDDLE, POSITION_BOTTOM},
                          POSITION_BOTTOM);
            EXPECT_EQ(dialog.Focus(), IDOK);
            EXPECT_EQ(HelpNumberOf(dialog), 3021);
            dialog.Click(POSITION_LEFT);
            dialog.Press(IDCANCEL);
        }),
        0);
    EXPECT_EQ(Alpha().ItemFlags, FLAG_RIGHT | FLAG_BOTTOM);
}

TEST_F(ItemDialogs, OutlineIsShownAndStored) {
    Alpha().OutlineSides = SIDE_LEFT | SIDE_BOTTOM;
    Alpha().OutlineStyle = 2;
    Alpha().OutlineWidth = 15;
    EXPECT_EQ(Outline([](DialogDriver dialog) {
                  EXPECT_TRUE(dialog.Checked(OUTLINE_LEFT));
                  EXPECT_FALSE(dialog.Checked(OUTLINE_RIGHT));
                  EXPECT_FALSE(dialog.Checked(OUTLINE_TOP));
                  EXPECT_TRUE(dialog.Checked(OUTLINE_BOTTOM));
                  ExpectChecked(dialog, strokes, STROKE_DOTS);
                  EXPECT_EQ(dialog.Text(STROKE_WIDTH), "15");
                  EXPECT_EQ(HelpNumberOf(dialog), 3033);
                  for (const int control : {OUTLINE_LEFT, OUTLINE_RIGHT, STROKE_DASH_AND_DOTS})
                      dialog.Click(control);
                  dialog.SetText(STROKE_WIDTH, "99999");
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_EQ(+Alpha().OutlineSides, SIDE_RIGHT | SIDE_BOTTOM);
    EXPECT_EQ(+Alpha().OutlineStyle, 3);
    EXPECT_EQ(+Alpha().OutlineWidth, INT16_MAX);
}

TEST_F(ItemDialogs, ClearingTheLastSideDisablesTheRestAndKeepsTheOldStyle) {
    Alpha().OutlineSides = SIDE_TOP;
    Alpha().OutlineStyle = 1;
    EXPECT_EQ(Outline([](DialogDriver dialog) {
                  for (const int control : of_sides) EXPECT_TRUE(dialog.Enabled(control));
                  dialog.Click(OUTLINE_TOP);
                  for (const int control : of_sides) EXPECT_FALSE(dialog.Enabled(control));
                  dialog.Click(OUTLINE_LEFT);
                  for (const int control : of_sides) EXPECT_TRUE(dialog.Enabled(control));
                  dialog.Click(OUTLINE_LEFT);
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_EQ(+Alpha().OutlineSides, 0);
    EXPECT_EQ(+Alpha().OutlineStyle, 1);
}

TEST_F(ItemDialogs, OutlineWithNoSideOpensDisabled) {
    Alpha().OutlineSides = 0;
    Outline([](DialogDriver dialog) {
        for (const int control : of_sides) EXPECT_FALSE(dialog.Enabled(control));
        dialog.Press(IDCANCEL);
    });
}

TEST_F(ItemDialogs, ColorIsStoredAtOnceAndCancelDoesNotUndoIt) {
    const ReplacedCall chooser("ChooseColorA", ChooseColor10);
    Alpha().OutlineSides = 15;
    Alpha().ItemFlags |= FLAG_BACKGROUND;
    EXPECT_EQ(Outline(Clicks(STROKE_COLOR, IDCANCEL)), 0);
    EXPECT_EQ(+Alpha().OutlineColor, CHOSEN);
    EXPECT_EQ(Line(Clicks(STROKE_COLOR, IDCANCEL)), 0);
    EXPECT_EQ(+Alpha().LineColor, CHOSEN);
    EXPECT_EQ(Background(Clicks(BRUSH_COLOR, IDCANCEL)), 0);
    EXPECT_EQ(+Alpha().Background.Color, CHOSEN);
}

TEST_F(ItemDialogs, CancelledColorChangesNothing) {
    Alpha().OutlineSides = 15;
    Alpha().OutlineColor = RGB(1, 2, 3);
    boxes.AnswerDialog("Color", IDCANCEL); // the system's own
    Outline([](DialogDriver dialog) {
        dialog.Send(STROKE_COLOR);
        dialog.Press(IDCANCEL);
    });
    EXPECT_EQ(+Alpha().OutlineColor, RGB(1, 2, 3));
}

TEST_F(ItemDialogs, CancelledOutlineChangesNothing) {
    const ItemRecord before = Alpha();
    Outline([](DialogDriver dialog) {
        for (const int control : {OUTLINE_LEFT, OUTLINE_TOP, STROKE_DOTS}) dialog.Click(control);
        dialog.SetText(STROKE_WIDTH, "77");
        dialog.Press(IDCANCEL);
    });
    EXPECT_EQ(std::memcmp(&before, &Alpha(), sizeof before), 0);
}

TEST_F(ItemDialogs, EachAngleAndStyleOfALineHasItsButton) {
    const int angles[] = {LINE_HORIZONTAL, LINE_VERTICAL, LINE_DIAGONAL, LINE_BACK_DIAGONAL};
    for (int value = 0; value < 4; ++value) {
        EXPECT_EQ(Line([&](DialogDriver dialog) {
                      EXPECT_EQ(HelpNumberOf(dialog), 3022);
                      dialog.Click(angles[value]);
                      dialog.Click(strokes[static_cast<size_t>(value)]);
                      dialog.SetText(STROKE_WIDTH, std::to_string(10 + value));
                      dialog.Press(IDOK);
                  }),
                  1);
        EXPECT_EQ(+Alpha().LineAngle, value);
        EXPECT_EQ(+Alpha().LineStyle, value);
        EXPECT_EQ(+Alpha().LineWidth, 10 + value);
        Line([&](DialogDriver dialog) {
            ExpectChecked(dialog, {angles, angles + 4}, angles[value]);
            ExpectChecked(dialog, strokes, strokes[static_cast<size_t>(value)]);
            dialog.Press(IDCANCEL);
        });
    }
}

TEST_F(ItemDialogs, EachBrushOfABackgroundHasItsButton) {
    struct {
        int control;
        int style;
        int hatch;
    } const cases[] = {{BRUSH_HORIZONTAL, 2, 0},
                       {BRUSH_VERTICAL, 2, 1},
                       {BRUSH_FORWARD_DIAGONAL, 2, 2},
                       {BRUSH_BACKWARD_DIAGONAL, 2, 3},
                       {BRUSH_CROSS, 2, 4},
                       {BRUSH_DIAGONAL_CROSS, 2, 5},
                       {BRUSH_SOLID, 0, 5}};
    const std::vector<int> brushes{of_paint.begin() + 1, of_paint.end()};
    Alpha().ItemFlags |= FLAG_BACKGROUND;
    for (const auto &row : cases) {
        EXPECT_EQ(Background(Clicks(row.control)), 1);
        EXPECT_EQ(+Alpha().Background.Style, row.style) << row.control;
        EXPECT_EQ(+Alpha().Background.Hatch, row.hatch) << row.control;
        Background([&](DialogDriver dialog) {
            ExpectChecked(dialog, brushes, row.control);
            EXPECT_EQ(HelpNumberOf(dialog), 3035);
            dialog.Press(IDCANCEL);
        });
    }
}

TEST_F(ItemDialogs, BrushOfAKindWithoutAButtonStaysUnlessAnotherIsChosen) {
    Alpha().ItemFlags |= FLAG_BACKGROUND;
    Alpha().Background.Style = BS_NULL;
    Alpha().Background.Hatch = HS_CROSS;
    EXPECT_EQ(Background([](DialogDriver dialog) {
                  ExpectChecked(dialog, {of_paint.begin() + 1, of_paint.end()}, 0);
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_EQ(+Alpha().Background.Style, BS_NULL);
    EXPECT_EQ(Background(Clicks(BRUSH_VERTICAL)), 1);
    EXPECT_EQ(+Alpha().Background.Style, BS_HATCHED);
    EXPECT_EQ(+Alpha().Background.Hatch, HS_VERTICAL);
}

TEST_F(ItemDialogs, BackgroundThatIsNotPaintedDisablesTheRest) {
    Alpha().ItemFlags = FLAG_LEFT;
    EXPECT_EQ(Background([](DialogDriver dialog) {
                  for (const int control : of_paint) EXPECT_FALSE(dialog.Enabled(control));
                  dialog.Click(BACKGROUND_PAINT);
                  for (const int control : of_paint) EXPECT_TRUE(dialog.Enabled(control));
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_EQ(Alpha().ItemFlags, FLAG_LEFT | FLAG_BACKGROUND);
    EXPECT_EQ(Background(Clicks(BACKGROUND_PAINT)), 1);
    EXPECT_EQ(Alpha().ItemFlags, FLAG_LEFT);
}

TEST_F(ItemDialogs, ItemDialogsWithoutASelectionEndAtOnce) {
    for (const int row : {-1, session->form.TotalItems}) {
        session->form.SelectedItem = row;
        EXPECT_EQ(RunDialog(session, "PosParam", PosParam, 0), 0);
        EXPECT_EQ(RunDialog(session, "OutlineParam", OutlineParam, 0), 0);
        EXPECT_EQ(RunDialog(session, "LineParam", LineParam, 0), 0);
        EXPECT_EQ(RunDialog(session, "BackgroundParam", BackgroundParam, 0), 0);
    }
}

TEST_F(ItemDialogs, GridIsSwitchedAndSized) {
    Designer &designer = DesignerOf(session);
    EXPECT_EQ(designer.SnapToGrid, 1u);
    EXPECT_EQ(Grid([](DialogDriver dialog) {
                  EXPECT_TRUE(dialog.Checked(GRID_SNAP));
                  EXPECT_EQ(dialog.Text(GRID_THICKNESS), "12");
                  EXPECT_EQ(HelpNumberOf(dialog), 3034);
                  dialog.SetText(GRID_THICKNESS, "25");
                  dialog.Click(GRID_SNAP);
                  EXPECT_FALSE(dialog.Enabled(GRID_THICKNESS));
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_EQ(designer.SnapToGrid, 0u);
    EXPECT_EQ(designer.GridSize, 25);
    EXPECT_EQ(Grid([](DialogDriver dialog) {
                  EXPECT_FALSE(dialog.Checked(GRID_SNAP));
                  EXPECT_FALSE(dialog.Enabled(GRID_THICKNESS));
                  dialog.Click(GRID_SNAP);
                  EXPECT_TRUE(dialog.Enabled(GRID_THICKNESS));
                  dialog.Press(IDCANCEL);
              }),
              0);
    EXPECT_EQ(designer.SnapToGrid, 0u);
}

TEST_F(ItemDialogs, ArrowKeysMoveWithinOneChoice) {
    Alpha().LineAngle = Alpha().LineStyle = 0;
    EXPECT_EQ(Line([](DialogDriver dialog) {
                  SetFocus(dialog.Control(LINE_BACK_DIAGONAL));
                  dialog.Click(LINE_BACK_DIAGONAL);
                  PostMessageA(dialog.Control(LINE_BACK_DIAGONAL), WM_KEYDOWN, VK_DOWN, 0);
                  PostMessageA(dialog, WM_COMMAND, IDOK, 0);
              }),
              1);
    EXPECT_EQ(+Alpha().LineAngle, 0);
    EXPECT_EQ(+Alpha().LineStyle, 0);
}
