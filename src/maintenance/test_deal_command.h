#pragma once

#include <functional>

#include "maintenance/console_host.h"
#include "maintenance/console_poll.h"
#include "maintenance/parameter_block.h"
#include "maintenance/recognition_bench.h"
#include "maintenance/service_file_run.h"
#include "maintenance/test_deal.h"

namespace morvane::maintenance {

/// The title of its boxes, but for that of a firmware that is too old.
inline constexpr const char* kTestDealCaption = "Test Deal";

/// The button `DealTest`: deals a known deck again and again until the machine takes a card for
/// another, and then makes a service file of it. Whoever runs it has the link, and nothing else
/// takes it meanwhile.
class TestDealCommand {
 public:
  /// `createServiceFile` makes one of what `run` says.
  TestDealCommand(Program& program, ServiceLink& link, machine::Machine& machine, ConsolePoll& poll,
                  const ParameterBlock& parameters, RecognitionBench& bench, ServiceFileRun& run,
                  ConsoleHost& host, std::function<void()> createServiceFile)
      : program_(program),
        link_(link),
        machine_(machine),
        poll_(poll),
        parameters_(parameters),
        bench_(bench),
        run_(run),
        host_(host),
        createServiceFile_(std::move(createServiceFile)) {}

  void Run();

 private:
  enum class Next : std::uint8_t { kOver, kServiceFile, kAgain };

  bool Round();
  [[nodiscard]] bool SendExpectedDeck();
  [[nodiscard]] Next Deal();
  [[nodiscard]] Next AskAbout(TestDeal& deal);
  [[nodiscard]] Next AskAboutFailure(TestDeal& deal);
  [[nodiscard]] bool Agrees(const std::string& text);

  Program& program_;
  ServiceLink& link_;
  machine::Machine& machine_;
  ConsolePoll& poll_;
  const ParameterBlock& parameters_;
  RecognitionBench& bench_;
  ServiceFileRun& run_;
  ConsoleHost& host_;
  std::function<void()> createServiceFile_;
  TestDealTotals totals_;
};

}  // namespace morvane::maintenance
