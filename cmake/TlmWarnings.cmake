# Linked privately by every target of ours; a warning never leaves the house.
add_library(tlm-warnings INTERFACE)
target_compile_options(tlm-warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-align -Wformat=2 -Wimplicit-fallthrough -Wextra-semi -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 warns of overlaps in the standard string's own concatenation where there are none, once it inlines.
    target_compile_options(tlm-warnings INTERFACE -Wno-restrict)
endif()
