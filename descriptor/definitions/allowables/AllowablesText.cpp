// Constraints out of texts: LIST(2, 4, 8) DEFAULT(4).

#include "definitions/allowables/families.h"

#include <string_view>
#include <vector>

namespace qzDescriptor {

namespace {

constexpr std::string_view s_listKeyword = "LIST";
constexpr std::string_view s_defaultKeyword = "DEFAULT";

/// Empty for a span that is inverted or leaves the text.
std::string_view Between(std::string_view text, std::size_t first, std::size_t last) {
    return first < last && last <= text.size() ? text.substr(first, last - first) : std::string_view();
}

// Behind a keyword stands an opening bracket, and a closing one ends the text. Between the parts there are a
// closing bracket and one separator. Which characters they are is not looked at.

std::string_view ListBody(std::string_view text, std::size_t list, std::size_t defaults) {
    std::size_t const first = list + s_listKeyword.size() + 1;
    if (defaults == std::string_view::npos)
        return Between(text, first, text.size() - 1);
    return defaults >= 2 ? Between(text, first, defaults - 2) : std::string_view();
}

std::string_view DefaultBody(std::string_view text, std::size_t defaults) {
    return Between(text, defaults + s_defaultKeyword.size() + 1, text.size() - 1);
}

std::string_view Trim(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    std::size_t const first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool IsQuote(char c) { return c == '"' || c == '\''; }

/// Where the item that begins here ends: at a comma outside of brackets and of the quotes that begin an item.
std::size_t ItemEnd(std::string_view body, std::size_t first) {
    std::size_t at = std::min(body.find_first_not_of(" \t\r\n", first), body.size());
    if (at < body.size() && IsQuote(body[at])) {
        char const quote = body[at];
        for (++at; at < body.size() && body[at] != quote; ++at)
            at += body[at] == '\\' ? 1 : 0;
    }
    unsigned int depth = 0;
    for (; at < body.size(); ++at) {
        char const c = body[at];
        if (c == ',' && depth == 0)
            return at;
        if (c == '(' || c == '[' || c == '{')
            ++depth;
        else if ((c == ')' || c == ']' || c == '}') && depth > 0)
            --depth;
    }
    return body.size();
}

std::vector<std::string_view> SplitItems(std::string_view body) {
    std::vector<std::string_view> items;
    if (Trim(body).empty())
        return items;
    for (std::size_t first = 0; first <= body.size();) {
        std::size_t const end = ItemEnd(body, first);
        items.push_back(Trim(body.substr(first, end - first)));
        first = end + 1;
    }
    return items;
}

/// What stands in quotes, a backslash before any character of it; other texts as they are.
qzString Unquote(std::string_view item) {
    if (item.size() < 2 || !IsQuote(item.front()) || item.back() != item.front())
        return qzString(item);
    qzString text;
    for (std::size_t i = 1; i + 1 < item.size(); ++i) {
        if (item[i] == '\\' && i + 2 < item.size())
            ++i;
        text += item[i];
    }
    return text;
}

template <class T>
bool ReadItem(std::string_view item, T& value) {
    if constexpr (std::is_same_v<T, qzString>) {
        value = Unquote(item);
        return true;
    } else {
        return ReadText(qzString(item), nullptr, value);
    }
}

template <class T>
AllowablesData* ReadList(std::string_view body, T const* defaultValue) {
    auto* const data = new ListAllowables<T>(Allowables::List<T>(), 0);
    std::unique_ptr<AllowablesData> owner(data);
    T value{};
    for (std::string_view const item : SplitItems(body)) {
        if (ReadItem(item, value))
            data->AddToList(value, qzString());
    }
    if (defaultValue != nullptr)
        data->SeekDefault(*defaultValue);
    return owner.release();
}

template <class T>
AllowablesData* Read(std::string_view text) {
    std::size_t const list = text.find(s_listKeyword);
    std::size_t const defaults = text.find(s_defaultKeyword);
    T defaultValue{};
    bool const hasDefault =
        defaults != std::string_view::npos && ReadItem(Trim(DefaultBody(text, defaults)), defaultValue);
    if (list != std::string_view::npos)
        return ReadList<T>(ListBody(text, list, defaults), hasDefault ? &defaultValue : nullptr);
    return hasDefault ? new DefaultAllowables<T>(defaultValue) : nullptr;
}

} // namespace

Allowables::Allowables(BasicType basic, CompoundType compound, qzString const& text) {
    Attempt([&] {
        VisitAllowable(basic, compound, [&]<class T>(std::type_identity<T>) { m_data = Read<T>(text); });
    });
}

} // namespace qzDescriptor
