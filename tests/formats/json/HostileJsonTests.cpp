#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "formats/json/Instance.h"
#include "formats/json/Job.h"
#include "formats/json/JsonKind.h"
#include "formats/json/PackingRecord.h"
#include "tests/formats/json/TextReading.h"
#include "tests/support/UnderSanitizer.h"

using namespace nestrix;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

/// What each of the readers says of the text; fails where they differ, since it is no JSON that they know.
std::string FaultOfAll(const std::string& text) {
    const std::string fault = support::FaultsOf(KindOf, text);
    EXPECT_EQ(support::FaultsOf(ReadJob, text), fault);
    EXPECT_EQ(support::FaultsOf(ReadPackingRecord, text), fault);
    EXPECT_EQ(support::FaultsOf(ReadInstance, text), fault);
    return fault;
}

std::string Repeated(const std::string& part, size_t nTimes) {
    std::string text;
    for (size_t i = 0; i < nTimes; ++i) {
        text += part;
    }
    return text;
}

TEST(HostileJson, NestedAMillionDeepIsRefused) {
    EXPECT_EQ(FaultOfAll(std::string(1'000'000, '[')), "1: nested more than 64 deep\n");
    EXPECT_EQ(FaultOfAll(Repeated("{\"a\":", 1'000'000)), "1: nested more than 64 deep\n");
    EXPECT_EQ(FaultOfAll("{\"pieces\":" + std::string(1'000'000, '[') + std::string(1'000'000, ']') + "}"),
              "1: nested more than 64 deep\n");
}

TEST(HostileJson, WithNumbersBeyondADoubleIsRefused) {
    EXPECT_EQ(FaultOfAll("{\"strip_height\":\n1e999}"), "2: number overflow parsing '1e999' (column 5)\n");
    EXPECT_THAT(FaultOfAll("[" + std::string(1'000'000, '9') + "]"),
                StartsWith("1: number overflow parsing '999"));
}

TEST(HostileJson, WithNumbersThatJsonHasNotIsRefused) {
    for (const std::string number :
         {"NaN", "nan", "Infinity", "-Infinity", "+1", "01", ".5", "5.", "0x10", "1e", "--1"}) {
        EXPECT_THAT(FaultOfAll("{\"strip_height\": " + number + "}"), StartsWith("1: syntax error"))
            << number;
    }
}

