#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <set>
#include <utility>

#include "drawing/Containment.h"
#include "drawing/Doubles.h"
#include "drawing/EndJoining.h"
#include "drawing/FindingText.h"
#include "drawing/Flattening.h"
#include "drawing/LineJoining.h"
#include "drawing/PathArea.h"
#include "drawing/SDrawnPiece.h"
#include "drawing/SMap.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

using enum SFinding::ESeverity;

/// A line in the units of the strip.
struct SFoundLine {
    SPath m_Path;
    size_t m_nDrawn = 0;  ///< the first of the drawing's lines that it is made of
    std::string m_Name;
    int m_nLine = 0;
};

/// A contour among the others.
struct SNesting {
    int m_nAround = -1;  ///< the contour directly around it; −1 for none
    int m_nDepth = 0;    ///< how many are around it: an even number makes it an outline, an odd one a hole
    int m_nPiece = -1;   ///< of an outline
};

/// Of the extent of a closed line, squared: less is no area.
constexpr double NO_AREA = 1e-12;

/// Goes from a drawing to its pieces, step by step.
class CPieceFinding {
public:
    CPieceFinding(const SDrawing& drawing, const std::string& file, const SAssembly& assembly)
        : m_Drawing(drawing), m_File(file), m_Assembly(assembly), m_ToStrip{assembly.m_Scale, 0.0, 0.0,
                                                                            assembly.m_Scale, 0.0, 0.0} {}

    [[nodiscard]] SDrawnPieces Find() {
        std::vector<SFoundLine> lines = FiniteLines();
        DropDoubles(lines);
        SortOut(Joined(std::move(lines)));
        DropDoubles(m_Contours);
        Nest();
        MakePieces();
        GiveMarks();
        GiveTexts();
        NamePieces();
        std::stable_sort(m_Found.m_Findings.begin(), m_Found.m_Findings.end(),
                         [](const SFinding& a, const SFinding& b) { return a.m_nLine < b.m_nLine; });
        return std::move(m_Found);
    }

private:
    using CPlaces = std::array<SPoint, 3>;

    void Say(int nLine, SFinding::ESeverity eSeverity, std::string message) {
        m_Found.m_Findings.push_back({m_File, nLine, eSeverity, std::move(message)});
    }

    [[nodiscard]] std::vector<SFoundLine> FiniteLines();
    void DropDoubles(std::vector<SFoundLine>& lines);
    [[nodiscard]] std::vector<SFoundLine> Joined(std::vector<SFoundLine> lines) const;
    void SortOut(std::vector<SFoundLine> lines);
    void Nest();
    void MakePieces();
    [[nodiscard]] std::vector<int> PiecesUnder(const std::vector<CPlaces>& places) const;
    void GiveMarks();
    void GiveTexts();
    void NamePieces();

    const SDrawing& m_Drawing;
    const std::string& m_File;
    const SAssembly& m_Assembly;
    SMap m_ToStrip;
    std::vector<SFoundLine> m_Contours;
    std::vector<CRing> m_Rings;        ///< of the contours
    std::vector<SNesting> m_Nestings;  ///< of the contours
    std::vector<SFoundLine> m_Marks;
    SDrawnPieces m_Found;
};

