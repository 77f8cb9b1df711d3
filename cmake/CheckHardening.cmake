# Fails if a shared library needs others than the C and C++ runtimes and those that are named, or was built without
# protection of its stack, of its relocations or, on x86-64, of its branches.
# cmake -DREADELF=... -DOBJDUMP=... -DLIBRARY=... [-DNEEDS=name] -P CheckHardening.cmake
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

# The note of the whole library would not tell: it is missing wherever the compiler's own start files lack it.
execute_process(
    COMMAND ${OBJDUMP} --disassemble --no-show-raw-insn ${LIBRARY}
    OUTPUT_VARIABLE code
    COMMAND_ERROR_IS_FATAL ANY)
if(code MATCHES "elf64-x86-64" AND NOT code MATCHES "<_ZN[A-Za-z0-9_]*>:\n *[0-9a-f]+:\tendbr64")
    message(SEND_ERROR "${LIBRARY} lacks endbr64 where its functions begin.")
endif()
