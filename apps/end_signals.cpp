#include "end_signals.h"

#include <unistd.h>

#include <csignal>

#include "platform/event_loop.h"

namespace morvane {
namespace {

/// A signal handler is given nothing but the signal.
EventLoop* loopToQuit = nullptr;
volatile std::sig_atomic_t told = 0;
volatile std::sig_atomic_t pipeBroke = 0;

constexpr unsigned kSecondsToEnd = 2;

void TakeSignal(int number) {
  if (number == SIGPIPE) pipeBroke = 1;
  loopToQuit->Quit();
  // A further signal does not put the end off.
  if (told == 0) alarm(kSecondsToEnd);
  told = 1;
}

void Catch(int number) {
  struct sigaction before {};
  if (sigaction(number, nullptr, &before) == 0 && before.sa_handler == SIG_IGN) return;
  // Without SA_RESTART, so that a question that waits for its answer ends too.
  struct sigaction action {};
  action.sa_handler = TakeSignal;
  sigaction(number, &action, nullptr);
}

}  // namespace

void QuitOnEndSignals(EventLoop& loop) {
  loopToQuit = &loop;
  for (const int number : {SIGTERM, SIGHUP, SIGINT}) Catch(number);
}

void QuitOnBrokenPipe() { Catch(SIGPIPE); }

bool PipeHasBroken() { return pipeBroke != 0; }

}  // namespace morvane
