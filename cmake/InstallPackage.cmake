include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

# Installs a library with its public headers as the CMake package, and names it package::package there.
function(parameters_install_package target package config_template)
    set(destination ${CMAKE_INSTALL_LIBDIR}/cmake/${package})
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${package})
    install(TARGETS ${target} EXPORT ${package}Targets FILE_SET HEADERS)
    install(EXPORT ${package}Targets NAMESPACE ${package}:: DESTINATION ${destination})

    configure_package_config_file(${config_template} ${package}Config.cmake INSTALL_DESTINATION ${destination})
    write_basic_package_version_file(${package}ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
    install(
        FILES
            ${CMAKE_CURRENT_BINARY_DIR}/${package}Config.cmake
            ${CMAKE_CURRENT_BINARY_DIR}/${package}ConfigVersion.cmake
        DESTINATION ${destination})
endfunction()
