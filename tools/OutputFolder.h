#pragma once

#include <cstddef>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace Tool {

/// Writes a file as a whole, making its folder if need be.
///
/// @throws std::runtime_error  the file is there and not to be overwritten, or it cannot be written.
void writeFile(const std::filesystem::path& file, const std::string& text, bool overwrite);

/// Writes documents into a folder, a file each, under names made of their typeids.
class OutputFolder {
public:
    OutputFolder(std::filesystem::path folder, bool overwrite);

    /// Chooses the file for a document, another one for each call.
    void add(const std::string& typeId, std::string text);

    /// Writes all that has been added, or nothing if a file is in the way.
    ///
    /// @throws std::runtime_error  as writeFile().
    void write() const;

    [[nodiscard]] std::vector<std::string> files() const;
    [[nodiscard]] std::size_t size() const { return outputs_.size(); }
    [[nodiscard]] std::string name() const { return folder_.string(); }

private:
    struct Output {
        std::filesystem::path file;
        std::string text;
    };

    std::filesystem::path folder_;
    bool overwrite_;
    std::vector<Output> outputs_;
    std::set<std::string> usedNames_;
};

} // namespace Tool
