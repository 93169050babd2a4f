#include <gmock/gmock.h>

#include <filesystem>
#include <limits>
#include <optional>
#include <set>

#include "ga/GeneticSearch.h"
#include "tests/certify/ViolationMatchers.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

// Packings of the window's kind: single precision, taken as it is.

namespace {

using EKind = SViolation::EKind;
using support::IsViolation;
using support::MakePolygon;
using support::MakeRectangle;
using support::MakeSquare;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<SViolation> ViolationsOf(const std::vector<CPolygon>& pieces, const std::vector<mgVector3>& at) {
    SPacking packing;
    for (size_t i = 0; i < at.size(); ++i) {
        packing.m_Placed.push_back({static_cast<int>(i), at[i]});
    }
    return Certify(pieces, packing).m_Violations;
}

TEST(DroppedPacking, MayTouch) {
    const std::vector<CPolygon> pieces(3, MakeSquare(0.1F));
    EXPECT_THAT(ViolationsOf(pieces, {{0, 0, 0}, {0.1F, 0, 0}, {0, 0.1F, 0}}), IsEmpty());
    EXPECT_THAT(ViolationsOf({}, {}), IsEmpty());
}

TEST(DroppedPacking, ThatOverlapsByTheLastDigitIsRefused) {
    const std::vector<CPolygon> pieces(2, MakeSquare(20.0F));
    const float fLess = std::nextafter(20.0F, 0.0F);
    const auto violations = ViolationsOf(pieces, {{0, 0, 0}, {fLess, 0, 0}});
    ASSERT_THAT(violations, ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
    EXPECT_EQ(violations[0].m_Amount, 20.0 - static_cast<double>(fLess));
}

TEST(DroppedPacking, IsAddedUpInSinglePrecision) {
    // Moved to 1000, the corner at 0.1 is rounded by 1e-6 and more.
    const std::vector<CPolygon> pieces{MakeSquare(0.1F), MakeSquare(5.0F)};
    const float fRight = 0.1F + 390.0F;
    EXPECT_THAT(ViolationsOf(pieces, {{390.0F, 0, 0}, {fRight, 0, 0}}), IsEmpty());
    EXPECT_THAT(ViolationsOf(pieces, {{390.0F, 0, 0}, {std::nextafter(fRight, 0.0F), 0, 0}}),
                ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
}

TEST(DroppedPacking, ThatLeavesTheStripIsRefused) {
    const std::vector<CPolygon> pieces{MakeRectangle(400.0F, 10.0F)};
    EXPECT_THAT(ViolationsOf(pieces, {{0, 0, 0}}), IsEmpty());
    for (const mgVector3& at : {mgVector3{-0.5F, 0, 0}, mgVector3{0.5F, 0, 0}, mgVector3{0, -0.5F, 0}}) {
        const auto violations = ViolationsOf(pieces, {at});
        ASSERT_THAT(violations, ElementsAre(IsViolation(EKind::STRIP, 0, -1)));
        EXPECT_EQ(violations[0].m_Amount, 0.5);
    }
}

TEST(DroppedPacking, OfOutlinesThatCrossThemselvesOrAreNotFiniteIsRefused) {
    constexpr float INFINITE = std::numeric_limits<float>::infinity();
    const std::vector<CPolygon> pieces{MakePolygon({{0, 0, 0}, {9, 9, 0}, {9, 0, 0}, {0, 9, 0}}),
                                       MakePolygon({{0, 0, 0}, {INFINITE, 0, 0}, {0, 9, 0}}), CPolygon()};
    EXPECT_THAT(ViolationsOf(pieces, {{0, 0, 0}, {20, 0, 0}, {40, 0, 0}}),
                ElementsAre(IsViolation(EKind::SHAPE, 0, -1), IsViolation(EKind::SHAPE, 1, -1),
                            IsViolation(EKind::SHAPE, 2, -1)));
    EXPECT_THAT(ViolationsOf({MakeSquare(9)}, {{std::nanf(""), 0, 0}}),
                ElementsAre(IsViolation(EKind::SHAPE, 0, -1)));
}

TEST(DroppedPacking, NamesPiecesThatTheSetHasNot) {
    SPacking packing;
    packing.m_Placed = {{-1, {}}, {1, {}}, {std::numeric_limits<int>::max(), {}}};
    EXPECT_THAT(
        Certify(std::vector{MakeSquare(9)}, packing).m_Violations,
        ElementsAre(IsViolation(EKind::UNKNOWN_PIECE, 0, -1), IsViolation(EKind::UNKNOWN_PIECE, 1, -1),
                    IsViolation(EKind::UNKNOWN_PIECE, 2, -1)));
}

TEST(DroppedPacking, OfPiecesOfAnySizeIsExaminedOneByOne) {
    // Sizes that no unit has in common: each is sound by itself, the most that fit one unit are compared.
    const std::vector<CPolygon> pieces{MakeSquare(1e-30F), MakeSquare(10.0F), MakeSquare(10.0F)};
    EXPECT_THAT(ViolationsOf(pieces, {{0, 0, 0}, {20, 0, 0}, {25, 5, 0}}),
                ElementsAre(IsViolation(EKind::SHAPE, 0, -1), IsViolation(EKind::OVERLAP, 1, 2)));
    const std::vector<CPolygon> tiny(2, MakeSquare(1e-44F));
    EXPECT_THAT(ViolationsOf(tiny, {{0, 0, 0}, {1e-44F, 0, 0}}), IsEmpty());
    EXPECT_THAT(ViolationsOf(tiny, {{0, 0, 0}, {0, 1e-45F, 0}}),
                ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
    const std::vector<CPolygon> huge(2, MakeSquare(1e38F));
    SPacking packing;
    packing.m_Strip.m_fWidth = 3e38F;
    packing.m_Placed = {{0, {}}, {1, {1e38F, 0, 0}}};
    EXPECT_THAT(Certify(huge, packing).m_Violations, IsEmpty());
}

/// The placements that overlap by more than rounding.
std::set<std::pair<int, int>> WideOverlaps(const std::vector<CPolygon>& pieces, const SPacking& packing) {
    std::set<std::pair<int, int>> pairs;
    for (const SViolation& violation : Certify(pieces, packing).m_Violations) {
        EXPECT_EQ(violation.m_eKind, EKind::OVERLAP) << InWords(violation);
        if (violation.m_Amount > 1e-3) {
            pairs.insert({violation.m_nFirst, violation.m_nSecond});
        }
    }
    return pairs;
}

TEST(DroppedPacking, OfTheConvexSamplesKeepsTheOverlapThatDroppingLeaves) {
    std::set<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(NESTRIX_SAMPLES "/convex")) {
        files.insert(entry.path());
    }
    std::vector<CPolygon> pieces;
    for (const std::filesystem::path& file : files) {
        ASSERT_TRUE(pieces.emplace_back().ReadPolygon(file.c_str()));
    }
    std::optional<SPacking> packing;
    const std::string printed = support::PrintedBy([&] {
        CSearchState state;
        support::CNobody nobody;
        g_MutationProbability = 0.1F;
        packing = RunGeneticSearch(pieces, {}, {200, 500}, 1, state, nobody);
    });
    ASSERT_TRUE(packing.has_value());
    EXPECT_THAT(WideOverlaps(pieces, *packing), ElementsAre(std::pair(10, 14)));
}

}  // namespace

}  // namespace nestrix
