#include "Progress.h"

#include <fmt/core.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace Tool {

namespace {

constexpr std::size_t barWidth = 40;

} // namespace

Progress::Progress(std::string label, std::size_t total)
    : label_(std::move(label)), total_(std::max<std::size_t>(total, 1)),
      nextDrawing_(isatty(STDERR_FILENO) != 0 ? std::chrono::steady_clock::now() + std::chrono::seconds(1)
                                              : std::chrono::steady_clock::time_point::max()) {}

Progress::~Progress() {
    if (isDrawn_) {
        static_cast<void>(std::fputs("\r\x1b[K", stderr));
    }
}

void Progress::advance(std::size_t steps) {
    done_ = std::min(done_ + steps, total_);
    const auto now = std::chrono::steady_clock::now();
    if (now >= nextDrawing_) {
        nextDrawing_ = now + std::chrono::milliseconds(100);
        isDrawn_ = true;
        draw();
    }
}

void Progress::draw() const {
    const std::size_t filled = barWidth * done_ / total_;
    fmt::print(stderr, "\r\x1b[K{} [{:=<{}}{:{}}] {} of {}", label_, "", filled, "", barWidth - filled, done_, total_);
    static_cast<void>(std::fflush(stderr));
}

} // namespace Tool
