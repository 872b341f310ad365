// What the serial port needs from the operating system beyond reading and writing: which device a
// port number is, and a device for one program alone. Built once per system (device_linux.cpp,
// device_windows.cpp). The calls on a handle may be made on any thread that owns it.
#pragma once

#include <cstddef>
#include <string>
#include <system_error>

namespace zps::serial {

#ifdef _WIN32
using NativeHandle = void*;
#else
using NativeHandle = int;
#endif

// The device that port `number` is now; empty if there is none. Throws nothing.
//
// Windows: COMn. Linux: the link COMn in the user's link folder (serial/device_linux.h), by its own
// name, else the n-th serial device of the machine, USB adapters first, then the UARTs that exist.
std::string DevicePath(int number);

// Why `device`, which DevicePath has named now or before, may not be opened; no error if it may.
// Asked before each opening, the later ones of a device that comes back included.
std::error_code Refusal(const std::string& device);

// Claims an open device for this program alone; an error if another program has it. Ends with
// Release, or when the handle is closed.
std::error_code Claim(NativeHandle device);

// Bytes written that the system has not sent yet; 0 if it can't tell.
std::size_t PendingOutput(NativeHandle device);

// Throws away what has not been sent, so that closing can't hang, and ends the claim.
void Release(NativeHandle device);

}  // namespace zps::serial
