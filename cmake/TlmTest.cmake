# tlm_add_test(<name> SOURCES <file>... LIBRARIES <target>... [LABELS <label>...] [TIMEOUT <seconds>])
#
# Adds a GoogleTest program whose every test ctest runs on its own, offscreen, under the listening fixture of tests/support.
include(GoogleTest)

function(tlm_add_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LIBRARIES;LABELS" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} tlm-test-support)
    target_precompile_headers(${name} REUSE_FROM tlm-test-support)
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT ${ARG_TIMEOUT} LABELS "${ARG_LABELS}" ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
