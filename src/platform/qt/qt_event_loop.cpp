#include "platform/qt/qt_event_loop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <QPointer>
#include <QScopeGuard>
#include <QSocketNotifier>
#include <QThread>
#include <QTimer>
#include <QTimerEvent>
#include <algorithm>
#include <array>
#include <utility>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace morvane {
namespace {

/// An operator does not feel it; between two frames on the wire it would count.
constexpr int kPumpMs = 25;

class Ticker final : public QObject {
 public:
  /// `held`: no tick meanwhile.
  Ticker(int intervalMs, std::function<void()> tick, const bool& held, QObject* parent)
      : QObject(parent),
        tick_(std::move(tick)),
        held_(held),
        id_(startTimer(intervalMs, Qt::PreciseTimer)) {}

  void Stop() {
    killTimer(id_);
    stopped_ = true;
    if (!ticking_) delete this;
  }

 protected:
  void timerEvent(QTimerEvent* /*event*/) override {
    if (ticking_ || held_) return;
    ticking_ = true;
    const auto over = qScopeGuard([this] { EndTick(); });
    tick_();
  }

 private:
  void EndTick() {
    ticking_ = false;
    // Only now: a tick that lets events through after it was stopped would let this one through
    // too.
    if (stopped_) deleteLater();
  }

  std::function<void()> tick_;
  const bool& held_;
  int id_;
  bool ticking_ = false;
  bool stopped_ = false;
};

class QtTimer final : public Timer {
 public:
  explicit QtTimer(Ticker* ticker) : ticker_(ticker) {}
  QtTimer(const QtTimer&) = delete;
  QtTimer& operator=(const QtTimer&) = delete;
  ~QtTimer() override {
    if (ticker_) ticker_->Stop();
  }

 private:
  QPointer<Ticker> ticker_;  // it goes with the loop when that goes first
};

}  // namespace

#ifdef _WIN32

/// Ends every loop from wherever it is called; a control handler runs in a thread of its own.
class QtEventLoop::Wake {
 public:
  void Send() {
    QMetaObject::invokeMethod(
        &inLoop_, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
  }

 private:
  QObject inLoop_;
};

#else

/// Ends every loop from wherever it is called. A signal handler may write to a pipe and do little
/// else, so the loop listens to one.
class QtEventLoop::Wake {
 public:
  Wake() {
    if (pipe(ends_.data()) != 0) qFatal("No pipe for the event loop (error %d)", errno);
    for (const int end : ends_) {
      fcntl(end, F_SETFD, FD_CLOEXEC);
      fcntl(end, F_SETFL, O_NONBLOCK);
    }
    listener_ = std::make_unique<QSocketNotifier>(ends_[0], QSocketNotifier::Read);
    QObject::connect(listener_.get(), &QSocketNotifier::activated, listener_.get(), [this] {
      listener_->setEnabled(false);  // quitting is for good, one byte is enough
      QCoreApplication::exit();
    });
  }
  Wake(const Wake&) = delete;
  Wake& operator=(const Wake&) = delete;
  ~Wake() {
    listener_.reset();
    for (const int end : ends_) close(end);
  }

  void Send() {
    const int error = errno;  // the code that the signal interrupted may be about to read it
    const char byte = 1;
    [[maybe_unused]] const auto written = write(ends_[1], &byte, 1);
    errno = error;
  }

 private:
  std::array<int, 2> ends_{};
  std::unique_ptr<QSocketNotifier> listener_;
};

#endif

QtEventLoop::QtEventLoop() : wake_(std::make_unique<Wake>()) {}

QtEventLoop::~QtEventLoop() = default;

bool QtEventLoop::Pump() {
  sincePump_.start();
  QCoreApplication::processEvents(QEventLoop::AllEvents);
  return !quitting_;
}

bool QtEventLoop::PumpOften() {
  const bool soonEnough = sincePump_.isValid() && !sincePump_.hasExpired(kPumpMs);
  return soonEnough ? !quitting_ : Pump();
}

void QtEventLoop::Paint() {
  painting_ = true;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                  QEventLoop::ExcludeSocketNotifiers);
  painting_ = false;
}

void QtEventLoop::WaitMs(int ms) {
  bool over = false;
  QTimer timer;
  timer.setSingleShot(true);
  timer.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer, &QTimer::timeout, &timer, [&over] { over = true; });
  timer.start(std::max(0, ms));
  RunUntil([&over] { return over; });
}

void QtEventLoop::RunUntil(const std::function<bool()>& done) {
  // What was posted is delivered before the system waits, and on Windows does not keep it from
  // waiting: a precise timer's tick is posted too. Of waits in each other the innermost looks.
  const int wait = ++waits_;
  const int level = QThread::currentThread()->loopLevel();
  auto* const dispatcher = QAbstractEventDispatcher::instance();
  const auto look = QObject::connect(
      dispatcher, &QAbstractEventDispatcher::aboutToBlock, dispatcher,
      [this, wait, level, dispatcher, &done] {
        const bool innermost = wait == waits_ && level == QThread::currentThread()->loopLevel();
        if (innermost && (quitting_ || done())) dispatcher->wakeUp();
      });
  const auto over = qScopeGuard([&] {
    QObject::disconnect(look);
    --waits_;
  });
  while (!quitting_ && !done()) {
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
}

std::unique_ptr<Timer> QtEventLoop::StartTimer(int intervalMs, std::function<void()> tick) {
  return std::make_unique<QtTimer>(
      new Ticker(std::max(1, intervalMs), std::move(tick), painting_, &tickers_));
}

void QtEventLoop::Quit() {
  quitting_ = true;
  wake_->Send();
}

}  // namespace morvane
