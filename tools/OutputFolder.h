#pragma once

#include "DocumentFiles.h"
#include "OutputFiles.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Tool {

/// Writes documents to files of a folder.
class OutputFolder {
public:
    OutputFolder(std::filesystem::path folder, bool overwrite);

    /// Adds a document in a file that is named after its typeid, and that no other gets.
    void add(const std::string& typeId, std::string text);

    /// Adds a document where it lay in the folder that it was read from: a line of a file of lines, or a file.
    ///
    /// @throws std::runtime_error  documents of another file lay there.
    void addInPlace(const Origin& origin, std::string text);

    /// Adds a document as a line of a file.
    void addLine(const std::filesystem::path& file, std::string_view text);

    /// Writes all documents, or none if a file is in the way.
    ///
    /// @throws std::runtime_error  as writeFiles().
    void write() const;

    [[nodiscard]] std::vector<std::string> files() const;
    /// The number of documents.
    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] std::string name() const { return folder_.string(); }

private:
    std::string& textAt(const std::filesystem::path& file);

    std::filesystem::path folder_;
    bool overwrite_;
    std::vector<OutputFile> outputs_;
    std::size_t size_ = 0;
    /// Of files with several documents, the place in outputs_.
    std::map<std::filesystem::path, std::size_t> positions_;
    /// Whose documents lie in a file.
    std::map<std::filesystem::path, const SourceFile*> sources_;
    /// Of each stem that has been used.
    std::map<std::string, std::size_t> lastNumbers_;
    std::set<std::string> usedNames_;
};

} // namespace Tool
