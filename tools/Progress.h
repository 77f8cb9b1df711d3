#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace Tool {

/// A progress bar on standard error. Draws only on a terminal and only if the work takes longer than a second, and
/// erases itself at the end.
class Progress {
public:
    Progress(std::string label, std::size_t total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void advance(std::size_t steps = 1);

private:
    void draw() const;

    std::string label_;
    std::size_t total_;
    std::size_t done_ = 0;
    bool isDrawn_ = false;
    std::chrono::steady_clock::time_point nextDrawing_;
};

} // namespace Tool
