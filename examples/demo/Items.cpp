#include "Sections.h"

#include "Words.h"

#include <iomanip>
#include <iostream>
#include <stdexcept>

namespace Demo {

using namespace Parameters;

namespace {

std::ostream& line(const char* label) { return std::cout << "  " << std::left << std::setw(14) << label << std::right; }

/// Writes an item in a version, or makes sure that the engine refuses to.
bool canBeWritten(const ParametersEngine& engine, const std::string& typeId, DataModelVersion version) {
    const auto [lowest, highest] = engine.getCompatibleDataModelRange(typeId);
    const bool expected = version >= lowest && version <= highest;
    std::string reason = "it should have been refused";
    bool written = false;
    try {
        written = !engine.getSchemaInCompatibleFormat(version, typeId).empty();
    } catch (const ValidationException& exception) {
        reason = exception.what();
    }
    if (written != expected) {
        throw std::runtime_error(typeId + " for data model " + wordsFor(version) + ": " + reason);
    }
    return written;
}

void showVersions(const ParametersEngine& engine, const std::string& typeId) {
    const auto [lowest, highest] = engine.getCompatibleDataModelRange(typeId);
    line("data models") << wordsFor(lowest) << " to " << wordsFor(highest) << '\n';
}

/// The texts of an item in all versions that can represent it, the newest first.
void showTexts(const ParametersEngine& engine, const std::string& typeId) {
    const auto [lowest, highest] = engine.getCompatibleDataModelRange(typeId);
    const std::string registered = engine.getSchema(typeId);
    for (const DataModelVersion version : allVersions) {
        if (version < lowest || version > highest) {
            continue;
        }
        const std::string text = engine.getSchemaInCompatibleFormat(version, typeId);
        std::cout << "\nFor data model " << wordsFor(version);
        if (text == registered) {
            std::cout << ", the text that was registered:\n" << text;
        } else {
            std::cout << ", written by the engine:\n" << text << '\n';
        }
    }
}

void showUnits(const Spec& spec) {
    const auto& measurable = spec.getMeasurable();
    if (!measurable) {
        line("units") << "none\n";
        return;
    }
    for (const auto& unit : measurable->getApplicableUnits()) {
        line("unit") << wordsFor(unit.getTypeId(), unit.getName()) << '\n';
    }
    const Units::Unit& storage = measurable->getStorageUnit();
    line("stored in") << wordsFor(storage.getTypeId(), storage.getName()) << '\n';
}

void showReference(const char* label, const Taxon& taxon) {
    line(label) << wordsFor(taxon.getTypeId(), taxon.getName()) << '\n';
}

} // namespace

void showCatalog(const Catalog& catalog, const std::filesystem::path& folder) {
    printHeading("Catalog");
    std::cout << "Registered " << catalog.documents << " documents from " << folder.string()
              << " in the order of their names; " << catalog.forwardReferences
              << " of them referred\nto something that was not there yet. All references have been resolved.\n\n"
              << std::setw(8) << "items" << std::setw(22) << ' ' << "written for  3.0.0  2.0.0  1.0.0\n";
    for (const Kind& kind : itemsByKind(catalog.engine)) {
        std::cout << std::setw(8) << kind.typeIds.size() << ' ' << std::left << std::setw(33) << kind.name
                  << std::right;
        for (const DataModelVersion version : allVersions) {
            std::size_t written = 0;
            for (const std::string& typeId : kind.typeIds) {
                written += canBeWritten(catalog.engine, typeId, version) ? 1 : 0;
            }
            std::cout << std::setw(7) << written;
        }
        std::cout << '\n';
    }
}

void showTaxon(const ParametersEngine& engine, const Taxon& taxon) {
    printHeading("A taxon: the discipline " + taxon.getName());
    line("typeid") << taxon.getTypeId() << '\n';
    line("name") << taxon.getName() << '\n';
    showVersions(engine, taxon.getTypeId());
    std::cout << "\nThe text that was registered:\n"
              << engine.getSchema(taxon.getTypeId()) << "\nFor data model 2.0.0, written by the engine:\n"
              << engine.getSchemaInCompatibleFormat(DataModelVersion::V2, taxon.getTypeId()) << '\n';
}

void showSpec(const ParametersEngine& engine, const Spec& spec) {
    printHeading("A spec: " + spec.getName());
    line("typeid") << spec.getTypeId() << '\n';
    line("name") << spec.getName() << '\n';
    line("value type") << wordsFor(spec.getValueTypeId()) << '\n';
    showReference("discipline", spec.getDiscipline());
    showUnits(spec);
    showVersions(engine, spec.getTypeId());
    showTexts(engine, spec.getTypeId());
}

void showParameter(const ParametersEngine& engine, const Parameter& parameter) {
    const Spec& spec = parameter.getSpec();
    printHeading("A parameter: " + parameter.getName());
    line("typeid") << parameter.getTypeId() << '\n';
    line("name") << parameter.getName() << '\n';
    line("description") << parameter.getDescription() << '\n';
    line("sample text") << parameter.getSampleText() << '\n';
    line("read-only") << (parameter.isReadOnly() ? "yes" : "no") << '\n';
    showReference("group", parameter.getGroup());
    line("spec") << wordsFor(spec.getTypeId(), spec.getName()) << '\n';
    showReference("discipline", spec.getDiscipline());
    showUnits(spec);
    line("allowed") << wordsFor(parameter.getRange()) << '\n';
    showVersions(engine, parameter.getTypeId());
    const char* label = "depends on";
    for (const std::string& typeId : engine.getDependencies(parameter.getTypeId())) {
        line(label) << typeId << '\n';
        label = "";
    }
    showTexts(engine, parameter.getTypeId());
}

} // namespace Demo
