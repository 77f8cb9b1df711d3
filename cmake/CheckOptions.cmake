# Fails if a document lacks an option, a command or a kind of those that a program names in its help.
# cmake -DPROGRAM=... -DDOCUMENT=... -P CheckOptions.cmake
execute_process(COMMAND ${PROGRAM} --help-all OUTPUT_VARIABLE help COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "--[a-z-]+" words "${help}")
string(REGEX MATCHALL "\n[a-z]+\n" commands "${help}")
string(REGEX MATCH "KIND:{([a-z,-]+)}" kinds "${help}")
string(REPLACE "," ";" kinds "${CMAKE_MATCH_1}")
if(NOT words OR NOT commands OR NOT kinds)
    message(FATAL_ERROR "${PROGRAM} names no options, commands or kinds:\n${help}")
endif()
file(READ ${DOCUMENT} document)
# A manual page has a backslash before each hyphen.
string(REPLACE "\\" "" document "${document}")
foreach(word IN LISTS words commands kinds)
    string(STRIP "${word}" word)
    if(NOT document MATCHES "[^a-z-]${word}[^a-z-]")
        message(SEND_ERROR "${DOCUMENT} lacks ${word}.")
    endif()
endforeach()
