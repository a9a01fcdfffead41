// The library as a host has it: through its exports alone.
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "tessarine.h"
#include "tests/dll/block_sizes.h"
#include "tests/support/form_builder.h"
#include "tests/support/host_state.h"
#include "tests/support/message_boxes.h"
#include "tests/support/page_texts.h"
#include "tests/support/test_session.h"

namespace {

std::vector<std::string> NamesOfTheModuleDefinition() {
    std::ifstream file(TEST_ROOT "/dll/tessarine.def");
    std::vector<std::string> names;
    std::string word;
    while (file >> word && word != "EXPORTS") {
    }
    while (file >> word) names.push_back(word);
    return names;
}

TEST(Exports, EachIsFoundByItsPlainName) {
    const HMODULE library = GetModuleHandleA("tessarine.dll");
    ASSERT_TRUE(library);
    const std::vector<std::string> names = NamesOfTheModuleDefinition();
    EXPECT_EQ(names.size(), 81U);
    for (const std::string &name : names)
        EXPECT_TRUE(GetProcAddress(library, name.c_str())) << name;
}

TEST(Exports, BlocksHaveTheirSizesInC) {
    for (int block = 0; block < block_total; ++block)
        EXPECT_EQ(block_sizes[block].seen, block_sizes[block].wanted) << block_sizes[block].name;
}

TEST(Exports, UnknownSessionGives18WhateverTheSecondArgument) {
    for (const int ignored : {0, 1, -1}) EXPECT_EQ(RepRec(55, ignored, 0), CODE_NO_SESSION);
    int32_t pages = 77;
    EXPECT_EQ(RepExit(-1, 0, &pages), CODE_NO_SESSION);
    EXPECT_EQ(pages, 77);
}

TEST(Exports, MissingFormIsToldAndGives1) {
    MessageBoxes boxes;
    RepParams params{};
    std::strcpy(params.FormFile, "C:\\NO\\SUCH.FP");
    params.Device = 'F';
    EXPECT_EQ(RepInit(&params, 0, nullptr, nullptr), CODE_FILE);
    const std::vector<BoxRecord> expected{{"Fatal Error", "Form File Not Found!", {IDOK}}};
    EXPECT_EQ(boxes.Log(), expected);
}

TEST(Exports, NoSessionOfAnOrdinaryWindow) {
    EXPECT_FALSE(GetSessionPointer(GetDesktopWindow(), 0));
    EXPECT_FALSE(GetSessionPointer(nullptr, -1));
    EXPECT_FALSE(RepGetParent(GetDesktopWindow(), 0));
    EXPECT_EQ(RepSetMsgCallback(nullptr, 99, nullptr), 0);
}

TEST(Exports, ClosingRoutineDoesNothingAndFreeingNothingToo) {
    for (const int ignored : {0, 1, -1}) EXPECT_EQ(WEP(ignored), 1);
    EXPECT_EQ(OurFree(nullptr), 0);
}

TEST(Exports, ElevenBlocksAreOneTooMany) {
    HostData blocks[11]{};
    for (int block = 0; block < 10; ++block) EXPECT_EQ(SetCRepData(&blocks[block]), block);
    EXPECT_EQ(SetCRepData(&blocks[10]), 10);
    for (int block = 0; block < 10; ++block) EXPECT_EQ(RemoveCRepData(&blocks[block]), block);
    EXPECT_EQ(RemoveCRepData(&blocks[10]), 10);
}

TEST(Exports, WhatAHostLeavesOutIsRefused) {
    int32_t number = 0;
    EXPECT_EQ(RepInit(nullptr, 0, nullptr, nullptr), CODE_FILE);
    RepViewParams block{};
    EXPECT_FALSE(RepView(nullptr, &number, nullptr, nullptr));
    EXPECT_FALSE(RepView(&block, nullptr, nullptr, nullptr));
    EXPECT_EQ(SetCRepData(nullptr), 10);
    EXPECT_EQ(RemoveCRepData(nullptr), 10);
    EXPECT_FALSE(RepStrTrim(nullptr));
    RepLogbrush packed{};
    LOGBRUSH brush{};
    EXPECT_EQ(ReadRepLogbrush(nullptr, &brush), 0);
    EXPECT_EQ(ReadRepLogbrush(&packed, nullptr), 0);
    EXPECT_EQ(WriteRepLogbrush(nullptr, &packed), 0);
    EXPECT_EQ(WriteRepLogbrush(&brush, nullptr), 0);
}

// A host's window, its messages of ended sessions, and a form of one field.
class HostRun : public testing::Test {
protected:
    HostRun() {
        parent = CreateWindowExA(0, "STATIC", "Host", 0, 0, 0, 10, 10, nullptr, nullptr, nullptr,
                                 nullptr);
        FormBuilder form;
        form.Section(SECTION_DETAIL_1, 50);
        const int field = form.Field(FIELD_DATA, "CITY", TYPE_TEXT);
        form.FieldItem(SECTION_DETAIL_1, 125, 0, 400, 45, field);
        form.Write(folder.Path("CITY.FP"));
        std::strcpy(params.FormFile, folder.Path("CITY.FP").c_str());
        std::strcpy(params.OutputFile, folder.Path("CITY.FRC").c_str());
        std::strcpy(params.TempDir, folder.Root().c_str());
        params.Device = 'F';
        params.Silent = 1;
        params.ParentWindow = parent;
        ended.clear();
    }
    ~HostRun() override { DestroyWindow(parent); }

