#include "end_signals.h"

#include <windows.h>

#include <cerrno>
#include <cstdlib>
#include <iostream>
#include <streambuf>

#include "platform/event_loop.h"
#include "platform/windows/system_error.h"

namespace morvane {
namespace {

constexpr DWORD kMsToEnd = 2000;

/// A handler is given nothing but the event.
EventLoop* loopToQuit = nullptr;
bool pipeBroke = false;

/// In a thread of its own. When it comes back, the system ends what has not ended yet: a console
/// that is closed waits no longer. A further event does not put the end off.
BOOL WINAPI TakeEvent(DWORD /*event*/) {
  loopToQuit->Quit();
  // A question that waits for its answer ends too.
  CancelIoEx(GetStdHandle(STD_INPUT_HANDLE), nullptr);
  Sleep(kMsToEnd);
  return FALSE;
}

/// Passes on what is written, and looks at why that fails.
class WatchedOutput final : public std::streambuf {
 public:
  explicit WatchedOutput(std::ostream& output) : output_(output), passedTo_(*output.rdbuf(this)) {}
  WatchedOutput(const WatchedOutput&) = delete;
  WatchedOutput& operator=(const WatchedOutput&) = delete;
  ~WatchedOutput() override { output_.rdbuf(&passedTo_); }

 protected:
  int_type overflow(int_type letter) override {
    if (traits_type::eq_int_type(letter, traits_type::eof())) return traits_type::not_eof(letter);
    const int_type passed = passedTo_.sputc(traits_type::to_char_type(letter));
    Look(!traits_type::eq_int_type(passed, traits_type::eof()));
    return passed;
  }
  std::streamsize xsputn(const char* text, std::streamsize size) override {
    const std::streamsize passed = passedTo_.sputn(text, size);
    Look(passed == size);
    return passed;
  }
  int sync() override {
    const int failed = passedTo_.pubsync();
    Look(failed == 0);
    return failed;
  }

 private:
  static void Look(bool passed) {
    if (passed || ErrnoOf(_doserrno) != EPIPE) return;
    pipeBroke = true;
    loopToQuit->Quit();
  }

  std::ostream& output_;
  std::streambuf& passedTo_;
};

}  // namespace

void QuitOnEndSignals(EventLoop& loop) {
  loopToQuit = &loop;
  SetConsoleCtrlHandler(TakeEvent, TRUE);
}

/// Here no signal comes of it.
void QuitOnBrokenPipe() { static const WatchedOutput watched(std::cout); }

bool PipeHasBroken() { return pipeBroke; }

}  // namespace morvane
