#include "formats/json/Instance.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tests/formats/json/TextReading.h"
#include "tests/support/FreePieces.h"
#include "tests/support/TextFiles.h"

using namespace nestrix;
using support::Replaced;
using support::STextFault;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

const std::string ONE_TRIANGLE = R"({
  "name": "small",
  "items": [
    {
      "id": 4, "demand": 2, "dxf": "dxf/i_4.dxf", "allowed_orientations": [0.0, 90.0],
      "shape": {"type": "simple_polygon", "data": [[0.0, 0.0], [10.0, 0.0], [10.0, 4.0], [0.0, 0.0]]}
    }
  ],
  "strip_height": 25.5
})";

SInstance Read(const std::string& text) {
    const SReading<SInstance> reading = support::ReadText(ReadInstance, text);
    EXPECT_TRUE(reading.m_Value) << support::ListOf(reading.m_Findings);
    return reading.m_Value.value_or(SInstance());
}

std::string FaultsOf(const std::string& text) {
    return support::FaultsOf(ReadInstance, text);
}

TEST(Instance, StandsUpWhenItIsRead) {
    const SInstance instance = Read(ONE_TRIANGLE);
    EXPECT_EQ(instance.m_Name, "small");
    EXPECT_EQ(instance.m_Strip.m_Width, 25.5);
    ASSERT_EQ(instance.m_Pieces.size(), 1U);
    const SPiece& piece = instance.m_Pieces[0];
    EXPECT_EQ(piece.m_Name, "4");
    EXPECT_EQ(piece.m_nQuantity, 2);
    EXPECT_EQ(piece.m_Turns, (STurns{false, {0.0, 90.0}}));
    EXPECT_FALSE(piece.m_bMirrored);
    EXPECT_EQ(piece.m_Shape.m_Outline, (CRing{{0, 0}, {0, -10}, {4, -10}}));
    EXPECT_THAT(instance.m_Drawings, ElementsAre("dxf/i_4.dxf"));
}

TEST(Instance, LiesDownAgainWhenItIsWritten) {
    EXPECT_EQ(nlohmann::json::parse(WriteInstance(Read(ONE_TRIANGLE))), nlohmann::json::parse(ONE_TRIANGLE));
}

class PublishedInstance : public testing::TestWithParam<const char*> {};

TEST_P(PublishedInstance, ComesBackAsItWasPublished) {
    const std::string path = PROJECT_FOLDER "/bench/instances/" + std::string(GetParam()) + ".json";
    const std::string text = support::ReadFile(path);
    const SReading<SInstance> reading = ReadInstance(path);
    ASSERT_TRUE(reading.m_Value) << support::ListOf(reading.m_Findings);
    EXPECT_EQ(reading.m_Value->m_Name, GetParam());
    const std::string written = WriteInstance(*reading.m_Value);
    EXPECT_EQ(nlohmann::json::parse(written), nlohmann::json::parse(text));
    EXPECT_EQ(WriteInstance(Read(written)), written);
}

INSTANTIATE_TEST_SUITE_P(Each, PublishedInstance,
                         testing::Values("albano", "blaz1", "dagli", "fu", "jakobs2", "mao", "shapes1"));

TEST(Instance, WithoutOrientationsMayBeTurnedByAnyAngle) {
    const std::string free = Replaced(ONE_TRIANGLE, "\"allowed_orientations\": [0.0, 90.0],", "");
    EXPECT_TRUE(Read(free).m_Pieces[0].m_Turns.m_bAny);
    EXPECT_EQ(nlohmann::json::parse(WriteInstance(Read(free))), nlohmann::json::parse(free));
    const std::string null = Replaced(ONE_TRIANGLE, "[0.0, 90.0]", "null");
    EXPECT_TRUE(Read(null).m_Pieces[0].m_Turns.m_bAny);
}

TEST(Instance, WithNoOrientationStaysAsItIsDrawn) {
    EXPECT_EQ(Read(Replaced(ONE_TRIANGLE, "[0.0, 90.0]", "[]")).m_Pieces[0].m_Turns, STurns());
}

