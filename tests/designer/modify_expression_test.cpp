#include "designer/modify_expression.h"

#include "designer/designer_state.h"
#include "expr/symbols.h"
#include "expr/validate.h"
#include "form/defaults.h"
#include "form/field_table.h"
#include "tests/designer/dialog_session.h"

using namespace tessarine;

namespace {

constexpr int FILTER = 0;
constexpr int PLAIN = 2;
constexpr int WITH_DESCRIPTION = 3;

class ModifyExpression : public DialogSession {
protected:
    using Act = std::function<void(DialogDriver)>;

    void SetUp() override {
        DialogSession::SetUp();
        for (const char *name : {"A", "B", "LONGNAME"}) {
            FieldRecord field{};
            CopyText(name, field.FieldName, sizeof field.FieldName);
            field.ValueType = TYPE_NUMERIC;
            field.FieldWidth = 5;
            known[name] = field;
        }
        Store("A+1", tokens);
    }

    void Store(const std::string &text, uint16_t *cells) {
        int32_t position = 0;
        ASSERT_EQ(GenerateSymbols(session, text.c_str(), cells, &position, PLAIN), 1) << text;
        session->form.FormModified = 0;
    }
    std::string TextOf(const uint16_t *cells) {
        char text[EXPRESSION_LENGTH];
        ExpressionText(session, cells, text, sizeof text);
        return text;
    }
    int References(const char *name) {
        for (int row = 0; row < session->form.FieldCount; ++row) {
            const FieldRecord &field = session->form.Fields[row];
            if (field.InUse && !lstrcmpiA(field.FieldName, name)) return field.RefCount;
        }
        return 0;
    }

    // The acts of the dialog, one each time it opens.
    int Modify(const std::vector<Act> &acts, int mode = PLAIN) {
        size_t times = 0;
        HWND served = nullptr;
        boxes.OnDialog("The title", [&](HWND dialog) {
            if (std::exchange(served, dialog) == dialog) return;
            ASSERT_LT(times, acts.size());
            acts[times++](dialog);
        });
        const int type = ModifyExp(session, tokens, made, "The title", mode, Window());
        EXPECT_EQ(times, acts.size());
        return type;
    }
    static Act Types(const std::string &text, int button = IDOK) {
        return [=](DialogDriver dialog) {
            dialog.SetText(EXPRESSION_TEXT, text);
            dialog.Press(button);
        };
    }
    static int CaretOf(DialogDriver dialog) {
        DWORD from = 0;
        DWORD to = 0;
        SendMessageA(dialog.Control(EXPRESSION_TEXT), EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                     reinterpret_cast<LPARAM>(&to));
        EXPECT_EQ(from, to);
        return static_cast<int>(to);
    }

    uint16_t tokens[MAX_CELLS];
    uint16_t made[MAX_CELLS];
};

} // namespace

TEST_F(ModifyExpression, TypeOfTheEditedExpressionIsGivenBack) {
    EXPECT_EQ(Modify({[](DialogDriver dialog) {
                  EXPECT_EQ(dialog.Text(EXPRESSION_TEXT), "A+1");
                  EXPECT_FALSE(dialog.Control(EXPRESSION_DESCRIPTION));
                  dialog.SetText(EXPRESSION_TEXT, "A*1.5");
                  dialog.Press(IDOK);
              }}),
              TYPE_DOUBLE);
    EXPECT_EQ(TextOf(made), "A*1.5");
    EXPECT_TRUE(Modified());
}

TEST_F(ModifyExpression, OldReferencesAreGivenUpForTheNew) {
    ASSERT_EQ(References("A"), 1);
    EXPECT_EQ(Modify({Types("B+B")}), TYPE_NUMERIC);
    EXPECT_EQ(References("A"), 0);
    EXPECT_EQ(References("B"), 2);
}

TEST_F(ModifyExpression, CancelGivesTheOldExpressionWithNoNewReference) {
    EXPECT_EQ(Modify({Types("B", IDCANCEL)}), -1);
    EXPECT_EQ(TextOf(made), "A+1");
    EXPECT_EQ(References("A"), 1);
    EXPECT_EQ(References("B"), 0);
    EXPECT_FALSE(Modified());
}

