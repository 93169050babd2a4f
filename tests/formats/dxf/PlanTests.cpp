#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "drawing/SDrawnPiece.h"
#include "drawing/SMap.h"
#include "formats/dxf/DxfDrawing.h"
#include "formats/dxf/DxfPlan.h"
#include "packing/PointVectors.h"
#include "tests/formats/dxf/DxfTexts.h"
#include "tests/formats/dxf/PlanLook.h"
#include "tests/support/CCommaLocale.h"

namespace nestrix {

namespace {

using support::FindingsOf;
using support::LookAtPlan;
using support::PointsOn;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr double TURN = 6.283185307179586;

SArcTo Arc(SPoint centre, SPoint first, SPoint second, double from, double sweep, SPoint end) {
    return {centre, first, second, from, sweep, end};
}

SPath Circle(SPoint centre, double radius) {
    const SPoint start{centre.m_X + radius, centre.m_Y};
    return {start, {Arc(centre, {radius, 0}, {0, radius}, 0.0, TURN, start)}, true};
}

/// Pieces with a packing of them in a strip 100 wide.
class CPlanScene {
public:
    CPlanScene() { m_Packing.m_Strip.m_Width = 100.0; }

    void Add(SDrawnPiece drawn, const SFreePlacement& placement) {
        SFreePlacement placed = placement;
        placed.m_nPiece = static_cast<int>(m_Pieces.size());
        m_Pieces.push_back({drawn.m_Name, Flattened(drawn, 0.01), 1, {}, true});
        m_Drawn.push_back(std::move(drawn));
        m_Packing.m_Grid = GridFor(100.0);
        m_Packing.m_Placed.push_back(placed);
    }

    /// A placement in whole units.
    [[nodiscard]] static SFreePlacement At(int64_t nX, int64_t nY, double degrees = 0.0,
                                           bool bMirrored = false) {
        const SGrid grid = GridFor(100.0);
        return {0,
                bMirrored,
                degrees,
                {grid.Count(static_cast<double>(nX)), grid.Count(static_cast<double>(nY))}};
    }

    [[nodiscard]] std::string Write(std::optional<EUnit> unit = EUnit::MILLIMETRE) {
        m_Packing.m_nHeight = HeightOf(PlacedShapes(m_Pieces, m_Packing));
        return WriteDxfPlan({m_Pieces, m_Drawn, m_Packing, unit});
    }