    static int32_t __stdcall TakeMessage(HWND window, uint32_t message) {
        ended.emplace_back(window, message);
        return 0;
    }
    static inline std::vector<std::pair<HWND, uint32_t>> ended;

    // Feeds and ends the session of which it hears that it has ended.
    static int32_t __stdcall GoOn(HWND, uint32_t) {
        codes = {RepRec(ended_slot, 0, 0), RepExit(ended_slot, 0, nullptr)};
        return 0;
    }
    static inline int ended_slot;
    static inline std::vector<int32_t> codes;

    // Goes on working on the form of a session of which it hears that it has ended.
    static int32_t __stdcall WorkOn(HWND, uint32_t) {
        char path[260] = "";
        std::strcpy(path, ended_form.c_str());
        char text[400] = "";
        int32_t height = 77;
        int32_t width = 77;
        codes = {
            FrSave(ended_session, path),
            InitNewForm(ended_session),
            AddNewSysField(ended_session, SYSTEM_PAGE, SECTION_DETAIL_1, 0, 0),
            CreateFieldLabel(ended_session, 1, text, 0, 0),
            GetFieldSize(ended_session, 1, 0, &height, &width),
            CreateDefaultBoldFont(ended_session),
            ValidateMargins(ended_session, 1),
            ProcessPrinterData(ended_session),
            GetDevMode(ended_session) != nullptr,
            GetDevNames(ended_session) != nullptr,
            ReadMetaFilePage(ended_session, 0, path, nullptr) != nullptr,
            GetLabelLen(ended_session, "text", 0),
        };
        return 0;
    }
    static inline Session *ended_session;
    static inline std::string ended_form;
    static inline const std::vector<int32_t> refusals{0, 0, -1, 0, 0, 0, 0, 0, 0, 0, 0, 0};

    TemporaryFolder folder;
    MessageBoxes boxes;
    HWND parent;
    RepParams params{};
};

TEST_F(HostRun, ReportToAFileTakesNothingButTheExports) {
    ASSERT_EQ(RepInit(&params, 0, nullptr, nullptr), 0);
    EXPECT_TRUE(GetSessionPointer(nullptr, params.SessionId));
    EXPECT_EQ(RepGetParent(nullptr, params.SessionId), parent);
    for (const char *city : {"Oslo", "Rome"}) {
        for (int row = 0; row < params.FieldTotal; ++row)
            if (!std::strcmp(params.FieldTable[row].FieldName, "CITY"))
                std::strcpy(params.FieldTable[row].TextValue, city);
        EXPECT_EQ(RepRec(params.SessionId, 12345, 0), 0);
    }
    int32_t pages = 0;
    EXPECT_EQ(RepExit(params.SessionId, 0, &pages), 0);
    EXPECT_EQ(pages, 1);
    EXPECT_FALSE(GetSessionPointer(nullptr, params.SessionId));
    EXPECT_EQ(RepRec(params.SessionId, 0, 0), CODE_NO_SESSION);
    EXPECT_GT(ReadWholeFile(params.OutputFile).size(), sizeof(ReportFileHeader));
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{});
}