TEST_F(ModifyExpression, EmptyTextGivesATypeAndNoTokens) {
    for (const int mode : {FILTER, PLAIN}) {
        Store("A=1", tokens);
        EXPECT_GT(Modify({Types("")}, mode), 0) << mode;
        EXPECT_EQ(made[0], CELL_END);
        EXPECT_EQ(References("A"), 1); // of the list in SetUp
    }
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(ModifyExpression, UnreadableTextComesAgainWithTheCaretWhereItStopped) {
    EXPECT_EQ(Modify({Types("LONGNAME+NOBODY*2"),
                      [&](DialogDriver dialog) {
                          EXPECT_EQ(dialog.Text(EXPRESSION_TEXT), "LONGNAME+NOBODY*2");
                          EXPECT_EQ(CaretOf(dialog), 15);
                          EXPECT_EQ(References("LONGNAME"), 0);
                          dialog.Press(IDCANCEL);
                      }}),
              -1);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Invalid data field: NOBODY"});
}

TEST_F(ModifyExpression, InvalidExpressionComesAgainWithoutItsReferences) {
    EXPECT_EQ(Modify({Types("B B"),
                      [&](DialogDriver dialog) {
                          EXPECT_EQ(References("B"), 0);
                          EXPECT_EQ(References("A"), 1);
                          dialog.SetText(EXPRESSION_TEXT, "B");
                          dialog.Press(IDOK);
                      }}),
              TYPE_NUMERIC);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Operator missing for a field"});
}

TEST_F(ModifyExpression, FilterHasToBeLogical) {
    Store("A=1", tokens);
    EXPECT_EQ(Modify({Types("A+1"), Types("A>1")}, FILTER), TYPE_LOGICAL);
    EXPECT_EQ(boxes.Texts(),
              std::vector<std::string>{"This expression must evaluate to a TRUE/FALSE result."});
}

TEST_F(ModifyExpression, CaretStandsAtTheLastMentionOfTheFirstCell) {
    struct {
        const char *text;
        int caret;
    } const cases[] = {{"A+1", 0}, {"A+1-A", 4}, {"A+A+B", 2}, {"B+A+A", 0}, {"LONGNAME", 0}};
    for (const auto &row : cases) {
        Store(row.text, tokens);
        Modify({[&](DialogDriver dialog) {
            EXPECT_EQ(CaretOf(dialog), row.caret) << row.text;
            dialog.Press(IDCANCEL);
        }});
    }
}

TEST_F(ModifyExpression, TextStopsAheadOfSixHundredCharacters) {
    std::string text = "LONGNAME";
    for (int cell = 0; cell < 45; ++cell) text += "*LONGNAME";
    Store(text, tokens);
    char whole[2000];
    ASSERT_EQ(ExpressionText(session, tokens, whole, 2000), 405);
    CopyText(std::string(95, 'L').c_str(), session->form.Fields[tokens[0]].FieldName, 100);
    Modify({[](DialogDriver dialog) {
        const std::string shown = dialog.Text(EXPRESSION_TEXT);
        EXPECT_EQ(shown.size(), 576u); // a seventh name would pass the limit
        EXPECT_EQ(shown.back(), '*');
        dialog.Press(IDCANCEL);
    }});
}

TEST_F(ModifyExpression, CancelOfAnExpressionThatNoLongerHoldsAsksAgain) {
    Store("A+1", tokens); // no filter any more
    EXPECT_EQ(Modify({[](DialogDriver dialog) { dialog.Press(IDCANCEL); }, Types("")}, FILTER),
              TYPE_TEXT);
    EXPECT_EQ(boxes.Log().size(), 1u);
}

TEST_F(ModifyExpression, DialogThatCannotBeShownIsACancel) {
    const FailingCall no_dialog("DialogBoxParamA", DialogBoxParamA, INT_PTR{-1}, 1, EVERY_CALL);
    Store("A+1", tokens);
    EXPECT_EQ(ModifyExp(session, tokens, made, "The title", FILTER, Window()), -1);
    EXPECT_EQ(TextOf(made), "A+1");
}

TEST_F(ModifyExpression, DescriptionIsAskedInItsModeAlone) {
    InitField(session, &session->dialog.EditField);
    CopyText("CALC->Net price", session->dialog.EditField.FieldName, 100);
    EXPECT_EQ(Modify({[](DialogDriver dialog) {
                         EXPECT_EQ(dialog.Focus(), EXPRESSION_DESCRIPTION);
                         EXPECT_EQ(dialog.Text(EXPRESSION_DESCRIPTION), "Net price");
                         dialog.SetText(EXPRESSION_DESCRIPTION, " Gross ");
                         dialog.Press(IDOK);
                     }},
                     WITH_DESCRIPTION),
              TYPE_NUMERIC);
    EXPECT_STREQ(session->dialog.EditField.FieldName, "CALC->Gross");
}
