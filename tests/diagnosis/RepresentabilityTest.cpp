#include "support/Documents.h"

#include <Parameters/Diagnostics.h>

#include <gmock/gmock.h>

using namespace testing;

using V = Parameters::DataModelVersion;

namespace {

std::string spec(const std::string& typeId, const std::string& value) {
    return Documents::fullForm(typeId, "quovanta.spec:spec-2.0.0", Documents::nameConstant("S"),
                               R"({"id":"value",)" + value + "}");
}

} // namespace

TEST(ReasonNotRepresentable, NamesWhatAVersionCannotSay) {
    Parameters::ParametersEngine engine;
    const std::string parameter = Documents::fullForm(
        "p", "quovanta.parameter:parameter-3.0.0", Documents::nameConstant("P"), R"({"id":"data","typeid":"array"})");
    const std::string unit =
        Documents::fullForm("unit", "quovanta.unit:unit-2.0.0",
                            Documents::nameConstant("U") + "," + Documents::reference("dimension", "dimension"));
    for (const std::string& text :
         {spec("array", R"("context":"array","typeid":"String")"), parameter,
          spec("any", R"("anyOf":[{"typeid":"a"}])"), spec("word", R"("typeid":"word")"),
          spec("typeid", R"("typeid":"a-1.0.0")"), spec("float", R"("typeid":"Float64")"),
          spec("quovanta.spec:spec.string-2.7.0", R"("typeid":"String")"), spec("string", R"("typeid":"String")"), unit,
          Documents::dimension("dimension", "D"), Documents::group("group", "G")}) {
        engine.registerSchema(text);
    }
    engine.resolveSchemas();

    struct Case {
        const char* typeId;
        V version;
        const char* reason;
    };
    const char* const contexts = "Data models before 3.0.0 have neither arrays nor maps as values.";
    const char* const older = "Documents are not rewritten for newer data models than their own.";
    const Case cases[] = {
        {"array", V::V2, contexts},
        {"array", V::V3, ""},
        {"p", V::V1, contexts},
        {"any", V::V1, "Data models before 3.0.0 have no value types that stand for several."},
        {"word", V::V2, "Data models before 3.0.0 do not know the value type."},
        {"typeid", V::V1, "Data model 1.0.0 has no value types but the primitive ones."},
        {"typeid", V::V2, ""},
        {"float", V::V1, "Data model 1.0.0 has no floating-point values without units."},
        {"float", V::V2, ""},
        {"quovanta.spec:spec.string-2.7.0", V::V1, "Data model 1.0.0 has specs of this typeid built in."},
        {"string", V::V1, ""},
        {"unit", V::V2, "The units library has no such form of the document."},
        {"dimension", V::V3, "The units library has no such form of the document."},
        {"group", V::V3, older},
        {"group", V::V1, ""},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(Parameters::reasonNotRepresentable(engine, each.version, each.typeId), each.reason) << each.typeId;
    }
    EXPECT_THROW(static_cast<void>(Parameters::reasonNotRepresentable(engine, V::V1, "absent")),
                 Parameters::UnrecognizedIdentifierException);
}
