# What both Windows targets share; `target` and QUORVANE_ARCHITECTURE are set by the including file.
set(CMAKE_C_COMPILER ${target}-gcc-posix) # GoogleTest asks for one
set(CMAKE_CXX_COMPILER ${target}-g++-posix)
set(CMAKE_RC_COMPILER ${target}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${target})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
# Test programs run under Wine, on what CTest's fixtures make there.
set(QUORVANE_GROUND ground-${QUORVANE_ARCHITECTURE})
set(CMAKE_CROSSCOMPILING_EMULATOR
    ${CMAKE_CURRENT_LIST_DIR}/../../scripts/wine-run ${CMAKE_BINARY_DIR}/${QUORVANE_GROUND})
