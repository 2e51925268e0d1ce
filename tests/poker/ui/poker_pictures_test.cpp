#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QWidget>

#include "machine/ui/run_colours.h"
#include "platform/qt/readable_colour.h"
#include "poker/ui/deal_picture.h"
#include "poker/ui/steps_picture.h"
#include "support/qt_screen_reader.h"

namespace morvane::poker {
namespace {

using Part = DealPicture::Part;
using Task = PokerStage::Task;

QImage ImageOf(QWidget& widget) {
  return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

int Pixels(const QImage& image, const QColor& colour) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour ? 1 : 0;
  }
  return count;
}

/// Where two pictures differ.
QRect Difference(const QImage& one, const QImage& other) {
  QRect where;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      if (one.pixel(x, y) != other.pixel(x, y)) where |= QRect(x, y, 1, 1);
    }
  }
  return where;
}

/// Under a dark desktop while it lives.
class DarkDesktop {
 public:
  DarkDesktop() { QApplication::setPalette(QPalette(QColor(45, 45, 45))); }
  ~DarkDesktop() { QApplication::setPalette(before_); }
  DarkDesktop(const DarkDesktop&) = delete;
  DarkDesktop& operator=(const DarkDesktop&) = delete;

 private:
  const QPalette before_ = QApplication::palette();
};

class DealPictureTest : public ::testing::TestWithParam<Part> {
 protected:
  DealPictureTest() { picture.resize(560, 158); }
  /// Where the card of a slot is drawn.
  QRect CardAt(int slot, int card) {
    picture.Show({});
    const QImage without = ImageOf(picture);
    PokerDeal deal{};
    deal[static_cast<std::size_t>(slot)] = static_cast<std::uint8_t>(card);
    picture.Show(deal);
    return Difference(without, ImageOf(picture));
  }
  DealPicture picture{GetParam(), nullptr};
  const bool players = GetParam() == Part::kPlayers;
  const int first = players ? 1 : 13;
  const int last = players ? 12 : 28;
  const int columns = players ? 6 : 8;
};
INSTANTIATE_TEST_SUITE_P(Parts, DealPictureTest, ::testing::Values(Part::kPlayers, Part::kShared));

TEST_P(DealPictureTest, TheSlotsStandInTwoRowsFromLeftToRight) {
  for (int slot = first; slot <= last; ++slot) {
    const QPoint at = CardAt(slot, 13).center();
    const int index = slot - first;
    EXPECT_EQ(at.x() * columns / picture.width(), index % columns) << slot;
    EXPECT_EQ(at.y() > picture.height() / 2 + 8, index >= columns) << slot;
  }
}

TEST_P(DealPictureTest, ASlotOfTheOtherPartIsNotDrawn) {
  for (int slot = 1; slot <= kSlots; ++slot) {
    EXPECT_EQ(CardAt(slot, 13).isNull(), slot < first || slot > last) << slot;
  }
}

TEST_P(DealPictureTest, HeartsAndDiamondsAreRed) {
  const auto redOf = [this](int card) {
    CardAt(first, card);
    return Pixels(ImageOf(picture), machine::kRedSuit);
  };
  EXPECT_EQ(redOf(13), 0) << "the ace of spades";
  EXPECT_GT(redOf(26), 20) << "of hearts";
  EXPECT_GT(redOf(39), 20) << "of diamonds";
  EXPECT_EQ(redOf(52), 0) << "of clubs";
  EXPECT_EQ(redOf(53), 0) << "a joker";
}

TEST_P(DealPictureTest, EveryCardLooksDifferentButForTheJokers) {
  std::set<std::string> pictures;
  for (int card = 0; card <= 55; ++card) {
    CardAt(last, card);
    const QImage image = ImageOf(picture);
    pictures.emplace(reinterpret_cast<const char*>(image.constBits()),
                     static_cast<std::size_t>(image.sizeInBytes()));
  }
  EXPECT_EQ(pictures.size(), 1U + 52U + 1U) << "empty, 52 cards, the joker";
}

TEST_P(DealPictureTest, GrowsAndShrinksWithTheWindow) {
  const QRect before = CardAt(first, 13);
  picture.resize(1120, 316);
  const QRect after = CardAt(first, 13);
  EXPECT_NEAR(after.width(), 2 * before.width(), 6);
  EXPECT_NEAR(after.height(), 2 * before.height(), 6);
  picture.resize(picture.minimumSize());
  const QRect small = CardAt(last, 13);
  EXPECT_LT(small.height(), before.height());
  EXPECT_TRUE(picture.rect().adjusted(2, 2, -2, -2).contains(small));
}

TEST_P(DealPictureTest, IsOnTheSamePaperUnderADarkPalette) {
  CardAt(first, 26);
  const QImage light = ImageOf(picture);
  const DarkDesktop dark;
  EXPECT_EQ(ImageOf(picture).pixel(280, 150), light.pixel(280, 150));
  EXPECT_GT(Pixels(ImageOf(picture), machine::kRedSuit), 20);
}

TEST_P(DealPictureTest, IsReadOut) {
  CardAt(first, 13);
  const std::string spoken =
      QAccessible::queryAccessibleInterface(&picture)->text(QAccessible::Value).toStdString();
  EXPECT_THAT(spoken, ::testing::StartsWith(players ? "1 Player 1: spades A. 2 Player 2: empty."
                                                    : "13 BC: spades A. 14 FLOP: empty."));
  EXPECT_THAT(spoken, ::testing::EndsWith(players ? "12 Player 6: empty." : "28: empty."));
}

