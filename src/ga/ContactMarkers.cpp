#include "CContainer.h"
#include "CPolyDisplay.h"

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
    if (!bRecordContacts || m_pContactDisplay == nullptr) {
        return PlaceChromosome(chromosome, placed, nullptr);
    }
    CMarkerSink markers(*m_pContactDisplay);
    return PlaceChromosome(chromosome, placed, &markers);
}
