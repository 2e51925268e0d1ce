#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `generate` takes. What was not given is empty, and means what the settings say.
struct GenerateOptions {
  std::string Out;
  std::optional<std::string> First;
  std::optional<std::string> Last;
  std::optional<std::string> Generator;  ///< "bigdeal" or "morvane"
  bool Empty = false;
  std::optional<bool> Shapes;
  std::optional<bool> Inner;
  std::optional<bool> History;
  std::optional<std::string> Seedr;
  std::optional<std::string> Seedo;
  std::optional<std::string> Lfsr;
};

[[nodiscard]] GenerateOptions ReadGenerateOptions(OptionReader& given);

/// Makes a set and saves it.
ExitStatus Generate(Job& job, const GenerateOptions& options);

extern const Command kGenerateCommand;

}  // namespace morvane::cli
