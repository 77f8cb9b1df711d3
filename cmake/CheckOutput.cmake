# Fails if a program prints anything other than the text in a file.
# cmake -DPROGRAM=... -DEXPECTED=... -P CheckOutput.cmake
execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
file(READ ${EXPECTED} expected)
if(NOT output STREQUAL expected)
    message(FATAL_ERROR "Printed:\n${output}\nExpected, from ${EXPECTED}:\n${expected}")
endif()
