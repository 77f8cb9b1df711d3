# Fails if a shared library exports other functions, typeinfos and vtables than those that a file lists, each with its
# parameters: another signature breaks every host that is linked already. Writes the list that it found to ACTUAL: where
# a change is meant, that file replaces EXPECTED after its difference has been read.
# cmake -DNM=... -DCXXFILT=... -DLIBRARY=... -DEXPECTED=... -DACTUAL=... -P CheckExports.cmake
execute_process(
    COMMAND ${NM} --dynamic --defined-only --format=just-symbols ${LIBRARY}
    OUTPUT_VARIABLE symbols
    COMMAND_ERROR_IS_FATAL ANY)

# One demangler for all compilers, as each spells names differently; the standard library's spellings are shortened for
# the reader.
file(WRITE ${ACTUAL} "${symbols}")
execute_process(
    COMMAND ${CXXFILT}
    INPUT_FILE ${ACTUAL}
    OUTPUT_VARIABLE names
    COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "\\[abi:[^]\n]*\\]" "" names "${names}")
string(REPLACE "std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >" "std::string" names "${names}")
# Brackets and semicolons would change how CMake divides the lines.
if(names MATCHES "[][;]")
    message(FATAL_ERROR "${LIBRARY} exports names with brackets or semicolons, which cannot be compared as lists.")
endif()
string(REGEX MATCHALL "[^\n]+" names "${names}")
list(REMOVE_DUPLICATES names)
list(SORT names)
list(JOIN names "\n" lines)
file(WRITE ${ACTUAL} "${lines}\n")
file(STRINGS ${EXPECTED} expected)
set(added ${names})
list(REMOVE_ITEM added ${expected})
set(missing ${expected})
list(REMOVE_ITEM missing ${names})
if(added OR missing)
    list(JOIN added "\n  " added)
    list(JOIN missing "\n  " missing)
    message(FATAL_ERROR "${LIBRARY} exports, beyond ${EXPECTED}:\n  ${added}\nand does not export:\n  ${missing}\n"
        "All that it exports is in ${ACTUAL}.")
endif()
