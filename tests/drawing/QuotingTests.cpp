#include "drawing/Quoting.h"

#include <gtest/gtest.h>

namespace nestrix {

namespace {

constexpr SQuoting SHORT{'"', '?', 8};

TEST(QuotedTexts, StandBetweenTheirMarks) {
    EXPECT_EQ(Quoted("12,5", SHORT), "\"12,5\"");
    EXPECT_EQ(Quoted("12,5", {'\'', ' ', 8}), "'12,5'");
    EXPECT_EQ(Quoted("", SHORT), "\"\"");
}

TEST(QuotedTexts, AreCutWhereTheyAreLonger) {
    EXPECT_EQ(Quoted("12345678", SHORT), "\"12345678\"");
    EXPECT_EQ(Quoted("123456789", SHORT), "\"12345678...\"");
}

TEST(QuotedTexts, AreNotCutThroughACharacter) {
    EXPECT_EQ(Quoted("1234567ä", SHORT), "\"1234567...\"");
    EXPECT_EQ(Quoted("123456ä", SHORT), "\"123456ä\"");
    EXPECT_EQ(Quoted("123456\xC3", SHORT), "\"123456?\"") << "half a character";
}

TEST(QuotedTexts, HaveASubstituteForEachByteThatCannotBeShown) {
    EXPECT_EQ(Quoted({"\0\t\n\x1B\x7F", 5}, SHORT), "\"?????\"");
    EXPECT_EQ(Quoted("\xFF\x80", SHORT), "\"??\"");
    EXPECT_EQ(Quoted("a\xC2\x9B"
                     "b",
                     {'\'', ' ', 8}),
              "'a  b'")
        << "the control that begins an escape";
}

}  // namespace

}  // namespace nestrix
