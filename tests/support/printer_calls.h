// The calls that a job makes on its printer.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "state/windows.h"

// While one stands, the calls of a job are logged in order, and a test can look in before each.
class PrinterCalls {
public:
    enum Way {
        REAL,   // the calls reach the printer
        PRETEND // they succeed without it; a page's end calls the abort procedure as a printer does
    };
    explicit PrinterCalls(Way way);
    ~PrinterCalls();
    PrinterCalls(const PrinterCalls &) = delete;
    PrinterCalls &operator=(const PrinterCalls &) = delete;

    const std::vector<std::string> &Log() const { return log_; }
    int Count(const std::string &name) const;
    // The routine gets control before the calls of this name, of SetAbortProc, StartDocA,
    // StartPage, EndPage, EndDoc and AbortDoc.
    void Before(const std::string &name, std::function<void(HDC)> routine);

    std::string document; // the name of the last document
    int document_size = 0;

private:
    struct Hook {
        const char *name;
        void *routine;
        void *real;
    };
    static Hook hooks[];
    void Note(const char *name, HDC device);
    static int Pass(const char *name, HDC device);
    static int WINAPI OnSetAbortProc(HDC device, ABORTPROC routine);
    static int WINAPI OnStartDoc(HDC device, const DOCINFOA *info);
    static int WINAPI OnStartPage(HDC device);
    static int WINAPI OnEndPage(HDC device);
    static int WINAPI OnEndDoc(HDC device);
    static int WINAPI OnAbortDoc(HDC device);

    static inline PrinterCalls *current_;
    Way way_;
    ABORTPROC abort_ = nullptr;
    std::vector<std::string> log_;
    std::vector<std::pair<std::string, std::function<void(HDC)>>> routines_;
};
