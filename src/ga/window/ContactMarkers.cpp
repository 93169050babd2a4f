#include "display/CPolyDisplay.h"
#include "ga/CContainer.h"
#include "ga/CDecoder.h"

using namespace nestrix;

namespace {

class CMarkerSink final : public CContactSink {
public:
    explicit CMarkerSink(CPolyDisplay& display) : m_Display(display) {}

    void ContactFound(const mgVector3& contact) override { m_Display.m_Markers.push_back(contact); }

private:
    CPolyDisplay& m_Display;
};

}  // namespace

float CContainer::EvaluateFitnessValue(CChromosome const& chromosome, std::vector<CPolygon>& placed,
                                       bool bRecordContacts) {
    CDecoder decoder(m_Polygons, Strip(), m_fTotalHeight);
    float fFitness = 0.0F;
    if (bRecordContacts && m_pContactDisplay != nullptr) {
        CMarkerSink markers(*m_pContactDisplay);
        fFitness = decoder.Evaluate(chromosome.Genes(), &markers);
    } else {
        fFitness = decoder.Evaluate(chromosome.Genes());
    }
    placed = PlacedPolygons(m_Polygons, decoder.Packing());
    return fFitness;
}
