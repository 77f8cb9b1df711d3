# Fails if a shared library needs others than the C and C++ runtimes and those that are named, or was built without
# protection of its stack or of its relocations.
# cmake -DREADELF=... -DLIBRARY=... [-DNEEDS=name] -P CheckHardening.cmake
execute_process(
    COMMAND ${READELF} --wide --dynamic --program-headers --dyn-syms ${LIBRARY}
    OUTPUT_VARIABLE description
    COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "Shared library: .[^]]+" needed "${description}")
list(TRANSFORM needed REPLACE "Shared library: ." "")
set(foreign ${needed})
list(FILTER foreign EXCLUDE REGEX "^(ld-linux[a-z0-9_-]*|lib(stdc[+][+]|c[+][+](abi)?|gcc_s|unwind|m|c))[.]so")
if(NEEDS)
    list(FILTER foreign EXCLUDE REGEX "^${NEEDS}[.]so")
endif()
if(NOT needed OR foreign)
    message(SEND_ERROR "${LIBRARY} needs ${needed}, of which unexpected: ${foreign}.")
endif()
foreach(sign IN ITEMS "GNU_RELRO" "BIND_NOW|Flags: NOW" "__stack_chk_fail")
    if(NOT description MATCHES "${sign}")
        message(SEND_ERROR "${LIBRARY} lacks ${sign}.")
    endif()
endforeach()
