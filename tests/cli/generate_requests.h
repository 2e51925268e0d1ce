#pragma once

#include <string>

#include "cli/cli_desk.h"

// What is asked of `generate` in tests, and what the log says of it.

namespace morvane::cli {

inline const std::string kSeedr = "00112233445566778899AABBCCDDEEFF01234567";
inline const std::string kSeedo = "89ABCDEF00112233445566778899AABBCCDDEEFF";
inline const std::string kLfsr = "0123456789ABCDEF0123456789ABCDEF";

/// Boards 1 to 8 without any test, from seeds.
inline GenerateOptions Seeded(const CliDesk& desk, const std::string& seedr,
                              const std::string& seedo) {
  GenerateOptions request;
  request.Out = desk.Out;
  request.First = "1";
  request.Last = "8";
  request.Shapes = request.Inner = request.History = false;
  request.Seedr = seedr;
  request.Seedo = seedo;
  return request;
}

inline GenerateOptions FromState(const CliDesk& desk, const std::string& state) {
  GenerateOptions request = Seeded(desk, "", "");
  request.Seedr.reset();
  request.Seedo.reset();
  request.Lfsr = state;
  return request;
}

inline GenerateOptions Fresh(const CliDesk& desk) {
  GenerateOptions request = FromState(desk, "");
  request.Lfsr.reset();
  return request;
}

/// What stands behind `start` in the log.
inline std::string Logged(const CliDesk& desk, const std::string& start) {
  for (const auto& line : desk.LogLines()) {
    if (line.starts_with(start)) return line.substr(start.size());
  }
  return "";
}

}  // namespace morvane::cli
