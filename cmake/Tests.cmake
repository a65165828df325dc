# quorvane_test(NAME SOURCES... [LIBRARIES ...] [LABELS ...]): one GoogleTest program, run whole by CTest (under Wine
# through the emulator when cross-compiling). Programs land in <build>/tests, so that <build>/bin holds the product alone.
function(quorvane_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES;LABELS")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE quorvane_options gtest_main ${arg_LIBRARIES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    set_tests_properties(${name} PROPERTIES
        LABELS "${arg_LABELS}" TIMEOUT 300
        ENVIRONMENT "GTEST_OUTPUT=xml:${PROJECT_BINARY_DIR}/results/${name}.xml")
endfunction()
