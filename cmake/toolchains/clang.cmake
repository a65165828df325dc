# 64-bit Windows through a second compiler, clang, with the headers of MinGW-w64's g++. It compiles and links nothing: the
# archives of libstdc++ are made for g++.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(QUORVANE_ARCHITECTURE x64)
set(target x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET ${target})
set(CMAKE_RC_COMPILER ${target}-windres)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
execute_process(COMMAND ${target}-g++-posix -print-file-name=include/c++
    OUTPUT_VARIABLE library OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(CMAKE_CXX_FLAGS_INIT "-isystem ${library} -isystem ${library}/${target}")
