#include "formats/json/Suggestion.h"

#include <gtest/gtest.h>

#include <array>

using namespace nestrix;

namespace {

constexpr std::array<std::string_view, 4> KNOWN{"quantity", "turns", "keep_holes_empty", "file"};

TEST(Suggestion, IsTheWordThatIsMissedByALetter) {
    EXPECT_EQ(FindLikeliest("quantiti", KNOWN), "quantity");
    EXPECT_EQ(FindLikeliest("quanity", KNOWN), "quantity");
    EXPECT_EQ(FindLikeliest("turn", KNOWN), "turns");
    EXPECT_EQ(FindLikeliest("fiel", KNOWN), "file");
}

TEST(Suggestion, DoesNotMindHowWordsAreJoined) {
    EXPECT_EQ(FindLikeliest("keep-holes-empty", KNOWN), "keep_holes_empty");
    EXPECT_EQ(FindLikeliest("keepHolesEmpty", KNOWN), "keep_holes_empty");
    EXPECT_EQ(FindLikeliest("File", KNOWN), "file");
}

TEST(Suggestion, IsNoneForAnotherWord) {
    EXPECT_EQ(FindLikeliest("colour", KNOWN), "");
    EXPECT_EQ(FindLikeliest("", KNOWN), "");
    EXPECT_EQ(FindLikeliest(std::string(1000000, 'q'), KNOWN), "");
}

}  // namespace
