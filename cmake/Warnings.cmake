# One interface target that every library and program links: language level, warnings as errors, sanitizers.
add_library(quorvane_options INTERFACE)
target_compile_features(quorvane_options INTERFACE cxx_std_20)
target_include_directories(quorvane_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
# Where the sources of a target are one unit, a name may shadow that of another source.
target_compile_options(quorvane_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror
    $<$<NOT:$<BOOL:${QUORVANE_LINT}>>:-Wshadow>)
# What is built in another folder, or at another time, is the same byte for byte. The page of what tests reach is made from
# the sources, and has to find them.
target_compile_options(quorvane_options INTERFACE
    $<$<NOT:$<BOOL:${QUORVANE_COVERAGE}>>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=quorvane>)
if(WIN32)
    # What nothing calls stays out of the program: its size is memory on some systems, to the last byte.
    target_compile_options(quorvane_options INTERFACE -ffunction-sections -fdata-sections)
    target_link_options(quorvane_options INTERFACE -Wl,--no-insert-timestamp)
    target_link_options(quorvane_options INTERFACE -Wl,--gc-sections)
    # The A forms of the platform calls; the oldest system whose headers are needed.
    target_compile_definitions(quorvane_options INTERFACE
        NOMINMAX WIN32_LEAN_AND_MEAN STRICT _WIN32_WINNT=0x0501 WINVER=0x0501 _WIN32_IE=0x0600)
endif()
set(QUORVANE_SANITIZE "" CACHE STRING "Sanitizers of the host build, comma separated")
if(QUORVANE_SANITIZE)
    target_compile_options(quorvane_options INTERFACE
        -fsanitize=${QUORVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(quorvane_options INTERFACE -fsanitize=${QUORVANE_SANITIZE})
endif()
# Fuzzers are led by what their inputs reach, in every library beneath them.
if(QUORVANE_FUZZ)
    target_compile_options(quorvane_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
