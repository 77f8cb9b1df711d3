#pragma once

#include <Parameters/ParametersEngine.h>

#include <array>
#include <string>

namespace Demo {

inline constexpr std::array<Parameters::DataModelVersion, 3> allVersions = {
    Parameters::DataModelVersion::V3, Parameters::DataModelVersion::V2, Parameters::DataModelVersion::V1};

/// Begins a section of the output.
void printHeading(const std::string& heading);

/// "3.0.0" and its like.
const char* wordsFor(Parameters::DataModelVersion version);

/// What a value is.
std::string wordsFor(const Parameters::ValueTypeId& valueType);

/// Which values are allowed.
std::string wordsFor(const Parameters::ParameterRange& range);

/// A typeid with the name that it stands for.
std::string wordsFor(const std::string& typeId, const std::string& name);

} // namespace Demo
