#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

#include "nest/CPackProblem.h"
#include "nest/CPairField.h"

namespace nestrix {

/// The overlap of any two versions, from fields that are made when they are first asked for. Two versions
/// turned by the same angle, or exchanged, share one field.
///
/// Where all fields fit, the table may be shared by threads: fields are then never given up. Otherwise each
/// thread needs a table of its own, in which new fields push out others.
class CFieldTable {
public:
    /// The field of two versions, and the way of places into it and back. Holds as long as the table where
    /// all fields fit, else until ForgetReplaced.
    struct SWay {
        const CPairField* m_pField;
        SDirection m_Direction;  ///< negative where the versions are exchanged

        [[nodiscard]] SPoint ToField(SPoint v) const {
            return {m_Direction.m_Cosine * v.m_X + m_Direction.m_Sine * v.m_Y,
                    m_Direction.m_Cosine * v.m_Y - m_Direction.m_Sine * v.m_X};
        }
        [[nodiscard]] SPoint FromField(SPoint v) const {
            return {m_Direction.m_Cosine * v.m_X - m_Direction.m_Sine * v.m_Y,
                    m_Direction.m_Sine * v.m_X + m_Direction.m_Cosine * v.m_Y};
        }
    };

    explicit CFieldTable(const CPackProblem& problem);
    ~CFieldTable();
    CFieldTable(const CFieldTable&) = delete;
    CFieldTable& operator=(const CFieldTable&) = delete;

    /// Whether all fields of a problem fit into one table.
    [[nodiscard]] static bool FitsAll(const CPackProblem& problem);

    [[nodiscard]] SWay WayOf(size_t nMoves, size_t nStays) {
        if (!m_ShortCuts.empty()) {
            const SShortCut& cut = m_ShortCuts[nMoves * m_nVersions + nStays];
            if (const CPairField* const pField = cut.m_pField.load(std::memory_order_acquire)) {
                return {pField, m_Directions[cut.m_nDirection.load(std::memory_order_relaxed)]};
            }
        }
        return FindWay(nMoves, nStays);
    }

    /// The depth of the overlap of two versions at their places.
    /// @param factor what depths are multiplied with.
    /// @param enough where the product is at least this, some number from here on to the exact one is
    /// returned.
    [[nodiscard]] double DepthOf(size_t nMoves, SPoint moves, size_t nStays, SPoint stays,
                                 double factor = 1.0, double enough = HUGE_VAL) {
        const SWay way = WayOf(nMoves, nStays);
        return way.m_pField->DepthAt(way.ToField(moves - stays), factor, enough);
    }

    /// The same, with the way out for the first of them.
    [[nodiscard]] SDepth FindWayOut(size_t nMoves, SPoint moves, size_t nStays, SPoint stays) {
        const SWay way = WayOf(nMoves, nStays);
        SDepth depth = way.m_pField->FindWayOut(way.ToField(moves - stays));
        depth.m_Out = way.FromField(depth.m_Out);
        return depth;
    }

    /// Nobody holds a field any more: those that others have pushed out can go.
    void ForgetReplaced() { m_Replaced.clear(); }

    /// A place of the first version at which it touches the other: a point of the border.
    /// @param edge, along 0 to 1, excluded: which of the edges, and how far along it.
    [[nodiscard]] SPoint PlaceOnBorder(size_t nMoves, size_t nStays, SPoint stays, double edge, double along);

private:
    /// Which field two versions share with others.
    struct SRelation {
        size_t m_nKey;
        size_t m_nStays;  ///< figures
        size_t m_nMoves;
        size_t m_nDifference;  ///< of their turns, an index
        size_t m_nDirection;   ///< index in m_Directions
    };

    /// A relation once its field has been asked for.
    struct SShortCut {
        std::atomic<const CPairField*> m_pField = nullptr;
        std::atomic<uint32_t> m_nDirection = 0;  ///< in m_Directions; written before the field
    };

    struct SEntry {
        size_t m_nKey;
        CPairField m_Field;
    };

    [[nodiscard]] SWay FindWay(size_t nMoves, size_t nStays);
    [[nodiscard]] SRelation RelationOf(size_t nMoves, size_t nStays) const;

    [[nodiscard]] size_t KeyOf(size_t nLess, size_t nMore, size_t nDifference) const {
        return (nMore * (nMore + 1) / 2 + nLess) * m_DifferenceDegrees.size() + nDifference;
    }

    [[nodiscard]] const CPairField& FieldOf(const SRelation& relation);
    /// Where the relation's field is, or is to come.
    [[nodiscard]] std::atomic<const SEntry*>& EntryOf(const SRelation& relation);
    const CPairField& MakeField(const SRelation& relation, std::atomic<const SEntry*>& place);

    const CPackProblem& m_Problem;
    bool m_bFitsAll;
    size_t m_nTurns;
    size_t m_nVersions;
    std::vector<SDirection> m_Directions;     ///< of each turn, and the negatives of them all
    std::vector<SShortCut> m_ShortCuts;       ///< of each two versions; none where they are too many
    std::vector<double> m_DifferenceDegrees;  ///< the differences of any two turns, each once
    std::vector<uint32_t> m_Differences;      ///< of turns i and k at i * m_nTurns + k
    std::vector<std::atomic<const SEntry*>> m_Entries;
    std::vector<std::unique_ptr<const SEntry>> m_Replaced;  ///< where not all fit, which is in one thread
    size_t m_nPushedOut = 0;                                ///< how many those were so far
};

}  // namespace nestrix
