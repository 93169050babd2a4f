#include "nest/CFieldTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <utility>

#include "tests/nest/CFieldScene.h"
#include "tests/nest/FreeSets.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CFieldScene;
using support::RandomCases;

std::vector<CConvexPart> Turned(std::vector<CConvexPart> parts, double degrees) {
    const SDirection direction = DirectionOf(degrees);
    for (CConvexPart& part : parts) {
        for (SPoint& point : part) {
            point = {direction.m_Cosine * point.m_X - direction.m_Sine * point.m_Y,
                     direction.m_Sine * point.m_X + direction.m_Cosine * point.m_Y};
        }
    }
    return parts;
}

/// The field of two versions made by itself.
CPairField FieldOf(const CPackProblem& problem, size_t nMoves, size_t nStays) {
    const auto partsOf = [&problem](const SVersion& version) {
        return Turned(problem.Figures()[version.m_nFigure].m_Parts, problem.Turns()[version.m_nTurn]);
    };
    return {partsOf(problem.Versions()[nStays]), partsOf(problem.Versions()[nMoves]),
            static_cast<double>(problem.Strip().m_nSpacing) - problem.Slack()};
}

/// Rotating points of 10^8 units forth and back takes far less.
constexpr double ROUNDING = 1e-3;

TEST(FieldTable, HasTheDepthThatTheFieldOfAnyTwoVersionsHas) {
    for (const double spacing : {0.0, 2.0}) {
        CFieldScene scene(1, support::TurnedSet(), {80.0, spacing, 0.0});
        const double reach = scene.InUnits(40.0);
        const size_t nVersions = scene.Problem().Versions().size();
        for (size_t nMoves = 0; nMoves < nVersions; ++nMoves) {
            for (size_t nStays = 0; nStays < nVersions; ++nStays) {
                const CPairField field = FieldOf(scene.Problem(), nMoves, nStays);
                for (int i = 0; i < RandomCases(40); ++i) {
                    const SPoint stays = scene.DrawAround({}, reach);
                    const SPoint off = scene.DrawAround({}, reach);
                    const double depth = scene.Table().DepthOf(nMoves, stays + off, nStays, stays);
                    // The preference of edges where two meet: a millionth.
                    ASSERT_NEAR(depth, field.DepthAt(off), ROUNDING + 1e-6 * depth)
                        << nMoves << " beside " << nStays;
                }
            }
        }
    }
}

TEST(FieldTable, KnowsTheWayOutOfTheFirstVersion) {
    CFieldScene scene(2);
    CFieldTable& table = scene.Table();
    int nDeep = 0;
    for (int i = 0; i < RandomCases(4000); ++i) {
        const size_t nMoves = scene.DrawVersion();
        const size_t nStays = scene.DrawVersion();
        const SPoint at = scene.DrawAround({}, scene.InUnits(20.0));
        const SDepth depth = table.FindWayOut(nMoves, at, nStays, {});
        ASSERT_DOUBLE_EQ(depth.m_Depth, table.DepthOf(nMoves, at, nStays, {}));
        if (depth.m_Depth > 0.0) {
            const SPoint out = at + depth.m_Out * depth.m_Depth;
            ASSERT_LE(table.DepthOf(nMoves, out, nStays, {}), ROUNDING + 1e-6 * depth.m_Depth);
            ASSERT_GT(table.DepthOf(nMoves, at + depth.m_Out * (0.9 * depth.m_Depth), nStays, {}), 0.0);
            ++nDeep;
        }
    }
    EXPECT_GT(nDeep, 100);
}

TEST(FieldTable, HasPlacesOnTheBorderAtWhichTwoVersionsTouch) {
    CFieldScene scene(3);
    CFieldTable& table = scene.Table();
    for (int i = 0; i < RandomCases(4000); ++i) {
        const size_t nMoves = scene.DrawVersion();
        const size_t nStays = scene.DrawVersion();
        const SPoint stays{12345.0, -678.0};
        const double edge = static_cast<double>(scene.Random().Unit());
        const SPoint at =
            table.PlaceOnBorder(nMoves, nStays, stays, edge, static_cast<double>(scene.Random().Unit()));
        ASSERT_LE(table.DepthOf(nMoves, at, nStays, stays), ROUNDING);
        // A little to the side of it they overlap.
        double most = 0.0;
        for (int k = 0; k < 8; ++k) {
            const SDirection way = DirectionOf(45.0 * k);
            const SPoint near = at + SPoint{way.m_Cosine, way.m_Sine} * 1000.0;
            most = std::max(most, table.DepthOf(nMoves, near, nStays, stays));
        }
        ASSERT_GT(most, 0.0);
    }
}

