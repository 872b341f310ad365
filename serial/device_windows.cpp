#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include "serial/device.h"

#include <windows.h>

namespace zps::serial {

std::string DevicePath(int number) {
    const std::string name = "COM" + std::to_string(number);
    char target[1024];
    const DWORD length = QueryDosDeviceA(name.c_str(), target, sizeof target);
    // A name whose target is too long for us exists all the same.
    return length != 0 || GetLastError() == ERROR_INSUFFICIENT_BUFFER ? name : std::string();
}

std::error_code Refusal(const std::string&) {
    return {};
}

// Windows opens a serial device for one handle at a time.
std::error_code Claim(NativeHandle) {
    return {};
}

std::size_t PendingOutput(NativeHandle device) {
    DWORD errors = 0;
    COMSTAT status = {};
    return ClearCommError(device, &errors, &status) ? status.cbOutQue : 0;
}

void Release(NativeHandle device) {
    PurgeComm(device, PURGE_TXABORT | PURGE_TXCLEAR);
}

}  // namespace zps::serial
