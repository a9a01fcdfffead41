// The printer set-up of the designer, with the system's own dialog.
#include <gtest/gtest.h>

#include <cstring>

#include "device/printer_options.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "tests/support/failing_call.h"
#include "tests/support/form_session.h"

using namespace tessarine;

namespace {

// What the dialog was given, and what it answers when it is replaced.
struct Given {
    DWORD size, flags;
    HWND owner;
    HGLOBAL mode;
    SIZE_T names_size;
    DEVNAMES offsets;
    std::string driver, device, port;
    UINT locks; // on the settings
};
Given given;
BOOL answer;
void (*change)(PRINTDLGA *dialog);

BOOL WINAPI Pretend(PRINTDLGA *dialog) {
    given = {dialog->lStructSize,
             dialog->Flags,
             dialog->hwndOwner,
             dialog->hDevMode,
             GlobalSize(dialog->hDevNames),
             {},
             "",
             "",
             "",
             GlobalFlags(dialog->hDevMode) & GMEM_LOCKCOUNT};
    const char *names = static_cast<const char *>(GlobalLock(dialog->hDevNames));
    std::memcpy(&given.offsets, names, sizeof given.offsets);
    given.driver = names + given.offsets.wDriverOffset;
    given.device = names + given.offsets.wDeviceOffset;
    given.port = names + given.offsets.wOutputOffset;
    GlobalUnlock(dialog->hDevNames);
    if (change) change(dialog);
    return answer;
}

void SetNames(PRINTDLGA *dialog, const char *driver, const char *device, const char *port) {
    GlobalFree(dialog->hDevNames);
    dialog->hDevNames = GlobalAlloc(GHND, 200);
    auto *names = static_cast<DEVNAMES *>(GlobalLock(dialog->hDevNames));
    names->wDriverOffset = 8;
    names->wDeviceOffset = 60;
    names->wOutputOffset = 130;
    auto *text = reinterpret_cast<char *>(names);
    std::strcpy(text + 8, driver);
    std::strcpy(text + 60, device);
    std::strcpy(text + 130, port);
    GlobalUnlock(dialog->hDevNames);
}

// A designer's session on a form with a detail of two columns.
class PrinterOptions : public FormSession {
protected:
    PrinterOptions() {
        form.Section(SECTION_PAGE_HEADER, 50);
        form.Section(SECTION_DETAIL_1, 50);
        form.sections[SECTION_DETAIL_1].Across = 2;
        change = nullptr;
        answer = TRUE;
    }
    void Open() {
        ASSERT_EQ(StartOn(form), 0) << boxes.LastText();
        session->form.FormModified = 0;
    }
    // With the replaced dialog.
    int Run() {
        void *real = ReplaceImport("PrintDlgA", reinterpret_cast<void *>(Pretend));
        const int result = FrPrintOptions(session);
        ReplaceImport("PrintDlgA", real);
        return result;
    }
    ItemRecord *Bar(int section) {
        for (int row = 0; row < session->form.TotalItems; ++row)
            if (session->form.Items[row].ItemType == ITEM_BAR &&
                session->form.Items[row].SectionIndex == section)
                return &session->form.Items[row];
        return nullptr;
    }
    FormBuilder form;
};

} // namespace

TEST_F(PrinterOptions, DialogGetsTheSetUpWithNamesInFixedFields) {
    Open();
    const PrinterState before = session->printer;
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(given.size, 66u);
    EXPECT_EQ(given.flags, 64u);
    EXPECT_EQ(given.owner, session->Window);
    EXPECT_EQ(given.mode, before.DevModeMemory);
    EXPECT_EQ(given.locks, 0u); // the dialog may move or replace the settings
    EXPECT_EQ(given.names_size, 143u);
    EXPECT_EQ(given.offsets.wDriverOffset, 8);
    EXPECT_EQ(given.offsets.wDeviceOffset, 23);
    EXPECT_EQ(given.offsets.wOutputOffset, 83);
    EXPECT_EQ(given.driver, before.DriverName);
    EXPECT_EQ(given.device, before.DeviceName);
    EXPECT_EQ(given.port, before.PortName);
}

TEST_F(PrinterOptions, LongDriverIsCutToItsField) {
    Open();
    const std::string kept = session->printer.DriverName;
    std::strcpy(session->printer.DriverName, "AVERYLONGDRIVERNAME.DRV");
    answer = FALSE;
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(given.driver, "AVERYLONGDRIVE");
    EXPECT_EQ(given.device, session->printer.DeviceName);
    std::strcpy(session->printer.DriverName, kept.c_str());
}

TEST_F(PrinterOptions, CancelLeavesTheFormAsItIs) {
    Open();
    const std::string driver = session->printer.DriverName;
    answer = FALSE;
    change = [](PRINTDLGA *dialog) { SetNames(dialog, "other", "Other", "LPT9:"); };
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(session->printer.DriverName, driver);
    EXPECT_EQ(session->form.FormModified, 0u);
    EXPECT_EQ(GlobalLock(session->printer.DevModeMemory), session->printer.DevMode);
    GlobalUnlock(session->printer.DevModeMemory);
    EXPECT_EQ(GlobalFlags(session->printer.DevModeMemory) & GMEM_LOCKCOUNT, 1u);
}

