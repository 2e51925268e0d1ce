#pragma once

#include "maintenance/auto_setup.h"
#include "maintenance/console_host.h"
#include "maintenance/console_poll.h"
#include "maintenance/parameter_block.h"

namespace morvane::maintenance {

/// What was found into its boxes, and the raised limits that are to stay.
void PutFound(const SearchPosition& found, const HeightLimits& kept, ParameterBoxes& boxes);

/// The button `AutoSetup_command`: the prompt, the limits that are raised for the search, the
/// search, and what the machine is to keep of it. Whoever runs it has the link, and nothing else
/// takes it meanwhile.
class AutoSetupCommand {
 public:
  AutoSetupCommand(Program& program, ServiceLink& link, const machine::Machine& machine,
                   ConsolePoll& poll, ParameterBlock& parameters, PictureStore& pictures,
                   ConsoleHost& host)
      : program_(program),
        link_(link),
        machine_(machine),
        poll_(poll),
        parameters_(parameters),
        pictures_(pictures),
        host_(host) {}

  void Run();

 private:
  [[nodiscard]] bool LightUp();
  [[nodiscard]] bool CardIsIn();
  [[nodiscard]] HeightLimits Limits() const;
  void Put(const HeightLimits& limits);
  [[nodiscard]] bool RaiseLimits(const HeightLimits& old);
  void Search(const HeightLimits& old);
  void Keep(const SearchPosition& found, const HeightLimits& old, const HeightLimits& kept);

  Program& program_;
  ServiceLink& link_;
  const machine::Machine& machine_;
  ConsolePoll& poll_;
  ParameterBlock& parameters_;
  PictureStore& pictures_;
  ConsoleHost& host_;
};

}  // namespace morvane::maintenance
