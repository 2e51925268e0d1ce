#pragma once

#include <memory>
#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"
#include "generate/generate_set.h"

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

/// What is to be made by the options and the settings.
[[nodiscard]] generate::GenerateRequest WhatToMake(const Settings& store,
                                                   const GenerateOptions& options);
/// The set that comes of it, as far as a save asks for it. A range that cannot be is told later.
[[nodiscard]] std::unique_ptr<BoardSet> ComingSet(const generate::GenerateRequest& make);

[[nodiscard]] GenerateOptions ReadGenerateOptions(OptionReader& given);

/// Makes a set and saves it.
ExitStatus Generate(Job& job, const GenerateOptions& options);

extern const Command kGenerateCommand;

}  // namespace morvane::cli
