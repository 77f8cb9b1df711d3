include(GenerateExportHeader)

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
