// What a test costs the processor, as seconds that only grow.
#pragma once

#ifdef _WIN32
#include <cstddef>  // the library's own settings come before the system's

#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#else
#include <ctime>
#endif

namespace zps::tests {

// Of this process, all threads.
inline double ProcessorTime() {
#ifdef _WIN32  // where std::clock() is the time of day
    FILETIME begun, ended, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &begun, &ended, &kernel, &user);
    return 1e-7 * (kernel.dwLowDateTime + user.dwLowDateTime);  // 7 minutes of it
#else
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
#endif
}

}  // namespace zps::tests
