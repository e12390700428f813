#include "core/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace ringbook::text {
namespace {

TEST(TextTest, CharactersAreCodePoints) {
  EXPECT_EQ(CharCount(""), 0u);
  EXPECT_EQ(CharCount("Zo\u00EB \u00C7elik"), 9u);
  EXPECT_EQ(CharCount("\u65E5\u672C \U0001F94A"), 4u);
  // Bytes that are not UTF-8 count one each.
  EXPECT_EQ(CharCount("\xFF\xFE"
                      "ab\xC3"),
            5u);
}

TEST(TextTest, LeftNeverSplitsACharacter) {
  // 29 characters, several of them two or three bytes long.
  const std::string name =
      "\u0141ukasz \u017B\u00F3\u0142kiewicz-\u00C7elik \u65E5\u672C\u8A9E\u8A9E\u8A9E";
  ASSERT_EQ(CharCount(name), 29u);
  EXPECT_EQ(Left(name, 25), "\u0141ukasz \u017B\u00F3\u0142kiewicz-\u00C7elik \u65E5");
  EXPECT_EQ(Left(name, 24), "\u0141ukasz \u017B\u00F3\u0142kiewicz-\u00C7elik ");
  EXPECT_EQ(Left(name, 2), "\u0141u");
  EXPECT_EQ(Left(name, 100), name);
  EXPECT_EQ(Left(name, 0), "");
  EXPECT_EQ(Left("\U0001F94A\U0001F94A", 1), "\U0001F94A");
}

TEST(TextTest, TrimRemovesOnlyBlanks) {
  EXPECT_EQ(Trim("  Zo\u00EB  "), "Zo\u00EB");
  EXPECT_EQ(Trim("a b"), "a b");
  EXPECT_EQ(Trim("    "), "");
  EXPECT_EQ(Trim("\t a\n"), "\t a\n");
  EXPECT_EQ(Trim(" \u00A0x\u00A0 "), "\u00A0x\u00A0");
}

TEST(TextTest, EveryWindows1252ByteRoundTrips) {
  std::string all;
  for (int b = 0; b < 256; ++b) all.push_back(static_cast<char>(b));
  const std::string utf8 = FromAnsi(all);
  EXPECT_EQ(CharCount(utf8), 256u);
  EXPECT_EQ(ToAnsi(utf8), all);

  EXPECT_EQ(FromAnsi("\x80"), "\u20AC");
  EXPECT_EQ(FromAnsi("\x9F"), "\u0178");
  EXPECT_EQ(FromAnsi("\xEB"), "\u00EB");
  EXPECT_EQ(ToAnsi("\u20AC\u2122\u0160"), "\x80\x99\x8A");
}

TEST(TextTest, CharactersOutsideWindows1252BecomeOneQuestionMark) {
  EXPECT_EQ(ToAnsi("\u0141\u00F3d\u017A"),
            "?\xF3"
            "d?");
  EXPECT_EQ(ToAnsi("\u65E5\U0001F94A"), "??");
  EXPECT_EQ(ToAnsi("a\xFF"
                   "b"),
            "a?b");  // an invalid byte is one character
}

TEST(TextTest, CompareNoCaseFoldsAsciiAndLatinLetters) {
  EXPECT_EQ(CompareNoCase("zo\u00EB \u00E7elik", "ZO\u00CB \u00C7ELIK"), 0);
  EXPECT_EQ(CompareNoCase("\u0161\u017E\u0153\u00FF", "\u0160\u017D\u0152\u0178"), 0);
  EXPECT_LT(CompareNoCase("apple", "Banana"), 0);
  EXPECT_GT(CompareNoCase("abc", "AB"), 0);
  EXPECT_LT(CompareNoCase("", "a"), 0);
  EXPECT_NE(CompareNoCase("\u00F7", "\u00D7"), 0);  // division and multiplication signs
  EXPECT_GT(CompareBinary("a", "B"), 0);
  EXPECT_LT(CompareBinary("z", "\u00E0"), 0);  // by code point, not by byte sign
}

}  // namespace
}  // namespace ringbook::text
