#include "Mutation.h"
#include "Script.h"
#include "support/CatalogDocuments.h"
#include "support/FinishedObjects.h"

#include <algorithm>
#include <iterator>

using namespace Parameters;
using namespace Fuzz;

namespace {

/// An item of the catalog with what it depends on, in any order.
std::string closureOf(const std::string& document, std::size_t engine, Random& random) {
    static const ParametersEngine catalog = Documents::finishedCatalog(PARAMETERS_CATALOG);
    std::vector<std::string> lines{line(Operation::registerSchema, engine, 0, document)};
    const auto missing = ParametersEngine().registerSchema(document);
    for (const auto* typeIds : {&missing.first, &missing.second}) {
        for (const std::string& typeId : *typeIds) {
            lines.push_back(
                line(Operation::registerSchema, engine, 0, Documents::onOneLine(catalog.getSchema(typeId))));
            for (const std::string& other : catalog.getDependencies(typeId)) {
                lines.push_back(
                    line(Operation::registerSchema, engine, 0, Documents::onOneLine(catalog.getSchema(other))));
            }
        }
    }
    std::shuffle(lines.begin(), lines.end(), random);
    std::string script;
    for (const std::string& text : lines) {
        script += text;
    }
    return script + line(Operation::resolve, engine);
}

/// A typeid that a line of the script mentions behind this key, or none.
std::string typeIdIn(const std::string& text) {
    static const std::string key = R"("typeid":")";
    const std::size_t found = text.find(key);
    const std::size_t begin = found + key.size();
    return found == std::string::npos ? "" : text.substr(begin, text.find('"', begin) - begin);
}

/// Operations that carry on with what the line is about, on any engines.
std::string followUpOf(const std::string& text, Random& random) {
    const char operation = Operation::all[pick(random, Operation::all.size())];
    const bool takesTypeId = operation == Operation::registerObject || operation == Operation::writeTexts;
    const std::size_t target = pick(random, engineCount), source = pick(random, engineCount);
    const std::string argument = text.substr(std::min<std::size_t>(text.size(), 3));
    const std::string typeId = typeIdIn(argument);
    return line(operation, target, source, takesTypeId && !typeId.empty() ? typeId : argument);
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximumSize,
                                               unsigned seed) {
    Random random(seed);
    const std::string script(reinterpret_cast<const char*>(data), size);
    auto lines = linesOf(script);
    const auto& texts = catalogTexts();
    lines.emplace_back(line(Operation::registerSchema, 0, 0, texts[pick(random, texts.size())]));
    lines.back().pop_back();
    const std::size_t index = pick(random, lines.size()), other = pick(random, lines.size());
    const bool isLong = lines[index].size() > 3;
    switch (pick(random, 8)) {
    case 0:
        return putInto(data, maximumSize, withBytesMutated(script, maximumSize));
    case 1:
        lines[index] = closureOf(texts[pick(random, texts.size())], pick(random, engineCount), random);
        break;
    case 2:
        lines[index] += "\n" + followUpOf(lines[index], random);
        break;
    case 3:
        lines[index] += "\n" + followUpOf(lines[other], random);
        break;
    case 4:
        std::swap(lines[index], lines[other]);
        break;
    case 5:
        lines[index].clear();
        break;
    case 6:
        lines[index] = withBytesMutated(lines[index], lines[index].size() + 64);
        break;
    default:
        lines[index] = lines[index].substr(0, 3) + (isLong ? withValueMutated(lines[index].substr(3), random) : "");
    }
    if (index != lines.size() - 1 && other != lines.size() - 1) {
        lines.pop_back();
    }
    std::string mutated;
    for (const std::string& text : lines) {
        if (!text.empty()) {
            mutated += text + (text.back() == '\n' ? "" : "\n");
        }
    }
    return putInto(data, maximumSize, mutated);
}
