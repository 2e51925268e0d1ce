#include "morvane/system_look.h"

#include <windows.h>

#include <QtGlobal>

namespace morvane {
namespace {

bool HasHighContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != 0 &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool WantsDark() {
  DWORD light = 1;
  DWORD size = sizeof light;
  RegGetValueW(HKEY_CURRENT_USER,
               L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
               L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
  return light == 0 && !HasHighContrast();
}

}  // namespace

/// The system draws its controls light whatever it says; in the dark Qt draws them.
std::vector<std::string> SystemLook() {
  if (!WantsDark() || qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) return {};
  return {"-platform", "windows:darkmode=2", "-style", "fusion"};
}

}  // namespace morvane