/// The drawing's lines, but for those that are a point.
std::vector<SFoundLine> CPieceFinding::FiniteLines() {
    std::vector<SFoundLine> lines;
    for (size_t i = 0; i < m_Drawing.m_Paths.size(); ++i) {
        const SDrawnPath& drawn = m_Drawing.m_Paths[i];
        SFoundLine line{m_ToStrip(drawn.m_Path), i, drawn.m_Name, drawn.m_nLine};
        if (!IsFinite(line.m_Path)) {
            Say(line.m_nLine, FAULT, "a number of this line is not finite");
            continue;
        }
        const std::vector<SPoint> points = Chords(line.m_Path, m_Assembly.m_FlatTolerance);
        if (std::any_of(points.begin(), points.end(), [&](SPoint point) { return point != points[0]; })) {
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

void CPieceFinding::DropDoubles(std::vector<SFoundLine>& lines) {
    std::vector<SPath> paths;
    for (const SFoundLine& line : lines) {
        paths.push_back(line.m_Path);
    }
    const std::vector<bool> doubles = FindDoubles(paths, ROUNDING_OF_TOLERANCE * m_Assembly.m_JoinTolerance);
    std::vector<SFoundLine> kept;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (doubles[i]) {
            Say(lines[i].m_nLine, ODD,
                "the line from " + InWords(lines[i].m_Path.m_Start) + " to " +
                    InWords(EndOf(lines[i].m_Path)) + " is drawn twice; one is left out");
        } else {
            kept.push_back(std::move(lines[i]));
        }
    }
    lines = std::move(kept);
}

/// The same lines with loose ones joined, in the order of the drawing.
std::vector<SFoundLine> CPieceFinding::Joined(std::vector<SFoundLine> lines) const {
    std::vector<SFoundLine> joined;
    std::vector<SFoundLine> loose;
    std::vector<SPath> paths;
    for (SFoundLine& line : lines) {
        if (line.m_Path.m_bClosed) {
            joined.push_back(std::move(line));
        } else {
            paths.push_back(line.m_Path);
            loose.push_back(std::move(line));
        }
    }
    SJoinedLines found = JoinLines(paths, m_Assembly.m_JoinTolerance);
    for (std::vector<SJoinedLine>* pLines : {&found.m_Closed, &found.m_Open}) {
        for (SJoinedLine& line : *pLines) {
            SFoundLine whole = loose[line.m_Sources.front()];
            whole.m_Path = std::move(line.m_Path);
            for (size_t i = 0; i < line.m_Sources.size() && whole.m_Name.empty(); ++i) {
                whole.m_Name = loose[line.m_Sources[i]].m_Name;
            }
            joined.push_back(std::move(whole));
        }
    }
    std::sort(joined.begin(), joined.end(),
              [](const SFoundLine& a, const SFoundLine& b) { return a.m_nDrawn < b.m_nDrawn; });
    return joined;
}

/// Tells contours, which enclose something, from marks.
void CPieceFinding::SortOut(std::vector<SFoundLine> lines) {
    for (SFoundLine& line : lines) {
        const double area = SignedArea(line.m_Path);
        double extent = 0.0;
        for (const SPoint point : Chords(line.m_Path, m_Assembly.m_FlatTolerance)) {
            extent = std::max(extent, Length(point - line.m_Path.m_Start));
        }
        if (!line.m_Path.m_bClosed || std::abs(area) <= NO_AREA * extent * extent) {
            m_Marks.push_back(std::move(line));
        } else {
            m_Contours.push_back(std::move(line));
        }
    }
}

void CPieceFinding::Nest() {
    std::vector<SContainmentQuery> queries;
    for (const SFoundLine& contour : m_Contours) {
        m_Rings.push_back(Chords(contour.m_Path, m_Assembly.m_FlatTolerance / 4.0));
        queries.push_back({InnerPointOf(m_Rings.back()), AreaOf(m_Rings.back())});
    }
    m_Nestings.resize(m_Contours.size());
    const std::vector<int> around = InnermostAround(m_Rings, queries);
    std::vector<size_t> order;
    for (size_t i = 0; i < m_Contours.size(); ++i) {
        m_Nestings[i].m_nAround = around[i];
        order.push_back(i);
    }
    // What is around a contour is larger, and has its depth before.
    std::sort(order.begin(), order.end(),
              [&queries](size_t a, size_t b) { return queries[a].m_Area > queries[b].m_Area; });
    for (const size_t i : order) {
        m_Nestings[i].m_nDepth = around[i] < 0 ? 0 : m_Nestings[static_cast<size_t>(around[i])].m_nDepth + 1;
    }
}

/// Outlines run counter-clockwise and holes clockwise.
void CPieceFinding::MakePieces() {
    for (size_t i = 0; i < m_Contours.size(); ++i) {
        SFoundLine& contour = m_Contours[i];
        const bool bHole = m_Nestings[i].m_nDepth % 2 == 1;
        if ((SignedArea(contour.m_Path) > 0.0) == bHole) {
            contour.m_Path = Reversed(contour.m_Path);
        }
        if (!bHole) {
            m_Nestings[i].m_nPiece = static_cast<int>(m_Found.m_Pieces.size());
            m_Found.m_Pieces.push_back(
                {contour.m_Name, m_File, contour.m_nLine, std::move(contour.m_Path), {}, {}, {}});
        }
    }
    for (size_t i = 0; i < m_Contours.size(); ++i) {
        if (m_Nestings[i].m_nDepth % 2 == 1) {
            const SNesting& around = m_Nestings[static_cast<size_t>(m_Nestings[i].m_nAround)];
            m_Found.m_Pieces[static_cast<size_t>(around.m_nPiece)].m_Holes.push_back(
                std::move(m_Contours[i].m_Path));
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
    std::vector<int> pieces;
    for (size_t i = 0; i < around.size(); i += 3) {
        int nPiece = -1;
        for (size_t k = i; k < i + 3 && nPiece < 0; ++k) {
            nPiece = around[k] < 0 ? -1 : m_Nestings[static_cast<size_t>(around[k])].m_nPiece;
        }
        pieces.push_back(nPiece);
    }
    return pieces;
}

void CPieceFinding::GiveMarks() {
    std::vector<CPlaces> places;
    for (const SFoundLine& mark : m_Marks) {
        const std::vector<SPoint> points = Chords(mark.m_Path, m_Assembly.m_FlatTolerance);
        const auto middle = [&points](size_t i) { return (points[i] + points[i + 1]) * 0.5; };
        places.push_back({middle((points.size() - 1) / 2), middle(0), middle(points.size() - 2)});
    }
    const std::vector<int> pieces = PiecesUnder(places);
    for (size_t i = 0; i < m_Marks.size(); ++i) {
        const SPath& path = m_Marks[i].m_Path;
        if (pieces[i] >= 0) {
            m_Found.m_Pieces[static_cast<size_t>(pieces[i])].m_Marks.push_back(path);
            continue;
        }
        const std::string gap = InWords(Length(EndOf(path) - path.m_Start));
        Say(m_Marks[i].m_nLine, ODD,
            path.m_bClosed ? "a closed line without an inside lies on no piece, at " + InWords(path.m_Start)
                           : "an open line lies on no piece; from its start at " + InWords(path.m_Start) +
                                 " to its end at " + InWords(EndOf(path)) + " there is a gap of " + gap);
    }
}

void CPieceFinding::GiveTexts() {
    std::vector<SDrawnText> texts;
    std::vector<CPlaces> places;
    for (const SDrawnText& drawn : m_Drawing.m_Texts) {
        const SDrawnText text = m_ToStrip(drawn);
        const SDirection turn = DirectionOf(std::isfinite(text.m_Degrees) ? text.m_Degrees : 0.0);
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
            m_Found.m_Pieces[static_cast<size_t>(pieces[i])].m_Texts.push_back(std::move(texts[i]));
        } else {
            Say(texts[i].m_nLine, ODD, "the text \"" + texts[i].m_Text + "\" lies on no piece");
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

}  // namespace

SDrawnPieces FindPieces(const SDrawing& drawing, const std::string& file, const SAssembly& assembly) {
    return CPieceFinding(drawing, file, assembly).Find();
}

}  // namespace nestrix
