/* holder.exe READY: keeps a Wine instance alive between programs. It starts every service that
 * would otherwise be started on a test's behalf and then hold the test's output open, writes the
 * file READY and sleeps. */
#include <windows.h>

#include <objbase.h>
#include <winspool.h>

int main(int count, char **arguments) {
    char text[300];
    DWORD size = sizeof text, needed = 0, found = 0;
    SC_HANDLE services;
    HANDLE file;
    GetDesktopWindow();
    CreateWindowA("STATIC", "holder", 0, 0, 0, 1, 1, HWND_MESSAGE, 0, 0, 0);
    services = OpenSCManagerA(0, 0, SC_MANAGER_CONNECT);
    if (services) CloseServiceHandle(services);
    GetVolumeInformationA("C:\\", text, sizeof text, 0, 0, 0, 0, 0);
    EnumPrintersA(PRINTER_ENUM_LOCAL, 0, 1, 0, 0, &needed, &found);
    GetDefaultPrinterA(text, &size);
    CoInitialize(0);
    if (count < 2) return 2;
    file = CreateFileA(arguments[1], GENERIC_WRITE, 0, 0, CREATE_ALWAYS, 0, 0);
    if (file == INVALID_HANDLE_VALUE) return 1;
    WriteFile(file, "ready", 5, &size, 0);
    CloseHandle(file);
    Sleep(INFINITE);
    return 0;
}
