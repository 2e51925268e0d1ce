#pragma once

#include <QSize>
#include <memory>

#include "platform/event_loop.h"
#include "platform/printer.h"
#include "platform/qt/print_system.h"

namespace morvane {

/// The system's printers, PDF files and a window with the pages. Its dialogs are modal to the
/// window that is at work and end when the program quits. The system is asked for its printers when
/// they are first needed, for that may take a while.
class QtPrinter final : public Printer {
 public:
  explicit QtPrinter(EventLoop& loop,
                     std::unique_ptr<PrintSystem> system = std::make_unique<PrintSystem>());

  /// Of a file, when its dialog has chosen to print into one: the file's name.
  [[nodiscard]] std::string DeviceName() const override;
  std::optional<int> Setup(int copies) override;
  [[nodiscard]] std::optional<RuntimeError> WhyNoSetup() const override;
  [[nodiscard]] std::optional<RuntimeError> Print(const PrintJob& job, const Draw& draw) override;
  void Preview(const PrintJob& job, const Draw& draw,
               const std::vector<PreviewAction>& actions) override;
  [[nodiscard]] std::string Pdf(const PrintJob& job, const Draw& draw) override;

 private:
  [[nodiscard]] QPrinter& Device() const;
  [[nodiscard]] QPrinter& DeviceFor(const PrintJob& job);
  [[nodiscard]] std::optional<RuntimeError> PrintToFile(QPrinter& device, const PrintJob& job,
                                                        const Draw& draw);
  [[nodiscard]] std::optional<RuntimeError> PrintOnce(QPrinter& device, const Draw& draw);

  EventLoop& loop_;
  std::unique_ptr<PrintSystem> system_;
  mutable std::unique_ptr<QPrinter> device_;
  QSize previewSize_;  ///< as the operator left the last one
};

}  // namespace morvane
