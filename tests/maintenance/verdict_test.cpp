#include "maintenance/verdict.h"

#include <gtest/gtest.h>

#include <array>

#include "wire/picture_replies.h"

namespace morvane::maintenance {
namespace {

Verdict Of(std::uint8_t rank, std::uint8_t suit, std::uint8_t error = 0) {
  Verdict verdict;
  verdict.Take({.Time = 1, .Rank = rank, .Suit = suit, .Threshold = 2, .Error = error});
  return verdict;
}

TEST(Verdict, NamesTheCard) {
  EXPECT_EQ(Of(14, 1).Symbol, "A");
  EXPECT_EQ(Of(13, 1).Symbol, "K");
  EXPECT_EQ(Of(12, 1).Symbol, "Q");
  EXPECT_EQ(Of(11, 1).Symbol, "J");
  EXPECT_EQ(Of(10, 1).Symbol, "10");
  EXPECT_EQ(Of(2, 1).Symbol, "2");
  EXPECT_EQ(Of(2, 1).Suit, "S");
  EXPECT_EQ(Of(2, 2).Suit, "H");
  EXPECT_EQ(Of(2, 3).Suit, "D");
  EXPECT_EQ(Of(2, 4).Suit, "C");
}

TEST(Verdict, ANumberThatIsNoCardLeavesItsBoxEmpty) {
  for (const std::uint8_t rank : std::array<std::uint8_t, 4>{0, 1, 15, 255})
    EXPECT_EQ(Of(rank, 1).Symbol, "");
  for (const std::uint8_t suit : std::array<std::uint8_t, 3>{0, 5, 255})
    EXPECT_EQ(Of(14, suit).Suit, "");
  EXPECT_EQ(Of(0, 0).Reco_error, "OK");
}

TEST(Verdict, AnErrorHasItsNumberAndNoCard) {
  const Verdict verdict = Of(14, 1, 61);
  EXPECT_EQ(verdict.Reco_error, "61");
  EXPECT_EQ(verdict.Symbol, "");
  EXPECT_EQ(verdict.Suit, "");
  EXPECT_EQ(verdict.Threshold, "2");
}

TEST(Verdict, OfACardThatTheMachineStoppedAtNamesItBesideTheError) {
  wire::ErrorVerdictReply reply;
  reply.Rank = 11;
  reply.Suit = 3;
  reply.Error = 62;
  Verdict verdict;
  verdict.TakeError(reply);
  EXPECT_EQ(verdict.Symbol, "J");
  EXPECT_EQ(verdict.Suit, "D");
  EXPECT_EQ(verdict.Reco_error, "62");
  reply.Rank = wire::ErrorVerdictReply::kNotTaken;
  reply.Suit = 0;
  reply.Error = 30;
  verdict.TakeError(reply);
  EXPECT_EQ(verdict.Symbol, "");
  EXPECT_EQ(verdict.Suit, "");
  EXPECT_EQ(verdict.Reco_error, "30");
}

}  // namespace
}  // namespace morvane::maintenance
