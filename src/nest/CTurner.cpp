#include "nest/CTurner.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "certify/Certify.h"
#include "nest/CCompactor.h"
#include "nest/CTurnProgram.h"
#include "nest/ItemBlocks.h"
#include "nest/TurnsToTry.h"

namespace nestrix {

namespace {

// All of these were measured over instances and seeds: docs/packing-freely.md. Shares of an item's size.

constexpr double MOVE_REACH = 0.05;
constexpr double COMPACTION_REACH = 0.1;

/// How far points are turned: less after a program that gained nothing, more after one that did.
constexpr double FIRST_TURN = 0.05;
constexpr double MOST_TURN = 0.1;
constexpr double LEAST_TURN = 1e-4;
constexpr double LESS = 0.33;
constexpr double MORE = 1.3;

constexpr int COMPACTIONS = 4;

/// A height is lower that is so by this share. So many programs in a row that gain less than the other share
/// are the last.
constexpr double LOWER = 1e-6;
constexpr double LITTLE = 1e-4;
constexpr int LITTLE_GAINS = 4;

/// What is so much higher than known after some programs does not become lower any more.
constexpr int PROGRAMS_TO_JUDGE = 4;
constexpr double HOPELESS = 0.003;

constexpr double DEGREES_IN_A_RADIAN = 57.29577951308232;

std::vector<SPiece> SinglePieces(std::span<const SPiece> pieces, const SFreePacking& packing) {
    std::vector<SPiece> single;
    single.reserve(packing.m_Placed.size());
    for (const SFreePlacement& placement : packing.m_Placed) {
        SPiece& piece = single.emplace_back(pieces[static_cast<size_t>(placement.m_nPiece)]);
        piece.m_nQuantity = 1;
        piece.m_Turns = {false, {placement.m_Degrees}};
        piece.m_bMirrored = placement.m_bMirrored;
    }
    return single;
}

}  // namespace

/// The items of a packing, each of which is a piece by itself with the turn in which it lies.
class CTurner::CLaidItems {
public:
    /// @param packing not necessarily valid.
    CLaidItems(const CPackProblem& problem, SFreePacking packing)
        : m_Packing(std::move(packing)),
          m_Pieces(SinglePieces(problem.Pieces(), m_Packing)),
          m_Problem(m_Pieces, m_Packing.m_Strip, problem.UsesHoles()) {
        for (size_t i = 0; i < m_Packing.m_Placed.size(); ++i) {
            const SFreePlacement& placement = m_Packing.m_Placed[i];
            const std::optional<size_t> nVersion =
                m_Problem.FindVersion(i, placement.m_Degrees, placement.m_bMirrored);
            if (!nVersion) {
                return;
            }
            m_Places.push_back(
                {AsPoint(placement.m_At + m_Problem.Versions()[*nVersion].m_Reference), *nVersion});
        }
    }

    /// False where an item is too wide for the strip in its turn, or rounding breaks its outline.
    [[nodiscard]] bool CanLie() const { return m_Places.size() == m_Packing.m_Placed.size(); }

    [[nodiscard]] const SFreePacking& Packing() const { return m_Packing; }
    [[nodiscard]] const CPackProblem& Problem() const { return m_Problem; }
    [[nodiscard]] const std::vector<SPlace>& Places() const { return m_Places; }

