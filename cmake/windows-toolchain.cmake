# Windows programs out of a Debian machine, with the libraries that tools/windows/libraries makes.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
# The standard library's threads come with the -posix compilers.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
# The system aligns the stack to 16 bytes, and the compiler believes that wider vectors there are aligned.
set(CMAKE_C_FLAGS_INIT -Wa,-muse-unaligned-vector-move)
set(CMAKE_CXX_FLAGS_INIT -Wa,-muse-unaligned-vector-move)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

if(DEFINED ENV{XDG_CACHE_HOME})
  set(MORVANE_WINDOWS_CACHE $ENV{XDG_CACHE_HOME}/morvane/windows)
else()
  set(MORVANE_WINDOWS_CACHE $ENV{HOME}/.cache/morvane/windows)
endif()
set(CMAKE_FIND_ROOT_PATH ${MORVANE_WINDOWS_CACHE}/prefix /usr/x86_64-w64-mingw32)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/windows/run)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Qt's own tools run on this machine.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)
set(Qt6HostInfo_DIR /usr/lib/x86_64-linux-gnu/cmake/Qt6HostInfo)
