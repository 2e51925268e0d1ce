#pragma once

#include <QObject>

#include "shell/help.h"

namespace morvane::shell {

/// F1 in whatever window of ours has the keyboard, before its controls see it: opens the guide at
/// the page on that window. Held down it opens one. It lives as long as the application.
class HelpKey final : public QObject {
 public:
  explicit HelpKey(Help& help);

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  Help& help_;
};

}  // namespace morvane::shell
