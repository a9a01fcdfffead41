#include "designer/command_rows.h"

#include <cstring>

#include "commands.h"
#include "designer/arrange.h"
#include "designer/clipboard.h"
#include "designer/delete_item.h"
#include "designer/designer_state.h"
#include "designer/ending.h"
#include "designer/field_edit.h"
#include "designer/help.h"
#include "designer/item_style.h"
#include "designer/open.h"
#include "designer/placement.h"
#include "designer/properties.h"
#include "designer/relocate.h"
#include "designer/room.h"
#include "designer/scrolling.h"
#include "designer/section_edit.h"
#include "designer/undo.h"
#include "designer/user_field_commands.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "tests/support/designer_session.h"
#include "tests/support/preview_run.h"

using namespace tessarine;

namespace {

struct RoutineRow {
    int number;
    void (*routine)(Session *session);
};

constexpr RoutineRow routines[] = {
    {600, HalfFormUp},       {601, HalfFormDown},      {606, BeginLabel},
    {610, CenterItem},       {622, ShowHelpIndex},     {626, ExitDesigner},
    {628, EditReportFilter}, {639, EditSelectedField}, {640, EditFieldExpression},
    {646, EditSection},      {648, EditSectionFilter}, {651, CreateUserField},
    {652, ModifyUserField},  {653, RemoveUserField},   {660, BeginLine},
    {661, EditOutline},      {662, EditBackground},    {663, EditPosition},
    {664, DeleteItem},       {665, RestoreUndo},       {675, AlignTop},
    {676, AlignBottom},      {677, AlignMiddle},       {678, AlignLeft},
    {679, AlignRight},       {680, AlignCenter},       {681, SizeEvenWidth},
    {682, SizeEvenHeight},   {683, SpaceAcross},       {684, SpaceDown},
    {690, ExpandAcross},     {691, ExpandDown},        {692, CompressAcross},
    {693, CompressDown},     {699, ItemProperties},    {703, BeginPaste},
};

class DesignerCommand : public DesignerSession {
protected:
    void SetUp() override { ASSERT_EQ(StartOn(TwoSections()), CODE_DONE) << boxes.LastText(); }
    int Pending() const { return session->designer->PendingCommand; }
};

} // namespace

TEST(DesignerCommands, EachReachesItsRoutine) {
    for (const RoutineRow &row : routines)
        EXPECT_EQ(FindCommand(DesignerCommands(), row.number)->action, row.routine) << row.number;
}

TEST_F(DesignerCommand, OutsideTheTableGoesToTheSystem) {
    EXPECT_FALSE(RunDesignerCommand(session, COMMAND_MENU_PROPERTIES));
    EXPECT_EQ(Send(WM_COMMAND, 1), 0);
    EXPECT_EQ(session->form.TotalItems, 6);
}

TEST_F(DesignerCommand, LowWordOfTheMessageIsItsNumber) {
    Send(WM_COMMAND, MAKEWPARAM(COMMAND_REPORT_PARAMETERS, 1));
    EXPECT_EQ(boxes.Log().size(), 1U);
}

TEST_F(DesignerCommand, SaveWritesTheFormUnderItsName) {
    session->form.FormModified = 1;
    Item("Alpha").TextColor = 0x654321;
    Command(COMMAND_SAVE);
    EXPECT_EQ(session->form.FormModified, 0U);
    EXPECT_NE(ReadWholeFile(session->CurrentFile).find("\x21\x43\x65"), std::string::npos);
    EXPECT_EQ(session->FormBlock.DesignerModified, 0U);
}

TEST_F(DesignerCommand, SaveOfANewFormAsksForItsName) {
    End();
    ASSERT_EQ(StartNew(), CODE_DONE);
    const std::string path = folder.Path("NEW.FP");
    boxes.AnswerDialog("Save", FILE_NAME, path, IDOK);
    Command(COMMAND_SAVE);
    EXPECT_STRCASEEQ(session->CurrentFile, path.c_str());
    EXPECT_STRCASEEQ(WindowText(Window()).c_str(), path.c_str());
}

TEST_F(DesignerCommand, SaveAsTakesTheNewNameForTheNextSave) {
    const std::string path = folder.Path("OTHER.FP");
    boxes.AnswerDialog("Save As", FILE_NAME, path, IDOK);
    Command(COMMAND_SAVE_AS);
    EXPECT_STRCASEEQ(session->CurrentFile, path.c_str());
    EXPECT_EQ(session->FormBlock.FormFile, path);
    EXPECT_GT(ReadWholeFile(path).size(), sizeof(FormHeader));
}

TEST_F(DesignerCommand, CancelledSaveAsTellsTheHost) {
    const std::string path = session->CurrentFile;
    boxes.AnswerDialog("Save As", IDCANCEL);
    Command(COMMAND_SAVE_AS);
    EXPECT_EQ(host.Count(MESSAGE_NO_RESULT), 1);
    EXPECT_STRCASEEQ(session->CurrentFile, path.c_str());
}

TEST_F(DesignerCommand, ReadOnlyFormIsNotSaved) {
    edit_allowed = 0;
    for (const int number : {COMMAND_SAVE, COMMAND_SAVE_AS}) {
        boxes.Clear();
        Command(number);
        EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Read-Only form cannot be saved"});
    }
}

TEST_F(DesignerCommand, ReportParametersAreNotAvailable) {
    Command(COMMAND_REPORT_PARAMETERS);
    EXPECT_EQ(boxes.Log()[0], (BoxRecord{"Report Parameters", "Not available.", {IDOK}}));
}

