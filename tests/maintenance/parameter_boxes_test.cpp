#include "maintenance/parameter_boxes.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <utility>

namespace morvane::maintenance {
namespace {

void Type(ParameterBoxes& boxes, Parameter parameter, const std::string& text) {
  FilteredBox shown{text, static_cast<int>(text.size())};
  boxes.Box(parameter).Change(shown);
}

TEST(ParameterBoxes, EachNameStandsOnce) {
  std::set<std::string_view> names;
  for (std::size_t i = 0; i < kParameters; ++i) names.insert(NameOf(static_cast<Parameter>(i)));
  EXPECT_EQ(names.size(), kParameters);
  EXPECT_EQ(NameOf(Parameter::Board_Sen), "Board_Sen");
  EXPECT_EQ(NameOf(Parameter::Fine_th1_txt), "Fine_th1_txt");
}

TEST(ParameterBoxes, EachHasTheLimitsOfItsOwn) {
  const std::map<std::string_view, std::pair<int, int>> others{{"pos_y", {1, 255}},
                                                               {"Bold_th_txt", {10, 90}},
                                                               {"Bold_th1_txt", {10, 90}},
                                                               {"Fine_th_txt", {10, 90}},
                                                               {"Fine_th1_txt", {10, 90}}};
  for (std::size_t i = 0; i < kParameters; ++i) {
    const auto parameter = static_cast<Parameter>(i);
    SCOPED_TRACE(NameOf(parameter));
    const auto found = others.find(NameOf(parameter));
    const auto [lower, upper] = found == others.end() ? std::pair{0, 255} : found->second;
    ParameterBoxes boxes;
    ValueBox& box = boxes.Box(parameter);
    Type(boxes, parameter, std::to_string(upper));
    Type(boxes, parameter, std::to_string(upper + 1));
    EXPECT_EQ(box.Text(), std::to_string(upper)) << "the one above is refused";
    Type(boxes, parameter, "");
    box.Leave();
    EXPECT_EQ(box.Text(), std::to_string(lower));
    if (lower == 0) continue;
    Type(boxes, parameter, std::to_string(lower - 1));
    box.Leave();
    EXPECT_EQ(box.Text(), std::to_string(lower));
  }
}

TEST(ParameterBoxes, AreEmptyUntilTheyAreRead) {
  const ParameterBoxes boxes;
  for (std::size_t i = 0; i < kParameters; ++i) {
    EXPECT_EQ(boxes.Box(static_cast<Parameter>(i)).Text(), "");
  }
  EXPECT_FALSE(boxes.Edited());
}

TEST(ParameterBoxes, ABlockComesOutAsItWentIn) {
  ParameterBoxes boxes;
  const wire::PositionBlock positions{1, 2, 3, 4};
  const wire::SymbolBlock symbol{{.MaxX = 5, .MaxY = 6, .MinX = 7, .MinY = 8}};
  const wire::SuitBlock suit{{.MaxX = 9, .MaxY = 10, .MinX = 11, .MinY = 12}};
  const wire::ThresholdBlock thresholds{13, 14, 15, 16, 17};
  const wire::VideoBlock video{18, 19, 20};
  boxes.Take(positions);
  boxes.Take(symbol);
  boxes.Take(suit);
  boxes.Take(thresholds);
  boxes.Take(video);
  EXPECT_EQ(boxes.Positions(), positions);
  EXPECT_EQ(boxes.Symbol(), symbol);
  EXPECT_EQ(boxes.Suit(), suit);
  EXPECT_EQ(boxes.Thresholds(), thresholds);
  EXPECT_EQ(boxes.Video(), video);
  EXPECT_FALSE(boxes.Edited());
}

TEST(ParameterBoxes, EachNumberStandsInItsOwnBox) {
  ParameterBoxes boxes;
  boxes.Take(wire::SymbolBlock{{.MaxX = 5, .MaxY = 6, .MinX = 7, .MinY = 8}});
  EXPECT_EQ(boxes.Box(Parameter::Sym_x_max).Text(), "5");
  EXPECT_EQ(boxes.Box(Parameter::Sym_y_min).Text(), "8");
  boxes.Take(wire::ThresholdBlock{13, 14, 15, 16, 17});
  EXPECT_EQ(boxes.Box(Parameter::Bold_th1_txt).Text(), "14");
  EXPECT_EQ(boxes.Box(Parameter::Fine_th_txt).Text(), "15");
}

TEST(ParameterBoxes, OnlyTheFourThresholdsAreClamped) {
  ParameterBoxes boxes;
  boxes.Take(wire::ThresholdBlock{50, 50, 50, 50, 50});
  Type(boxes, Parameter::Bold_th_txt, "9");
  Type(boxes, Parameter::Fine_th1_txt, "");
  Type(boxes, Parameter::Reco_option_txt, "3");
  Type(boxes, Parameter::pos_y, "0");
  boxes.ClampThresholds();
  EXPECT_EQ(boxes.Thresholds(), (wire::ThresholdBlock{10, 50, 50, 10, 3}));
  EXPECT_EQ(boxes.Box(Parameter::pos_y).Text(), "0");
}

TEST(ParameterBoxes, AreEditedAsSoonAsOneIs) {
  ParameterBoxes boxes;
  boxes.Take(wire::VideoBlock{18, 19, 20});
  Type(boxes, Parameter::Board_Sen, "21");
  EXPECT_TRUE(boxes.Edited());
}

TEST(ParameterBoxes, ABoardSwitchThatIsIgnoredTakesTheReaderWithIt) {
  ParameterBoxes boxes;
  boxes.SwitchesOn = boxes.UseBoardKnown = true;
  boxes.SetUse_Board(true);
  boxes.SetIgnore_box(true);
  EXPECT_FALSE(boxes.Switches().UseBoard);
  EXPECT_FALSE(boxes.UseBoardOn());
  boxes.SetIgnore_box(false);
  EXPECT_FALSE(boxes.Switches().UseBoard) << "it does not come back by itself";
  EXPECT_TRUE(boxes.UseBoardOn());
  boxes.UseBoardKnown = false;
  EXPECT_FALSE(boxes.UseBoardOn()) << "firmware before 2.70";
}

TEST(ParameterBoxes, WhatTheMachineSaysOfItsSwitchesGoesByTheSameRule) {
  ParameterBoxes boxes;
  boxes.SwitchesOn = boxes.UseBoardKnown = true;
  boxes.Take(wire::SwitchAnswer{258, false, true, true});
  EXPECT_EQ(boxes.param_ID, "258");
  EXPECT_TRUE(boxes.Switches().IgnoreBox);
  EXPECT_FALSE(boxes.Switches().UseBoard);
  boxes.Take(wire::SwitchAnswer{258, false, false, true});
  EXPECT_TRUE(boxes.Switches().UseBoard);
  EXPECT_FALSE(boxes.Edited());
}

TEST(ParameterBoxes, AnEditedCheckBoxIsKnownUntilTheMachineHasSpoken) {
  ParameterBoxes boxes;
  boxes.SwitchesOn = true;
  boxes.SetIgnore_flip(true);
  EXPECT_TRUE(boxes.Edited(&wire::SwitchBlock::IgnoreFlip));
  EXPECT_FALSE(boxes.Edited(&wire::SwitchBlock::IgnoreBox));
  EXPECT_TRUE(boxes.Edited());
  boxes.Take(wire::SwitchAnswer{0, true, false, false});
  EXPECT_FALSE(boxes.Edited());
}

TEST(ParameterBoxes, WhatDiffersIsNamedInTheOrderOfTheBoxes) {
  ParameterBoxes boxes;
  boxes.Take(wire::PositionBlock{1, 2, 3, 4});
  ParameterBoxes other = boxes;
  EXPECT_EQ(boxes.DiffersFrom(other), "");
  other.SetUse_Board(true);
  Type(other, Parameter::start_y, "5");
  Type(other, Parameter::pos_x, "0");
  EXPECT_EQ(boxes.DiffersFrom(other), "pos_x, start_y, Use_Board");
  EXPECT_EQ(other.DiffersFrom(boxes), "pos_x, start_y, Use_Board");
}

TEST(ParameterBoxes, AnEmptyBoxIsNoOtherNumberThanNought) {
  ParameterBoxes boxes;
  boxes.Take(wire::PositionBlock{0, 2, 3, 4});
  ParameterBoxes other = boxes;
  Type(other, Parameter::pos_x, "");
  EXPECT_EQ(boxes.DiffersFrom(other), "");
}

}  // namespace
}  // namespace morvane::maintenance
