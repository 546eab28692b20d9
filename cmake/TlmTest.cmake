# tlm_add_test(<name> [REAL_WINDOW] SOURCES <file>... LIBRARIES <target>... [LABELS <label>...] [TIMEOUT <seconds>])
#
# Adds a GoogleTest program whose every test ctest runs on its own under the listening fixture of tests/support: offscreen, or with
# REAL_WINDOW on a virtual display of its own. The test `whole.<name>`, which carries the label `whole`, runs all of them in one
# process: that takes a fraction of the time where processes start slowly.
include(GoogleTest)

function(tlm_add_test name)
    cmake_parse_arguments(ARG "REAL_WINDOW" "TIMEOUT" "SOURCES;LIBRARIES;LABELS" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} tlm-test-support)
    target_precompile_headers(${name} REUSE_FROM tlm-test-support)
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
    set(platform offscreen)
    if(ARG_REAL_WINDOW)
        set(platform xcb)
        set_target_properties(${name} PROPERTIES CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/tools/with-display)
    endif()
    # Suppressions mean something to the leak sanitizer alone.
    set(leaks suppressions=${PROJECT_SOURCE_DIR}/tests/support/leaks.supp:print_suppressions=0)
    set(properties ENVIRONMENT QT_QPA_PLATFORM=${platform} ENVIRONMENT_MODIFICATION LSAN_OPTIONS=set:${leaks})
    set(each_properties ${properties} TIMEOUT ${ARG_TIMEOUT})
    if(ARG_LABELS)
        list(APPEND each_properties LABELS ${ARG_LABELS})
    endif()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES ${each_properties})
    add_test(NAME whole.${name} COMMAND ${name})
    set_tests_properties(whole.${name} PROPERTIES ${properties} TIMEOUT 1800 LABELS "whole;${ARG_LABELS}")
endfunction()
