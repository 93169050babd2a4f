#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "certify/Certify.h"
#include "formats/json/PackingRecord.h"
#include "tests/formats/json/TextReading.h"

using namespace nestrix;
using support::Replaced;
using support::STextFault;
using testing::HasSubstr;

// Packings that other programs made, and wrote with as little as is needed.

namespace {

/// Two triangles that make a square of 10, drawn away from the origin.
const std::string TWO_TRIANGLES = R"({
  "strip": {"width": 10},
  "pieces": [
    {"name": "half", "outline": [[5, 5], [15, 5], [5, 15]]}
  ],
  "placements": [
    {"piece": 0, "x": -5, "y": -5},
    {"piece": 0, "x": 15, "y": 15, "turn": 180}
  ]
})";

SFreeRecord Read(const std::string& text) {
    const SReading<SPackingRecord> reading = support::ReadText(ReadPackingRecord, text);
    EXPECT_TRUE(reading.m_Value) << support::ListOf(reading.m_Findings);
    return reading.m_Value ? std::get<SFreeRecord>(reading.m_Value->m_Packing) : SFreeRecord();
}

SCertificate CertifyText(const std::string& text) {
    const SFreeRecord record = Read(text);
    return Certify(record.m_Pieces, record.m_Packing);
}

std::string FaultsOf(const std::string& text) {
    return support::FaultsOf(ReadPackingRecord, text);
}

TEST(ForeignPacking, NeedsOutlinesAndPlacesOnly) {
    EXPECT_TRUE(CertifyText(TWO_TRIANGLES).IsValid());
    EXPECT_EQ(Read(TWO_TRIANGLES).m_Packing.m_nHeight, 10'000'000);
}

TEST(ForeignPacking, IsNamedWhereItOverlaps) {
    const std::string wider = Replaced(TWO_TRIANGLES, "\"width\": 10", "\"width\": 11");
    EXPECT_TRUE(CertifyText(wider).IsValid());
    const SCertificate certificate = CertifyText(Replaced(wider, "\"x\": -5", "\"x\": -4.9"));
    ASSERT_EQ(certificate.m_Violations.size(), 1U);
    EXPECT_EQ(certificate.m_Violations[0].m_eKind, SViolation::EKind::OVERLAP);
}

TEST(ForeignPacking, PlacesWhereTheOriginOfADrawingComesToLie) {
    const SFreeRecord record = Read(TWO_TRIANGLES);
    EXPECT_EQ(record.m_Packing.m_Placed[0].m_At, (SGridPoint{0, 0}));
    EXPECT_EQ(record.m_Packing.m_Placed[1].m_At, (SGridPoint{10'000'000, 10'000'000}));
}

TEST(ForeignPacking, PlacesMirroredPiecesByTheirOriginToo) {
    const std::string mirrored = Replaced(TWO_TRIANGLES, R"("x": 15, "y": 15, "turn": 180)",
                                          R"("x": 17, "y": -3, "turn": 90, "mirror": true)");
    // Mirrored the corner is at (-5, 5), turned at (-5, -5).
    EXPECT_EQ(Read(mirrored).m_Packing.m_Placed[1].m_At, (SGridPoint{12'000'000, -8'000'000}));
}

TEST(ForeignPacking, CanPlaceTheCornerOfABoundingBoxInstead) {
    const std::string corner = Replaced(TWO_TRIANGLES, R"("pieces")", R"("reference": "corner", "pieces")");
    EXPECT_EQ(Read(corner).m_Packing.m_Placed[0].m_At, (SGridPoint{-5'000'000, -5'000'000}));
}

TEST(ForeignPacking, DemandsNothingThatItDoesNotSay) {
    const SPiece piece = Read(TWO_TRIANGLES).m_Pieces[0];
    EXPECT_EQ(piece.m_nQuantity, 2);
    EXPECT_TRUE(piece.m_Turns.m_bAny);
    EXPECT_TRUE(piece.m_bMirrored);
    EXPECT_TRUE(CertifyText(TWO_TRIANGLES).IsValid());
}

TEST(ForeignPacking, IsHeldToWhatItSays) {
    const auto kindOf = [](const std::string& demand) {
        const SCertificate certificate =
            CertifyText(Replaced(TWO_TRIANGLES, "\"name\"", demand + ", \"name\""));
        return certificate.m_Violations.size() == 1 ? certificate.m_Violations[0].m_eKind
                                                    : SViolation::EKind::UNKNOWN_PIECE;
    };
    EXPECT_EQ(kindOf(R"("quantity": 3)"), SViolation::EKind::QUANTITY);
    EXPECT_EQ(kindOf(R"("turns": [0, 90])"), SViolation::EKind::TURN);
}

TEST(ForeignPacking, DoesNotForgetAPieceWithoutAPlacement) {
    const std::string forgotten =
        Replaced(TWO_TRIANGLES, "[5, 15]]}", R"([5, 15]]}, {"outline": [[0, 0], [1, 0], [1, 1]]})");
    ASSERT_EQ(CertifyText(forgotten).m_Violations.size(), 1U);
    EXPECT_EQ(CertifyText(forgotten).m_Violations[0].m_eKind, SViolation::EKind::QUANTITY);
}

