# Fails if a shared library offers a symbol of its own outside the namespace of its exported classes, or other names in
# that namespace than those in a file: of functions, and of classes with a typeinfo or a vtable.
# cmake -DNM=... -DLIBRARY=... -DNAMESPACE=... -DEXPECTED=... -P CheckExports.cmake
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

execute_process(
    COMMAND ${NM} --dynamic --defined-only --format=just-symbols --demangle ${LIBRARY}
    OUTPUT_VARIABLE names
    COMMAND_ERROR_IS_FATAL ANY)
# Without parameters, which the compilers' demanglers spell differently.
string(REGEX REPLACE "\\[abi:[^]\n]*\\]|\\([^\n]*" "" names "${names}")
string(REGEX REPLACE "(typeinfo|typeinfo name|vtable) for " "" names "${names}")
string(REGEX MATCHALL "[^\n]+" names "${names}")
list(FILTER names INCLUDE REGEX "^${NAMESPACE}::[^ ]+$")
# Of explicitly instantiated templates only some compilers export the defaulted assignments.
list(FILTER names EXCLUDE REGEX ">::operator=$")
list(REMOVE_DUPLICATES names)
file(STRINGS ${EXPECTED} expected)
set(added ${names})
list(REMOVE_ITEM added ${expected})
set(missing ${expected})
list(REMOVE_ITEM missing ${names})
if(added OR missing)
    list(JOIN added "\n  " added)
    list(JOIN missing "\n  " missing)
    message(FATAL_ERROR "${LIBRARY} exports, beyond ${EXPECTED}:\n  ${added}\nand does not export:\n  ${missing}")
endif()
