#include "device/printer_options.h"

#include <cstring>
#include <utility>

#include "device/device_names.h"
#include "device/paper.h"
#include "device/printer.h"
#include "form/modified.h"
#include "frame/fatal_error.h"
#include "frame/mapping.h"
#include "frame/memory.h"
#include "frame/message_box.h"
#include "frame/owned.h"
#include "frame/text.h"

namespace tessarine {

namespace {

// What the dialog is given: the names in fields of fixed size, each with its terminating zero.
#pragma pack(push, 1)
struct NamesBlock {   // offset
    DEVNAMES Offsets; //   0
    char Driver[15];  //   8
    char Device[60];  //  23
    char Port[60];    //  83
};
#pragma pack(pop)
static_assert(sizeof(NamesBlock) == 143 && offsetof(NamesBlock, Driver) == 8 &&
              offsetof(NamesBlock, Device) == 23 && offsetof(NamesBlock, Port) == 83);
static_assert(sizeof(PRINTDLGA) == 66);

void FreeGlobal(HGLOBAL handle) { GlobalFree(handle); }
using OwnedGlobal = Owned<HGLOBAL, FreeGlobal>;

HGLOBAL MakeNamesBlock(const Session *session) {
    const HGLOBAL handle = GlobalAlloc(GHND, sizeof(NamesBlock));
    auto *block = static_cast<NamesBlock *>(LockHandle(handle));
    if (!block) return nullptr;
    block->Offsets.wDriverOffset = offsetof(NamesBlock, Driver);
    block->Offsets.wDeviceOffset = offsetof(NamesBlock, Device);
    block->Offsets.wOutputOffset = offsetof(NamesBlock, Port);
    CopyText(session->printer.DriverName, block->Driver, sizeof block->Driver);
    CopyText(session->printer.DeviceName, block->Device, sizeof block->Device);
    CopyText(session->printer.PortName, block->Port, sizeof block->Port);
    UnlockHandle(handle);
    return handle;
}

// The dialog may put another block in the place of either. True when the user took OK.
bool AskForPrinter(Session *session, OwnedGlobal *names) {
    PrinterState &printer = session->printer;
    UnlockHandle(printer.DevModeMemory);
    PRINTDLGA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = session->Window;
    dialog.hDevMode = std::exchange(printer.DevModeMemory, nullptr);
    printer.DevMode = nullptr; // they are the dialog's: no call that comes under it finds them
    dialog.hDevNames = names->Leave();
    dialog.Flags = PD_PRINTSETUP;
    const bool taken = PrintDlgA(&dialog);
    names->Reset(dialog.hDevNames);
    printer.DevModeMemory = dialog.hDevMode;
    printer.DevMode = static_cast<DEVMODEA *>(LockHandle(printer.DevModeMemory));
    RaisePending(session);
    if (session->State == STATE_ENDING) return false;
    if (!printer.DevMode) InitPrinter(session); // a dialog that failed may have lost the settings
    return taken;
}

void FitFirstDetail(Session *session) {
    for (int row = 0; row < session->form.TotalItems; ++row) {
        ItemRecord *item = &session->form.Items[row];
        if (item->ItemType != ITEM_BAR || item->SectionIndex != SECTION_DETAIL_1) continue;
        const int width = session->LabelMode
                              ? InchesToUnits(session->form.Header.LabelGeometry.LabelWidth)
                              : BarWidth(session, SECTION_DETAIL_1);
        item->width = static_cast<int16_t>(width);
        return;
    }
}

} // namespace

int FrPrintOptions(Session *session) {
    if (!session->printer.DevMode) return 0; // the dialog stands already
    OwnedGlobal names(MakeNamesBlock(session));
    if (!names) {
        ShowSessionBox(session, "Ran out of memory (FrPrintOptions)");
        return 0;
    }
    if (!AskForPrinter(session, &names)) return 0;
    TakeDevNames(session, names.Get());
    names.Reset();
    ProcessPrinterData(session);
    FitFirstDetail(session);
    SetModified(session, 1);
    InvalidateRect(session->Window, nullptr, FALSE);
    return 1;
}

} // namespace tessarine
