#include <gtest/gtest.h>

#include <utility>

#include "nest/CExchange.h"
#include "nest/PackFreely.h"
#include "tests/nest/CPackingLog.h"
#include "tests/nest/FreeSets.h"

namespace nestrix {

// What a search does with what it is given by others.

namespace {

constexpr SFreeStrip STRIP{75.0, 0.0, 0.0};

/// Gives a search a packing when it asks for the first time.
class CGivingSink final : public CPackSink {
public:
    explicit CGivingSink(SFreePacking packing) : m_Gift(std::move(packing)) {}

    void BetterPacking(const SFreePacking& packing, const SPackProgress& progress) override {
        m_Last = packing;
        m_nSteps = progress.m_nSteps;
    }
    [[nodiscard]] bool IsToStop() const override { return false; }
    [[nodiscard]] std::optional<SFreePacking> PackingOfOthers() override {
        return std::exchange(m_Gift, std::nullopt);
    }

    [[nodiscard]] const SFreePacking& Last() const { return m_Last; }
    [[nodiscard]] uint64_t Steps() const { return m_nSteps; }  ///< when the last one was found

private:
    std::optional<SFreePacking> m_Gift;
    SFreePacking m_Last;
    uint64_t m_nSteps = 0;
};

SPackSettings SettingsOf(uint64_t nSeed, uint64_t nSteps) {
    SPackSettings settings = support::StepSettings(nSteps);
    settings.m_nSeed = nSeed;
    return settings;
}

SFreePacking Found(uint64_t nSeed, uint64_t nSteps) {
    support::CPackingLog log;
    return *PackFreely(support::MixedSet(), STRIP, SettingsOf(nSeed, nSteps), log).m_Packing;
}

}  // namespace

TEST(PackingOfOthers, IsTheBestOnceTheThreadsMeetWhereItIsBetter) {
    const SFreePacking gift = Found(2, 4 * CExchange::STEPS);
    ASSERT_LT(gift.m_nHeight, Found(1, CExchange::STEPS + 1).m_nHeight);
    CGivingSink sink(gift);
    (void)PackFreely(support::MixedSet(), STRIP, SettingsOf(1, CExchange::STEPS + 1), sink);
    EXPECT_EQ(sink.Last(), gift);
    EXPECT_EQ(sink.Steps(), CExchange::STEPS);
}

TEST(PackingOfOthers, ThatIsNotValidChangesNothing) {
    SFreePacking gift = Found(2, 100);
    gift.m_Placed[0].m_At = gift.m_Placed[1].m_At;
    gift.m_Placed[2].m_nPiece = 1000;
    gift.m_nHeight = 1;
    CGivingSink sink(gift);
    const SPackResult result =
        PackFreely(support::MixedSet(), STRIP, SettingsOf(1, CExchange::STEPS + 1), sink);
    EXPECT_EQ(*result.m_Packing, Found(1, CExchange::STEPS + 1));
    EXPECT_GE(sink.Last().m_nHeight, result.m_Packing->m_nHeight);
}

}  // namespace nestrix
