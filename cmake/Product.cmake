# quorvane_product(TARGET): a file that users get. It lands in <build>/bin without its debugging information, of which a
# system may load every byte into memory; that stays in <build>/symbols, and a debugger finds it by the link in the file.
function(quorvane_product target)
    set(symbols ${PROJECT_BINARY_DIR}/symbols/$<TARGET_FILE_NAME:${target}>.debug)
    set_target_properties(${target} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    get_target_property(type ${target} TYPE)
    if(WIN32 AND type STREQUAL EXECUTABLE)
        # A terminal server then hands it no substitute for the Windows folder.
        target_link_options(${target} PRIVATE -Wl,--tsaware)
    endif()
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/symbols
        COMMAND ${CMAKE_OBJCOPY} --only-keep-debug $<TARGET_FILE:${target}> ${symbols}
        COMMAND ${CMAKE_OBJCOPY} --strip-all --add-gnu-debuglink=${symbols} $<TARGET_FILE:${target}>
        VERBATIM)
endfunction()

# quorvane_check_product(): a test for each check of scripts/check_product.py on what users get.
function(quorvane_check_product)
    foreach(check headers imports resources themes)
        quorvane_gate(product-${check} scripts/check_product.py ${QUORVANE_ARCHITECTURE} ${PROJECT_BINARY_DIR} ${check})
    endforeach()
endfunction()