TEST_F(DesignerCommand, ReportFilterOfTheMenuDoesNothing) {
    Command(COMMAND_REPORT_FILTER_ENTRY);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(session->form.FormModified, 0U);
}

TEST_F(DesignerCommand, PrinterSetupOpensTheSystemsDialog) {
    bool opened = false;
    boxes.OnDialog("Print Setup", [&](DialogDriver dialog) {
        opened = true;
        dialog.Press(IDCANCEL);
    });
    Command(COMMAND_PRINTER_SETUP);
    EXPECT_TRUE(opened);
    EXPECT_EQ(session->form.FormModified, 0U);
}

TEST_F(DesignerCommand, PrinterSetupWithoutMemorySaysSo) {
    FailAllocation(1);
    Command(COMMAND_PRINTER_SETUP);
    FailAllocation(0);
    EXPECT_LE(boxes.Log().size(), 1U);
    EXPECT_TRUE(SessionStands(session));
}

TEST_F(DesignerCommand, FontsOfALabelOpenTheSystemsDialog) {
    session->form.SelectedItem = Row("Alpha");
    bool opened = false;
    boxes.OnDialog("Font", [&](DialogDriver dialog) {
        opened = true;
        dialog.Press(IDCANCEL);
    });
    Command(COMMAND_FONTS);
    EXPECT_TRUE(opened);
}

TEST_F(DesignerCommand, PictureOfAFileAsksForIt) {
    int asked = 0;
    boxes.OnDialog("Bitmap File Name Selection", [&](DialogDriver dialog) {
        ++asked;
        dialog.Press(IDCANCEL);
    });
    Command(COMMAND_PICTURE_FILE);
    EXPECT_EQ(Pending(), IDLE);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(host.Count(MESSAGE_NO_RESULT), 1);
}

TEST_F(DesignerCommand, DataFieldIsChosenByTheHost) {
    picked.ValueType = TYPE_TEXT;
    picked.FieldWidth = 10;
    std::strcpy(picked.FieldName, "CITY");
    for (const int number :
         {COMMAND_DATA_FIELD, COMMAND_APPLICATION_FIELD, COMMAND_BARCODE_FIELD}) {
        session->designer->PendingCommand = IDLE;
        Command(number);
        EXPECT_EQ(Pending(), number);
    }
    EXPECT_EQ(levels.size(), 3U);
    session->designer->PendingCommand = IDLE;
}

TEST_F(DesignerCommand, LineWaitsForItsPlace) {
    Command(COMMAND_NEW_LINE);
    EXPECT_EQ(Pending(), COMMAND_NEW_LINE);
    OpenMenu();
    EXPECT_FALSE(MenuEnabled(COMMAND_SAVE_AS));
    EXPECT_FALSE(MenuEnabled(COMMAND_CLOSE_FORM));
}

TEST_F(DesignerCommand, CopyKeepsTheItemAndCutTakesIt) {
    session->form.SelectedItem = Row("Alpha");
    Command(COMMAND_COPY);
    EXPECT_EQ(session->designer->ClipCount, 1);
    EXPECT_GE(Row("Alpha"), 0);
    session->form.SelectedItem = Row("Beta");
    Command(COMMAND_CUT);
    EXPECT_EQ(Row("Beta"), -1);
}

// ---- several sessions ----

TEST_F(DesignerCommand, TwoDesignersAtOnceKeepTheirForms) {
    FormParams second = params;
    second.FormFile[0] = 0;
    ASSERT_EQ(tessarine::form(&second), CODE_DONE);
    const DrivenWindow other(second.FormWindow);
    Session *theirs = GetSessionPointer(second.FormWindow, 0);
    ASSERT_NE(theirs, session);
    other.Scroll(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(session->view.OriginY, 0);
    EXPECT_GT(theirs->view.OriginY, 0);
    session->form.SelectedItem = Row("Alpha");
    Command(COMMAND_DELETE);
    EXPECT_EQ(session->form.TotalItems, 5);
    EXPECT_EQ(theirs->form.TotalItems, 3);
    EXPECT_EQ(theirs->form.FormModified, 0U);
    other.Send(WM_CLOSE);
    EXPECT_FALSE(IsWindow(second.FormWindow));
    EXPECT_TRUE(SessionStands(session));
    Command(COMMAND_COPY);
}

namespace {

// A preview that runs, and a designer beside it.
class BesideAPreview : public PreviewRun {};

} // namespace

TEST_F(BesideAPreview, DesignerAndRunGoOn) {
    FormParams params{};
    params.WindowWidth = params.WindowHeight = 400;
    params.ShowMenu = params.VertScroll = 1;
    params.WindowStyle = WS_OVERLAPPEDWINDOW;
    ASSERT_EQ(tessarine::form(&params), CODE_DONE);
    Session *designer = GetSessionPointer(params.FormWindow, 0);
    const DrivenWindow window(params.FormWindow);
    EXPECT_EQ(Feed(7), 0) << boxes.LastText();
    window.Scroll(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_GT(designer->view.OriginY, 0);
    EXPECT_EQ(session->view.OriginY, 0);
    Send(WM_VSCROLL, SB_LINEDOWN);
    window.Send(WM_CLOSE);
    EXPECT_FALSE(SessionStands(designer));
    EXPECT_EQ(Feed(7), 0) << boxes.LastText();
    Finish(2);
    EXPECT_TRUE(Open());
}
