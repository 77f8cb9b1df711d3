#include "OutputFolder.h"

#include "Formatting.h"
#include "Text.h"

#include <fmt/core.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace Tool {

namespace fs = std::filesystem;

namespace {

/// Leaves room for the suffixes within the 255 bytes that file systems allow.
constexpr std::size_t longestStem = 200;

/// A typeid with "_" for characters that some file system or shell does not accept.
std::string stemOf(std::string_view typeId) {
    static constexpr std::string_view harmless = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789.-_";
    std::string stem(typeId.substr(0, longestStem));
    std::replace_if(
        stem.begin(), stem.end(), [](char character) { return harmless.find(character) == std::string_view::npos; },
        '_');
    if (stem.front() == '.' || stem.front() == '-') {
        stem.front() = '_';
    }
    return stem;
}

std::string withLineFeed(std::string text) {
    if (text.back() != '\n') {
        text += '\n';
    }
    return text;
}

} // namespace

OutputFolder::OutputFolder(fs::path folder, bool overwrite) : folder_(std::move(folder)), overwrite_(overwrite) {}

void OutputFolder::add(const std::string& typeId, std::string text) {
    const std::string stem = stemOf(typeId);
    // Some file systems ignore case.
    std::size_t& number = lastNumbers_.try_emplace(lowerCase(stem), 1).first->second;
    std::string name = stem;
    while (!usedNames_.insert(lowerCase(name)).second) {
        name = fmt::format("{}_{}", stem, ++number);
    }
    textAt(folder_ / (name + ".json")) = withLineFeed(std::move(text));
    ++size_;
}

void OutputFolder::addInPlace(const Origin& origin, std::string text) {
    const fs::path file = folder_ / origin.file->place;
    const auto [source, isNew] = sources_.try_emplace(file, origin.file);
    if (source->second != origin.file) {
        throw std::runtime_error(fmt::format("{} and {} would both be written to {}; --flat names files after typeids.",
                                             printable(source->second->name), printable(origin.file->name),
                                             printable(file.string())));
    }
    textAt(file) += withLineFeed(std::move(text));
    ++size_;
}

void OutputFolder::addLine(const fs::path& file, std::string_view text) {
    textAt(file) += text.find_first_of("\r\n") == std::string_view::npos ? withLineFeed(std::string(text))
                                                                         : formattedAsLine(text) + '\n';
    ++size_;
}

std::string& OutputFolder::textAt(const fs::path& file) {
    const auto [position, isNew] = positions_.try_emplace(file, outputs_.size());
    if (isNew) {
        outputs_.push_back({file, {}});
    }
    return outputs_[position->second].text;
}

void OutputFolder::write() const { writeFiles(outputs_, overwrite_); }

std::vector<std::string> OutputFolder::files() const {
    std::vector<std::string> files;
    for (const OutputFile& output : outputs_) {
        files.push_back(output.path.string());
    }
    return files;
}

} // namespace Tool
