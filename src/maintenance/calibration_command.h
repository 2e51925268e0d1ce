#pragma once

#include <string>

#include "machine/gates.h"
#include "maintenance/console_host.h"
#include "maintenance/parameter_block.h"

namespace morvane::maintenance {

/// Since when a firmware tries a sensitivity out.
inline constexpr machine::VersionGate kCalibrationGate{0x80, nullptr};

/// Why the board switch of this machine cannot be calibrated; empty: it can.
[[nodiscard]] std::string WhyNoCalibration(const machine::Machine& machine);

/// The title of its prompt.
inline constexpr const char* kCalibrationCaption = "Calibrate Board Switch";

/// The button `Calibrate_Board_Switch`: the prompt, the window's sweeps, and what the machine is to
/// keep of them. Whoever runs it has the link, and nothing else takes it meanwhile.
class CalibrationCommand {
 public:
  CalibrationCommand(Program& program, ServiceLink& link, const machine::Machine& machine,
                     ParameterBlock& parameters, ConsoleHost& host)
      : program_(program), link_(link), machine_(machine), parameters_(parameters), host_(host) {}

  void Run();

 private:
  [[nodiscard]] bool CanDo();
  [[nodiscard]] bool BoardIsIn();
  /// What is to be kept; 0: nothing.
  [[nodiscard]] int Calibrate();

  Program& program_;
  ServiceLink& link_;
  const machine::Machine& machine_;
  ParameterBlock& parameters_;
  ConsoleHost& host_;
};

}  // namespace morvane::maintenance
