#include "CommandLine.h"
#include "Guide.h"
#include "Items.h"
#include "OutputJson.h"

#include <Parameters/DocumentForms.h>

#include <fmt/core.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace Tool {

using Parameters::DocumentForm;
using Parameters::MemberForm;
using Parameters::ValueForm;

namespace {

constexpr const char* schemaKey = "schemaSpecification";

/// Makes a JSON Schema of the forms of documents.
class SchemaWriter {
public:
    /// Takes typeids to be completed, by the words for their kinds.
    explicit SchemaWriter(const std::map<std::string, std::set<std::string>>& typeIds) {
        for (const auto& [kind, all] : typeIds) {
            definitions_[typeIdsOf(kind)] = {{"enum", all}};
        }
    }

    OutputJson write(const std::vector<DocumentForm>& forms) {
        // Bases that differ in nothing else.
        std::vector<std::pair<OutputJson, std::vector<const DocumentForm*>>> cases;
        OutputJson frame = OutputJson::object();
        for (const DocumentForm& form : forms) {
            for (const MemberForm& member : form.frame) {
                frame[member.name] = {{"description", meaningOf({}, member.name)}};
            }
            OutputJson schema = schemaOf(form);
            const auto same = std::find_if(cases.begin(), cases.end(), [&](const auto& each) {
                return each.first == schema && isEnumeration(*each.second.front()) == isEnumeration(form) &&
                       each.second.front()->isCurrent == form.isCurrent;
            });
            if (same == cases.end()) {
                cases.emplace_back(std::move(schema), std::vector{&form});
            } else {
                same->second.push_back(&form);
            }
        }
        // Offered, but not required: the units library has bases of its own.
        std::set<std::string> bases;
        OutputJson rules = OutputJson::array();
        for (auto& [schema, sharing] : cases) {
            rules.push_back({{"if", conditionOf(sharing)}, {"then", std::move(schema)}});
            for (const DocumentForm* form : sharing) {
                bases.insert(form->base);
            }
        }
        bases.erase("");
        frame["inherits"]["items"] = {{"anyOf", {{{"enum", bases}}, OutputJson::object()}}};
        for (const char* section : {"constants", "properties", "enum"}) {
            frame[section] = {
                {"description", meaningOf({}, section)}, {"type", "array"}, {"items", {{"type", "object"}}}};
        }
        return {{"$schema", "http://json-schema.org/draft-07/schema#"},
                {"title", "Schema document of a parameter catalog"},
                {"type", "object"},
                {"required", {"typeid"}},
                {"properties", std::move(frame)},
                {"allOf", std::move(rules)},
                {"definitions", std::move(definitions_)}};
    }

private:
    static bool isEnumeration(const DocumentForm& form) { return form.base.empty(); }
    static std::string typeIdsOf(const std::string& kind) { return "typeids of kind " + kind; }

    /// Which documents are of the forms.
    static OutputJson conditionOf(const std::vector<const DocumentForm*>& forms) {
        if (isEnumeration(*forms.front())) {
            return {{"properties", {{"schemaType", {{"const", "enum"}}}}}, {"required", {schemaKey, "schemaType"}}};
        }
        OutputJson bases = OutputJson::array();
        for (const DocumentForm* form : forms) {
            bases.push_back(form->base);
        }
        OutputJson condition = {{"properties", {{"inherits", {{"type", "array"}, {"contains", {{"enum", bases}}}}}}},
                                {"required", {"inherits"}}};
        if (forms.front()->isCurrent) {
            condition["required"].push_back(schemaKey);
            condition["properties"]["schemaType"] = {{"not", {{"const", "enum"}}}};
        } else {
            condition["not"] = {{"required", {schemaKey}}};
        }
        return condition;
    }

    OutputJson schemaOf(const DocumentForm& form) {
        OutputJson names = OutputJson::array();
        OutputJson required = OutputJson::array();
        OutputJson members = OutputJson::object();
        for (const MemberForm& member : form.frame) {
            names.push_back(member.name);
            members[member.name] = schemaOf(member.value);
            if (member.isRequired) {
                required.push_back(member.name);
            }
        }
        for (const auto& [name, entries] :
             {std::pair("constants", &form.constants), std::pair("properties", &form.properties)}) {
            members[name] = sectionOf(form, *entries);
            if (members[name].contains("allOf")) {
                required.push_back(name);
            }
        }
        if (!form.freeSection.empty()) {
            members[form.freeSection] = {{"items", schemaOf(form.freeEntry)}, {"minItems", 1}};
            required.push_back(form.freeSection);
        }
        for (const char* name : {"constants", "properties", "enum"}) {
            names.push_back(name);
        }
        return {{"propertyNames", {{"enum", std::move(names)}}},
                {"required", std::move(required)},
                {"properties", std::move(members)}};
    }

