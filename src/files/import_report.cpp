#include "files/import_report.h"

#include "text/box_text.h"
#include "text/printable.h"

namespace morvane::files {
namespace {

constexpr std::string_view kPadding = "      ";

void AddLine(std::string& text, const std::string& line) {
  if (!text.empty()) text += kCrLf;
  // A quoted value may hold anything.
  text.append(kPadding).append(PrintableLine(line)).append(kPadding);
}

void AddRemarks(std::string& text, const std::string& caption, const Remarks& remarks) {
  if (remarks.Count == 0) return;
  AddLine(text, "");
  AddLine(text, caption + ": " + std::to_string(remarks.Count));
  for (const std::string& remark : remarks.First) AddLine(text, remark);
  const int more = remarks.Count - static_cast<int>(remarks.First.size());
  if (more > 0) AddLine(text, "and " + std::to_string(more) + " more");
}

std::string Headline(const ImportReport& report) {
  if (report.Taken > 0) return "Boards imported: " + std::to_string(report.Taken);
  if (!report.IsPbn) return "This is no PBN file";
  return report.Games > 0 ? "No board of this file can be imported" : "This file holds no board";
}

}  // namespace

std::string ReportText(const ImportReport& report) {
  std::string text;
  AddLine(text, Headline(report));
  if (report.Repeated > 0) {
    AddLine(text, "Repeated boards, taken once: " + std::to_string(report.Repeated));
  }
  AddRemarks(text, "Boards passed over", report.PassedOver);
  AddRemarks(text, "Notes", report.Notes);
  return text;
}

}  // namespace morvane::files
