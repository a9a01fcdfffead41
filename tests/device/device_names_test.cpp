#include <gtest/gtest.h>

#include <cstring>

#include "device/device_names.h"
#include "frame/memory.h"
#include "tests/support/failing_call.h"
#include "tests/support/form_session.h"

using namespace tessarine;

namespace {

class DeviceNames : public FormSession {
protected:
    DeviceNames() {
        form.Section(SECTION_DETAIL_1, 50);
        EXPECT_EQ(StartOn(form), 0) << boxes.LastText();
        session->form.FormModified = 0;
    }
    // The driver's name after a host gave this one.
    std::string DriverAfter(const char *driver) {
        std::strcpy(session->printer.DriverName, driver);
        const HGLOBAL names = GetDevNames(session);
        EXPECT_EQ(SetDevNames(session, names), 1);
        GlobalFree(names);
        return session->printer.DriverName;
    }
    FormBuilder form;
};

} // namespace

TEST_F(DeviceNames, BlockHasTheThreeNamesOneBehindTheOther) {
    PrinterState &printer = session->printer;
    std::strcpy(printer.DriverName, "WINSPOOL.DRV");
    const HGLOBAL handle = GetDevNames(session);
    const auto *names = static_cast<const DEVNAMES *>(GlobalLock(handle));
    ASSERT_NE(names, nullptr);
    EXPECT_EQ(names->wDriverOffset, 8);
    EXPECT_EQ(names->wDeviceOffset, 8 + 12 + 1);
    EXPECT_EQ(names->wOutputOffset, 8 + 12 + 1 + std::strlen(printer.DeviceName) + 1);
    const char *text = reinterpret_cast<const char *>(names);
    EXPECT_STREQ(text + names->wDriverOffset, printer.DriverName);
    EXPECT_STREQ(text + names->wDeviceOffset, printer.DeviceName);
    EXPECT_STREQ(text + names->wOutputOffset, printer.PortName);
    GlobalUnlock(handle);
    GlobalFree(handle);
}

TEST_F(DeviceNames, BlockWithoutMemoryIsToldAndGivesNull) {
    const FailingCall none("GlobalAlloc", GlobalAlloc, nullptr);
    EXPECT_EQ(GetDevNames(session), nullptr);
    EXPECT_EQ(boxes.Log().back(), (BoxRecord{"", "Ran out of memory (FrPrintOptions)", {IDOK}}));
}

TEST_F(DeviceNames, DriverGetsItsEndingUnlessItHasIt) {
    EXPECT_EQ(DriverAfter("abc"), "abc.drv");
    EXPECT_EQ(DriverAfter(".drv"), ".drv");
    EXPECT_EQ(DriverAfter("laser.DRV"), "laser.DRV");
    EXPECT_EQ(DriverAfter("laser.Drv"), "laser.Drv");
    EXPECT_EQ(DriverAfter("winspool"), "winspool.drv");
    EXPECT_NE(session->form.FormModified, 0u);
}

TEST_F(DeviceNames, OffsetsBehindTheBlockAreIgnored) {
    const PrinterState before = session->printer;
    const HGLOBAL handle = GlobalAlloc(GHND, sizeof(DEVNAMES) + 8);
    auto *names = static_cast<DEVNAMES *>(GlobalLock(handle));
    names->wDriverOffset = names->wDeviceOffset = names->wOutputOffset = 60000;
    GlobalUnlock(handle);
    EXPECT_EQ(SetDevNames(session, handle), 1);
    EXPECT_STREQ(session->printer.DeviceName, before.DeviceName);
    EXPECT_STREQ(session->printer.PortName, before.PortName);
    GlobalFree(handle);
    EXPECT_EQ(SetDevNames(session, nullptr), 0);
}

