# 32-bit Windows. SSE2 arithmetic, so that truncated products agree with the 64-bit build to the last bit.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(QUORVANE_ARCHITECTURE x86)
set(target i686-w64-mingw32)
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
