// Any bytes as the settings file, and any text as a value: it is read back as it was, the other
// settings stay, and further writes of it change nothing.
// An input is: a byte that chooses the key, a byte with the length of the value, the value, the
// file.

#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "platform/ini_text.h"
#include "program/setting_keys.h"
#include "support.h"

namespace {

using namespace morvane;

/// Two sections, a name with blanks, one name in two sections, and names from elsewhere.
constexpr SettingKey kKeys[] = {kGenerator,
                                kNewFirstBoard,
                                kSeedm,
                                kServiceFileId,
                                kInitDirectory,
                                kSolverDone,
                                kMainMenuPlace,
                                {kSetup, "Seedm", "another"},
                                {"Own", "A", "none"},
                                {"Setup 2", "B c", "none"}};

/// `content` is `file` with `key` set.
void RequireSet(std::string_view content, std::string_view file, const SettingKey& key,
                std::string_view value) {
  Require(IniValue(content, key) == value);
  for (const SettingKey& other : kKeys) {
    if (&other != &key) Require(IniValue(content, other) == IniValue(file, other));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const SettingKey& key = kKeys[data[0] % std::size(kKeys)];
  const std::string_view value = input.substr(2, data[1]);
  const std::string_view file = input.substr(2 + value.size());

  std::string content(file);
  for (int writes = 1; writes <= 4; ++writes) {
    const auto changed = WithIniValue(content, key, value);
    Require(changed.has_value());
    content = *changed;
    RequireSet(content, file, key, value);
  }
  // By now the blank lines and comments of a damaged file have found their places: it does not grow
  // by being used.
  Require(WithIniValue(content, key, value) == content);
  return 0;
}
