#include "nest/CLayout.h"

#include <algorithm>

namespace nestrix {

namespace {

/// Fewer items than this in a band are looked at faster than they are told apart by bands.
constexpr size_t ITEMS_IN_BAND = 48;

}  // namespace

void CLayout::SBand::Add(uint32_t nItem, const SPlaneBox& box) {
    const size_t i = m_Items.size();
    m_Items.push_back(nItem);
    for (std::vector<float>* pSide : {&m_Left, &m_Right, &m_Bottom, &m_Top}) {
        pSide->resize(RoundUpToLanes(m_Items.size()), LANE_FILLER);
    }
    m_Left[i] = static_cast<float>(box.m_Low.m_X);
    m_Right[i] = static_cast<float>(box.m_High.m_X);
    m_Bottom[i] = static_cast<float>(box.m_Low.m_Y);
    m_Top[i] = static_cast<float>(box.m_High.m_Y);
}

void CLayout::SBand::Remove(uint32_t nItem) {
    const size_t i = static_cast<size_t>(std::find(m_Items.begin(), m_Items.end(), nItem) - m_Items.begin());
    const size_t nLast = m_Items.size() - 1;
    m_Items[i] = m_Items[nLast];
    m_Items.pop_back();
    for (std::vector<float>* pSide : {&m_Left, &m_Right, &m_Bottom, &m_Top}) {
        (*pSide)[i] = (*pSide)[nLast];
        (*pSide)[nLast] = LANE_FILLER;
        pSide->resize(RoundUpToLanes(nLast));
    }
}

CLayout::CLayout(const CPackProblem& problem, CFieldTable& fields, std::span<const SPlace> places)
    : m_Problem(problem), m_Fields(fields) {
    Assign(places, HeightOf(problem, places));
}

void CLayout::Assign(std::span<const SPlace> places, double height) {
    m_Places.assign(places.begin(), places.end());
    m_Height = height;
    MeasureVersions();
    double heights = 0.0;
    for (SPlace& place : m_Places) {
        place.m_At = m_Rooms[place.m_nVersion].Nearest(place.m_At);
        heights += static_cast<double>(m_Problem.Versions()[place.m_nVersion].m_Box.Height());
    }
    const double meanHeight = heights / static_cast<double>(std::max<size_t>(Count(), 1));
    const double most = std::floor(height / std::max(meanHeight, 1.0));
    const double wanted = static_cast<double>(Count()) / static_cast<double>(ITEMS_IN_BAND);
    const double bands = std::clamp(std::min(wanted, most), 1.0, 1e6);
    m_BandsPerUnit = height > 0.0 ? std::floor(bands) / height : 0.0;
    m_Bands.assign(static_cast<size_t>(bands), {});
    m_FirstBands.assign(Count(), 0);
    for (size_t nItem = 0; nItem < Count(); ++nItem) {
        Enter(nItem);
    }
}

void CLayout::Move(size_t nItem, const SPlace& place) {
    Leave(nItem);
    m_Places[nItem] = place;
    Enter(nItem);
}

void CLayout::MeasureVersions() {
    const SGridStrip& strip = m_Problem.Strip();
    // Single precision has 24 bits: half the last one, at the top of the strip.
    const double longest = std::max(m_Height, static_cast<double>(strip.m_nWidth));
    const double padding = static_cast<double>(strip.m_nSpacing) / 2.0 + longest * 0x1p-23;
    m_Boxes.clear();
    m_Rooms.clear();
    for (const SVersion& version : m_Problem.Versions()) {
        const SPoint low = AsPoint(version.m_Box.m_Low);
        const SPoint high = AsPoint(version.m_Box.m_High);
        m_Boxes.push_back({low - SPoint{padding, padding}, high + SPoint{padding, padding}});
        const SPoint corner = AsPoint({strip.m_nMargin, strip.m_nMargin});
        const double right = static_cast<double>(strip.m_nWidth - strip.m_nMargin);
        m_Rooms.push_back({corner - low, SPoint{right, m_Height} - high});
    }
}

void CLayout::Enter(size_t nItem) {
    const SPlaneBox box = BoxOf(m_Places[nItem]);
    const size_t nLast = BandAt(box.m_High.m_Y);
    m_FirstBands[nItem] = static_cast<uint32_t>(BandAt(box.m_Low.m_Y));
    for (size_t nBand = m_FirstBands[nItem]; nBand <= nLast; ++nBand) {
        m_Bands[nBand].Add(static_cast<uint32_t>(nItem), box);
    }
}

void CLayout::Leave(size_t nItem) {
    const SPlaneBox box = BoxOf(m_Places[nItem]);
    const size_t nLast = BandAt(box.m_High.m_Y);
    for (size_t nBand = m_FirstBands[nItem]; nBand <= nLast; ++nBand) {
        m_Bands[nBand].Remove(static_cast<uint32_t>(nItem));
    }
}

}  // namespace nestrix
