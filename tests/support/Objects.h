#pragma once

#include "support/Documents.h"
#include "support/Expectations.h"

#include <Parameters/ParametersEngine.h>

#include <string>
#include <utility>
#include <vector>

namespace Parameters {

using Format = Units::SchemaFormat;
using Version = DataModelVersion;
using Texts = std::vector<std::string>;
using Cases = std::vector<std::pair<std::string, std::string>>;

inline const std::string cannotRepresent = "Cannot represent schema in requested format.";

/// Members of a JSON array, with commas between them.
inline std::string listed(const Texts& members) {
    std::string all;
    for (const std::string& member : members) {
        all += all.empty() ? member : "," + member;
    }
    return all;
}

/// An engine with the disciplines "d" and "e", the domain "o", the major category "m" of "o", its subcategory "s", the
/// units "metre" and "inch" of the dimension "length", and more documents.
inline ParametersEngine fixture(Texts texts = {}) {
    using namespace Documents;
    const std::string references = nameConstant("N") + "," + reference("domain", "o") + "," + reference("parent", "m");
    texts.insert(texts.end(), {discipline("d", "D"), discipline("e", "E"), domain("o", "O"), dimension("length", "L"),
                               unit("metre", "Metre", "length"), unit("inch", "Inch", "length"),
                               shortForm("m", "quovanta.talmo.category:majorCategory-1.0.0", references),
                               shortForm("s", "quovanta.talmo.category:subCategory-1.0.0", references)});
    ParametersEngine engine;
    for (const std::string& text : texts) {
        engine.registerSchema(text);
    }
    engine.resolveSchemas();
    return engine;
}

/// Demands that documents are refused, at once or when they are resolved.
inline void expectRefused(const Cases& cases) {
    for (const auto& [text, message] : cases) {
        EXPECT_THROWS(fixture({text}), ValidationException, message) << text;
    }
}

/// A written text as one that was downgraded.
inline std::string downgraded(const std::string& text, const std::string& from = "3.0.0") {
    return R"({"downgradedFrom":")" + from + R"(",)" + text.substr(1);
}

/// Demands that the texts of an item are these, from V1 to V3, an empty one being refused.
inline void expectTextsOf(const std::string& typeId, const ParametersEngine& engine, const Texts& texts) {
    const auto range = engine.getCompatibleDataModelRange(typeId);
    for (const auto version : {Version::V1, Version::V2, Version::V3}) {
        const std::string& text = texts[static_cast<unsigned>(version)];
        EXPECT_EQ(text.empty(), version < range.first || version > range.second);
        if (text.empty()) {
            EXPECT_THROWS(engine.getSchemaInCompatibleFormat(version, typeId), ValidationException, cannotRepresent);
        } else {
            EXPECT_EQ(engine.getSchemaInCompatibleFormat(version, typeId), text);
        }
    }
    EXPECT_EQ(engine.getSchema(typeId), texts[static_cast<unsigned>(range.second)]);
}

/// How an engine takes in and gives out the objects of a kind.
template <class Object> struct Kind {
    void (ParametersEngine::*add)(const Object&);
    Object (ParametersEngine::*get)(const std::string&) const;

    /// A fixture with the object "x" of a document, which is registered directly.
    [[nodiscard]] ParametersEngine fixtureWith(const std::string& document) const {
        ParametersEngine engine = fixture();
        (engine.*add)((fixture({document}).*get)("x"));
        return engine;
    }

    /// Demands that these are the texts of that object, and that the object of each is written like it.
    void expectTexts(const std::string& document, const Texts& texts) const {
        SCOPED_TRACE(document);
        expectTextsOf("x", fixtureWith(document), texts);
        for (const std::string& text : texts) {
            const std::string again = text.empty() ? text : fixtureWith(text).getSchema("x");
            EXPECT_TRUE(text == again || text == downgraded(again) || text == downgraded(again, "2.0.0")) << again;
        }
    }

    /// The same for a kind whose text in V3, if there is one, differs from the one before.
    void expectTexts(const std::string& document, const std::string& older, const std::string& newer) const {
        const std::string text = newer.empty() ? older : downgraded(older);
        expectTexts(document, {text, text, newer});
    }
};

} // namespace Parameters
