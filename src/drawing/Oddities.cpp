#include "drawing/Oddities.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "certify/Certify.h"
#include "drawing/Containment.h"
#include "drawing/Crossings.h"
#include "drawing/FindingText.h"
#include "drawing/PathArea.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

using enum SFinding::ESeverity;

/// Of the length of a line: what is this near to it lies on it.
constexpr double ROUNDING = 1e-10;

/// Of the square of a strip's width: a smaller area is hardly meant.
constexpr double TINY_AREA = 1e-6;

/// Some corners of a kind.
struct SCorners {
    int m_nCount = 0;
    SPoint m_First;

    void Add(SPoint point) {
        m_First = m_nCount == 0 ? point : m_First;
        ++m_nCount;
    }
};

SPlaneBox BoxOf(const SShape& shape) {
    SPlaneBox box;
    for (const SPoint point : shape.m_Outline) {
        box.Include(point);
    }
    return box;
}

/// Examines one piece.
class CExamination {
public:
    CExamination(const SPiece& piece, const std::optional<SFreeStrip>& strip, const std::string& file,
                 int nLine)
        : m_Piece(piece), m_Strip(strip), m_File(file), m_nLine(nLine) {
        m_Rings.push_back(piece.m_Shape.m_Outline);
        m_Rings.insert(m_Rings.end(), piece.m_Shape.m_Holes.begin(), piece.m_Shape.m_Holes.end());
    }

    [[nodiscard]] std::vector<SFinding> Find() {
        if (!ExamineNumbers() || !ExamineInside()) {
            return std::move(m_Findings);
        }
        ExamineCorners();
        if (ExamineCrossings() && ExamineHoles()) {
            ExamineSoundness();
        }
        ExamineWidth();
        return std::move(m_Findings);
    }

private:
    void Say(SFinding::ESeverity eSeverity, const std::string& message) {
        const std::string& name = m_Piece.m_Name;
        m_Findings.push_back({m_File, m_nLine, eSeverity, name.empty() ? message : name + ": " + message});
    }

    /// "its outline", or "its hole 2".
    [[nodiscard]] static std::string NameOf(size_t nRing) {
        return nRing == 0 ? "its outline" : "its hole " + std::to_string(nRing);
    }

    bool ExamineNumbers();
    bool ExamineInside();
    void ExamineCorners();
    void SayCorners(const SCorners& corners, const std::string& one, const std::string& many);
    bool ExamineCrossings();
    bool ExamineHoles();
    void ExamineSoundness();
    void ExamineWidth();

    const SPiece& m_Piece;
    const std::optional<SFreeStrip>& m_Strip;
    const std::string& m_File;
    int m_nLine;
    std::vector<CRing> m_Rings;  ///< the outline, then the holes
    std::vector<SFinding> m_Findings;
};

bool CExamination::ExamineNumbers() {
    for (size_t i = 0; i < m_Rings.size(); ++i) {
        for (const SPoint point : m_Rings[i]) {
            if (!std::isfinite(point.m_X) || !std::isfinite(point.m_Y)) {
                Say(FAULT, "a number of " + NameOf(i) + " is not finite: " + InWords(point));
                return false;
            }
        }
    }
    return true;
}

bool CExamination::ExamineInside() {
    if (m_Rings[0].empty()) {
        Say(FAULT, "it has no outline");
        return false;
    }
    const SPlaneBox box = BoxOf(m_Piece.m_Shape);
    const SPoint extent = box.m_High - box.m_Low;
    const double area = TwiceSignedArea(m_Rings[0]) / 2.0;
    if (!std::isfinite(area)) {
        Say(FAULT, "it is too large to be calculated with");
        return false;
    }
    const bool bNoArea = std::abs(area) <= ROUNDING * Dot(extent, extent);
    // A figure of eight has none either, but crosses itself; that is told elsewhere.
    if (bNoArea && FindCrossings(m_Piece.m_Shape).empty()) {
        Say(FAULT, "its outline has no inside");
        return false;
    }
    if (area < 0.0) {
        Say(ODD, "its outline runs clockwise");
    }
    if (m_Strip.has_value() && !bNoArea && std::abs(area) < TINY_AREA * m_Strip->m_Width * m_Strip->m_Width) {
        Say(ODD, "it is tiny: " + InWords(extent.m_X) + " by " + InWords(extent.m_Y) + " in a strip of " +
                     InWords(m_Strip->m_Width));
    }
    return true;
}

void CExamination::SayCorners(const SCorners& corners, const std::string& one, const std::string& many) {
    if (corners.m_nCount == 1) {
        Say(ODD, "a corner " + one + ", at " + InWords(corners.m_First));
    } else if (corners.m_nCount > 1) {
        Say(ODD, std::to_string(corners.m_nCount) + " corners " + many + ", the first at " +
                     InWords(corners.m_First));
    }
}

