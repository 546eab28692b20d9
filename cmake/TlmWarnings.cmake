# Linked privately by every target of ours; a warning never leaves the house.
add_library(tlm-warnings INTERFACE)
target_compile_options(tlm-warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-align -Wformat=2 -Wimplicit-fallthrough -Wextra-semi -Werror)
