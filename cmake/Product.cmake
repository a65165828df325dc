# quorvane_product(TARGET): a file that users get. It lands in <build>/bin without its debugging information, of which a
# system may load every byte into memory; that stays in <build>/symbols, and a debugger finds it by the link in the file.
function(quorvane_product target)
    set(symbols ${PROJECT_BINARY_DIR}/symbols/$<TARGET_FILE_NAME:${target}>.debug)
    set_target_properties(${target} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    get_target_property(type ${target} TYPE)
    # A number made of the content, by which a debugger knows the file again.
    target_link_options(${target} PRIVATE -Wl,--build-id,--no-insert-timestamp)
    if(type STREQUAL EXECUTABLE)
        # A terminal server then hands it no substitute for the Windows folder.
        target_link_options(${target} PRIVATE -Wl,--tsaware)
    endif()
    set(objcopy ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0 ${CMAKE_OBJCOPY}) # it would put the time in again
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/symbols
        COMMAND ${objcopy} --only-keep-debug $<TARGET_FILE:${target}> ${symbols}
        COMMAND ${objcopy} --strip-all --add-gnu-debuglink=${symbols} $<TARGET_FILE:${target}>
        VERBATIM)
endfunction()

# quorvane_script_includes(SCRIPT FOLDER [FILE...]): where a resource script outside src/resources finds what it includes, in FOLDER
# too. When that or a FILE changes it is compiled anew, of which the resource compiler reports nothing.
function(quorvane_script_includes script folder)
    set(resources ${PROJECT_SOURCE_DIR}/src/resources)
    set(icons ${PROJECT_BINARY_DIR}/src/resources/icons)
    set(included ${ARGN})
    foreach(file ResourceIds.h Version.rc Product.h Quorvane.manifest)
        list(APPEND included ${resources}/${file})
    endforeach()
    foreach(icon quorvane.ico lamp_lit.ico lamp_dark.ico hand.cur)
        list(APPEND included ${icons}/${icon})
    endforeach()
    set_source_files_properties(${script} PROPERTIES
        INCLUDE_DIRECTORIES "${folder};${CMAKE_CURRENT_BINARY_DIR};${PROJECT_SOURCE_DIR}/src;${resources};${icons}"
        OBJECT_DEPENDS "${included}")
endfunction()

# quorvane_check_product(): a test for each check of scripts/check_product.py on what users get.
function(quorvane_check_product)
    foreach(check headers imports resources themes)
        quorvane_gate(product-${check} scripts/check_product.py ${QUORVANE_ARCHITECTURE} ${PROJECT_BINARY_DIR} ${check})
    endforeach()
endfunction()
