#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

namespace Parameters {

/// Joins the parts of a message.
inline std::string concat(std::initializer_list<std::string_view> parts) {
    std::size_t size = 0;
    for (const std::string_view part : parts) {
        size += part.size();
    }
    std::string text;
    text.reserve(size);
    for (const std::string_view part : parts) {
        text += part;
    }
    return text;
}

/// Whether a view is one of characters of the text.
inline bool isPartOf(std::string_view view, std::string_view text) noexcept {
    // Unlike the operator, this orders all pointers.
    const std::less_equal<> isNotBehind;
    return isNotBehind(text.data(), view.data()) && isNotBehind(view.data() + view.size(), text.data() + text.size());
}

} // namespace Parameters
