#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "commands.h"
#include "device/device_names.h"
#include "expr/symbols.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "frame/text.h"
#include "run/run_tables.h"
#include "run/set_up.h"
#include "tests/support/box_owners.h"
#include "tests/support/composition.h"
#include "tests/support/host_window.h"
#include "tests/support/message_boxes.h"
#include "tests/support/page_texts.h"
#include "tests/support/report_run.h"

using namespace tessarine;

namespace {

struct OneLine : FormBuilder {
    OneLine() {
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT, 20);
        Section(SECTION_DETAIL_1, 50);
        FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
        Section(SECTION_SORT_HEADER_1, 50);
        Break(name, name, SECTION_SORT_HEADER_1);
    }
};

Session *SessionOf(const ReportRun &run) {
    return GetSessionPointer(nullptr, run.params.SessionId);
}

// Answers the choice of the device with a row of its list, -1 for Cancel.
void ChooseDevice(MessageBoxes *boxes, int row) {
    boxes->OnDialog("Output Device", [row](DialogDriver dialog) {
        dialog.Select(LIST_CHOICE, row);
        dialog.Press(row < 0 ? IDCANCEL : IDOK);
    });
}

// Answers the choice of the report's file; an empty name cancels.
void ChooseFile(MessageBoxes *boxes, const std::string &name) {
    boxes->AnswerDialog("Report File Name Selection", FILE_NAME, name,
                        name.empty() ? IDCANCEL : IDOK);
}

} // namespace

TEST(RunOutput, ChoiceThatIsCancelledGives2) {
    MessageBoxes boxes;
    ChooseDevice(&boxes, -1);
    ReportRun run{OneLine{}};
    run.params.Device = 'A';
    EXPECT_EQ(run.Start(), CODE_NO_DEVICE);
}

TEST(RunOutput, ChosenScreenCountsAndTheCallerSeesHisLetterAgain) {
    MessageBoxes boxes;
    ChooseDevice(&boxes, 0);
    OneLine form;
    form.header.RulerFlags = 3;
    ReportRun run(form);
    run.params.Device = 'A';
    run.params.WindowStyle = WS_OVERLAPPEDWINDOW;
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    EXPECT_EQ(run.params.Device, 'A');
    EXPECT_EQ(SessionOf(run)->form.Header.RulerFlags, 0u); // rulers take no room of a preview
    EXPECT_NE(SessionOf(run)->OutputToScreen, 0u);
    EXPECT_NE(SessionOf(run)->view.HorzScroll, 0u);
    EXPECT_NE(SessionOf(run)->view.VertScroll, 0u);
    SendMessageA(SessionOf(run)->Window, WM_CLOSE, 0, 0);
    run.Finish();
}

TEST(RunOutput, ChosenFileGetsItsEndingAndTheCallerSeesHisNameAgain) {
    MessageBoxes boxes;
    TemporaryFolder folder;
    ChooseDevice(&boxes, 2);
    ChooseFile(&boxes, folder.Path("CHOSEN"));
    ReportRun run{OneLine{}};
    run.params.Device = 'A';
    const std::string own = run.params.OutputFile;
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    EXPECT_EQ(std::string(SessionOf(run)->pages.OutputPath), folder.Path("CHOSEN.FRC"));
    EXPECT_EQ(run.params.Device, 'A');
    EXPECT_EQ(run.params.OutputFile, own);
    EXPECT_EQ(ReadWholeFile(folder.Path("CHOSEN.FRC")), std::string(490, '\0'));
    run.Finish();
}

TEST(RunOutput, ChoiceOfAFileThatIsCancelledGives19) {
    MessageBoxes boxes;
    ChooseDevice(&boxes, 2);
    ChooseFile(&boxes, "");
    ReportRun run{OneLine{}};
    run.params.Device = 'A';
    EXPECT_EQ(run.Start(), CODE_NO_OUTPUT_FILE);
}

TEST(RunOutput, AnyOtherLetterIsThePrinter) {
    MessageBoxes boxes;
    ReportRun run{OneLine{}};
    run.params.Device = 'x';
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    EXPECT_NE(SessionOf(run)->OutputToPrinter, 0u);
    EXPECT_EQ(SessionOf(run)->pages.PageTable, nullptr);
    run.Finish();
}

