#include "tests/support/no_printers.h"

#include <gtest/gtest.h>

#include "state/windows.h"

namespace {

struct Place {
    HKEY root;
    const char *key;
};

// Where the system keeps the printers, their devices and their ports.
constexpr const char *PROFILE = "Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows";
const Place lists[] = {
    {HKEY_LOCAL_MACHINE, "System\\CurrentControlSet\\Control\\Print\\Printers"},
    {HKEY_CURRENT_USER, "Software\\Microsoft\\Windows NT\\CurrentVersion\\Devices"},
    {HKEY_CURRENT_USER, "Software\\Microsoft\\Windows NT\\CurrentVersion\\PrinterPorts"}};

std::string Kept(const Place &list) {
    return "Software\\Tessarine tests\\" + std::to_string(&list - lists);
}

// Copies all values and keys below one key to another, which is made.
void CopyKey(HKEY from_root, const char *from, HKEY to_root, const char *to) {
    HKEY source = nullptr;
    HKEY target = nullptr;
    ASSERT_EQ(RegOpenKeyExA(from_root, from, 0, KEY_READ, &source), ERROR_SUCCESS) << from;
    ASSERT_EQ(RegCreateKeyA(to_root, to, &target), ERROR_SUCCESS) << to;
    EXPECT_EQ(RegCopyTreeA(source, nullptr, target), ERROR_SUCCESS) << from;
    RegCloseKey(source);
    RegCloseKey(target);
}

} // namespace

NoPrinters::NoPrinters() {
    char device[MAX_PATH] = "";
    DWORD size = sizeof device;
    EXPECT_EQ(
        RegGetValueA(HKEY_CURRENT_USER, PROFILE, "device", RRF_RT_REG_SZ, nullptr, device, &size),
        ERROR_SUCCESS);
    device_ = device;
    for (const Place &list : lists) {
        CopyKey(list.root, list.key, HKEY_CURRENT_USER, Kept(list).c_str());
        EXPECT_EQ(RegDeleteTreeA(list.root, list.key), ERROR_SUCCESS);
    }
    RegDeleteKeyValueA(HKEY_CURRENT_USER, PROFILE, "device");
}

NoPrinters::~NoPrinters() {
    for (const Place &list : lists) {
        CopyKey(HKEY_CURRENT_USER, Kept(list).c_str(), list.root, list.key);
        RegDeleteTreeA(HKEY_CURRENT_USER, Kept(list).c_str());
    }
    RegSetKeyValueA(HKEY_CURRENT_USER, PROFILE, "device", REG_SZ, device_.c_str(),
                    static_cast<DWORD>(device_.size() + 1));
}
