# What cpack makes of the build: an archive of everything and Debian packages of the runtime, development and tool.
set(CPACK_GENERATOR TGZ DEB)
set(CPACK_PACKAGE_CONTACT "Parameters developers <parameters@example.org>")
# Each Debian package has a summary of its own, the first line of its description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL Parameters_Development)

set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/DebianFiles.cmake)
set(CPACK_PARAMETERS_CHANGES ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
set(CPACK_PARAMETERS_RELEASE_DATE ${PARAMETERS_RELEASE_DATE})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR} ${PROJECT_BINARY_DIR}/units)

set(CPACK_DEBIAN_PARAMETERS_DEVELOPMENT_PACKAGE_NAME libparameters-dev)
set(CPACK_DEBIAN_PARAMETERS_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PARAMETERS_DEVELOPMENT_DESCRIPTION "${PROJECT_DESCRIPTION} (development files)
Headers, CMake packages and pkg-config modules of the libraries Parameters
and Units.")

if(BUILD_SHARED_LIBS)
    list(APPEND CPACK_COMPONENTS_ALL Parameters_Runtime)
    set(CPACK_DEBIAN_PARAMETERS_RUNTIME_PACKAGE_NAME libparameters${PROJECT_VERSION_MAJOR})
    set(CPACK_DEBIAN_PARAMETERS_RUNTIME_PACKAGE_SECTION libs)
    set(CPACK_DEBIAN_PARAMETERS_RUNTIME_DESCRIPTION "${PROJECT_DESCRIPTION}
Reads schema documents, resolves their references, answers queries and
writes documents for older and newer data models. The library Units, for
units of measurement, comes with it.")
    # dpkg is to run ldconfig, once for all packages. The scripts that cpack would write for it are kept out by naming
    # some that do not exist, which costs a warning each.
    file(WRITE ${PROJECT_BINARY_DIR}/debian/triggers "activate-noawait ldconfig\n")
    set(CPACK_DEBIAN_PARAMETERS_RUNTIME_PACKAGE_CONTROL_EXTRA
        ${PROJECT_BINARY_DIR}/debian/triggers
        ${PROJECT_BINARY_DIR}/debian/postinst
        ${PROJECT_BINARY_DIR}/debian/postrm)
    set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
    set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY >=)
    set(CPACK_COMPONENT_PARAMETERS_DEVELOPMENT_DEPENDS Parameters_Runtime)
    set(CPACK_COMPONENT_PARAMETERS_TOOL_DEPENDS Parameters_Runtime)
endif()

if(PARAMETERS_BUILD_TOOL)
    list(APPEND CPACK_COMPONENTS_ALL Parameters_Tool)
    set(CPACK_DEBIAN_PARAMETERS_TOOL_PACKAGE_NAME parameters)
    set(CPACK_DEBIAN_PARAMETERS_TOOL_PACKAGE_SECTION utils)
    set(CPACK_DEBIAN_PARAMETERS_TOOL_PACKAGE_SUGGESTS graphviz)
    set(CPACK_DEBIAN_PARAMETERS_TOOL_DESCRIPTION "${PROJECT_DESCRIPTION} (catalog tool)
Checks, shows and converts catalogs of schema documents.")
endif()

include(CPack)
