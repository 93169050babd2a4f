#include "nest/CPopulation.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <utility>

namespace nestrix {

namespace {

SSolution Packing(double height, size_t nVersion = 0) {
    return {height, {SPlace{{0.0, 0.0}, nVersion}}};
}

/// How often each two were drawn.
std::map<std::pair<double, double>, int> Drawn(const CPopulation& population, int nDraws) {
    CRandom random(1);
    std::map<std::pair<double, double>, int> drawn;
    for (int i = 0; i < nDraws; ++i) {
        const auto [first, second] = population.DrawTwo(random);
        ++drawn[{first.m_Height, second.m_Height}];
    }
    return drawn;
}

std::set<double> HeightsOf(const CPopulation& population) {
    std::set<double> heights;
    for (const auto& [pair, nTimes] : Drawn(population, 1000)) {
        heights.insert({pair.first, pair.second});
    }
    return heights;
}

TEST(Population, KeepsTheLowest) {
    CPopulation population(3);
    for (const double height : {5.0, 9.0, 7.0, 8.0, 6.0, 10.0}) {
        population.Enter(Packing(height));
    }
    EXPECT_EQ(population.Count(), 3U);
    EXPECT_EQ(HeightsOf(population), (std::set{5.0, 6.0, 7.0}));
}

TEST(Population, KeepsOneOfEachHeight) {
    CPopulation population(3);
    population.Enter(Packing(5.0, 1));
    population.Enter(Packing(5.0001, 2));
    population.Enter(Packing(4.9999, 2));
    EXPECT_EQ(population.Count(), 1U);
    population.Enter(Packing(5.001, 2));
    EXPECT_EQ(population.Count(), 2U);
    EXPECT_EQ(HeightsOf(population), (std::set{5.0, 5.001}));
}

TEST(Population, DrawsAnyTwoAsOftenAsOthers) {
    CPopulation population(3);
    for (const double height : {5.0, 6.0, 7.0}) {
        population.Enter(Packing(height));
    }
    const auto drawn = Drawn(population, 6000);
    EXPECT_EQ(drawn.size(), 6U);
    for (const auto& [pair, nTimes] : drawn) {
        EXPECT_NE(pair.first, pair.second);
        EXPECT_NEAR(nTimes, 1000, 100);
    }
}

}  // namespace

}  // namespace nestrix
