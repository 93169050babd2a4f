#include "formats/json/PackingRecord.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "certify/Certify.h"
#include "tests/formats/json/RandomRecords.h"
#include "tests/formats/json/TextReading.h"
#include "tests/support/CCommaLocale.h"
#include "tests/support/FreePieces.h"
#include "tests/support/Pieces.h"
#include "tests/support/RandomCases.h"

using namespace nestrix;
using support::CSeededRandom;
using testing::HasSubstr;

namespace {

SPackingRecord ReadBack(const std::string& text) {
    SReading<SPackingRecord> reading = support::ReadText(ReadPackingRecord, text);
    EXPECT_TRUE(reading.m_Value) << support::ListOf(reading.m_Findings) << text;
    return reading.m_Value.value_or(SPackingRecord());
}

/// Two rectangles side by side, one with a hole in which the third lies, turned.
SPackingRecord SmallRecord() {
    SPackingRecord record;
    const std::vector<SPiece> pieces{
        support::PieceOf(support::RectangleRing(0, 0, 100, 100), {support::RectangleRing(20, 20, 60, 60)}),
        support::PieceOf(support::RectangleRing(0, 0, 50.5, 100)),
        support::PieceOf(support::RectangleRing(-30, 7, 50, 30))};
    SFreeRecord free{pieces, {{200.0, 0.0, 0.0}, {-2}, {}, 10000}};
    free.m_Pieces[2].m_Turns = {true, {}};
    free.m_Packing.m_Placed = {
        {0, false, 0.0, {0, 0}}, {1, false, 0.0, {10000, 0}}, {2, false, 90.0, {6000, 2500}}};
    record.m_Packing = std::move(free);
    record.m_Sources = {{"frame.dxf", 12}, {"bar.dxf", 0}, {"", 0}};
    return record;
}

class NothingBetter final : public CPackSink {
public:
    void BetterPacking(const SFreePacking& packing, const SPackProgress& /*progress*/) override {
        m_Heights.push_back(packing.m_nHeight);
    }
    [[nodiscard]] bool IsToStop() const override { return false; }

