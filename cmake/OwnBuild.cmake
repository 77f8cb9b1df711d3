# Warnings, sanitizers, hardening and checks of the linker for our own builds. At top level only: a host's build gets none of them.
if(PROJECT_IS_TOP_LEVEL)
    option(PARAMETERS_WARNINGS_AS_ERRORS "Treat warnings as errors" OFF)
    set(PARAMETERS_SANITIZE "" CACHE STRING "Sanitizers, such as address;undefined or thread")

    set(parameters_compile_options -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
    if(PARAMETERS_WARNINGS_AS_ERRORS)
        list(APPEND parameters_compile_options -Werror)
    endif()
    if(PARAMETERS_SANITIZE)
        list(JOIN PARAMETERS_SANITIZE "," sanitizers)
        list(APPEND parameters_compile_options
            -fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        if(undefined IN_LIST PARAMETERS_SANITIZE)
            # RapidJSON's own stack adds to null pointers.
            list(APPEND parameters_compile_options -fno-sanitize=pointer-overflow)
        endif()
        set(parameters_link_options -fsanitize=${sanitizers})
    else()
        # Sanitized libraries leave the runtime of the sanitizer to the program.
        set(parameters_link_options LINKER:--no-undefined)
        if(CMAKE_EXECUTABLE_FORMAT STREQUAL "ELF")
            include(CheckCXXCompilerFlag)
            include(CheckCXXSourceCompiles)
            list(APPEND parameters_compile_options -fstack-protector-strong)
            # Not every processor and compiler has these.
            foreach(protection IN ITEMS cf-protection stack-clash-protection)
                string(MAKE_C_IDENTIFIER "PARAMETERS_HAS_${protection}" has_protection)
                string(TOUPPER ${has_protection} has_protection)
                check_cxx_compiler_flag(-f${protection} ${has_protection})
                if(${has_protection})
                    list(APPEND parameters_compile_options -f${protection})
                endif()
            endforeach()
            list(APPEND parameters_link_options LINKER:-z,relro,-z,now)
            # Neither over what the user or the toolchain has chosen, nor without the optimization that it needs.
            set(CMAKE_REQUIRED_FLAGS "${CMAKE_CXX_FLAGS_RELEASE}")
            check_cxx_source_compiles("
                #ifdef _FORTIFY_SOURCE
                #error
                #endif
                int main() {}" PARAMETERS_CHOOSES_FORTIFY)
            unset(CMAKE_REQUIRED_FLAGS)
            if(PARAMETERS_CHOOSES_FORTIFY)
                list(APPEND parameters_compile_options
                    $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-D_FORTIFY_SOURCE=2>)
            endif()
        endif()
    endif()
    if(PARAMETERS_BUILD_FUZZ)
        list(APPEND parameters_compile_options -fsanitize=fuzzer-no-link)
    endif()
endif()

function(parameters_own_build target)
    # Also names the standard on each command line, from which clang-tidy learns it.
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
    target_compile_options(${target} PRIVATE ${parameters_compile_options})
    target_link_options(${target} PRIVATE ${parameters_link_options})
endfunction()
