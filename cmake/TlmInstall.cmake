# Installs the widget library and the value libraries that it needs as the CMake package tlm-desktop-ui.
include(CMakePackageConfigHelpers)

get_property(libraries GLOBAL PROPERTY TLM_INSTALLED_TARGETS)
# Shared libraries of one installation find each other beside themselves, wherever it was moved to.
set_target_properties(${libraries} PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    INSTALL_RPATH $ORIGIN)
install(TARGETS ${libraries} EXPORT tlm-desktop-ui
    ARCHIVE COMPONENT tlm-desktop-ui
    LIBRARY COMPONENT tlm-desktop-ui NAMELINK_COMPONENT tlm-desktop-ui
    FILE_SET HEADERS COMPONENT tlm-desktop-ui)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/tlm-desktop-ui)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/tlm-desktop-ui-config.cmake.in
    ${PROJECT_BINARY_DIR}/tlm-desktop-ui-config.cmake INSTALL_DESTINATION ${package})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/tlm-desktop-ui-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/tlm-desktop-ui-config.cmake
    ${PROJECT_BINARY_DIR}/tlm-desktop-ui-config-version.cmake
    DESTINATION ${package} COMPONENT tlm-desktop-ui)
install(EXPORT tlm-desktop-ui NAMESPACE tlm:: FILE tlm-desktop-ui-targets.cmake
    DESTINATION ${package} COMPONENT tlm-desktop-ui)