TEST(HostileJson, WithNumbersOfManyDigitsIsReadAsTheNearestNumber) {
    const std::string text = R"({"items": [], "strip_height": 0.)" + std::string(100'000, '3') + "}";
    EXPECT_EQ(support::ReadText(ReadInstance, text).m_Value->m_Strip.m_Width, 1.0 / 3.0);
}

TEST(HostileJson, ThatSaysAThingTwiceIsRefused) {
    EXPECT_EQ(FaultOfAll("{\"seed\": 1,\n\"pieces\": [],\n\"seed\": 2}"),
              "3: the member \"seed\" is there twice\n");
    EXPECT_EQ(FaultOfAll("{\"a\": [{\"b\": {\"c\": 1,\n\"c\": 1}}]}"),
              "2: the member \"c\" is there twice\n");
}

TEST(HostileJson, ThatEndsTooSoonIsRefusedInItsLastLine) {
    EXPECT_THAT(FaultOfAll(""), StartsWith("1: syntax error while parsing value - unexpected end of input"));
    EXPECT_THAT(FaultOfAll("{\"pieces\": [\n\n"), StartsWith("3: syntax error"));
    EXPECT_THAT(FaultOfAll("{\"pieces\": []}\n}"), StartsWith("2: syntax error"));
    EXPECT_THAT(FaultOfAll("{\"pieces\": []"), EndsWith("(column 14)\n"));
}

TEST(HostileJson, WithBytesThatAreNoTextIsRefused) {
    EXPECT_THAT(FaultOfAll("{\"\xFF\": 1}"), HasSubstr("ill-formed UTF-8"));
    EXPECT_THAT(FaultOfAll("{\"\xED\xA0\x80\": 1}"), HasSubstr("ill-formed UTF-8"));
    EXPECT_THAT(FaultOfAll(std::string("{\"a\": \0}", 8)), StartsWith("1: syntax error"));
    EXPECT_THAT(FaultOfAll("\xFF\xFE{\0}\0"), StartsWith("1: syntax error"));
}

TEST(HostileJson, IsNotBelievedToBeWhatItIsNot) {
    EXPECT_THAT(support::FaultsOf(ReadJob, "[]"), HasSubstr("1: an array is not an object {...}"));
    EXPECT_THAT(support::FaultsOf(ReadJob, "null"), HasSubstr("1: null is not an object {...}"));
    EXPECT_THAT(support::FaultsOf(ReadPackingRecord, "7"), HasSubstr("1: 7 is not an object {...}"));
    EXPECT_THAT(support::FaultsOf(ReadInstance, "\"x\""), HasSubstr("1: \"x\" is not an object {...}"));
}

TEST(HostileJson, CannotWriteToATerminal) {
    const std::string faults =
        support::FaultsOf(ReadJob, "{\"\\u001b[2J\\u009b\\n\\u007f\": 1, \"pieces\": [\"\\u001b\"]}");
    EXPECT_THAT(faults, HasSubstr(R"(there is no member "\u001b[2J\u009b\n\u007f")"));
    EXPECT_THAT(faults, Not(HasSubstr("\x1B")));
    EXPECT_THAT(faults, Not(HasSubstr("\xC2\x9B")));
    EXPECT_THAT(faults, Not(HasSubstr("\x7F")));
}

TEST(HostileJson, IsNotQuotedAtLength) {
    const std::string name(1'000'000, 'x');
    EXPECT_LT(support::FaultsOf(ReadJob, "{\"" + name + "\": 1, \"pieces\": [\"" + name + "\"]}").size(),
              1000U);
    EXPECT_LT(FaultOfAll("{\"" + name).size(), 1000U);
}

TEST(HostileJson, IsNotBlamedForEver) {
    const std::string faults = support::FaultsOf(ReadJob, "{\"pieces\": [0" + Repeated(",0", 100'000) + "]}");
    EXPECT_THAT(faults, EndsWith("0: there is more that is wrong\n"));
    EXPECT_LT(faults.size(), 20'000U);
}

TEST(HostileJson, MayBeginWithAByteOrderMarkAndHaveLineEndsOfOtherSystems) {
    EXPECT_EQ(support::FaultsOf(ReadJob, "\xEF\xBB\xBF{\r\n\"pieces\": [{\"file\": \"a\"}]}\r\n"), "");
    EXPECT_THAT(support::FaultsOf(ReadJob, "{\r\n\"pieces\": [{\"file\": 1}]}\r\n"),
                StartsWith("2: /pieces/0/file"));
}

TEST(HostileJson, CanBeNoFileAtAll) {
    const support::CTemporaryFolder folder;
    const std::string pipe = folder.PathOf("pipe.json");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(support::ListOf(ReadJob(pipe).m_Findings), "0: not a regular file\n");
    EXPECT_EQ(support::ListOf(ReadJob(folder.Path()).m_Findings), "0: not a regular file\n");
    EXPECT_EQ(support::ListOf(ReadJob("/dev/zero").m_Findings), "0: not a regular file\n");
    EXPECT_EQ(support::ListOf(ReadJob(folder.PathOf("none")).m_Findings), "0: No such file or directory\n");
}

TEST(HostileJson, OfManyGigabytesIsNotRead) {
    const support::CTemporaryFolder folder;
    const std::string path = folder.Write("huge.json", "");
    std::filesystem::resize_file(path, 9'000'000'000);
    EXPECT_EQ(support::ListOf(ReadJob(path).m_Findings), "0: larger than 1000 MB\n");
}

TEST(HostileJson, OfMoreValuesThanAnybodyHasIsRefused) {
    const support::CTemporaryFolder folder;
    const std::string path = folder.Write("many.json", "[0" + Repeated(",0", 45'000'000));
    EXPECT_EQ(support::ListOf(ReadInstance(path).m_Findings), "1: more than 40000000 values\n");
}

TEST(LargeJson, OfTenThousandPiecesIsReadInSeconds) {
    const support::CTemporaryFolder folder;
    SPackingRecord record;
    SFreeRecord free;
    free.m_Packing.m_Grid = {-5};
    for (int i = 0; i < 10'000; ++i) {
        SPiece piece;
        for (int j = 0; j < 100; ++j) {
            piece.m_Shape.m_Outline.push_back({i / 7.0, j / 3.0});
        }
        free.m_Pieces.push_back(piece);
        free.m_Packing.m_Placed.push_back({i, false, 0.0, {i, i}});
    }
    record.m_Sources.resize(free.m_Pieces.size());
    record.m_Packing = free;
    const std::string path = folder.Write("large.json", WriteJson(record));
    const auto begin = std::chrono::steady_clock::now();
    const SReading<SPackingRecord> reading = ReadPackingRecord(path);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(reading.m_Value, record);
    EXPECT_LT(seconds.count(), 30.0);
}

}  // namespace
