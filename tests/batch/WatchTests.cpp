#include <gmock/gmock.h>
#include <signal.h>

#include <filesystem>
#include <future>
#include <thread>

#include "batch/CWatch.h"
#include "batch/WatchPage.h"
#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"
#include "tests/support/UnderSanitizer.h"

namespace nestrix {

using support::CTemporaryFolder;
using support::EntryCount;
using support::ReadFile;
using testing::HasSubstr;

TEST(Watch, KeepsThePictureUpToDateWhileTheSearchGoesOn) {
    const CTemporaryFolder folder;
    const std::string picture = folder.PathOf("live.svg");
    CRunningBatch batch("pack " NESTRIX_SAMPLES "/concave --time 10h --watch " + picture);
    batch.WaitUntilItHandles(SIGINT);
    while (support::ReadIfThere(picture).empty()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    const std::string first = ReadFile(picture);
    EXPECT_THAT(first, HasSubstr("Packing of 20 pieces"));
    while (ReadFile(picture) == first) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_TRUE(ReadFile(picture).ends_with("</svg>\n"));
    batch.Signal(SIGINT);
    EXPECT_EQ(batch.WaitForEnd(), 130);
    const SBatchResult result{0, batch.Output(), ""};
    EXPECT_THAT(ReadFile(picture), HasSubstr("Height " + result.ValueOf("Best height: ") + ","));
    EXPECT_THAT(ReadFile(folder.PathOf("live.html")), HasSubstr("live.svg"));
    EXPECT_EQ(EntryCount(folder.Path()), 2);
}

TEST(Watch, ShowsADroppedSearchToo) {
    const CTemporaryFolder folder;
    const SBatchResult result = RunBatchProgram(
        "pack --method drop --population 9 --generations 9 " NESTRIX_SAMPLES "/squares --watch " +
        folder.Path().native());
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_THAT(ReadFile(folder.PathOf("packing.svg")), HasSubstr("Packing of 5 pieces"));
    EXPECT_EQ(EntryCount(folder.Path()), 2);
}

TEST(Watch, WherePictureOrPageCannotGoFailsBeforeTheSearch) {
    const CTemporaryFolder folder;
    const std::string squares = "pack " NESTRIX_SAMPLES "/squares --time 10m --watch ";
    EXPECT_EQ(RunBatchProgram(squares + "/no/such/a.svg").m_nStatus, 1);
    EXPECT_EQ(RunBatchProgram(squares + folder.PathOf("a.html")).m_nStatus, 1);
    const std::string piece =
        folder.Write("a.svg", "<svg width='9mm' height='9mm'><rect width='5' height='5'/></svg>");
    const SBatchResult over = RunBatchProgram("pack " + piece + " --watch " + piece);
    EXPECT_EQ(over.m_nStatus, 2);
    EXPECT_THAT(over.m_Errors, HasSubstr("would take the place of " + piece));
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(WatchedPicture, IsTheLastThatWasOffered) {
    const CTemporaryFolder folder;
    CWatch watch(folder.PathOf("a.svg"));
    ASSERT_EQ(watch.Fault(), "");
    watch.Begin();
    for (int i = 0; i < 100; ++i) {
        watch.Offer([i] { return std::to_string(i); });
    }
    EXPECT_EQ(watch.Finish(), "");
    EXPECT_EQ(ReadFile(folder.PathOf("a.svg")), "99");
}

TEST(WatchedPicture, IsTheLastEvenIfItWasOfferedWhileAnotherWasDrawn) {
    const CTemporaryFolder folder;
    CWatch watch(folder.PathOf("a.svg"));
    watch.Begin();
    std::promise<void> begun;
    std::promise<void> go;
    watch.Offer([&] {
        begun.set_value();
        go.get_future().wait();
        return std::string("first");
    });
    begun.get_future().wait();
    watch.Offer([] { return std::string("second"); });
    std::thread later([&go] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        go.set_value();
    });
    EXPECT_EQ(watch.Finish(), "");
    later.join();
    EXPECT_EQ(ReadFile(folder.PathOf("a.svg")), "second");
}

TEST(WatchedPicture, ThatCannotBeWrittenIsToldAtTheEnd) {
    const CTemporaryFolder folder;
    CWatch watch(folder.PathOf("a.svg"));
    watch.Begin();
    std::filesystem::create_directory(folder.PathOf("a.svg"));
    watch.Offer([] { return std::string("picture"); });
    EXPECT_THAT(watch.Finish(), HasSubstr("cannot write " + folder.PathOf("a.svg")));
}

TEST(WatchPage, NamesAPictureOfAnyName) {
    EXPECT_THAT(WatchPage("a \"b\"</script>#?%.svg"),
                HasSubstr("\"a%20%22b%22%3C%2Fscript%3E%23%3F%25.svg\""));
}

TEST(WatchPage, ShowsBetterPicturesByItselfInABrowser) {
    if (support::UNDER_SANITIZER) {
        GTEST_SKIP() << "the browser is the same, and the program is slow";
    }
    const CTemporaryFolder folder;
    const std::string command =
        "./watch-in-a-browser " NESTRIX_BATCH " " NESTRIX_SAMPLES "/concave " + folder.Path().native();
    EXPECT_EQ(std::system(command.c_str()), 0);
}

}  // namespace nestrix
