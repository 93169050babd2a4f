#include "nest/CFieldTable.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/nest/FreeSets.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CSeededRandom;
using support::RandomCases;

constexpr SFreeStrip STRIP{80.0, 0.0, 0.0};

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

SPoint RandomPoint(CSeededRandom& random, double reach) {
    const double x = static_cast<double>(random.Between(-1.0F, 1.0F)) * reach;
    return {x, static_cast<double>(random.Between(-1.0F, 1.0F)) * reach};
}

/// Rotating points of 10^8 units forth and back takes far less.
constexpr double ROUNDING = 1e-3;

TEST(FieldTable, HasTheDepthThatTheFieldOfAnyTwoVersionsHas) {
    const std::vector<SPiece> pieces = support::TurnedSet();
    for (const double spacing : {0.0, 2.0}) {
        const CPackProblem problem(pieces, {80.0, spacing, 0.0}, true);
        CFieldTable table(problem);
        const double reach = 40.0 / problem.Grid().Length(1);
        CSeededRandom random(1);
        for (size_t nMoves = 0; nMoves < problem.Versions().size(); ++nMoves) {
            for (size_t nStays = 0; nStays < problem.Versions().size(); ++nStays) {
                const CPairField field = FieldOf(problem, nMoves, nStays);
                for (int i = 0; i < RandomCases(40); ++i) {
                    const SPoint stays = RandomPoint(random, reach);
                    const SPoint off = RandomPoint(random, reach);
                    const double depth = table.DepthOf(nMoves, stays + off, nStays, stays);
                    // The preference of edges where two meet: a millionth.
                    ASSERT_NEAR(depth, field.DepthAt(off), ROUNDING + 1e-6 * depth)
                        << nMoves << " beside " << nStays;
                }
            }
        }
    }
}

TEST(FieldTable, KnowsTheWayOutOfTheFirstVersion) {
    const std::vector<SPiece> pieces = support::TurnedSet();
    const CPackProblem problem(pieces, STRIP, true);
    CFieldTable table(problem);
    CSeededRandom random(2);
    const double reach = 20.0 / problem.Grid().Length(1);
    int nDeep = 0;
    for (int i = 0; i < RandomCases(4000); ++i) {
        const size_t nMoves = random.Index(problem.Versions().size());
        const size_t nStays = random.Index(problem.Versions().size());
        const SPoint at = RandomPoint(random, reach);
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
    const std::vector<SPiece> pieces = support::TurnedSet();
    const CPackProblem problem(pieces, STRIP, true);
    CFieldTable table(problem);
    CSeededRandom random(3);
    for (int i = 0; i < RandomCases(4000); ++i) {
        const size_t nMoves = random.Index(problem.Versions().size());
        const size_t nStays = random.Index(problem.Versions().size());
        const SPoint stays{12345.0, -678.0};
        const double edge = static_cast<double>(random.Unit());
        const SPoint at =
            table.PlaceOnBorder(nMoves, nStays, stays, edge, static_cast<double>(random.Unit()));
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
    const std::vector<SPiece> pieces = support::TurnedSet();
    const CPackProblem problem(pieces, STRIP, true);
    const double reach = 20.0 / problem.Grid().Length(1);
    const auto ask = [&problem, reach](CFieldTable& table) {
        CSeededRandom random(4);
        std::vector<double> depths;
        for (int i = 0; i < 5000; ++i) {
            const size_t nMoves = random.Index(problem.Versions().size());
            const size_t nStays = random.Index(problem.Versions().size());
            depths.push_back(table.DepthOf(nMoves, RandomPoint(random, reach), nStays, {}));
        }
        return depths;
    };
    CFieldTable alone(problem);
    const std::vector<double> expected = ask(alone);
    CFieldTable shared(problem);
    std::vector<std::vector<double>> answers(4);
    {
        std::vector<std::jthread> threads;
        for (std::vector<double>& answer : answers) {
            threads.emplace_back([&] { answer = ask(shared); });
        }
    }
    EXPECT_EQ(answers, std::vector<std::vector<double>>(4, expected));
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
    const std::vector<SPiece> many = FinelyTurnedSet(20);
    const std::vector<SPiece> few = FinelyTurnedSet(4);
    const CPackProblem large(many, STRIP, true);
    const CPackProblem small(few, STRIP, true);
    ASSERT_EQ(large.Versions().size(), 2400U);
    ASSERT_EQ(small.Versions().size(), 480U);
    ASSERT_TRUE(CFieldTable::FitsAll(large));
    CFieldTable without(large);
    CFieldTable with(small);
    CSeededRandom random(6);
    const double reach = 15.0 / large.Grid().Length(1);
    int nDeep = 0;
    for (int i = 0; i < RandomCases(1000); ++i) {
        // The versions of the few are the first of the many.
        const size_t nMoves = random.Index(small.Versions().size());
        const size_t nStays = random.Index(small.Versions().size());
        const SPoint at = RandomPoint(random, reach);
        const double depth = with.DepthOf(nMoves, at, nStays, {});
        ASSERT_EQ(with.DepthOf(nMoves, at, nStays, {}), depth) << "by the short cut";
        ASSERT_EQ(without.DepthOf(nMoves, at, nStays, {}), depth) << nMoves << " beside " << nStays;
        ASSERT_EQ(without.DepthOf(nMoves, at, nStays, {}), depth) << "once the field is there";
        nDeep += depth > 0.0 ? 1 : 0;
    }
    EXPECT_GT(nDeep, RandomCases(1000) / 4);
}

TEST(FieldTable, ThatCannotHoldAllFieldsGivesTheSameDepths) {
    // Each figure in its own turn, all differences of which are different: far too many fields.
    std::vector<SPiece> pieces;
    for (int i = 0; i < 40; ++i) {
        pieces.push_back(support::Copies(support::LetterL(20 + 0.1 * i), 1, {0.0, 1.0 + 0.37 * i}));
    }
    const CPackProblem problem(pieces, STRIP, true);
    ASSERT_FALSE(CFieldTable::FitsAll(problem));
    CFieldTable table(problem);
    CSeededRandom random(5);
    const double reach = 15.0 / problem.Grid().Length(1);
    for (int i = 0; i < RandomCases(1000); ++i) {
        const size_t nMoves = random.Index(problem.Versions().size());
        const size_t nStays = random.Index(problem.Versions().size());
        const SPoint at = RandomPoint(random, reach);
        const double depth = table.DepthOf(nMoves, at, nStays, {});
        ASSERT_NEAR(depth, FieldOf(problem, nMoves, nStays).DepthAt(at), ROUNDING + 1e-6 * depth);
    }
}

}  // namespace

}  // namespace nestrix
