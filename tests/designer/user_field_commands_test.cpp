#include "designer/user_field_commands.h"

#include <string>

#include "commands.h"
#include "frame/text.h"
#include "tests/support/designer_session.h"
#include "tests/support/failing_call.h"

using namespace tessarine;

namespace {

class UserFieldCommands : public DesignerSession {
protected:
    void SetUp() override { ASSERT_EQ(StartOn(TwoSections()), 0) << boxes.LastText(); }

    UserFieldRecord &User(int row) { return session->form.UserFields[row]; }
    void Add(int row, const char *name) {
        User(row) = {};
        User(row).InUse = 1;
        User(row).ValueType = TYPE_TEXT;
        User(row).UserTokens[0] = CELL_END;
        CopyText(name, User(row).UserName, sizeof User(row).UserName);
        ++session->form.UserFieldCount;
    }
    void Choose(const char *name) {
        boxes.OnDialog("Select User Field", [name](DialogDriver dialog) {
            dialog.Select(LIST_CHOICE, name);
            dialog.Press(IDOK);
        });
    }
    // The name and the type that the user gives to the next new field.
    void Create(const char *name, int type) {
        boxes.OnDialog("Create User Field", [name, type](DialogDriver dialog) {
            dialog.SetText(TEXT_INPUT, name);
            dialog.Click(type);
            dialog.Press(IDOK);
        });
        Command(COMMAND_CREATE_USER_FIELD);
    }
};

} // namespace

TEST_F(UserFieldCommands, NewFieldTakesTheFirstFreeRowWithTheWidthOfItsType) {
    Add(0, "FIRST");
    Add(2, "THIRD");
    Create("limit", USER_FIELD_NUMERIC);
    const UserFieldRecord &user = User(1);
    EXPECT_EQ(+user.InUse, 1);
    EXPECT_STREQ(user.UserName, "LIMIT");
    EXPECT_STREQ(user.UserPrompt, "LIMIT");
    EXPECT_EQ(+user.ValueType, TYPE_NUMERIC);
    EXPECT_EQ(+user.UserWidth, 12);
    EXPECT_EQ(+user.PromptOrder, 1);
    EXPECT_EQ(session->form.UserFieldCount, 3);
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(UserFieldCommands, CancelledFieldIsNotMade) {
    boxes.AnswerDialog("Create User Field", IDCANCEL);
    Command(COMMAND_CREATE_USER_FIELD);
    EXPECT_EQ(+User(0).InUse, 0);
    EXPECT_EQ(session->form.UserFieldCount, 0);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(UserFieldCommands, FieldWhoseDialogCannotBeOpenedIsNotMade) {
    const FailingCall fails("DialogBoxParamA", DialogBoxParamA, -1);
    Command(COMMAND_CREATE_USER_FIELD);
    EXPECT_EQ(fails.Seen(), 1);
    EXPECT_EQ(+User(0).InUse, 0);
    EXPECT_EQ(session->form.UserFieldCount, 0);
}

TEST_F(UserFieldCommands, FieldThatTookTheRowUnderTheDialogKeepsItsName) {
    boxes.OnDialog("Create User Field", [this](DialogDriver dialog) {
        dialog.SetText(TEXT_INPUT, "LATE");
        Add(0, "EARLY"); // as by the same command, sent meanwhile
        dialog.Press(IDOK);
    });
    Command(COMMAND_CREATE_USER_FIELD);
    EXPECT_STREQ(User(0).UserName, "EARLY");
    EXPECT_EQ(session->form.UserFieldCount, 1);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(UserFieldCommands, FullTableIsTold) {
    for (int row = 0; row < MAX_USER_FIELDS; ++row)
        Add(row, ("USER" + std::to_string(row)).c_str());
    CreateUserField(session);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "User Field Table Full!", {IDOK}}}));
}

TEST_F(UserFieldCommands, EmptyTableIsTold) {
    for (const auto command : {ModifyUserField, RemoveUserField}) {
        boxes.Clear();
        command(session);
        EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "User Field Table Empty!", {IDOK}}}));
    }
    EXPECT_EQ(ChooseUserField(session), -1);
}

TEST_F(UserFieldCommands, ChosenFieldIsModifiedByItsPromptItsOrderAndItsWidth) {
    Add(0, "FIRST");
    Add(1, "SECOND");
    Choose("SECOND");
    boxes.OnDialog("SECOND", [](DialogDriver dialog) {
        dialog.SetText(TEXT_INPUT, "How many?");
        dialog.SetText(USER_FIELD_ORDER, "5");
        dialog.SetText(USER_FIELD_WIDTH, "33");
        dialog.Press(IDOK);
    });
    Command(COMMAND_MODIFY_USER_FIELD);
    EXPECT_STREQ(User(1).UserPrompt, "How many?");
    EXPECT_EQ(+User(1).PromptOrder, 5);
    EXPECT_EQ(+User(1).UserWidth, 33);
    EXPECT_STREQ(User(0).UserPrompt, "");
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(UserFieldCommands, CancelledChoiceModifiesAndDeletesNothing) {
    Add(0, "FIRST");
    boxes.AnswerDialog("Select User Field", IDCANCEL);
    Command(COMMAND_MODIFY_USER_FIELD);
    Command(COMMAND_DELETE_USER_FIELD);
    EXPECT_EQ(+User(0).InUse, 1);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(UserFieldCommands, ChosenFieldIsDeleted) {
    Add(0, "FIRST");
    Add(1, "SECOND");
    Choose("SECOND");
    Command(COMMAND_DELETE_USER_FIELD);
    EXPECT_EQ(+User(0).InUse, 1);
    EXPECT_EQ(+User(1).InUse, 0);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(UserFieldCommands, FieldOnTheLayoutIsNotDeleted) {
    Add(0, "FIRST");
    Choose("FIRST");
    Command(COMMAND_USER_FIELD);
    ClickAt(700, 300);
    Command(COMMAND_DELETE_USER_FIELD);
    EXPECT_EQ(boxes.LastText(), "This User Field is Being Used in the Layout, Can Not Delete");
    EXPECT_EQ(+User(0).InUse, 1);
}
