# Fails if a shared library offers a symbol of its own outside the namespace of its exported classes.
# cmake -DNM=... -DLIBRARY=... -DNAMESPACE=... -P CheckExports.cmake
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
