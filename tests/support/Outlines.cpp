#include "tests/support/Outlines.h"

#include <algorithm>
#include <cmath>

namespace nestrix::support {
namespace {

/// A point of the unit circle for a turn in [0, 1). Made from a rational parametrisation of each quadrant
/// with the four basic operations only: sine and cosine may differ between libraries in the last bit.
mgVector3 CirclePoint(double fTurn) {
    const double fQuarters = 4.0 * fTurn;
    const int nQuadrant = std::min(static_cast<int>(fQuarters), 3);
    const double t = fQuarters - nQuadrant;
    const auto fCos = static_cast<float>((1.0 - t * t) / (1.0 + t * t));
    const auto fSin = static_cast<float>(2.0 * t / (1.0 + t * t));
    switch (nQuadrant) {
        case 0:
            return {fCos, fSin, 0.0F};
        case 1:
            return {-fSin, fCos, 0.0F};
        case 2:
            return {-fCos, -fSin, 0.0F};
        default:
            return {fSin, -fCos, 0.0F};
    }
}

/// Random turns in ascending order, one in each of nCount equal sectors.
std::vector<double> AscendingTurns(CSeededRandom& random, int nCount) {
    std::vector<double> turns;
    for (int i = 0; i < nCount; ++i) {
        turns.push_back((i + 0.1 + 0.8 * static_cast<double>(random.Unit())) / nCount);
    }
    return turns;
}

Outline BentLetter(CSeededRandom& random, float fWidth, float fHeight, float fBar) {
    switch (random.Range(0, 3)) {
        case 0:  // L
            return {{0, 0, 0},       {fWidth, 0, 0},     {fWidth, fBar, 0},
                    {fBar, fBar, 0}, {fBar, fHeight, 0}, {0, fHeight, 0}};
        case 1: {  // T
            const float fStem = std::floor((fWidth - fBar) * 0.5F);
            return {{fStem, 0, 0},
                    {fStem + fBar, 0, 0},
                    {fStem + fBar, fHeight - fBar, 0},
                    {fWidth, fHeight - fBar, 0},
                    {fWidth, fHeight, 0},
                    {0, fHeight, 0},
                    {0, fHeight - fBar, 0},
                    {fStem, fHeight - fBar, 0}};
        }
        case 2:  // U
            return {{0, 0, 0},
                    {fWidth, 0, 0},
                    {fWidth, fHeight, 0},
                    {fWidth - fBar, fHeight, 0},
                    {fWidth - fBar, fBar, 0},
                    {fBar, fBar, 0},
                    {fBar, fHeight, 0},
                    {0, fHeight, 0}};
        default:  // Z
            return {{fBar, 0, 0},           {fWidth, 0, 0},           {fWidth, fBar, 0},
                    {2 * fBar, fBar, 0},    {2 * fBar, fHeight, 0},   {0, fHeight, 0},
                    {0, fHeight - fBar, 0}, {fBar, fHeight - fBar, 0}};
    }
}

}  // namespace

Outline RectangleOutline(float fWidth, float fHeight) {
    return {{0, 0, 0}, {fWidth, 0, 0}, {fWidth, fHeight, 0}, {0, fHeight, 0}};
}

Outline ConvexOutline(CSeededRandom& random, int nVertices, float fWidth, float fHeight) {
    Outline outline;
    for (const double fTurn : AscendingTurns(random, nVertices)) {
        const mgVector3 point = CirclePoint(fTurn);
        outline.push_back({fWidth * 0.5F * (1.0F + point.x), fHeight * 0.5F * (1.0F + point.y), 0.0F});
    }
    return outline;
}

Outline StarOutline(CSeededRandom& random, int nVertices, float fWidth, float fHeight) {
    Outline outline;
    for (const double fTurn : AscendingTurns(random, nVertices)) {
        const mgVector3 point = CirclePoint(fTurn);
        const float fLargestX = random.Between(0.35F, 1.0F);
        outline.push_back({fWidth * 0.5F * (1.0F + fLargestX * point.x),
                           fHeight * 0.5F * (1.0F + fLargestX * point.y), 0.0F});
    }
    return outline;
}

Outline LobedOutline(CSeededRandom& random, int nVertices, float fWidth, float fHeight) {
    const int nLobes = random.Range(3, 6);
    const double fPhase = static_cast<double>(random.Unit());
    const float fDepth = random.Between(0.1F, 0.3F);
    Outline outline;
    for (const double fTurn : AscendingTurns(random, nVertices)) {
        const mgVector3 point = CirclePoint(fTurn);
        const double fWave = nLobes * fTurn + fPhase;
        const float fLargestX = 1.0F - fDepth + fDepth * CirclePoint(fWave - std::floor(fWave)).y;
        outline.push_back({fWidth * 0.5F * (1.0F + fLargestX * point.x),
                           fHeight * 0.5F * (1.0F + fLargestX * point.y), 0.0F});
    }
    return outline;
}

Outline CombOutline(CSeededRandom& random, int nVertices, float fWidth, float fHeight) {
    const int nTeeth = std::max(1, nVertices / 4);
    const float fPitch = fWidth / static_cast<float>(2 * nTeeth - 1);
    const float fBar = fHeight * 0.3F;
    Outline outline = {{0, 0, 0}, {fWidth, 0, 0}};
    for (int nTooth = nTeeth - 1; nTooth >= 0; --nTooth) {
        const float fLeft = static_cast<float>(2 * nTooth) * fPitch;
        const float fRight = nTooth == nTeeth - 1 ? fWidth : fLeft + fPitch;
        const float fTop = random.Between(fBar * 1.2F, fHeight);
        if (nTooth != nTeeth - 1) {
            outline.push_back({fRight, fBar, 0});
        }
        outline.push_back({fRight, fTop, 0});
        outline.push_back({fLeft, fTop, 0});
        if (nTooth != 0) {
            outline.push_back({fLeft, fBar, 0});
        }
    }
    if (random.Percent(50)) {
        for (mgVector3& vertex : outline) {
            vertex.y = fHeight - vertex.y;
        }
        outline = Reversed(std::move(outline));
    }
    return outline;
}

Outline LetterOutline(CSeededRandom& random) {
    const auto fBar = static_cast<float>(random.Range(3, 9));
    const float fWidth = 3 * fBar + static_cast<float>(random.Range(0, 20));
    const float fHeight = 3 * fBar + static_cast<float>(random.Range(0, 20));
    return BentLetter(random, fWidth, fHeight, fBar);
}

Outline NeedleOutline(CSeededRandom& random, int nVertices) {
    const int nSteps = std::max(2, nVertices / 2);
    std::vector<float> xs = {0.0F};
    while (static_cast<int>(xs.size()) < nSteps) {
        xs.push_back(xs.back() + random.Pick({0.001F, 0.013F, 0.7F, 2.3F}));
    }
    const auto nextTip = [&](bool bPeak) {
        return bPeak ? random.Pick({7.3F, 9.7F, 11.1F}) : random.Between(0.0F, 5.0F);
    };
    Outline outline;
    for (size_t i = 0; i < xs.size(); ++i) {
        outline.push_back({xs[i], 11.1F - nextTip(i % 2 == 0), 0.0F});
    }
    for (size_t i = xs.size(); i-- > 0;) {
        outline.push_back({xs[i], 13.3F + nextTip(i % 2 == 0), 0.0F});
    }
    return outline;
}

Outline ScribbleOutline(CSeededRandom& random, int nVertices) {
    Outline outline;
    for (int i = 0; i < nVertices; ++i) {
        outline.push_back({random.Quarter(0, 40), random.Quarter(0, 40), 0.0F});
    }
    return outline;
}

Outline SlantOutline(int nVertices, float fWidth, float fHeight) {
    const int nChain = nVertices / 2;
    Outline outline;
    for (int i = 0; i < nChain; ++i) {
        const float t = static_cast<float>(i) / static_cast<float>(std::max(nChain - 1, 1));
        outline.push_back({fWidth * t * t, fHeight * (1.0F - t) * (1.0F - t), 0.0F});
    }
    for (int i = 1; i <= nVertices - nChain; ++i) {
        const float fRise = fHeight * static_cast<float>(i) / static_cast<float>(nVertices);
        outline.push_back(i % 2 == 0 ? mgVector3{fWidth, fRise, 0} : mgVector3{0, fHeight + fRise, 0});
    }
    return outline;
}

Outline TouchingOutline(CSeededRandom& random, int nVertices) {
    constexpr int STEPS = 1000;
    const auto fRun = static_cast<float>(random.Range(1, 40));
    const auto fRise = static_cast<float>(random.Range(-40, 40));
    const auto onLine = [&](int nStep) {
        return mgVector3{fRun * static_cast<float>(nStep), fRise * static_cast<float>(nStep), 0.0F};
    };
    const auto farAbove = [&] {
        return onLine(random.Range(0, STEPS)) + mgVector3{0, 1e6F + random.Between(0, 1e5F), 0};
    };
    Outline outline;
    while (static_cast<int>(outline.size()) < nVertices) {
        outline.push_back(onLine(random.Range(0, STEPS)));
        if (random.Percent(15)) {
            outline.push_back(onLine(random.Range(0, STEPS)));
        }
        outline.push_back(farAbove());
    }
    return outline;
}

Outline DegenerateOutline(CSeededRandom& random) {
    const float fLength = random.Quarter(1, 40);
    const float fRise = random.Pick({0.0F, fLength, -fLength * 0.5F, random.Between(-30.0F, 30.0F)});
    switch (random.Range(0, 6)) {
        case 0:
            return {};
        case 1:
            return {{fLength, fRise, 0}};
        case 2:
            return {{0, 0, 0}, {fLength, fRise, 0}};
        case 3:  // upright
            return {{0, 0, 0}, {0, fLength, 0}, {0, fLength * 0.5F, 0}};
        case 4:  // on one line
            return {{0, 0, 0}, {fLength * 0.5F, fRise * 0.5F, 0}, {fLength, fRise, 0}};
        case 5:  // every vertex twice
            return {{0, 0, 0},       {0, 0, 0},       {fLength, 0, 0}, {fLength, 0, 0},
                    {fLength, 9, 0}, {fLength, 9, 0}, {0, 9, 0},       {0, 9, 0}};
        default:  // all vertices the same
            return {{fLength, fRise, 0}, {fLength, fRise, 0}, {fLength, fRise, 0}};
    }
}

Outline Snapped(Outline outline, float fStep) {
    for (mgVector3& vertex : outline) {
        vertex.x = std::floor(vertex.x / fStep + 0.5F) * fStep;
        vertex.y = std::floor(vertex.y / fStep + 0.5F) * fStep;
    }
    return outline;
}

Outline Moved(Outline outline, float fX, float fY) {
    for (mgVector3& vertex : outline) {
        vertex.x += fX;
        vertex.y += fY;
    }
    return outline;
}

Outline Scaled(Outline outline, float fFactor) {
    for (mgVector3& vertex : outline) {
        vertex.x *= fFactor;
        vertex.y *= fFactor;
    }
    return outline;
}

Outline Reversed(Outline outline) {
    std::reverse(outline.begin(), outline.end());
    return outline;
}

}  // namespace nestrix::support