    /// Entries that are told apart by their ids.
    OutputJson sectionOf(const DocumentForm& form, const std::vector<MemberForm>& entries) {
        if (entries.empty()) {
            return {{"maxItems", 0}};
        }
        OutputJson ids = OutputJson::array();
        OutputJson meanings = OutputJson::array();
        OutputJson cases = OutputJson::array();
        OutputJson required = OutputJson::array();
        for (const MemberForm& entry : entries) {
            ids.push_back(entry.name);
            meanings.push_back(meaningOf(form.base, entry.name));
            const OutputJson isEntry = {{"properties", {{"id", {{"const", entry.name}}}}}, {"required", {"id"}}};
            cases.push_back({{"if", isEntry}, {"then", reference(form.base, entry)}});
            if (entry.isRequired) {
                required.push_back({{"contains", isEntry}});
            }
        }
        // Editors show the descriptions of what they offer.
        OutputJson section = {
            {"items",
             {{"type", "object"},
              {"required", {"id"}},
              {"properties", {{"id", {{"enum", std::move(ids)}, {"enumDescriptions", std::move(meanings)}}}}},
              {"allOf", std::move(cases)}}}};
        if (!required.empty()) {
            section["allOf"] = std::move(required);
        }
        return section;
    }

    /// The schema of an entry, which most forms share.
    OutputJson reference(std::string_view base, const MemberForm& entry) {
        OutputJson schema = described(base, entry.name, entry.value);
        for (std::size_t number = 1;; ++number) {
            const std::string name = number == 1 ? entry.name : fmt::format("{} {}", entry.name, number);
            const auto known = definitions_.find(name);
            if (known == definitions_.end()) {
                definitions_[name] = std::move(schema);
            } else if (*known != schema) {
                continue;
            }
            return {{"$ref", "#/definitions/" + uriOf(name)}};
        }
    }

    static std::string uriOf(const std::string& name) {
        std::string uri;
        for (const char character : name) {
            uri += character == ' ' ? "%20" : std::string(1, character);
        }
        return uri;
    }

    OutputJson described(std::string_view base, const std::string& name, const ValueForm& form) {
        OutputJson schema = OutputJson::object();
        if (std::string meaning = meaningOf(base, name); !meaning.empty()) {
            schema["description"] = std::move(meaning);
        }
        schema.update(schemaOf(form));
        return schema;
    }

    OutputJson schemaOf(const ValueForm& form) {
        constexpr std::size_t allTypes = 6;
        if (form.types.size() >= allTypes) {
            return OutputJson::object();
        }
        OutputJson schema = OutputJson::object();
        schema["type"] = form.types.size() == 1 ? OutputJson(*form.types.begin()) : OutputJson(form.types);
        if (!form.words.empty() && form.types.size() == 1) {
            schema["enum"] = form.words;
        } else if (form.types.count("string") != 0 && !form.mayBeEmpty) {
            schema["minLength"] = 1;
        }
        for (const std::string& kind : form.kinds) {
            if (definitions_.contains(typeIdsOf(kind))) {
                // Others may be there that the editor does not know.
                schema["anyOf"].push_back({{"$ref", "#/definitions/" + uriOf(typeIdsOf(kind))}});
            }
        }
        if (schema.contains("anyOf")) {
            schema["anyOf"].push_back({{"type", "string"}});
        }
        for (const ValueForm& element : form.elements) {
            schema["items"] = schemaOf(element);
        }
        if (form.types.count("object") != 0) {
            addMembers(schema, form.members);
        }
        return schema;
    }

    void addMembers(OutputJson& schema, const std::vector<MemberForm>& members) {
        OutputJson required = OutputJson::array();
        OutputJson properties = OutputJson::object();
        for (const MemberForm& member : members) {
            properties[member.name] = schemaOf(member.value);
            if (member.isRequired) {
                required.push_back(member.name);
            }
        }
        schema["properties"] = std::move(properties);
        schema["additionalProperties"] = false;
        if (!required.empty()) {
            schema["required"] = std::move(required);
        }
    }

    OutputJson definitions_ = OutputJson::object();
};

Status printEditorSchema(const Sources& sources) {
    std::map<std::string, std::set<std::string>> typeIds;
    Status status = Status::Success;
    if (!sources.paths.empty()) {
        const Catalog catalog = loadForUse(sources);
        for (const auto& [typeId, item] : itemsOf(catalog)) {
            typeIds[item.kind->word].insert(typeId);
        }
        status = statusOf(catalog.report);
    }
    fmt::print("{}\n", dumped(SchemaWriter(typeIds).write(Parameters::documentForms())));
    return status;
}

} // namespace

void addEditorSchema(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("editor-schema", "Print a JSON Schema of the documents, for editors");
    auto options = std::make_shared<Sources>();
    addSources(*command, *options)->required(false);
    addExample(*command, "catalog >catalog.schema.json");
    command->callback([options, &status] { status = printEditorSchema(*options); });
}

} // namespace Tool
