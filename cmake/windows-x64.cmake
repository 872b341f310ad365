# Builds for 64-bit Windows on Debian, with Debian's cross compiler.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# ZPS_WINDOWS_KIT: the folder that tools/windows/toolkit built.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZPS_WINDOWS_KIT)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
if(ZPS_WINDOWS_KIT)
    list(PREPEND CMAKE_FIND_ROOT_PATH ${ZPS_WINDOWS_KIT} ${ZPS_WINDOWS_KIT}/qt)
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Windows 10 and later. Sections of their own, so that the linker leaves out what nobody calls.
set(compile_flags "-D_WIN32_WINNT=0x0A00 -ffunction-sections -fdata-sections")
set(CMAKE_C_FLAGS_INIT "${compile_flags}")
set(CMAKE_CXX_FLAGS_INIT "${compile_flags}")

# One file that needs nothing beside it; addresses at random from the whole 64-bit range, no code in
# data, and no time of linking, so that two builds give the same bytes.
set(CMAKE_EXE_LINKER_FLAGS_INIT
    "-static -Wl,--gc-sections -Wl,--dynamicbase,--high-entropy-va,--nxcompat -Wl,--no-insert-timestamp")
