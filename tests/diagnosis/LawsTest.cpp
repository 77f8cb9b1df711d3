#include "support/CatalogDocuments.h"

#include <Parameters/Diagnostics.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <random>
#include <set>

using namespace Parameters;
using namespace testing;

namespace {

using Texts = std::vector<std::string>;

/// The pieces of a JSON text, blanks left out.
Texts tokensOf(const std::string& text) {
    Texts tokens;
    for (std::size_t i = 0; i < text.size();) {
        std::size_t end = i + 1;
        if (text[i] == '"') {
            while (text[end] != '"') {
                end += text[end] == '\\' ? 2 : 1;
            }
            ++end;
        } else if (std::string("{}[],: \n").find(text[i]) == std::string::npos) {
            end = text.find_first_of("{}[],: \n", i);
        }
        if (text[i] != ' ' && text[i] != '\n') {
            tokens.push_back(text.substr(i, end - i));
        }
        i = end;
    }
    return tokens;
}

/// Documents of each kind and form.
Texts soundDocuments() {
    Texts texts;
    for (const auto& path : Documents::filesBelow(PARAMETERS_CATALOG)) {
        texts.push_back(Documents::onOneLine(Documents::textOf(path)));
    }
    return texts;
}

/// Breaks catalogs at random, mostly so that they are JSON still.
class Vandal {
public:
    explicit Vandal(unsigned seed) : random_(seed) {
        for (const std::string& text : soundDocuments()) {
            documents_.push_back(tokensOf(text));
            const Texts& tokens = documents_.back();
            // The typeid stands behind its key and a colon.
            definers_.emplace(*(std::find(tokens.begin(), tokens.end(), "\"typeid\"") + 2), documents_.size() - 1);
            for (const std::string& token : tokens) {
                if (token.size() > 1) {
                    words_.push_back(token);
                }
            }
        }
    }

    std::size_t number(std::size_t bound) { return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_); }

    /// A document and what it refers to, as far as that is in the catalog, with some faults.
    Texts catalog() {
        std::set<std::size_t> taken;
        addClosure(number(documents_.size()), taken);
        std::vector<Texts> chosen;
        for (const std::size_t position : taken) {
            chosen.push_back(documents_[position]);
        }
        for (std::size_t faults = number(4); faults != 0; --faults) {
            breakOne(chosen);
        }
        std::shuffle(chosen.begin(), chosen.end(), random_);
        Texts texts;
        for (const Texts& tokens : chosen) {
            std::string text;
            for (const std::string& token : tokens) {
                text += token;
            }
            texts.push_back(std::move(text));
        }
        return texts;
    }

private:
    void addClosure(std::size_t position, std::set<std::size_t>& taken) {
        if (!taken.insert(position).second) {
            return;
        }
        for (const std::string& token : documents_[position]) {
            const auto definer = definers_.find(token);
            if (definer != definers_.end()) {
                addClosure(definer->second, taken);
            }
        }
    }

    void breakOne(std::vector<Texts>& chosen) {
        Texts& tokens = chosen[number(chosen.size())];
        const std::size_t at = number(tokens.size());
        const auto place = tokens.begin() + static_cast<std::ptrdiff_t>(at);
        switch (number(8)) {
        case 0:
            tokens.erase(place);
            break;
        case 1:
            chosen.push_back(tokens);
            break;
        case 2: {
            static const std::array others = {"0",  "-1.5", "true", "false", "null",
                                              "{}", "[]",   "\"\"", "[{}]",  "1e400"};
            *place = others[number(others.size())];
            break;
        }
        case 3: {
            // A member or an element given twice.
            const auto end = std::find(place, tokens.end(), ",");
            const Texts piece(place, end);
            if (end != tokens.end()) {
                tokens.insert(end + 1, piece.begin(), piece.end());
            }
            break;
        }
        default:
            // Mostly a word for a word: a constant renamed, a reference led elsewhere, another base.
            if (place->size() > 1) {
                *place = number(4) == 0 ? place->substr(0, place->size() - 2) + "x\"" : words_[number(words_.size())];
            }
        }
    }

