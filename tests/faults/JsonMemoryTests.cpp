#include <gtest/gtest.h>

#include "formats/json/PackingRecord.h"
#include "tests/faults/CAllocationFault.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/FreePieces.h"

using namespace nestrix;

// No memory at the first allocation of reading a JSON file, then at the second, and so on.

namespace {

SPackingRecord RecordOfThree() {
    SPackingRecord record;
    SFreeRecord free;
    for (int i = 0; i < 3; ++i) {
        free.m_Pieces.push_back(support::RegularPiece(5, 10.0 + i));
        free.m_Pieces.back().m_Name = "a name that is too long to be held without an allocation";
        free.m_Packing.m_Placed.push_back({i, false, 0.0, {i, i}});
    }
    record.m_Options = {{"turns", std::string("any")}};
    record.m_Sources.resize(3);
    record.m_Packing = std::move(free);
    return record;
}

/// Reads the file with each allocation failing in turn.
/// @return how many there were.
size_t SweepReading(const std::string& path) {
    const SReading<SPackingRecord> sound = ReadPackingRecord(path);
    for (size_t nCall = 1;; ++nCall) {
        const size_t nBlocks = faults::LiveBlocks();
        bool bStruck = false;
        {
            const faults::CAllocationFault fault(nCall, faults::EExhaustion::Passing);
            const SReading<SPackingRecord> reading = ReadPackingRecord(path);
            bStruck = fault.HasStruck();
            // Some do without, and all is well.
            EXPECT_TRUE(reading.m_Value ? reading.m_Value == sound.m_Value : !reading.m_Findings.empty());
            EXPECT_TRUE(bStruck || reading.m_Value == sound.m_Value);
        }
        EXPECT_EQ(faults::LiveBlocks(), nBlocks) << nCall;
        if (!bStruck || testing::Test::HasFailure()) {
            return nCall - 1;
        }
    }
}

TEST(JsonWithoutMemory, IsReportedAndNotThrownAtAnyAllocation) {
    const support::CTemporaryFolder folder;
    EXPECT_GT(SweepReading(folder.Write("sound.json", WriteJson(RecordOfThree()))), 100U);
    EXPECT_GT(SweepReading(folder.Write("faulty.json", R"({"pieces": [1, 2], "strip": {}})")), 30U);
    EXPECT_GT(SweepReading(folder.Write("none.json", "[[[")), 5U);
    EXPECT_GT(SweepReading(folder.PathOf("a file that is not there, with a long name.json")), 1U);
}

}  // namespace
