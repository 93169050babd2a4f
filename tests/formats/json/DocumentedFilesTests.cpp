#include <gtest/gtest.h>

#include <map>
#include <variant>

#include "certify/Certify.h"
#include "formats/json/Instance.h"
#include "formats/json/Job.h"
#include "formats/json/JsonKind.h"
#include "formats/json/PackingRecord.h"
#include "tests/formats/json/TextReading.h"
#include "tests/support/TextFiles.h"

using namespace nestrix;

namespace {

/// The files that docs/formats.md shows, by their kinds.
std::map<EJsonKind, std::string> ShownFiles() {
    const std::string fence = "```";
    const std::string text = support::ReadFile(PROJECT_FOLDER "/docs/formats.md");
    std::map<EJsonKind, std::string> files;
    const std::string begin = fence + "json\n";
    for (size_t nAt = text.find(begin); nAt != std::string::npos; nAt = text.find(begin, nAt + 1)) {
        const size_t nFrom = nAt + begin.size();
        const std::string shown = text.substr(nFrom, text.find(fence, nFrom) - nFrom);
        const SReading<EJsonKind> kind = support::ReadText(KindOf, shown);
        EXPECT_TRUE(kind.m_Value) << shown;
        files[kind.m_Value.value_or(EJsonKind::JOB)] = shown;
    }
    return files;
}

TEST(DocumentedFile, OfEachKindIsReadAsItIsShown) {
    const std::map<EJsonKind, std::string> files = ShownFiles();
    ASSERT_EQ(files.size(), 3U);
    EXPECT_EQ(support::FaultsOf(ReadJob, files.at(EJsonKind::JOB)), "");
    EXPECT_EQ(support::FaultsOf(ReadInstance, files.at(EJsonKind::INSTANCE)), "");
    const SReading<SPackingRecord> packing =
        support::ReadText(ReadPackingRecord, files.at(EJsonKind::PACKING));
    ASSERT_TRUE(packing.m_Value);
    const auto& record = std::get<SFreeRecord>(packing.m_Value->m_Packing);
    EXPECT_TRUE(Certify(record.m_Pieces, record.m_Packing).IsValid());
}

}  // namespace
