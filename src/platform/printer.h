#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/canvas.h"
#include "platform/runtime_error.h"

namespace morvane {

/// The sheet that pages are made for.
enum class Paper : std::uint8_t { kPrinters, kA4, kLetter };

/// What is told of a job to the printer.
struct PrintJob {
  std::string Title;
  int Copies = 1;                  ///< made by the printer
  Paper Sheet = Paper::kPrinters;  ///< of a PDF
};

/// What can be done with the pages that a preview shows.
struct PreviewAction {
  std::string Name;     ///< of its button, for tests and assistive tools
  std::string Caption;  ///< with its mnemonic
  std::function<void()> Do;
};

/// Paper: the current printer, pages on the screen, and pages as a PDF. All pages stand upright.
class Printer {
 public:
  /// Draws all pages; done when it returns.
  using Draw = std::function<void(Canvas& canvas)>;

  virtual ~Printer() = default;
  /// Of the current printer, as the system has it; empty when there is none.
  [[nodiscard]] virtual std::string DeviceName() const = 0;
  /// The system's dialog, which starts with `copies`. Printer, paper and duplex are kept for the
  /// next jobs; the copies that were confirmed, nothing when it was cancelled.
  virtual std::optional<int> Setup(int copies) = 0;
  /// Why its dialog cannot come up.
  [[nodiscard]] virtual std::optional<RuntimeError> WhyNoSetup() const { return std::nullopt; }
  /// Why it has not been printed.
  [[nodiscard]] virtual std::optional<RuntimeError> Print(const PrintJob& job,
                                                          const Draw& draw) = 0;
  /// The pages as they would be printed, in a window; returns when it has been closed.
  virtual void Preview(const PrintJob& job, const Draw& draw,
                       const std::vector<PreviewAction>& actions) = 0;
  /// The bytes of a PDF file with the pages; empty when there are no fonts to draw them with.
  [[nodiscard]] virtual std::string Pdf(const PrintJob& job, const Draw& draw) = 0;
};

}  // namespace morvane
