#include "GrowthBench.h"

#include "base/TypeIdMap.h"

#include <Parameters/Exceptions.h>
#include <Parameters/ParametersEngine.h>

#include <benchmark/benchmark.h>

#include <initializer_list>
#include <memory>
#include <string_view>
#include <utility>

namespace Bench {

namespace {

using Parameters::ParametersEngine;
using std::string;

string typedValue(const string& typeId) { return R"({"typeid":")" + typeId + R"("})"; }

string reference(std::string_view id, const string& value) {
    return R"(,{"id":")" + string(id) + R"(","typedValue":)" + value + "}";
}

string document(const string& typeId, std::string_view base, const string& constants) {
    return R"({"typeid":")" + typeId + R"(","inherits":[")" + string(base) +
           R"("],"constants":[{"id":"name","value":"Name"})" + constants + "]}";
}

string subcategory(const string& typeId, const string& parent) {
    return document(typeId, "quovanta.talmo.category:subCategory-1.0.0", reference("parent", typedValue(parent)));
}

string numbered(std::string_view kind, std::size_t number) { return "acme:" + string(kind) + std::to_string(number); }

string listOf(std::string_view kind, std::size_t count) {
    string list = "[";
    for (std::size_t i = 0; i < count; ++i) {
        list += (i == 0 ? "" : ",") + typedValue(numbered(kind, i));
    }
    return list + "]";
}

/// An engine with that many subcategories of one category with as many disciplines, and as many parameters of one spec
/// with as many units.
std::shared_ptr<ParametersEngine> contextOf(std::size_t count) {
    auto context = std::make_shared<ParametersEngine>();
    context->registerSchema(document("acme:domain", "quovanta.talmo.category:domain-1.0.0", ""));
    context->registerSchema(document("acme:dimension", "quovanta.unit:dimension-1.0.0", ""));
    for (std::size_t i = 0; i < count; ++i) {
        context->registerSchema(document(numbered("discipline", i), "quovanta.spec:discipline-1.0.0", ""));
        context->registerSchema(document(numbered("unit", i), "quovanta.unit:unit-1.0.0",
                                         reference("dimension", typedValue("acme:dimension"))));
        context->registerSchema(subcategory(numbered("subcategory", i), "acme:category"));
        context->registerSchema(document(numbered("parameter", i), "quovanta.parameter:parameter.measurable-3.0.0",
                                         reference("spec", typedValue("acme:spec"))));
    }
    context->registerSchema(document("acme:category", "quovanta.talmo.category:majorCategory-1.0.0",
                                     reference("domain", typedValue("acme:domain")) +
                                         reference("disciplines", listOf("discipline", count))));
    context->registerSchema(document("acme:spec", "quovanta.spec:spec.measurable-2.1.0",
                                     reference("discipline", typedValue("acme:discipline0")) +
                                         reference("storageUnit", typedValue("acme:unit0")) +
                                         reference("applicableUnits", listOf("unit", count))));
    context->resolveSchemas();
    return context;
}

/// Registers with a context that many schemas, each of which refers to another item of a kind.
std::function<void()> importEach(std::string_view kind, std::size_t count) {
    return [kind, count, context = contextOf(count)] {
        ParametersEngine engine;
        for (std::size_t i = 0; i < count; ++i) {
            engine.registerSchemaWithContext(subcategory(numbered("new", i), numbered(kind, i)), *context);
        }
    };
}

std::function<void()> fillIndexOfOneHash(std::size_t count) {
    auto typeIds = std::make_shared<std::vector<string>>();
    for (std::size_t i = 0; i < count; ++i) {
        typeIds->push_back(numbered("parameter", i));
    }
    return [typeIds] {
        Parameters::TypeIdMap<std::size_t> map;
        for (const string& typeId : *typeIds) {
            Parameters::TypeIdKey key(typeId);
            // As if somebody knew the key of the hash.
            key.hash = 1;
            benchmark::DoNotOptimize(map.contains(key));
            map.insert(key, 0);
        }
    };
}

std::function<void()> readSet(std::size_t count) {
    string values;
    for (std::size_t i = 0; i < count; ++i) {
        values += (i == 0 ? "\"" : ",\"") + std::to_string(i) + "\"";
    }
    const string text = document("acme:range", "quovanta.range:range.string.set.static-1.0.0",
                                 R"(,{"id":"allowedValues","value":[)" + values + "]}");
    return [text] {
        ParametersEngine engine;
        engine.registerSchema(text);
        engine.resolveSchemas();
    };
}

/// Registers and drops a batch, again and again.
std::function<void()> failBatches(std::size_t count) {
    auto engine = std::make_shared<ParametersEngine>();
    return [engine, count] {
        for (std::size_t i = 0; i < count; ++i) {
            engine->registerSchema(subcategory(numbered("lost", i), "acme:nobody"));
        }
        try {
            engine->resolveSchemas();
        } catch (const Parameters::ValidationException& exception) {
            benchmark::DoNotOptimize(exception.what());
        }
    };
}

} // namespace

const std::vector<Growth>& growths() {
    static const std::vector<Growth> all = {
        {"index of typeids that have one hash", 20000, fillIndexOfOneHash},
        {"import of subcategories of one category", 1000,
         [](std::size_t size) { return importEach("subcategory", size); }},
        {"import of parameters of one spec", 1000, [](std::size_t size) { return importEach("parameter", size); }},
        {"string range of many values", 20000, readSet},
        {"batch that fails", 5000, failBatches},
    };
    return all;
}

} // namespace Bench
