# The targets gtest and gtest_main: Debian's library on the host. For Windows Debian has the sources
# only, so each of those builds compiles them once, and briefly.
if(WIN32)
    set(INSTALL_GTEST OFF)
    set(gtest_disable_pthreads OFF)
    add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
    foreach(target gtest gtest_main)
        target_compile_options(${target} PRIVATE ${quorvane_test_compile_options})
    endforeach()
else()
    find_package(GTest REQUIRED)
    add_library(gtest ALIAS GTest::gtest)
    add_library(gtest_main ALIAS GTest::gtest_main)
endif()
