#pragma once

#include "platform/printer.h"

namespace morvane {

/// A printer for a program without a display: it makes PDF files and nothing else.
class PdfPrinter final : public Printer {
 public:
  [[nodiscard]] std::string DeviceName() const override { return {}; }
  std::optional<int> Setup(int /*copies*/) override { return std::nullopt; }
  [[nodiscard]] std::optional<RuntimeError> Print(const PrintJob& job, const Draw& draw) override;
  void Preview(const PrintJob&, const Draw&, const std::vector<PreviewAction>&) override {}
  [[nodiscard]] std::string Pdf(const PrintJob& job, const Draw& draw) override;
};

}  // namespace morvane
