# The headers that cost most to read, once for all tests of a build: as for the product's own files, and for Windows always.
function(quorvane_test_headers)
    file(WRITE ${PROJECT_BINARY_DIR}/test_headers.cpp "")
    add_library(quorvane_test_headers OBJECT ${PROJECT_BINARY_DIR}/test_headers.cpp)
    target_link_libraries(quorvane_test_headers PRIVATE quorvane_options gtest)
    target_compile_options(quorvane_test_headers PRIVATE ${quorvane_test_compile_options})
    target_precompile_headers(quorvane_test_headers PRIVATE ${quorvane_costly_headers} <gtest/gtest.h>)
endfunction()

# A Windows test is built anew far more often than it is run, and nobody debugs it: it's the product that is optimised.
if(WIN32)
    set(quorvane_test_compile_options -O1 -g0)
endif()

# quorvane_test(NAME SOURCES... [LIBRARIES ...] [LABELS ...]): one GoogleTest program, run whole by CTest (under Wine
# through the emulator when cross-compiling). Programs land in <build>/tests, so that <build>/bin holds the product alone.
function(quorvane_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES;LABELS")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE quorvane_options gtest_main ${arg_LIBRARIES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_compile_options(${name} PRIVATE ${quorvane_test_compile_options})
    if(WIN32 OR QUORVANE_HEADERS_ONCE)
        if(NOT TARGET quorvane_test_headers)
            quorvane_test_headers()
        endif()
        target_precompile_headers(${name} REUSE_FROM quorvane_test_headers)
    endif()
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    set_tests_properties(${name} PROPERTIES
        LABELS "${arg_LABELS}" TIMEOUT 300
        ENVIRONMENT "GTEST_OUTPUT=xml:${PROJECT_BINARY_DIR}/results/${name}.xml")
endfunction()
