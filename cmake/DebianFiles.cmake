# What Debian asks of its packages alone: cpack runs this on the folders that it has installed for them.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()

function(compress file)
    execute_process(COMMAND gzip --best --no-name --force ${file} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# The changes of this version in the format of Debian's changelogs, whose lines have less than 80 columns.
file(READ ${CPACK_PARAMETERS_CHANGES} changes)
string(FIND "${changes}" "\n## ${CPACK_PACKAGE_VERSION}" begin)
if(begin EQUAL -1)
    message(FATAL_ERROR "${CPACK_PARAMETERS_CHANGES} has no section of ${CPACK_PACKAGE_VERSION}.")
endif()
string(SUBSTRING "${changes}" ${begin} -1 changes)
string(REGEX REPLACE "^\n## [^\n]*\n+" "" changes "${changes}")
string(REGEX REPLACE "\n## .*" "" changes "${changes}")
string(REGEX REPLACE "\n +" " " changes "${changes}")
set(text ${CPACK_TEMPORARY_DIRECTORY}.changes)
file(WRITE ${text} "${changes}")
execute_process(COMMAND fold --spaces --width=74 ${text} OUTPUT_VARIABLE changes COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE ${text})
string(REGEX REPLACE " *\n" "\n    " changes "\n${changes}")
string(REGEX REPLACE "\n    - " "\n  * " changes "${changes}")
string(REGEX REPLACE "\n +\n" "\n\n" changes "${changes}")
string(STRIP "${changes}" changes)

# cpack, too, dates the files of the packages by this variable, so that the same sources make the same packages.
set(ENV{SOURCE_DATE_EPOCH} ${CPACK_PARAMETERS_RELEASE_DATE})
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} name)
    set(root ${CPACK_TEMPORARY_DIRECTORY}/${component}${CPACK_PACKAGING_INSTALL_PREFIX})
    set(changelog ${root}/share/doc/${CPACK_DEBIAN_${name}_PACKAGE_NAME}/changelog)
    file(WRITE ${changelog}
        "parameters (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium\n\n"
        "  ${changes}\n\n"
        " -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
    compress(${changelog})
    file(GLOB manuals ${root}/share/man/man?/*.?)
    foreach(manual IN LISTS manuals)
        compress(${manual})
    endforeach()
endforeach()
