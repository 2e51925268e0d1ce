#pragma once

#include <QAccessible>
#include <QString>

class QWidget;

namespace morvane {

/// A widget that assistive tools read as a name, its `accessibleName`, and a text that changes.
class Spoken {
 public:
  Spoken(const Spoken&) = delete;
  Spoken& operator=(const Spoken&) = delete;
  virtual ~Spoken() = default;

  [[nodiscard]] virtual QString SpokenText() const = 0;
  [[nodiscard]] QAccessible::Role Role() const { return role_; }

 protected:
  explicit Spoken(QAccessible::Role role);
  /// To be called when the text may have changed; a change is announced.
  void Announce(QWidget& widget);

 private:
  QAccessible::Role role_;
  QString announced_;
};

}  // namespace morvane