    std::mt19937 random_;
    std::vector<Texts> documents_;
    /// The positions of documents by the tokens of their typeids.
    std::map<std::string, std::size_t> definers_;
    Texts words_;
};

std::string messageOf(const std::function<void()>& action) {
    try {
        action();
        return {};
    } catch (const ValidationException& exception) {
        return exception.what();
    }
}

/// What registering the texts in their order and resolving complains of first.
std::string complaintAbout(ParametersEngine engine, const Texts& texts) {
    return messageOf([&] {
        for (const std::string& text : texts) {
            engine.registerSchema(text);
        }
        engine.resolveSchemas();
    });
}

std::string listed(const Texts& texts, const Diagnosis& diagnosis) {
    std::string list;
    for (const std::string& text : texts) {
        list += text + "\n";
    }
    for (const Diagnostic& diagnostic : diagnosis.diagnostics) {
        list +=
            std::to_string(diagnostic.document) + " " + std::string(diagnostic.rule) + " " + diagnostic.message + "\n";
    }
    return list;
}

bool isFault(const Diagnostic& diagnostic) { return diagnostic.severity != Severity::Warning; }

/// An engine that knows some of the texts, finished, pending or imported, and the others.
ParametersEngine knownOf(Vandal& vandal, Texts& texts) {
    ParametersEngine known;
    Texts rest;
    const std::size_t way = vandal.number(4);
    for (std::string& text : texts) {
        const bool isKnown =
            way != 0 && vandal.number(2) == 0 && messageOf([&] { known.registerSchema(text); }).empty();
        if (!isKnown) {
            rest.push_back(std::move(text));
        }
    }
    texts = std::move(rest);
    if (way > 1 && !messageOf([&] { known.resolveSchemas(); }).empty()) {
        return {};
    }
    // Pending faults of the known engine are its own.
    return complaintAbout(known, {}).empty() ? known : ParametersEngine();
}

} // namespace

TEST(Diagnosis, FindsErrorsExactlyWhereRegisteringOrResolvingRefuses) {
    Vandal vandal(19);
    std::size_t sound = 0;
    for (int run = 0; run < 3000; ++run) {
        Texts texts = vandal.catalog();
        const ParametersEngine known = knownOf(vandal, texts);
        const Diagnosis diagnosis = diagnose({texts.begin(), texts.end()}, known);
        const auto& found = diagnosis.diagnostics;
        const std::string complaint = complaintAbout(known, texts);
        ASSERT_EQ(std::any_of(found.begin(), found.end(), isFault), !complaint.empty())
            << run << ": " << complaint << "\n"
            << listed(texts, diagnosis);
        sound += complaint.empty() ? 1 : 0;
    }
    EXPECT_GT(sound, 300U);
    EXPECT_LT(sound, 2700U);
}

TEST(Diagnosis, BeginsWithWhatRegisteringSays) {
    // What registering does not see.
    const std::set<std::string_view> onlyResolved = {"missing-reference", "wrong-kind", "circular-reference",
                                                     "missing-property"};
    Vandal vandal(23);
    std::size_t refused = 0;
    for (int run = 0; run < 3000; ++run) {
        Texts texts = vandal.catalog();
        const std::string text = texts[vandal.number(texts.size())];
        const std::string complaint = messageOf([&] { ParametersEngine().registerSchema(text); });
        const Diagnosis diagnosis = diagnose({text});
        const auto& found = diagnosis.diagnostics;
        if (complaint.empty()) {
            for (const Diagnostic& diagnostic : found) {
                ASSERT_TRUE(diagnostic.severity == Severity::Warning || onlyResolved.count(diagnostic.rule) != 0)
                    << run << "\n"
                    << listed({text}, diagnosis);
            }
        } else {
            ++refused;
            ASSERT_FALSE(found.empty()) << run << ": " << complaint << "\n" << text;
            ASSERT_EQ(found.front().message, complaint) << run << "\n" << listed({text}, diagnosis);
            ASSERT_EQ(found.front().severity, Severity::Error);
        }
        for (const Diagnostic& diagnostic : found) {
            ASSERT_LE(diagnostic.offset + diagnostic.length, text.size()) << text;
        }
    }
    EXPECT_GT(refused, 300U);
}
