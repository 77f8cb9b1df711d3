#pragma once

#include "support/FinishedObjects.h"
#include "support/Objects.h"

namespace Documents {

/// The property that names a spec, if there is one.
inline std::string data(const std::string& spec) {
    return spec.empty() ? "" : R"({"id":"data","typeid":")" + spec + R"("})";
}

/// A parameter "x" named "N" without a "schemaSpecification". Its base is that of all parameters with the form behind
/// it; the other constants have a comma before them. With a spec it has a "data" property.
inline std::string older(const std::string& form, const std::string& constants = "", const std::string& spec = "") {
    return shortForm("x", "quovanta.parameter:parameter" + form, nameConstant("N") + constants, data(spec));
}

/// The same with a "schemaSpecification".
inline std::string newer(const std::string& form, const std::string& constants = "", const std::string& spec = "") {
    const std::string name = R"({"id":"name","typeid":"String","value":"N"})";
    return fullForm("x", "quovanta.parameter:parameter" + form, name + constants, data(spec));
}

/// A parameter that refers to objects of three kinds and, through the spec "distance" of the fixture, to units.
inline std::string ranged(const std::string& group = "group", const std::string& spec = "distance") {
    return older(".ranged.int64-1", "," + reference("range", "ints") + "," + reference("group", group), spec);
}

} // namespace Documents

namespace Parameters {

/// The fixture with more that a parameter can refer to. The typeids tell what it is, those of most specs being their
/// value types.
inline ParametersEngine parameterFixture() {
    constexpr auto old = Format::PropertySets;
    constexpr auto full = Format::LumarDataSchema;
    const std::string constants = Documents::nameConstant("N") + "," + Documents::reference("storageUnit", "metre");
    ParametersEngine engine =
        fixture({Documents::shortForm("distance", "quovanta.spec:spec.measurable-2.1.0", constants)});
    engine.registerGroup(Taxon("group", "Group", old));
    engine.registerCategory(Category("major", "Major", MajorCategoryComponent(engine.getDomain("o"), {}), full));
    engine.registerEnumeration(Enumeration("choices", {{"a", 1}}, old));
    engine.registerFloatRange(FloatRange("floats", true, 1.5, false, 0, old));
    engine.registerIntRange(IntRange("ints", true, 1, false, 0, full));
    const auto addSpec = [&](const std::string& typeId, const ValueTypeId& valueType, Format format) {
        engine.registerSpec(Spec(typeId, "Spec", valueType, {}, format, engine.getDiscipline("d")));
    };
    for (const std::string type : {"Bool", "Int64", "Float64", "String", "Thing", "quovanta.data:reference-1.0.0"}) {
        addSpec(type, type, full);
    }
    addSpec("old", "Bool", old);
    addSpec("quovanta.spec:spec.bool-1.0.1", LegacyPrimitiveType::Boolean, old);
    addSpec("choice", LegacyPrimitiveType::General, old);
    addSpec("quovanta.talmo.spec:familyType-1.5.0", LegacyPrimitiveType::Reference, old);
    addSpec("quovanta.talmo.spec:familyType-2.0.0", "quovanta.data:reference-1.0.0", full);
    return engine;
}

} // namespace Parameters
