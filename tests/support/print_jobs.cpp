#include "tests/support/print_jobs.h"

#include <cstdlib>

#include "tests/support/tess_program.h"

std::filesystem::path PrintedJob(const std::string &title) {
    const std::string folder = std::string("Z:") + std::getenv("TESSARINE_PRINT_DIR");
    std::error_code ignored;
    for (const auto &file : std::filesystem::directory_iterator(folder, ignored))
        if (file.path().filename().string().ends_with("-" + title + ".pdf")) return file.path();
    return {};
}

std::filesystem::path AwaitPrintedJob(const std::string &title) {
    std::filesystem::path found;
    Comes([&] { return !(found = PrintedJob(title)).empty(); });
    return found;
}
