#include <gtest/gtest.h>

#include "form/form_tables.h"
#include "frame/fatal_error.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "run/record_driver.h"
#include "run/run_end.h"
#include "run/set_up.h"
#include "tests/support/box_owners.h"
#include "tests/support/message_boxes.h"
#include "tests/support/tess_program.h"
#include "tests/support/test_session.h"

namespace {

struct OpenedSessions {
    ~OpenedSessions() {
        for (Session *session : open) tessarine::FreeSession(session);
    }
    Session *Open() {
        Session *session = nullptr;
        code = tessarine::OpenRunSession(&session);
        if (session) open.push_back(session);
        return session;
    }
    std::vector<Session *> open;
    int code = 0;
};

} // namespace

TEST(SessionTable, FreedSlotIsTakenAgainAndTheHighMarkStays) {
    OpenedSessions sessions;
    for (int slot = 0; slot < 3; ++slot) ASSERT_EQ(sessions.Open()->SessionId, slot);
    const int high = tessarine::session_table.SessionHighMark;
    tessarine::FreeSession(sessions.open[1]);
    sessions.open.erase(sessions.open.begin() + 1);
    EXPECT_EQ(sessions.Open()->SessionId, 1);
    EXPECT_EQ(tessarine::session_table.SessionHighMark, high);
}

TEST(SessionTable, HighMarkStaysWhenTheTopSlotIsFreed) {
    OpenedSessions sessions;
    for (int slot = 0; slot < 3; ++slot) ASSERT_EQ(sessions.Open()->SessionId, slot);
    const int high = tessarine::session_table.SessionHighMark;
    ASSERT_GE(high, 3);
    tessarine::FreeSession(sessions.open.back());
    sessions.open.pop_back();
    EXPECT_EQ(tessarine::session_table.SessionHighMark, high);
    EXPECT_EQ(tessarine::GetSessionPointer(nullptr, 2), nullptr);
    EXPECT_EQ(sessions.Open()->SessionId, 2);
    EXPECT_EQ(tessarine::session_table.SessionHighMark, high);
}

TEST(SessionTable, OrdinaryWindowsAndOddSlotsHaveNoSession) {
    EXPECT_EQ(tessarine::GetSessionPointer(GetDesktopWindow(), 0), nullptr);
    EXPECT_EQ(tessarine::GetSessionPointer(nullptr, -1), nullptr);
    for (const int slot : {-1000000, INT32_MIN, 100, 5000, INT32_MAX})
        EXPECT_EQ(tessarine::GetSessionPointer(nullptr, slot), nullptr) << slot;
}

TEST(SessionTable, FreedSlotGivesNullAndRepRecGives18) {
    OpenedSessions sessions;
    const int slot = sessions.Open()->SessionId;
    tessarine::FreeSession(sessions.open[0]);
    sessions.open.clear();
    EXPECT_EQ(tessarine::GetSessionPointer(nullptr, slot), nullptr);
    EXPECT_EQ(tessarine::RepRec(slot, 0), CODE_NO_SESSION);
    EXPECT_EQ(tessarine::RepExit(slot, 0, nullptr), CODE_NO_SESSION);
}

TEST(SessionTable, HundredAndFirstSessionIsRefusedBeforeAnythingIsAllocated) {
    OpenedSessions sessions;
    for (int slot = 0; slot < MAX_SESSIONS; ++slot) ASSERT_NE(sessions.Open(), nullptr);
    const int blocks = tessarine::LiveBlocks();
    RepParams params{};
    EXPECT_EQ(tessarine::RepInit(&params, 0, nullptr, nullptr), CODE_NO_SLOT);
    EXPECT_EQ(tessarine::LiveBlocks(), blocks);
}

TEST(SessionTable, SessionWithoutMemoryIsCode3) {
    MessageBoxes boxes;
    RepParams params{};
    tessarine::FailAllocation(1);
    EXPECT_EQ(tessarine::RepInit(&params, 0, nullptr, nullptr), CODE_MEMORY);
    tessarine::FailAllocation(0);
    EXPECT_EQ(boxes.Log(),
              (std::vector<BoxRecord>{{"", "Memory Allocation Error (OurAlloc)", {IDOK}}}));
}

TEST(SessionTable, ChildOfASessionsWindowHasItsParent) {
    BareSession session;
    session->ParentWindow = GetDesktopWindow();
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = DefWindowProcA;
    window_class.cbWndExtra = 4;
    window_class.lpszClassName = "RepClass32";
    RegisterClassA(&window_class);
    const HWND window = CreateWindowExA(0, "RepClass32", "", WS_OVERLAPPEDWINDOW, 0, 0, 90, 90,
                                        nullptr, nullptr, nullptr, nullptr);
    const HWND child =
        CreateWindowExA(0, "STATIC", "", WS_CHILD, 0, 0, 9, 9, window, nullptr, nullptr, nullptr);
    SetWindowLongA(window, 0, reinterpret_cast<LONG>(static_cast<Session *>(session)));
    EXPECT_EQ(tessarine::GetSessionPointer(window, -1), static_cast<Session *>(session));
    EXPECT_EQ(tessarine::RepGetParent(window, -1), GetDesktopWindow());
    EXPECT_EQ(tessarine::GetSessionPointer(child, -1), nullptr);
    EXPECT_EQ(tessarine::RepGetParent(child, -1), GetDesktopWindow());
    EXPECT_EQ(tessarine::RepGetParent(nullptr, session->SessionId), GetDesktopWindow());
    DestroyWindow(window);
    UnregisterClassA("RepClass32", nullptr);
}

