#pragma once

#include <QWidget>
#include <array>

namespace morvane {
class ShownText;
}

namespace morvane::maintenance {

class Maintenance;

/// What the machine and its link say of themselves.
class IdentityPanel final : public QWidget {
 public:
  static constexpr std::size_t kTexts = 12;
  IdentityPanel(const Maintenance& maintenance, QWidget* parent);
  void Show();

 private:
  void CopyAll() const;

  const Maintenance& maintenance_;
  std::array<ShownText*, kTexts> texts_{};
};

}  // namespace morvane::maintenance
