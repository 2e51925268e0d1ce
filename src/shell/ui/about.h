#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "shell/help.h"

class QFormLayout;
class QPushButton;

namespace morvane::shell {

/// What the program is, what it stands on and where its files are. It belongs to no flow: it stands
/// over the main window and goes when it is closed.
class AboutWindow final : public QDialog {
 public:
  AboutWindow(Help& help, QWidget* parent);

 private:
  QWidget* MakeBody();
  QLayout* MakeHead();
  QLayout* MakeFacts();
  QWidget* MakeButtons();
  void AddSettings(QFormLayout& form);
  /// A path with the button that opens its folder.
  void AddPath(QFormLayout& form, const char* caption, const char* name, const std::string& path,
               const char* button, std::function<void()> press);
  QWidget* NewPlace(const char* caption, const char* name, const std::string& place);
  QPushButton* NewButton(const char* name, const char* caption, std::function<void()> press);

  Help& help_;
};

/// Brings it up over `mainMenu`, or to the front.
void ShowAbout(Help& help, QWidget& mainMenu);

}  // namespace morvane::shell
