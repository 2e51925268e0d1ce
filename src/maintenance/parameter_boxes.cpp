#include "maintenance/parameter_boxes.h"

#include <algorithm>

namespace morvane::maintenance {
namespace {

using wire::PositionBlock;
using wire::SizeLimits;
using wire::ThresholdBlock;
using wire::VideoBlock;

struct Row {
  std::string_view Name;
  BoxLimits Limits;
};
constexpr BoxLimits kByte{};
constexpr BoxLimits kFromOne{255, 1};
constexpr BoxLimits kPercent{90, 10};
/// By `Parameter`.
constexpr std::array<Row, kParameters> kRows{{
    {"pos_x", kByte},           {"pos_y", kFromOne},  // alone so: required
    {"start_x", kByte},         {"start_y", kByte},
    {"Sym_x_max", kByte},       {"Sym_y_max", kByte},
    {"Sym_x_min", kByte},       {"Sym_y_min", kByte},
    {"Suit_x_max", kByte},      {"Suit_y_max", kByte},
    {"Suit_x_min", kByte},      {"Suit_y_min", kByte},
    {"Bold_th_txt", kPercent},  {"Bold_th1_txt", kPercent},
    {"Fine_th_txt", kPercent},  {"Fine_th1_txt", kPercent},
    {"Reco_option_txt", kByte}, {"Video_Brightness", kByte},
    {"Video_Contrast", kByte},  {"Board_Sen", kByte},
}};

/// The boxes of a block's members.
template <typename Block>
struct Place {
  Parameter Box;
  std::uint8_t Block::*Member;
};
constexpr std::array<Place<PositionBlock>, 4> kPositions{{
    {Parameter::pos_x, &PositionBlock::PosX},
    {Parameter::pos_y, &PositionBlock::PosY},
    {Parameter::start_x, &PositionBlock::StartX},
    {Parameter::start_y, &PositionBlock::StartY},
}};
constexpr std::array<Place<SizeLimits>, 4> kSymbol{{
    {Parameter::Sym_x_max, &SizeLimits::MaxX},
    {Parameter::Sym_y_max, &SizeLimits::MaxY},
    {Parameter::Sym_x_min, &SizeLimits::MinX},
    {Parameter::Sym_y_min, &SizeLimits::MinY},
}};
constexpr std::array<Place<SizeLimits>, 4> kSuit{{
    {Parameter::Suit_x_max, &SizeLimits::MaxX},
    {Parameter::Suit_y_max, &SizeLimits::MaxY},
    {Parameter::Suit_x_min, &SizeLimits::MinX},
    {Parameter::Suit_y_min, &SizeLimits::MinY},
}};
constexpr std::array<Place<ThresholdBlock>, 5> kThresholds{{
    {Parameter::Bold_th_txt, &ThresholdBlock::BoldSymbol},
    {Parameter::Bold_th1_txt, &ThresholdBlock::BoldSuit},
    {Parameter::Fine_th_txt, &ThresholdBlock::FineSymbol},
    {Parameter::Fine_th1_txt, &ThresholdBlock::FineSuit},
    {Parameter::Reco_option_txt, &ThresholdBlock::RecoOption},
}};
constexpr std::array<Place<VideoBlock>, 3> kVideo{{
    {Parameter::Video_Brightness, &VideoBlock::Brightness},
    {Parameter::Video_Contrast, &VideoBlock::Contrast},
    {Parameter::Board_Sen, &VideoBlock::BoardSen},
}};

template <typename Block, std::size_t N>
void TakeInto(ParameterBoxes& boxes, const std::array<Place<Block>, N>& places,
              const Block& block) {
  for (const auto& place : places) boxes.Box(place.Box).Take(block.*place.Member);
}

template <typename Block, std::size_t N>
Block BlockOf(const ParameterBoxes& boxes, const std::array<Place<Block>, N>& places) {
  Block block;
  for (const auto& place : places) {
    block.*place.Member = static_cast<std::uint8_t>(boxes.Box(place.Box).Value());
  }
  return block;
}

}  // namespace

std::string_view NameOf(Parameter parameter) {
  return kRows[static_cast<std::size_t>(parameter)].Name;
}

ParameterBoxes::ParameterBoxes() {
  for (std::size_t i = 0; i < kParameters; ++i) boxes_[i] = ValueBox(kRows[i].Limits);
}

void ParameterBoxes::Take(const PositionBlock& block) { TakeInto(*this, kPositions, block); }
void ParameterBoxes::Take(const wire::SymbolBlock& block) {
  TakeInto(*this, kSymbol, block.Limits);
}
void ParameterBoxes::Take(const wire::SuitBlock& block) { TakeInto(*this, kSuit, block.Limits); }
void ParameterBoxes::Take(const wire::SwitchAnswer& answer) {
  param_ID = std::to_string(answer.ParamId);
  if (SwitchesOn) {
    SetIgnore_flip(answer.IgnoreFlip);
    SetIgnore_box(answer.IgnoreBox);
  }
  if (UseBoardOn()) SetUse_Board(answer.UseBoard);
  taken_ = switches_;
}

void ParameterBoxes::SetIgnore_box(bool on) {
  switches_.IgnoreBox = on;
  if (on) switches_.UseBoard = false;
}

void ParameterBoxes::Take(const ThresholdBlock& block) { TakeInto(*this, kThresholds, block); }
void ParameterBoxes::Take(const VideoBlock& block) { TakeInto(*this, kVideo, block); }

PositionBlock ParameterBoxes::Positions() const { return BlockOf(*this, kPositions); }
wire::SymbolBlock ParameterBoxes::Symbol() const { return {BlockOf(*this, kSymbol)}; }
wire::SuitBlock ParameterBoxes::Suit() const { return {BlockOf(*this, kSuit)}; }
ThresholdBlock ParameterBoxes::Thresholds() const { return BlockOf(*this, kThresholds); }
VideoBlock ParameterBoxes::Video() const { return BlockOf(*this, kVideo); }

void ParameterBoxes::ClampThresholds() {
  for (const auto& place : kThresholds) {
    if (place.Box != Parameter::Reco_option_txt) Box(place.Box).Leave();
  }
}

bool ParameterBoxes::Edited() const {
  return switches_ != taken_ || std::any_of(boxes_.begin(), boxes_.end(),
                                            [](const ValueBox& box) { return box.Edited(); });
}

std::string ParameterBoxes::DiffersFrom(const ParameterBoxes& other) const {
  std::string names;
  const auto name = [&names](bool differs, std::string_view what) {
    if (!differs) return;
    if (!names.empty()) names += ", ";
    names += what;
  };
  for (std::size_t i = 0; i < kParameters; ++i) {
    name(boxes_[i].Value() != other.boxes_[i].Value(), kRows[i].Name);
  }
  for (const ParameterSwitch& checkBox : kParameterSwitches) {
    name(switches_.*checkBox.Bit != other.switches_.*checkBox.Bit, checkBox.Name);
  }
  return names;
}

}  // namespace morvane::maintenance
