#include "nest/CCrossover.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <optional>

namespace nestrix {

namespace {

/// How much of all area the first packing gives, as a share.
constexpr double LEAST_OF_FIRST = 0.3;
constexpr double MOST_OF_FIRST = 0.7;

bool IsAllowed(const STurns& turns, double degrees) {
    return turns.m_bAny || std::ranges::any_of(turns.m_Degrees, [degrees](double allowed) {
               return NormalisedTurn(allowed) == NormalisedTurn(degrees);
           });
}

}  // namespace

std::vector<SPlace> CCrossover::Cross(const SSolution& first, const SSolution& second) {
    const std::vector<size_t>& items = m_Problem.Items();
    const std::vector<SPlace> others = m_Random.Toss() ? TurnedByHalf(second) : second.m_Places;
    m_Way = DirectionOf(m_Random.Between(0.0, 360.0));

    std::vector<size_t> left = SortAlong(first.m_Places);
    double area = m_Random.Between(LEAST_OF_FIRST, MOST_OF_FIRST) * m_Problem.TotalArea();
    double line = 0.0;
    auto kept = left.begin();
    for (; kept != left.end() && area > 0.0; ++kept) {
        area -= m_Problem.AreaOf(items[*kept]);
        line = Along(first.m_Places[*kept].m_At);
    }
    left.erase(left.begin(), kept);

    std::vector<SPlace> places = first.m_Places;
    std::vector<size_t> tooMany;
    std::vector<size_t> beyond = SortAlong(others);
    std::erase_if(beyond, [&](size_t nOther) { return Along(others[nOther].m_At) < line; });
    for (const size_t nOther : beyond) {
        const auto copy = std::ranges::find(left, items[nOther], [&](size_t nItem) { return items[nItem]; });
        if (copy == left.end()) {
            tooMany.push_back(nOther);
        } else {
            places[*copy] = others[nOther];
            left.erase(copy);
        }
    }

    SortByArea(left);
    SortByArea(tooMany);
    const auto width = static_cast<double>(m_Problem.Strip().m_nWidth);
    for (size_t i = 0; i < left.size(); ++i) {
        const std::vector<size_t>& versions = m_Problem.MainVersionsOf(items[left[i]]);
        const SPoint anywhere{m_Random.Between(0.0, width), m_Random.Between(0.0, first.m_Height)};
        places[left[i]] = {i < tooMany.size() ? others[tooMany[i]].m_At : anywhere,
                           versions[m_Random.Index(versions.size())]};
    }
    return places;
}

/// All items, in the order in which they lie across the line.
std::vector<size_t> CCrossover::SortAlong(const std::vector<SPlace>& places) const {
    std::vector<size_t> items(places.size());
    std::iota(items.begin(), items.end(), size_t{0});
    std::ranges::stable_sort(items, {}, [&](size_t nItem) { return Along(places[nItem].m_At); });
    return items;
}

void CCrossover::SortByArea(std::vector<size_t>& items) const {
    std::ranges::stable_sort(items, std::greater(),
                             [&](size_t nItem) { return m_Problem.AreaOf(m_Problem.Items()[nItem]); });
}

/// The packing upside down, or as it was where an item may not be turned so.
std::vector<SPlace> CCrossover::TurnedByHalf(const SSolution& packing) const {
    const auto width = static_cast<double>(m_Problem.Strip().m_nWidth);
    std::vector<SPlace> turned = packing.m_Places;
    for (size_t i = 0; i < turned.size(); ++i) {
        const size_t nPiece = m_Problem.Items()[i];
        const SVersion& version = m_Problem.Versions()[turned[i].m_nVersion];
        const double degrees = version.m_Degrees + 180.0;
        if (!IsAllowed(m_Problem.Pieces()[nPiece].m_Turns, degrees)) {
            return packing.m_Places;
        }
        // What looks the same has no version of its own.
        const std::optional<size_t> other = m_Problem.FindVersion(nPiece, degrees, version.m_bMirrored);
        turned[i] = {SPoint{width, packing.m_Height} - turned[i].m_At, other.value_or(turned[i].m_nVersion)};
    }
    return turned;
}

}  // namespace nestrix