TEST(Instance, KeepsNamesThatAreNoNumbersBesideTheNumbers) {
    SInstance instance = Read(ONE_TRIANGLE);
    instance.m_Pieces[0].m_Name = "bracket";
    const std::string written = WriteInstance(instance);
    EXPECT_THAT(written, HasSubstr(R"("id": 0,)"));
    EXPECT_EQ(Read(written).m_Pieces, instance.m_Pieces);
}

TEST(Instance, NumbersPiecesAnewWhoseNumbersAreNotTheirOwn) {
    SInstance instance = Read(ONE_TRIANGLE);
    instance.m_Pieces.push_back(instance.m_Pieces[0]);
    instance.m_Drawings.clear();
    const nlohmann::json items = nlohmann::json::parse(WriteInstance(instance)).at("items");
    EXPECT_EQ(items.at(0).at("id"), 0);
    EXPECT_EQ(items.at(1).at("id"), 1);
    EXPECT_EQ(Read(WriteInstance(instance)).m_Pieces, instance.m_Pieces);
    instance.m_Pieces[1].m_Name = "007";
    EXPECT_EQ(Read(WriteInstance(instance)).m_Pieces, instance.m_Pieces);
}

TEST(Instance, KeepsHoles) {
    SInstance instance = Read(ONE_TRIANGLE);
    instance.m_Pieces[0].m_Shape = {support::RectangleRing(0, 0, 9, 9), {support::RectangleRing(1, 1, 2, 2)}};
    EXPECT_EQ(Read(WriteInstance(instance)).m_Pieces, instance.m_Pieces);
}

TEST(Instance, SaysWhatThePublishedFormHasNoWordsFor) {
    SInstance instance = Read(ONE_TRIANGLE);
    EXPECT_THAT(LostInInstance(instance), IsEmpty());
    instance.m_Strip.m_Spacing = 1.0;
    instance.m_Strip.m_Margin = 1.0;
    instance.m_Pieces[0].m_bMirrored = true;
    EXPECT_EQ(LostInInstance(instance).size(), 3U);
}

class FaultyInstance : public testing::TestWithParam<support::STextFault> {};

TEST_P(FaultyInstance, IsRefusedWithItsLineAndPlace) {
    EXPECT_THAT(FaultsOf(Replaced(ONE_TRIANGLE, GetParam().m_Part, GetParam().m_Other)),
                HasSubstr(GetParam().m_Message));
}

INSTANTIATE_TEST_SUITE_P(
    Each, FaultyInstance,
    testing::Values(
        STextFault{"\"strip_height\"", "\"height\"", "1: the member \"strip_height\" is missing"},
        STextFault{"25.5", "0", "9: /strip_height: 0 is not a number from 1e-14 to 1e28"},
        STextFault{"\"items\"", "\"item\"", "1: the member \"items\" is missing"},
        STextFault{"\"id\": 4, ", "", "4: /items/0: the member \"id\" is missing"},
        STextFault{"\"id\": 4", "\"id\": {}", "5: /items/0/id: an object is not a whole number"},
        STextFault{"\"demand\": 2, ", "", "4: /items/0: the member \"demand\" is missing"},
        STextFault{"\"demand\": 2", "\"demand\": -2", "5: /items/0/demand: -2 is not a whole number from 0"},
        STextFault{"[0.0, 90.0]", "[0.0, \"x\"]",
                   "5: /items/0/allowed_orientations/1: \"x\" is not a number"},
        STextFault{"\"shape\"", "\"shapes\"", "4: /items/0: the member \"shape\" is missing"},
        STextFault{"simple_polygon", "spline",
                   "6: /items/0/shape/type: \"spline\" is none of simple_polygon, polygon"},
        STextFault{"[10.0, 4.0], ", "", "6: /items/0/shape/data: an outline has three points at least"},
        STextFault{"\"data\"", "\"date\"", "6: /items/0/shape: the member \"data\" is missing"},
        STextFault{"\"dxf/i_4.dxf\"", "1", "5: /items/0/dxf: 1 is not a text"}),
    support::FaultTestName);

}  // namespace
