#include "maintenance/trace.h"

#include <gtest/gtest.h>

#include "maintenance/readings.h"

namespace morvane::maintenance {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

Trace::Span Only(double value) { return {value, value}; }

TEST(Trace, BeforeTheFirstValueThereIsNothing) {
  const Trace trace;
  EXPECT_EQ(trace.At(0), std::nullopt);
  EXPECT_EQ(trace.Whole(), std::nullopt);
}

TEST(Trace, TheValuesOfAQuarterOfASecondAreOneStepWithItsSpike) {
  Trace trace;
  EXPECT_TRUE(trace.Add(milliseconds(1000), 14500));
  EXPECT_FALSE(trace.Add(milliseconds(1050), 20000));
  EXPECT_FALSE(trace.Add(milliseconds(1249), 14400));
  EXPECT_TRUE(trace.Add(milliseconds(1250), 14600));
  EXPECT_EQ(trace.At(0), Only(14600));
  EXPECT_EQ(trace.At(1), (Trace::Span{14400, 20000}));
  EXPECT_EQ(trace.At(2), std::nullopt);
}

TEST(Trace, AValueGoesAfterHalfAMinute) {
  Trace trace;
  trace.Add(seconds(100), 7);
  trace.Add(seconds(129) + milliseconds(999), 5);
  EXPECT_EQ(trace.At(119), Only(7));
  EXPECT_EQ(trace.Whole(), (Trace::Span{5, 7}));
  trace.Add(seconds(130), 5);
  EXPECT_EQ(trace.At(120), std::nullopt);
  EXPECT_EQ(trace.At(119), std::nullopt);
  EXPECT_EQ(trace.Whole(), Only(5));
}

TEST(Trace, StepsWithoutAValueStayEmpty) {
  Trace trace;
  trace.Add(seconds(10), 1);
  trace.Add(seconds(11), 2);
  EXPECT_EQ(trace.At(0), Only(2));
  for (const std::size_t ago : {1U, 2U, 3U}) EXPECT_EQ(trace.At(ago), std::nullopt) << ago;
  EXPECT_EQ(trace.At(4), Only(1));
}

TEST(Trace, BehindALongPauseItStartsAnew) {
  Trace trace;
  trace.Add(seconds(10), 1);
  trace.Add(seconds(3600), 2);
  EXPECT_EQ(trace.Whole(), Only(2));
  for (std::size_t ago = 1; ago < Trace::kSteps; ++ago) EXPECT_EQ(trace.At(ago), std::nullopt);
}

TEST(Trace, TheNumberOfAReadingIsWhatItShows) {
  EXPECT_EQ(NumberIn({"25.3", Shade::kPlain}), 25.3);
  EXPECT_EQ(NumberIn({"-3.1", Shade::kPlain}), -3.1);
  EXPECT_EQ(NumberIn({"13000", Shade::kBad}), 13000.0);
  EXPECT_EQ(NumberIn({}), std::nullopt);
}

}  // namespace
}  // namespace morvane::maintenance
