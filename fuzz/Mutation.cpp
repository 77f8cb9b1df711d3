#include "Mutation.h"

#include "Script.h"
#include "support/CatalogDocuments.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <utility>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximumSize);

namespace Fuzz {

namespace {

struct Span {
    std::size_t begin, size;
};

/// Behind the value that begins here, as far as a look at brackets and quotes tells.
std::size_t endOfValue(const std::string& text, std::size_t begin) {
    std::size_t depth = 0;
    for (std::size_t i = begin; i < text.size(); ++i) {
        const char character = text[i];
        if (character == '"') {
            i = std::min(text.find('"', i + 1), text.size() - 1);
        } else if (character == '{' || character == '[') {
            ++depth;
        } else if (character == '}' || character == ']') {
            depth -= depth != 0 ? 1 : 0;
        } else if (std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '-') {
            i = std::min(text.find_first_of(" ,:]}\n", i), text.size()) - 1;
        }
        if (depth == 0) {
            return i + 1;
        }
    }
    return text.size();
}

/// The values in the text, those within others included. Keys count as values, too.
std::vector<Span> valuesOf(const std::string& text) {
    std::vector<Span> values;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isContainer = text[i] == '{' || text[i] == '[';
        if (isContainer || text[i] == '"' || text[i] == '-' || std::isalnum(static_cast<unsigned char>(text[i])) != 0) {
            const std::size_t end = endOfValue(text, i);
            values.push_back({i, end - i});
            i = isContainer ? i : end - 1;
        }
    }
    return values;
}

std::string anyValueOf(const std::string& text, Random& random) {
    const auto values = valuesOf(text);
    const Span span = values[pick(random, values.size())];
    return text.substr(span.begin, span.size);
}

} // namespace

const std::vector<std::string>& catalogTexts() {
    static const auto texts = [] {
        std::vector<std::string> all;
        for (const auto& path : Documents::filesBelow(PARAMETERS_CATALOG)) {
            all.push_back(Documents::onOneLine(Documents::textOf(path)));
        }
        return all;
    }();
    return texts;
}

std::string withBytesMutated(std::string text, std::size_t maximumSize) {
    const std::size_t size = text.size();
    text.resize(std::max(size, maximumSize));
    text.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(text.data()), size, text.size()));
    return text;
}

std::string withValueMutated(std::string text, Random& random) {
    const auto values = valuesOf(text);
    if (values.empty()) {
        return text;
    }
    const Span span = values[pick(random, values.size())];
    switch (pick(random, 4)) {
    case 0: // with a comma, if one follows
        return text.erase(span.begin, span.size + (text.compare(span.begin + span.size, 1, ",") == 0 ? 1 : 0));
    case 1:
        return text.insert(span.begin, text.substr(span.begin, span.size) + ",");
    case 2:
        return text.replace(span.begin, span.size, anyValueOf(text, random));
    default:
        const auto& texts = catalogTexts();
        return text.replace(span.begin, span.size, anyValueOf(texts[pick(random, texts.size())], random));
    }
}

std::size_t putInto(std::uint8_t* data, std::size_t maximumSize, const std::string& text) {
    const std::size_t size = std::min(text.size(), maximumSize);
    std::memcpy(data, text.data(), size);
    return size;
}

} // namespace Fuzz
