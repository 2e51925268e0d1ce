#include "maintenance/factory_tools.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "maintenance/factory_files.h"
#include "platform/files.h"

namespace morvane::maintenance {
namespace {

/// A file that a tool asks for, and how large it may be.
struct Source {
  const char* Title;
  const char* Filter;
  SizeLimits Sizes;
};

constexpr Source kBootCode{kBootCodeTitle, "Boot code (boot.adb)|boot.adb", kBootSizes};
constexpr Source kCode{kCodeTitle, "DSP code (code.dsp)|code.dsp", kCodeSizes};
constexpr Source kBitstream{kBitstreamTitle, "DSP code (*.bit)|*.bit", kBitstreamSizes};
constexpr Source kTextHex{kTextHexTitle, "Text hex (*.txt)|*.txt", kTextHexSizes};

struct TakenFile {
  std::string Path;
  std::string Bytes;
};

/// What a tool has made, and the files that it was made of.
struct Result {
  const char* Title;
  std::string Bytes;
  std::vector<std::string> MadeOf;
};

void TellError(Program& program, const RuntimeError& error, const char* end, const char* title) {
  program.ShowMessage("      Error: " + std::to_string(error.Number) + " - " + error.Description +
                          "      \r\n      " + end + "      ",
                      kOkCritical, title);
}

/// Reads the file if it has a right size. False: the operator has been told.
bool Read(Program& program, const Source& source, TakenFile& file) {
  const auto error = ReadFile(file.Path, file.Bytes, source.Sizes.Most);
  const bool tooLarge = error && error->Number == EFBIG;
  if (error && !tooLarge) {
    TellError(program, *error, "Load operation aborted", source.Title);
    return false;
  }
  if (!tooLarge && source.Sizes.Hold(file.Bytes.size())) return true;
  program.ShowMessage("File size error", kOkCritical, source.Title);
  return false;
}

/// Asks for a file and reads it. Nothing: it was not chosen, or the operator has been told why not.
std::optional<TakenFile> Take(Program& program, const Source& source) {
  const auto path = program.Operator.AskFile({source.Title, source.Filter, 1, "", false});
  if (!path) return std::nullopt;
  TakenFile file{*path, ""};
  if (!Read(program, source, file)) return std::nullopt;
  return file;
}

bool IsMadeOf(const std::string& path, const Result& result) {
  return std::any_of(result.MadeOf.begin(), result.MadeOf.end(), [&](const std::string& source) {
    std::error_code missing;
    return std::filesystem::equivalent(PathOfUtf8(source), PathOfUtf8(path), missing);
  });
}

/// False: the operator has been told.
bool Write(Program& program, const std::string& path, const Result& result) {
  if (IsMadeOf(path, result)) {
    program.ShowMessage(
        "      This would replace a file that it is made of      \r\n"
        "      Save operation aborted      ",
        kOkCritical, result.Title);
    return false;
  }
  const auto error = WriteFile(path, result.Bytes);
  if (error) TellError(program, *error, "Save operation aborted", result.Title);
  return !error;
}

/// Asks for the file to write. False: it was not chosen, or the operator has been told why not.
bool WriteAsked(Program& program, const char* filter, const Result& result) {
  const auto path = program.Operator.AskFile({result.Title, filter, 1, "", true});
  return path && Write(program, *path, result);
}

bool Convert(Program& program, const TakenFile& text) {
  Result result{kHexTitle, "", {text.Path}};
  if (const auto fault = TextToHex(text.Bytes, result.Bytes)) {
    program.ShowMessage("      Line " + std::to_string(fault->Line) + ": " +
                            std::string(fault->What) + "      \r\n      Nothing is written      ",
                        kOkCritical, kTextHexTitle);
    return false;
  }
  if (!Write(program, HexFileOf(text.Path), result)) return false;
  program.ShowMessage("     Done     ", kOkInformation, kHexTitle);
  return true;
}

bool ConvertAsked(Program& program) {
  const auto text = Take(program, kTextHex);
  return text && Convert(program, *text);
}

}  // namespace

bool Boot(Program& program) {
  const auto boot = Take(program, kBootCode);
  if (!boot) return false;
  const Result source{kBootSourceTitle, BootSource(boot->Bytes), {boot->Path}};
  if (!WriteAsked(program, "boot.c (*.c)|*.c", source)) return false;
  program.ShowMessage("      boot.c written OK       ", kOkInformation, kBootSourceTitle);
  return true;
}

bool Prepare(Program& program) {
  const auto code = Take(program, kCode);
  if (!code) return false;
  const auto bitstream = Take(program, kBitstream);
  if (!bitstream) return false;
  return WriteAsked(program, "Morvane code (*.adc)|*.adc",
                    {kFirmwareTitle,
                     FirmwareBytes(code->Bytes, bitstream->Bytes),
                     {code->Path, bitstream->Path}});
}

bool txt_hex(Program& program) {
  if (!ConvertAsked(program)) return false;
  // The image of the other processor.
  ConvertAsked(program);
  return true;
}

}  // namespace morvane::maintenance
