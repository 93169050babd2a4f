#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace nestrix {

/// Values of an enumeration with the words for them in files.
template <class T, size_t nCount>
using CNamedValues = std::array<std::pair<T, std::string_view>, nCount>;

/// Empty for a value that has no word.
template <class T, size_t nCount>
[[nodiscard]] std::string_view NameOf(const CNamedValues<T, nCount>& names, T value) {
    const auto found =
        std::find_if(names.begin(), names.end(), [value](const auto& named) { return named.first == value; });
    return found == names.end() ? std::string_view() : found->second;
}

template <class T, size_t nCount>
[[nodiscard]] std::optional<T> ValueOf(const CNamedValues<T, nCount>& names, std::string_view name) {
    const auto found =
        std::find_if(names.begin(), names.end(), [name](const auto& named) { return named.second == name; });
    return found == names.end() ? std::nullopt : std::optional(found->first);
}

/// "mm, cm, m".
template <class T, size_t nCount>
[[nodiscard]] std::string ListOf(const CNamedValues<T, nCount>& names) {
    std::string list;
    for (const auto& named : names) {
        list.append(list.empty() ? "" : ", ").append(named.second);
    }
    return list;
}

}  // namespace nestrix
