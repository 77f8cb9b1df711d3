include(CheckLinkerFlag)

# A plain variable, so that the default reaches no library of a host.
if(NOT DEFINED BUILD_SHARED_LIBS)
    set(BUILD_SHARED_LIBS ON)
endif()

function(parameters_library_defaults target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        # A library finds the one that it needs beside itself, or where a replacement was found.
        INSTALL_RPATH $ORIGIN
        INSTALL_RPATH_USE_LINK_PATH ON)
endfunction()

# Exports of a shared library what a host names: that of a namespace and no instance of the standard library's templates.
function(parameters_export_namespace target namespace)
    get_target_property(type ${target} TYPE)
    if(NOT type STREQUAL SHARED_LIBRARY)
        return()
    endif()
    string(LENGTH ${namespace} length)
    set(mangled ${length}${namespace})
    set(script ${CMAKE_CURRENT_BINARY_DIR}/${target}.map)
    configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/Exports.map.in ${script} @ONLY)
    check_linker_flag(CXX LINKER:--version-script=${script} PARAMETERS_LINKER_TAKES_VERSION_SCRIPTS)
    if(PARAMETERS_LINKER_TAKES_VERSION_SCRIPTS)
        target_link_options(${target} PRIVATE LINKER:--version-script=${script})
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${script})
    endif()
endfunction()
