#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <set>
#include <tuple>

#include "certify/Certify.h"
#include "tests/certify/ViolationMatchers.h"
#include "tests/reference/ReferenceCertificate.h"
#include "tests/support/FreePieces.h"
#include "tests/support/GridShapes.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

// What must not change a verdict: where and how large a packing is, which way round, and in what order it is
// told.

namespace {

using EKind = SViolation::EKind;
using support::CSeededRandom;

struct SCase {
    std::vector<SPiece> m_Pieces;
    SFreePacking m_Packing;
};

constexpr int WIDTH = 40;

CGridRing SoundRing(CSeededRandom& random) {
    while (true) {
        CGridRing ring = support::RandomRing(random, random.Range(3, 6), random.Range(4, 12));
        if (IsSound({ring, {}})) {
            return ring;
        }
    }
}

/// A few pieces, some with a hole, in a strip that has room for them or not.
SCase RandomCase(CSeededRandom& random, double spacing) {
    SCase result;
    std::vector<SGridPoint> at;
    for (int nLeft = random.Range(2, 5); nLeft > 0; --nLeft) {
        SGridShape shape{SoundRing(random), {}};
        if (random.Percent(20)) {
            shape = {{{-2, -2}, {14, -2}, {14, 14}, {-2, 14}}, {shape.m_Outline}};
        }
        result.m_Pieces.push_back(support::PieceOf({}));
        result.m_Pieces.back().m_Shape = support::AsDrawn(shape);
        const int nX = random.Range(0, WIDTH - 8);
        at.push_back({nX, random.Range(0, 30)});
    }
    result.m_Packing = support::PackingAt({WIDTH, spacing, 0.0}, result.m_Pieces, at);
    return result;
}

using CVerdict = std::set<std::tuple<EKind, int, int>>;

/// What is wrong, placements numbered as the permutation says.
CVerdict VerdictOn(const SCase& examined, const std::vector<int>& numbers = {}) {
    CVerdict verdict;
    const auto number = [&numbers](int nPlacement) {
        return nPlacement < 0 || numbers.empty() ? nPlacement : numbers[static_cast<size_t>(nPlacement)];
    };
    for (const SViolation& violation : support::ViolationsOf(examined.m_Pieces, examined.m_Packing)) {
        const int nFirst = number(violation.m_nFirst);
        const int nSecond = number(violation.m_nSecond);
        verdict.insert({violation.m_eKind, nSecond < 0 ? nFirst : std::min(nFirst, nSecond),
                        nSecond < 0 ? nSecond : std::max(nFirst, nSecond)});
    }
    return verdict;
}

void ForEachRing(SCase& changed, const std::function<void(CRing&)>& change) {
    for (SPiece& piece : changed.m_Pieces) {
        change(piece.m_Shape.m_Outline);
        std::for_each(piece.m_Shape.m_Holes.begin(), piece.m_Shape.m_Holes.end(), change);
    }
}

class CertificateLaw : public testing::TestWithParam<double> {
protected:
    /// Random packings and what becomes of them have the same verdict, now good and now bad.
    static void ExpectSameVerdict(uint64_t nSeed, const std::function<void(SCase&, CSeededRandom&)>& change) {
        CSeededRandom random(nSeed);
        int nValid = 0;
        int nWrong = 0;
        for (int i = 0; i < support::RandomCases(2000); ++i) {
            const SCase before = RandomCase(random, GetParam());
            SCase after = before;
            change(after, random);
            const CVerdict verdict = VerdictOn(before);
            ASSERT_EQ(verdict, VerdictOn(after)) << "case " << i;
            ++(verdict.empty() ? nValid : nWrong);
        }
        EXPECT_GT(nValid, 0);
        EXPECT_GT(nWrong, 0);
    }
};

TEST_P(CertificateLaw, DrawingPiecesElsewhereChangesNothing) {
    ExpectSameVerdict(1, [](SCase& changed, CSeededRandom& random) {
        const double shift = random.Range(-100000, 100000);
        ForEachRing(changed, [shift](CRing& ring) {
            for (SPoint& point : ring) {
                point = {point.m_X + shift, point.m_Y - 2 * shift};
            }
        });
    });
}

TEST_P(CertificateLaw, WideningTheStripAndMovingAllUpAndAsideChangesNothingAboutPairs) {
    CSeededRandom random(2);
    for (int i = 0; i < support::RandomCases(2000); ++i) {
        SCase examined = RandomCase(random, GetParam());
        examined.m_Packing.m_Strip.m_Width = 1e9;
        const CVerdict verdict = VerdictOn(examined);
        for (SFreePlacement& placement : examined.m_Packing.m_Placed) {
            placement.m_At = placement.m_At + SGridPoint{123456789, 987654321};
        }
        examined.m_Packing.m_nHeight += 987654321;
        ASSERT_EQ(verdict, VerdictOn(examined)) << "case " << i;
    }
}

TEST_P(CertificateLaw, MirroringStripAndPiecesChangesNothing) {
    ExpectSameVerdict(3, [](SCase& changed, CSeededRandom& /*random*/) {
        const std::vector<SGridShape> placed = PlacedShapes(changed.m_Pieces, changed.m_Packing);
        for (size_t i = 0; i < placed.size(); ++i) {
            int64_t nRight = 0;
            for (const SGridPoint point : placed[i].m_Outline) {
                nRight = std::max(nRight, point.m_nX);
            }
            changed.m_Packing.m_Placed[i].m_At.m_nX = WIDTH - nRight;
        }
        ForEachRing(changed, [](CRing& ring) {
            for (SPoint& point : ring) {
                point.m_X = -point.m_X;
            }
        });
    });
}

TEST_P(CertificateLaw, TheOrderOfVerticesTheirStartTheirRepetitionAndTheWindingAreOfNoMeaning) {
    ExpectSameVerdict(4, [](SCase& changed, CSeededRandom& random) {
        ForEachRing(changed, [&random](CRing& ring) {
            std::rotate(ring.begin(), ring.begin() + random.Range(0, static_cast<int>(ring.size()) - 1),
                        ring.end());
            if (random.Percent(50)) {
                std::reverse(ring.begin(), ring.end());
            }
            const size_t nRepeated = random.Index(ring.size());
            const SPoint repeated = ring[nRepeated];
            ring.insert(ring.begin() + static_cast<std::ptrdiff_t>(nRepeated), repeated);
        });
    });
}

TEST_P(CertificateLaw, TheOrderOfPlacementsIsOfNoMeaning) {
    CSeededRandom random(5);
    for (int i = 0; i < support::RandomCases(2000); ++i) {
        const SCase before = RandomCase(random, GetParam());
        SCase after = before;
        std::vector<int> numbers(before.m_Packing.m_Placed.size());
        std::iota(numbers.begin(), numbers.end(), 0);
        for (size_t j = numbers.size(); j > 1; --j) {
            std::swap(numbers[j - 1], numbers[random.Index(j)]);
        }
        for (size_t j = 0; j < numbers.size(); ++j) {
            after.m_Packing.m_Placed[j] = before.m_Packing.m_Placed[static_cast<size_t>(numbers[j])];
        }
        ASSERT_EQ(VerdictOn(before), VerdictOn(after, numbers)) << "case " << i;
    }
}

TEST_P(CertificateLaw, ThePlainCertificateSaysTheSame) {
    CSeededRandom random(6);
    for (int i = 0; i < support::RandomCases(600); ++i) {
        SCase examined = RandomCase(random, GetParam());
        examined.m_Packing.m_Placed[0].m_Degrees = random.Pick({0, 90, 180, 270, -90});
        examined.m_Packing.m_Placed[0].m_bMirrored = random.Percent(50);
        examined.m_Pieces[0].m_bMirrored = random.Percent(50);
        examined.m_Pieces[0].m_Turns.m_Degrees = {0.0, 90.0, -180.0};
        examined.m_Pieces[1].m_nQuantity = random.Range(0, 2);
        ASSERT_EQ(reference::FindCertificateDifference(examined.m_Pieces, examined.m_Packing), "")
            << "case " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Spacings, CertificateLaw, testing::Values(0.0, 1.0, 4.0),
                         [](const testing::TestParamInfo<double>& spacing) {
                             return "Of" + std::to_string(static_cast<int>(spacing.param)) + "Units";
                         });

TEST(CertificateScale, EnlargingEverythingByAWholeFactorChangesNothing) {
    CSeededRandom random(7);
    for (int i = 0; i < support::RandomCases(2000); ++i) {
        SCase examined = RandomCase(random, 0.0);
        const CVerdict verdict = VerdictOn(examined);
        const int nFactor = random.Range(2, 1000000);
        ForEachRing(examined, [nFactor](CRing& ring) {
            for (SPoint& point : ring) {
                point = {point.m_X * nFactor, point.m_Y * nFactor};
            }
        });
        examined.m_Packing.m_Strip.m_Width *= nFactor;
        examined.m_Packing.m_nHeight *= nFactor;
        for (SFreePlacement& placement : examined.m_Packing.m_Placed) {
            placement.m_At = {placement.m_At.m_nX * nFactor, placement.m_At.m_nY * nFactor};
        }
        ASSERT_EQ(verdict, VerdictOn(examined)) << "case " << i;
    }
}

}  // namespace

}  // namespace nestrix
