#pragma once

#include "OutputFiles.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Tool {

/// Writes documents to a folder, one file each, named after their typeids.
class OutputFolder {
public:
    OutputFolder(std::filesystem::path folder, bool overwrite);

    /// Chooses a file that no other call gets.
    void add(const std::string& typeId, std::string text);

    /// Writes all documents, or none if a file is in the way.
    ///
    /// @throws std::runtime_error  as writeFiles().
    void write() const;

    [[nodiscard]] std::vector<std::string> files() const;
    [[nodiscard]] std::size_t size() const { return outputs_.size(); }
    [[nodiscard]] std::string name() const { return folder_.string(); }

private:
    std::filesystem::path folder_;
    bool overwrite_;
    std::vector<OutputFile> outputs_;
    /// Of each stem that has been used.
    std::map<std::string, std::size_t> lastNumbers_;
    std::set<std::string> usedNames_;
};

} // namespace Tool
