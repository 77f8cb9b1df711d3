#include "diagnosis/Suggestions.h"

#include <Parameters/Diagnostics.h>

#include <algorithm>
#include <array>
#include <utility>

namespace Parameters {

namespace {

/// What differs over a longer stretch is no slip of the pen, and takes long to compare.
constexpr std::size_t longestWord = 64;

std::size_t lengthOfCommonEnd(std::string_view left, std::string_view right) {
    std::size_t length = 0;
    while (length < std::min(left.size(), right.size()) &&
           left[left.size() - 1 - length] == right[right.size() - 1 - length]) {
        ++length;
    }
    return length;
}

std::size_t lengthOfCommonBeginning(std::string_view left, std::string_view right) {
    std::size_t length = 0;
    while (length < std::min(left.size(), right.size()) && left[length] == right[length]) {
        ++length;
    }
    return length;
}

} // namespace

std::size_t editDistance(std::string_view left, std::string_view right, std::size_t most) {
    const std::size_t beginning = lengthOfCommonBeginning(left, right);
    left.remove_prefix(beginning);
    right.remove_prefix(beginning);
    const std::size_t end = lengthOfCommonEnd(left, right);
    left.remove_suffix(end);
    right.remove_suffix(end);
    const std::size_t difference = std::max(left.size(), right.size()) - std::min(left.size(), right.size());
    if (difference > most || std::max(left.size(), right.size()) > longestWord) {
        return most + 1;
    }
    // Rows of the table of distances between all beginnings: that of the character before the last, the last, the next.
    std::array<std::array<std::size_t, longestWord + 1>, 3> rows{};
    auto* beforeLast = rows.data();
    auto* last = beforeLast + 1;
    auto* next = last + 1;
    for (std::size_t j = 0; j <= right.size(); ++j) {
        (*last)[j] = j;
    }
    for (std::size_t i = 1; i <= left.size(); ++i) {
        (*next)[0] = i;
        std::size_t least = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            const bool isEqual = left[i - 1] == right[j - 1];
            std::size_t& distance = (*next)[j];
            distance = std::min({(*last)[j] + 1, (*next)[j - 1] + 1, (*last)[j - 1] + (isEqual ? 0 : 1)});
            if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
                distance = std::min(distance, (*beforeLast)[j - 2] + 1);
            }
            least = std::min(least, distance);
        }
        if (least > most) {
            return most + 1;
        }
        beforeLast = std::exchange(last, std::exchange(next, beforeLast));
    }
    return std::min((*last)[right.size()], most + 1);
}

std::string nearestWord(std::string_view word, const std::vector<std::string_view>& candidates) {
    return Suggester().nearest(word, candidates);
}

std::string Suggester::nearest(std::string_view word, const std::vector<std::string_view>& candidates) {
    // Of a short word nearly all would have to be replaced, of a long one a part is enough to mean something else.
    std::size_t most = std::clamp<std::size_t>(word.size() / 4, 1, 4);
    std::string_view found;
    for (const std::string_view candidate : candidates) {
        if (comparisonsLeft_ == 0) {
            break;
        }
        --comparisonsLeft_;
        if (candidate == word) {
            continue;
        }
        const std::size_t distance = editDistance(word, candidate, most);
        if (distance <= most && distance < std::max(word.size(), candidate.size())) {
            found = candidate;
            if (distance <= 1) {
                break;
            }
            most = distance - 1;
        }
    }
    return std::string(found);
}

} // namespace Parameters
