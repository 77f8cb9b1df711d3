#include "CatalogGenerator.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string_view>

namespace Bench {

namespace {

using std::string;

/// The numbers of items of each kind that go with the parameters.
struct Counts {
    explicit Counts(std::size_t count)
        : parameters(count), specs(share(150)), enumerations(share(60)), ranges(share(40)), categories(share(30)),
          groups(share(20)), disciplines(share(12)), domains(share(4)), dimensions(share(20)), units(share(80)) {}

    std::size_t parameters, specs, enumerations, ranges, categories, groups, disciplines, domains, dimensions, units;

private:
    [[nodiscard]] std::size_t share(std::size_t perThousand) const {
        return std::max<std::size_t>(3, parameters * perThousand / 1000);
    }
};

string typeId(std::string_view kind, std::size_t index) {
    return "acme.building.services:" + string(kind) + "." + std::to_string(index) + "-1.0.0";
}

string typedValue(const string& id) { return R"({"typeid":")" + id + R"("})"; }

class Generator {
public:
    explicit Generator(std::size_t parameters) : counts_(parameters) {}

    Catalog generate() {
        addAll("dimension", counts_.dimensions, &Generator::dimension);
        addAll("unit", counts_.units, &Generator::unit);
        addAll("discipline", counts_.disciplines, &Generator::discipline);
        addAll("domain", counts_.domains, &Generator::domain);
        addAll("group", counts_.groups, &Generator::group);
        addAll("category", counts_.categories, &Generator::category);
        addAll("enumeration", counts_.enumerations, &Generator::enumeration);
        addAll("range", counts_.ranges, &Generator::range);
        addAll("spec", counts_.specs, &Generator::spec);
        addAll("parameter", counts_.parameters, &Generator::parameter);
        shuffle();
        return std::move(catalog_);
    }

private:
    /// The same on every machine, unlike the distributions of the standard library.
    [[nodiscard]] std::size_t pick(std::size_t count) { return static_cast<std::size_t>(random_() % count); }

    void shuffle() {
        auto& documents = catalog_.documents;
        for (std::size_t i = documents.size(); i > 1; --i) {
            std::swap(documents[i - 1], documents[pick(i)]);
        }
    }

    void addAll(std::string_view kind, std::size_t count, string (Generator::*write)(std::size_t, const string&)) {
        for (std::size_t i = 0; i < count; ++i) {
            string id = typeId(kind, i);
            string text = (this->*write)(i, id);
            catalog_.textBytes += text.size();
            if (kind == "parameter") {
                catalog_.parameterTypeIds.push_back(id);
            }
            catalog_.documents.emplace_back(std::move(id), std::move(text));
        }
    }

    [[nodiscard]] string reference(std::string_view kind, std::size_t count) {
        return typedValue(typeId(kind, pick(count)));
    }

    // Documents. Every other one is of the current format, whose bases are of a later version.

    static bool isCurrent(std::size_t index) { return index % 2 == 0; }

