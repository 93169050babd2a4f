#include "formats/json/JsonKind.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formats/json/Instance.h"
#include "formats/json/PackingRecord.h"
#include "tests/formats/json/TextReading.h"

using namespace nestrix;
using testing::HasSubstr;

namespace {

std::optional<EJsonKind> KindOfText(const std::string& text) {
    return support::ReadText(KindOf, text).m_Value;
}

TEST(JsonKind, OfOurOwnFilesIsTheirs) {
    EXPECT_EQ(KindOfText(WriteJson(SPackingRecord())), EJsonKind::PACKING);
    EXPECT_EQ(KindOfText(WriteInstance(SInstance())), EJsonKind::INSTANCE);
    EXPECT_EQ(KindOfText(R"({"pieces": [{"file": "a.dxf"}]})"), EJsonKind::JOB);
}

TEST(JsonKind, IsToldByWhatOnlyOneKindHas) {
    EXPECT_EQ(KindOfText(R"({"pieces": [], "placements": []})"), EJsonKind::PACKING);
    EXPECT_EQ(KindOfText(R"({"items": []})"), EJsonKind::INSTANCE);
}

TEST(JsonKind, OfAnythingElseIsAFault) {
    EXPECT_THAT(support::FaultsOf(KindOf, "{}"), HasSubstr("1: it is no packing"));
    EXPECT_THAT(support::FaultsOf(KindOf, "[1, 2]"), HasSubstr("1: it is no packing"));
    EXPECT_THAT(support::FaultsOf(KindOf, "<svg/>"), HasSubstr("1: syntax error"));
    EXPECT_EQ(support::ListOf(KindOf("/nowhere/at/all.json").m_Findings), "0: No such file or directory\n");
}

}  // namespace