TEST_F(HostRun, RunWordOfTheFormComesBackWithItsSign) {
    std::string bytes = ReadWholeFile(params.FormFile);
    const int16_t word = -2;
    std::memcpy(bytes.data() + offsetof(FormHeader, RunWord), &word, sizeof word);
    WriteWholeFile(params.FormFile, bytes);
    ASSERT_EQ(RepInit(&params, 0, nullptr, nullptr), 0);
    EXPECT_EQ(+params.RunWord, -2);
    RepExit(params.SessionId, 0, nullptr);
}

TEST_F(HostRun, EndOfTheSessionIsToldToTheCallbackOnce) {
    ASSERT_EQ(RepInit(&params, 0, nullptr, nullptr), 0);
    EXPECT_EQ(RepSetMsgCallback(nullptr, params.SessionId, TakeMessage), 1);
    RepExit(params.SessionId, 0, nullptr);
    const std::vector<std::pair<HWND, uint32_t>> expected{{parent, MESSAGE_SESSION_ENDED}};
    EXPECT_EQ(ended, expected);
}

TEST_F(HostRun, SessionWithoutAParentTellsNobodyThoughACallbackIsSet) {
    params.ParentWindow = nullptr;
    ASSERT_EQ(RepInit(&params, 0, nullptr, nullptr), 0);
    EXPECT_EQ(RepSetMsgCallback(nullptr, params.SessionId, TakeMessage), 1);
    RepExit(params.SessionId, 0, nullptr);
    EXPECT_TRUE(ended.empty());
}

TEST_F(HostRun, SecondArgumentOfARecordHasNoEffect) {
    std::vector<std::vector<std::string>> reports;
    for (const int ignored : {0, 1, -1, 0x7FFFFFFF}) {
        ASSERT_EQ(RepInit(&params, 0, nullptr, nullptr), 0);
        for (int row = 0; row < params.FieldTotal; ++row)
            if (!std::strcmp(params.FieldTable[row].FieldName, "CITY"))
                std::strcpy(params.FieldTable[row].TextValue, "Oslo");
        EXPECT_EQ(RepRec(params.SessionId, ignored, 0), 0);
        EXPECT_EQ(RepExit(params.SessionId, 0, nullptr), 0);
        reports.push_back(PageLines(ReadWholeFile(params.OutputFile), 0));
    }
    ASSERT_EQ(reports[0].size(), 1u);
    for (const auto &report : reports) EXPECT_EQ(report, reports[0]);
}

TEST_F(HostRun, LocaleAndFloatStateOfTheHostHaveNoSay) {
    FormBuilder form;
    form.Section(SECTION_DETAIL_1, 50);
    const int price = form.Field(FIELD_DATA, "PRICE", TYPE_DOUBLE);
    const int city = form.Field(FIELD_DATA, "CITY", TYPE_TEXT);
    form.fields[static_cast<size_t>(price)].Decimals = 2;
    form.fields[static_cast<size_t>(city)].FieldFlags = FIELD_UPPER;
    form.FieldItem(SECTION_DETAIL_1, 125, 0, 300, 45, price);
    form.FieldItem(SECTION_DETAIL_1, 525, 0, 400, 45, city);
    form.Write(params.FormFile);
    const HostLocale german;
    ASSERT_TRUE(german.Set());
    const HostFloatState host;
    ASSERT_EQ(RepInit(&params, 0, nullptr, nullptr), 0);
    EXPECT_TRUE(HostFloatState::Stands());
    params.FieldTable[price].DoubleValue = 0.285; // 0.29 when its hundredths are rounded up
    std::strcpy(params.FieldTable[city].TextValue, "K\xF6ln");
    EXPECT_EQ(RepRec(params.SessionId, 0, 0), 0);
    EXPECT_TRUE(HostFloatState::Stands());
    EXPECT_EQ(RepExit(params.SessionId, 0, nullptr), 0);
    EXPECT_TRUE(HostFloatState::Stands());
    const std::vector<std::string> expected{" 0.28", "K\xF6LN"};
    EXPECT_EQ(PageWords(ReadWholeFile(params.OutputFile), 0), expected);
}

