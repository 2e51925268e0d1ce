#pragma once

#include <QApplication>
#include <functional>
#include <string>

namespace morvane {

/// An application in which no exception gets past the event, or the work, that it came from: it is
/// told to `OnFault`, which has the program end. What the event was to do is half done then, and
/// what was at work around it ends as when the program is told to end.
class GuardedApplication final : public QApplication {
 public:
  using QApplication::QApplication;

  /// Hears what the first fault says of itself; later ones come from the same trouble.
  std::function<void(const std::string& what)> OnFault;

  /// Work outside of any event.
  void Guard(const std::function<void()>& work);

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  void Tell(const std::string& what);
  bool told_ = false;
};

}  // namespace morvane