    std::vector<SPiece> m_Pieces;
    std::vector<SDrawnPiece> m_Drawn;
    SFreePacking m_Packing;
};

SDrawnPiece Plate(const std::string& name) {
    SDrawnPiece plate;
    plate.m_Name = name;
    plate.m_Outline = {{0, 0},
                       {SLineTo{{40, 0}}, Arc({40, 10}, {10, 0}, {0, 10}, -TURN / 4, TURN / 2, {40, 20}),
                        SLineTo{{0, 20}}, SLineTo{{0, 0}}},
                       true};
    plate.m_Holes.push_back(Circle({10, 10}, 5));
    plate.m_Marks.push_back({{20, 5}, {SLineTo{{30, 5}}, SLineTo{{30, 15}}}, false});
    plate.m_Texts.push_back({"M8 ⌀", {20, 10}, 2.0, 0.0, false, "", 0});
    return plate;
}

/// With an elliptic hole in two halves, and an outline of lines and a Bezier curve.
SDrawnPiece Leaf(const std::string& name) {
    SDrawnPiece leaf;
    leaf.m_Name = name;
    leaf.m_Outline = {
        {0, 0}, {SLineTo{{30, 0}}, SCurveTo{{40, 20}, {10, 40}, {0, 25}}, SLineTo{{0, 0}}}, true};
    leaf.m_Holes.push_back({{18, 10},
                            {Arc({12, 10}, {6, 0}, {0, 3}, 0.0, TURN / 2, {6, 10}),
                             Arc({12, 10}, {6, 0}, {0, 3}, TURN / 2, TURN / 2, {18, 10})},
                            true});
    return leaf;
}

CPlanScene TwoPieces() {
    CPlanScene scene;
    scene.Add(Plate("plate"), CPlanScene::At(1, 2));
    scene.Add(Leaf("Blatt größer"), CPlanScene::At(90, 40, 90.0, true));
    return scene;
}

TEST(Plan, IsOpenedByAnotherReaderWithoutComplaint) {
    EXPECT_THAT(
        LookAtPlan(TwoPieces().Write()),
        ElementsAre(
            "AC1015, $INSUNITS 4, $MEASUREMENT 1, 0 errors, 0 fixes", "CUT: 1 CIRCLE", "CUT: 1 ELLIPSE",
            "CUT: 2 LWPOLYLINE", "CUT: 1 SPLINE", "LABEL: 2 TEXT", "MARK: 1 LWPOLYLINE", "MARK: 1 TEXT",
            "STRIP: 1 LWPOLYLINE", "MARK: M8 ⌀", "LABEL: 1 plate", "LABEL: 2 Blatt größer",
            "PIECE_1: plate: CUT CIRCLE, CUT LWPOLYLINE, LABEL TEXT, MARK LWPOLYLINE, MARK TEXT",
            "PIECE_2: Blatt größer: CUT ELLIPSE, CUT LWPOLYLINE, CUT SPLINE, LABEL TEXT", testing::_));
}

TEST(Plan, IsWhatAnotherLibraryOfGeometrySeesInIt) {
    // 40 · 20 and half a circle of 10, without a circle of 5; the leaf by its Bezier curve's area.
    const std::string seen = LookAtPlan(TwoPieces().Write()).back();
    EXPECT_THAT(seen, HasSubstr("pieces 2 spacing "));
    EXPECT_THAT(seen, Not(HasSubstr("border -1")));
}

/// The paths of the drawing with points where their maps take those that are given: in any order and
/// direction.
double FarthestFromAny(const std::vector<SPoint>& points, const SDrawing& drawing) {
    std::vector<SPoint> there;
    for (const SDrawnPath& drawn : drawing.m_Paths) {
        const auto some = PointsOn(drawn.m_Path, 2000);
        there.insert(there.end(), some.begin(), some.end());
    }
    double farthest = 0.0;
    for (const SPoint& point : points) {
        double nearest = HUGE_VAL;
        for (const SPoint& other : there) {
            nearest = std::min(nearest, Length(point - other));
        }
        farthest = std::max(farthest, nearest);
    }
    return farthest;
}

TEST(Plan, HasEveryLineWhereThePlacementTakesIt) {
    CPlanScene scene = TwoPieces();
    const SDrawing read = ReadDxfText(scene.Write(), "plan.dxf");
    for (size_t i = 0; i < 2; ++i) {
        const SMap map = MapOf(scene.m_Pieces[i].m_Shape, scene.m_Packing, scene.m_Packing.m_Placed[i]);
        EXPECT_LE(FarthestFromAny(PointsOn(map(scene.m_Drawn[i].m_Outline), 10), read), 0.02);
        for (const SPath& hole : scene.m_Drawn[i].m_Holes) {
            EXPECT_LE(FarthestFromAny(PointsOn(map(hole), 10), read), 0.02);
        }
    }
}

TEST(Plan, IsReadBackAsItsPiecesWithNamesAndHoles) {
    CPlanScene scene = TwoPieces();
    const SDrawing read = ReadDxfText(scene.Write(), "plan.dxf");
    EXPECT_EQ(read.m_Unit, EUnit::MILLIMETRE);
    EXPECT_THAT(FindingsOf(read),
                ElementsAre(HasSubstr("the strip and the labels of a packing are left out")));
    const SDrawnPieces found = FindPieces(read, "plan.dxf", {});
    ASSERT_EQ(found.m_Pieces.size(), 2U);
    for (size_t i = 0; i < 2; ++i) {
        const auto& piece = found.m_Pieces[i];
        EXPECT_EQ(piece.m_Name, scene.m_Drawn[i].m_Name);
        EXPECT_EQ(piece.m_Holes.size(), 1U);
        EXPECT_EQ(piece.m_Texts.size(), scene.m_Drawn[i].m_Texts.size());
        EXPECT_NEAR(AreaOf(Flattened(piece, 0.001)), AreaOf(Flattened(scene.m_Drawn[i], 0.001)), 0.2);
    }
}

TEST(Plan, OfAPlanThatWasReadHasTheSameLines) {
    CPlanScene scene = TwoPieces();
    const SDrawing first = ReadDxfText(scene.Write(), "plan.dxf");
    const SDrawnPieces found = FindPieces(first, "plan.dxf", {});
    CPlanScene again;
    for (const SDrawnPiece& piece : found.m_Pieces) {
        again.Add(piece, CPlanScene::At(0, 0));
    }
    const SDrawing second = ReadDxfText(again.Write(), "plan.dxf");
    ASSERT_EQ(second.m_Paths.size(), first.m_Paths.size());
    for (size_t i = 0; i < found.m_Pieces.size(); ++i) {
        const SMap map = MapOf(again.m_Pieces[i].m_Shape, again.m_Packing, again.m_Packing.m_Placed[i]);
        EXPECT_LE(FarthestFromAny(PointsOn(map(found.m_Pieces[i].m_Outline), 10), second), 0.02);
    }
}

TEST(Plan, KeepsNamesWhateverTheyAre) {
    for (const std::string name : {"", "0 SECTION", "100%% \\P \\U+0041", " blanks ", "日本 😀"}) {
        CPlanScene scene;
        scene.Add(Plate(name), CPlanScene::At(0, 0));
        const SDrawing read = ReadDxfText(scene.Write(), "plan.dxf");
        ASSERT_FALSE(read.m_Paths.empty());
        EXPECT_EQ(read.m_Paths[0].m_Name, name);
    }
    std::string name;
    for (int i = 0; i < 500; ++i) {
        name += i % 3 == 0 ? "ü" : "x ";
    }
    CPlanScene scene;
    scene.Add(Plate(name), CPlanScene::At(0, 0));
    EXPECT_EQ(ReadDxfText(scene.Write(), "plan.dxf").m_Paths.at(0).m_Name, name);
    EXPECT_THAT(LookAtPlan(scene.Write()).front(), HasSubstr("0 errors, 0 fixes"));
}

TEST(Plan, NamesItsUnit) {
    const auto unitOf = [](std::optional<EUnit> unit) {
        const std::string document = TwoPieces().Write(unit);
        const SDrawing read = ReadDxfText(document, "plan.dxf");
        return std::pair(read.m_Unit, read.m_Paths.at(0).m_Path.m_Stretches.size() > 1
                                          ? EndOf(read.m_Paths[0].m_Path.m_Stretches[0]).m_X
                                          : 0.0);
    };
    using CRead = std::pair<std::optional<EUnit>, double>;
    EXPECT_EQ(unitOf(EUnit::MILLIMETRE), CRead(EUnit::MILLIMETRE, 41.0));
    EXPECT_EQ(unitOf(EUnit::CENTIMETRE), CRead(EUnit::CENTIMETRE, 41.0));
    EXPECT_EQ(unitOf(EUnit::METRE), CRead(EUnit::METRE, 41.0));
    EXPECT_EQ(unitOf(EUnit::INCH), CRead(EUnit::INCH, 41.0));
    EXPECT_EQ(unitOf(EUnit::FOOT), CRead(EUnit::FOOT, 41.0));
    EXPECT_EQ(unitOf(std::nullopt), CRead(std::nullopt, 41.0));
    EXPECT_EQ(unitOf(EUnit::POINT).first, EUnit::INCH);
    EXPECT_NEAR(unitOf(EUnit::POINT).second, 41.0 / 72.0, 1e-12);
    EXPECT_NEAR(unitOf(EUnit::PIXEL).second, 41.0 / 96.0, 1e-12);
}

TEST(Plan, IsTheSameUnderADecimalComma) {
    const std::string document = TwoPieces().Write();
    EXPECT_EQ(TwoPieces().Write(), document);
    const support::CCommaLocale locale;
    EXPECT_EQ(TwoPieces().Write(), document);
}

TEST(Plan, OfNothingIsAnEmptyStrip) {
    EXPECT_THAT(LookAtPlan(CPlanScene().Write()).front(), HasSubstr("0 errors, 0 fixes"));
}

TEST(Curves, StayWhatTheyAre) {
    const SPath halves{{10, 0},
                       {Arc({0, 0}, {10, 0}, {0, 10}, 0.0, TURN / 2, {-10, 0}),
                        Arc({0, 0}, {-10, 0}, {0, -10}, 0.0, TURN / 2, {10, 0})},
                       true};
    const SPath lens{{10, 0},
                     {Arc({0, -10}, {10, 10}, {-10, 10}, 0.0, TURN / 4, {-10, 0}),
                      Arc({0, 10}, {-10, -10}, {10, -10}, 0.0, TURN / 4, {10, 0})},
                     true};
    const SPath ellipse{{10, 0}, {Arc({0, 0}, {10, 0}, {0, -4}, 0.0, TURN, {10, 0})}, true};
    const SPath beziers{
        {0, 0}, {SCurveTo{{5, -9}, {15, -9}, {20, 0}}, SCurveTo{{15, 9}, {5, 9}, {0, 0}}}, true};
    // Begins in the middle of its lines: all the same they are one polyline.
    const SPath mixed{{-10, -2},
                      {SLineTo{{-10, -5}}, SCurveTo{{-5, -9}, {5, -9}, {10, -5}}, SLineTo{{10, 0}},
                       Arc({0, 0}, {10, 0}, {0, 4}, 0.0, TURN / 2, {-10, 0}), SLineTo{{-10, -2}}},
                      true};
    CPlanScene scene;
    for (const SPath& outline : {Circle({3, 4}, 5), halves, lens, ellipse, beziers, mixed}) {
        SDrawnPiece piece;
        piece.m_Outline = outline;
        scene.Add(piece, CPlanScene::At(50, 50, 30.0));
    }
    EXPECT_THAT(LookAtPlan(scene.Write()),
                testing::IsSupersetOf(
                    {"PIECE_1: : CUT CIRCLE, LABEL TEXT", "PIECE_2: : CUT CIRCLE, LABEL TEXT",
                     "PIECE_3: : CUT LWPOLYLINE, LABEL TEXT", "PIECE_4: : CUT ELLIPSE, LABEL TEXT",
                     "PIECE_5: : CUT SPLINE, LABEL TEXT",
                     "PIECE_6: : CUT ELLIPSE, CUT LWPOLYLINE, CUT LWPOLYLINE, CUT SPLINE, LABEL TEXT"}));
}

/// An outline written and read again, against itself.
double ErrorOfRoundTrip(const SPath& outline, const SFreePlacement& placement) {
    SDrawnPiece piece;
    piece.m_Outline = outline;
    CPlanScene scene;
    scene.Add(piece, placement);
    const SDrawing read = ReadDxfText(scene.Write(), "plan.dxf");
    const SMap map = MapOf(scene.m_Pieces[0].m_Shape, scene.m_Packing, scene.m_Packing.m_Placed[0]);
    return FarthestFromAny(PointsOn(map(outline), 50), read);
}

TEST(Arcs, OfAnySweepAndTurnComeBack) {
    for (const double sweep : {0.1, 1.5, 3.1, 3.2, 4.7, 6.2, -0.1, -1.5, -3.1, -3.2, -4.7, -6.2}) {
        for (const double minor : {10.0, 4.0, -10.0, -4.0}) {
            const SPoint end{10 * std::cos(1.0 + sweep), minor * std::sin(1.0 + sweep)};
            const SPath segment{{10 * std::cos(1.0), minor * std::sin(1.0)},
                                {Arc({0, 0}, {10, 0}, {0, minor}, 1.0, sweep, end)},
                                true};
            EXPECT_LE(ErrorOfRoundTrip(segment, CPlanScene::At(50, 50, 33.0, sweep > 1.0)), 0.02)
                << sweep << " " << minor;
        }
    }
}

TEST(Arcs, WithRadiiThatAreNoAxesComeBack) {
    const SPath skewed{{10, 2}, {Arc({0, 0}, {10, 2}, {3, 5}, 0.0, TURN, {10, 2})}, true};
    EXPECT_LE(ErrorOfRoundTrip(skewed, CPlanScene::At(50, 50, 12.0)), 0.02);
}

}  // namespace

}  // namespace nestrix
