#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace Documents {

/// The file as it stands.
inline std::string textOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

/// A JSON text without its line ends and what is behind them up to the next value.
inline std::string onOneLine(const std::string& text) {
    std::string all;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        all += line.substr(std::min(line.find_first_not_of(' '), line.size()));
    }
    return all;
}

/// All files below a folder, in the order of their paths; a file stands for itself.
inline std::vector<std::filesystem::path> filesBelow(const std::filesystem::path& root) {
    if (!std::filesystem::is_directory(root)) {
        return {root};
    }
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace Documents
