#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <ostream>
#include <string_view>

#include "formats/PolygonFile.h"
#include "geom/Geom.h"
#include "tests/faults/ProcessState.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/Outlines.h"
#include "tests/support/PolygonMaking.h"
#include "tests/support/UnderSanitizer.h"

namespace nestrix {

// Files of sizes that no honest program writes.

namespace {

using namespace support;

constexpr size_t TWO_HUNDRED_MEGABYTES = 200'000'000;

struct SLargeOutline {
    std::string_view m_Name;
    std::function<Outline(CSeededRandom&, int)> m_Make;
};

void PrintTo(const SLargeOutline& outline, std::ostream* pStream) {
    *pStream << outline.m_Name;
}

class LargeOutline : public testing::TestWithParam<SLargeOutline> {};

/// Every second vertex on either side: each edge lies under all that follow.
Outline ZigzagOutline(int nVertices) {
    Outline outline;
    for (int i = 0; i < nVertices; ++i) {
        outline.push_back({i % 2 == 0 ? 0.0F : 300.0F, static_cast<float>(i), 0.0F});
    }
    return outline;
}

/// Every third vertex is nowhere.
Outline NoNumbersOutline(int nVertices) {
    Outline outline = ZigzagOutline(nVertices);
    for (size_t i = 0; i < outline.size(); i += 3) {
        outline[i] = {std::nanf(""), std::nanf(""), 0.0F};
    }
    return outline;
}

const std::vector<SLargeOutline> LARGE_OUTLINES = {
    {"Convex", [](CSeededRandom& random, int n) { return ConvexOutline(random, n, 300, 300); }},
    {"Concave", [](CSeededRandom& random, int n) { return StarOutline(random, n, 300, 300); }},
    {"Comb", [](CSeededRandom& random, int n) { return CombOutline(random, n, 300, 300); }},
    {"SelfCrossing", [](CSeededRandom& random, int n) { return ScribbleOutline(random, n); }},
    {"Zigzag", [](CSeededRandom&, int n) { return ZigzagOutline(n); }},
    {"Slant", [](CSeededRandom&, int n) { return SlantOutline(n, 300, 300); }},
    {"Touching", [](CSeededRandom& random, int n) { return TouchingOutline(random, n); }},
    {"NoNumbers", [](CSeededRandom&, int n) { return NoNumbersOutline(n); }},
    {"OnePlace", [](CSeededRandom&, int n) { return Outline(static_cast<size_t>(n)); }},
};

TEST_P(LargeOutline, OfAHundredThousandVerticesIsReadWithinTwoSeconds) {
    constexpr int VERTICES = 100'000;
    CSeededRandom random(18);
    const CTemporaryFolder folder;
    const CPolygon raw = MakeRawPolygon(GetParam().m_Make(random, VERTICES), {}, {300, 300, 0});
    const std::string path = folder.Write("large.pol", PolygonFileText(raw));
    CPolygon polygon;
    // The processor's time, since the machine may have other things to do.
    const std::clock_t nBefore = std::clock();
    ASSERT_TRUE(polygon.ReadPolygon(path.c_str()));
    const double seconds = static_cast<double>(std::clock() - nBefore) / CLOCKS_PER_SEC;
    EXPECT_EQ(polygon.m_Lines.size(), raw.m_Points.size());
    EXPECT_LT(seconds, faults::AT_FULL_SPEED ? 2.0 : 30.0);
}

INSTANTIATE_TEST_SUITE_P(All, LargeOutline, testing::ValuesIn(LARGE_OUTLINES),
                         [](const auto& test) { return std::string(test.param.m_Name); });

/// While it lives, the process may not grow beyond a size. A sanitizer reserves far more address space than
/// any such size, and may then map no more at all: there nothing is limited.
class CMemoryLimit {
public:
    explicit CMemoryLimit(rlim_t nBytes) {
        getrlimit(RLIMIT_AS, &m_Previous);
        const rlimit limit = {UNDER_SANITIZER ? m_Previous.rlim_cur : nBytes, m_Previous.rlim_max};
        setrlimit(RLIMIT_AS, &limit);
    }
    ~CMemoryLimit() { setrlimit(RLIMIT_AS, &m_Previous); }
    CMemoryLimit(const CMemoryLimit&) = delete;
    CMemoryLimit& operator=(const CMemoryLimit&) = delete;

private:
    rlimit m_Previous = {};
};

class LargeFile : public testing::Test {
protected:
    void SetUp() override {
        if (faults::UNDER_SANITIZER) {
            GTEST_SKIP() << "the sanitizers' own memory knows no limits";
        }
    }

