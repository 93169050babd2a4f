#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>

#include "tests/formats/json/JobTexts.h"
#include "tests/formats/json/RandomRecords.h"
#include "tests/formats/json/TextReading.h"

using namespace nestrix;
using support::CSeededRandom;
using support::CTemporaryFolder;
using support::Replaced;
using testing::ElementsAre;
using testing::IsEmpty;

// The schemas are written for others; an independent validator reads them here.

namespace {

const std::string JOB_SCHEMA = "job.schema.json";
const std::string PACKING_SCHEMA = "packing.schema.json";

/// The names of the folder's files that the schema refuses.
std::vector<std::string> RefusedBy(const std::string& schema, const CTemporaryFolder& folder) {
    const std::string command = "python3 " PROJECT_FOLDER "/tests/formats/json/validate " PROJECT_FOLDER
                                "/docs/" +
                                schema + " " + folder.Path().string() + "/* 2>&1";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::vector<std::string> names;
    std::array<char, 256> line{};
    while (std::fgets(line.data(), line.size(), pipe.get()) != nullptr) {
        names.push_back(line.data());
        names.back().pop_back();
    }
    return names;
}

/// Names in the order in which a shell lists them.
std::string Numbered(size_t nNumber) {
    const std::string digits = std::to_string(nNumber);
    return std::string(4 - digits.size(), '0') + digits + ".json";
}

TEST(PackingSchema, KnowsWhateverIsWritten) {
    const CTemporaryFolder folder;
    CSeededRandom random(4);
    for (size_t i = 0; i < 300; ++i) {
        const SPackingRecord record =
            i % 3 == 0 ? support::RandomDroppedRecord(random) : support::RandomFreeRecord(random);
        static_cast<void>(folder.Write(Numbered(i), WriteJson(record)));
    }
    EXPECT_THAT(RefusedBy(PACKING_SCHEMA, folder), IsEmpty());
}

TEST(PackingSchema, RefusesWhatTheReaderRefuses) {
    const CTemporaryFolder folder;
    CSeededRandom random(5);
    SPackingRecord record = support::RandomFreeRecord(random);
    auto& free = std::get<SFreeRecord>(record.m_Packing);
    free.m_Pieces = {{"a", {{{0, 0}, {1, 0}, {1, 1}}, {}}, 1, {}, false}};
    free.m_Packing.m_Placed = {{0, false, 0.0, {3, 0}}};
    record.m_Sources.resize(1);
    const std::string text = WriteJson(record);
    const std::vector<std::pair<std::string, std::string>> faults{{"nestrix-packing", "nestrix-job"},
                                                                  {"\"free\"", "\"magic\""},
                                                                  {"\"strip\"", "\"stripe\""},
                                                                  {"\"placements\"", "\"places\""},
                                                                  {"\"outline\"", "\"line\""},
                                                                  {"[1, 0]", "[1, 0, 0]"},
                                                                  {"[1, 0]", "[1, \"0\"]"},
                                                                  {"\"x\"", "\"X\""},
                                                                  {"\"corner\"", "\"middle\""},
                                                                  {"\"quantity\": 1", "\"quantity\": 1.5"},
                                                                  {"\"turns\": [0]", "\"turns\": \"all\""},
                                                                  {"\"turn\": 0", "\"turn\": \"0\""}};
    std::vector<std::string> all;
    for (const auto& [part, other] : faults) {
        const std::string faulty = Replaced(text, part, other);
        EXPECT_NE(support::FaultsOf(ReadPackingRecord, faulty), "") << other;
        all.push_back(Numbered(all.size()));
        static_cast<void>(folder.Write(all.back(), faulty));
    }
    EXPECT_EQ(RefusedBy(PACKING_SCHEMA, folder), all);
}

TEST(JobSchema, KnowsJobsOfBothMethods) {
    const CTemporaryFolder folder;
    static_cast<void>(folder.Write("whole.json", support::WHOLE_JOB));
    static_cast<void>(folder.Write("drop.json", support::DROP_JOB));
    static_cast<void>(folder.Write("least.json", R"({"$schema": "x", "pieces": [{"file": "a.dxf"}]})"));
    EXPECT_THAT(RefusedBy(JOB_SCHEMA, folder), IsEmpty());
}

TEST(JobSchema, RefusesWhatTheReaderRefuses) {
    const CTemporaryFolder folder;
    std::vector<std::string> all;
    for (const support::STextFault& fault : support::JobFaults()) {
        all.push_back(Numbered(all.size()));
        static_cast<void>(
            folder.Write(all.back(), Replaced(support::WHOLE_JOB, fault.m_Part, fault.m_Other)));
    }
    EXPECT_EQ(RefusedBy(JOB_SCHEMA, folder), all);
}

TEST(JobSchema, RefusesOfADropJobWhatOnlyFreePackingHas) {
    const CTemporaryFolder folder;
    static_cast<void>(
        folder.Write("a.json", Replaced(support::DROP_JOB, "\"quantity\"", "\"turns\": [90], \"quantity\"")));
    static_cast<void>(folder.Write("b.json", Replaced(support::DROP_JOB, "\"seed\"", "\"threads\"")));
    EXPECT_THAT(RefusedBy(JOB_SCHEMA, folder), ElementsAre("a.json", "b.json"));
}

}  // namespace
