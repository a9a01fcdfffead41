// The printer that a session is bound to.
#pragma once

#include "state/session.h"

namespace tessarine {

int GetDefaultPrinter(Session *session, char *device, char *driver, char *port);
int GetProfilePrinter(Session *session, const char *section, const char *key, char *first,
                      char *second, char *third);
bool EndsInDrv(const char *driver); // the ending of a driver's file
// Adds the ending to the name of a PrinterState that has nothing else or lacks it.
void AddDriverEnding(char *driver, const char *ending);
void FreeDevMode(PrinterState *printer); // nothing when it has none
void InitPrinter(Session *session);      // a fresh DEVMODE from the driver; fatal with code 10
void CallPrinterDriver(Session *session, int mode);
// Binds the form just read to its printer.
void BindFormPrinter(Session *session);
// The device of a run to the printer, anew for the printer in force; fatal with code 2.
void RemakeOutputDevice(Session *session);
// A context of the session's printer, or null.
HDC CreatePrinterContext(const Session *session);
// The printing offset of a device in form units.
void ReadPrintOffset(HDC device, int32_t *x, int32_t *y);

} // namespace tessarine
