#pragma once

namespace morvane {

class EventLoop;

/// From now on the signals by which a system ends a program (SIGTERM, SIGHUP and SIGINT, the
/// console events on Windows) ask `loop` to quit. A program that has not ended two seconds later,
/// because the system does not give back a file, say, is ended by the system. Those that were
/// ignored stay so. Once; `loop` lives until the program ends.
void QuitOnEndSignals(EventLoop& loop);

/// From now on that loop is asked to quit, likewise, when a pipe that is written to has nobody who
/// reads it any more. Behind `QuitOnEndSignals`.
void QuitOnBrokenPipe();
[[nodiscard]] bool PipeHasBroken();

}  // namespace morvane