TEST_F(DeviceNames, SettingsAreCopiedWhole) {
    const DEVMODEA &mode = *session->printer.DevMode;
    const size_t size = static_cast<size_t>(mode.dmSize) + mode.dmDriverExtra;
    const HGLOBAL handle = GetDevMode(session);
    ASSERT_NE(handle, nullptr);
    EXPECT_GE(GlobalSize(handle), size);
    EXPECT_EQ(std::memcmp(GlobalLock(handle), &mode, size), 0);
    GlobalUnlock(handle);
    GlobalFree(handle);
}

TEST_F(DeviceNames, CopyOfSettingsThatTellTooMuchEndsWithTheirBlock) {
    DEVMODEA &mode = *session->printer.DevMode;
    const WORD extra = mode.dmDriverExtra;
    mode.dmDriverExtra = 60000;
    const HGLOBAL handle = GetDevMode(session);
    mode.dmDriverExtra = extra;
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(GlobalSize(handle), GlobalSize(session->printer.DevModeMemory));
    GlobalFree(handle);
}

// Whoever is given them reads as much as they tell.
TEST_F(DeviceNames, HostsSettingsThatTellTooMuchGetABlockOfThatSize) {
    const HGLOBAL handle = GetDevMode(session);
    auto *given = static_cast<DEVMODEA *>(GlobalLock(handle));
    given->dmDriverExtra = 60000;
    const size_t told = given->dmSize + size_t{60000};
    GlobalUnlock(handle);
    ASSERT_LT(GlobalSize(handle), told);
    ASSERT_EQ(SetDevMode(session, handle, 1), 1);
    GlobalFree(handle);
    EXPECT_GE(GlobalSize(session->printer.DevModeMemory), told);
    const char *last = reinterpret_cast<const char *>(session->printer.DevMode) + told - 1;
    EXPECT_EQ(*last, 0);
}

TEST_F(DeviceNames, HostsSettingsLeaveTheFormsPaperUnlessAllAreToBeTaken) {
    DEVMODEA &own = *session->printer.DevMode;
    own.dmOrientation = DMORIENT_PORTRAIT;
    own.dmPaperSize = 1;
    own.dmPaperLength = 2;
    own.dmPaperWidth = 3;
    own.dmDefaultSource = 4;
    own.dmPrintQuality = 5;
    own.dmCopies = 6;
    const HGLOBAL handle = GetDevMode(session);
    auto *given = static_cast<DEVMODEA *>(GlobalLock(handle));
    given->dmOrientation = DMORIENT_LANDSCAPE;
    given->dmPaperSize = given->dmPaperLength = given->dmPaperWidth = 50;
    given->dmDefaultSource = given->dmPrintQuality = given->dmCopies = 50;
    GlobalUnlock(handle);
    session->form.FormModified = 0;
    ASSERT_EQ(SetDevMode(session, handle, 0), 1);
    const DEVMODEA &kept = *session->printer.DevMode;
    EXPECT_EQ(kept.dmOrientation, DMORIENT_PORTRAIT);
    EXPECT_EQ(kept.dmPaperSize, 1);
    EXPECT_EQ(kept.dmPaperLength, 2);
    EXPECT_EQ(kept.dmPaperWidth, 3);
    EXPECT_EQ(kept.dmDefaultSource, 4);
    EXPECT_EQ(kept.dmPrintQuality, 5);
    EXPECT_EQ(kept.dmCopies, 50);
    EXPECT_NE(session->form.FormModified, 0u);
    ASSERT_EQ(SetDevMode(session, handle, 1), 1);
    EXPECT_EQ(session->printer.DevMode->dmOrientation, DMORIENT_LANDSCAPE);
    EXPECT_EQ(session->printer.DevMode->dmPaperSize, 50);
    GlobalFree(handle);
}

TEST_F(DeviceNames, TooShortSettingsAreRefused) {
    const HGLOBAL handle = GlobalAlloc(GHND, 4);
    const DEVMODEA *before = session->printer.DevMode;
    EXPECT_EQ(SetDevMode(session, handle, 1), 0);
    EXPECT_EQ(session->printer.DevMode, before);
    GlobalFree(handle);
}
