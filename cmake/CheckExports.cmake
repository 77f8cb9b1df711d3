# Fails if a shared library offers a symbol of its own outside the namespace of its exported classes, or other functions,
# typeinfos and vtables in that namespace than those that a file lists with their parameters. Writes the list that it
# found to ACTUAL: where a change is meant, that file replaces EXPECTED after its difference has been read.
# cmake -DNM=... -DCXXFILT=... -DLIBRARY=... -DNAMESPACE=... -DEXPECTED=... -DACTUAL=... -P CheckExports.cmake
execute_process(
    COMMAND ${NM} --dynamic --defined-only --format=just-symbols ${LIBRARY}
    OUTPUT_VARIABLE symbols
    COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" symbols "${symbols}")

# Mangled names: demangled ones of templates begin with their return type. The standard library gives its templates
# default visibility, so their instances are there whatever we hide.
string(LENGTH ${NAMESPACE} length)
set(prefix "^_Z(GV|T[ISV])?Z?")
set(foreign ${symbols})
list(FILTER foreign EXCLUDE REGEX "${prefix}N[KVRO]*${length}${NAMESPACE}")
list(FILTER foreign EXCLUDE REGEX "${prefix}(N?K?S[abdiost]|N?K?9__gnu_cxx)")
list(LENGTH symbols total)
list(LENGTH foreign unexpected)
if(total EQUAL 0 OR unexpected GREATER 0)
    list(JOIN foreign "\n  " foreign)
    message(FATAL_ERROR "${LIBRARY} exports ${total} symbols, of which outside ${NAMESPACE}:\n  ${foreign}")
endif()

# Whole names with their parameters: another signature breaks every host that is linked already. One demangler for all
# compilers, as each spells names differently; the standard library's spellings are shortened for the reader.
list(FILTER symbols INCLUDE REGEX "^_Z(T[ISV])?N[KVRO]*${length}${NAMESPACE}")
list(JOIN symbols "\n" symbols)
file(WRITE ${ACTUAL} "${symbols}\n")
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
