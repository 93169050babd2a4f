#include "nest/CExchange.h"

#include <gtest/gtest.h>

#include <thread>

namespace nestrix {

namespace {

using CShown = std::shared_ptr<const SSolution>;

CShown OfHeight(double height) {
    return std::make_shared<SSolution>(SSolution{height, {}});
}

/// What each of the workers gets that show these at one meeting.
std::vector<CShown> Meet(CExchange& exchange, const std::vector<CShown>& shown) {
    std::vector<CShown> learnt(shown.size());
    std::vector<std::jthread> threads;
    for (size_t i = 0; i < shown.size(); ++i) {
        threads.emplace_back([&exchange, &shown, &learnt, i] { learnt[i] = exchange.Meet(i, shown[i]); });
    }
    threads.clear();
    return learnt;
}

TEST(Exchange, OfOneWorkerGivesItsOwn) {
    CExchange exchange(1);
    const CShown own = OfHeight(7.0);
    EXPECT_EQ(exchange.Meet(0, own), own);
}

TEST(Exchange, GivesAllTheLowestOfAll) {
    CExchange exchange(3);
    const std::vector<CShown> shown{OfHeight(7.0), OfHeight(5.0), OfHeight(6.0)};
    EXPECT_EQ(Meet(exchange, shown), std::vector<CShown>(3, shown[1]));
}

TEST(Exchange, OfEqualOnesGivesThatOfTheFirstWorker) {
    CExchange exchange(3);
    const std::vector<CShown> shown{OfHeight(7.0), OfHeight(5.0), OfHeight(5.0)};
    EXPECT_EQ(Meet(exchange, shown), std::vector<CShown>(3, shown[1]));
}

TEST(Exchange, GivesWhatComesFromOutsideWhereItIsLower) {
    std::vector<uint64_t> meetings;
    const std::vector<CShown> outside{nullptr, OfHeight(5.0), OfHeight(4.0)};
    CExchange exchange(2, [&](uint64_t nMeeting) {
        meetings.push_back(nMeeting);
        return outside[nMeeting - 1];
    });
    const std::vector<CShown> shown{OfHeight(7.0), OfHeight(5.0)};
    EXPECT_EQ(Meet(exchange, shown), std::vector<CShown>(2, shown[1]));
    EXPECT_EQ(Meet(exchange, shown), std::vector<CShown>(2, shown[1]));
    EXPECT_EQ(Meet(exchange, shown), std::vector<CShown>(2, outside[2]));
    EXPECT_EQ(meetings, std::vector<uint64_t>({1, 2, 3}));
}

TEST(Exchange, GoesOnFromMeetingToMeeting) {
    CExchange exchange(2);
    for (int i = 0; i < 200; ++i) {
        const std::vector<CShown> shown{OfHeight(100.0 - i), OfHeight(100.0 - 2 * i)};
        EXPECT_EQ(Meet(exchange, shown), std::vector<CShown>(2, shown[i == 0 ? 0 : 1]));
    }
}

TEST(Exchange, WaitsForNobodyOnceAWorkerHasLeft) {
    CExchange exchange(2);
    CShown learnt;
    const CShown own = OfHeight(7.0);
    {
        const std::jthread thread([&] { learnt = exchange.Meet(0, own); });
        exchange.Leave();
    }
    EXPECT_EQ(learnt, own);
}

}  // namespace

}  // namespace nestrix
