#include "drawing/Unit.h"

#include <gtest/gtest.h>

#include "drawing/SFinding.h"

namespace nestrix {

namespace {

TEST(Units, AreFoundByTheirNames) {
    for (const EUnit eUnit : {EUnit::MILLIMETRE, EUnit::CENTIMETRE, EUnit::METRE, EUnit::INCH, EUnit::FOOT,
                              EUnit::POINT, EUnit::PIXEL}) {
        EXPECT_EQ(FindUnit(NameOf(eUnit)), eUnit);
    }
    EXPECT_EQ(FindUnit("MM"), EUnit::MILLIMETRE);
}

TEST(Units, AreNoOtherTexts) {
    for (const char* pText : {"", "m m", "mmm", "inch", "%", "em"}) {
        EXPECT_EQ(FindUnit(pText), std::nullopt) << pText;
    }
}

TEST(Units, HaveTheirLengths) {
    EXPECT_EQ(MillimetresIn(EUnit::MILLIMETRE), 1.0);
    EXPECT_EQ(MillimetresIn(EUnit::CENTIMETRE), 10.0);
    EXPECT_EQ(MillimetresIn(EUnit::METRE), 1000.0);
    EXPECT_EQ(MillimetresIn(EUnit::INCH), 25.4);
    EXPECT_EQ(MillimetresIn(EUnit::FOOT), 304.8);
    EXPECT_DOUBLE_EQ(72 * MillimetresIn(EUnit::POINT), 25.4);
    EXPECT_DOUBLE_EQ(96 * MillimetresIn(EUnit::PIXEL), 25.4);
}

TEST(Findings, SayWhereTheyAre) {
    EXPECT_EQ(InWords({"a.dxf", 12, SFinding::ESeverity::ODD, "no layer"}), "a.dxf:12: no layer");
    EXPECT_EQ(InWords({"a.dxf", 0, SFinding::ESeverity::FAULT, "no text"}), "a.dxf: no text");
}

}  // namespace

}  // namespace nestrix
