#include "end_signals.h"

#include <windows.h>

#include "platform/event_loop.h"

namespace morvane {
namespace {

constexpr DWORD kMsToEnd = 2000;

/// A handler is given nothing but the event.
EventLoop* loopToQuit = nullptr;

/// In a thread of its own. When it comes back, the system ends what has not ended yet: a console
/// that is closed and a user who logs off wait no longer. A further event does not put the end off.
BOOL WINAPI TakeEvent(DWORD /*event*/) {
  loopToQuit->Quit();
  // A question that waits for its answer ends too.
  CancelIoEx(GetStdHandle(STD_INPUT_HANDLE), nullptr);
  Sleep(kMsToEnd);
  return FALSE;
}

}  // namespace

void QuitOnEndSignals(EventLoop& loop) {
  loopToQuit = &loop;
  SetConsoleCtrlHandler(TakeEvent, TRUE);
}

// Here a write into a pipe that nobody reads fails, and no more.
void QuitOnBrokenPipe() {}
bool PipeHasBroken() { return false; }

}  // namespace morvane