TEST(RunFiles, FormsNameMayBeAsLongAsItsRoom) {
    OneLine form;
    ReportRun run(form);
    TemporaryFolder folder;
    std::string path = folder.Root() + "\\";
    path += std::string(sizeof run.params.FormFile - 1 - path.size(), 'f');
    form.Write(path);
    CopyText(path.c_str(), run.params.FormFile, sizeof run.params.FormFile);
    MessageBoxes boxes;
    EXPECT_EQ(run.Start(), 0) << boxes.LastText();
    run.Finish();
}

TEST(RunTables, HostLearnsTheTablesAndNothingHasPrinted) {
    MessageBoxes boxes;
    OneLine form;
    form.header.RunWord = 0x1234;
    std::strcpy(form.header.CallerTag, "tag");
    const int constant = form.Constant("\"it's\"", TYPE_TEXT);
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    const Session *session = SessionOf(run);
    EXPECT_EQ(+run.params.FieldTable, session->run.InputTable);
    EXPECT_EQ(+run.params.FieldTotal, session->form.FieldCount);
    EXPECT_EQ(+run.params.BreakTotal, 1);
    EXPECT_EQ(+run.params.RunWord, 0x1234u);
    EXPECT_STREQ(run.params.CallerTag, "tag");
    EXPECT_STREQ(run.params.BreakTable[0].FieldName, "NAME");
    const FieldRecord &own = session->form.Fields[1];
    const FieldRecord &input = session->run.InputTable[1];
    EXPECT_NE(+own.TextValue, +input.TextValue);
    EXPECT_NE(+own.TextValue, +run.params.BreakTable[0].TextValue);
    EXPECT_STREQ(session->run.InputTable[constant].TextValue, "it's");
    EXPECT_EQ(session->report.RunPhase, PHASE_SETUP);
    EXPECT_EQ(session->report.CancelState, CANCEL_NONE);
    EXPECT_EQ(session->report.RecordCount, 0);
    EXPECT_EQ(session->report.PageCount, 1);
    EXPECT_EQ(session->run.LastSection, -1);
    EXPECT_EQ(session->progress.AbortDialog, nullptr);
    run.Finish();
}

TEST(RunTables, TextsAreEmptyBeforeTheFirstRecordWhateverTheMemoryHeld) {
    std::vector<void *> blocks;
    for (int count = 0; count < 1000; ++count) {
        blocks.push_back(OurAlloc(22)); // as much as a text of 20
        std::memset(blocks.back(), 'x', 22);
    }
    for (void *block : blocks) OurFree(block);
    OneLine form;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0);
    const Session *session = SessionOf(run);
    EXPECT_STREQ(session->form.Fields[1].TextValue, "");
    EXPECT_STREQ(session->run.InputTable[1].TextValue, "");
    EXPECT_STREQ(session->run.BreakTable[0].TextValue, "");
    run.Finish();
}

TEST(RunTables, FieldTableIsLockedOnce) {
    OneLine form;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0);
    EXPECT_EQ(GlobalFlags(SessionOf(run)->form.FieldMemory) & GMEM_LOCKCOUNT, 1u);
    run.Finish();
}

TEST(RunTables, NoRowIsAddedOnceTheTableIsAsLongAsItsRows) {
    OneLine form;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0);
    MessageBoxes boxes;
    std::string sum = "101";
    for (int number = 102; number <= 150; ++number) sum += "+" + std::to_string(number);
    uint16_t cells[MAX_CELLS];
    int32_t position = 0;
    EXPECT_EQ(GenerateSymbols(SessionOf(run), sum.c_str(), cells, &position, 2), 0);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Ran out of field table!"});
    EXPECT_EQ(SessionOf(run)->form.FieldCount, +run.params.FieldTotal);
    for (const char *name : {"Oslo", "Rome"}) EXPECT_EQ(run.Feed({{"NAME", name}}), 0);
    EXPECT_EQ(run.Finish(), 0);
    const std::vector<std::string> expected{"Oslo", "Rome"};
    EXPECT_EQ(PageWords(run.Report(), 0), expected);
}

