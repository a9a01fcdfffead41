#include "tests/support/tess_program.h"

namespace {

constexpr DWORD LONGEST_RUN = 120'000; // milliseconds

struct Search {
    DWORD process;
    const char *window_class;
    HWND found;
};

BOOL CALLBACK Look(HWND window, LPARAM parameter) {
    auto *search = reinterpret_cast<Search *>(parameter);
    DWORD process = 0;
    char name[64] = "";
    GetWindowThreadProcessId(window, &process);
    GetClassNameA(window, name, sizeof name);
    if (process != search->process || lstrcmpA(name, search->window_class) ||
        !IsWindowVisible(window))
        return TRUE;
    search->found = window;
    return FALSE;
}

BOOL WINAPI StayHere(DWORD) { return TRUE; }

} // namespace

Running::Running(const std::string &program, const std::string &arguments, const std::string &log,
                 bool own_console)
    : log_(log) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    // A program without a console gets one of its own, which may hold the log of the one before.
    const HANDLE file = CreateFileA(log.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    &inherited, CREATE_ALWAYS, 0, nullptr);
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = file;
    std::string line = "\"" + program + "\" " + arguments;
    CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, own_console ? CREATE_NO_WINDOW : 0,
                   nullptr, nullptr, &start, &process_);
    CloseHandle(file);
}

Running::~Running() {
    if (!process_.hProcess) return;
    TerminateProcess(process_.hProcess, 998);
    CloseHandle(process_.hProcess);
    CloseHandle(process_.hThread);
}

Outcome Running::Wait() {
    Outcome outcome{999, ""};
    if (process_.hProcess) {
        if (WaitForSingleObject(process_.hProcess, LONGEST_RUN) != WAIT_OBJECT_0) {
            TerminateProcess(process_.hProcess, 998);
            WaitForSingleObject(process_.hProcess, LONGEST_RUN);
        }
        GetExitCodeProcess(process_.hProcess, &outcome.code);
    }
    outcome.output = ReadWholeFile(log_);
    return outcome;
}

// The event goes to all at the console, and so to this program too for as long as it is there.
void Running::Interrupt() const {
    SetConsoleCtrlHandler(StayHere, TRUE);
    FreeConsole();
    EXPECT_TRUE(AttachConsole(process_.dwProcessId));
    EXPECT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
    FreeConsole();
}

bool Running::Says(const std::string &text) const {
    bool said = false;
    Comes([&] {
        const bool ended = WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0;
        said = Holds(ReadWholeFile(log_), text);
        return said || ended;
    });
    return said;
}

HWND Running::Window(const char *window_class) const {
    Search search{process_.dwProcessId, window_class, nullptr};
    Comes([&] {
        EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
        return search.found != nullptr ||
               WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0;
    });
    return search.found;
}

std::string Tess::Program() { return std::string(TEST_BIN) + "/tess.exe"; }

Outcome Tess::Run(const std::string &arguments) {
    return Running(Program(), arguments, folder.Path("log.txt")).Wait();
}

std::string Tess::Sample(const std::string &name) {
    return std::string(TEST_ROOT) + "/samples/" + name;
}

std::string Tess::Build(const std::string &name) {
    const std::string form = folder.Path(name + ".fp");
    const Outcome outcome = Run("form build " + Sample(name + ".json") + " " + form);
    EXPECT_EQ(outcome.code, 0u) << outcome.output;
    return form;
}

std::string Tess::BuildTitled(const std::string &name, const std::string &title,
                              const std::string &part, const std::string &other) {
    std::string json = ReadWholeFile(Sample(name + ".json"));
    const size_t start = json.find("\"name\": \"") + 9;
    json.replace(start, json.find('"', start) - start, title);
    if (!part.empty()) json.replace(json.find(part), part.size(), other);
    WriteWholeFile(folder.Path(name + ".json"), json);
    const std::string form = folder.Path(name + ".fp");
    const Outcome outcome = Run("form build " + folder.Path(name + ".json") + " " + form);
    EXPECT_EQ(outcome.code, 0u) << outcome.output;
    return form;
}

int Tess::Files(const std::string &pattern) const {
    WIN32_FIND_DATAA found{};
    const HANDLE search = FindFirstFileA(folder.Path(pattern).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return 0;
    int count = 1;
    while (FindNextFileA(search, &found)) ++count;
    FindClose(search);
    return count;
}

Outcome Tess::Report(const std::string &name, const std::string &more) {
    return Run("run --form " + Build(name) + " --data " + Sample(name + ".csv") + " --output " +
               folder.Path(name + ".frc") + " " + more);
}

bool Holds(const std::string &text, const std::string &part) {
    return text.find(part) != std::string::npos;
}