TEST_F(PrinterOptions, DriverOfThreeCharactersGetsItsEnding) {
    Open();
    change = [](PRINTDLGA *dialog) {
        static char device[60];
        CopyMemory(device, given.device.c_str(), given.device.size() + 1);
        SetNames(dialog, "abc", device, "PORT:");
    };
    EXPECT_EQ(Run(), 1);
    EXPECT_STREQ(session->printer.DriverName, "ABC.DRV"); // upper case is the header's way
    EXPECT_STREQ(session->printer.PortName, "PORT:");
    EXPECT_STREQ(session->form.Header.PrinterDriver, "ABC.DRV");
    EXPECT_STREQ(session->form.Header.PrinterPort, "PORT:");
}

TEST_F(PrinterOptions, SettingsOfTheDialogAreTakenAndThePaperWithThem) {
    Open();
    change = [](PRINTDLGA *dialog) { // another block, as a dialog gives for another printer
        const SIZE_T size = GlobalSize(dialog->hDevMode);
        const HGLOBAL other = GlobalAlloc(GHND, size);
        void *from = GlobalLock(dialog->hDevMode);
        auto *mode = static_cast<DEVMODEA *>(GlobalLock(other));
        std::memcpy(mode, from, size);
        mode->dmOrientation = DMORIENT_LANDSCAPE;
        mode->dmFields |= DM_ORIENTATION;
        GlobalUnlock(other);
        GlobalUnlock(dialog->hDevMode);
        GlobalFree(dialog->hDevMode);
        dialog->hDevMode = other;
    };
    EXPECT_EQ(Run(), 1);
    EXPECT_FLOAT_EQ(session->printer.PaperWidth, 11.0F);
    EXPECT_EQ(session->printer.ReportWidth, 2750);
    EXPECT_EQ(+session->form.Header.PrinterMode.Orientation, DMORIENT_LANDSCAPE);
    EXPECT_EQ(Bar(SECTION_PAGE_HEADER)->width, 2750 - 250);
    EXPECT_EQ(Bar(SECTION_DETAIL_1)->width, (2750 - 250) / 2);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(PrinterOptions, OkMarksTheFormAndRepaints) {
    Open();
    const FailingCall painted("InvalidateRect", InvalidateRect, FALSE, EVERY_CALL);
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_EQ(painted.Seen(), 1);
}

TEST_F(PrinterOptions, LabelsBarIsAsWideAsTheLabel) {
    host_data = HostData{};
    uint32_t label = 1;
    host_data.LabelForm = &label;
    host_data.EditAllowed = &edit_allowed;
    form.header.LabelType = 1;
    form.header.LabelGeometry.LabelWidth = 2.5F;
    form.header.LabelGeometry.PageWidth = 8.5F;
    form.header.LabelGeometry.PageHeight = 11.0F;
    Open();
    Bar(SECTION_DETAIL_1)->width = 99;
    Bar(SECTION_PAGE_HEADER)->width = 98;
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(Bar(SECTION_DETAIL_1)->width, 625);
    EXPECT_EQ(Bar(SECTION_PAGE_HEADER)->width, 98);
}

TEST_F(PrinterOptions, BlockWithoutMemoryIsTold) {
    Open();
    const FailingCall none("GlobalAlloc", GlobalAlloc, nullptr);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(boxes.Log().back(), (BoxRecord{"", "Ran out of memory (FrPrintOptions)", {IDOK}}));
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(PrinterOptions, SettingsThatADialogLostAreMadeAnew) {
    Open();
    answer = FALSE;
    change = [](PRINTDLGA *dialog) {
        GlobalFree(dialog->hDevMode);
        dialog->hDevMode = nullptr;
    };
    EXPECT_EQ(Run(), 0);
    ASSERT_NE(session->printer.DevMode, nullptr);
    EXPECT_GE(session->printer.DevMode->dmSize, 100);
}

TEST_F(PrinterOptions, SystemsDialogKeepsThePrinterThatItIsGiven) {
    Open();
    const std::string device = session->printer.DeviceName;
    int shown = 0;
    for (const int button : {IDCANCEL, IDOK}) {
        boxes.OnDialog("Print Setup", [&](DialogDriver dialog) {
            ++shown;
            dialog.Press(button);
        });
        EXPECT_EQ(FrPrintOptions(session), button == IDOK ? 1 : 0) << boxes.LastText();
    }
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(session->printer.DeviceName, device);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(PrinterOptions, TwoHundredTimesLeakNoBlock) {
    Open();
    Run();
    const int blocks = LiveBlocks();
    const FailingCall made("GlobalAlloc", GlobalAlloc, nullptr, EVERY_CALL);
    const FailingCall freed("GlobalFree", GlobalFree, nullptr, EVERY_CALL);
    for (int time = 0; time < 200; ++time) {
        answer = time % 2;
        ASSERT_EQ(Run(), answer);
    }
    EXPECT_EQ(LiveBlocks(), blocks);
    EXPECT_EQ(made.Seen(), 200);
    EXPECT_EQ(freed.Seen(), 200);
}
