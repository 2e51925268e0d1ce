#pragma once

#include <QWidget>
#include <optional>

#include "generate/generate_set.h"

namespace morvane {
class ShownText;
class ShownValue;
}  // namespace morvane

namespace morvane::generate {

/// A counter of rejected deals, green or red, with a sign beside it that says the same.
class RejectCount final : public QWidget {
 public:
  /// `name` is the box's; the sign is called "<name>_sign".
  RejectCount(const char* name, const char* tip, QWidget* parent);

  /// `isOff`: the test had nothing to compare with.
  void Show(const std::optional<RejectCounter>& counter, bool isOff = false);
  [[nodiscard]] ShownText* Box() const { return box_; }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Colour();

  ShownText* box_;
  ShownValue* sign_;
  std::optional<RejectCounter> shown_;
};

}  // namespace morvane::generate
