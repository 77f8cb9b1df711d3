# Finds the directory of a library that consists of headers. RapidJSON's CMake package is not used: some
# distributions' names the include directory alone and has no target, and others come without one.
function(parameters_require_header variable header library)
    find_path(${variable} ${header})
    if(NOT ${variable})
        message(FATAL_ERROR "${library} is needed: <${header}> was not found. "
            "Install it, or set ${variable} to the directory that holds it.")
    endif()
    mark_as_advanced(${variable})
endfunction()
