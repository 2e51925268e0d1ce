#include "cli/service_lines.h"

#include <array>

#include "cli/parameter_changes.h"
#include "text/printable.h"

namespace morvane::cli {
namespace {

using maintenance::Identity;
using maintenance::Parameter;
using maintenance::Readings;

constexpr std::array<std::string_view, 7> kNationals{"AKQJ", "ARDV", "1RDV", "AKDB",
                                                     "AHVB", "EKDB", "EKDKn"};
constexpr std::array<std::string_view, 2> kCardTypes{"Standard", "Framed"};
constexpr std::array<std::string_view, 3> kThresholds{"Normal", "Fine", "Bold"};

template <std::size_t N>
std::string Caption(const std::array<std::string_view, N>& captions, int choice) {
  return std::string(captions[static_cast<std::size_t>(choice)]);
}

ServiceLine IndexLine(const machine::CardSettings& selection) {
  return {std::string(kCardIndexName), Caption(kIndexCaptions, selection.CardIndex)};
}

}  // namespace

std::string TextOf(const ServiceLine& line) {
  return line.Name + (line.Value.empty() ? ":" : ": " + Printable(line.Value));
}

std::string TextOf(const ServiceLines& lines) {
  std::string text;
  for (const ServiceLine& line : lines) text += TextOf(line) + "\n";
  return text;
}

ServiceLines IdentityLines(const Identity& identity) {
  ServiceLines lines;
  for (const auto& [name, text] : maintenance::kIdentityTexts) {
    lines.push_back({std::string(name), identity.*text});
  }
  return lines;
}

ServiceLines OutputLines(std::uint8_t outputs) {
  ServiceLines lines;
  for (std::size_t bit = 0; bit < maintenance::kOutputNames.size(); ++bit) {
    lines.push_back(
        {std::string(maintenance::kOutputNames[bit]), (outputs >> bit & 1U) != 0 ? "1" : "0"});
  }
  return lines;
}

ServiceLines SensorLines(const Readings& readings) {
  ServiceLines lines;
  const auto numbered = [&lines](const std::string& name, const auto& row) {
    for (std::size_t i = 1; i < row.size(); ++i) {
      lines.push_back({name + std::to_string(i), row[i].Text});
    }
  };
  numbered("Photo", readings.Photo);
  lines.push_back({"Front_Switch", readings.Front_Switch.Text});
  lines.push_back({"Cover_Switch", readings.Cover_Switch.Text});
  lines.push_back({"Box_Switch", readings.Box_Switch.Text});
  lines.push_back({"Flip_Switch", readings.Flip_Switch.Text});
  numbered("Motor_speed_", readings.Motor_speed);
  lines.push_back({"Inside_temp", readings.Inside_temp.Text});
  lines.push_back({"Supply_volt", readings.Supply_volt.Text});
  lines.push_back({"Board_no_txt", readings.Board_no_txt});
  lines.push_back({"Board_no_test_txt", readings.Board_no_test_txt});
  return lines;
}

ServiceLines SelectionLines(const machine::CardSettings& selection) {
  return {{"National", Caption(kNationals, selection.National)},
          {"CardType", Caption(kCardTypes, selection.CardType)},
          {"Threshold", Caption(kThresholds, selection.Threshold)},
          IndexLine(selection)};
}

ServiceLines ParameterLines(const maintenance::Maintenance& console) {
  const maintenance::ParameterBlock& block = console.Parameters();
  if (!block.Known()) return {};
  ServiceLines lines{IndexLine(block.CardSelection),
                     {std::string(kParamIdName), block.Boxes.param_ID}};
  for (const std::string_view name : ParameterNames()) {
    if (Has(console, name)) lines.push_back({std::string(name), ValueOf(block.Boxes, name)});
  }
  return lines;
}

ServiceLines RecognitionLines(const maintenance::RecognitionBench::Texts& texts) {
  ServiceLines lines{{"Symbol", texts.Verdict.Symbol},
                     {"Suit", texts.Verdict.Suit},
                     {"Threshold", texts.Verdict.Threshold},
                     {"Reco_time", texts.Verdict.Reco_time},
                     {"Reco_error", texts.Verdict.Reco_error}};
  if (!texts.Focus.empty()) lines.push_back({"Focus", texts.Focus});
  lines.insert(lines.end(), {{"Symbol_size_x", texts.Symbol_size_x},
                             {"Symbol_size_y", texts.Symbol_size_y},
                             {"Suit_size_x", texts.Suit_size_x},
                             {"Suit_size_y", texts.Suit_size_y},
                             {"Reco_param1", texts.Reco_param1},
                             {"Reco_param2", texts.Reco_param2},
                             {"Cap_time", texts.Cap_time}});
  return lines;
}

ServiceLines RecordLines(const maintenance::AdvanceForm& form) {
  ServiceLines lines{{"Adv_SerialNumber", form.Adv_SerialNumber.Text()},
                     {"Adv_Day", form.Adv_Day.Text()},
                     {"Adv_month", form.Adv_month.Text()},
                     {"Adv_Year", form.Adv_Year.Text()}};
  for (const maintenance::HardwareBox& box : maintenance::kHardwareBoxes) {
    lines.push_back({std::string(box.Name), form.IsChecked(box) ? "1" : "0"});
  }
  lines.push_back({"Curr_HID", std::to_string(form.Curr_HID())});
  lines.push_back({"Boards_dealt", form.Boards_dealt.Text()});
  for (std::size_t i = 0; i < form.Counters().size(); ++i) {
    lines.push_back({"Error_view_" + std::to_string(i), std::to_string(form.Counters()[i])});
  }
  return lines;
}

}  // namespace morvane::cli
