#include "support/print_queue.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <sstream>

namespace morvane::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSpooler = "/usr/sbin/cupsd";
constexpr const char* kHelpers = "/usr/lib/cups/daemon";

/// The description of a printer that takes PDF, on two papers with margins of its own, and can turn
/// them.
constexpr const char* kDescription = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "OFFICE.PPD"
*Product: "(Office)"
*PSVersion: "(3010.000) 0"
*Manufacturer: "Paper"
*ModelName: "Office"
*ShortNickName: "Office"
*NickName: "Office"
*ColorDevice: True
*DefaultColorSpace: RGB
*LanguageLevel: "3"
*cupsFilter: "application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: ""
*PageSize Letter/Letter: ""
*CloseUI: *PageSize
*OpenUI *PageRegion/Media Size: PickOne
*DefaultPageRegion: A4
*PageRegion A4/A4: ""
*PageRegion Letter/Letter: ""
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "20 9 577 832"
*ImageableArea Letter/Letter: "20 9 594 782"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*PaperDimension Letter/Letter: "612 792"
*OpenUI *Duplex/Two-Sided: PickOne
*DefaultDuplex: None
*Duplex None/Off: ""
*Duplex DuplexNoTumble/Long Edge: ""
*Duplex DuplexTumble/Short Edge: ""
*CloseUI: *Duplex
)ppd";

std::string Socket() { return std::getenv("CUPS_SERVER"); }

bool Answers() {
  const int end = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  Socket().copy(address.sun_path, sizeof address.sun_path - 1);
  const bool answers =
      connect(end, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  close(end);
  return answers;
}

/// For another program there is no virtual clock.
bool Within20Seconds(const std::function<bool()>& condition) {
  constexpr int kTries = 2000;
  constexpr int kPauseMs = 10;
  for (int i = 0; i < kTries; ++i) {
    if (condition()) return true;
    poll(nullptr, 0, kPauseMs);
  }
  return condition();
}

}  // namespace

PrintQueue::PrintQueue() {
  WriteFiles();
  Start();
  EXPECT_TRUE(Within20Seconds(Answers)) << Content(folder_ / "errors");
}

PrintQueue::~PrintQueue() { Stop(); }

void PrintQueue::Stop() {
  if (spooler_ < 0) return;
  kill(spooler_, SIGTERM);
  waitpid(spooler_, nullptr, 0);
  spooler_ = -1;
  unlink(Socket().c_str());
}

void PrintQueue::WriteFiles() const {
  const std::string root = folder_.Path();
  for (const char* name : {"spool", "temp", "cache", "state", "ppd", "bin/backend", "paper"}) {
    fs::create_directories(root + "/" + name);
  }
  // The spooler's helpers run as another user when it runs as root.
  fs::permissions(root, fs::perms(0755));
  fs::permissions(root + "/paper", fs::perms(0777));
  fs::create_directory_symlink(kHelpers, root + "/bin/daemon");
  WriteContent(root + "/cupsd.conf", "Listen " + Socket() +
                                         "\nBrowsing No\nWebInterface No\nLogLevel warn\n"
                                         "<Location />\nAllow all\n</Location>\n"
                                         "<Policy default>\n<Limit All>\nAllow all\n</Limit>\n"
                                         "</Policy>\n");
  WriteContent(root + "/cups-files.conf",
               "ServerRoot " + root + "\nServerBin " + root + "/bin\nRequestRoot " + root +
                   "/spool\nTempDir " + root + "/temp\nCacheDir " + root + "/cache\nStateDir " +
                   root + "/state\nErrorLog " + root + "/errors\nAccessLog " + root +
                   "/accesses\nPageLog " + root + "/pages\n");
  WriteContent(root + "/printers.conf",
               "<DefaultPrinter Office>\nDeviceURI paper:/\nState Idle\nAccepting Yes\n"
               "</DefaultPrinter>\n"
               "<Printer Cellar>\nDeviceURI paper:/\nState Idle\nAccepting No\n</Printer>\n");
  WriteContent(root + "/ppd/Office.ppd", kDescription);
  // A printer that is told job, user, title, copies, options and file.
  WriteContent(root + "/bin/backend/paper", "#!/bin/sh\n[ $# -eq 0 ] && exit 0\ncd " + root +
                                                "/paper || exit 1\n"
                                                "cat ${6:+\"$6\"} > $1.pdf\n"
                                                "printf '%s\\n%s\\n%s\\n' \"$3\" \"$4\" \"$5\" > "
                                                "$1.part\nchmod 644 $1.pdf $1.part\n"
                                                "mv $1.part $1.job\n");
  fs::permissions(root + "/bin/backend/paper", fs::perms(0755));
}

void PrintQueue::Start() {
  const std::string settings = folder_ / "cupsd.conf";
  const std::string files = folder_ / "cups-files.conf";
  spooler_ = fork();
  if (spooler_ != 0) return;
  prctl(PR_SET_PDEATHSIG, SIGTERM);  // with a test that crashes it goes too
  execl(kSpooler, kSpooler, "-f", "-c", settings.c_str(), "-s", files.c_str(), nullptr);
  _exit(127);
}

PrintQueue::Job PrintQueue::Next() {
  const std::string stem = folder_ / ("paper/" + std::to_string(++taken_));
  if (!Within20Seconds([&stem] { return fs::exists(stem + ".job"); })) {
    ADD_FAILURE() << "nothing came out: " << Content(folder_ / "errors");
    return {};
  }
  Job job;
  std::istringstream told(Content(stem + ".job"));
  std::getline(told, job.Title);
  std::getline(told, job.Copies);
  std::getline(told, job.Options);
  job.PdfFile = stem + ".pdf";
  return job;
}

}  // namespace morvane::test
