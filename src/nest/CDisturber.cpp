#include "nest/CDisturber.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <utility>

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// So many average sizes from each other, items are near.
constexpr double NEAR = 1.3;

}  // namespace

CDisturber::CDisturber(const CPackProblem& problem, CRandom& random)
    : m_Problem(problem),
      m_Random(random),
      m_LargeFirst(problem.Items().size()),
      m_ItemSize(std::sqrt(problem.TotalArea() / static_cast<double>(problem.Items().size()))) {
    std::iota(m_LargeFirst.begin(), m_LargeFirst.end(), size_t{0});
    std::stable_sort(m_LargeFirst.begin(), m_LargeFirst.end(), [&](size_t a, size_t b) {
        return problem.AreaOf(problem.Items()[a]) > problem.AreaOf(problem.Items()[b]);
    });
}

std::vector<SPlace> CDisturber::Disturbed(std::vector<SPlace> places) {
    constexpr std::array CHANGES{&CDisturber::ExchangeLarge, &CDisturber::ExchangeNear,
                                 &CDisturber::MoveToAnother};
    (this->*CHANGES[m_Random.Index(CHANGES.size())])(places);
    return places;
}

void CDisturber::ExchangeLarge(std::vector<SPlace>& places) {
    constexpr int TRIES = 50;
    const size_t nLarge = std::min(m_LargeFirst.size(), std::max<size_t>(2, m_LargeFirst.size() / 2));
    for (int i = 0; i < TRIES; ++i) {
        const size_t a = m_LargeFirst[m_Random.Index(nLarge)];
        const size_t b = m_LargeFirst[m_Random.Index(nLarge)];
        if (m_Problem.Items()[a] != m_Problem.Items()[b]) {
            std::swap(places[a].m_At, places[b].m_At);
            return;
        }
    }
}

void CDisturber::ExchangeNear(std::vector<SPlace>& places) {
    const size_t a = m_Random.Index(places.size());
    std::vector<size_t> near;
    for (size_t b = 0; b < places.size(); ++b) {
        if (m_Problem.Items()[a] != m_Problem.Items()[b] &&
            Length(places[b].m_At - places[a].m_At) <= NEAR * m_ItemSize) {
            near.push_back(b);
        }
    }
    if (!near.empty()) {
        std::swap(places[a].m_At, places[near[m_Random.Index(near.size())]].m_At);
    }
}

void CDisturber::MoveToAnother(std::vector<SPlace>& places) {
    if (places.size() < 2) {
        return;
    }
    const size_t a = m_Random.Index(places.size());
    const size_t b = (a + 1 + m_Random.Index(places.size() - 1)) % places.size();
    const std::vector<size_t>& versions = m_Problem.MainVersionsOf(m_Problem.Items()[a]);
    const double half = m_ItemSize / 2;
    const SPoint aside{m_Random.Between(-half, half), m_Random.Between(-half, half)};
    places[a] = {places[b].m_At + aside, versions[m_Random.Index(versions.size())]};
}

}  // namespace nestrix
