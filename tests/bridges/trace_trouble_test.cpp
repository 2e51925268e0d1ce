// What may go wrong with the files of a trace.

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <array>
#include <csignal>
#include <filesystem>

#include "bridges/trace/trace_file.h"
#include "bridges/trace_desk.h"
#include "support/file_size_limit.h"
#include "support/plain_user.h"

namespace morvane::bridges {
namespace {

using test::Content;
using test::kTraceHead;
using test::WriteContent;

class TraceTrouble : public test::TraceDesk {
 protected:
  [[nodiscard]] std::string Trouble() const { return TraceFile(Order(), Clock).Trouble(); }
};

const std::string kText = "0.000000 0.000000 Close 0 handle=0 ; as it was\n";

void WriteLine(TraceFile& trace) {
  TraceLine line;
  line.What = Operation::kClose;
  trace.Write(line, "as it was");
}

TEST_F(TraceTrouble, AFileThatIsNoTraceIsLeftAlone) {
  WriteContent(Path, "# Morvane link notes");
  EXPECT_EQ(Trouble(), Path + ": there is a file of this name, and it is no trace");
  EXPECT_EQ(Content(Path), "# Morvane link notes");
}

TEST_F(TraceTrouble, SoIsOneUnderTheNameOfAnOldPart) {
  WriteContent(Path + ".4", "my notes");
  WriteContent(Path, kTraceHead);
  EXPECT_EQ(Trouble(), Path + ".4: there is a file of this name, and it is no trace");
  EXPECT_EQ(Content(Path + ".4"), "my notes");
  EXPECT_EQ(Content(Path), kTraceHead);
}

TEST_F(TraceTrouble, AFolderIsNoPlaceForATrace) {
  std::filesystem::create_directory(Path);
  EXPECT_EQ(Trouble(), Path + ": this is a folder");
}

#ifndef _WIN32  // links take rights that a user lacks
TEST_F(TraceTrouble, ALinkIsNotFollowed) {
  WriteContent(Folder / "behind", kTraceHead);
  std::filesystem::create_symlink(Folder / "behind", Path);
  EXPECT_EQ(Trouble(), Path + ": this is a link");
  EXPECT_EQ(Content(Folder / "behind"), kTraceHead);
}

TEST_F(TraceTrouble, ALinkToNowhereIsOneToo) {
  std::filesystem::create_symlink(Folder / "nowhere", Path);
  EXPECT_EQ(Trouble(), Path + ": this is a link");
  EXPECT_FALSE(std::filesystem::exists(Folder / "nowhere"));
}

TEST_F(TraceTrouble, AnythingElseIsNoPlainFile) {
  ASSERT_EQ(mkfifo(Path.c_str(), 0600), 0);
  EXPECT_EQ(Trouble(), Path + ": this is no plain file");
  const TraceFile device({.Path = "/dev/null", .Machine = "usb"}, Clock);
  EXPECT_EQ(device.Trouble(), "/dev/null: this is no plain file");
}
#endif

TEST_F(TraceTrouble, AMissingFolderIsSaidByTheSystem) {
  const TraceFile trace({.Path = Folder / "none/run.trace", .Machine = "usb"}, Clock);
  EXPECT_EQ(trace.Trouble(), Folder / "none/run.trace" + ": No such file or directory");
}

#ifndef _WIN32  // rights are access lists
TEST_F(TraceTrouble, SoAreMissingRights) {
  ASSERT_EQ(chmod(Folder.Path().c_str(), 0755), 0);
  const test::PlainUser user;
  ASSERT_TRUE(user.Ok());
  EXPECT_EQ(Trouble(), Path + ": Permission denied");
}
#endif

TEST_F(TraceTrouble, TheNameOfALockIsNone) {
  const std::string path = Folder / "run.trace.lock";
  const TraceFile trace({.Path = path, .Machine = "usb"}, Clock);
  EXPECT_EQ(trace.Trouble(), path + ": names that end in .lock are those of locks");
}

TEST_F(TraceTrouble, ANameOfAnOldPartIsNone) {
  for (const char* name : {"run.trace.1", "run.trace.4"}) {
    const TraceFile trace({.Path = Folder / name, .Machine = "usb"}, Clock);
    EXPECT_EQ(trace.Trouble(),
              Folder / name + ": names that end in .1 to .4 are those of older parts");
  }
  for (const char* name : {"run.trace.5", "run.trace.0", "trace1"}) {
    const TraceFile trace({.Path = Folder / name, .Machine = "usb"}, Clock);
    EXPECT_EQ(trace.Trouble(), "");
  }
}

#ifndef _WIN32  // links take rights that a user lacks
TEST_F(TraceTrouble, ALockIsNotTakenThroughALink) {
  std::filesystem::create_symlink(Folder / "nowhere", Path + ".lock");
  EXPECT_EQ(Trouble(), Path + ".lock: this is a link");
  EXPECT_FALSE(std::filesystem::exists(Folder / "nowhere"));
}
#endif

TEST_F(TraceTrouble, OneThatNeverBeganTakesNoLines) {
  std::filesystem::create_directory(Path);
  TraceFile trace(Order(), Clock);
  WriteLine(trace);
  EXPECT_EQ(trace.Trouble(), Path + ": this is a folder");
}

#ifndef _WIN32  // links take rights that a user lacks
TEST_F(TraceTrouble, WhatHasComeSinceItWasMadeIsSeen) {
  TraceFile trace(Order(), Clock);
  std::filesystem::create_symlink(Folder / "nowhere", Path + ".lock");
  WriteLine(trace);
  EXPECT_EQ(trace.Trouble(), Path + ".lock: this is a link");
  EXPECT_FALSE(std::filesystem::exists(Folder / "nowhere"));
  EXPECT_FALSE(std::filesystem::exists(Path));
}
#endif

TEST_F(TraceTrouble, AnotherProgramMayNotWriteTheSameTrace) {
  TraceFile first(Order(), Clock);
  WriteLine(first);
  TraceFile second(Order(), Clock);
  EXPECT_EQ(second.Trouble(), "") << "it may never ask for anything";
  WriteLine(second);
  EXPECT_EQ(second.Trouble(), Path + ": another program is writing this trace");
  WriteLine(first);
  EXPECT_EQ(first.Trouble(), "");
  EXPECT_EQ(Content(Path), kTraceHead + kText + kText);
  EXPECT_FALSE(std::filesystem::exists(Path + ".1"));
}

TEST_F(TraceTrouble, TheNextProgramMay) {
  TraceFile first(Order(), Clock);
  WriteLine(first);
  first.End();
  TraceFile second(Order(), Clock);
  WriteLine(second);
  EXPECT_EQ(second.Trouble(), "");
  EXPECT_EQ(Content(Path + ".1"), kTraceHead + kText + "# end\n");
}

#ifndef _WIN32  // no limit for files, no device that is full
TEST_F(TraceTrouble, AFullDiskEndsItWithAWholeLine) {
  TraceFile trace(Order(), Clock);
  WriteLine(trace);
  {
    const test::FileSizeLimit limit(kTraceHead.size() + 2 * kText.size() - 1);
    WriteLine(trace);
    EXPECT_EQ(trace.Trouble(), Path + ": File too large; the trace ends here");
  }
  WriteLine(trace);
  EXPECT_EQ(Content(Path), kTraceHead + kText);
}

TEST_F(TraceTrouble, ADiskThatIsFullAtTheEndIsToldToo) {
  TraceFile trace(Order(), Clock);
  WriteLine(trace);
  const test::FileSizeLimit limit(kTraceHead.size() + kText.size() + 3);
  trace.End();
  EXPECT_EQ(trace.Trouble(), Path + ": File too large; the trace ends here");
  EXPECT_EQ(Content(Path), kTraceHead + kText);
}

TEST_F(TraceTrouble, AFullDiskLeavesAnotherFileOfItsNameAlone) {
  TraceFile trace(Order(), Clock);
  WriteLine(trace);
  std::filesystem::rename(Path, Folder / "kept");
  WriteContent(Path, std::string(1000, 'x'));
  const test::FileSizeLimit limit(kTraceHead.size() + kText.size() + 3);
  WriteLine(trace);
  EXPECT_NE(trace.Trouble(), "");
  EXPECT_EQ(Content(Path), std::string(1000, 'x'));
  EXPECT_EQ(Content(Folder / "kept"), kTraceHead + kText);
}

/// Full behind the head, or in it.
TEST_F(TraceTrouble, ADiskThatIsFullAtTheStartLeavesAllAsItWas) {
  WriteContent(Path, kTraceHead + "a");
  WriteContent(Path + ".1", kTraceHead + "b");
  for (const std::size_t room : {kTraceHead.size() + 1, kTraceHead.size() - 1}) {
    const test::FileSizeLimit limit(room);
    TraceFile trace(Order(), Clock);
    WriteLine(trace);
    EXPECT_EQ(trace.Trouble(), Path + ": File too large");
    EXPECT_EQ(Content(Path), kTraceHead + "a");
    EXPECT_EQ(Content(Path + ".1"), kTraceHead + "b");
    EXPECT_FALSE(std::filesystem::exists(Path + ".2"));
  }
}

TEST_F(TraceTrouble, ADiskThatIsFullAtTheStartLeavesNothing) {
  const test::FileSizeLimit limit(kTraceHead.size() - 1);
  TraceFile trace(Order(), Clock);
  WriteLine(trace);
  EXPECT_EQ(trace.Trouble(), Path + ": File too large");
  EXPECT_FALSE(std::filesystem::exists(Path));
}
#endif

class TraceOfParts : public TraceTrouble {
 protected:
  /// A line each.
  [[nodiscard]] TraceOrder Parts() const {
    auto order = Order();
    order.LargestPart = 1;
    return order;
  }
};

#ifndef _WIN32  // no limit for files, no device that is full
TEST_F(TraceOfParts, ADiskThatIsFullAtTheNextPartLeavesTheLastItsName) {
  TraceFile trace(Parts(), Clock);
  WriteLine(trace);
  WriteLine(trace);
  const test::FileSizeLimit limit(kTraceHead.size() - 1);
  WriteLine(trace);
  EXPECT_EQ(trace.Trouble(), Path + ": File too large; the trace ends here");
  EXPECT_TRUE(Content(Path).ends_with("# part 2\n" + kText));
  EXPECT_TRUE(Content(Path + ".1").ends_with("# part 1\n" + kText));
  EXPECT_FALSE(std::filesystem::exists(Path + ".2"));
}
#endif

TEST_F(TraceOfParts, WhatIsNoTraceByNowIsNotMovedOn) {
  TraceFile trace(Parts(), Clock);
  WriteLine(trace);
  WriteContent(Path + ".1", "my notes");
  WriteLine(trace);
  EXPECT_EQ(trace.Trouble(),
            Path + ".1: there is a file of this name, and it is no trace; the trace ends here");
  EXPECT_EQ(Content(Path), kTraceHead + kText);
  EXPECT_EQ(Content(Path + ".1"), "my notes");
}

#ifndef _WIN32  // what is open keeps its name, and its folder
TEST_F(TraceOfParts, AnotherFileInThePlaceOfTheLastIsLeftAlone) {
  TraceFile trace(Parts(), Clock);
  WriteLine(trace);
  WriteLine(trace);
  std::filesystem::remove(Path);
  WriteContent(Path, "my notes");
  WriteLine(trace);
  EXPECT_TRUE(trace.Trouble().ends_with("it is no trace; the trace ends here"));
  EXPECT_EQ(Content(Path), "my notes");
  EXPECT_EQ(Content(Path + ".1"), kTraceHead + kText) << "nor is it moved back";
}

TEST_F(TraceOfParts, AFolderThatWentEndsThem) {
  TraceFile trace(Parts(), Clock);
  WriteLine(trace);
  std::filesystem::remove_all(Folder.Path());
  WriteLine(trace);
  EXPECT_EQ(trace.Trouble(), Path + ": No such file or directory; the trace ends here");
}
#endif

#ifndef _WIN32  // no limit for files, no device that is full
TEST_F(TraceTrouble, ALinkDoesNotSufferFromIt) {
  auto scripted = std::make_unique<test::ScriptedBridge>(Clock);
  scripted->Unread = {1, 2, 3};
  TracedBridge usb(std::move(scripted), Order(), Clock);
  const test::FileSizeLimit limit(1);
  std::array<std::uint8_t, 3> bytes{};
  std::uint32_t read = 0;
  EXPECT_EQ(usb.Read(7, bytes, read), UsbXpress::kSuccess);
  EXPECT_EQ(read, 3U);
  EXPECT_EQ(bytes[2], 3);
  EXPECT_NE(usb.File().Trouble(), "");
}
#endif

#ifndef _WIN32  // no fork
/// Writes until it is killed; the first lines have been written when this returns.
class KilledWriter {
 public:
  KilledWriter(const TraceOrder& order, const Clock& clock) {
    EXPECT_EQ(pipe(ends_.data()), 0);
    child_ = fork();
    if (child_ == 0) WriteForEver(order, clock);
    char byte = 0;
    EXPECT_EQ(read(ends_[0], &byte, 1), 1);
  }
  ~KilledWriter() {
    kill(child_, SIGKILL);
    int status = 0;
    EXPECT_EQ(waitpid(child_, &status, 0), child_);
    for (const int end : ends_) close(end);
  }
  KilledWriter(const KilledWriter&) = delete;
  KilledWriter& operator=(const KilledWriter&) = delete;

 private:
  [[noreturn]] void WriteForEver(const TraceOrder& order, const Clock& clock) const {
    TraceFile trace(order, clock);
    while (true) {
      for (int i = 0; i < 1000; ++i) WriteLine(trace);
      if (write(ends_[1], "x", 1) != 1) _exit(1);
    }
  }

  std::array<int, 2> ends_{};
  pid_t child_ = 0;
};

TEST_F(TraceTrouble, AProgramThatIsKilledLeavesWholeLinesAndNoLock) {
  { const KilledWriter writer(Order(), Clock); }
  const std::string text = Content(Path);
  ASSERT_TRUE(text.starts_with(kTraceHead));
  const std::string lines = text.substr(kTraceHead.size());
  EXPECT_GE(lines.size(), 1000 * kText.size());
  EXPECT_EQ(lines.size() % kText.size(), 0U);
  EXPECT_TRUE(lines.ends_with(kText));
  TraceFile next(Order(), Clock);
  WriteLine(next);
  EXPECT_EQ(next.Trouble(), "");
}
#endif

}  // namespace
}  // namespace morvane::bridges
