#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "maintenance/service_file_reader.h"
#include "support.h"

namespace {

using namespace morvane;
using namespace morvane::maintenance;

constexpr int kTaken = 413;

/// With the rows of a picture in the place of the word for it, so that seeds are small and what
/// stands behind the pictures is reached.
std::string Expanded(std::string_view seed) {
  constexpr std::string_view kPicture = "PICTURE\n";
  static const std::string row = std::string(255, '0') + "3\n";
  std::string text;
  for (std::size_t at = 0; (at = seed.find(kPicture)) != std::string_view::npos;) {
    text.append(seed.substr(0, at));
    for (int y = 0; y < PixelPlane::kHeight; ++y) text += row;
    seed.remove_prefix(at + kPicture.size());
    if (text.size() > kLargestServiceFile) break;
  }
  return text.append(seed);
}

bool HasControl(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; });
}

void RequireFields(const ServiceFile& file) {
  Require(!HasControl(file.Info));
  for (std::size_t at = 0; at < kServiceFields.size(); ++at) {
    const std::string& text = file[ServiceFieldName(at)];
    Require(!HasControl(text));
    const bool isNumber = !kServiceFields[at].Range.IsText();
    Require(!isNumber || text.find_first_not_of("-0123456789") == std::string::npos);
    const auto commas = std::count(text.begin(), text.end(), ',');
    Require(commas == (kServiceFields[at].Parts == 2 && !text.empty() ? 1 : 0));
  }
}

void RequireLists(const ServiceFileRead& read) {
  const std::string errors = ErrorsText(read);
  const std::string test = TestText(read);
  const auto counters = std::clamp(read.Lines - 396, 0, 2);
  const auto bytes = std::clamp(read.Lines - 405, 0, 4);
  Require(std::count(errors.begin(), errors.end(), '\n') == 31L * counters);
  Require(std::count(test.begin(), test.end(), '\n') == 32L * bytes);
}

/// What was written of a whole file is read as the same again.
void RequireSame(const ServiceFile& file) {
  const std::string bytes = BytesOf(file);
  const ServiceFileRead again = ServiceFileIn(bytes);
  Require(!again.Fault());
  Require(BytesOf(again.File) == bytes);
}

void Try(const std::string& bytes) {
  const ServiceFileRead read = ServiceFileIn(bytes);
  Require(read.Lines >= 0 && read.Lines <= kTaken);
  Require(read.Fault().value_or(kTaken + 1) == read.Lines + 1);
  RequireFields(read.File);
  RequireLists(read);
  if (!read.Fault()) RequireSame(read.File);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  Try(bytes);
  const std::string expanded = Expanded(bytes);
  if (expanded != bytes) Try(expanded);
  return 0;
}