TEST(RunTables, SystemFieldsStandInBothTablesBeforeTheFirstRecord) {
    MessageBoxes boxes;
    OneLine form;
    const int count = form.Field(FIELD_SYSTEM, "SYS->REC_COUNT", TYPE_NUMERIC);
    form.fields[static_cast<size_t>(count)].TableIndex = SYSTEM_REC_COUNT;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    EXPECT_EQ(+SessionOf(run)->form.Fields[count].LongValue, 1);
    EXPECT_EQ(+SessionOf(run)->run.InputTable[count].LongValue, 1);
    run.Finish();
}

TEST(RunTables, HostsPrinterIsTakenWhenBothBlocksComeAndTheFormsPaperStays) {
    MessageBoxes boxes;
    ReportRun first{OneLine{}};
    ASSERT_EQ(first.Start(), 0) << boxes.LastText();
    const HGLOBAL names = GetDevNames(SessionOf(first));
    const HGLOBAL mode = GetDevMode(SessionOf(first));
    const int orientation = SessionOf(first)->printer.DevMode->dmOrientation;
    const int copies = SessionOf(first)->printer.DevMode->dmCopies;
    first.Finish();
    auto *hosts = static_cast<DEVMODEA *>(GlobalLock(mode));
    hosts->dmOrientation = static_cast<short>(orientation == 1 ? 2 : 1);
    hosts->dmCopies = static_cast<short>(copies + 2);
    GlobalUnlock(mode);
    for (const bool both : {true, false}) {
        ReportRun run{OneLine{}};
        ASSERT_EQ(RepInit(&run.params, 0, both ? names : nullptr, mode), 0) << boxes.LastText();
        const DEVMODEA &own = *SessionOf(run)->printer.DevMode;
        EXPECT_EQ(own.dmCopies, both ? copies + 2 : copies);
        EXPECT_EQ(own.dmOrientation, orientation);
        run.Finish();
    }
    GlobalFree(names);
    GlobalFree(mode);
}

// ---- the run's own words ------------------------------------------------------------------------

TEST(RunBoxes, BelongToTheRunsWindow) {
    const HostWindow host;
    const BoxOwners owners;
    OneLine filtered;
    filtered.Filter({filtered.Field(FIELD_DATA, "N", TYPE_NUMERIC)});
    ReportRun run(filtered);
    run.params.ParentWindow = host.Get();
    ASSERT_EQ(run.Start(), 0);
    EXPECT_EQ(run.Feed({}), CODE_EXPRESSION);
    run.Finish();
    OneLine tall;
    tall.Section(SECTION_PAGE_FOOTER, 2600);
    tall.Label(SECTION_PAGE_FOOTER, 200, 0, 400, 50, "foot");
    ReportRun other(tall);
    other.params.ParentWindow = host.Get();
    EXPECT_EQ(other.Start(), CODE_PRINTER);
    EXPECT_EQ(owners.Noted(), std::vector<HWND>(2, host.Get()));
}

// ---- memory ------------------------------------------------------------------------------------

namespace {

class RunMemory : public Composition {};

} // namespace

TEST_F(RunMemory, EachTableThatCannotBeHadIsToldAndGives3) {
    session.AddField(FIELD_DATA, "NAME", TYPE_TEXT);
    OurFree(session->form.Fields[1].TextValue);
    session->form.BreakCount = 1;
    session->form.Breaks[0] = {1, 1, SECTION_SORT_HEADER_1};
    const auto alloc = [&] { AllocRepMem(session); };
    std::vector<std::string> texts;
    for (int number = 1; number < 30; ++number) {
        boxes.Clear();
        FailAllocation(number);
        const int code = CodeOf(alloc);
        FailAllocation(0);
        if (!code) break;
        EXPECT_EQ(code, CODE_MEMORY);
        EXPECT_EQ(boxes.LastTitle(), "Fatal Error");
        texts.push_back(boxes.LastText());
    }
    EXPECT_EQ(std::set<std::string>(texts.begin(), texts.end()),
              (std::set<std::string>{"Ran Out of Memory (AllocRepMem)",
                                     "Ran Out of Memory (AllocRepMem(1))",
                                     "Ran Out of Memory (AllocRepMem(2))", "Ran Out of Memory(2)",
                                     "Ran Out of Memory(3)"}));
    FreeRunTables(session);
}
