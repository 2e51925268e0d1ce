#pragma once

#include <optional>
#include <string>

namespace morvane::cli {

/// What was asked for on the command line. An option that was not given is empty, and means what
/// the settings or the set say.
struct Request {
  std::string Raw;      ///< the command line as it was given, for the log
  std::string Command;  ///< generate, convert, show, deal, history or audit
  std::string In;
  std::string Out;
  bool Yes = false;

  // generate; First: convert too
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

  // convert
  bool Import = false;

  // show
  std::optional<int> Board;

  // deal
  std::optional<int> From;
  std::optional<int> To;
  std::optional<int> Copies;
  bool Auto = false;

  // audit
  std::optional<std::string> Sha256;  ///< that a set must have

  // history
  bool List = false;
};

}  // namespace morvane::cli