TEST(ForeignPacking, IsHeldToTheHeightThatItClaims) {
    const std::string claim = R"("statistics": {"height": 9.5}, "pieces")";
    const SCertificate certificate = CertifyText(Replaced(TWO_TRIANGLES, "\"pieces\"", claim));
    ASSERT_EQ(certificate.m_Violations.size(), 1U);
    EXPECT_EQ(certificate.m_Violations[0].m_eKind, SViolation::EKind::HEIGHT);
}

TEST(ForeignPacking, NamesItsPiecesByTheirNames) {
    std::string named = Replaced(TWO_TRIANGLES, "\"piece\": 0", "\"name\": \"half\"");
    named = Replaced(named, "\"piece\": 0", "\"name\": \"half\"");
    EXPECT_TRUE(CertifyText(named).IsValid());
    EXPECT_THAT(FaultsOf(Replaced(named, "\"name\": \"half\", \"x\"", "\"name\": \"hal\", \"x\"")),
                HasSubstr("7: /placements/0: no piece has the name of this placement"));
    const std::string twice = Replaced(named, "[5, 15]]}", R"([5, 15]]}, {"name": "half", "outline": []})");
    EXPECT_THAT(FaultsOf(twice), HasSubstr("several pieces have the name"));
}

TEST(ForeignPacking, PlacesItsPiecesInTheirOrderWhereItNamesNone) {
    const std::string plain = Replaced(Replaced(TWO_TRIANGLES, "\"piece\": 0, ", ""), "\"piece\": 0, ", "");
    EXPECT_THAT(FaultsOf(plain), HasSubstr("8: /placements/1: there is no piece 1: they are counted from 0"));
    const std::string both =
        Replaced(plain, "[5, 15]]}", R"([5, 15]]}, {"outline": [[5, 5], [15, 5], [5, 15]]})");
    EXPECT_TRUE(CertifyText(both).IsValid());
}

TEST(ForeignPacking, MayHaveAFinerGrid) {
    const std::string fine = Replaced(TWO_TRIANGLES, "\"pieces\"", "\"grid\": -9, \"pieces\"");
    EXPECT_EQ(Read(fine).m_Packing.m_nHeight, 10'000'000'000);
}

TEST(ForeignPacking, MaySayMoreThanIsKnown) {
    EXPECT_TRUE(
        CertifyText(Replaced(TWO_TRIANGLES, "\"pieces\"", R"("author": {"a": [1]}, "pieces")")).IsValid());
}

TEST(ForeignPacking, OfDroppedPiecesNeedsNoMoreEither) {
    const std::string text = R"({"method": "drop", "strip": {"width": 30},
        "pieces": [{"outline": [[0, 0], [20, 0], [20, 20]]}], "placements": [{"x": 1.5, "y": 2}]})";
    const SReading<SPackingRecord> reading = support::ReadText(ReadPackingRecord, text);
    ASSERT_TRUE(reading.m_Value) << support::ListOf(reading.m_Findings);
    const auto& record = std::get<SDroppedRecord>(reading.m_Value->m_Packing);
    EXPECT_EQ(record.m_Pieces[0].m_BoundingBoxMax, (mgVector3{20, 20, 0}));
    EXPECT_EQ(record.m_Packing.m_fHeight, 22.0F);
    EXPECT_TRUE(Certify(record.m_Pieces, record.m_Packing).IsValid());
}

class FaultyPacking : public testing::TestWithParam<support::STextFault> {};

TEST_P(FaultyPacking, IsRefusedWithItsLineAndPlace) {
    EXPECT_THAT(FaultsOf(Replaced(TWO_TRIANGLES, GetParam().m_Part, GetParam().m_Other)),
                HasSubstr(GetParam().m_Message));
}

