#include "tests/reference/SearchAgreement.h"

#include <cstdio>
#include <cstdlib>

#include "ga/CContainer.h"
#include "tests/reference/CReferenceSearch.h"
#include "tests/reference/Differences.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/SameBits.h"

namespace nestrix::reference {

namespace {

/// The report of a generation in the console, between the lines, so that its place among them is compared
/// too.
std::string ReportText(int nGeneration, float fAverage, float fBest, float fWorst, size_t nPopulation) {
    std::string text;
    Print(text, "report %d: %a %a %a of %zu\n", nGeneration, static_cast<double>(fAverage),
          static_cast<double>(fBest), static_cast<double>(fWorst), nPopulation);
    return text;
}

class CReportPrinter final : public support::CContainerSink {
public:
    CReportPrinter(CContainer& container, int nStopAt) : CContainerSink(container), m_nStopAt(nStopAt) {}

    void GenerationDone(int nGeneration) override {
        const std::string text =
            ReportText(nGeneration, m_Container.m_fAverageFitness, m_Container.m_fBestFitness,
                       m_Container.m_fWorstFitness, m_Container.m_Population.size());
        std::fputs(text.c_str(), stdout);
        if (nGeneration == m_nStopAt) {
            m_Container.m_bStop = true;
        }
    }

private:
    int m_nStopAt;
};

/// A value that is not a number may carry a sign, which says nothing.
std::string WithoutSignOfNan(std::string text) {
    for (size_t nAt = text.find("-nan"); nAt != std::string::npos; nAt = text.find("-nan", nAt)) {
        text.erase(nAt, 1);
    }
    return text;
}

std::string FindTextDifference(const std::string& engine, const std::string& reference) {
    if (engine == reference) {
        return {};
    }
    size_t nAt = 0;
    while (nAt < engine.size() && nAt < reference.size() && engine[nAt] == reference[nAt]) {
        ++nAt;
    }
    const size_t nLine = nAt == 0 ? std::string::npos : engine.rfind('\n', nAt - 1);
    const size_t nFrom = nLine == std::string::npos ? 0 : nLine + 1;
    return "console lines differ; the engine goes on with\n" + engine.substr(nFrom, 300) +
           "\nthe reference with\n" + reference.substr(nFrom, 300);
}

void RunReference(const SSearchCase& searchCase, CReferenceSearch& search) {
    search.m_Polygons = searchCase.m_Polygons;
    search.m_fContainerWidth = searchCase.m_fContainerWidth;
    search.m_fMutationProbability = searchCase.m_fMutationProbability;
    search.m_OnGeneration = [&](int nGeneration) {
        search.m_Console += ReportText(nGeneration, search.m_fAverageFitness, search.m_fBestFitness,
                                       search.m_fWorstFitness, search.m_Population.size());
        search.m_bStop = nGeneration == searchCase.m_nStopAt;
    };
    search.Run(static_cast<unsigned int>(searchCase.m_nPopulation), searchCase.m_nGenerations,
               searchCase.m_nSeed);
}

std::string RunEngine(const SSearchCase& searchCase, CContainer& container) {
    container.m_Polygons = searchCase.m_Polygons;
    container.m_fContainerWidth = searchCase.m_fContainerWidth;
    g_MutationProbability = searchCase.m_fMutationProbability;
    CReportPrinter printer(container, searchCase.m_nStopAt);
    return support::PrintedBy([&] {
        container.RunSearch(searchCase.m_nPopulation, searchCase.m_nGenerations, searchCase.m_nSeed, printer);
    });
}

std::string FindIndividualDifference(const CChromosome& engine, const SIndividual& reference) {
    if (!SameLists(engine.Genes(), reference.m_Genes)) {
        return "genes differ";
    }
    if (!support::SameBits(engine.m_fFitness, reference.m_fFitness)) {
        return Differs("fitness", engine.m_fFitness, reference.m_fFitness);
    }
    return {};
}

std::string FindPopulationDifference(const std::vector<CChromosome>& engine,
                                     const std::vector<SIndividual>& reference) {
    if (engine.size() != reference.size()) {
        return "the populations' sizes differ";
    }
    for (size_t i = 0; i < engine.size(); ++i) {
        const std::string difference = FindIndividualDifference(engine[i], reference[i]);
        if (!difference.empty()) {
            return "chromosome " + std::to_string(i) + ": " + difference;
        }
    }
    return {};
}

}  // namespace

std::string FindSearchDifference(const SSearchCase& searchCase) {
    CReferenceSearch plain;
    RunReference(searchCase, plain);
    const int nNextDraw = std::rand();
    CContainer container;
    const std::string printed = RunEngine(searchCase, container);
    std::string difference = FindTextDifference(WithoutSignOfNan(printed), WithoutSignOfNan(plain.m_Console));
    if (difference.empty()) {
        difference = FindPopulationDifference(container.m_Population, plain.m_Population);
    }
    if (difference.empty()) {
        difference = FindIndividualDifference(container.m_BestChromosome, plain.m_Best);
        difference = difference.empty() ? difference : "best chromosome: " + difference;
    }
    if (difference.empty() && std::rand() != nNextDraw) {
        difference = "the numbers of draws differ";
    }
    return difference;
}

}  // namespace nestrix::reference
