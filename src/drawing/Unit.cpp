#include "drawing/Unit.h"

#include <algorithm>
#include <array>

namespace nestrix {

namespace {

struct SUnit {
    EUnit m_eUnit;
    std::string_view m_Name;
    double m_Millimetres;
};

/// In the order of EUnit.
constexpr std::array<SUnit, 7> UNITS{{{EUnit::MILLIMETRE, "mm", 1.0},
                                      {EUnit::CENTIMETRE, "cm", 10.0},
                                      {EUnit::METRE, "m", 1000.0},
                                      {EUnit::INCH, "in", 25.4},
                                      {EUnit::FOOT, "ft", 304.8},
                                      {EUnit::POINT, "pt", 25.4 / 72.0},
                                      {EUnit::PIXEL, "px", 25.4 / 96.0}}};

const SUnit& Find(EUnit eUnit) {
    return UNITS.at(static_cast<size_t>(eUnit));
}

/// Of a letter, under every locale.
char Small(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

double MillimetresIn(EUnit eUnit) {
    return Find(eUnit).m_Millimetres;
}

std::string_view NameOf(EUnit eUnit) {
    return Find(eUnit).m_Name;
}

std::optional<EUnit> FindUnit(std::string_view name) {
    for (const SUnit& unit : UNITS) {
        if (std::equal(name.begin(), name.end(), unit.m_Name.begin(), unit.m_Name.end(),
                       [](char a, char b) { return Small(a) == b; })) {
            return unit.m_eUnit;
        }
    }
    return std::nullopt;
}

}  // namespace nestrix