    /// The text and, behind it, zero bytes up to the full size; they take no room on the disk.
    [[nodiscard]] std::string WriteSparse(std::string_view text,
                                          size_t nBytes = TWO_HUNDRED_MEGABYTES) const {
        std::string path = m_Folder.Write("sparse.pol", text);
        std::filesystem::resize_file(path, nBytes);
        return path;
    }

    /// The lower side of a strip from left to right, then its upper side back.
    [[nodiscard]] std::string WriteStrip(int nVertices) const {
        std::string path = m_Folder.PathOf("strip.pol");
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pFile(std::fopen(path.c_str(), "w"),
                                                                    std::fclose);
        std::fprintf(pFile.get(), "%d\n", nVertices);
        for (int i = 0; i < nVertices; ++i) {
            const bool bLower = i < nVertices / 2;
            const int nColumn = bLower ? i : nVertices - 1 - i;
            std::fprintf(pFile.get(), "%9d,%4d.\n", nColumn, bLower ? nColumn % 3 : 900);
        }
        std::fprintf(pFile.get(), ";%d,900\n0,0\n", nVertices / 2);
        return path;
    }

    const CTemporaryFolder m_Folder;
    const CMemoryLimit m_Limit{4'000'000'000};
};

TEST_F(LargeFile, OfTwoHundredMegabytesIsReadWholeIfItIsSound) {
    constexpr int VERTICES = 12'500'000;  // 16 bytes each
    const std::string path = WriteStrip(VERTICES);
    ASSERT_GE(std::filesystem::file_size(path), TWO_HUNDRED_MEGABYTES);
    CPolygon polygon;
    ASSERT_TRUE(polygon.ReadPolygon(path.c_str()));
    EXPECT_EQ(polygon.m_Points.size(), static_cast<size_t>(VERTICES));
    EXPECT_EQ(ReadPolygonFile(path.c_str()).m_Fault, "");
}

TEST_F(LargeFile, WithoutACountHasNoVertices) {
    const std::string path = WriteSparse("");
    CPolygon polygon;
    ASSERT_TRUE(polygon.ReadPolygon(path.c_str()));
    EXPECT_TRUE(polygon.m_Points.empty());
    EXPECT_EQ(ReadPolygonFile(path.c_str()).m_Fault, "it does not begin with the number of vertices");
}

/// A count that so large a file could almost hold, if it held any vertices.
TEST_F(LargeFile, OfEmptyPromisesTakesLittleMemory) {
    const std::string path = WriteSparse("190000000 1,2 3,4 5,6 ");
    CPolygon polygon;
    ASSERT_NO_THROW(ASSERT_TRUE(polygon.ReadPolygon(path.c_str())));
    EXPECT_EQ(polygon.PositionOf(2), (mgVector3{5, 6, 0}));
    EXPECT_EQ(ReadPolygonFile(path.c_str()).m_Fault, "vertex 4 of 190000000 is not a pair \"x,y\"");
}

/// A count that its nine gigabytes could hold.
TEST_F(LargeFile, WithoutMuchTextIsReadAtOnce) {
    const std::string path = WriteSparse("2000000000 1,2 3,4 5,6 ", 9'000'000'000);
    CPolygon polygon;
    const std::clock_t nBefore = std::clock();
    ASSERT_NO_THROW(ASSERT_TRUE(polygon.ReadPolygon(path.c_str())));
    EXPECT_LT(static_cast<double>(std::clock() - nBefore) / CLOCKS_PER_SEC, 0.5);
    EXPECT_EQ(polygon.m_Points.size(), 3U);
}

}  // namespace

}  // namespace nestrix
