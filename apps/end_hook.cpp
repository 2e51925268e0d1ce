#include "end_hook.h"

#include <cstdlib>
#include <utility>

namespace morvane {
namespace {

/// What is called at the exit is given nothing.
std::function<void()>& Hook() {
  static std::function<void()> hook;
  return hook;
}

}  // namespace

EndHook::EndHook(std::function<void()> end) {
  Hook() = std::move(end);
  std::atexit([] {
    if (const auto hook = std::exchange(Hook(), {})) hook();
  });
}

EndHook::~EndHook() { Hook() = {}; }

}  // namespace morvane
