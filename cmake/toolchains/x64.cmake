# 64-bit Windows with the POSIX-thread build of MinGW-w64: the one whose standard library has std::mutex and std::thread.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(QUORVANE_ARCHITECTURE x64)
set(target x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
