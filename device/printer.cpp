#include "device/printer.h"

#include <cstring>
#include <utility>

#include "frame/fatal_error.h"
#include "frame/mapping.h"
#include "frame/memory.h"
#include "frame/message_box.h"
#include "frame/owned.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr size_t NAME_SIZE = sizeof(PrinterState::DeviceName);
constexpr DWORD PROFILE_SIZE = 100;
constexpr int ENDING_LENGTH = 4; // ".drv"

// The next token of a comma list: blanks behind a comma are skipped.
const char *TakeToken(const char *list, char *token) {
    size_t length = 0;
    while (*list && *list != ',') {
        if (length + 1 < NAME_SIZE) token[length++] = *list;
        ++list;
    }
    token[length] = 0;
    if (*list == ',') ++list;
    while (*list == ' ') ++list;
    return list;
}

void AllocDevMode(Session *session, size_t size) {
    PrinterState &printer = session->printer;
    printer.DevModeMemory = sAlloc(size);
    printer.DevMode = static_cast<DEVMODEA *>(LockHandle(printer.DevModeMemory));
    if (!printer.DevMode) FatalError(session, "Ran Out of Memory (InitPrinter)", CODE_PRINTER);
    ZeroMemory(printer.DevMode, size);
}

HANDLE OpenDevice(const Session *session) {
    HANDLE printer = nullptr;
    char name[NAME_SIZE];
    CopyText(session->printer.DeviceName, name, sizeof name);
    return OpenPrinterA(name, &printer, nullptr) ? printer : nullptr;
}

// The driver's answer, as DocumentProperties gives it. A spooler that many programs start on at
// once may refuse at first, and is asked again.
LONG AskDriver(Session *session, HANDLE device, DEVMODEA *out, DEVMODEA *in, int mode) {
    constexpr int TRIES = 10;
    constexpr DWORD PAUSE = 30; // milliseconds
    char *const name = session->printer.DeviceName;
    LONG answer = 0;
    for (int time = 0; time < TRIES && answer <= 0; ++time) {
        if (time > 0) Sleep(PAUSE);
        answer = DocumentPropertiesA(session->ParentWindow, device, name, out, in,
                                     static_cast<DWORD>(mode));
    }
    return answer;
}

// The form's paper, in the driver's terms.
void TakeFormPaper(Session *session) {
    DEVMODEA *mode = session->printer.DevMode;
    const PrinterModeRecord &paper = session->form.Header.PrinterMode;
    mode->dmOrientation = paper.Orientation;
    mode->dmPaperSize = paper.PaperSize;
    mode->dmPaperLength = paper.PaperLength;
    mode->dmPaperWidth = paper.PaperWidth;
    mode->dmDefaultSource = paper.DefaultSource;
    mode->dmPrintQuality = paper.PrintQuality;
}

// A printer that the form names and that is not there is no error: the session's stays.
void TakeFormDevice(Session *session) {
    PrinterState &printer = session->printer;
    const FormHeader &header = session->form.Header;
    if (!lstrcmpiA(printer.DeviceName, header.PrinterDevice) &&
        !lstrcmpiA(printer.DriverName, header.PrinterDriver))
        return;
    char driver[NAME_SIZE];
    char port[NAME_SIZE];
    char rest[NAME_SIZE];
    if (!GetProfilePrinter(session, "devices", header.PrinterDevice, driver, port, rest)) return;
    CopyText(header.PrinterDevice, printer.DeviceName, sizeof printer.DeviceName);
    CopyText(driver, printer.DriverName, sizeof printer.DriverName);
    CopyText(port, printer.PortName, sizeof printer.PortName);
    InitPrinter(session);
}

} // namespace

bool EndsInDrv(const char *driver) {
    const size_t length = std::strlen(driver);
    return length >= ENDING_LENGTH && !lstrcmpiA(driver + length - ENDING_LENGTH, ".drv");
}

void AddDriverEnding(char *driver, const char *ending) {
    const size_t length = std::strlen(driver);
    if (length > ENDING_LENGTH && EndsInDrv(driver)) return;
    if (length + ENDING_LENGTH < NAME_SIZE) std::strcpy(driver + length, ending);
}

void FreeDevMode(PrinterState *printer) {
    if (!printer->DevModeMemory) return;
    UnlockHandle(printer->DevModeMemory);
    FreeHandle(printer->DevModeMemory);
    printer->DevModeMemory = nullptr;
    printer->DevMode = nullptr;
}

