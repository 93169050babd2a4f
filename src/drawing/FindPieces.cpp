#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <set>
#include <utility>

#include "drawing/Containment.h"
#include "drawing/Crossings.h"
#include "drawing/FindingText.h"
#include "drawing/Flattening.h"
#include "drawing/FoundLines.h"
#include "drawing/OpenEnds.h"
#include "drawing/PathArea.h"
#include "drawing/SMap.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

using enum SFinding::ESeverity;

/// A contour among the others.
struct SNesting {
    int m_nAround = -1;  ///< the contour directly around it; −1 for none
    int m_nDepth = 0;    ///< how many are around it: an even number makes it an outline, an odd one a hole
    int m_nPiece = -1;   ///< whose outline or hole it is

    [[nodiscard]] bool IsHole() const { return m_nDepth % 2 == 1; }
};

/// Goes from contours and marks to pieces, step by step.
class CPieceFinding {
public:
    CPieceFinding(const SDrawing& drawing, const std::string& file, const SAssembly& assembly)
        : m_Drawing(drawing),
          m_File(file),
          m_Assembly(assembly),
          m_Log(file),
          m_Lines(FindLines(drawing, assembly, m_Log)) {}

    [[nodiscard]] SDrawnPieces Find() {
        Nest();
        MakePieces();
        NamePieces();
        GiveMarks();
        GiveTexts();
        CompareNeighbours();
        m_Found.m_Findings = m_Log.Take();
        return std::move(m_Found);
    }

private:
    using CPlaces = std::array<SPoint, 3>;

    void Nest();
    void MakePieces();
    void NamePieces();
    [[nodiscard]] std::vector<int> PiecesUnder(const std::vector<CPlaces>& places) const;
    void GiveMarks();
    void GiveTexts();
    void CompareNeighbours();

    [[nodiscard]] SDrawnPiece& Piece(int nPiece) { return m_Found.m_Pieces[static_cast<size_t>(nPiece)]; }

    const SDrawing& m_Drawing;
    const std::string& m_File;
    const SAssembly& m_Assembly;
    CFindingLog m_Log;
    SFoundLines m_Lines;
    std::vector<CRing> m_Rings;        ///< of the contours
    std::vector<SNesting> m_Nestings;  ///< of the contours
    SDrawnPieces m_Found;
};

/// Outlines run counter-clockwise then, and holes clockwise.
void CPieceFinding::Nest() {
    std::vector<SContainmentQuery> queries;
    for (const SFoundLine& contour : m_Lines.m_Contours) {
        // Finer than pieces are flattened: those that are near to each other must not seem to cross.
        m_Rings.push_back(Chords(contour.m_Path, m_Assembly.m_FlatTolerance / 4.0));
        queries.push_back({InnerPointOf(m_Rings.back()), AreaOf(m_Rings.back())});
    }
    const std::vector<int> around = InnermostAround(m_Rings, queries);
    m_Nestings.resize(m_Rings.size());
    std::vector<size_t> order;
    for (size_t i = 0; i < m_Rings.size(); ++i) {
        m_Nestings[i].m_nAround = around[i];
        order.push_back(i);
    }
    // What is around a contour is larger, and has its depth before.
    std::sort(order.begin(), order.end(),
              [&queries](size_t a, size_t b) { return queries[a].m_Area > queries[b].m_Area; });
    for (const size_t i : order) {
        SNesting& nesting = m_Nestings[i];
        nesting.m_nDepth = around[i] < 0 ? 0 : m_Nestings[static_cast<size_t>(around[i])].m_nDepth + 1;
        SPath& path = m_Lines.m_Contours[i].m_Path;
        if ((SignedArea(path) > 0.0) == nesting.IsHole()) {
            path = Reversed(path);
            std::reverse(m_Rings[i].begin(), m_Rings[i].end());
        }
    }
}

void CPieceFinding::MakePieces() {
    for (size_t i = 0; i < m_Rings.size(); ++i) {
        SFoundLine& contour = m_Lines.m_Contours[i];
        if (!m_Nestings[i].IsHole()) {
            m_Nestings[i].m_nPiece = static_cast<int>(m_Found.m_Pieces.size());
            m_Found.m_Pieces.push_back(
                {contour.m_Name, m_File, contour.m_nLine, std::move(contour.m_Path), {}, {}, {}});
        }
    }
    for (size_t i = 0; i < m_Rings.size(); ++i) {
        if (m_Nestings[i].IsHole()) {
            m_Nestings[i].m_nPiece = m_Nestings[static_cast<size_t>(m_Nestings[i].m_nAround)].m_nPiece;
            Piece(m_Nestings[i].m_nPiece).m_Holes.push_back(std::move(m_Lines.m_Contours[i].m_Path));
        }
    }
}

/// Pieces without a name are named for their file.
void CPieceFinding::NamePieces() {
    const std::string stem = std::filesystem::path(m_File).stem();
    std::set<std::string> names;
    for (const SDrawnPiece& piece : m_Found.m_Pieces) {
        names.insert(piece.m_Name);
    }
    int nNumber = 1;
    for (SDrawnPiece& piece : m_Found.m_Pieces) {
        while (piece.m_Name.empty()) {
            const std::string name = nNumber == 1 ? stem : stem + "-" + std::to_string(nNumber);
            ++nNumber;
            if (names.insert(name).second) {
                piece.m_Name = name;
            }
        }
    }
}