class StepsPictureTest : public ::testing::Test {
 protected:
  StepsPictureTest() { picture.resize(720, 208); }
  QImage Shown(const PokerStage& stage) {
    picture.Show(stage);
    return ImageOf(picture);
  }
  StepsPicture picture{nullptr};
  const PokerStage behindRun1{.What = Task::kDeal, .Done = 1, .Carried = {10, 9, 9}, .Staying = 24};
};

/// The block of a step: 1 to 4 from left to right.
QImage StepOf(const QImage& image, int run) { return image.copy((run - 1) * 183, 0, 170, 60); }

TEST_F(StepsPictureTest, TheStepThatIsNextIsFilledAndTheDoneOnesHaveACheck) {
  const QImage image = Shown(behindRun1);
  EXPECT_GT(Pixels(StepOf(image, 1), machine::kGreenGround), 500);
  EXPECT_EQ(Pixels(StepOf(image, 1), machine::kBlueGround), 0);
  EXPECT_GT(Pixels(StepOf(image, 2), machine::kBlueGround), 3000);
  for (const int run : {3, 4}) {
    EXPECT_EQ(Pixels(StepOf(image, run), machine::kBlueGround), 0);
    EXPECT_EQ(Pixels(StepOf(image, run), machine::kGreenGround), 0);
  }
}

/// In shades of grey too.
TEST_F(StepsPictureTest, TheStatesOfAStepDifferWithoutTheirColours) {
  const auto grey = [this](const PokerStage& stage) {
    return StepOf(Shown(stage), 2).convertToFormat(QImage::Format_Grayscale8);
  };
  const std::vector<QImage> states{grey({.What = Task::kDeal}), grey(behindRun1),
                                   grey({.What = Task::kDeal, .Done = 1, .Running = true}),
                                   grey({.What = Task::kDeal, .Done = 2})};
  for (std::size_t one = 0; one < states.size(); ++one) {
    for (std::size_t other = 0; other < one; ++other) {
      EXPECT_FALSE(Difference(states[one], states[other]).isNull()) << one << " " << other;
    }
  }
}

TEST_F(StepsPictureTest, ThePilesAreThoseThatAreCarried) {
  const QImage image = Shown(behindRun1);
  PokerStage other = behindRun1;
  other.Carried[0] = 8;
  const QRect east = Difference(image, Shown(other));
  other = behindRun1;
  other.Carried[2] = 8;
  const QRect south = Difference(image, Shown(other));
  other = behindRun1;
  other.Staying = 25;
  const QRect north = Difference(image, Shown(other));
  EXPECT_LT(east.bottom(), south.top()) << "East lies above South";
  EXPECT_GT(north.left(), east.right()) << "North lies beside, in its pocket";
  EXPECT_GT(north.left(), picture.width() / 2);
}

TEST_F(StepsPictureTest, WhileCardsRunTheyAreCountedInLargeDigits) {
  PokerStage stage{.What = Task::kDeal, .Done = 1, .Running = true, .Fallen = 12, .Count = 28};
  const QImage before = Shown(stage);
  stage.Fallen = 18;
  const QRect digit = Difference(before, Shown(stage));
  EXPECT_GT(digit.height(), 40);
  EXPECT_GT(digit.top(), 60) << "the steps stay as they are";
}

TEST_F(StepsPictureTest, AReadingIsOneStep) {
  const QImage image = Shown({.What = Task::kRead});
  EXPECT_GT(Pixels(StepOf(image, 1), machine::kBlueGround), 3000);
  const QRgb ground = image.pixel(719, 207);
  EXPECT_EQ(Pixels(StepOf(image, 2), ground), 170 * 60) << "nothing is there";
}

TEST_F(StepsPictureTest, CanBeReadOnADarkDesktop) {
  const DarkDesktop dark;
  StepsPicture onDark(nullptr);
  onDark.resize(picture.size());
  onDark.Show(behindRun1);
  const QImage image = ImageOf(onDark);
  const QColor ink = QApplication::palette().color(QPalette::WindowText);
  EXPECT_GT(Pixels(image, ink), 500);
  EXPECT_GE(Contrast(image.pixelColor(719, 207), ink), 4.5);
}

TEST_F(StepsPictureTest, IsReadOutWhenSomethingElseIsToBeDone) {
  static std::vector<std::string> heard;
  heard.clear();
  test::StartScreenReader(true);
  const auto before = QAccessible::installUpdateHandler([](QAccessibleEvent* event) {
    if (event->type() != QAccessible::TextUpdated) return;
    heard.push_back(static_cast<QAccessibleTextUpdateEvent*>(event)->textInserted().toStdString());
  });
  picture.Show(behindRun1);
  picture.Show(behindRun1);
  PokerStage running{.What = Task::kDeal, .Done = 1, .Running = true, .Count = 28};
  for (running.Fallen = 0; running.Fallen < 28; ++running.Fallen) picture.Show(running);
  QAccessible::installUpdateHandler(before);
  test::StartScreenReader(false);
  EXPECT_EQ(heard, (std::vector<std::string>{StageInWords(behindRun1), StageInWords(running)}));
}

}  // namespace
}  // namespace morvane::poker
