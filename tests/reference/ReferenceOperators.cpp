#include "tests/reference/ReferenceOperators.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace nestrix::reference {
namespace {

long double DrawPercent() {
    return static_cast<long double>(std::rand()) * 4.656612875245797e-10 * 100.0;
}

/// The difference between a slice's end and the draw, cut to a whole number.
int CutDifference(float fBoundary, long double r) {
    const auto fDifference = static_cast<float>(static_cast<long double>(fBoundary) - r);
    if (std::isnan(fDifference) || fDifference >= 2147483648.0F || fDifference < -2147483648.0F) {
        return std::numeric_limits<int>::min();
    }
    return static_cast<int>(fDifference);
}

/// Within the tolerance of a slice's end. The most negative integer has no positive counterpart, so its
/// absolute value is itself and lies below the tolerance.
bool IsClose(float fBoundary, long double r) {
    const int nDifference = CutDifference(fBoundary, r);
    if (nDifference == std::numeric_limits<int>::min()) {
        return true;
    }
    return std::abs(nDifference) < 0.05;
}

void PrintFailure(std::string& console, long double r, float fSum, float fBoundary) {
    Print(console, "P dint exists r=%f,sum=%f upper_boundary=%f\n", static_cast<double>(r),
          static_cast<double>(fSum), static_cast<double>(fBoundary));
}

}  // namespace

void Print(std::string& console, const char* pFormat, ...) {
    char line[1024];
    va_list arguments;
    va_start(arguments, pFormat);
    std::vsnprintf(line, sizeof line, pFormat, arguments);
    va_end(arguments);
    console += line;
}

bool Mutate(SIndividual& individual, float fProbability, int nOrderLow, int nOrderHigh, float fXLow,
            float fXHigh) {
    if (individual.m_Genes.empty()) {
        return false;
    }
    const int m = std::rand() % 1000;
    if (!(1000.0 * static_cast<double>(fProbability) >= m)) {
        return false;
    }
    const int nKind = std::rand() % 100;
    SGene& gene = individual.m_Genes[static_cast<size_t>(std::rand()) % individual.m_Genes.size()];
    if (nKind > 49) {
        const double fRange = static_cast<double>(fXHigh - fXLow);
        const double fScale = static_cast<double>(4.656613e-10F);
        const double fDraw = std::rand();
        gene.m_fX =
            static_cast<float>(fRange * fScale * fDraw + (fRange * -0.5 + static_cast<double>(gene.m_fX)));
    } else {
        gene.m_nOrder = nOrderLow + std::rand() % (nOrderHigh - nOrderLow + 1);
    }
    return true;
}

void CrossOver(const SIndividual& first, const SIndividual& second, SIndividual* pChildren, int nChildren) {
    if (nChildren == 0 || first.m_Genes.empty()) {
        return;
    }
    const size_t n = first.m_Genes.size();
    const size_t nCut = static_cast<size_t>(std::rand()) % n;
    for (int nChild = 0; nChild < nChildren; ++nChild) {
        const SIndividual& head = nChild == 0 ? first : second;
        const SIndividual& tail = nChild == 0 ? second : first;
        std::vector<SGene>& genes = pChildren[nChild].m_Genes;
        genes.resize(n);
        for (size_t i = 0; i < n; ++i) {
            genes[i] = i <= nCut ? head.m_Genes.at(i) : tail.m_Genes.at(i);
        }
    }
}

int RandomEventCore(const std::vector<float>& shares, std::string& console) {
    const long double r = DrawPercent();
    if (shares.empty()) {
        PrintFailure(console, r, 0.0F, 0.0F);
        return -1;
    }
    float fCum = static_cast<float>(static_cast<double>(shares[0]) * 100.0);
    if (static_cast<long double>(fCum) > r || IsClose(fCum, r)) {
        return 0;
    }
    for (size_t i = 1; i < shares.size(); ++i) {
        fCum = static_cast<float>(static_cast<double>(fCum) + static_cast<double>(shares[i]) * 100.0);
        if (!(r >= static_cast<long double>(fCum)) || IsClose(fCum, r)) {
            return static_cast<int>(i);
        }
    }
    float fSum = 0.0F;
    for (const float fShare : shares) {
        fSum = fSum + fShare;
    }
    PrintFailure(console, r, fSum, fCum);
    return -1;
}

int RandomEvent(const std::vector<float>& shares, int nExclude, std::string& console) {
    if (nExclude < 0) {
        return RandomEventCore(shares, console);
    }
    std::vector<float> copied;
    float fSum = 0.0F;
    for (size_t i = 0; i < shares.size(); ++i) {
        if (i != static_cast<size_t>(nExclude)) {
            copied.push_back(shares[i]);
            fSum = fSum + shares[i];
        }
    }
    if (copied.empty()) {
        PrintFailure(console, DrawPercent(), 0.0F, 0.0F);
        return -1;
    }
    const float fScale = 1.0F / fSum;
    for (float& fShare : copied) {
        fShare = fShare * fScale;
    }
    return RandomEventCore(copied, console);
}

}  // namespace nestrix::reference
