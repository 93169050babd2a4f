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

/// How many letters have to be put in, left out, replaced, or exchanged with the next one (Damerau 1964).
size_t DistanceBetween(const std::string& a, const std::string& b) {
    // Row i holds the distances of the first i letters of a to the first 0, 1, 2... of b.
    std::vector<std::vector<size_t>> rows(a.size() + 1, std::vector<size_t>(b.size() + 1));
    std::iota(rows[0].begin(), rows[0].end(), size_t{0});
    for (size_t i = 1; i <= a.size(); ++i) {
        rows[i][0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const size_t nReplaced = rows[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            rows[i][j] = std::min({nReplaced, rows[i - 1][j] + 1, rows[i][j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
            }
        }
    }
    return rows[a.size()][b.size()];
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
