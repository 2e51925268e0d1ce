#include "guarded_application.h"

#include <exception>
#include <utility>

namespace morvane {

void GuardedApplication::Guard(const std::function<void()>& work) {
  try {
    work();
  } catch (const std::exception& error) {
    Tell(error.what());
  } catch (...) {
    Tell("unknown");
  }
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  bool done = false;
  Guard([&] { done = QApplication::notify(receiver, event); });
  return done;
}

void GuardedApplication::Tell(const std::string& what) {
  if (std::exchange(told_, true) || !OnFault) return;
  try {
    OnFault(what.empty() ? "unknown" : what);
  } catch (...) {  // there is nobody left to be told
  }
}

}  // namespace morvane
