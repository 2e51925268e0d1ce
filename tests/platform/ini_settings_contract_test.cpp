#include "platform/ini_settings.h"
#include "platform/settings_contract.h"
#include "support/fakes.h"

namespace morvane::test {
namespace {

class IniDesk {
 public:
  [[nodiscard]] IniSettings Open() const { return IniSettings(folder_ / "morvane.exe.ini"); }

 private:
  TempFolder folder_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(IniSettings, SettingsContract, IniDesk);

}  // namespace
}  // namespace morvane::test
