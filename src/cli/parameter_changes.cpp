#include "cli/parameter_changes.h"

#include <algorithm>
#include <array>

#include "cli/service_lines.h"

namespace morvane::cli {
namespace {

using maintenance::kParameterSwitches;
using maintenance::Maintenance;
using maintenance::Parameter;
using maintenance::ParameterBoxes;
using maintenance::ParameterSwitch;
using maintenance::ValueBox;

/// The check boxes stand behind the record's boxes.
constexpr std::size_t kFirstSwitch = 12;
using Names = std::array<std::string_view, maintenance::kParameters + kParameterSwitches.size()>;

Names AllNames() {
  Names names{};
  auto* at = names.begin();
  for (std::size_t i = 0; i < maintenance::kParameters; ++i) {
    if (i == kFirstSwitch) {
      for (const ParameterSwitch& checkBox : kParameterSwitches) *at++ = checkBox.Name;
    }
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

/// Null: it is none.
const ParameterSwitch* SwitchOf(std::string_view name) {
  const auto* const found =
      std::find_if(kParameterSwitches.begin(), kParameterSwitches.end(),
                   [name](const ParameterSwitch& checkBox) { return checkBox.Name == name; });
  return found == kParameterSwitches.end() ? nullptr : found;
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
  if (SwitchOf(name) != nullptr) {
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
  if (SwitchOf(name) != nullptr)
    return name == "Use_Board" ? boxes.UseBoardKnown : boxes.SwitchesOn;
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
  if (const auto* const which = SwitchOf(name)) return boxes.Switches().*which->Bit ? "1" : "0";
  const auto parameter = BoxOf(name);
  return parameter ? boxes.Box(*parameter).Text() : "";
}

std::string Type(const ParameterChanges& changes, const Maintenance& console,
                 ParameterBoxes& boxes) {
  for (const ParameterChange& change : changes) {
    if (!Has(console, change.Name)) return "this machine has no " + change.Name;
    if (const auto parameter = BoxOf(change.Name)) TypeInto(boxes.Box(*parameter), change.Value);
  }
  // `Ignore_box` has its say over `Use_Board`, so it is set first, wherever it stands.
  for (const ParameterSwitch& checkBox : kParameterSwitches) {
    for (const ParameterChange& change : changes) {
      if (change.Name == checkBox.Name) (boxes.*checkBox.Set)(change.Value == "1");
    }
  }
  if (boxes.Switches().UseBoard && boxes.Switches().IgnoreBox) {
    return "Use_Board cannot be 1 while Ignore_box is";
  }
  return "";
}

}  // namespace morvane::cli
