#include "designer/dialogs/text_dialogs.h"

#include "tests/designer/dialog_session.h"

using namespace tessarine;

namespace {

const BoxRecord bad_character{
    "Naming Error",
    "Invalid character in the field name. Only letters, numbers, and underscores are allowed.",
    {IDOK}};
const BoxRecord duplicate{"", "Duplicate name not allowed.", {IDOK}};

class TextDialogs : public DialogSession {
protected:
    using Act = std::function<void(DialogDriver)>;

    int Label(const Act &act) { return Run("NewLabelParam", NewLabelParam, "New Text Field", act); }
    int Name(const char *title, const Act &act) {
        return Run("FieldNameParam", FieldNameParam, title, act);
    }
    int Create(const Act &act) {
        return Run("CreateDlgParam", CreateDlgParam, "Create User Field", act);
    }
    int Modify(const Act &act) {
        return Run("ModifyDlgParam", ModifyDlgParam, User().UserName, act);
    }
    UserFieldRecord &User() { return session->form.UserFields[session->dialog.DialogRow]; }

    // What is typed is refused: the dialog stays open with the focus on the text.
    static void Refuses(DialogDriver dialog, const std::string &typed) {
        dialog.SetText(TEXT_INPUT, typed);
        dialog.Send(IDOK);
        EXPECT_TRUE(IsWindowVisible(dialog)) << typed;
        EXPECT_EQ(dialog.Focus(), TEXT_INPUT) << typed;
    }
    static Act Types(const std::string &text, int button = IDOK) {
        return [=](DialogDriver dialog) {
            dialog.SetText(TEXT_INPUT, text);
            dialog.Press(button);
        };
    }
};

} // namespace

TEST_F(TextDialogs, LabelGoesTrimmedToTheTextBuffer) {
    EXPECT_EQ(Label(Types("  Hello there ")), 1);
    EXPECT_STREQ(session->TextBuffer, "Hello there");
    EXPECT_TRUE(Modified());
}

TEST_F(TextDialogs, EmptyLabelKeepsTheDialogOpenWithoutAMessage) {
    PutText("before");
    EXPECT_EQ(Label([](DialogDriver dialog) {
                  EXPECT_EQ(HelpNumberOf(dialog), 3004);
                  Refuses(dialog, "");
                  Refuses(dialog, "   ");
                  dialog.Press(IDCANCEL);
              }),
              0);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_STREQ(session->TextBuffer, "before");
    EXPECT_FALSE(Modified());
}

TEST_F(TextDialogs, LabelTakesThreeHundredCharacters) {
    Label([](DialogDriver dialog) {
        EXPECT_EQ(SendMessageA(dialog.Control(TEXT_INPUT), EM_GETLIMITTEXT, 0, 0), 300);
        dialog.SetText(TEXT_INPUT, std::string(400, 'x'));
        dialog.Press(IDOK);
    });
    EXPECT_EQ(std::strlen(session->TextBuffer), 300u);
}

TEST_F(TextDialogs, NewCalculationNameStandsBehindItsPrefix) {
    PutText("");
    EXPECT_EQ(Name("Calculation Field Name", Types(" Net price ")), 1);
    EXPECT_STREQ(session->TextBuffer, "CALC->Net price");
    EXPECT_TRUE(Modified());
}

TEST_F(TextDialogs, KnownCalculationNameIsShownWithoutItsPrefixUnderAnotherTitle) {
    for (const char *known : {"CALC->Net", "Net"}) {
        PutText(known);
        EXPECT_EQ(Name("Enter New Field Name",
                       [](DialogDriver dialog) {
                           EXPECT_EQ(dialog.Text(TEXT_INPUT), "Net");
                           EXPECT_EQ(HelpNumberOf(dialog), 3004);
                           dialog.SetText(TEXT_INPUT, std::string(60, 'n'));
                           dialog.Press(IDOK);
                       }),
                  1);
        EXPECT_EQ(session->TextBuffer, "CALC->" + std::string(43, 'n'));
    }
}