namespace {
constexpr const char *FOREIGN_TITLE = "a preview of another process";
}

// What a started copy of this program does.
TEST(SessionTable, DISABLED_WindowOfThisProcessStandsUntilItIsClosed) {
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = DefWindowProcA;
    window_class.cbWndExtra = 4;
    window_class.lpszClassName = "RepClass32";
    RegisterClassA(&window_class);
    const HWND window = CreateWindowExA(0, "RepClass32", FOREIGN_TITLE, WS_OVERLAPPEDWINDOW, 0, 0,
                                        90, 90, nullptr, nullptr, nullptr, nullptr);
    SetWindowLongA(window, 0, 0x1234);
    ShowWindow(window, SW_SHOW);
    MSG message;
    while (IsWindow(window) && GetMessageA(&message, nullptr, 0, 0)) DispatchMessageA(&message);
}

TEST(SessionTable, WindowOfAnotherProcessHasNoSession) {
    const TemporaryFolder folder;
    char program[MAX_PATH];
    GetModuleFileNameA(nullptr, program, sizeof program);
    Running other(program,
                  "--gtest_also_run_disabled_tests "
                  "--gtest_filter=SessionTable.DISABLED_WindowOfThisProcess*",
                  folder.Path("LOG"));
    const HWND window = other.Window("RepClass32");
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(tessarine::GetSessionPointer(window, 0), nullptr);
    EXPECT_EQ(tessarine::RepGetParent(window, 0), nullptr);
    PostMessageA(window, WM_CLOSE, 0, 0);
    const Outcome outcome = other.Wait();
    EXPECT_EQ(outcome.code, 0u) << outcome.output;
}

TEST(SessionTable, NobodyHasNoParentAndTakesNoCallback) {
    EXPECT_EQ(tessarine::RepGetParent(nullptr, 5000), nullptr);
    EXPECT_EQ(tessarine::RepGetParent(GetDesktopWindow(), 0), nullptr);
    EXPECT_EQ(tessarine::RepSetMsgCallback(nullptr, 5000, nullptr), 0);
}

TEST(SessionTable, TablesWithoutMemoryAreFatalAndToldTwice) {
    MessageBoxes boxes;
    for (int table = 1; table <= 4; ++table) {
        BareSession session;
        boxes.Clear();
        tessarine::FailAllocation(table);
        EXPECT_THROW(tessarine::AllocArrayMem(session), tessarine::Unwinding);
        tessarine::FailAllocation(0);
        EXPECT_EQ(session->ErrorCode, CODE_MEMORY);
        EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{
                                   {"", "Memory Allocation Error (sAlloc)", {IDOK}},
                                   {"Fatal Error", "Ran Out of Memory (AllocArrayMem)", {IDOK}},
                               }));
        tessarine::AllocArrayMem(session);
    }
}

TEST(FatalError, MessageComesFirstAndTheCodeStands) {
    MessageBoxes boxes;
    BareSession session;
    EXPECT_THROW(tessarine::FatalError(session, "Something", 7), tessarine::Unwinding);
    EXPECT_EQ(session->ErrorCode, 7);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"Fatal Error", "Something", {IDOK}}}));
}

TEST(FatalError, MessageAndThoseOfTheAllocatorsHaveNoOwner) {
    BareSession session;
    session->Window = GetDesktopWindow();
    session->ParentWindow = GetDesktopWindow();
    const BoxOwners owners;
    EXPECT_THROW(tessarine::FatalError(session, "Something", 7), tessarine::Unwinding);
    tessarine::FailAllocation(1);
    tessarine::OurAlloc(1);
    tessarine::sAlloc(1);
    tessarine::MemAlloc(1);
    tessarine::FailAllocation(0);
    EXPECT_EQ(owners.Noted(), std::vector<HWND>(4, nullptr));
}

TEST(FatalError, EmptyWarningShowsNothingAndStillUnwinds) {
    MessageBoxes boxes;
    BareSession session;
    EXPECT_THROW(tessarine::FatalError(session, "", CODE_WARNING), tessarine::Unwinding);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_THROW(tessarine::FatalError(session, "Mind", CODE_WARNING), tessarine::Unwinding);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"Warning", "Mind", {IDOK}}}));
}

TEST(FatalError, CallbackFailurePendsOnlyWhileAnEntryPointIsOnTheStack) {
    BareSession session;
    const auto fail = [&]() -> int { tessarine::FatalError(session, "", 9); };
    EXPECT_EQ(tessarine::Guarded(session, -1, fail), -1);
    EXPECT_EQ(session->PendingFailure, 0u);
    session->UnwindPoint = 1;
    EXPECT_EQ(tessarine::Guarded(session, -1, fail), -1);
    EXPECT_THROW(tessarine::RaisePending(session), tessarine::Unwinding);
}
