# Builds that read the headers which cost most once, for all files of the product. In the builds `host-fuzz` and `host-release` each
# file reads its own, and so a missing #include is found. Of what only Windows builds, it is found with
# -DQUORVANE_HEADERS_ONCE=OFF and -DCMAKE_UNITY_BUILD=OFF.
option(QUORVANE_HEADERS_ONCE "Precompile the headers that cost most for the product's own files" OFF)
set(quorvane_costly_headers "$<$<BOOL:${WIN32}>:<windows.h$<ANGLE-R>>" <algorithm> <array> <chrono> <cstdint> <functional> <map>
    <memory> <optional> <string> <thread> <vector>)

# quorvane_read_headers_once(FOLDER...): for what the folders in these folders of the tree build.
function(quorvane_read_headers_once)
    file(WRITE ${PROJECT_BINARY_DIR}/headers.cpp "")
    add_library(quorvane_headers OBJECT ${PROJECT_BINARY_DIR}/headers.cpp)
    target_link_libraries(quorvane_headers PRIVATE quorvane_options)
    target_precompile_headers(quorvane_headers PRIVATE ${quorvane_costly_headers})
    foreach(parent ${ARGN})
        get_property(folders DIRECTORY ${parent} PROPERTY SUBDIRECTORIES)
        foreach(folder ${folders})
            get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
            foreach(target ${targets})
                get_target_property(type ${target} TYPE)
                if(type MATCHES "STATIC_LIBRARY|EXECUTABLE")
                    target_precompile_headers(${target} REUSE_FROM quorvane_headers)
                endif()
            endforeach()
        endforeach()
    endforeach()
endfunction()
