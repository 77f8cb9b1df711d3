# Fails if a document does not show a program verbatim, as one block of C++.
# cmake -DDOCUMENT=... -DPROGRAM=... -P CheckReadme.cmake
file(READ ${DOCUMENT} document)
file(READ ${PROGRAM} program)
string(FIND "${document}" "```cpp\n${program}```\n" position)
if(position EQUAL -1)
    message(FATAL_ERROR "${DOCUMENT} shows no block of cpp that equals ${PROGRAM}.")
endif()
