#include "support/ParameterDocuments.h"

namespace Parameters {
namespace {

template <class MakeRange>
void expectWritten(const std::string& form, const std::string& spec, const std::string& name, const std::string& value,
                   bool isInlineInside, MakeRange makeRange) {
    const std::string base = "quovanta.range:range." + name + "-";
    struct Row {
        std::string typeId, olderTypeId;
        bool isInline;
    };
    const Row rows[] = {
        {base + "1.0.0", base + "1.0.0", true}, {base + "1.5.0", base + "1.5.0", true},
        {base + "2.0.0", base + "1.0.0", true}, {base + "10.0.0", base + "1.0.0", true},
        {base, base + "1.0.0", true},           {"acme." + base + "2.0.0", "acme." + base + "2.0.0", isInlineInside}};
    const ParametersEngine engine = parameterFixture();
    for (const auto& [typeId, olderTypeId, isInline] : rows) {
        const Parameter parameter("x", "N", engine.getSpec(spec), engine.getGroup("quovanta.parameter:group-2.0.0"),
                                  makeRange(typeId), "", "", false);
        const std::string begin = R"(,{"id":"range","typedValue":{"typeid":")";
        const std::string end = isInline ? R"(","value":)" + value + "}}" : R"("}})";
        EXPECT_EQ(engine.getSchemaInCompatibleFormat(Version::V2, parameter),
                  downgraded(Documents::older(".ranged." + form + "-1.0.0", begin + olderTypeId + end, spec)));
        EXPECT_EQ(engine.getSchema(parameter),
                  Documents::newer(".ranged." + form + "-2.0.0", begin + typeId + end, spec));
    }
}

TEST(RangeConstantTest, IsWrittenByHowTheTypeIdOfTheRangeBegins) {
    constexpr auto full = Format::LumarDataSchema;
    using TypeId = const std::string&;
    // A boundary that does not bind is written, too.
    expectWritten("int64", "Int64", "int64.bounded.static",
                  R"({"fromBottom":true,"bottomBoundary":1,"fromTop":false,"topBoundary":7})", false,
                  [](TypeId typeId) { return IntRange(typeId, true, 1, false, 7, full); });
    expectWritten("float64", "Float64", "float64.bounded.static",
                  R"({"fromBottom":false,"bottomBoundary":1.0,"fromTop":true,"topBoundary":0.5})", false,
                  [](TypeId typeId) { return FloatRange(typeId, false, 1, true, 0.5, full); });
    expectWritten("string", "String", "string.set.static", R"({"allowedValues":["b","a"]})", false, [](TypeId typeId) {
        return StringRange(typeId, SetStringRangeComponent({"b", "a"}), full);
    });
    expectWritten("string", "String", "string.regex", R"({"regex":"a+"})", true,
                  [](TypeId typeId) { return StringRange(typeId, RegexStringRangeComponent("a+"), full); });
}

} // namespace
} // namespace Parameters
