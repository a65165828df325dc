# The target cli11: the parser of options, headers alone. They are found by a link of their own, as beside them lie the host's,
# which no other system may read.
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/cli11)
file(CREATE_LINK /usr/include/CLI ${PROJECT_BINARY_DIR}/cli11/CLI SYMBOLIC)
add_library(cli11 INTERFACE)
target_include_directories(cli11 SYSTEM INTERFACE ${PROJECT_BINARY_DIR}/cli11)
# Checks of paths, which no program asks for, would bring the whole of std::filesystem along.
target_compile_definitions(cli11 INTERFACE CLI11_HAS_FILESYSTEM=0)
