#include "files/format_table.h"

#include <array>

#include "files/bre_file.h"
#include "files/bri_records.h"
#include "files/csv_file.h"
#include "files/deal305_records.h"
#include "files/dge_records.h"
#include "files/dup_records.h"
#include "files/fixed_records.h"
#include "files/log_reader.h"
#include "files/pbn_reader.h"
#include "files/pbn_writer.h"
#include "model/text.h"

namespace morvane::files {
namespace {

using Numbers = Format::Numbers;

constexpr std::array<Format, 8> kFormats{{
    {"BRI", "BRI", false, Numbers::None, false, ReadFixedRecordFile, WriteBriFile},
    {"DGE", "DGE", false, Numbers::None, false, ReadFixedRecordFile, WriteDgeFile},
    {"DUP", "DUP", false, Numbers::FirstAndLast, false, ReadFixedRecordFile, WriteDupFile},
    {"ALL", "DEAL305", false, Numbers::None, false, ReadFixedRecordFile, WriteDeal305File},
    {"BRE", "BRE", true, Numbers::None, true, ReadBreFile, WriteBreFile},
    {"CSV", "CSV", false, Numbers::EachBoard, false, ReadCsvFile, WriteCsvFile},
    {"PBN", "PBN", true, Numbers::EachBoard, true, ReadPbnFile, WritePbnFile},
    {"TXT", "LOG", false, Numbers::EachBoard, false, ReadLogFile, nullptr},
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
  // "csv" preselects all files and "txt" the row of csv: required.
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
