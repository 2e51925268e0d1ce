#include "cli/audit_command.h"

#include <array>

#include "audit/log_audit.h"
#include "platform/files.h"
#include "text/printable.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

using audit::BoardFinding;
using audit::SetAudit;

std::string Range(const SetAudit& set) {
  return "boards " + std::to_string(set.What.First) + " to " + std::to_string(set.What.Last);
}

std::string Records(int count) {
  return std::to_string(count) + (count == 1 ? " record" : " records");
}

std::string Heading(const SetAudit& set) {
  const std::string line = "Line " + std::to_string(set.Line) + ": ";
  switch (set.Is) {
    case SetAudit::kNumber:
      return line + Range(set) + ", number generator\n";
    case SetAudit::kShuffling:
      return line + Range(set) + ", shuffling generator\n";
    case SetAudit::kEmpty:
      return line + Range(set) + ", left empty\n";
    case SetAudit::kDamagedLine:
      return line + "a damaged Generate line, " + Records(set.Records) + " behind it\n";
    case SetAudit::kNoGenerateLine:
      return line + Records(set.Records) + " without a Generate line\n";
  }
  return line + "\n";
}

/// When it was made and where it went, as far as the log tells.
std::string OriginLines(const audit::SetOrigin& origin) {
  std::string text;
  const auto add = [&text](const std::string& what, const std::string& time) {
    if (!time.empty()) text += (text.empty() ? "  Made: " : ", ") + what + " " + time;
  };
  add("File-New", origin.New);
  add("last start", origin.Started);
  if (!text.empty()) text += "\n";
  for (const audit::LoggedSave& save : origin.Saves) {
    text += "  Save: " + Printable(save.Path) + (save.Failed ? "   (failed)" : "") + "\n";
  }
  return text;
}

std::string SeedLines(const SetAudit& set) {
  if (!set.Seeds) return "  The log has no seeds for it.\n";
  return "  Seedr: " + set.Seeds->Seedr + "\n  Seedo: " + set.Seeds->Seedo + "   (line " +
         std::to_string(set.Seeds->Line) + ")\n" +
         (set.SeedsFit ? ""
                       : "  No board has a deal number of these seeds, the latest before it.\n");
}

/// What differs, as far as that can be said.
std::string Differences(const BoardFinding& finding) {
  if (finding.CannotBeDealt) return "it cannot be dealt again";
  std::string text;
  const auto add = [&text](bool differs, const char* what) {
    if (differs) text += (text.empty() ? "" : ", ") + std::string(what);
  };
  add(finding.Hands, "hands");
  add(finding.DealNumber, "deal number");
  add(finding.DealCounter, "counter");
  if (finding.BeyondReach) text += " (greater than that of any set)";
  return text;
}

std::string FindingLine(const BoardFinding& finding) {
  const std::string board = "  Board " + std::to_string(finding.Number) + " ";
  const std::string line = " (line " + std::to_string(finding.Line) + ")";
  switch (finding.Is) {
    case BoardFinding::kDiffers:
      return board + "differs" + line + ": " + Differences(finding) + "\n";
    case BoardFinding::kMissing:
      return board + "is missing\n";
    case BoardFinding::kTwice:
      return board + "stands there twice" + line + "\n";
    case BoardFinding::kNotInRange:
      return board + "is not in the range" + line + "\n";
    case BoardFinding::kOutOfOrder:
      return board + "is out of order" + line + "\n";
  }
  return board + "\n";
}

std::string RejectedLine(const SetAudit& set) {
  const auto& logged = set.What.Dealt->Rejected;
  const auto counts = [](const generate::RejectCounts& rejected) {
    return "shapes " + std::to_string(rejected.Shape) + ", inner similarity " +
           std::to_string(rejected.Inner) + ", history " + std::to_string(rejected.History);
  };
  std::string text = "  Rejected: " + counts(logged);
  if (set.Rejected && !set.CountsAreSame()) {
    text += "; when dealt again: " + counts(*set.Rejected);
  }
  return text + "\n";
}

std::string SetText(const SetAudit& set) {
  std::string text = Heading(set) + OriginLines(set.Origin);
  if (!set.IsChecked()) text += "  Not a set of the number generator, not checked.\n";
  if (set.Is == SetAudit::kNumber) {
    text += SeedLines(set);
    for (const BoardFinding& finding : set.Findings) text += FindingLine(finding);
    text += "  " + std::to_string(set.SameBoards) + " of " +
            std::to_string(set.What.Last - set.What.First + 1) + " boards are the same.\n" +
            RejectedLine(set);
  }
  if (!set.Fingerprint.empty()) text += "  SHA-256: " + set.Fingerprint + "\n";
  return text;
}

std::string UnusedSeedsText(const audit::LogAudit& log) {
  std::string text;
  for (const std::size_t line : log.UnusedSeeds()) {
    text += "Line " + std::to_string(line) + ": seeds without a set of theirs\n";
  }
  return text;
}

std::string Summary(const audit::LogAudit& log) {
  std::string text = std::to_string(log.Same()) + " of " + std::to_string(log.Checked()) +
                     (log.Checked() == 1 ? " set is" : " sets are") + " the same";
  if (const std::size_t unused = log.UnusedSeeds().size(); unused > 0) {
    text += "; " + std::to_string(unused) +
            (unused == 1 ? " pair of seeds has no set" : " pairs of seeds have no set");
  }
  return text + ".\n";
}

constexpr std::array kOperands{Operand{"LOG", "the log to audit"}};
constexpr std::array kOptions{
    Option{"sha256", "HEX64", "what was published of a set, which one must have"},
};

}  // namespace

AuditOptions ReadAuditOptions(OptionReader& given) {
  return {.Log = given.Path(0), .Sha256 = given.Hex("sha256", 64)};
}

ExitStatus Audit(Job& job, const AuditOptions& options) {
  Terminal& screen = job.Place.Screen;
  bool published = !options.Sha256;
  audit::LogAudit log([&](const SetAudit& set) {
    screen.Out(SetText(set));
    published = published || (set.IsSame() && set.Fingerprint == LowerCase(*options.Sha256));
  });
  const EventLoop& loop = job.Place.Prog.Loop;
  const auto error = ReadBlocks(options.Log, [&](std::string_view block) {
    if (!loop.Quitting()) log.Add(block);
  });
  if (loop.Quitting()) {
    screen.Error("Broken off before the end of the log\n" + options.Log + "\n");
    return kFailed;
  }
  if (error) {
    screen.Error("The log cannot be read: error " + std::to_string(error->Number) + ", " +
                 error->Description + "\n" + options.Log + "\n");
    return kFailed;
  }
  log.End();
  screen.Out(UnusedSeedsText(log));
  if (log.Checked() == 0) {
    screen.Error("There is no set of the number generator in the log\n" + options.Log + "\n");
    return kFailed;
  }
  screen.Out(Summary(log));
  if (!published) {
    screen.Error("No set that is the same has the SHA-256 " + *options.Sha256 + " in the log\n" +
                 options.Log + "\n");
  }
  return log.Same() == log.Checked() && published ? kDone : kFailed;
}

constinit const Command kAuditCommand{
    .Name = "audit",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary = "Proves that nobody touched the deals of a log.",
    .Note =
        "audit deals the sets of a log again from their seeds, compares every board, and shows "
        "the SHA-256 of each, with the times before it and the files it was to be saved in. With "
        "--sha256, one must have that one. The exit status is 0 only "
        "when all is the same.",
    .Prepare = TaskOf<ReadAuditOptions, Audit>};

}  // namespace morvane::cli
