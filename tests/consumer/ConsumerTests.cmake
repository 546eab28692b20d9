# Proves the installed package: another project finds it, builds against it and runs.
#
# tlm_add_consumer_test(<variant> <build directory of this project>)
function(tlm_add_consumer_test variant build)
    set(prefix ${CMAKE_BINARY_DIR}/consumer/${variant}-prefix)
    add_test(NAME package.${variant}.installs
        COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${prefix} --component tlm-desktop-ui)
    add_test(NAME package.${variant}.serves_a_consumer
        COMMAND ${CMAKE_CTEST_COMMAND}
            --build-and-test ${CMAKE_CURRENT_FUNCTION_LIST_DIR} ${CMAKE_BINARY_DIR}/consumer/${variant}
            --build-generator ${CMAKE_GENERATOR}
            --build-options
                -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE}
                -DCMAKE_PREFIX_PATH=${prefix}
                "-DCMAKE_CXX_FLAGS=$<$<BOOL:${TALLYMERE_SANITIZE}>:-fsanitize=address,undefined>"
            --test-command consumer)
    set_tests_properties(package.${variant}.installs PROPERTIES
        FIXTURES_SETUP package-${variant} LABELS slow TIMEOUT 120)
    set_tests_properties(package.${variant}.serves_a_consumer PROPERTIES
        FIXTURES_REQUIRED package-${variant} LABELS slow TIMEOUT 300 ENVIRONMENT QT_QPA_PLATFORM=offscreen)
endfunction()

# tlm_add_visibility_test(<variant>)
#
# Every class with the export macro is visible in the installed shared library, and nothing else of its namespace.
function(tlm_add_visibility_test variant)
    add_test(NAME package.${variant}.shows_exported_classes_only
        COMMAND ${CMAKE_COMMAND}
            -DNM=${CMAKE_NM}
            -DLIBRARY=${CMAKE_BINARY_DIR}/consumer/${variant}-prefix/${CMAKE_INSTALL_LIBDIR}/libtlm-desktop-ui.so
            -DHEADERS=${PROJECT_SOURCE_DIR}/include/tlm/desktop_ui
            -P ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/CheckVisibleClasses.cmake)
    set_tests_properties(package.${variant}.shows_exported_classes_only PROPERTIES
        FIXTURES_REQUIRED package-${variant} LABELS slow TIMEOUT 60)
endfunction()

if(BUILD_SHARED_LIBS)
    tlm_add_consumer_test(shared ${CMAKE_BINARY_DIR})
    tlm_add_visibility_test(shared)
else()
    tlm_add_consumer_test(static ${CMAKE_BINARY_DIR})
endif()

# What shared libraries show doesn't depend on instrumentation, so their own build is left to the plain presets.
if(NOT BUILD_SHARED_LIBS AND NOT TALLYMERE_SANITIZE)
    set(shared ${CMAKE_BINARY_DIR}/consumer/shared-libraries)
    add_test(NAME package.shared.builds
        COMMAND ${CMAKE_CTEST_COMMAND} --build-and-test ${PROJECT_SOURCE_DIR} ${shared}
            --build-generator ${CMAKE_GENERATOR}
            --build-options
                -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE}
                -DCMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER}
                -DBUILD_SHARED_LIBS=ON
                -DBUILD_TESTING=OFF
                -DTALLYMERE_APPLICATION=OFF)
    set_tests_properties(package.shared.builds PROPERTIES
        FIXTURES_SETUP build-shared LABELS slow TIMEOUT 3000)
    tlm_add_consumer_test(shared ${shared})
    tlm_add_visibility_test(shared)
    set_tests_properties(package.shared.installs PROPERTIES FIXTURES_REQUIRED build-shared)
endif()
