include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

# Installs a library with its public headers as the CMake package, and names it package::package there. For hosts that
# CMake does not build it is the pkg-config module of the target's name, which requires the modules that follow.
function(parameters_install_package target package config_template)
    set(destination ${CMAKE_INSTALL_LIBDIR}/cmake/${package})
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${package})
    install(TARGETS ${target} EXPORT ${package}Targets
        RUNTIME COMPONENT Parameters_Runtime
        LIBRARY COMPONENT Parameters_Runtime NAMELINK_COMPONENT Parameters_Development
        ARCHIVE COMPONENT Parameters_Development
        FILE_SET HEADERS COMPONENT Parameters_Development)
    install(EXPORT ${package}Targets
        NAMESPACE ${package}::
        DESTINATION ${destination}
        COMPONENT Parameters_Development)

    configure_package_config_file(${config_template} ${package}Config.cmake INSTALL_DESTINATION ${destination})
    write_basic_package_version_file(${package}ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
    install(
        FILES
            ${CMAKE_CURRENT_BINARY_DIR}/${package}Config.cmake
            ${CMAKE_CURRENT_BINARY_DIR}/${package}ConfigVersion.cmake
        DESTINATION ${destination}
        COMPONENT Parameters_Development)

    # Relative to its own place, so that it holds wherever the prefix is moved.
    set(to_prefix ${CMAKE_INSTALL_PREFIX})
    set(to_headers ${CMAKE_INSTALL_FULL_INCLUDEDIR})
    cmake_path(RELATIVE_PATH to_prefix BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
    cmake_path(RELATIVE_PATH to_headers BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
    list(JOIN ARGN " " required)
    get_property(definitions TARGET ${target} PROPERTY INTERFACE_COMPILE_DEFINITIONS)
    list(TRANSFORM definitions PREPEND -D)
    list(JOIN definitions " " definitions)
    configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/Library.pc.in ${target}.pc @ONLY)
    install(
        FILES ${CMAKE_CURRENT_BINARY_DIR}/${target}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT Parameters_Development)
endfunction()
