#include "platform/gnustep/tokenfield/TokenList.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using tokens::Element;
using tokens::Range;

bool isCommaOrSemicolon(char16_t character) {
  return character == u',' || character == u';';
}

std::vector<std::u16string> pieces(std::u16string_view text) {
  std::vector<std::u16string> result;
  for (const Range piece : tokens::pieces(text, isCommaOrSemicolon)) {
    result.emplace_back(text.substr(piece.location, piece.length));
  }
  return result;
}

using Strings = std::vector<std::u16string>;
using Elements = std::vector<Element>;

constexpr auto kToken = Element::Kind::Token;
constexpr auto kFragment = Element::Kind::Fragment;
constexpr auto kNothing = Element::Kind::Nothing;

Elements elements(std::u16string_view text) {
  return tokens::elements(text, isCommaOrSemicolon);
}

std::u16string shown(std::u16string_view text) {
  const Range part = tokens::shownPart(text);
  return std::u16string(text.substr(part.location, part.length));
}

}  // namespace

TEST(TokenList, TextWithoutSeparatorsIsOnePiece) {
  EXPECT_EQ(pieces(u"a@b.c"), Strings{u"a@b.c"});
}

TEST(TokenList, AnEmptyTextIsOneEmptyPiece) {
  EXPECT_EQ(pieces(u""), Strings{u""});
}

TEST(TokenList, TokenizingCharactersSeparatePieces) {
  EXPECT_EQ(pieces(u"a,b;c"), (Strings{u"a", u"b", u"c"}));
}

TEST(TokenList, LineBreaksSeparatePieces) {
  EXPECT_EQ(pieces(u"a\nb\rc\u2028d\u2029e"), (Strings{u"a", u"b", u"c", u"d", u"e"}));
}

TEST(TokenList, EmptyPiecesAreIncluded) {
  EXPECT_EQ(pieces(u",a,,"), (Strings{u"", u"a", u"", u""}));
}

TEST(TokenList, PiecesAreTrimmed) {
  EXPECT_EQ(pieces(u" a b\t,\u00A0c\u3000"), (Strings{u"a b", u"c"}));
}

TEST(TokenList, ALineBreakSeparatesWhateverTheTokenizingCharacters) {
  const auto none = [](char16_t) { return false; };
  EXPECT_TRUE(tokens::separates(u'\n', none));
  EXPECT_FALSE(tokens::separates(u',', none));
}

TEST(TokenList, TrimmingNothingButSpacesLeavesNothing) {
  EXPECT_EQ(tokens::trimmed(u"   ", {0, 3}).length, 0u);
}

TEST(TokenList, AFragmentReachesToTheTokensAroundIt) {
  EXPECT_EQ(tokens::fragmentAt(u"\uFFFCabc\uFFFC", 2, isCommaOrSemicolon), (Range{1, 3}));
}

TEST(TokenList, AFragmentReachesToTheSeparatorsAroundIt) {
  EXPECT_EQ(tokens::fragmentAt(u",abc;d", 4, isCommaOrSemicolon), (Range{1, 3}));
}

TEST(TokenList, BetweenTwoTokensTheFragmentIsEmpty) {
  EXPECT_EQ(tokens::fragmentAt(u"\uFFFC\uFFFC", 1, isCommaOrSemicolon), (Range{1, 0}));
}

TEST(TokenList, APositionBehindTheTextIsItsEnd) {
  EXPECT_EQ(tokens::fragmentAt(u"ab", 9, isCommaOrSemicolon), (Range{0, 2}));
}

TEST(TokenList, TokensAndFragmentsAreElementsInTheirOrder) {
  EXPECT_EQ(
      elements(u"\uFFFC ab \uFFFCc"),
      (Elements{{kToken, {0, 1}}, {kFragment, {2, 2}}, {kToken, {5, 1}}, {kFragment, {6, 1}}}));
}

TEST(TokenList, BlankTextBetweenTokensIsNoElement) {
  EXPECT_EQ(elements(u"\uFFFC \uFFFC "), (Elements{{kToken, {0, 1}}, {kToken, {2, 1}}}));
}

TEST(TokenList, ASeparatorWithNothingBeforeItIsAnEmptyElement) {
  EXPECT_EQ(elements(u"\uFFFC,\uFFFC"),
            (Elements{{kToken, {0, 1}}, {kNothing, {1, 1}}, {kToken, {2, 1}}}));
}

TEST(TokenList, ASeparatorAfterTextEndsIt) {
  EXPECT_EQ(elements(u"ab,"), (Elements{{kFragment, {0, 2}}}));
}

TEST(TokenList, AnEmptyTextHasNoElements) {
  EXPECT_EQ(elements(u""), Elements{});
}

TEST(TokenList, TokensInFrontOfAPositionAreCounted) {
  EXPECT_EQ(tokens::tokensBefore(u"\uFFFCab\uFFFC\uFFFC", 4), 2u);
}

TEST(TokenList, TheNameInFrontOfAnAddressIsShown) {
  EXPECT_EQ(shown(u" Anna Bell <anna@example.org>"), u"Anna Bell");
}

TEST(TokenList, AnAddressWithoutANameIsShownWhole) {
  EXPECT_EQ(shown(u"<anna@example.org>"), u"<anna@example.org>");
  EXPECT_EQ(shown(u"anna@example.org"), u"anna@example.org");
}
