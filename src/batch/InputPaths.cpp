#include "batch/InputPaths.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <optional>

#include "batch/InputFormats.h"

namespace nestrix {

namespace fs = std::filesystem;

namespace {

constexpr int MOST_COPIES = 10'000;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The digits that a text begins with, without zeros in front, and how many characters they take with them.
std::pair<std::string_view, size_t> NumberAt(std::string_view text) {
    const auto nEnd = static_cast<size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) - text.begin());
    const size_t nFirst = std::min(text.find_first_not_of('0'), nEnd);
    return {text.substr(nFirst, nEnd - nFirst), nEnd};
}

/// Negative, 0 or positive. Numbers of any length.
int CompareNumbers(std::string_view first, std::string_view second) {
    if (first.size() != second.size()) {
        return first.size() < second.size() ? -1 : 1;
    }
    return first.compare(second);
}

/// Why a folder could not be listed; empty for one that could.
std::string ListFolder(const std::string& folder, std::vector<std::string>& files) {
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename();
        if (!name.starts_with('.') && HasKnownExtension(name)) {
            files.push_back(entry->path().native());
        }
    }
    if (error) {
        return error.message();
    }
    std::sort(files.begin(), files.end(), IsNameBefore);
    return files.empty() ? "the folder holds no files of a known format: " + KnownExtensions() : "";
}

/// The two sides of the last colon, where a number is to its right.
std::optional<std::pair<std::string, std::string>> SplitAtCopies(const std::string& word) {
    const size_t nColon = word.rfind(':');
    if (nColon == std::string::npos || nColon == 0 || nColon + 1 == word.size() ||
        !std::all_of(word.begin() + static_cast<std::ptrdiff_t>(nColon) + 1, word.end(), IsDigit)) {
        return std::nullopt;
    }
    return std::pair(word.substr(0, nColon), word.substr(nColon + 1));
}

/// How many copies digits stand for; nothing for too many or none.
std::optional<int> CopiesIn(const std::string& digits) {
    int nCopies = 0;
    const std::errc error = std::from_chars(digits.data(), digits.data() + digits.size(), nCopies).ec;
    return error == std::errc() && nCopies >= 1 && nCopies <= MOST_COPIES ? std::optional(nCopies)
                                                                          : std::nullopt;
}

void AddFiles(const std::string& path, int nCopies, size_t nWord, SInputPaths& found) {
    std::error_code error;
    if (!fs::is_directory(path, error)) {
        found.m_Files.push_back({path, nCopies, nWord});
        return;
    }
    std::vector<std::string> files;
    if (const std::string fault = ListFolder(path, files); !fault.empty()) {
        found.m_Findings.push_back({path, 0, SFinding::ESeverity::FAULT, fault});
    }
    for (std::string& file : files) {
        found.m_Files.push_back({std::move(file), nCopies, nWord});
    }
}

}  // namespace

bool IsNameBefore(std::string_view first, std::string_view second) {
    std::string_view a = first;
    std::string_view b = second;
    while (!a.empty() && !b.empty()) {
        size_t nPastA = 1;
        size_t nPastB = 1;
        int nOrder = static_cast<unsigned char>(a.front()) - static_cast<unsigned char>(b.front());
        if (IsDigit(a.front()) && IsDigit(b.front())) {
            const auto [numberA, nEndA] = NumberAt(a);
            const auto [numberB, nEndB] = NumberAt(b);
            nOrder = CompareNumbers(numberA, numberB);
            nPastA = nEndA;
            nPastB = nEndB;
        }
        if (nOrder != 0) {
            return nOrder < 0;
        }
        a.remove_prefix(nPastA);
        b.remove_prefix(nPastB);
    }
    // Names that differ only in zeros before their numbers still have an order.
    return a.empty() && b.empty() ? first < second : a.empty();
}

SInputPaths FindInputs(std::span<const std::string> words) {
    SInputPaths found;
    for (size_t nWord = 0; nWord < words.size(); ++nWord) {
        const std::string& word = words[nWord];
        std::error_code error;
        const auto split = SplitAtCopies(word);
        if (!split || fs::exists(word, error)) {
            AddFiles(word, 1, nWord, found);
        } else if (const std::optional<int> copies = CopiesIn(split->second)) {
            AddFiles(split->first, *copies, nWord, found);
        } else {
            found.m_Findings.push_back(
                {word, 0, SFinding::ESeverity::FAULT,
                 "the number of copies is not from 1 to " + std::to_string(MOST_COPIES)});
        }
    }
    return found;
}

}  // namespace nestrix