TEST_F(HostRun, RunThatDidNotStartKeepsItsSlot) {
    ASSERT_EQ(RepInit(&params, 0, nullptr, nullptr), 0);
    const int slot = params.SessionId;
    EXPECT_EQ(RepExit(slot, 0, nullptr), 0);
    EXPECT_FALSE(GetSessionPointer(nullptr, slot));
    std::strcpy(params.FormFile, "C:\\NO\\SUCH.FP");
    EXPECT_EQ(RepInit(&params, 0, nullptr, nullptr), CODE_FILE);
    EXPECT_TRUE(GetSessionPointer(nullptr, slot));
}

TEST_F(HostRun, RunThatDidNotStartTakesNoRecordAndNoEnd) {
    std::strcpy(params.OutputFile, "");
    ASSERT_EQ(RepInit(&params, 0, nullptr, nullptr), CODE_NO_OUTPUT_FILE);
    ASSERT_TRUE(GetSessionPointer(nullptr, 0));
    for (int slot = 0; GetSessionPointer(nullptr, slot); ++slot) {
        EXPECT_EQ(RepRec(slot, 0, 0), CODE_NO_SESSION);
        EXPECT_EQ(RepExit(slot, 0, nullptr), CODE_NO_SESSION);
    }
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(HostRun, SessionThatIsEndingTakesNoRecordAndNoOtherEnd) {
    ASSERT_EQ(RepInit(&params, 0, nullptr, nullptr), 0);
    ended_slot = params.SessionId;
    codes.clear();
    EXPECT_EQ(RepSetMsgCallback(nullptr, ended_slot, GoOn), 1);
    EXPECT_EQ(RepExit(ended_slot, 0, nullptr), 0);
    const std::vector<int32_t> expected{CODE_NO_SESSION, CODE_NO_SESSION};
    EXPECT_EQ(codes, expected);
    EXPECT_FALSE(GetSessionPointer(nullptr, ended_slot));
}

TEST_F(HostRun, SessionThatHasEndedRefusesWorkOnItsForm) {
    ASSERT_EQ(RepInit(&params, 0, nullptr, nullptr), 0);
    ended_session = GetSessionPointer(nullptr, params.SessionId);
    ended_form = folder.Path("NEVER.FP");
    codes.clear();
    EXPECT_EQ(RepSetMsgCallback(nullptr, params.SessionId, WorkOn), 1);
    EXPECT_EQ(RepExit(params.SessionId, 0, nullptr), 0);
    EXPECT_EQ(codes, refusals);
    EXPECT_EQ(GetFileAttributesA(ended_form.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(HostRun, RunThatDidNotStartRefusesWorkOnItsForm) {
    params.OutputFile[0] = 0;
    ASSERT_EQ(RepInit(&params, 0, nullptr, nullptr), CODE_NO_OUTPUT_FILE);
    int slot = 0;
    while (GetSessionPointer(nullptr, slot + 1)) ++slot;
    ended_session = GetSessionPointer(nullptr, slot);
    ended_form = folder.Path("NEVER.FP");
    WorkOn(nullptr, 0);
    EXPECT_EQ(codes, refusals);
    EXPECT_EQ(GetFileAttributesA(ended_form.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_TRUE(boxes.Log().empty());
}

// After its set-up a run's tables are no form any more.
TEST_F(HostRun, RunRefusesWhatWorksOnAFormAndGoesOn) {
    ASSERT_EQ(RepInit(&params, 0, nullptr, nullptr), 0);
    Session *session = GetSessionPointer(nullptr, params.SessionId);
    uint16_t cells[MAX_CELLS]{};
    int32_t number = 0;
    const HGLOBAL names = GetDevNames(session);
    const HGLOBAL mode = GetDevMode(session);
    ASSERT_TRUE(names && mode); // the printer's data are given in a run too
    std::string fifty = "101";
    for (int literal = 102; literal <= 150; ++literal) fifty += "+" + std::to_string(literal);
    for (int time = 0; time < 2; ++time) {
        std::string saved = folder.Path("NEVER.FP");
        EXPECT_EQ(GenerateSymbols(session, fifty.c_str(), cells, &number, 0), 0);
        EXPECT_EQ(ValidateExp(session, cells, 0), 0);
        EXPECT_EQ(AddNewSysField(session, SYSTEM_PAGE, SECTION_DETAIL_1, 0, 0), -1);
        EXPECT_EQ(AddNewDataField(session, "CITY", SECTION_DETAIL_1, 0, 0, 0), -1);
        EXPECT_EQ(AddNewCalcField(session, "1+2", SECTION_DETAIL_1, "SUM", 0, 0), -1);
        EXPECT_EQ(FrSave(session, saved.data()), 0);
        EXPECT_EQ(GetFileAttributesA(saved.c_str()), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(InitVariables(session), 0);
        EXPECT_EQ(InitNewForm(session), 0);
        EXPECT_EQ(CreateDefaultBoldFont(session), 0);
        EXPECT_EQ(ValidateMargins(session, 1), 0);
        EXPECT_EQ(ProcessPrinterData(session), 0);
        EXPECT_EQ(SetDevNames(session, names), 0);
        EXPECT_EQ(SetDevMode(session, mode, 1), 0);
        EXPECT_GT(GetLabelLen(session, "text", 0), 0); // measures are as good in a run
        EXPECT_EQ(RepRec(params.SessionId, 0, 0), 0);
    }
    GlobalFree(names);
    GlobalFree(mode);
    EXPECT_TRUE(boxes.Log().empty());
    int32_t pages = 0;
    EXPECT_EQ(RepExit(params.SessionId, 0, &pages), 0);
    EXPECT_EQ(pages, 1);
}

TEST_F(HostRun, OpenSessionRefusesWhatAHostLeavesOut) {
    ASSERT_EQ(RepInit(&params, 0, nullptr, nullptr), 0);
    Session *session = GetSessionPointer(nullptr, params.SessionId);
    uint16_t cells[MAX_CELLS]{};
    char text[400] = "";
    int32_t number = 0;
    EXPECT_EQ(FrSave(session, nullptr), 0);
    EXPECT_EQ(AddNewDataField(session, nullptr, 11, 0, 0, 0), -1);
    EXPECT_EQ(AddNewCalcField(session, nullptr, 11, "X", 0, 0), -1);
    EXPECT_EQ(AddNewCalcField(session, "1", 11, nullptr, 0, 0), -1);
    EXPECT_EQ(CreateFieldLabel(session, 1, nullptr, 0, 0), 0);
    EXPECT_EQ(GetFieldSize(session, 1, 0, nullptr, &number), 0);
    EXPECT_EQ(GetFieldSize(session, 1, 0, &number, nullptr), 0);
    EXPECT_EQ(GetLabelLen(session, nullptr, 0), 0);
    EXPECT_EQ(TruncateText(session, nullptr, 10, 0), 1);
    EXPECT_EQ(GenerateSymbols(session, nullptr, cells, &number, 0), 0);
    EXPECT_EQ(GenerateSymbols(session, text, nullptr, &number, 0), 0);
    EXPECT_EQ(GenerateSymbols(session, text, cells, nullptr, 0), 0);
    EXPECT_EQ(ValidateExp(session, nullptr, 0), 0);
    EXPECT_EQ(ReleaseSymbols(session, nullptr), 1);
    EXPECT_EQ(SetDevNames(session, nullptr), 0);
    EXPECT_EQ(SetDevMode(session, nullptr, 0), 0);
    EXPECT_FALSE(ReadMetaFilePage(session, 0, nullptr, nullptr));
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(RepExit(params.SessionId, 0, nullptr), 0);
}

TEST_F(HostRun, EmptyOutputNameGives19AndTheBlockIsNotWrittenBack) {
    params.OutputFile[0] = 0;
    params.TempDir[0] = 0;
    params.SessionId = 4711;
    const RepParams before = params;
    EXPECT_EQ(RepInit(&params, 0, nullptr, nullptr), CODE_NO_OUTPUT_FILE);
    EXPECT_EQ(std::memcmp(&params, &before, sizeof params), 0);
}

} // namespace
