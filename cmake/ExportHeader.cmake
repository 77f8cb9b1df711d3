include(GenerateExportHeader)

# Whether sources of this directory are compiled under a condition of the preprocessor: TRUE, FALSE, or nothing where
# configurations differ. The directory's definitions and options may hold generator expressions, hence the target.
function(parameters_compiled_under condition result)
    get_directory_property(definitions COMPILE_DEFINITIONS)
    get_directory_property(options COMPILE_OPTIONS)
    if(NOT TARGET parameters_directory_settings)
        add_library(parameters_directory_settings INTERFACE IMPORTED)
    endif()
    set_target_properties(parameters_directory_settings PROPERTIES
        INTERFACE_COMPILE_DEFINITIONS "${definitions}"
        INTERFACE_COMPILE_OPTIONS "${options}")

    set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
    set(configurations ${CMAKE_BUILD_TYPE})
    get_property(is_multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
    if(is_multi_config)
        set(configurations ${CMAKE_CONFIGURATION_TYPES})
    elseif(NOT configurations)
        set(configurations None)
    endif()
    set(found "")
    foreach(CMAKE_TRY_COMPILE_CONFIGURATION IN LISTS configurations)
        try_compile(holds
            SOURCE_FROM_CONTENT condition.cpp "#include <cstddef>\n#if !(${condition})\n#error\n#endif\n"
            LINK_LIBRARIES parameters_directory_settings
            NO_CACHE)
        list(APPEND found ${holds})
    endforeach()
    list(REMOVE_DUPLICATES found)
    list(LENGTH found answers)
    if(answers GREATER 1)
        set(found "")
    endif()
    set(${result} "${found}" PARENT_SCOPE)
endfunction()

# Generates a library's Export.h. It refuses hosts for which objects of the standard library have another layout than for
# the library: most of such would link, and crash.
function(parameters_export_header target package)
    set(debug_condition "defined(_GLIBCXX_DEBUG)")
    set(debug_setting "_GLIBCXX_DEBUG")
    set(old_abi_condition "defined(__GLIBCXX__) && !_GLIBCXX_USE_CXX11_ABI")
    set(old_abi_setting "_GLIBCXX_USE_CXX11_ABI=0")

    # Tells what standard library it is.
    set(refusals "#include <cstddef>\n")
    foreach(mode IN ITEMS debug old_abi)
        parameters_compiled_under("${${mode}_condition}" compiled_under)
        if("${compiled_under}" STREQUAL "")
            continue()
        elseif(compiled_under)
            set(mismatch "!(${${mode}_condition})")
            set(how "with")
        else()
            set(mismatch "${${mode}_condition}")
            set(how "without")
        endif()
        string(APPEND refusals "\n#if ${mismatch}\n"
            "#error \"${package} was compiled ${how} ${${mode}_setting}, so its hosts must be compiled ${how} it, too.\"\n"
            "#endif\n")
    endforeach()
    generate_export_header(${target}
        EXPORT_FILE_NAME include/${package}/Export.h
        CUSTOM_CONTENT_FROM_VARIABLE refusals)
endfunction()
