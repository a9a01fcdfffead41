#include "fuzz/watch.h"

#include <atomic>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "state/windows.h"

namespace {

constexpr double HANG_WORK = 10;  // seconds of work that a case may take
constexpr int HANG_SECONDS = 120; // and of time, on a machine that does other things too
constexpr int STACK_WORDS = 400;
constexpr int MOST_CALLERS = 12;

std::string folder;
const char *kind = "";
const std::string *input = nullptr;
std::atomic<unsigned> cases{0};
HANDLE worker = nullptr;

// Without any memory of the heap, which may be what is broken.
void LeaveInput() {
    if (!input || folder.empty()) return;
    uint32_t mark = 2166136261u;
    for (const char c : *input) mark = (mark ^ static_cast<unsigned char>(c)) * 16777619u;
    char path[MAX_PATH];
    std::snprintf(path, sizeof path, "%s\\%s-%08x", folder.c_str(), kind, mark);
    const HANDLE file =
        CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(file, input->data(), static_cast<DWORD>(input->size()), &written, nullptr);
    CloseHandle(file);
    std::printf("left: %s-%08x\n", kind, mark);
}

bool TellPlace(uintptr_t address) {
    HMODULE module = nullptr;
    char name[MAX_PATH] = "";
    if (!GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            reinterpret_cast<LPCSTR>(address), &module))
        return false;
    GetModuleFileNameA(module, name, sizeof name);
    const char *last = name;
    for (const char *c = name; *c; ++c)
        if (*c == '\\') last = c + 1;
    std::printf(" %s+%lx", last,
                static_cast<unsigned long>(address - reinterpret_cast<uintptr_t>(module)));
    return true;
}

// What on the stack looks like addresses of code, the innermost first.
void TellCallers(const CONTEXT &context) {
    std::printf("at");
    TellPlace(context.Eip);
    const auto *words = reinterpret_cast<const uintptr_t *>(context.Esp);
    int told = 0;
    for (int at = 0; at < STACK_WORDS && told < MOST_CALLERS; ++at) {
        MEMORY_BASIC_INFORMATION page{};
        if (!VirtualQuery(words + at, &page, sizeof page) || page.State != MEM_COMMIT) break;
        if (!VirtualQuery(reinterpret_cast<void *>(words[at]), &page, sizeof page)) continue;
        if (page.Protect == PAGE_EXECUTE_READ || page.Protect == PAGE_EXECUTE_WRITECOPY)
            told += TellPlace(words[at]);
    }
    std::printf("\n");
}

[[noreturn]] void End(int code) {
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(code));
    std::abort();
}

LONG WINAPI OnCrash(EXCEPTION_POINTERS *pointers) {
    const EXCEPTION_RECORD &record = *pointers->ExceptionRecord;
    std::printf("crash of %s: exception %08lx touching %08lx\n", kind, record.ExceptionCode,
                record.NumberParameters > 1
                    ? static_cast<unsigned long>(record.ExceptionInformation[1])
                    : 0ul);
    LeaveInput();
    TellCallers(*pointers->ContextRecord);
    End(EXIT_CRASHED);
}

void OnAbort(int) { TellAndEnd("abort"); }

// What the worker has worked so far, in seconds.
double Work() {
    FILETIME times[4]{};
    GetThreadTimes(worker, &times[0], &times[1], &times[2], &times[3]);
    const auto seconds = [](const FILETIME &time) {
        return (time.dwHighDateTime * 4294967296.0 + time.dwLowDateTime) * 1e-7;
    };
    return seconds(times[2]) + seconds(times[3]);
}

[[noreturn]] void TellHang() {
    SuspendThread(worker);
    CONTEXT context{};
    context.ContextFlags = CONTEXT_CONTROL;
    GetThreadContext(worker, &context);
    std::printf("hang of %s\n", kind);
    LeaveInput();
    TellCallers(context);
    End(EXIT_HUNG);
}

DWORD WINAPI Watch(void *) {
    unsigned seen = 0;
    double work = 0;
    for (int still = 0;; ++still) {
        Sleep(1000);
        if (const unsigned now = cases; now != seen || !now) {
            seen = now;
            work = Work();
            still = 0;
        }
        if (still > HANG_SECONDS || (still && Work() - work > HANG_WORK)) TellHang();
    }
}

} // namespace

void StartWatch(const std::string &where) {
    folder = where;
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    SetUnhandledExceptionFilter(OnCrash);
    std::signal(SIGABRT, OnAbort);
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &worker, 0, FALSE,
                    DUPLICATE_SAME_ACCESS);
    CloseHandle(CreateThread(nullptr, 0, Watch, nullptr, 0, nullptr));
}

void WatchCase(const char *name, const std::string &bytes) {
    kind = name;
    input = &bytes;
    ++cases;
}

[[noreturn]] void TellAndEnd(const char *what, int code) {
    std::printf("crash of %s: %s\n", kind, what);
    LeaveInput();
    CONTEXT context{};
    RtlCaptureContext(&context);
    TellCallers(context);
    End(code);
}
