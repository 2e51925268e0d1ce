#pragma once

#include <QPrinter>
#include <memory>
#include <optional>

#include "platform/runtime_error.h"

namespace morvane {

/// The printers that the system has.
class PrintSystem {
 public:
  virtual ~PrintSystem() = default;
  /// The default one; where there is none, one that can only draw previews.
  [[nodiscard]] virtual std::unique_ptr<QPrinter> MakeDevice() const;
  /// Whether the system still has a printer of that name.
  [[nodiscard]] virtual bool Has(const QString& name) const;
  /// The name of the default one; empty when there is none.
  [[nodiscard]] virtual QString DefaultName() const;
  /// Why the queue has not taken the job that was just ended, which Qt does not tell.
  [[nodiscard]] virtual std::optional<RuntimeError> RefusedJob() const;
};

}  // namespace morvane
