#pragma once

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace Tool {

/// Members in their order, as nlohmann::ordered_map keeps them, but found without a search through all where there are
/// many.
template <class Key, class Value, class Ignored, class Allocator>
class IndexedMap : private nlohmann::ordered_map<Key, Value, Ignored, Allocator> {
    using Base = nlohmann::ordered_map<Key, Value, Ignored, Allocator>;

public:
    using Base::begin;
    using Base::cbegin;
    using Base::cend;
    using Base::empty;
    using Base::end;
    using Base::max_size;
    using Base::size;
    using typename Base::const_iterator;
    using typename Base::iterator;
    using typename Base::key_compare;
    using typename Base::key_type;
    using typename Base::mapped_type;
    using typename Base::size_type;
    using typename Base::value_type;

    template <class Text> const_iterator find(const Text& key) const {
        if (size() < fewMembers) {
            return std::find_if(begin(), end(), [&](const value_type& member) { return member.first == key; });
        }
        const auto entry = positions_.find(key);
        return entry == positions_.end() ? end() : begin() + entry->second;
    }

    template <class Text> iterator find(const Text& key) {
        return begin() + (std::as_const(*this).find(key) - cbegin());
    }

    template <class Text> size_type count(const Text& key) const { return find(key) == end() ? 0 : 1; }

    std::pair<iterator, bool> emplace(const Key& key, Value value) {
        if (const auto member = find(key); member != end()) {
            return {member, false};
        }
        this->emplace_back(key, std::move(value));
        index();
        return {std::prev(end()), true};
    }

    Value& operator[](const Key& key) { return emplace(key, Value{}).first->second; }

    iterator erase(iterator member) {
        const auto next = Base::erase(member);
        positions_.clear();
        index();
        return next;
    }

    void clear() {
        Base::clear();
        positions_.clear();
    }

    friend bool operator==(const IndexedMap& left, const IndexedMap& right) {
        return std::equal(left.begin(), left.end(), right.begin(), right.end());
    }

private:
    void index() {
        if (size() >= fewMembers) {
            for (auto next = static_cast<std::ptrdiff_t>(positions_.size()); next < std::distance(begin(), end());
                 ++next) {
                positions_.emplace(begin()[next].first, next);
            }
        }
    }

    static constexpr size_type fewMembers = 32;
    /// Empty while there are few.
    std::map<Key, std::ptrdiff_t, std::less<>> positions_;
};

using Json = nlohmann::basic_json<IndexedMap>;

/// Parses a document; the result is discarded if the text is not JSON.
Json parseDocument(std::string_view text);

/// The string at a key; empty if there is none.
std::string textAt(const Json& object, const char* key);

/// Indents a JSON text. Changes nothing but blanks.
std::string prettyPrinted(std::string_view text);

/// What is made to be printed.
using OutputJson = nlohmann::ordered_json;

/// Its text, indented and safe for terminals. What is no UTF-8, such as in the name of a file, is replaced.
std::string dumped(const OutputJson& json);

} // namespace Tool
