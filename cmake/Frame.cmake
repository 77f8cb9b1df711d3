# JSON, the frame of schema documents and what these are built on: compiled once for both libraries and hidden in each,
# so that either can be replaced alone.
if(TARGET parameters_frame)
    return()
endif()

parameters_require_header(RAPIDJSON_INCLUDE_DIR rapidjson/document.h "RapidJSON (Debian: rapidjson-dev)")
parameters_require_header(XXHASH_INCLUDE_DIR xxhash.h "xxHash (Debian: libxxhash-dev)")

cmake_path(SET parameters_sources NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../src)
add_library(parameters_frame OBJECT
    ${parameters_sources}/schema/JSON.cpp
    ${parameters_sources}/schema/JSONWriter.cpp
    ${parameters_sources}/schema/SchemaDocument.cpp
    ${parameters_sources}/schema/SchemaDocumentWriting.cpp
    ${parameters_sources}/base/TextArena.cpp
    ${parameters_sources}/base/TypeIdMap.cpp)
parameters_library_defaults(parameters_frame)
parameters_own_build(parameters_frame)
target_include_directories(parameters_frame PUBLIC
    ${parameters_sources}
    # Of the units library, which may be another one, only headers.
    $<TARGET_PROPERTY:Units::Units,INTERFACE_INCLUDE_DIRECTORIES>)
target_include_directories(parameters_frame SYSTEM PRIVATE ${RAPIDJSON_INCLUDE_DIR} ${XXHASH_INCLUDE_DIR})
