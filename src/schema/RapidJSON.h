#pragma once

// In a namespace of our own, so that a host that is linked with a static library may have another version of RapidJSON.
#define RAPIDJSON_NAMESPACE Parameters::rapidjson
#define RAPIDJSON_NAMESPACE_BEGIN                                                                                      \
    namespace Parameters {                                                                                             \
    namespace rapidjson {
#define RAPIDJSON_NAMESPACE_END                                                                                        \
    }                                                                                                                  \
    }

#include <rapidjson/document.h>
#include <rapidjson/reader.h>
#include <rapidjson/writer.h>
