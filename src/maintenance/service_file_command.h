#pragma once

#include <string>

#include "maintenance/console_host.h"
#include "maintenance/console_poll.h"
#include "maintenance/developer_tests.h"
#include "maintenance/identity.h"
#include "maintenance/parameter_block.h"
#include "maintenance/picture_store.h"
#include "maintenance/recognition_bench.h"
#include "maintenance/service_file_run.h"

namespace morvane::maintenance {

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

  void CreateServiceFile();

 private:
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
