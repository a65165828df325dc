# The headers that cost most to read, once for all tests of a build.
function(quorvane_test_headers)
    file(WRITE ${PROJECT_BINARY_DIR}/test_headers.cpp "")
    add_library(quorvane_test_headers OBJECT ${PROJECT_BINARY_DIR}/test_headers.cpp)
    target_link_libraries(quorvane_test_headers PRIVATE quorvane_options gtest)
    target_compile_options(quorvane_test_headers PRIVATE ${quorvane_test_compile_options})
    target_precompile_headers(quorvane_test_headers PRIVATE ${quorvane_costly_headers} <gtest/gtest.h>
        "$<$<NOT:$<BOOL:${WIN32}>>:<rapidcheck/gtest.h$<ANGLE-R>>")
    if(NOT WIN32)
        target_link_libraries(quorvane_test_headers PRIVATE rapidcheck)
    endif()
endfunction()

# A Windows test is built anew far more often than it is run, and nobody debugs it: it's the product that is optimised. At -O1
# GCC 12 takes some sums of strings for overflows.
if(WIN32)
    set(quorvane_test_compile_options -O1 -g0 -Wno-array-bounds -Wno-stringop-overflow)
endif()

# quorvane_ground(GROUND ARCHITECTURE): fixtures by which CTest makes what Windows programs stand on, in the build's folder
# GROUND, before the first test that needs it, and ends it after the last: GROUND-display, GROUND-prefix (Wine with a desktop)
# and GROUND-ports (two null-modem cables), each on the one before.
function(quorvane_ground ground architecture)
    set(script ${PROJECT_SOURCE_DIR}/scripts/ground)
    set(folder ${PROJECT_BINARY_DIR}/${ground})
    add_test(NAME ${ground}-display COMMAND ${script} start ${folder} ${architecture})
    add_test(NAME ${ground}-prefix COMMAND ${script} await ${folder} prefix)
    add_test(NAME ${ground}-ports COMMAND ${script} await ${folder} ports)
    add_test(NAME ${ground}-end COMMAND ${script} end ${folder})
    set_tests_properties(${ground}-display PROPERTIES FIXTURES_SETUP ${ground}-display)
    set_tests_properties(${ground}-prefix PROPERTIES FIXTURES_SETUP ${ground}-prefix FIXTURES_REQUIRED ${ground}-display)
    set_tests_properties(${ground}-ports PROPERTIES FIXTURES_SETUP ${ground}-ports FIXTURES_REQUIRED ${ground}-prefix)
    set_tests_properties(${ground}-end PROPERTIES FIXTURES_CLEANUP "${ground}-display;${ground}-prefix;${ground}-ports")
    set_tests_properties(${ground}-display ${ground}-prefix ${ground}-ports ${ground}-end PROPERTIES LABELS ground TIMEOUT 300)
endfunction()

# quorvane_test_scripts(SOURCE...): compiles the resource scripts among them anew when anything changes that one of them includes, of
# which the resource compiler reports nothing.
function(quorvane_test_scripts)
    list(FILTER ARGN INCLUDE REGEX "[.]rc$")
    file(GLOB included CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/*/*.rc ${PROJECT_SOURCE_DIR}/tests/*/*Ids.h)
    set_source_files_properties(${ARGN} PROPERTIES
        OBJECT_DEPENDS "${included};${PROJECT_SOURCE_DIR}/src/resources/Quorvane.manifest")
endfunction()

# quorvane_test(NAME SOURCES... [LIBRARIES ...] [LABELS ...] [ONLY CONDITION=TEST:TEST...]): one GoogleTest program, run whole by
# CTest (under Wine through the emulator when cross-compiling; labels say what it needs there). Programs land in <build>/tests,
# so that <build>/bin holds the product alone. ONLY names tests that another machine may have to leave out: see
# tools/check/TestList.h.
function(quorvane_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES;LABELS;ONLY")
    list(GET arg_LABELS 0 need)
    set(sources ${arg_SOURCES})
    list(FILTER sources INCLUDE REGEX "^[A-Za-z]+\\.cpp$")
    list(TRANSFORM sources PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
    quorvane_tests_in(tests ${sources})
    foreach(test ${tests})
        if(test IN_LIST quorvane_faults AND NOT "faults" IN_LIST arg_LABELS)
            list(APPEND arg_LABELS faults)
        endif()
    endforeach()
    list(JOIN arg_ONLY " " conditions)
    set_property(GLOBAL APPEND PROPERTY quorvane_test_programs ${name})
    set_property(GLOBAL APPEND_STRING PROPERTY quorvane_test_list "${need} ${name} 600 ${conditions}\n")
    add_executable(${name} ${arg_SOURCES})
    quorvane_test_scripts(${arg_SOURCES})
    target_link_libraries(${name} PRIVATE quorvane_options gtest_main ${arg_LIBRARIES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/tools)
    target_compile_options(${name} PRIVATE ${quorvane_test_compile_options})
    if(NOT TARGET quorvane_test_headers)
        quorvane_test_headers()
    endif()
    target_precompile_headers(${name} REUSE_FROM quorvane_test_headers)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    set_tests_properties(${name} PROPERTIES
        LABELS "${arg_LABELS}" TIMEOUT 300
        ENVIRONMENT "GTEST_OUTPUT=xml:${PROJECT_BINARY_DIR}/results/${name}.xml")
    if(QUORVANE_COVERAGE)
        set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT LLVM_PROFILE_FILE=${PROJECT_BINARY_DIR}/profiles/${name}.profraw)
        set_property(TEST ${name} PROPERTY FIXTURES_SETUP profiles)
    endif()
    if("looks" IN_LIST arg_LABELS)
        add_dependencies(${name} approved_looks)
    endif()
    if(WIN32)
        set(fixture prefix)
        if("ports" IN_LIST arg_LABELS OR "system" IN_LIST arg_LABELS)
            set(fixture ports)
        endif()
        set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED ${QUORVANE_GROUND}-${fixture})
        # One at a time has the desktop with its pointer and keyboard, or counters to answer in time.
        if(NOT need STREQUAL pure)
            set_tests_properties(${name} PROPERTIES RESOURCE_LOCK desktop)
        endif()
    endif()
endfunction()

# quorvane_fuzzer(NAME LIBRARY): one libFuzzer program, NAME.cpp, run by CTest for QUORVANE_FUZZ_SECONDS of the environment, or 5.
# It goes on from the inputs in corpus/NAME beside its source and from what it found in earlier runs; what it finds, and an input
# that fails, is kept in the build's folder.
function(quorvane_fuzzer name library)
    add_executable(${name} ${name}.cpp)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    if(NOT TARGET fuzzers)
        add_custom_target(fuzzers)
    endif()
    add_dependencies(fuzzers ${name})
    target_link_libraries(${name} PRIVATE ${library})
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    set(corpus ${PROJECT_BINARY_DIR}/corpus/${name})
    file(MAKE_DIRECTORY ${corpus})
    add_test(NAME ${name} COMMAND sh -c "exec \"$@\" -max_total_time=\${QUORVANE_FUZZ_SECONDS:-5}" sh $<TARGET_FILE:${name}>
        -timeout=10 -artifact_prefix=${corpus}.failed- ${corpus} ${CMAKE_CURRENT_SOURCE_DIR}/corpus/${name})
    set_tests_properties(${name} PROPERTIES LABELS fuzz PASS_REGULAR_EXPRESSION "Done [1-9][0-9]* runs"
        FAIL_REGULAR_EXPRESSION "ERROR: |runtime error: ")
endfunction()
