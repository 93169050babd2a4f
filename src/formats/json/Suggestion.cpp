#include "formats/json/Suggestion.h"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <vector>

namespace nestrix {

namespace {

/// Longer words are slips of nothing.
constexpr size_t LENGTH_MOST = 64;

/// As far as it is a matter of taste: capitals, and what stands between the parts of a word.
std::string Plain(std::string_view word) {
    std::string plain;
    for (const char c : word) {
        if (c != '_' && c != '-' && c != ' ') {
            plain += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
    }
    return plain;
}

/// How many letters have to be put in, left out or replaced (Levenshtein 1966).
size_t DistanceBetween(const std::string& a, const std::string& b) {
    std::vector<size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (size_t i = 0; i < a.size(); ++i) {
        size_t nDiagonal = row[0];
        row[0] = i + 1;
        for (size_t j = 0; j < b.size(); ++j) {
            const size_t nReplaced = nDiagonal + (a[i] == b[j] ? 0 : 1);
            nDiagonal = row[j + 1];
            row[j + 1] = std::min({nReplaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row[b.size()];
}

}  // namespace

std::string_view FindLikeliest(std::string_view written, std::span<const std::string_view> known) {
    if (written.size() > LENGTH_MOST) {
        return {};
    }
    const std::string plain = Plain(written);
    std::string_view likeliest;
    size_t nLeast =
        std::max<size_t>(plain.size() / 3, 1) + 1;  // a third of the letters wrong is another word
    for (const std::string_view word : known) {
        const size_t nDistance = DistanceBetween(plain, Plain(word));
        if (nDistance < nLeast) {
            nLeast = nDistance;
            likeliest = word;
        }
    }
    return likeliest;
}

}  // namespace nestrix
