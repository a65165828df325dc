# Builds whose compiler is clang, and which look at the sources with clang-tidy too. Ninja remembers what passed. Nearly all of
# the time goes into what the platform and the standard library declare, so all sources of a target are one unit.
option(QUORVANE_LINT "Compile with clang-tidy beside clang; the tests are the gates" OFF)
if(QUORVANE_LINT)
    set(rules ${PROJECT_SOURCE_DIR}/.clang-tidy)
    set(CMAKE_CXX_CLANG_TIDY clang-tidy --quiet)
    # With other rules all files are looked at again.
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${rules})
    file(SHA1 ${rules} rulesInForce)
    set(CMAKE_UNITY_BUILD ON)
    set(CMAKE_UNITY_BUILD_BATCH_SIZE 0)
    add_compile_definitions(QUORVANE_LINT_RULES=${rulesInForce})
endif()

if(QUORVANE_COMPILE_ONLY)
    set(CMAKE_CXX_LINK_EXECUTABLE "<CMAKE_COMMAND> -E touch <TARGET>")
    set(CMAKE_CXX_CREATE_SHARED_MODULE ${CMAKE_CXX_LINK_EXECUTABLE})
endif()

# quorvane_gate(NAME COMMAND...): a test that looks at sources or at the product, run from the root of the tree.
function(quorvane_gate name)
    add_test(NAME ${name} COMMAND ${ARGN} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    set_tests_properties(${name} PROPERTIES LABELS gate TIMEOUT 1500)
endfunction()

# quorvane_gates(): what holds for the sources: their form, the compiler's and clang-tidy's findings, who includes what.
function(quorvane_gates)
    if(WIN32)
        # What the host builds too, of the same sources, is looked at there.
        foreach(core link_core menu_core panel_core serial_core skin_core line_core)
            set_target_properties(${core} PROPERTIES CXX_CLANG_TIDY "")
        endforeach()
        return()
    endif()
    foreach(folder src tools tests)
        file(GLOB_RECURSE files CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.h)
        list(APPEND sources ${files})
    endforeach()
    file(GLOB scripts CONFIGURE_DEPENDS run test scripts/*)
    list(FILTER scripts EXCLUDE REGEX "\\.(py|txt)$")
    quorvane_gate(format clang-format --dry-run --Werror ${sources})
    quorvane_gate(scripts shellcheck --external-sources ${scripts})
    quorvane_gate(includes scripts/check_includes.py)
    quorvane_gate(clang-host ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR} -- -k 0)
    quorvane_gate(clang-windows sh -c "cmake --preset clang >/dev/null && cmake --build --preset clang -- -k 0")
endfunction()
