#include "platform/qt/spoken.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace morvane {
namespace {

/// The text stands in the text interface, which the bus of the Linux desktops carries, and in the
/// value, which other desktops read.
class SpokenInterface final : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  SpokenInterface(QWidget& widget, const Spoken& spoken)
      : QAccessibleWidget(&widget, spoken.Role()), spoken_(spoken) {}

  using QAccessibleWidget::text;
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? Whole() : QAccessibleWidget::text(kind);
  }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  [[nodiscard]] QString text(int start, int end) const override {
    return Whole().mid(start, end - start);
  }
  [[nodiscard]] int characterCount() const override { return static_cast<int>(Whole().size()); }

  // Nothing of it can be selected, and it has no caret.
  void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
  [[nodiscard]] int selectionCount() const override { return 0; }
  void addSelection(int /*start*/, int /*end*/) override {}
  void removeSelection(int /*index*/) override {}
  void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
  [[nodiscard]] int cursorPosition() const override { return 0; }
  void setCursorPosition(int /*position*/) override {}
  [[nodiscard]] QRect characterRect(int /*offset*/) const override { return rect(); }
  [[nodiscard]] int offsetAtPoint(const QPoint& /*point*/) const override { return 0; }
  void scrollToSubstring(int /*start*/, int /*end*/) override {}
  QString attributes(int /*offset*/, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return {};
  }

 private:
  [[nodiscard]] QString Whole() const { return spoken_.SpokenText(); }

  const Spoken& spoken_;
};

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
  const auto* spoken = dynamic_cast<Spoken*>(object);
  if (spoken == nullptr) return nullptr;
  return new SpokenInterface(*static_cast<QWidget*>(object), *spoken);
}

}  // namespace

Spoken::Spoken(QAccessible::Role role) : role_(role) {
  QAccessible::installFactory(MakeInterface);  // once: it knows those that it has
}

void Spoken::Announce(QWidget& widget) {
  const QString now = SpokenText();
  if (now == announced_) return;
  QAccessibleTextUpdateEvent changed(&widget, 0, announced_, now);
  QAccessible::updateAccessibility(&changed);
#ifdef _WIN32
  QAccessibleValueChangeEvent value(&widget, now);
  QAccessible::updateAccessibility(&value);
#endif
  announced_ = now;
}

}  // namespace morvane