INSTANTIATE_TEST_SUITE_P(
    Each, FaultyPacking,
    testing::Values(
        STextFault{"\"strip\": {\"width\": 10},", "", "1: the member \"strip\" is missing"},
        STextFault{"\"width\": 10", "\"wide\": 10", "2: /strip: the member \"width\" is missing"},
        STextFault{"10}", "0}", "2: /strip/width: 0 is not a number from 1e-14 to 1e28"},
        STextFault{"10}", "\"10\"}", "2: /strip/width: \"10\" is not a number from 1e-14 to 1e28"},
        STextFault{"10}", "10, \"margin\": -1}", "2: /strip/margin: -1 is not a number from 0 to 1e28"},
        STextFault{"{\"width\": 10}", "400", "2: /strip: 400 is not an object {...}"},
        STextFault{"\"outline\"", "\"outlines\"", "4: /pieces/0: the member \"outline\" is missing"},
        STextFault{"[15, 5]", "[15]", "4: /pieces/0/outline/1: an array is not a pair [x, y]"},
        STextFault{"[15, 5]", "[15, 5, 0]", "4: /pieces/0/outline/1: an array is not a pair [x, y]"},
        STextFault{"[15, 5]", "[15, null]", "4: /pieces/0/outline/1/1: null is not a number"},
        STextFault{"[[5, 5], [15, 5], [5, 15]]", "\"M 5 5\"",
                   "4: /pieces/0/outline: \"M 5 5\" is not a list of points [x, y]"},
        STextFault{"[15, 5]", "[1e25, 5]", "4: /pieces/0: it is too large for a grid whose unit is 1e-6"},
        STextFault{"[5, 15]]", "[5, 15]], \"holes\": [[1, 2]]",
                   "4: /pieces/0/holes/0/0: 1 is not a pair [x, y]"},
        STextFault{"\"name\"", "\"quantity\": 1.5, \"name\"",
                   "4: /pieces/0/quantity: 1.5 is not a whole number from 0 to 2147483647"},
        STextFault{"\"name\"", "\"turns\": \"all\", \"name\"",
                   "4: /pieces/0/turns: \"all\" is neither \"any\" nor a list of degrees"},
        STextFault{"\"x\": -5, ", "", "7: /placements/0: the member \"x\" is missing"},
        STextFault{"-5, \"y\"", "1e300, \"y\"",
                   "7: /placements/0: its place is too far away for a grid whose unit is 1e-6"},
        STextFault{"\"piece\": 0", "\"piece\": 1",
                   "7: /placements/0/piece: there is no piece 1: they are counted from 0, and there are 1"},
        STextFault{"\"piece\": 0", "\"piece\": -1", "7: /placements/0/piece: -1 is not a whole number"},
        STextFault{"\"turn\": 180", "\"turn\": \"180\"", "8: /placements/1/turn: \"180\" is not a number"},
        STextFault{"\"turn\": 180", "\"mirror\": 1", "8: /placements/1/mirror: 1 is neither true nor false"},
        STextFault{"\"strip\"", "\"grid\": 0.5, \"strip\"",
                   "2: /grid: 0.5 is not a whole number from -22 to 22"},
        STextFault{"\"strip\"", "\"grid\": -23, \"strip\"",
                   "2: /grid: -23 is not a whole number from -22 to 22"},
        STextFault{"\"strip\"", "\"method\": \"magic\", \"strip\"",
                   "2: /method: \"magic\" is none of free, drop"},
        STextFault{"\"strip\"", "\"unit\": \"miles\", \"strip\"",
                   "2: /unit: \"miles\" is none of the units mm, cm, m, in, ft, pt, px"},
        STextFault{"\"strip\"", "\"reference\": \"middle\", \"strip\"",
                   "2: /reference: \"middle\" is none of corner, origin"},
        STextFault{"\"strip\"", "\"format\": \"other\", \"strip\"",
                   "2: /format: \"other\" is not the format \"nestrix-packing\""},
        STextFault{"\"strip\"", "\"options\": {\"a\": []}, \"strip\"",
                   "2: /options/a: an array is neither a number"},
        STextFault{"\"strip\"", "\"statistics\": {\"height\": 1e300}, \"strip\"",
                   "2: /statistics/height: 1000"},
        STextFault{"\"strip\"", "\"method\": \"drop\", \"strip\"",
                   "8: /placements/1: a dropped piece is neither turned nor mirrored"}),
    support::FaultTestName);

TEST(FaultyDroppedPacking, IsRefusedWithItsLineAndPlace) {
    const std::string text = R"({"method": "drop", "strip": {"width": 30},
        "pieces": [{"outline": [[0, 0], [20, 0], [20, 20]]}],
        "placements": [{"x": 1.5, "y": 2}]})";
    EXPECT_EQ(FaultsOf(text), "");
    EXPECT_THAT(FaultsOf(Replaced(text, "[20, 0]", "[2e39, 0]")),
                HasSubstr("2: /pieces/0: it is too large for single"));
    EXPECT_THAT(FaultsOf(Replaced(text, "{\"outline\"", "{\"holes\": [[[2e39, 0]]], \"outline\"")),
                HasSubstr("2: /pieces/0: it is too large for single"));
    EXPECT_THAT(FaultsOf(Replaced(text, "1.5", "1e39")),
                HasSubstr("3: /placements/0: its place is too far away"));
    EXPECT_THAT(FaultsOf(Replaced(Replaced(text, "20, 20", "20, 3e38"), "\"y\": 2", "\"y\": 3e38")),
                HasSubstr("3: /placements: they are too high for single precision"));
    EXPECT_THAT(FaultsOf(Replaced(text, "{\"outline\"", "{\"quantity\": 2, \"outline\"")),
                HasSubstr("is there once"));
    EXPECT_THAT(FaultsOf(Replaced(text, "{\"outline\"", "{\"box\": [[0, 0]], \"outline\"")),
                HasSubstr("a box is"));
    EXPECT_THAT(FaultsOf(Replaced(text, "\"strip\"", "\"reference\": \"corner\", \"strip\"")),
                HasSubstr("1: /reference: places of dropped pieces"));
}

}  // namespace