TEST(FieldTable, AnswersThreadsAtOnceAsItAnswersOne) {
    CFieldScene scene(4);
    struct SQuestion {
        size_t m_nMoves;
        size_t m_nStays;
        SPoint m_At;
    };
    std::vector<SQuestion> questions;
    for (int i = 0; i < 5000; ++i) {
        const size_t nMoves = scene.DrawVersion();
        questions.push_back({nMoves, scene.DrawVersion(), scene.DrawAround({}, scene.InUnits(20.0))});
    }
    const auto answers = [&questions](CFieldTable& table) {
        std::vector<double> depths;
        for (const SQuestion& question : questions) {
            depths.push_back(table.DepthOf(question.m_nMoves, question.m_At, question.m_nStays, {}));
        }
        return depths;
    };
    const std::vector<double> expected = answers(scene.Table());
    CFieldTable shared(scene.Problem());
    std::vector<std::vector<double>> depths(4);
    {
        std::vector<std::jthread> threads;
        for (std::vector<double>& one : depths) {
            threads.emplace_back([&] { one = answers(shared); });
        }
    }
    EXPECT_EQ(depths, std::vector<std::vector<double>>(4, expected));
}

/// Figures of different sizes in steps of three degrees: 120 versions each.
std::vector<SPiece> FinelyTurnedSet(int nFigures) {
    std::vector<double> degrees;
    for (int i = 0; i < 120; ++i) {
        degrees.push_back(3.0 * i);
    }
    std::vector<SPiece> pieces;
    for (int i = 0; i < nFigures; ++i) {
        pieces.push_back(support::Copies(support::LetterL(20 + 0.1 * i), 1, degrees));
    }
    return pieces;
}

TEST(FieldTable, OfTooManyVersionsForShortCutsHasTheDepthsOfOneWithThem) {
    CFieldScene large(6, FinelyTurnedSet(20));
    CFieldScene small(6, FinelyTurnedSet(4));
    ASSERT_EQ(large.Problem().Versions().size(), 2400U);
    ASSERT_EQ(small.Problem().Versions().size(), 480U);
    ASSERT_TRUE(CFieldTable::FitsAll(large.Problem()));
    CFieldTable& without = large.Table();
    CFieldTable& with = small.Table();
    int nDeep = 0;
    for (int i = 0; i < RandomCases(1000); ++i) {
        // The versions of the few are the first of the many.
        const size_t nMoves = small.DrawVersion();
        const size_t nStays = small.DrawVersion();
        const SPoint at = small.DrawAround({}, large.InUnits(15.0));
        const double depth = with.DepthOf(nMoves, at, nStays, {});
        ASSERT_EQ(with.DepthOf(nMoves, at, nStays, {}), depth) << "by the short cut";
        ASSERT_EQ(without.DepthOf(nMoves, at, nStays, {}), depth) << nMoves << " beside " << nStays;
        ASSERT_EQ(without.DepthOf(nMoves, at, nStays, {}), depth) << "once the field is there";
        nDeep += depth > 0.0 ? 1 : 0;
    }
    EXPECT_GT(nDeep, RandomCases(1000) / 4);
}

/// Each figure in its own turn, all differences of which are different.
std::vector<SPiece> SetOfFarTooManyFields() {
    std::vector<SPiece> pieces;
    for (int i = 0; i < 40; ++i) {
        pieces.push_back(support::Copies(support::LetterL(20 + 0.1 * i), 1, {0.0, 1.0 + 0.37 * i}));
    }
    return pieces;
}

TEST(FieldTable, ThatCannotHoldAllFieldsGivesTheSameDepths) {
    CFieldScene scene(5, SetOfFarTooManyFields());
    ASSERT_FALSE(CFieldTable::FitsAll(scene.Problem()));
    for (int i = 0; i < RandomCases(1000); ++i) {
        const size_t nMoves = scene.DrawVersion();
        const size_t nStays = scene.DrawVersion();
        const SPoint at = scene.DrawAround({}, scene.InUnits(15.0));
        const double depth = scene.Table().DepthOf(nMoves, at, nStays, {});
        const CPairField field = FieldOf(scene.Problem(), nMoves, nStays);
        ASSERT_NEAR(depth, field.DepthAt(at), ROUNDING + 1e-6 * depth);
    }
}

TEST(FieldTable, ThatCannotHoldAllFieldsKeepsTheFewInUse) {
    CFieldScene scene(5, SetOfFarTooManyFields());
    ASSERT_FALSE(CFieldTable::FitsAll(scene.Problem()));
    const size_t nVersions = scene.Problem().Versions().size();
    std::vector<const CPairField*> fields;
    for (size_t nMoves = 0; nMoves < nVersions; ++nMoves) {
        for (size_t nStays = 0; nStays < nMoves; ++nStays) {
            fields.push_back(scene.Table().WayOf(nMoves, nStays).m_pField);
        }
    }
    size_t nMade = 0;
    size_t i = 0;
    for (size_t nMoves = 0; nMoves < nVersions; ++nMoves) {
        for (size_t nStays = 0; nStays < nMoves; ++nStays) {
            nMade += scene.Table().WayOf(nMoves, nStays).m_pField != fields[i++] ? 1 : 0;
        }
    }
    EXPECT_EQ(nMade, 0U);
}

}  // namespace

}  // namespace nestrix
