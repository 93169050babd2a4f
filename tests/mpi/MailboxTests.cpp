#include "mpi/CMailbox.h"

#include <gtest/gtest.h>

namespace nestrix {

namespace {

SFreePacking OfHeight(int64_t nHeight) {
    return {{}, {}, {}, nHeight};
}

class Mailbox : public testing::Test, protected CPackSink {
protected:
    void BetterPacking(const SFreePacking& packing, const SPackProgress&) override {
        m_nHeard = packing.m_nHeight;
    }
    [[nodiscard]] bool IsToStop() const override { return m_bStop; }

    int64_t m_nHeard = 0;
    bool m_bStop = false;
    CMailbox m_Mailbox{*this};
};

}  // namespace

TEST_F(Mailbox, HasTheBestOnlyWhereItIsNews) {
    EXPECT_FALSE(m_Mailbox.BestBelow(10));
    m_Mailbox.BetterPacking(OfHeight(8), {});
    EXPECT_EQ(m_Mailbox.BestBelow(9), OfHeight(8));
    EXPECT_FALSE(m_Mailbox.BestBelow(8));
    EXPECT_EQ(m_nHeard, 8);
}

TEST_F(Mailbox, GivesWhatOthersFoundOnceAndTheLastOnly) {
    EXPECT_FALSE(m_Mailbox.PackingOfOthers());
    m_Mailbox.Put(OfHeight(7));
    m_Mailbox.Put(OfHeight(6));
    EXPECT_EQ(m_Mailbox.PackingOfOthers(), OfHeight(6));
    EXPECT_FALSE(m_Mailbox.PackingOfOthers());
}

TEST_F(Mailbox, KeepsWhatIsNoLowerThanTheSearchsOwnToItself) {
    m_Mailbox.BetterPacking(OfHeight(8), {});
    m_Mailbox.Put(OfHeight(8));
    EXPECT_FALSE(m_Mailbox.PackingOfOthers());
    m_Mailbox.Put(OfHeight(7));
    m_Mailbox.BetterPacking(OfHeight(7), {});
    EXPECT_FALSE(m_Mailbox.PackingOfOthers());
    m_Mailbox.Put(OfHeight(6));
    EXPECT_EQ(m_Mailbox.PackingOfOthers(), OfHeight(6));
}

TEST_F(Mailbox, TellsAStopOfAnotherRankFromOneOfItsOwn) {
    m_Mailbox.Stop();
    EXPECT_TRUE(m_Mailbox.IsToStop());
    EXPECT_FALSE(m_Mailbox.IsStopAsked());
    m_bStop = true;
    EXPECT_TRUE(m_Mailbox.IsStopAsked());
}

}  // namespace nestrix