    std::vector<int64_t> m_Heights;
};

TEST(PackingRecord, ComesBackToTheLastDigitAndIsWrittenInTheSameBytes) {
    CSeededRandom random(1);
    for (int i = 0; i < support::RandomCases(2500); ++i) {
        const SPackingRecord record = support::RandomFreeRecord(random);
        const std::string text = WriteJson(record);
        const SPackingRecord read = ReadBack(text);
        ASSERT_EQ(read, record) << text;
        ASSERT_EQ(WriteJson(read), text);
    }
}

TEST(PackingRecord, OfADroppedPackingComesBackToTheLastBit) {
    CSeededRandom random(2);
    for (int i = 0; i < support::RandomCases(1000); ++i) {
        const SPackingRecord record = support::RandomDroppedRecord(random);
        const std::string text = WriteJson(record);
        const SPackingRecord read = ReadBack(text);
        ASSERT_EQ(read, record) << text;
        ASSERT_EQ(WriteJson(read), text);
    }
}

TEST(PackingRecord, IsWrittenAndReadWithADecimalPointUnderEveryLocale) {
    const SPackingRecord record = SmallRecord();
    const std::string text = WriteJson(record);
    const support::CCommaLocale commas;
    EXPECT_EQ(WriteJson(record), text);
    EXPECT_EQ(ReadBack(text), record);
}

TEST(PackingRecord, GivesCoordinatesAsTheShortDecimalsThatTheyAre) {
    EXPECT_THAT(WriteJson(SmallRecord()), HasSubstr(R"("turn": 0, "mirror": false, "x": 100, "y": 0})"));
    SPackingRecord record = SmallRecord();
    std::get<SFreeRecord>(record.m_Packing).m_Packing.m_Placed[1].m_At = {10001, -7};
    EXPECT_THAT(WriteJson(record), HasSubstr(R"("x": 100.01, "y": -0.07})"));
}

TEST(PackingRecord, NamesThePieceAndItsFileAtEveryPlacement) {
    EXPECT_THAT(WriteJson(SmallRecord()),
                HasSubstr(R"({"order": 1, "piece": 0, "name": "", "file": "frame.dxf",)"));
}

TEST(PackingRecord, CarriesTheVersionOfTheProgram) {
    EXPECT_THAT(WriteJson(SmallRecord()),
                HasSubstr("\"version\": \"" + std::string(ProgramVersion()) + "\""));
}

TEST(PackingRecord, KeepsAllThatDiffersBetweenRunsInOneObject) {
    SPackingRecord first = SmallRecord();
    SPackingRecord second = first;
    first.m_Time = {1.5, "2026-01-01T10:00:00Z"};
    second.m_Time = {2.5, "2026-01-02T11:00:00Z"};
    std::string text = WriteJson(second);
    const std::string time = R"("time": {"seconds": 2.5, "finished": "2026-01-02T11:00:00Z"})";
    ASSERT_THAT(text, HasSubstr(time));
    text.replace(text.find(time), time.size(),
                 R"("time": {"seconds": 1.5, "finished": "2026-01-01T10:00:00Z"})");
    EXPECT_EQ(text, WriteJson(first));
}

TEST(PackingRecord, IsCertifiedWithoutItsInputs) {
    SPackingRecord record = SmallRecord();
    const auto certify = [](const SPackingRecord& written) {
        const auto read = std::get<SFreeRecord>(ReadBack(WriteJson(written)).m_Packing);
        return Certify(read.m_Pieces, read.m_Packing);
    };
    EXPECT_TRUE(certify(record).IsValid());
    --std::get<SFreeRecord>(record.m_Packing).m_Packing.m_Placed[1].m_At.m_nX;
    EXPECT_FALSE(certify(record).IsValid());
}

TEST(PackingRecord, OfADroppedPackingIsCertifiedAsBefore) {
    SPackingRecord record;
    SDroppedRecord dropped{{"a", "b"}, {support::MakeSquare(20), support::MakeSquare(20)}, {{}, {}}, {}};
    dropped.m_Packing.m_Placed = {{0, {0, 0, 0}}, {1, {5, 20, 0}}};
    dropped.m_Packing.m_fHeight = 40;
    record.m_Packing = dropped;
    record.m_Sources.resize(2);
    const auto certify = [](const SPackingRecord& written) {
        const auto read = std::get<SDroppedRecord>(ReadBack(WriteJson(written)).m_Packing);
        return Certify(read.m_Pieces, read.m_Packing);
    };
    EXPECT_TRUE(certify(record).IsValid());
    std::get<SDroppedRecord>(record.m_Packing).m_Packing.m_Placed[1].m_At.y = 19.99F;
    EXPECT_FALSE(certify(record).IsValid());
}

TEST(PackingRecord, IsWhatASearchGoesOnFrom) {
    const std::vector<SPiece> pieces(12, support::RegularPiece(7, 33.0));
    SPackSettings settings;
    settings.m_Limits.m_nSteps = 3000;
    NothingBetter sink;
    const SFreePacking found = *PackFreely(pieces, {200.0, 0.0, 0.0}, settings, sink).m_Packing;
    SPackingRecord record;
    record.m_Packing = SFreeRecord{pieces, found};
    record.m_Sources.resize(pieces.size());
    const auto read = std::get<SFreeRecord>(ReadBack(WriteJson(record)).m_Packing);
    settings.m_Limits.m_nSteps = 0;
    settings.m_pStart = &read.m_Packing;
    NothingBetter again;
    const SPackResult result = PackFreely(read.m_Pieces, read.m_Packing.m_Strip, settings, again);
    EXPECT_EQ(result.m_Packing->m_nHeight, found.m_nHeight);
}

TEST(PackingFigures, AreThoseOfThePacking) {
    const SPackingFigures figures = FiguresOf(SmallRecord());
    EXPECT_EQ(figures.m_nPlaced, 3U);
    EXPECT_EQ(figures.m_Height, 100.0);
    EXPECT_DOUBLE_EQ(figures.m_Density, (6400.0 + 5050.0 + 1500.0) / 20000.0);
}

TEST(PackingFigures, OfADroppedPackingAreThose) {
    SDroppedRecord dropped{{"a"}, {support::MakeSquare(20)}, {{}}, {}};
    dropped.m_Packing.m_Placed = {{0, {0, 0, 0}}};
    dropped.m_Packing.m_fHeight = 20;
    SPackingRecord record;
    record.m_Packing = dropped;
    const SPackingFigures figures = FiguresOf(record);
    EXPECT_EQ(figures.m_nPlaced, 1U);
    EXPECT_EQ(figures.m_Height, 20.0);
    EXPECT_DOUBLE_EQ(figures.m_Density, 20.0 / 400.0);
}

TEST(PackingFigures, OfADroppedPackingLeaveHolesOut) {
    SDroppedRecord dropped{{"a"}, {support::MakeSquare(20)}, {{support::RectangleRing(5, 5, 10, 10)}}, {}};
    dropped.m_Packing.m_Placed = {{0, {0, 0, 0}}};
    dropped.m_Packing.m_fHeight = 20;
    SPackingRecord record;
    record.m_Packing = dropped;
    EXPECT_DOUBLE_EQ(FiguresOf(record).m_Density, 15.0 / 400.0);
}

TEST(PackingFigures, OfNothingAreNothing) {
    EXPECT_EQ(FiguresOf(SPackingRecord()).m_Density, 0.0);
}

}  // namespace
