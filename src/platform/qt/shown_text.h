#pragma once

#include <QLineEdit>

namespace morvane {

/// A box whose text can be read and copied, and changes only when the program changes it.
class ShownText final : public QLineEdit {
 public:
  ShownText(const char* name, const char* tip, QWidget* parent);

  /// A text in which the signs of the suits have their colours.
  void ShowSuits(const QString& text);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void ColourSuits();
};

}  // namespace morvane
