#pragma once

#include <optional>
#include <string>

#include "maintenance/console_host.h"
#include "maintenance/console_poll.h"
#include "maintenance/developer_tests.h"
#include "maintenance/identity.h"
#include "maintenance/parameter_block.h"
#include "maintenance/picture_store.h"
#include "maintenance/recognition_bench.h"
#include "maintenance/service_file.h"
#include "maintenance/service_file_run.h"
#include "platform/runtime_error.h"

namespace morvane::maintenance {

/// The title of its boxes, but for that of an error.
inline constexpr const char* kServiceFileCaption = "Service File";

/// The button `Email` ("Create Service File"): gathers everything that a technician would ask for
/// and writes it into one file. Whoever runs it has the link, and nothing else takes it meanwhile.
class ServiceFileCommand {
 public:
  ServiceFileCommand(Program& program, ServiceLink& link, const machine::Machine& machine,
                     ConsolePoll& poll, ParameterBlock& parameters, RecognitionBench& bench,
                     PictureStore& pictures, Identity& identity, const DeveloperTests& developer,
                     ServiceFileRun& run, ConsoleHost& host)
      : program_(program),
        link_(link),
        machine_(machine),
        poll_(poll),
        parameters_(parameters),
        bench_(bench),
        pictures_(pictures),
        identity_(identity),
        developer_(developer),
        run_(run),
        host_(host) {}

  /// What has come of it has been told; the file is whole or is not there.
  void CreateServiceFile();

 private:
  [[nodiscard]] std::string StepPath();
  [[nodiscard]] bool Agreed(const std::string& path);

  // Each false: the link is lost, which the operator has been told, or it was cancelled.
  [[nodiscard]] bool Gather(ServiceFile& file);
  [[nodiscard]] bool LightUp();
  [[nodiscard]] bool ReadResults();
  [[nodiscard]] bool ReadRecords(ServiceFile& file);
  [[nodiscard]] bool ReadBack(ParameterBoxes& held);
  [[nodiscard]] bool ReadCounters();
  [[nodiscard]] bool ReadIdentities();

  void PutIdentity(ServiceFile& file) const;
  void PutReadings(ServiceFile& file) const;
  void PutParameters(const ParameterBoxes& held, ServiceFile& file) const;
  void PutResults(ServiceFile& file) const;
  void PutStoredData(ServiceFile& file) const;

  void Switch(bool on);
  void SwitchOff();
  void TellFailure(const RuntimeError& error);

  Program& program_;
  ServiceLink& link_;
  const machine::Machine& machine_;
  ConsolePoll& poll_;
  ParameterBlock& parameters_;
  RecognitionBench& bench_;
  PictureStore& pictures_;
  Identity& identity_;
  const DeveloperTests& developer_;
  ServiceFileRun& run_;
  ConsoleHost& host_;
};

}  // namespace morvane::maintenance
