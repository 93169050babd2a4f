#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "ga/CContainer.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/Pieces.h"

namespace nestrix::support {

/// Keeps what it hears and calls the test's own listener.
class CHistory final : public CSilentSink {
public:
    void GenerationDone(int nGeneration) override {
        m_Generations.push_back(nGeneration);
        m_Listener();
    }

    std::vector<int> m_Generations;
    std::function<void()> m_Listener = [] {};
};

/// A container, and a search in it.
class SearchFixture : public testing::Test {
protected:
    void SetUp() override { g_MutationProbability = 0.1F; }
    void TearDown() override { g_MutationProbability = 0.01F; }

    void UseMixture(int nPieces) {
        CSeededRandom random(31);
        m_Container.m_Polygons = MakeSet(random, FamilyNamed("sound mixture"), nPieces);
    }

    /// Runs the search and returns what it prints.
    std::string Run(int nPopulation, int nGenerations, unsigned int nSeed = 1) {
        return PrintedBy([&] { m_Container.RunSearch(nPopulation, nGenerations, nSeed, m_History); });
    }

    CContainer m_Container;
    CHistory m_History;
};

}  // namespace nestrix::support