    /// Puts all items at points of the grid.
    void Move(std::vector<SPlace> places) {
        m_Places = std::move(places);
        for (size_t i = 0; i < m_Places.size(); ++i) {
            const SPoint at = m_Places[i].m_At;
            m_Packing.m_Placed[i].m_At =
                SGridPoint{static_cast<int64_t>(at.m_X), static_cast<int64_t>(at.m_Y)} -
                m_Problem.Versions()[m_Places[i].m_nVersion].m_Reference;
        }
        m_Packing.m_nHeight = static_cast<int64_t>(HeightOf(m_Problem, m_Places));
    }

private:
    SFreePacking m_Packing;
    std::vector<SPiece> m_Pieces;
    CPackProblem m_Problem;
    std::vector<SPlace> m_Places;
};

CTurner::CTurner(const CPackProblem& problem, CStepCounter& steps)
    : m_Problem(problem),
      m_Steps(steps),
      m_ItemSize(std::sqrt(problem.TotalArea() / static_cast<double>(problem.Items().size()))) {
    for (const size_t nPiece : problem.Items()) {
        m_MayTurn.push_back(problem.Pieces()[nPiece].m_Turns.m_bAny);
    }
}

std::optional<SFreePacking> CTurner::Lower(const SFreePacking& packing, int64_t nKnown) {
    auto pItems = std::make_unique<CLaidItems>(m_Problem, packing);
    double turn = FIRST_TURN;
    int nLittleGains = 0;
    for (int i = 0; turn >= LEAST_TURN && nLittleGains < LITTLE_GAINS; ++i) {
        if (m_Steps.IsOver() || IsHopeless(*pItems, i, nKnown)) {
            break;
        }
        std::unique_ptr<CLaidItems> pNext = Turn(*pItems, turn);
        if (!pNext) {
            turn *= LESS;
            continue;
        }
        const double gain = 1.0 - static_cast<double>(pNext->Packing().m_nHeight) /
                                      static_cast<double>(pItems->Packing().m_nHeight);
        nLittleGains = gain < LITTLE ? nLittleGains + 1 : 0;
        turn = std::min(turn * MORE, MOST_TURN);
        pItems = std::move(pNext);
    }
    return pItems->Packing().m_nHeight < packing.m_nHeight ? std::optional(pItems->Packing()) : std::nullopt;
}

bool CTurner::IsHopeless(const CLaidItems& items, int nPrograms, int64_t nKnown) const {
    return nPrograms >= PROGRAMS_TO_JUDGE &&
           static_cast<double>(items.Packing().m_nHeight) > static_cast<double>(nKnown) * (1.0 + HOPELESS);
}

/// Where all items would move and turn, if that were linear.
/// @return nothing where there is no step left for it.
std::optional<CTurner::SMotion> CTurner::FindMotion(const CLaidItems& items, double turn) const {
    SMotion motion{items.Places(), {}};
    for (const SFreePlacement& placement : items.Packing().m_Placed) {
        motion.m_Degrees.push_back(placement.m_Degrees);
    }
    CExactParts parts(items.Problem());
    for (const std::vector<size_t>& block : BlocksOf(items.Places())) {
        if (!m_Steps.Take()) {
            return std::nullopt;
        }
        CTurnProgram program(items.Problem(), parts, motion.m_Places, block, m_MayTurn,
                             {MOVE_REACH * m_ItemSize, turn * m_ItemSize});
        const std::optional<std::vector<CTurnProgram::STurned>> turned = program.Solve();
        for (size_t i = 0; turned && i < block.size(); ++i) {
            SPoint& at = motion.m_Places[block[i]].m_At;
            at = at + (*turned)[i].m_Move;
            double& degrees = motion.m_Degrees[block[i]];
            degrees = TurnAsWritten(degrees + (*turned)[i].m_Radians * DEGREES_IN_A_RADIAN);
        }
    }
    return motion;
}

/// @return a lower packing, or nothing.
std::unique_ptr<CTurner::CLaidItems> CTurner::Turn(const CLaidItems& items, double turn) const {
    const std::optional<SMotion> motion = FindMotion(items, turn);
    if (!motion) {
        return nullptr;
    }
    SFreePacking turned = items.Packing();
    for (size_t i = 0; i < turned.m_Placed.size(); ++i) {
        turned.m_Placed[i].m_Degrees = motion->m_Degrees[i];
    }
    auto pNext = std::make_unique<CLaidItems>(m_Problem, std::move(turned));
    if (!pNext->CanLie()) {
        return nullptr;
    }
    std::vector<SPlace> places = pNext->Places();
    for (size_t i = 0; i < places.size(); ++i) {
        places[i].m_At = motion->m_Places[i].m_At;
    }
    const bool bLaid = Compact(*pNext, std::move(places));
    const auto height = static_cast<double>(items.Packing().m_nHeight);
    const bool bLower = bLaid && static_cast<double>(pNext->Packing().m_nHeight) < height * (1.0 - LOWER);
    return bLower && Certify(m_Problem.Pieces(), pNext->Packing()).IsValid() ? std::move(pNext) : nullptr;
}

/// Lays the items at or near these places so that none overlap.
/// @return false where that does not succeed.
bool CTurner::Compact(CLaidItems& items, std::vector<SPlace> places) const {
    CCompactor compactor(items.Problem());
    for (int i = 0; i < COMPACTIONS; ++i) {
        std::optional<CCompactor::SResult> compacted =
            compactor.Compact(places, COMPACTION_REACH * m_ItemSize);
        if (!compacted) {
            return false;
        }
        places = std::move(compacted->m_Places);
        if (compacted->m_Overlap <= 0.0) {
            items.Move(std::move(places));
            return true;
        }
    }
    return false;
}

}  // namespace nestrix
