#include "cli/parameter_changes.h"

#include <algorithm>
#include <array>

#include "cli/service_lines.h"

namespace morvane::cli {
namespace {

using maintenance::Maintenance;
using maintenance::Parameter;
using maintenance::ParameterBoxes;
using maintenance::ValueBox;
using wire::SwitchBlock;

constexpr std::size_t kFirstSwitch = 12;
/// The check boxes stand behind the record's boxes. `Ignore_box` has its say over `Use_Board`, so
/// it is typed first.
constexpr std::array<std::string_view, 3> kSwitchNames{"Ignore_flip", "Ignore_box", "Use_Board"};
constexpr std::array<bool SwitchBlock::*, 3> kSwitches{
    &SwitchBlock::IgnoreFlip, &SwitchBlock::IgnoreBox, &SwitchBlock::UseBoard};
constexpr std::array<void (ParameterBoxes::*)(bool), 3> kSetters{
    &ParameterBoxes::SetIgnore_flip, &ParameterBoxes::SetIgnore_box, &ParameterBoxes::SetUse_Board};

using Names = std::array<std::string_view, maintenance::kParameters + kSwitchNames.size()>;

Names AllNames() {
  Names names{};
  auto* at = names.begin();
  for (std::size_t i = 0; i < maintenance::kParameters; ++i) {
    if (i == kFirstSwitch) at = std::copy(kSwitchNames.begin(), kSwitchNames.end(), at);
    *at++ = NameOf(static_cast<Parameter>(i));
  }
  return names;
}

std::optional<Parameter> BoxOf(std::string_view name) {
  for (std::size_t i = 0; i < maintenance::kParameters; ++i) {
    if (NameOf(static_cast<Parameter>(i)) == name) return static_cast<Parameter>(i);
  }
  return std::nullopt;
}

std::optional<std::size_t> SwitchOf(std::string_view name) {
  const auto* const found = std::find(kSwitchNames.begin(), kSwitchNames.end(), name);
  if (found == kSwitchNames.end()) return std::nullopt;
  return static_cast<std::size_t>(found - kSwitchNames.begin());
}

/// Types the text and leaves the box. Whether it stands there then.
bool TypeInto(ValueBox& box, const std::string& text) {
  FilteredBox typed{text, static_cast<int>(text.size())};
  box.Change(typed);
  box.Leave();
  return box.Text() == text;
}

std::string RangeOf(const ValueBox& box) {
  return std::to_string(box.Limits().Lower) + " to " + std::to_string(box.Limits().Upper);
}

}  // namespace

std::span<const std::string_view> ParameterNames() {
  static const Names kNames = AllNames();
  return kNames;
}

std::string WhyNot(const ParameterChange& change) {
  const std::string& name = change.Name;
  if (name == kParamIdName) return name + " is never written";
  if (name == kCardIndexName) return name + " is chosen with --index";
  if (SwitchOf(name)) {
    const bool takes = change.Value == "0" || change.Value == "1";
    return takes ? "" : name + " takes 0 or 1";
  }
  const auto parameter = BoxOf(name);
  if (!parameter) return "there is no parameter " + name;
  ValueBox box = ParameterBoxes().Box(*parameter);
  if (TypeInto(box, change.Value)) return "";
  return name + " takes a number from " + RangeOf(box) + ", without leading zeros";
}

std::string WhyNot(const ParameterChanges& changes) {
  for (auto change = changes.begin(); change != changes.end(); ++change) {
    if (std::string fault = WhyNot(*change); !fault.empty()) return fault;
    const bool twice = std::any_of(changes.begin(), change, [&](const ParameterChange& before) {
      return before.Name == change->Name;
    });
    if (twice) return change->Name + " stands there twice";
  }
  return "";
}

bool Has(const Maintenance& console, std::string_view name) {
  const ParameterBoxes& boxes = console.Parameters().Boxes;
  if (SwitchOf(name)) return name == "Use_Board" ? boxes.UseBoardKnown : boxes.SwitchesOn;
  const auto parameter = BoxOf(name);
  if (!parameter || boxes.Box(*parameter).Text().empty()) return false;
  switch (*parameter) {
    case Parameter::Video_Brightness:
    case Parameter::Video_Contrast:
      return console.Controls().Video;
    case Parameter::Board_Sen:
      return console.Controls().Board_Sen;
    default:
      return true;
  }
}

std::string ValueOf(const ParameterBoxes& boxes, std::string_view name) {
  if (const auto which = SwitchOf(name)) return boxes.Switches().*kSwitches[*which] ? "1" : "0";
  const auto parameter = BoxOf(name);
  return parameter ? boxes.Box(*parameter).Text() : "";
}

std::string Type(const ParameterChanges& changes, const Maintenance& console,
                 ParameterBoxes& boxes) {
  for (const ParameterChange& change : changes) {
    if (!Has(console, change.Name)) return "this machine has no " + change.Name;
    if (const auto parameter = BoxOf(change.Name)) TypeInto(boxes.Box(*parameter), change.Value);
  }
  for (std::size_t i = 0; i < kSwitchNames.size(); ++i) {
    for (const ParameterChange& change : changes) {
      if (change.Name == kSwitchNames[i]) (boxes.*kSetters[i])(change.Value == "1");
    }
  }
  if (boxes.Switches().UseBoard && boxes.Switches().IgnoreBox) {
    return "Use_Board cannot be 1 while Ignore_box is";
  }
  return "";
}

}  // namespace morvane::cli
