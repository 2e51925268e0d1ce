#include "files/format_table.h"

#include <array>
#include <utility>

#include "files/bre_file.h"
#include "files/bri_records.h"
#include "files/csv_file.h"
#include "files/deal305_records.h"
#include "files/dge_records.h"
#include "files/dup_records.h"
#include "files/fixed_records.h"
#include "files/format_frame.h"
#include "files/log_reader.h"
#include "files/pbn_reader.h"
#include "files/pbn_writer.h"
#include "program/program.h"
#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane::files {
namespace {

std::optional<FormatFault> ParsePbnFile(std::string&& bytes, const Format& /*format*/,
                                        BoardSet& set, FileNotes& notes, const Messages& texts) {
  const std::string text = DecodeText(std::move(bytes));
  notes.HasTags = text.find('[') != std::string::npos;
  return ParsePbn(text, set, texts);
}

std::optional<FormatFault> ParseCsvFile(std::string&& bytes, const Format& /*format*/,
                                        BoardSet& set, FileNotes& /*notes*/,
                                        const Messages& texts) {
  return ParseCsv(DecodeText(std::move(bytes)), set, texts);
}

std::optional<FormatFault> ParseBreFile(std::string&& bytes, const Format& /*format*/,
                                        BoardSet& set, FileNotes& /*notes*/,
                                        const Messages& texts) {
  return ParseBre(bytes, set, texts);
}

std::optional<FormatFault> ParseRecordFile(std::string&& bytes, const Format& format, BoardSet& set,
                                           FileNotes& notes, const Messages& texts) {
  return ParseFixedRecords(bytes, format.Name, set, notes.Numbers, texts);
}

/// The reader of every format that has a `Parser`.
bool ReadParsed(Program& program, const Format& format, const std::string& path, FileNotes& notes) {
  return ReadThrough(program, path, [&](std::string bytes) {
    return format.Parse(std::move(bytes), format, program.Set, notes, program.Texts);
  });
}

/// Writes the set as the bytes that `Bytes` makes of it.
template <std::string (*Bytes)(const BoardSet& set)>
bool WriteSet(Program& program, const Format& format, const std::string& path,
              const std::string& incompleteBoards) {
  return WriteThrough(program, format, path, incompleteBoards,
                      [&program] { return Bytes(program.Set); });
}
constexpr Writer WriteBriFile = WriteSet<BriBytes>;
constexpr Writer WriteDgeFile = WriteSet<DgeBytes>;
constexpr Writer WriteDupFile = WriteSet<DupBytes>;
constexpr Writer WriteDeal305File = WriteSet<Deal305Bytes>;
constexpr Writer WriteBreFile = WriteSet<BreBytes>;
constexpr Writer WriteCsvFile = WriteSet<CsvText>;

constexpr std::array<Format, 8> kFormats{{
    {.Extension = "BRI",
     .Name = "BRI",
     .Parse = ParseRecordFile,
     .Read = ReadParsed,
     .Write = WriteBriFile},
    {.Extension = "DGE",
     .Name = "DGE",
     .Parse = ParseRecordFile,
     .Read = ReadParsed,
     .Write = WriteDgeFile},
    {.Extension = "DUP",
     .Name = "DUP",
     .BoardNumbers = Format::Numbers::kFirstAndLast,
     .Parse = ParseRecordFile,
     .Read = ReadParsed,
     .Write = WriteDupFile},
    {.Extension = "ALL",
     .Name = "DEAL305",
     .Parse = ParseRecordFile,
     .Read = ReadParsed,
     .Write = WriteDeal305File},
    {.Extension = "BRE",
     .Name = "BRE",
     .EventTexts = true,
     .IncompleteBoards = true,
     .Parse = ParseBreFile,
     .Read = ReadParsed,
     .Write = WriteBreFile},
    {.Extension = "CSV",
     .Name = "CSV",
     .BoardNumbers = Format::Numbers::kEachBoard,
     .Parse = ParseCsvFile,
     .Read = ReadParsed,
     .Write = WriteCsvFile},
    {.Extension = "PBN",
     .Name = "PBN",
     .EventTexts = true,
     .LimitsEventTexts = true,
     .BoardNumbers = Format::Numbers::kEachBoard,
     .IncompleteBoards = true,
     .Parse = ParsePbnFile,
     .Read = ReadParsed,
     .Write = WritePbnFile},
    {.Extension = "TXT",
     .Name = "LOG",
     .BoardNumbers = Format::Numbers::kEachBoard,
     .Read = ReadLogFile},
}};

constexpr std::string_view kRows =
    "bri (*.bri)|*.bri|dge (*.dge)|*.dge|bre (*.bre)|*.bre|dup (*.dup)|*.dup|pbn (*.pbn)|*.pbn|"
    "DEAL305 (*.all)|*.all|csv (*.csv)|*.csv";

/// Position of `format` in `list`, counted from 1; 0 when absent.
int PositionIn(std::string_view list, std::string_view format) {
  const std::size_t at = list.find(format);
  return at == std::string_view::npos ? 0 : static_cast<int>(at) + 1;
}

}  // namespace

const Format* FindFormat(std::string_view extension) {
  for (const Format& format : kFormats) {
    if (format.Extension == extension) return &format;
  }
  return nullptr;
}

std::vector<std::string> SavedExtensions() {
  std::vector<std::string> extensions;
  for (const Format& format : kFormats) {
    const bool holdsAll =
        format.BoardNumbers == Format::Numbers::kEachBoard && format.IncompleteBoards;
    if (format.Write == nullptr) continue;
    extensions.insert(holdsAll ? extensions.begin() : extensions.end(),
                      LowerCase(format.Extension));
  }
  return extensions;
}

std::string ExtensionOf(std::string_view title) {
  const std::size_t dot = title.rfind('.');
  return dot == std::string_view::npos ? std::string() : UpperCase(title.substr(dot + 1));
}

std::string NameOf(std::string_view title) {
  return std::string(title.substr(0, title.rfind('.')));
}

std::string OpenFilter(int serviceLevel) {
  return "All files (*.*)|*.*|" + std::string(kRows) +
         (serviceLevel > 0 ? "|Log (*.txt)|*.txt" : "");
}

std::string SaveFilter() { return std::string(kRows); }

int OpenFilterIndex(std::string_view initFormat, int serviceLevel) {
  // A row takes four characters of the list. "csv" preselects all files and "txt" the row of csv:
  // required.
  return (PositionIn(
              serviceLevel > 0 ? "  .bri.dge.bre.dup.pbn.all.txt" : "  .bri.dge.bre.dup.pbn.all",
              initFormat) +
          4) /
         4;
}

int SaveFilterIndex(std::string_view initFormat) {
  return PositionIn("  .bri.dge.bre.dup.pbn.all.csv", initFormat) / 4;
}

}  // namespace morvane::files
