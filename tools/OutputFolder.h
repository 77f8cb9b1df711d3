#pragma once

#include <cstddef>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace Tool {

/// Writes a whole file, and creates its folder if needed.
///
/// @throws std::runtime_error  the file exists and must not be overwritten, or cannot be written.
void writeFile(const std::filesystem::path& file, const std::string& text, bool overwrite);

/// Writes documents to a folder, one file each, named after their typeids.
class OutputFolder {
public:
    OutputFolder(std::filesystem::path folder, bool overwrite);

    /// Chooses a file that no other call gets.
    void add(const std::string& typeId, std::string text);

    /// Writes all documents, or none if a file is in the way.
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