void CExamination::ExamineCorners() {
    SCorners repeated;
    SCorners straight;
    SCorners back;
    for (const CRing& ring : m_Rings) {
        CRing corners;
        for (size_t i = 0; i < ring.size(); ++i) {
            if (ring.size() > 1 && ring[i] == ring[(i + ring.size() - 1) % ring.size()]) {
                repeated.Add(ring[i]);
            } else {
                corners.push_back(ring[i]);
            }
        }
        for (size_t i = 0; i < corners.size(); ++i) {
            const SPoint in = corners[i] - corners[(i + corners.size() - 1) % corners.size()];
            const SPoint out = corners[(i + 1) % corners.size()] - corners[i];
            const double shorter = std::min(Length(in), Length(out));
            const double longer = std::max(Length(in), Length(out));
            if (std::abs(Cross(in, out)) <= ROUNDING * longer * shorter) {
                (Dot(in, out) > 0.0 ? straight : back).Add(corners[i]);
            }
        }
    }
    SayCorners(repeated, "repeats the one before", "repeat the one before");
    SayCorners(straight, "lies in the middle of a straight line", "lie in the middle of a straight line");
    SayCorners(back, "is where the line runs back on itself", "are where the line runs back on itself");
}

/// @return whether there are none.
bool CExamination::ExamineCrossings() {
    const std::vector<SCrossing> crossings = FindCrossings(m_Piece.m_Shape);
    for (const SCrossing& crossing : crossings) {
        const std::string other =
            crossing.m_nFirst == crossing.m_nSecond ? "itself" : NameOf(crossing.m_nSecond);
        Say(FAULT, NameOf(crossing.m_nFirst) + " crosses " + other + " at " + InWords(crossing.m_At));
    }
    return crossings.empty();
}

/// @return whether all of them lie in the outline and beside each other.
bool CExamination::ExamineHoles() {
    std::vector<SContainmentQuery> queries;
    for (size_t i = 1; i < m_Rings.size(); ++i) {
        const bool bHasInside = AreaOf(m_Rings[i]) > 0.0;
        queries.push_back({bHasInside ? InnerPointOf(m_Rings[i]) : m_Rings[0][0], AreaOf(m_Rings[i])});
    }
    const std::vector<int> around = InnermostAround(m_Rings, queries);
    bool bInside = true;
    for (size_t i = 1; i < m_Rings.size(); ++i) {
        if (around[i - 1] == 0 || AreaOf(m_Rings[i]) == 0.0) {
            continue;
        }
        bInside = false;
        Say(FAULT, around[i - 1] < 0 ? NameOf(i) + " lies outside of its outline"
                                     : NameOf(i) + " lies in " + NameOf(static_cast<size_t>(around[i - 1])));
    }
    return bInside;
}

/// What only exact arithmetic tells: parts that lie over each other without a crossing.
void CExamination::ExamineSoundness() {
    const SPlaneBox box = BoxOf(m_Piece.m_Shape);
    const double extent = std::max(box.m_High.m_X - box.m_Low.m_X, box.m_High.m_Y - box.m_Low.m_Y);
    const SGrid grid = GridFor(std::clamp(m_Strip.has_value() ? m_Strip->m_Width : extent, 1e-14, 1e28));
    if (extent > grid.Length(GRID_LENGTH_MOST / 4)) {
        Say(FAULT, "it is too large for the strip's width to be calculated with");
    } else if (!IsSound(OnGrid(m_Piece.m_Shape, grid))) {
        Say(FAULT, m_Rings.size() == 1 ? "its outline lies over itself, or has no inside"
                                       : "its outline or one of its holes lies over another part of it");
    }
}

void CExamination::ExamineWidth() {
    if (!m_Strip.has_value()) {
        return;
    }
    const double room = m_Strip->m_Width - 2.0 * m_Strip->m_Margin;
    const double width = NarrowestWidth(m_Piece);
    if (width > room + GridFor(std::clamp(m_Strip->m_Width, 1e-14, 1e28)).Length(1)) {
        const bool bOneTurn =
            !m_Piece.m_Turns.m_bAny && !m_Piece.m_bMirrored && m_Piece.m_Turns.m_Degrees.size() == 1;
        Say(FAULT, "it is " + InWords(width) + " wide" + (bOneTurn ? "" : " in its narrowest turn") +
                       ", and the strip has room for " + InWords(std::max(room, 0.0)));
    }
}

}  // namespace

std::vector<SFinding> FindOddities(const SPiece& piece, const std::optional<SFreeStrip>& strip,
                                   const std::string& file, int nLine) {
    return CExamination(piece, strip, file, nLine).Find();
}

}  // namespace nestrix
