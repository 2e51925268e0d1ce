#include "platform/qt/print_system.h"

#include <QLibrary>
#include <QPrinterInfo>

namespace morvane {

std::unique_ptr<QPrinter> PrintSystem::MakeDevice() const {
  return std::make_unique<QPrinter>(QPrinter::HighResolution);
}

bool PrintSystem::Has(const QString& name) const {
  return QPrinterInfo::availablePrinterNames().contains(name);
}

QString PrintSystem::DefaultName() const { return QPrinterInfo::defaultPrinterName(); }

#ifdef _WIN32
std::optional<RuntimeError> PrintSystem::RefusedJob() const { return std::nullopt; }
#else
/// Qt's plugin has loaded the library where there are queues, and asks it last when a job ends.
std::optional<RuntimeError> PrintSystem::RefusedJob() const {
  constexpr int kCupsVersion = 2;
  constexpr int kFirstFailure = 0x400;
  QLibrary cups("cups", kCupsVersion);
  const auto number = reinterpret_cast<int (*)()>(cups.resolve("cupsLastError"));
  const auto words = reinterpret_cast<const char* (*)()>(cups.resolve("cupsLastErrorString"));
  if (number == nullptr || words == nullptr || number() < kFirstFailure) return std::nullopt;
  return RuntimeError{number(), words()};
}
#endif

}  // namespace morvane
