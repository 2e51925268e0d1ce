#pragma once

#include "platform/qt/print_system.h"

namespace morvane::test {

/// A system without printers, whatever the machine has.
class NoPrinters final : public PrintSystem {
 public:
  [[nodiscard]] std::unique_ptr<QPrinter> MakeDevice() const override {
    auto device = std::make_unique<QPrinter>(QPrinter::HighResolution);
    device->setOutputFormat(QPrinter::PdfFormat);
    return device;
  }
  [[nodiscard]] QString DefaultName() const override { return {}; }
};

}  // namespace morvane::test
