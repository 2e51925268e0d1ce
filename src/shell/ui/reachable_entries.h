#pragma once

#include <QProxyStyle>

namespace morvane::shell {

/// Looks like the desktop's style, but an entry of a menu that cannot be used is reached by mouse
/// and keys all the same, so that it can say why.
class ReachableEntries final : public QProxyStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override {
    if (hint == SH_Menu_AllowActiveAndDisabled) return 1;
    return QProxyStyle::styleHint(hint, option, widget, returned);
  }
};

}  // namespace morvane::shell
