#include "nest/LeastDepths.h"

#include <gtest/gtest.h>

#include "nest/CFieldTable.h"
#include "tests/nest/CFieldScene.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CFieldScene;
using support::RandomCases;

using CPlaces = std::vector<SPoint>;  ///< as many as there are in a batch

CPlaces DrawPlaces(CFieldScene& scene, SPoint middle, double reach) {
    CPlaces places;
    for (size_t i = 0; i < SPlaceBatch::SIZE; ++i) {
        places.push_back(scene.DrawAround(middle, reach));
    }
    return places;
}

std::vector<float> SumOf(std::span<const SLeastDepths> fields, const CPlaces& places) {
    SPlaceBatch batch;
    for (size_t i = 0; i < SPlaceBatch::SIZE; ++i) {
        batch.m_fX[i] = static_cast<float>(places[i].m_X);
        batch.m_fY[i] = static_cast<float>(places[i].m_Y);
        batch.m_fLeast[i] = 1.0F;  // left from what was summed up before
    }
    SumLeastDepths(fields, batch);
    return {std::begin(batch.m_fLeast), std::end(batch.m_fLeast)};
}

double CoordinatesOf(SPoint point) {
    return std::abs(point.m_X) + std::abs(point.m_Y);
}

/// So far off may single precision look: eight roundings of 24 bits for each axis.
double RoundingOf(const CPairField& field, SPoint at, SPoint origin) {
    return 16.0 * 0x1p-24 * (CoordinatesOf(at) + CoordinatesOf(origin) + CoordinatesOf(field.Box().m_Low));
}

/// The diagonal of a cell of the field, or more: it has no fewer than 144.
double DiagonalOf(const CPairField& field) {
    const SPoint size = field.Box().m_High - field.Box().m_Low;
    return std::sqrt(2.0 * size.m_X * size.m_Y / 144.0);
}

/// Two versions, one of which lies somewhere, and places to try the other at: in the field, just outside
/// it, and far away.
struct SCase {
    size_t m_nMoves;
    size_t m_nStays;
    SPoint m_Stays;
    double m_Factor;
    CPlaces m_Places;

    explicit SCase(CFieldScene& scene) : m_nMoves(scene.DrawVersion()), m_nStays(scene.DrawVersion()) {
        const double reach = scene.Random().Pick({10.0, 15.0, 40.0, 2'000.0, 100'000.0});
        m_Stays = scene.DrawAround({}, scene.InUnits(100.0));
        m_Factor = static_cast<double>(scene.Random().Between(0.1F, 50.0F));
        m_Places = DrawPlaces(scene, m_Stays, scene.InUnits(reach));
    }

    [[nodiscard]] SLeastDepths LeastDepthsIn(CFieldTable& table) const {
        const CFieldTable::SWay way = table.WayOf(m_nMoves, m_nStays);
        return way.m_pField->LeastDepths(way.m_Direction, m_Stays, m_Factor);
    }
};

TEST(LeastDepths, AreNeverAboveTheDepthAndWithinACellOfIt) {
    CFieldScene scene(1, support::TurnedSet(), {80.0, 1.0, 0.0});
    CFieldTable& table = scene.Table();
    int nDeep = 0;
    int nPositive = 0;
    for (int i = 0; i < RandomCases(4000); ++i) {
        const SCase pair(scene);
        const CPairField& field = *table.WayOf(pair.m_nMoves, pair.m_nStays).m_pField;
        const std::vector<float> least = SumOf({{pair.LeastDepthsIn(table)}}, pair.m_Places);
        for (size_t k = 0; k < least.size(); ++k) {
            const SPoint at = pair.m_Places[k];
            const double depth = table.DepthOf(pair.m_nMoves, at, pair.m_nStays, pair.m_Stays);
            const double rounding = RoundingOf(field, at, pair.m_Stays);
            const double found = static_cast<double>(least[k]) / pair.m_Factor;
            ASSERT_LE(found, depth + rounding) << pair.m_nMoves << " beside " << pair.m_nStays;
            // A depth differs from place to place by as much as they are apart, at most.
            ASSERT_GE(found, 0.999 * (depth - DiagonalOf(field)) - rounding);
            ASSERT_GE(found, 0.0);
            nDeep += depth > 0.0 ? 1 : 0;
            nPositive += found > 0.0 ? 1 : 0;
        }
    }
    EXPECT_GT(nDeep, RandomCases(4000));
    EXPECT_GT(nPositive, nDeep * 3 / 4) << "of little use";
}

TEST(LeastDepths, OfSeveralFieldsAreAddedUpInTheirOrderAndNothingIsContracted) {
    CFieldScene scene(2, support::TurnedSet(), {80.0, 1.0, 0.0});
    int nSeveral = 0;
    for (int i = 0; i < RandomCases(500); ++i) {
        const CPlaces places = SCase(scene).m_Places;
        std::vector<SLeastDepths> fields;
        std::vector<float> expected(SPlaceBatch::SIZE, 0.0F);
        for (int k = scene.Random().Range(0, 20); k > 0; --k) {
            SCase other(scene);
            other.m_Stays = places[scene.Random().Index(places.size())];
            fields.push_back(other.LeastDepthsIn(scene.Table()));
            const std::vector<float> alone = SumOf({{fields.back()}}, places);
            for (size_t nPlace = 0; nPlace < places.size(); ++nPlace) {
                nSeveral += expected[nPlace] > 0.0F && alone[nPlace] > 0.0F ? 1 : 0;
                expected[nPlace] += alone[nPlace];
            }
        }
        ASSERT_EQ(SumOf(fields, places), expected);
    }
    EXPECT_GT(nSeveral, RandomCases(500));
}

TEST(LeastDepths, OfNoFieldsAreNone) {
    EXPECT_EQ(SumOf({}, CPlaces(SPlaceBatch::SIZE)), std::vector<float>(SPlaceBatch::SIZE, 0.0F));
}

TEST(LeastDepths, OfAFieldWithoutBorderAreNoneAnywhere) {
    const CConvexPart square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    const CPairField tooSmall({{square}}, {{square}}, -1000.0);
    const CPairField withoutParts({}, {}, 0.0);
    CFieldScene scene(3);
    for (const CPairField* pField : {&tooSmall, &withoutParts}) {
        ASSERT_TRUE(pField->Border().empty());
        for (const double reach : {1.0, 1e3, 1e9, 1e30}) {
            const SLeastDepths least = pField->LeastDepths(DirectionOf(30), {12.0, 34.0}, 5.0);
            EXPECT_EQ(SumOf({{least}}, DrawPlaces(scene, {}, reach)),
                      std::vector<float>(SPlaceBatch::SIZE, 0.0F))
                << reach;
        }
    }
}

}  // namespace

}  // namespace nestrix
