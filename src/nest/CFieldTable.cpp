#include "nest/CFieldTable.h"

#include <algorithm>

namespace nestrix {

namespace {

/// Fields take some ten thousand bytes each: so many, less than a gigabyte.
constexpr size_t MOST_FIELDS = 30'000;

/// Where not all fit, a field has the choice of so many entries: two that are both in use, and have one
/// entry only, would push out each other for ever.
constexpr size_t ENTRIES_TO_CHOOSE = 8;

/// Of so many versions, each two have a short cut to their field: 16 bytes a pair.
constexpr size_t MOST_SHORT_CUT = 2'000;

double DifferenceOf(double moves, double stays) {
    const double difference = moves - stays;
    return difference < 0.0 ? difference + 360.0 : difference;
}

std::vector<double> DifferencesOf(const std::vector<double>& turns) {
    std::vector<double> differences;
    for (const double moves : turns) {
        for (const double stays : turns) {
            differences.push_back(DifferenceOf(moves, stays));
        }
    }
    std::sort(differences.begin(), differences.end());
    differences.erase(std::unique(differences.begin(), differences.end()), differences.end());
    return differences;
}

size_t CountKeys(const CPackProblem& problem) {
    const size_t nFigures = problem.Figures().size();
    return nFigures * (nFigures + 1) / 2 * DifferencesOf(problem.Turns()).size();
}

std::vector<CConvexPart> Turned(const std::vector<CConvexPart>& parts, double degrees) {
    const SDirection direction = DirectionOf(degrees);
    std::vector<CConvexPart> turned = parts;
    for (CConvexPart& part : turned) {
        for (SPoint& point : part) {
            point = {direction.m_Cosine * point.m_X - direction.m_Sine * point.m_Y,
                     direction.m_Sine * point.m_X + direction.m_Cosine * point.m_Y};
        }
    }
    return turned;
}

}  // namespace

bool CFieldTable::FitsAll(const CPackProblem& problem) {
    return CountKeys(problem) <= MOST_FIELDS;
}

CFieldTable::CFieldTable(const CPackProblem& problem)
    : m_Problem(problem),
      m_bFitsAll(FitsAll(problem)),
      m_nTurns(problem.Turns().size()),
      m_nVersions(problem.Versions().size()),
      m_ShortCuts(m_bFitsAll && m_nVersions <= MOST_SHORT_CUT ? m_nVersions * m_nVersions : 0),
      m_DifferenceDegrees(DifferencesOf(problem.Turns())),
      m_Entries(std::clamp<size_t>(CountKeys(problem), 1, MOST_FIELDS)) {
    for (const double degrees : problem.Turns()) {
        m_Directions.push_back(DirectionOf(degrees));
        for (const double stays : problem.Turns()) {
            const auto found = std::lower_bound(m_DifferenceDegrees.begin(), m_DifferenceDegrees.end(),
                                                DifferenceOf(degrees, stays));
            m_Differences.push_back(static_cast<uint32_t>(found - m_DifferenceDegrees.begin()));
        }
    }
    for (size_t i = 0; i < m_nTurns; ++i) {
        m_Directions.push_back({-m_Directions[i].m_Cosine, -m_Directions[i].m_Sine});
    }
}

CFieldTable::~CFieldTable() {
    for (const std::atomic<const SEntry*>& entry : m_Entries) {
        delete entry.load();
    }
}

CFieldTable::SRelation CFieldTable::RelationOf(size_t nMoves, size_t nStays) const {
    const SVersion& moves = m_Problem.Versions()[nMoves];
    const SVersion& stays = m_Problem.Versions()[nStays];
    const size_t nForth = m_Differences[moves.m_nTurn * m_nTurns + stays.m_nTurn];
    const size_t nBack = m_Differences[stays.m_nTurn * m_nTurns + moves.m_nTurn];
    if (stays.m_nFigure < moves.m_nFigure || (stays.m_nFigure == moves.m_nFigure && nForth <= nBack)) {
        return {KeyOf(stays.m_nFigure, moves.m_nFigure, nForth), stays.m_nFigure, moves.m_nFigure, nForth,
                stays.m_nTurn};
    }
    return {KeyOf(moves.m_nFigure, stays.m_nFigure, nBack), moves.m_nFigure, stays.m_nFigure, nBack,
            m_nTurns + moves.m_nTurn};
}

CFieldTable::SWay CFieldTable::FindWay(size_t nMoves, size_t nStays) {
    const SRelation relation = RelationOf(nMoves, nStays);
    const CPairField& field = FieldOf(relation);
    if (!m_ShortCuts.empty()) {
        SShortCut& cut = m_ShortCuts[nMoves * m_nVersions + nStays];
        cut.m_nDirection.store(static_cast<uint32_t>(relation.m_nDirection), std::memory_order_relaxed);
        cut.m_pField.store(&field, std::memory_order_release);
    }
    return {&field, m_Directions[relation.m_nDirection]};
}

const CPairField& CFieldTable::FieldOf(const SRelation& relation) {
    std::atomic<const SEntry*>& place = EntryOf(relation);
    const SEntry* const pEntry = place.load(std::memory_order_acquire);
    return pEntry != nullptr && pEntry->m_nKey == relation.m_nKey ? pEntry->m_Field
                                                                  : MakeField(relation, place);
}

std::atomic<const CFieldTable::SEntry*>& CFieldTable::EntryOf(const SRelation& relation) {
    if (m_bFitsAll) {
        return m_Entries[relation.m_nKey];
    }
    const size_t nFirst = relation.m_nKey % m_Entries.size();
    const auto entry = [&](size_t i) -> std::atomic<const SEntry*>& {
        return m_Entries[(nFirst + i) % m_Entries.size()];
    };
    for (size_t i = 0; i < ENTRIES_TO_CHOOSE; ++i) {
        const SEntry* const pEntry = entry(i).load(std::memory_order_relaxed);
        if (pEntry == nullptr || pEntry->m_nKey == relation.m_nKey) {
            return entry(i);
        }
    }
    return entry(m_nPushedOut++ % ENTRIES_TO_CHOOSE);
}

const CPairField& CFieldTable::MakeField(const SRelation& relation, std::atomic<const SEntry*>& place) {
    const double outward = static_cast<double>(m_Problem.Strip().m_nSpacing) - m_Problem.Slack();
    auto pEntry = std::make_unique<const SEntry>(
        SEntry{relation.m_nKey, CPairField(m_Problem.Figures()[relation.m_nStays].m_Parts,
                                           Turned(m_Problem.Figures()[relation.m_nMoves].m_Parts,
                                                  m_DifferenceDegrees[relation.m_nDifference]),
                                           outward)});
    if (!m_bFitsAll) {
        m_Replaced.emplace_back(place.exchange(pEntry.get()));
        return pEntry.release()->m_Field;
    }
    // Another thread may have made the same meanwhile.
    const SEntry* pOther = nullptr;
    if (place.compare_exchange_strong(pOther, pEntry.get(), std::memory_order_acq_rel)) {
        return pEntry.release()->m_Field;
    }
    return pOther->m_Field;
}

SPoint CFieldTable::PlaceOnBorder(size_t nMoves, size_t nStays, SPoint stays, double edge, double along) {
    const SWay way = WayOf(nMoves, nStays);
    const std::vector<SBorderEdge>& border = way.m_pField->Border();
    if (border.empty()) {
        return stays;
    }
    const SBorderEdge& chosen = border[static_cast<size_t>(edge * static_cast<double>(border.size()))];
    return stays + way.FromField(chosen.m_From + chosen.m_Along * (chosen.m_Length * along));
}

}  // namespace nestrix
