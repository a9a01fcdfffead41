// The main routine of every test program: a crash ends with its exit code, never with a dialog.
#include <gtest/gtest.h>

#include "frame/session_table.h"
#include "state/windows.h"
#include "tests/support/other_process.h"

namespace {

LONG WINAPI EndOnCrash(EXCEPTION_POINTERS *pointers) {
    std::fprintf(stderr, "crash: exception %08lx at %p\n", pointers->ExceptionRecord->ExceptionCode,
                 pointers->ExceptionRecord->ExceptionAddress);
    std::fflush(stderr);
    TerminateProcess(GetCurrentProcess(), 99);
    return EXCEPTION_EXECUTE_HANDLER;
}

} // namespace

int main(int count, char **arguments) {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    SetUnhandledExceptionFilter(EndOnCrash);
    if (ServedAsOther(count, arguments)) return 0;
    tessarine::module_instance = GetModuleHandleA(nullptr);
    tessarine::frc_format = 1;
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
