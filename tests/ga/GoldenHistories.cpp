#include "tests/ga/GoldenHistories.h"

#include "tests/reference/ReferenceOperators.h"
#include "tests/support/BenchmarkSets.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/Pieces.h"

namespace nestrix {

namespace {

reference::SSearchCase MakeSearch(std::vector<CPolygon> polygons, unsigned int nSeed, float fMutation) {
    reference::SSearchCase search;
    search.m_Polygons = std::move(polygons);
    search.m_nPopulation = 12;
    search.m_nGenerations = 15;
    search.m_nSeed = nSeed;
    search.m_fMutationProbability = fMutation;
    return search;
}

std::vector<CPolygon> MakeFamilySet(std::string_view name, int nPieces) {
    support::CSeededRandom random(51);
    return support::MakeSet(random, support::FamilyNamed(name), nPieces);
}

}  // namespace

std::vector<SGoldenCase> GoldenCases() {
    const std::vector<CPolygon> squares(6, support::MakeSquare(70));
    std::vector<SGoldenCase> cases = {
        {"squares-1", MakeSearch(squares, 1, 0.01F)},
        {"squares-2", MakeSearch(squares, 2, 0.5F)},
        {"aligned-rectangles-1", MakeSearch(MakeFamilySet("aligned rectangles", 25), 1, 0.05F)},
        {"aligned-rectangles-7", MakeSearch(MakeFamilySet("aligned rectangles", 25), 7, 1.0F)},
        {"letters-3", MakeSearch(MakeFamilySet("letters", 20), 3, 0.1F)},
        {"sound-mixture-4", MakeSearch(MakeFamilySet("sound mixture", 30), 4, 0.2F)},
        {"loose-boxes-5", MakeSearch(MakeFamilySet("loose boxes among others", 20), 5, 0.3F)},
        {"clockwise-6", MakeSearch(MakeFamilySet("clockwise pieces among others", 20), 6, 0.3F)},
        {"one-piece-8", MakeSearch({support::MakeRectangle(30, 12.5F)}, 8, 0.5F)},
        {"one-chromosome-9", MakeSearch(squares, 9, 0.5F)},
    };
    cases.back().m_Search.m_nPopulation = 1;
    for (const support::SBenchmarkSet& set : support::BenchmarkSets()) {
        const std::string name =
            "benchmark-" + std::string(set.m_Kind.m_Name) + "-" + std::to_string(set.m_nPieces);
        cases.push_back({name, MakeSearch(support::MakeBenchmarkPieces(set), 10, 0.1F)});
        cases.back().m_Search.m_nPopulation = 4;
        cases.back().m_Search.m_nGenerations = set.m_nPieces > 100 ? 1 : 5;
    }
    return cases;
}

std::string RunGoldenCase(const SGoldenCase& goldenCase) {
    const reference::SSearchCase& search = goldenCase.m_Search;
    CContainer container;
    container.m_Polygons = search.m_Polygons;
    g_MutationProbability = search.m_fMutationProbability;
    support::CNobody nobody;
    std::string history = support::PrintedBy(
        [&] { container.RunSearch(search.m_nPopulation, search.m_nGenerations, search.m_nSeed, nobody); });
    reference::Print(history, "best fitness %a\n",
                     static_cast<double>(container.m_BestChromosome.m_fFitness));
    for (const SGene& gene : container.m_BestChromosome.Genes()) {
        reference::Print(history, "%d %a\n", gene.m_nOrder, static_cast<double>(gene.m_fX));
    }
    return history;
}

}  // namespace nestrix