    static string frame(std::size_t index, const string& id, std::string_view prefix, std::string_view shortVersion,
                        std::string_view fullVersion, const string& body) {
        const bool current = isCurrent(index);
        return string("{") +
               (current ? R"("schemaSpecification": "lumar-data-schema-2.0.0", "schemaType": "component", )" : "") +
               R"("typeid": ")" + id + R"(", "inherits": [")" + string(prefix) +
               string(current ? fullVersion : shortVersion) + R"("],)" + (current ? R"( "sealed": true,)" : "") + body +
               "}";
    }

    static string constant(std::size_t index, std::string_view id, std::string_view type, const string& value) {
        return R"({"id": ")" + string(id) + '"' + (isCurrent(index) ? R"(, "typeid": ")" + string(type) + '"' : "") +
               R"(, "value": )" + value + "}";
    }

    static string name(std::size_t index, std::string_view kind) {
        return constant(index, "name", "String", '"' + string(kind) + " number " + std::to_string(index) + '"');
    }

    static string reference(std::string_view id, const string& value) {
        return R"(, {"id": ")" + string(id) + R"(", "typedValue": )" + value + "}";
    }

    static string taxon(std::size_t index, const string& id, std::string_view prefix, std::string_view kind) {
        return frame(index, id, prefix, "1.0.0", "2.0.0", R"( "constants": [)" + name(index, kind) + "]");
    }

    string dimension(std::size_t index, const string& id) {
        return frame(index, id, "quovanta.unit:dimension-", "1.0.0", "1.0.0",
                     R"( "constants": [)" + name(index, "Dimension") + "]");
    }

    string unit(std::size_t index, const string& id) {
        return frame(index, id, "quovanta.unit:unit-", "1.0.0", "1.0.0",
                     R"( "constants": [)" + name(index, "Unit") +
                         reference("dimension", reference("dimension", counts_.dimensions)) + "]");
    }

    string discipline(std::size_t index, const string& id) {
        return taxon(index, id, "quovanta.spec:discipline-", "Discipline");
    }
    string domain(std::size_t index, const string& id) {
        return taxon(index, id, "quovanta.talmo.category:domain-", "Domain");
    }
    string group(std::size_t index, const string& id) { return taxon(index, id, "quovanta.parameter:group-", "Group"); }

    string category(std::size_t index, const string& id) {
        // The first third are major categories, to which the others belong.
        const std::size_t majors = std::max<std::size_t>(1, counts_.categories / 3);
        if (index < majors) {
            return frame(index, id, "quovanta.talmo.category:majorCategory-", "1.0.0", "2.0.0",
                         R"( "constants": [)" + name(index, "Category") +
                             reference("domain", reference("domain", counts_.domains)) +
                             reference("disciplines", "[" + reference("discipline", counts_.disciplines) + ", " +
                                                          reference("discipline", counts_.disciplines) + "]") +
                             "]");
        }
        return frame(index, id, "quovanta.talmo.category:subCategory-", "1.0.0", "2.0.0",
                     R"( "constants": [)" + name(index, "Category") +
                         reference("parent", reference("category", majors)) + "]");
    }

    string enumeration(std::size_t index, const string& id) {
        string items;
        for (std::size_t i = 0; i < 3 + index % 6; ++i) {
            items += string(i == 0 ? "" : ", ") + R"({"id": "choice )" + std::to_string(i) + R"(", "value": )" +
                     std::to_string(i) + "}";
        }
        return isCurrent(index)
                   ? R"({"schemaSpecification": "lumar-data-schema-2.0.0", "schemaType": "enum", "typeid": ")" + id +
                         R"(", "enum": [)" + items + "]}"
                   : R"({"typeid": ")" + id + R"(", "inherits": ["Enum"], "properties": [)" + items + "]}";
    }

    string range(std::size_t index, const string& id) {
        const auto numeric = [&](std::string_view prefix, const string& bottom) {
            return frame(index, id, prefix, "1.0.0", "2.0.0",
                         R"( "constants": [)" + constant(index, "fromBottom", "Bool", "true") + ", " +
                             R"({"id": "bottomBoundary", "value": )" + bottom + "}, " +
                             constant(index, "fromTop", "Bool", "false") + "]");
        };
        switch (index % 3) {
        case 0:
            return numeric("quovanta.range:range.float64.bounded.static-", std::to_string(index) + ".5");
        case 1:
            return numeric("quovanta.range:range.int64.bounded.static-", std::to_string(index + 1));
        default:
            return frame(index, id, "quovanta.range:range.string.set.static-", "1.0.0", "2.0.0",
                         R"( "constants": [{"id": "allowedValues", "value": ["low", "medium", "high"]}])");
        }
    }

    string spec(std::size_t index, const string& id) {
        const string discipline = reference("discipline", reference("discipline", counts_.disciplines));
        if (specType(index) != SpecType::Measurable) {
            static constexpr std::array<std::string_view, 4> names = {"Bool", "Int64", "String", "Float64"};
            return frame(index, id, "quovanta.spec:spec-", "1.0.0", "2.0.0",
                         R"( "constants": [)" + name(index, "Spec") + discipline +
                             R"(], "properties": [{"id": "value", "typeid": ")" +
                             string(names[static_cast<std::size_t>(specType(index))]) + R"("}])");
        }
        string units;
        for (std::size_t i = 0; i < 3 + index % 6; ++i) {
            units += (i == 0 ? "" : ", ") + reference("unit", counts_.units);
        }
        return frame(index, id, "quovanta.spec:spec.measurable-", "2.1.0", "3.0.0",
                     R"( "constants": [)" + name(index, "Spec") + discipline +
                         reference("applicableUnits", "[" + units + "]") +
                         reference("storageUnit", reference("unit", counts_.units)) + "]");
    }

    enum class SpecType { Boolean, Integer, String, Measurable };
    static SpecType specType(std::size_t index) {
        return index % 10 < 3 ? static_cast<SpecType>(index % 10) : SpecType::Measurable;
    }
    /// A spec of the type, of which every ten have at least one.
    [[nodiscard]] string specOf(SpecType type) {
        const std::size_t last = static_cast<std::size_t>(type);
        return typeId("spec", counts_.specs <= 10 ? last : pick(counts_.specs / 10) * 10 + last);
    }

    [[nodiscard]] string rangeOf(std::size_t family) { return typeId("range", pick(counts_.ranges / 3) * 3 + family); }

    static string inlineRange(std::string_view base, std::string_view version, const string& value) {
        return R"({"typeid": ")" + string(base) + string(version) + R"(", "value": )" + value + "}";
    }

    string parameter(std::size_t index, const string& id) {
        string constants =
            name(index, "Parameter") + ", " +
            constant(index, "description", "String",
                     "\"What parameter number " + std::to_string(index) + " of the building services catalog is for\"");
        if (index % 3 == 0) {
            constants += ", " + constant(index, "sampleText", "String", "\"12.5 of these\"");
        }
        if (index % 4 != 0) {
            constants += reference("group", reference("group", counts_.groups));
        }
        if (index % 5 == 0) {
            constants += ", " + constant(index, "readOnly", "Bool", "true");
        }
        const string bounds = R"({"fromBottom": true, "bottomBoundary": 1, "fromTop": true, "topBoundary": 99})";
        const auto document = [&](std::string_view form, std::string_view shortVersion, std::string_view fullVersion,
                                  const string& more, const string& spec = {}) {
            const string data = spec.empty() ? "" : R"(, "properties": [{"id": "data", "typeid": ")" + spec + R"("}])";
            return frame(index, id, form, shortVersion, fullVersion,
                         R"( "constants": [)" + constants + more + "]" + data);
        };
        switch (index / 2 % 10) {
        case 0:
            return document("quovanta.parameter:parameter.bool-", "2.0.0", "2.0.0", "");
        case 1:
            return document("quovanta.parameter:parameter.int64-", "3.0.0", "3.0.0",
                            reference("range", typedValue(rangeOf(1))));
        case 2:
            return document(
                "quovanta.parameter:parameter.measurable-", "3.0.0", "3.0.0",
                reference("spec", typedValue(specOf(SpecType::Measurable))) +
                    reference("range", inlineRange("quovanta.range:range.float64.bounded.static-", "1.0.0", bounds)));
        case 3:
            return document("quovanta.parameter:parameter.reference-", "2.0.0", "2.0.0",
                            R"(, {"id": "spec", "typedValue": {"typeid": "quovanta.talmo.spec:familyType-1.0.0", )"
                            R"("typedValue": {"category": )" +
                                reference("category", counts_.categories) + "}}}");
        case 4:
            return document("quovanta.parameter:parameter.string-", "3.0.0", "3.0.0",
                            reference("range", typedValue(rangeOf(2))));
        case 5:
            return document("quovanta.talmo:parameter.categorized-", "1.0.0", "2.0.0",
                            reference("category", reference("category", counts_.categories)), specOf(SpecType::String));
        case 6:
            return document("quovanta.parameter:parameter.ranged.float64-", "1.0.0", "2.0.0",
                            reference("range", typedValue(rangeOf(0))), specOf(SpecType::Measurable));
        case 7:
            return document("quovanta.parameter:parameter.ranged.int64-", "1.0.0", "2.0.0",
                            reference("range", inlineRange("quovanta.range:range.int64.bounded.static-",
                                                           isCurrent(index) ? "2.0.0" : "1.0.0", bounds)),
                            specOf(SpecType::Integer));
        case 8:
            return document("quovanta.parameter:parameter.ranged.string-", "1.0.0", "2.0.0",
                            reference("range", typedValue(rangeOf(2))), specOf(SpecType::String));
        default:
            break;
        }
        if (isCurrent(index)) {
            return document("quovanta.parameter:parameter-", "2.0.0", "3.0.0", "", specOf(SpecType::Measurable));
        }
        // An enumeration parameter: a general one without "data".
        return frame(index, id, "quovanta.parameter:parameter-", "2.0.0", "3.0.0",
                     R"( "constants": [)" + constants + R"(, {"id": "spec", "typeid": ")" + specOf(SpecType::Integer) +
                         R"(", "value": {}}], "properties": [{"id": "value", "typeid": ")" +
                         typeId("enumeration", pick(counts_.enumerations)) + R"("}])");
    }

    Counts counts_;
    Catalog catalog_;
    std::mt19937_64 random_{20240229};
};

} // namespace

Catalog generateCatalog(std::size_t parameters) { return Generator(parameters).generate(); }

} // namespace Bench
