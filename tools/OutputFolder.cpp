#include "OutputFolder.h"

#include "Text.h"

#include <fmt/core.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <system_error>
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

[[noreturn]] void raiseFileError(const fs::path& file) {
    const int error = errno;
    throw std::runtime_error(
        error == EEXIST ? fmt::format("{} already exists; --force overwrites it.", printable(file.string()))
                        : fmt::format("{} cannot be written: {}.", printable(file.string()), std::strerror(error)));
}

} // namespace

void writeFile(const fs::path& file, const std::string& text, bool overwrite) {
    if (file.has_parent_path()) {
        std::error_code error;
        fs::create_directories(file.parent_path(), error);
        if (error) {
            throw std::runtime_error(
                fmt::format("Cannot create folder {}: {}.", printable(file.parent_path().string()), error.message()));
        }
    }
    // Exclusive, so that a file created in the meantime is not overwritten.
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(file.c_str(), overwrite ? "wb" : "wbx"),
                                                           &std::fclose);
    if (stream == nullptr || std::fwrite(text.data(), 1, text.size(), stream.get()) != text.size() ||
        std::fclose(stream.release()) != 0) {
        raiseFileError(file);
    }
}

OutputFolder::OutputFolder(fs::path folder, bool overwrite) : folder_(std::move(folder)), overwrite_(overwrite) {}

void OutputFolder::add(const std::string& typeId, std::string text) {
    const std::string stem = stemOf(typeId);
    std::string name = stem;
    // Some file systems ignore case.
    for (int number = 2; !usedNames_.insert(lowerCase(name)).second; ++number) {
        name = fmt::format("{}_{}", stem, number);
    }
    if (text.back() != '\n') {
        text += '\n';
    }
    outputs_.push_back({folder_ / (name + ".json"), std::move(text)});
}

void OutputFolder::write() const {
    for (const Output& output : outputs_) {
        std::error_code ignored;
        if (!overwrite_ && fs::exists(fs::symlink_status(output.file, ignored))) {
            errno = EEXIST;
            raiseFileError(output.file);
        }
    }
    for (const Output& output : outputs_) {
        writeFile(output.file, output.text, overwrite_);
    }
}

std::vector<std::string> OutputFolder::files() const {
    std::vector<std::string> files;
    for (const Output& output : outputs_) {
        files.push_back(output.file.string());
    }
    return files;
}

} // namespace Tool
