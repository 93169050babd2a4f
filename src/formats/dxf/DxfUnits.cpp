#include "formats/dxf/DxfUnits.h"

#include <array>

namespace nestrix {

namespace {

/// In the order of their codes, from 1.
const std::array<SDxfUnit, 24> UNITS{{{EUnit::INCH, 1.0, "inches"},
                                      {EUnit::FOOT, 1.0, "feet"},
                                      {EUnit::FOOT, 5280.0, "miles"},
                                      {EUnit::MILLIMETRE, 1.0, "millimetres"},
                                      {EUnit::CENTIMETRE, 1.0, "centimetres"},
                                      {EUnit::METRE, 1.0, "metres"},
                                      {EUnit::METRE, 1e3, "kilometres"},
                                      {EUnit::INCH, 1e-6, "microinches"},
                                      {EUnit::INCH, 1e-3, "mils"},
                                      {EUnit::FOOT, 3.0, "yards"},
                                      {EUnit::MILLIMETRE, 1e-7, "angstroms"},
                                      {EUnit::MILLIMETRE, 1e-6, "nanometres"},
                                      {EUnit::MILLIMETRE, 1e-3, "micrometres"},
                                      {EUnit::CENTIMETRE, 10.0, "decimetres"},
                                      {EUnit::METRE, 10.0, "decametres"},
                                      {EUnit::METRE, 100.0, "hectometres"},
                                      {EUnit::METRE, 1e9, "gigametres"},
                                      {EUnit::METRE, 149597870700.0, "astronomical units"},
                                      {EUnit::METRE, 9460730472580800.0, "light years"},
                                      {EUnit::METRE, 3.0856775814913673e16, "parsecs"},
                                      {EUnit::METRE, 1200.0 / 3937.0, "US survey feet"},
                                      {EUnit::METRE, 100.0 / 3937.0, "US survey inches"},
                                      {EUnit::METRE, 3600.0 / 3937.0, "US survey yards"},
                                      {EUnit::METRE, 6336000.0 / 3937.0, "US survey miles"}}};

}  // namespace

SDxfUnit UnitOfCode(int nCode) {
    return nCode >= 1 && nCode <= static_cast<int>(UNITS.size()) ? UNITS[static_cast<size_t>(nCode) - 1]
                                                                 : SDxfUnit();
}

SDxfUnitCode CodeOf(std::optional<EUnit> unit) {
    constexpr int INCHES = 1;
    if (!unit) {
        return {};
    }
    switch (*unit) {
        case EUnit::MILLIMETRE:
            return {4, 1.0, true};
        case EUnit::CENTIMETRE:
            return {5, 1.0, true};
        case EUnit::METRE:
            return {6, 1.0, true};
        case EUnit::INCH:
            return {INCHES, 1.0, false};
        case EUnit::FOOT:
            return {2, 1.0, false};
        case EUnit::POINT:
            return {INCHES, 1.0 / 72.0, false};
        case EUnit::PIXEL:
            return {INCHES, 1.0 / 96.0, false};
    }
    return {};
}

}  // namespace nestrix
