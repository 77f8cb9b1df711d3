#include "Formatting.h"

#include "Text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace Tool {

namespace {

/// Longest line, but for strings that are longer.
constexpr std::size_t widestLine = 100;

/// A value, with its strings and numbers as they are written.
struct Node {
    struct Member;

    /// '{', '[', or of another value any character.
    char opening = ' ';
    /// Of a value that is neither an object nor an array.
    std::string_view text;
    std::vector<Member> members;
    /// On a single line.
    std::size_t width = 0;
    /// 0 for one without members, otherwise one more than the highest of these.
    std::size_t height = 0;
};

/// An element of an array has no name.
struct Node::Member {
    /// With its quotation marks.
    std::string_view name;
    Node value;
};

/// What an object stands for in a document.
enum class Role { Document, Entry, TypedValue, Value, Other };

/// The order of names in which the library writes them.
struct Order {
    Role role;
    std::array<std::string_view, 9> names;
};

constexpr std::array orders = {
    Order{Role::Document,
          {R"("downgradedFrom")", R"("schemaSpecification")", R"("schemaType")", R"("typeid")", R"("inherits")",
           R"("sealed")", R"("constants")", R"("properties")", R"("enum")"}},
    Order{Role::Entry,
          {R"("id")", R"("context")", R"("typeid")", R"("value")", R"("typedValue")", R"("anyOf")", R"("oneOf")"}},
    Order{Role::TypedValue, {R"("typeid")", R"("value")"}},
    Order{Role::Value, {R"("fromBottom")", R"("bottomBoundary")", R"("fromTop")", R"("topBoundary")"}},
};

/// Constants whose type names follow their values.
constexpr std::array valueFirst = {R"("bottomBoundary")", R"("topBoundary")", R"("allowedValues")"};

/// What the value of a member stands for. That of an array goes for its elements.
Role roleOf(Role parent, std::string_view name) {
    if (parent == Role::Document) {
        const bool isSection = name == R"("constants")" || name == R"("properties")" || name == R"("enum")";
        return isSection ? Role::Entry : Role::Other;
    }
    if (name == R"("typedValue")" && (parent == Role::Entry || parent == Role::TypedValue)) {
        return Role::TypedValue;
    }
    return name == R"("value")" && parent == Role::TypedValue ? Role::Value : Role::Other;
}

bool isConstantWithValueFirst(const Node& entry) {
    return std::any_of(entry.members.begin(), entry.members.end(), [](const Node::Member& member) {
        return member.name == R"("id")" &&
               std::find(valueFirst.begin(), valueFirst.end(), member.value.text) != valueFirst.end();
    });
}

void sortMembers(Node& object, Role role) {
    const auto* order =
        std::find_if(orders.begin(), orders.end(), [&](const Order& each) { return each.role == role; });
    // Behind an escape may be a name that stands there twice.
    const bool isEscaped = std::any_of(object.members.begin(), object.members.end(), [](const Node::Member& member) {
        return member.name.find('\\') != std::string_view::npos;
    });
    if (order == orders.end() || isEscaped) {
        return;
    }
    auto names = order->names;
    if (role == Role::Entry && isConstantWithValueFirst(object)) {
        std::swap(*std::find(names.begin(), names.end(), R"("typeid")"),
                  *std::find(names.begin(), names.end(), R"("value")"));
    }
    const auto rankOf = [&](const Node::Member& member) {
        return std::find(names.begin(), names.end(), member.name) - names.begin();
    };
    std::stable_sort(object.members.begin(), object.members.end(),
                     [&](const Node::Member& left, const Node::Member& right) { return rankOf(left) < rankOf(right); });
}

/// Reads what is known to be JSON, and no deeper than the library reads.
class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    Node read(Role role) {
        skipBlanks();
        Node node;
        if (rest_.front() != '{' && rest_.front() != '[') {
            node.text = take(lengthOfScalar());
            node.width = widthOf(node.text);
            return node;
        }
        node.opening = take(1).front();
        const char closing = node.opening == '{' ? '}' : ']';
        for (skipBlanks(); rest_.front() != closing; skipBlanks()) {
            if (rest_.front() == ',') {
                take(1);
                skipBlanks();
            }
            node.members.push_back(readMember(node.opening == '{', role));
        }
        take(1);
        if (node.opening == '{') {
            sortMembers(node, role);
        }
        measure(node);
        return node;
    }

private:
    Node::Member readMember(bool isNamed, Role role) {
        Node::Member member;
        if (isNamed) {
            member.name = take(lengthOfScalar());
            skipBlanks();
            take(1);
            role = roleOf(role, member.name);
        }
        member.value = read(role);
        return member;
    }

    static void measure(Node& node) {
        // The brackets, and between members a comma and a blank.
        node.width = 2 + (node.members.empty() ? 0 : 2 * (node.members.size() - 1));
        for (const Node::Member& member : node.members) {
            node.width += member.value.width + (member.name.empty() ? 0 : widthOf(member.name) + 2);
            node.height = std::max(node.height, member.value.height + 1);
        }
    }

    void skipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(blanks), rest_.size())); }

    std::string_view take(std::size_t length) {
        const std::string_view taken = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return taken;
    }

    [[nodiscard]] std::size_t lengthOfScalar() const {
        if (rest_.front() != '"') {
            return std::min(rest_.find_first_of(",]} \t\r\n"), rest_.size());
        }
        std::size_t end = 1;
        while (rest_[end] != '"') {
            end += rest_[end] == '\\' ? 2 : 1;
        }
        return end + 1;
    }

    std::string_view rest_;
};

class Writer {
public:
    void writeAsLine(const Node& node) {
        if (node.opening == ' ') {
            result_ += node.text;
            return;
        }
        result_ += node.opening;
        std::string_view separator;
        for (const Node::Member& member : node.members) {
            result_ += std::exchange(separator, ", ");
            writeName(member);
            writeAsLine(member.value);
        }
        result_ += closingOf(node);
    }

    /// @param taken  what else stands on the line, but for the indentation.
    void write(const Node& node, std::size_t depth, std::size_t taken) {
        if (node.opening == ' ' || node.members.empty() || (depth != 0 && isShort(node, 2 * depth + taken))) {
            writeAsLine(node);
            return;
        }
        result_ += node.opening;
        for (const Node::Member& member : node.members) {
            result_ += &member == &node.members.front() ? "\n" : ",\n";
            result_.append(2 * (depth + 1), ' ');
            writeName(member);
            // The comma behind it counts.
            write(member.value, depth + 1, (member.name.empty() ? 0 : widthOf(member.name) + 2) + 1);
        }
        result_ += '\n';
        result_.append(2 * depth, ' ');
        result_ += closingOf(node);
    }

    std::string takeResult() { return std::move(result_); }

private:
    static char closingOf(const Node& node) { return node.opening == '{' ? '}' : ']'; }

    /// Elements that hold something themselves have lines of their own.
    static bool isShort(const Node& node, std::size_t taken) {
        return node.height <= (node.opening == '{' ? 2 : 1) && taken + node.width <= widestLine;
    }

    void writeName(const Node::Member& member) {
        if (!member.name.empty()) {
            result_ += member.name;
            result_ += ": ";
        }
    }

    std::string result_;
};

} // namespace

std::string formatted(std::string_view text) {
    Writer writer;
    writer.write(Reader(text).read(Role::Document), 0, 0);
    return writer.takeResult() + '\n';
}

std::string formattedAsLine(std::string_view text) {
    Writer writer;
    writer.writeAsLine(Reader(text).read(Role::Document));
    return writer.takeResult();
}

} // namespace Tool