int GetProfilePrinter(Session *, const char *section, const char *key, char *first, char *second,
                      char *third) {
    char list[PROFILE_SIZE] = "";
    *first = *second = *third = 0;
    if (!*key || !GetProfileStringA(section, key, "", list, sizeof list)) return 0;
    const char *rest = TakeToken(list, first);
    rest = TakeToken(rest, second);
    TakeToken(rest, third);
    return 1;
}

int GetDefaultPrinter(Session *session, char *device, char *driver, char *port) {
    if (!GetProfilePrinter(session, "windows", "device", device, driver, port)) {
        ShowBox(session->ParentWindow, "Unable to Access the Current Printer!");
        return 0;
    }
    AddDriverEnding(driver, std::strlen(driver) <= ENDING_LENGTH ? ".drv" : ".DRV");
    return 1;
}

void InitPrinter(Session *session) {
    PrinterState &printer = session->printer;
    FreeDevMode(&printer);
    AddDriverEnding(printer.DriverName, ".DRV");
    const OwnedPrinter device(OpenDevice(session));
    if (!device) FatalError(session, "Invalid Printer Driver", CODE_PRINTER);
    const LONG size = AskDriver(session, device.Get(), nullptr, nullptr, 0);
    if (size <= 0) FatalError(session, "Error Initializing the printer(InitPrinter)", CODE_PRINTER);
    AllocDevMode(session, static_cast<size_t>(size));
    if (AskDriver(session, device.Get(), printer.DevMode, nullptr, DM_OUT_BUFFER) <= 0)
        FatalError(session, "Error Initializing the printer(InitPrinter a)", CODE_PRINTER);
}

void CallPrinterDriver(Session *session, int mode) {
    PrinterState &printer = session->printer;
    const OwnedPrinter device(OpenDevice(session));
    if (!device) {
        ShowBox(session->ParentWindow, "Error Initializing the Printer Options", "Printer Error");
        return;
    }
    if (AskDriver(session, device.Get(), printer.DevMode, printer.DevMode, mode) <= 0)
        ShowBox(session->ParentWindow, "Error Initializing the printer(CallPrinterDriver)");
}

void BindFormPrinter(Session *session) {
    const bool keep = session->SessionKind == KIND_REPORT && session->RunBlock.KeepPrinter;
    if (!keep) TakeFormDevice(session);
    TakeFormPaper(session);
    CallPrinterDriver(session, DM_IN_BUFFER | DM_OUT_BUFFER);
    if (session->OutputToPrinter) RemakeOutputDevice(session);
}

void RemakeOutputDevice(Session *session) {
    const OwnedContext old(std::exchange(session->drawing.OutputDevice, nullptr));
    const HDC device = CreatePrinterContext(session);
    if (!device) FatalError(session, "Can not initialize printing", CODE_NO_DEVICE);
    session->drawing.OutputDevice = device;
    TakePixels(session, device);
    ApplyMapping(session, device);
    if (!GetTextMetricsA(device, &session->device.Metrics))
        FatalError(session, "Unable to get text metric for the font.", CODE_DISPLAY);
}

HDC CreatePrinterContext(const Session *session) {
    const PrinterState &printer = session->printer;
    char driver[NAME_SIZE];
    CopyText(printer.DriverName, driver, sizeof driver);
    if (EndsInDrv(driver)) driver[std::strlen(driver) - ENDING_LENGTH] = 0;
    const HDC device = CreateDCA(driver, printer.DeviceName, printer.PortName, printer.DevMode);
    // A system of today knows printers by their spooler alone.
    return device ? device : CreateDCA("WINSPOOL", printer.DeviceName, nullptr, printer.DevMode);
}

void ReadPrintOffset(HDC device, int32_t *x, int32_t *y) {
    POINT offset{};
    *x = *y = 0;
    if (Escape(device, GETPRINTINGOFFSET, 0, nullptr, &offset) <= 0) return;
    *x = MulDiv(offset.x, UNITS_PER_INCH, GetDeviceCaps(device, LOGPIXELSX));
    *y = MulDiv(offset.y, UNITS_PER_INCH, GetDeviceCaps(device, LOGPIXELSY));
}

} // namespace tessarine
