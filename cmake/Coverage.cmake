# What the tests of the pure core reach of it, by line and by branch: clang counts the outcomes of conditions in the source, and
# so the ways of exceptions, which no condition decides, are no branches.
option(QUORVANE_COVERAGE "Count what the tests reach (clang only)" OFF)
set(quorvane_core_folders framework pictures menu skin serial link dialogs panel)
if(QUORVANE_COVERAGE)
    target_compile_options(quorvane_options INTERFACE -fprofile-instr-generate -fcoverage-mapping)
    target_link_options(quorvane_options INTERFACE -fprofile-instr-generate)
endif()

# quorvane_coverage(): the test `coverage`, which makes a page of what all others reach, and wants them run before it.
function(quorvane_coverage)
    get_property(tests GLOBAL PROPERTY quorvane_test_programs)
    foreach(test ${tests})
        list(APPEND objects $<TARGET_FILE:${test}>)
    endforeach()
    # What no test links is counted too.
    foreach(folder ${quorvane_core_folders})
        list(APPEND objects $<TARGET_OBJECTS:${folder}_core>)
    endforeach()
    add_test(NAME coverage COMMAND ${CMAKE_COMMAND} "-Dobjects=${objects}" -Dprofiles=${PROJECT_BINARY_DIR}/profiles
        -Dsources=${PROJECT_SOURCE_DIR}/src -Dpage=${PROJECT_BINARY_DIR} -P ${PROJECT_SOURCE_DIR}/cmake/CoveragePage.cmake)
    set_tests_properties(coverage PROPERTIES LABELS gate FIXTURES_REQUIRED profiles)
endfunction()
