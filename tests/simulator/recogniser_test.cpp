// The recogniser of the simulated machine, against frames on paper.

#include "simulator/recogniser.h"

#include <gmock/gmock.h>

#include <set>

#include "simulator/camera.h"
#include "simulator/camera_talk.h"

namespace morvane::simulator {
namespace {

using ::testing::ElementsAre;

constexpr std::array kIndexes{wire::CardIndex::Standard, wire::CardIndex::Jumbo,
                              wire::CardIndex::Small};

Options With(std::optional<PrintSize> symbol, std::optional<PrintSize> suit = {}) {
  Options options = Talk::Fast();
  options.Symbol = symbol;
  options.Suit = suit;
  return options;
}

/// What is made of a ten of spades that is printed like this, at its ideal position.
Bytes VerdictOn(const Options& options) {
  CameraTalk talk(options);
  talk.Captured();
  return talk.Recognised();
}

/// Whose letters a deck has, and of which country the program says that it is.
Bytes OfCountry(int letters, int machineCard, std::uint8_t national) {
  Options options = Talk::Fast();
  options.Letters = letters;
  options.Card = machineCard;
  CameraTalk talk(options);
  talk.Captured();
  return talk.Recognised(0, 0, national);
}

TEST(Recogniser, AVerdictHasTimeRankSuitThresholdAndNoError) {
  CameraTalk talk;
  talk.Captured();
  const Bytes verdict = talk.Ask({21, 0, 0, 0, 0, 0, 0});
  EXPECT_THAT(Bytes(verdict.begin(), verdict.begin() + 7), ElementsAre(21, 0, 41, 10, 1, 46, 0));
}

TEST(Recogniser, EveryCardIsRecognisedWithEveryIndexOfANewMachine) {
  for (const wire::CardIndex index : kIndexes) {
    Options options = Talk::Fast();
    options.Index = index;
    CameraTalk talk(options);
    for (int card = 1; card <= 52; ++card) {
      talk.Machine.ShowCard(card);
      ASSERT_EQ(talk.Ask({10, static_cast<std::uint8_t>(index), 0, 0}).size(), 8U);
      const Bytes expected{static_cast<std::uint8_t>((card - 1) % 13 + 2),
                           static_cast<std::uint8_t>((card - 1) / 13 + 1), 0};
      EXPECT_EQ(talk.Recognised(static_cast<std::uint8_t>(index)), expected)
          << card << " of index " << static_cast<int>(index);
    }
  }
}

TEST(Recogniser, ItsFramesStandRoundTheInkOfTheFetchedPicture) {
  CameraTalk talk;
  for (const int card : {1, 9, 12, 25, 47}) {
    talk.Machine.ShowCard(card);
    for (const CameraPlace at : {CameraPlace{60, 80}, {52, 100}, {71, 69}}) {
      const auto shapes = Shapes(talk.CapturedAt(at.X, at.Y));
      ASSERT_EQ(shapes.size(), 2U);
      ASSERT_EQ(talk.Recognised().at(2), 0);
      EXPECT_EQ(talk.Measured(15), shapes[0]);
      EXPECT_EQ(talk.Measured(16), shapes[1]);
    }
  }
}

// The frame of the standard ten goes from 58 to 83 and from 20 to 61.
TEST(Recogniser, MeasuresAreFramesOnePixelOutside) {
  CameraTalk talk;
  talk.Captured();
  talk.Recognised();
  const Bytes symbol = talk.Ask({15});
  EXPECT_THAT(Bytes(symbol.begin(), symbol.begin() + 7), ElementsAre(15, 100, 100, 58, 83, 20, 61));
  const Bytes suit = talk.Ask({16});
  EXPECT_THAT(Bytes(suit.begin(), suit.begin() + 7), ElementsAre(16, 46, 0, 59, 82, 68, 97));
}

TEST(Recogniser, MeasuresAreThereAlsoWhereTheCardIsRefused) {
  CameraTalk talk(With(PrintSize{24, 27}));
  const auto shapes = Shapes(talk.Captured());
  EXPECT_EQ(talk.Recognised(), (Bytes{0, 0, 29}));
  EXPECT_EQ(talk.Measured(15), shapes.at(0));
  EXPECT_EQ(talk.Measured(16), shapes.at(1));
  talk.Machine.ShowCard(0);
  talk.Captured();
  talk.Recognised();
  EXPECT_THAT(talk.Ask({15}), ElementsAre(15, 0, 0, 0, 0, 0, 0, testing::_));
}

TEST(Recogniser, TheBufferHoldsTheLabelsBehindIt) {
  CameraTalk talk;
  const Rows grey = talk.Captured();
  const auto shapes = Shapes(grey);
  talk.Recognised();
  const Rows labels = talk.Fetch();
  for (std::size_t y = 0; y < 192; ++y) {
    const bool inSymbol = static_cast<int>(y) <= shapes[0].Bottom;
    for (std::size_t x = 0; x < 128; ++x) {
      const int expected = grey[y][x] > 120 ? 0 : inSymbol ? 2 : 3;
      ASSERT_EQ(labels[y][x], expected) << x << " " << y;
    }
  }
  EXPECT_EQ(talk.Recognised(), (Bytes{10, 1, 0})) << "by the picture, not by its labels";
  EXPECT_EQ(talk.Fetch(), labels);
  EXPECT_GT(talk.Captured()[0][0], 200) << "a new picture is grey";
}

TEST(Recogniser, InkOutsideItsBandStaysInk) {
  CameraTalk talk;
  talk.CapturedAt(100, 80);  // from column 99 on; the band ends in 94
  EXPECT_EQ(talk.Recognised(), (Bytes{0, 0, 26}));
  const Rows labels = talk.Fetch();
  std::set<int> classes;
  for (const Bytes& row : labels) classes.insert(row.begin(), row.end());
  EXPECT_EQ(classes, (std::set<int>{0, 1}));
}

// The band of start point 64 is 34 to 94; a rank whose ink begins at 59 + dx.
TEST(Recogniser, TheBandGoes30ColumnsToBothSides) {
  CameraTalk talk;
  talk.Machine.ShowCard(1);      // a two, which is of one piece
  talk.CapturedAt(60 + 35, 80);  // begins in 94
  EXPECT_EQ(talk.Recognised().at(2), 31);
  talk.CapturedAt(60 + 36, 80);
  EXPECT_EQ(talk.Recognised().at(2), 26);
}

TEST(Recogniser, AQuarterOfTheWidthMayBeTwelveColumnsAside) {
  CameraTalk talk;
  for (const auto& [x, error] : {std::pair{72, 0}, {73, 31}, {48, 0}, {47, 31}}) {
    talk.CapturedAt(x, 80);
    EXPECT_EQ(talk.Recognised().at(2), error) << x;
  }
}

TEST(Recogniser, WhatTouchesThePicturesEdgeIsRefused) {
  CameraTalk talk;
  talk.CapturedAt(60, 60);  // the ink begins in row 1
  EXPECT_EQ(talk.Recognised(), (Bytes{10, 1, 0}));
  talk.CapturedAt(60, 59);
  EXPECT_EQ(talk.Recognised(), (Bytes{0, 0, 28}));
  talk.CapturedAt(60, 80 + 94);  // the suit ends in row 190
  EXPECT_EQ(talk.Recognised(), (Bytes{10, 1, 0}));
  talk.CapturedAt(60, 80 + 95);
  EXPECT_EQ(talk.Recognised(), (Bytes{0, 0, 33}));
  talk.CapturedAt(60, 80 + 122);  // the suit would begin in row 191, below the band
  EXPECT_EQ(talk.Recognised(), (Bytes{0, 0, 32}));
}

// The limits of a new machine: symbols of 12 to 34 by 28 to 48, suits of 14 to 32 by 20 to 40.
TEST(Recogniser, SymbolsAreHeldAgainstTheLimitsOfTheRecord) {
  EXPECT_EQ(VerdictOn(With(PrintSize{34, 48})), (Bytes{10, 1, 0}));
  EXPECT_EQ(VerdictOn(With(PrintSize{35, 48})), (Bytes{0, 0, 30}));
  EXPECT_EQ(VerdictOn(With(PrintSize{34, 49})), (Bytes{0, 0, 30}));
  EXPECT_EQ(VerdictOn(With(PrintSize{12, 28})), (Bytes{10, 1, 0}));
  EXPECT_EQ(VerdictOn(With(PrintSize{11, 28})), (Bytes{0, 0, 29}));
  EXPECT_EQ(VerdictOn(With(PrintSize{12, 27})), (Bytes{0, 0, 29}));
}

TEST(Recogniser, SuitsAreHeldAgainstTheLimitsOfTheRecord) {
  EXPECT_EQ(VerdictOn(With({}, PrintSize{32, 40})), (Bytes{10, 1, 0}));
  EXPECT_EQ(VerdictOn(With({}, PrintSize{33, 40})), (Bytes{0, 0, 35}));
  EXPECT_EQ(VerdictOn(With({}, PrintSize{32, 41})), (Bytes{0, 0, 35}));
  EXPECT_EQ(VerdictOn(With({}, PrintSize{14, 20})), (Bytes{10, 1, 0}));
  EXPECT_EQ(VerdictOn(With({}, PrintSize{13, 20})), (Bytes{0, 0, 34}));
  EXPECT_EQ(VerdictOn(With({}, PrintSize{14, 19})), (Bytes{0, 0, 34}));
}

TEST(Recogniser, LimitsThatAreWrittenCount) {
  CameraTalk talk(With(PrintSize{30, 78}, PrintSize{29, 70}));
  talk.Captured();
  EXPECT_EQ(talk.Recognised().at(2), 30);
  talk.WriteBlock({19, 2, 34, 86, 12, 28});
  EXPECT_EQ(talk.Recognised().at(2), 35);
  talk.WriteBlock({19, 3, 32, 76, 14, 20});
  EXPECT_EQ(talk.Recognised(), (Bytes{10, 1, 0}));
}

TEST(Recogniser, TheRecordOfAnotherIndexDoesNotFit) {
  CameraTalk talk;
  talk.Captured();
  EXPECT_EQ(talk.Recognised(1).at(2), 29);
  EXPECT_EQ(talk.Recognised(2).at(2), 30);
}

TEST(Recogniser, ThresholdsGoByTheFont) {
  CameraTalk talk;
  talk.WriteBlock({19, 9, 51, 52, 61, 62, 0});
  talk.Captured();
  EXPECT_EQ(talk.Ask({21, 0, 0, 0, 0}).at(5), 46);
  EXPECT_EQ(talk.Ask({16}).at(1), 46);
  EXPECT_EQ(talk.Ask({21, 0, 0, 1, 0}).at(5), 61);
  EXPECT_EQ(talk.Ask({16}).at(1), 62);
  EXPECT_EQ(talk.Ask({21, 0, 0, 2, 0}).at(5), 51);
  EXPECT_EQ(talk.Ask({16}).at(1), 52);
}

// 10 percent are level 25, below all ink; 90 are 229, above all paper.
TEST(Recogniser, ThresholdsSeparateInkFromPaper) {
  CameraTalk talk;
  talk.Captured();
  talk.WriteBlock({19, 9, 10, 50, 50, 10, 0});
  EXPECT_EQ(talk.Recognised(0, 2), (Bytes{0, 0, 26})) << "no ink for the symbol";
  EXPECT_EQ(talk.Recognised(0, 1), (Bytes{0, 0, 32})) << "no ink for the suit";
  talk.WriteBlock({19, 9, 90, 50, 50, 90, 0});
  EXPECT_EQ(talk.Recognised(0, 2), (Bytes{0, 0, 27})) << "no paper at all";
  EXPECT_EQ(talk.Recognised(0, 1), (Bytes{0, 0, 33})) << "no paper round the suit";
}

TEST(Recogniser, InTheDarkThereIsNoPaper) {
  CameraTalk talk;
  talk.Ask({23, 0, 0});
  talk.Captured();
  EXPECT_EQ(talk.Recognised(), (Bytes{0, 0, 27}));
}

// The ace, king, queen and jack of spades are the machine's cards 13 to 10.
TEST(Recogniser, HonoursAreReadInTheirCountrysLetters) {
  for (std::uint8_t national = 0; national < 7; ++national) {
    for (int card = 10; card <= 13; ++card) {
      EXPECT_EQ(OfCountry(national, card, national),
                (Bytes{static_cast<std::uint8_t>(card + 1), 1, 0}))
          << int{national} << " " << card;
    }
  }
}

TEST(Recogniser, InAnotherCountryALetterMeansWhatItMeansThereOrNothing) {
  EXPECT_EQ(OfCountry(0, 12, 1), (Bytes{0, 0, 61})) << "France has no K";
  EXPECT_EQ(OfCountry(1, 10, 4), (Bytes{12, 1, 0})) << "V, a jack in France, is a Dutch queen";
  EXPECT_EQ(OfCountry(5, 13, 3), (Bytes{0, 0, 61})) << "Germany has no E";
  EXPECT_EQ(OfCountry(2, 13, 1), (Bytes{0, 0, 61})) << "a 1 is the ace of 1RDV alone";
  EXPECT_EQ(OfCountry(6, 10, 6), (Bytes{11, 1, 0})) << "Kn";
  EXPECT_EQ(OfCountry(6, 10, 0), (Bytes{0, 0, 61}));
  EXPECT_EQ(OfCountry(6, 5, 0), (Bytes{6, 1, 0})) << "pips are the same everywhere";
}

TEST(Recogniser, AJokerIsNotRecognised) {
  CameraTalk talk;
  talk.Machine.ShowCard(54);
  talk.Captured();
  EXPECT_EQ(talk.Recognised(), (Bytes{0, 0, 25}));
}

TEST(Recogniser, AMisreadCardIsTakenForAnother) {
  Options options = Talk::Fast();
  options.Misread = 51;  // the King of Clubs
  CameraTalk talk(options);
  talk.Captured();
  EXPECT_EQ(talk.Recognised(), (Bytes{13, 4, 0}));
  EXPECT_EQ(talk.Tried(60, 80), (Bytes{13, 4, 0}));
  talk.Ask({23, 48, 1});
  EXPECT_EQ(talk.Receive().at(3), 13) << "in passing too";
  talk.Machine.ShowCard(0);
  talk.Captured();
  EXPECT_EQ(talk.Recognised(), (Bytes{0, 0, 26})) << "an error stays one";
}

TEST(Recogniser, ARequestThatCanBeNoneIsNotAnswered) {
  CameraTalk talk;
  talk.Captured();
  EXPECT_TRUE(talk.Ask({21, 7, 0, 0, 0}).empty());
  EXPECT_TRUE(talk.Ask({21, 0, 2, 0, 0}).empty());
  EXPECT_TRUE(talk.Ask({21, 0, 0, 3, 0}).empty());
  EXPECT_TRUE(talk.Ask({21, 0, 0, 0, 3}).empty());
  EXPECT_TRUE(talk.Ask({21, 0, 0, 0, 0, 1}).empty());
  EXPECT_TRUE(talk.Ask({34, 60, 80, 3, 0, 66, 60}).empty());
  EXPECT_TRUE(talk.Ask({34, 60, 80, 0, 3, 66, 60}).empty());
  EXPECT_GT(talk.Fetch()[0][0], 200) << "nothing was recognised";
}

// From here on pictures that no camera has taken.

Picture Paper() {
  Picture picture;
  picture.Pixels.fill(220);
  return picture;
}

void Blacken(Picture& picture, const Bounds& box, std::uint8_t level = 40) {
  for (int y = box.Top; y <= box.Bottom; ++y) {
    for (int x = box.Left; x <= box.Right; ++x) picture.Set(x, y, level);
  }
}

/// A ten of spades where it belongs, as the camera takes it.
Picture TenOfSpades() {
  Picture picture;
  Camera(Talk::Fast()).Take({60, 80}, true, picture);
  return picture;
}

int ErrorOf(const Picture& picture) {
  return Recogniser()
      .Recognise(picture, TaskOf({}, wire::CardIndex::Standard, CardFont::Normal))
      .Error;
}

TEST(Recogniser, AShapeThatIsNoRankIsNotRecognised) {
  Picture picture = TenOfSpades();
  EXPECT_EQ(ErrorOf(picture), 0);
  Blacken(picture, {59, 82, 21, 60});
  EXPECT_EQ(ErrorOf(picture), 25);
}

TEST(Recogniser, AShapeThatIsNoSuitIsNotRecognised) {
  Picture picture = TenOfSpades();
  Blacken(picture, {60, 81, 69, 96});
  EXPECT_EQ(ErrorOf(picture), 36);
}

TEST(Recogniser, WhatLiesAboveRow20IsNotSearched) {
  Picture picture = Paper();
  Blacken(picture, {59, 82, 2, 19});
  EXPECT_EQ(ErrorOf(picture), 26);
  Blacken(picture, {59, 82, 2, 20});
  EXPECT_EQ(ErrorOf(picture), 29) << "found, but 19 rows are too few";
}

// 46 percent of 255 are 117.3.
TEST(Recogniser, InkIsDarkerThanTheThreshold) {
  Picture picture = Paper();
  Blacken(picture, {59, 82, 21, 60}, 117);
  EXPECT_EQ(ErrorOf(picture), 26);
  Blacken(picture, {59, 82, 21, 60}, 116);
  EXPECT_EQ(ErrorOf(picture), 25);
}

TEST(Recogniser, ABlemishedShapeIsStillRecognised) {
  Picture picture = TenOfSpades();
  Blacken(picture, {62, 62, 30, 34}, 220);
  Blacken(picture, {70, 71, 80, 82}, 220);
  Recogniser recogniser;
  const auto verdict =
      recogniser.Recognise(picture, TaskOf({}, wire::CardIndex::Standard, CardFont::Normal));
  EXPECT_EQ(verdict.Rank, 10);
  EXPECT_EQ(verdict.Suit, 1);
  EXPECT_EQ(verdict.Error, 0);
  EXPECT_EQ(recogniser.SuitMeasure().Box, (wire::SymbolFrame{59, 82, 68, 97}));
  // 6 of 22 x 28 pixels of the suit are wrong: 610 / 616.
  EXPECT_EQ(recogniser.SymbolMeasure().Param2, 99);
}

TEST(Trial, TakesItsPictureAndLooksFromItsStartPoint) {
  CameraTalk talk;
  EXPECT_EQ(talk.Tried(60, 90), (Bytes{10, 1, 0}));
  EXPECT_EQ(talk.Measured(15), (Bounds{59, 82, 31, 70}));
  EXPECT_EQ(talk.Tried(60, 90, 0, 77), (Bytes{0, 0, 31})) << "13 columns from 64";
  EXPECT_EQ(talk.Tried(60, 90, 0, 66, 190), (Bytes{10, 1, 0})) << "its row counts for nothing";
  EXPECT_EQ(talk.Machine.Parameters(), StoredParameters{});
}

/// What three rounds of bringing the symbol's quarter to column 64 and its top to row 20 lead to;
/// nothing where the ten of spades is lost.
std::optional<CameraPlace> Refined(CameraTalk& talk, CameraPlace at, std::uint8_t index) {
  for (int round = 0; round < 3; ++round) {
    if (talk.Tried(at.X, at.Y, index) != Bytes{10, 1, 0}) return std::nullopt;
    const Bytes symbol = talk.Ask({15});
    if (index != 1) at.Y += 20 - symbol[5];
    at.X += 64 - (symbol[3] + (symbol[4] - symbol[3]) / 4);
  }
  return at;
}

TEST(Trial, EveryHitOnTheGridLeadsToTheIdealPosition) {
  const std::array<std::vector<CameraPlace>, 3> ideals{{
      {{20, 22}, {240, 113}, {133, 57}},
      {{20, 22}, {240, 22}, {127, 22}},
      {{20, 22}, {240, 137}, {101, 99}},
  }};
  const std::array<int, 3> firstRow{110, 22, 130};
  for (std::uint8_t index = 0; index < 3; ++index) {
    for (const CameraPlace ideal : ideals[index]) {
      Options options = Talk::Fast();
      options.Index = kIndexes[index];
      options.Ideal = ideal;
      CameraTalk talk(options);
      int hits = 0;
      for (int y = firstRow[index]; y >= 20; y -= 10) {
        for (int x = 20; x <= 240; x += 10) {
          if (talk.Tried(x, y, index) != Bytes{10, 1, 0}) continue;
          ++hits;
          EXPECT_EQ(Refined(talk, {x, y}, index), ideal) << x << " " << y;
        }
        if (index == 1) break;
      }
      EXPECT_GT(hits, 0) << int{index} << ": " << ideal.X << "/" << ideal.Y;
    }
  }
}

}  // namespace
}  // namespace morvane::simulator
