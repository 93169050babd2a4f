#include "tests/support/Pieces.h"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>
#include <string>

namespace nestrix::support {
namespace {

using enum EPiece;

// Here and below every draw stands in a statement or an initialiser list of its own: compilers differ in the
// order in which they evaluate the arguments of a call.
Outline AlignedOutline(CSeededRandom& random) {
    const float fWidth =
        random.Percent(70) ? 5.0F * random.Pick({4.0F, 5.0F, 6.0F, 8.0F}) : random.Quarter(20, 40);
    const float fHeight = random.Pick({20.0F, 25.0F, 30.0F, 40.5F});
    return RectangleOutline(fWidth, fHeight);
}

Outline OutlineOf(CSeededRandom& random, EPiece piece, int nVertices) {
    const float fWidth = random.Between(20.0F, 60.0F);
    const float fHeight = random.Between(20.0F, 60.0F);
    switch (piece) {
        case AlignedRectangle:
            return AlignedOutline(random);
        case Rectangle:
            return RectangleOutline(fWidth, fHeight);
        case Convex:
            return ConvexOutline(random, nVertices, fWidth, fHeight);
        case Lobed:
            return LobedOutline(random, nVertices, fWidth, fHeight);
        case Comb:
            return CombOutline(random, nVertices, fWidth, fHeight);
        case Letter:
            return LetterOutline(random);
        case Lattice:
            return Snapped(StarOutline(random, nVertices, fWidth, fHeight), 5.0F);
        case Degenerate:
            return DegenerateOutline(random);
        case SelfCrossing:
            return ScribbleOutline(random, nVertices);
        default:
            return StarOutline(random, nVertices, fWidth, fHeight);
    }
}

Outline SoundOutline(CSeededRandom& random) {
    const EPiece piece =
        random.Pick({AlignedRectangle, AlignedRectangle, Rectangle, Convex, Star, Comb, Letter, Lattice});
    return OutlineOf(random, piece, random.Range(3, 20));
}

CPolygon MakeLooseBox(CSeededRandom& random) {
    CPolygon polygon = MakePolygon(SoundOutline(random));
    for (mgVector3* pCorner : {&polygon.m_BoundingBoxMin, &polygon.m_BoundingBoxMax}) {
        pCorner->x += random.Pick({0.0F, 10.0F, -10.0F, random.Between(-80.0F, 80.0F)});
        pCorner->y += random.Pick({0.0F, 10.0F, -10.0F, random.Between(-80.0F, 80.0F)});
    }
    return polygon;
}

float Unreal(CSeededRandom& random) {
    constexpr float INFINITE = std::numeric_limits<float>::infinity();
    return random.Pick({INFINITE, -INFINITE, std::numeric_limits<float>::quiet_NaN()});
}

CPolygon MakeNotFinite(CSeededRandom& random) {
    const Outline sound = SoundOutline(random);
    Outline outline = sound;
    CPolygon polygon = MakePolygon(sound);
    const int nSpoiled = random.Range(1, 3);
    for (int i = 0; i < nSpoiled; ++i) {
        mgVector3& vertex = outline[random.Index(outline.size())];
        mgVector3& corner = *random.Pick({&polygon.m_BoundingBoxMin, &polygon.m_BoundingBoxMax});
        float& fSpoiled = *random.Pick({&vertex.x, &vertex.y, &vertex.x, &vertex.y, &corner.x, &corner.y});
        fSpoiled = Unreal(random);
    }
    return MakePolygon(outline, polygon.m_BoundingBoxMin, polygon.m_BoundingBoxMax);
}

CPolygon MakeNegativeLocal(CSeededRandom& random) {
    const float fX = random.Quarter(-90, 90);
    const float fY = random.Quarter(-90, 90);
    return MakePolygon(Moved(SoundOutline(random), fX, fY));
}

CPolygon MakeDistant(CSeededRandom& random) {
    const float fX = 1e4F * random.Pick({-100.0F, 0.0F, 100.0F, random.Between(-100.0F, 2000.0F)});
    const float fY = 1e4F * random.Pick({0.0F, 0.0F, 1.0F, random.Between(-10.0F, 10.0F)});
    return MakePolygon(Moved(SoundOutline(random), fX, fY));
}

CPolygon MakeIntricate(CSeededRandom& random) {
    const EPiece piece = random.Pick({Convex, Star, Comb, Lattice, SelfCrossing});
    const int nVertices = random.Percent(95) ? random.Range(20, 160) : random.Range(160, 600);
    return MakeSizedPiece(random, piece, nVertices);
}

CPolygon MakeHuge(CSeededRandom& random) {
    const float fFactor = random.Pick({1e3F, 3e6F, 1e12F, 1e30F, 4e36F});
    return MakePolygon(Scaled(SoundOutline(random), fFactor));
}

CPolygon MakeEndless(CSeededRandom& random) {
    CPolygon polygon = MakePolygon(AlignedOutline(random));
    polygon.m_BoundingBoxMax.y = std::numeric_limits<float>::infinity();
    return polygon;
}

CPolygon MakeNearlyLevel(CSeededRandom& random) {
    const float fWidth = random.Between(20.0F, 60.0F);
    const float fHeight = 10.1F * static_cast<float>(random.Range(1, 4));
    const float fY = 10.1F * static_cast<float>(random.Range(-1, 1));
    return MakePolygon(Moved(RectangleOutline(fWidth, fHeight), 0.0F, fY));
}

constexpr std::array ONLY_ALIGNED = {AlignedRectangle};
constexpr std::array ONLY_RECTANGLES = {Rectangle};
constexpr std::array ONLY_CONVEX = {Convex};
constexpr std::array ONLY_STARS = {Star};
constexpr std::array ONLY_LOBED = {Lobed};
constexpr std::array ONLY_COMBS = {Comb};
constexpr std::array ONLY_LETTERS = {Letter};
constexpr std::array ONLY_LATTICE = {Lattice};
constexpr std::array SOUND = {AlignedRectangle, Rectangle, Convex,       Star, Comb,
                              Letter,           Lattice,   NegativeLocal};
constexpr std::array WITH_CLOCKWISE = {AlignedRectangle, Convex, Clockwise, Clockwise};
constexpr std::array WITH_DEGENERATE = {AlignedRectangle, Star, Degenerate};
constexpr std::array WITH_LOOSE_BOXES = {AlignedRectangle, Star, LooseBox, LooseBox};
constexpr std::array WITH_SELF_CROSSING = {AlignedRectangle, SelfCrossing, SelfCrossing};
constexpr std::array WITH_NOT_FINITE = {AlignedRectangle, Convex, Star, Comb, Lattice, NotFinite};
constexpr std::array WITH_NEGATIVE_LOCAL = {NegativeLocal, AlignedRectangle};
constexpr std::array ONLY_NEARLY_LEVEL = {NearlyLevel};
constexpr std::array WITH_NEARLY_LEVEL = {NearlyLevel, NearlyLevel, AlignedRectangle, Comb};
constexpr std::array WITH_DISTANT = {Distant, AlignedRectangle, Lattice, Convex};
constexpr std::array WITH_INTRICATE = {Intricate, Intricate, AlignedRectangle, Lattice};
constexpr std::array ONLY_NEEDLES = {Needle};
constexpr std::array UPRIGHT = {AlignedRectangle, AlignedRectangle, Letter, Comb, Lattice};
constexpr std::array WITH_HUGE = {AlignedRectangle, Convex, NegativeLocal, Huge};
constexpr std::array WITH_ENDLESS = {AlignedRectangle, AlignedRectangle, AlignedRectangle, Endless};
constexpr std::array EVERYTHING = {AlignedRectangle, Rectangle, Convex,   Star,       Comb,         Letter,
                                   Lattice,          Clockwise, LooseBox, Degenerate, SelfCrossing, NotFinite,
                                   NegativeLocal,    Huge,      Endless,  Distant,    Intricate};

constexpr std::array FAMILIES = {
    SFamily{"aligned rectangles", ONLY_ALIGNED},
    SFamily{"rectangles", ONLY_RECTANGLES},
    SFamily{"convex pieces", ONLY_CONVEX},
    SFamily{"stars", ONLY_STARS},
    SFamily{"lobed pieces", ONLY_LOBED},
    SFamily{"combs", ONLY_COMBS},
    SFamily{"letters", ONLY_LETTERS},
    SFamily{"lattice pieces", ONLY_LATTICE},
    SFamily{"sound mixture", SOUND},
    SFamily{"clockwise pieces among others", WITH_CLOCKWISE},
    SFamily{"degenerate pieces among others", WITH_DEGENERATE},
    SFamily{"loose boxes among others", WITH_LOOSE_BOXES},
    SFamily{"self-crossing pieces among others", WITH_SELF_CROSSING},
    SFamily{"infinities among others", WITH_NOT_FINITE},
    SFamily{"negative local coordinates", WITH_NEGATIVE_LOCAL},
    SFamily{"nearly level rectangles", ONLY_NEARLY_LEVEL},
    SFamily{"nearly level rectangles among others", WITH_NEARLY_LEVEL},
    SFamily{"distant local coordinates among others", WITH_DISTANT},
    SFamily{"intricate pieces among others", WITH_INTRICATE},
    SFamily{"upright sides of all kinds", UPRIGHT},
    SFamily{"huge pieces among others", WITH_HUGE},
    SFamily{"three needles repeated", ONLY_NEEDLES, 3},
    SFamily{"endless boxes among aligned rectangles", WITH_ENDLESS},
    SFamily{"everything", EVERYTHING},
    SFamily{"one piece repeated", SOUND, 1},
    SFamily{"three pieces repeated", SOUND, 3},
    SFamily{"three loose boxes repeated", WITH_LOOSE_BOXES, 3},
    SFamily{"two aligned rectangles repeated", ONLY_ALIGNED, 2},
    SFamily{"five upright pieces repeated", UPRIGHT, 5},
};

}  // namespace

CPolygon MakePiece(CSeededRandom& random, EPiece piece) {
    switch (piece) {
        case Clockwise:
            return MakePolygon(Reversed(SoundOutline(random)));
        case LooseBox:
            return MakeLooseBox(random);
        case NotFinite:
            return MakeNotFinite(random);
        case NegativeLocal:
            return MakeNegativeLocal(random);
        case NearlyLevel:
            return MakeNearlyLevel(random);
        case Distant:
            return MakeDistant(random);
        case Intricate:
            return MakeIntricate(random);
        case Needle:
            return MakePolygon(NeedleOutline(random, random.Range(4, 60)));
        case Huge:
            return MakeHuge(random);
        case Endless:
            return MakeEndless(random);
        default:
            return MakePolygon(OutlineOf(random, piece, random.Range(3, 20)));
    }
}

CPolygon MakeSizedPiece(CSeededRandom& random, EPiece piece, int nVertices) {
    return MakePolygon(OutlineOf(random, piece, nVertices));
}

std::span<const SFamily> AllFamilies() {
    return FAMILIES;
}

const SFamily& FamilyNamed(std::string_view name) {
    const auto* const pFamily = std::ranges::find(FAMILIES, name, &SFamily::m_Name);
    if (pFamily == std::end(FAMILIES)) {
        throw std::out_of_range("no family of pieces is named " + std::string(name));
    }
    return *pFamily;
}

std::vector<CPolygon> MakeSet(CSeededRandom& random, const SFamily& family, int nPieces) {
    std::vector<CPolygon> set;
    for (int i = 0; i < nPieces; ++i) {
        const bool bRepeat = family.m_nDistinct > 0 && i >= family.m_nDistinct;
        set.push_back(bRepeat ? set[static_cast<size_t>(i % family.m_nDistinct)]
                              : MakePiece(random, random.Pick(family.m_Pieces)));
    }
    return set;
}

}  // namespace nestrix::support