TEST_F(TextDialogs, EmptyCalculationNameKeepsTheDialogOpen) {
    PutText("CALC->Net");
    EXPECT_EQ(Name("Enter New Field Name",
                   [](DialogDriver dialog) {
                       Refuses(dialog, "  ");
                       dialog.Press(IDCANCEL);
                   }),
              0);
    EXPECT_STREQ(session->TextBuffer, "CALC->Net");
    EXPECT_FALSE(Modified());
}

TEST_F(TextDialogs, LowerCaseUserNameIsStoredInUpperCase) {
    session->dialog.DialogRow = NewUserField(session);
    EXPECT_EQ(Create([](DialogDriver dialog) {
                  EXPECT_EQ(dialog.Text(TEXT_INPUT), "");
                  EXPECT_TRUE(dialog.Checked(USER_FIELD_TEXT));
                  EXPECT_EQ(HelpNumberOf(dialog), 3009);
                  dialog.SetText(TEXT_INPUT, " from_date2 ");
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_STREQ(User().UserName, "FROM_DATE2");
    EXPECT_EQ(+User().ValueType, TYPE_TEXT);
    EXPECT_FALSE(User().InUse); // its caller puts it to use
    EXPECT_TRUE(Modified());
}

TEST_F(TextDialogs, EachTypeOfAUserFieldHasItsButton) {
    for (const auto &[control, type] : {std::pair{USER_FIELD_TEXT, 3},
                                        {USER_FIELD_NUMERIC, 1},
                                        {USER_FIELD_DOUBLE, 2},
                                        {USER_FIELD_LOGICAL, 4},
                                        {USER_FIELD_DATE, 5}}) {
        session->dialog.DialogRow = NewUserField(session);
        Create([button = control](DialogDriver dialog) {
            dialog.Click(button);
            dialog.SetText(TEXT_INPUT, "NAME");
            dialog.Press(IDOK);
        });
        EXPECT_EQ(+User().ValueType, type);
    }
}

TEST_F(TextDialogs, BlankInsideAUserNameIsANamingError) {
    session->dialog.DialogRow = NewUserField(session);
    EXPECT_EQ(Create([this](DialogDriver dialog) {
                  for (const char *name : {"FROM DATE", "A-B", "\xC4"}) {
                      boxes.Clear();
                      Refuses(dialog, name);
                      EXPECT_EQ(boxes.Log(), std::vector{bad_character}) << name;
                  }
                  dialog.Press(IDCANCEL);
              }),
              0);
    EXPECT_STREQ(User().UserName, "");
    EXPECT_FALSE(Modified());
}

TEST_F(TextDialogs, NameOfAnotherUserFieldIsRefusedWithoutRegardToCase) {
    AddUserField(0, "Region");
    session->form.FormModified = 0;
    session->dialog.DialogRow = NewUserField(session);
    ASSERT_EQ(session->dialog.DialogRow, 1);
    EXPECT_EQ(Create([this](DialogDriver dialog) {
                  Refuses(dialog, "rEGION");
                  EXPECT_EQ(boxes.Log(), std::vector{duplicate});
                  dialog.Press(IDCANCEL);
              }),
              0);
}

TEST_F(TextDialogs, EmptyUserNameKeepsTheDialogOpenWithoutAMessage) {
    session->dialog.DialogRow = NewUserField(session);
    Create([](DialogDriver dialog) {
        Refuses(dialog, " ");
        dialog.Press(IDCANCEL);
    });
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(TextDialogs, UserNameTakesNinetyFourCharacters) {
    session->dialog.DialogRow = NewUserField(session);
    EXPECT_EQ(Create(Types(std::string(150, 'a'))), 1);
    EXPECT_EQ(User().UserName, std::string(94, 'A'));
}

TEST_F(TextDialogs, PromptOrderAndWidthOfAUserFieldAreEdited) {
    AddUserField(3, "REGION");
    session->dialog.DialogRow = 3;
    session->form.FormModified = 0;
    User().PromptOrder = 4;
    EXPECT_EQ(Modify([](DialogDriver dialog) {
                  EXPECT_EQ(dialog.Text(TEXT_INPUT), "REGION");
                  EXPECT_EQ(dialog.Text(USER_FIELD_ORDER), "4");
                  EXPECT_EQ(dialog.Text(USER_FIELD_WIDTH), "20");
                  EXPECT_EQ(HelpNumberOf(dialog), 3010);
                  dialog.SetText(TEXT_INPUT, "Which region, " + std::string(60, '?'));
                  dialog.SetText(USER_FIELD_ORDER, "11");
                  dialog.SetText(USER_FIELD_WIDTH, "33");
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_EQ(User().UserPrompt, "Which region, " + std::string(35, '?'));
    EXPECT_EQ(+User().PromptOrder, 11);
    EXPECT_EQ(+User().UserWidth, 33);
    EXPECT_TRUE(Modified());
}

TEST_F(TextDialogs, NumbersOfAUserFieldAreNotCheckedButStayInTheirRange) {
    AddUserField(0, "REGION");
    session->dialog.DialogRow = 0;
    EXPECT_EQ(Modify([](DialogDriver dialog) {
                  dialog.SetText(TEXT_INPUT, "");
                  dialog.SetText(USER_FIELD_ORDER, "99999999999");
                  dialog.SetText(USER_FIELD_WIDTH, "40000");
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_STREQ(User().UserPrompt, "");
    EXPECT_EQ(+User().PromptOrder, UINT16_MAX);
    EXPECT_EQ(+User().UserWidth, INT16_MAX);
}

TEST_F(TextDialogs, CancelledPromptChangesNothing) {
    AddUserField(0, "REGION");
    session->dialog.DialogRow = 0;
    session->form.FormModified = 0;
    const UserFieldRecord before = User();
    EXPECT_EQ(Modify([](DialogDriver dialog) {
                  dialog.SetText(TEXT_INPUT, "x");
                  dialog.SetText(USER_FIELD_WIDTH, "1");
                  dialog.Press(IDCANCEL);
              }),
              0);
    EXPECT_EQ(std::memcmp(&before, &User(), sizeof before), 0);
    EXPECT_FALSE(Modified());
}

TEST_F(TextDialogs, UserFieldDialogsOnNoRowEndAtOnce) {
    for (const int row : {-1, int{MAX_USER_FIELDS}}) {
        session->dialog.DialogRow = row;
        EXPECT_EQ(RunDialog(session, "CreateDlgParam", CreateDlgParam, 0), 0);
        EXPECT_EQ(RunDialog(session, "ModifyDlgParam", ModifyDlgParam, 0), 0);
    }
    session->dialog.DialogRow = 0;
}

TEST_F(TextDialogs, RowThatTheHostTakesAwayUnderADialogEndsIt) {
    session->dialog.DialogRow = NewUserField(session);
    EXPECT_EQ(Create([this](DialogDriver dialog) {
                  dialog.SetText(TEXT_INPUT, "NAME");
                  session->dialog.DialogRow = 99;
                  dialog.Press(IDOK);
              }),
              0);
    session->dialog.DialogRow = 0;
}

TEST_F(TextDialogs, ReturnIsOkAndEscapeIsCancel) {
    const auto keys = [](WPARAM key) {
        return [key](DialogDriver dialog) {
            SetFocus(dialog.Control(TEXT_INPUT));
            SendMessageA(dialog.Control(TEXT_INPUT), EM_REPLACESEL, 0,
                         reinterpret_cast<LPARAM>("Words"));
            PostMessageA(dialog.Control(TEXT_INPUT), WM_KEYDOWN, key, 0);
        };
    };
    EXPECT_EQ(Label(keys(VK_RETURN)), 1);
    EXPECT_EQ(Label(keys(VK_ESCAPE)), 0);
    PutText("");
    EXPECT_EQ(Name("Calculation Field Name", keys(VK_RETURN)), 1);
    PutText("");
    EXPECT_EQ(Name("Calculation Field Name", keys(VK_ESCAPE)), 0);
}