/// For each three places the piece on whose material the first of them is that is on any; −1 for none.
std::vector<int> CPieceFinding::PiecesUnder(const std::vector<CPlaces>& places) const {
    std::vector<SContainmentQuery> queries;
    for (const CPlaces& three : places) {
        for (const SPoint place : three) {
            queries.push_back({place, 0.0});
        }
    }
    const std::vector<int> around = InnermostAround(m_Rings, queries);
    std::vector<int> pieces(places.size(), -1);
    for (size_t i = 0; i < around.size(); ++i) {
        int& nPiece = pieces[i / 3];
        if (nPiece < 0 && around[i] >= 0 && !m_Nestings[static_cast<size_t>(around[i])].IsHole()) {
            nPiece = m_Nestings[static_cast<size_t>(around[i])].m_nPiece;
        }
    }
    return pieces;
}

void CPieceFinding::GiveMarks() {
    std::vector<CPlaces> places;
    for (const SFoundLine& mark : m_Lines.m_Marks) {
        const std::vector<SPoint> points = Chords(mark.m_Path, m_Assembly.m_FlatTolerance);
        const auto middle = [&points](size_t i) { return (points[i] + points[i + 1]) * 0.5; };
        places.push_back({middle((points.size() - 1) / 2), middle(0), middle(points.size() - 2)});
    }
    const std::vector<int> pieces = PiecesUnder(places);
    std::vector<SPath> lost;
    std::vector<int> lines;
    for (size_t i = 0; i < pieces.size(); ++i) {
        SPath& path = m_Lines.m_Marks[i].m_Path;
        if (pieces[i] >= 0) {
            Piece(pieces[i]).m_Marks.push_back(std::move(path));
        } else {
            lost.push_back(std::move(path));
            lines.push_back(m_Lines.m_Marks[i].m_nLine);
        }
    }
    const std::vector<std::optional<SGap>> gaps = FindGaps(lost);
    for (size_t i = 0; i < lost.size(); ++i) {
        const std::string kind = lost[i].m_bClosed ? "a closed line without an inside" : "an open line";
        const std::string gap =
            lost[i].m_bClosed || !gaps[i].has_value()
                ? ""
                : "; there is a gap of " + InWords(gaps[i]->m_Width) + " at " + InWords(gaps[i]->m_At);
        m_Log.Add(lines[i], ODD,
                  kind + " from " + InWords(lost[i].m_Start) + " to " + InWords(EndOf(lost[i])) +
                      " lies on no piece" + gap,
                  "open lines that lie on no piece");
    }
}

void CPieceFinding::GiveTexts() {
    const SMap toStrip{m_Assembly.m_Scale, 0.0, 0.0, m_Assembly.m_Scale, 0.0, 0.0};
    std::vector<SDrawnText> texts;
    std::vector<CPlaces> places;
    for (const SDrawnText& drawn : m_Drawing.m_Texts) {
        const double sum = drawn.m_At.m_X + drawn.m_At.m_Y + drawn.m_Height + drawn.m_Degrees;
        if (!std::isfinite(1e200 * sum)) {
            m_Log.Add(drawn.m_nLine, FAULT,
                      "a number of the text \"" + drawn.m_Text + "\" is not finite or too large",
                      "texts with numbers that are not finite or too large");
            continue;
        }
        const SDrawnText text = toStrip(drawn);
        const SDirection turn = DirectionOf(text.m_Degrees);
        // A letter is a little more than half as wide as it is high.
        const double width = 0.6 * text.m_Height * static_cast<double>(text.m_Text.size());
        const SPoint along = SPoint{turn.m_Cosine, turn.m_Sine} * (text.m_bMirrored ? -width : width);
        const SPoint up = SPoint{-turn.m_Sine, turn.m_Cosine} * (text.m_Height / 2.0);
        places.push_back({text.m_At + along * 0.5 + up, text.m_At, text.m_At + along + up});
        texts.push_back(text);
    }
    const std::vector<int> pieces = PiecesUnder(places);
    for (size_t i = 0; i < texts.size(); ++i) {
        if (pieces[i] >= 0) {
            Piece(pieces[i]).m_Texts.push_back(std::move(texts[i]));
        } else {
            m_Log.Add(texts[i].m_nLine, ODD, "the text \"" + texts[i].m_Text + "\" lies on no piece",
                      "texts that lie on no piece");
        }
    }
}

/// Where one piece crosses another, at least one of them is not what it was meant to be.
void CPieceFinding::CompareNeighbours() {
    for (const SCrossing& crossing : FindCrossings(m_Rings)) {
        const int nFirst = m_Nestings[crossing.m_nFirst].m_nPiece;
        const int nSecond = m_Nestings[crossing.m_nSecond].m_nPiece;
        if (nFirst != nSecond) {
            m_Log.Add(Piece(nFirst).m_nLine, ODD,
                      Piece(nFirst).m_Name + ": it crosses " + Piece(nSecond).m_Name + " at " +
                          InWords(crossing.m_At),
                      "pieces that cross others");
        }
    }
}

}  // namespace

SDrawnPieces FindPieces(const SDrawing& drawing, const std::string& file, const SAssembly& assembly) {
    return CPieceFinding(drawing, file, assembly).Find();
}

}  // namespace nestrix
