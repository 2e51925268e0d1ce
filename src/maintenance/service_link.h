#pragma once

#include <functional>
#include <optional>

#include "machine/machine.h"
#include "program/program.h"

namespace morvane::maintenance {

/// How every window of the service speaks with the machine: the exchange with its retry, and the
/// one recovery. Once the link is lost nothing is sent any more.
class ServiceLink {
 public:
  /// `recover` closes the service; it is called once, behind the box that tells of the loss.
  ServiceLink(Program& program, machine::Machine& machine, std::function<void()> recover)
      : program_(program), machine_(machine), recover_(std::move(recover)) {}
  ServiceLink(const ServiceLink&) = delete;
  ServiceLink& operator=(const ServiceLink&) = delete;

  /// The reply to `command`. Nothing: another frame came in its place, or the link is lost.
  template <typename Command>
  std::optional<typename Command::Reply> Ask(const Command& command) {
    return Ask(command, [] {});
  }
  /// `meanwhile` as in `Machine::Exchange`.
  template <typename Command, typename Meanwhile>
  std::optional<typename Command::Reply> Ask(const Command& command, Meanwhile meanwhile) {
    return Ask(command, meanwhile, [](machine::MachineLink::Receive) {});
  }
  /// `badTry` as there.
  template <typename Command, typename Meanwhile, typename BadTry>
  std::optional<typename Command::Reply> Ask(const Command& command, Meanwhile meanwhile,
                                             BadTry badTry) {
    if (linkFailed_) return std::nullopt;
    const auto reply = machine_.Exchange(command, meanwhile, badTry);
    if (machine_.Lost()) Fail(program_.Texts.Msg055);
    return reply;
  }
  /// The same for the first words: a machine that is silent here has no power.
  template <typename Command>
  std::optional<typename Command::Reply> AskFirst(const Command& command) {
    const auto reply = machine_.Exchange(command);
    if (machine_.Lost()) Fail(program_.Texts.Msg047);
    return reply;
  }
  /// Sends a command that writes, and gives the machine time for it. False: the link is lost.
  template <typename Command>
  bool Write(const Command& command) {
    if (linkFailed_) return false;
    machine_.Tell(command);
    Settle();
    return !linkFailed_;
  }

  [[nodiscard]] bool LinkFailed() const { return linkFailed_; }

  /// The link is free, and another procedure would find it taken from now on: true, or it is taken
  /// already, and whoever asks is to do nothing.
  class Turn {
   public:
    explicit Turn(ServiceLink& link) : machine_(link.machine_), mine_(!machine_.PollLock) {
      machine_.PollLock = true;
    }
    ~Turn() {
      if (mine_) machine_.PollLock = false;
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    explicit operator bool() const { return mine_; }

   private:
    machine::Machine& machine_;
    bool mine_;
  };

 private:
  static constexpr int kSettleMs = 10;
  void Fail(const std::string& text);
  void Settle();

  Program& program_;
  machine::Machine& machine_;
  std::function<void()> recover_;
  bool linkFailed_ = false;
};

}  // namespace morvane::maintenance
