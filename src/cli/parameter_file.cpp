#include "cli/parameter_file.h"

#include <algorithm>
#include <utility>

#include "cli/service_lines.h"
#include "platform/files.h"
#include "text/text_encoding.h"

namespace morvane::cli {
namespace {

constexpr std::uint64_t kLongest = 4096;

/// "NAME: VALUE", with or without a carriage return at its end.
std::optional<ParameterChange> PairIn(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  const std::size_t colon = line.find(": ");
  if (colon == std::string_view::npos) return std::nullopt;
  return ParameterChange{std::string(line.substr(0, colon)), std::string(line.substr(colon + 2))};
}

std::optional<int> IndexOf(const std::string& caption) {
  const auto* const found = std::find(kIndexCaptions.begin(), kIndexCaptions.end(), caption);
  if (found == kIndexCaptions.end()) return std::nullopt;
  return static_cast<int>(found - kIndexCaptions.begin());
}

bool IsNumber(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

/// Takes the file's text apart, line by line; what is wrong with it.
class ParameterText {
 public:
  explicit ParameterText(ParameterFile& file) : file_(file) {}

  std::string Take(std::string_view text) {
    // Half a number in the last line would look like a whole one.
    if (!text.ends_with('\n')) return "it does not end with a line's end";
    for (int line = 1; !text.empty(); ++line) {
      const std::size_t end = text.find('\n');
      const std::string fault = TakeLine(text.substr(0, end));
      if (!fault.empty()) return "line " + std::to_string(line) + ": " + fault;
      text.remove_prefix(end + 1);
    }
    if (!hasIndex_ || file_.param_ID.empty()) return "it does not say whose parameters it has";
    return WhyNot(file_.Values);
  }

 private:
  std::string TakeLine(std::string_view line) {
    const auto pair = PairIn(line);
    if (!pair) return "it is no \"NAME: VALUE\"";
    if (pair->Name == kCardIndexName) return TakeIndex(*pair);
    if (pair->Name == kParamIdName) return TakeParamId(*pair);
    file_.Values.push_back(*pair);
    return WhyNot(*pair);
  }
  std::string TakeIndex(const ParameterChange& pair) {
    const auto index = IndexOf(pair.Value);
    if (hasIndex_ || !index) return "it is no CardIndex";
    hasIndex_ = true;
    file_.CardIndex = *index;
    return "";
  }
  std::string TakeParamId(const ParameterChange& pair) {
    if (!file_.param_ID.empty() || !IsNumber(pair.Value)) return "it is no param_ID";
    file_.param_ID = pair.Value;
    return "";
  }

  ParameterFile& file_;
  bool hasIndex_ = false;
};

}  // namespace

std::string ReadParameterFile(const std::string& path, ParameterFile& file) {
  std::string text;
  if (const auto failure = ReadFile(path, text, kLongest)) {
    return path + ": " + failure->Description;
  }
  // A shell may have written it in UTF-16.
  const std::string fault = ParameterText(file).Take(DecodeAnyText(std::move(text)));
  return fault.empty() ? "" : path + " holds no parameters of a machine: " + fault;
}

std::string WhyNotWhole(const ParameterFile& file, const maintenance::Maintenance& console) {
  for (const std::string_view name : ParameterNames()) {
    const bool there =
        std::any_of(file.Values.begin(), file.Values.end(),
                    [name](const ParameterChange& value) { return value.Name == name; });
    if (!there && Has(console, name)) return "it has no " + std::string(name);
  }
  return "";
}

}  // namespace morvane::cli
