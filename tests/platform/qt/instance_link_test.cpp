#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QLocalServer>
#include <QLocalSocket>
#include <cstring>
#include <filesystem>
#include <memory>

#include "platform/qt/instance_fixture.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Knows the socket between the programs.
class InstanceLinkTest : public test::InstanceFixture {
 protected:
  /// The one socket that there is.
  QString Socket() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(sockets)) names.push_back(entry.path());
    EXPECT_EQ(names.size(), 1U);
    return names.empty() ? QString() : QString::fromStdString(names.front());
  }
  /// Where the running program would listen.
  QString LinkName() {
    QtInstance instance(real, store);
    Run(instance);
    return Socket();
  }
  /// Everything that is under way arrives: what a local socket is given is there at once.
  static void Settle() {
    for (int i = 0; i < 50; ++i) QCoreApplication::processEvents();
  }
};

using TheSocket = InstanceLinkTest;
using ACall = InstanceLinkTest;

/// The bytes of a call, written by hand.
QByteArray Frame(unsigned length, const QByteArray& command) {
  QByteArray bytes;
  for (const int shift : {24, 16, 8, 0}) bytes.append(static_cast<char>((length >> shift) & 0xFFU));
  return bytes + command;
}

/// A caller of the test's own, which says what it likes.
class Caller {
 public:
  explicit Caller(const QString& name) { socket_.connectToServer(name); }
  void Say(const QByteArray& bytes) {
    socket_.write(bytes);
    socket_.flush();
  }
  [[nodiscard]] bool HungUpOn() const { return socket_.state() == QLocalSocket::UnconnectedState; }
  [[nodiscard]] QByteArray Answer() { return socket_.readAll(); }
  void HangUp() { socket_.abort(); }

 private:
  QLocalSocket socket_;
};

TEST_F(TheSocket, LeadsFromAnyPathToTheSameStore) {
  fs::create_symlink(store, folder / "link.ini");
  QtInstance first(real, store);
  Run(first);
  EXPECT_TRUE(HandOver(folder / "link.ini", "1a"));
  EXPECT_TRUE(HandOver(folder / "run/../store.ini", "1b"));
  EXPECT_THAT(executed, ElementsAre("1a", "1b"));
}

TEST_F(TheSocket, IsOpenToItsUserAlone) {
  QtInstance first(real, store);
  Run(first);
  const fs::perms access = fs::status(Socket().toStdString()).permissions();
  EXPECT_EQ(access & ~fs::perms::owner_all, fs::perms::none);
}

TEST_F(TheSocket, HasAShortNameUnderWhichNothingIsLeftAtTheEnd) {
  const QString name = LinkName();
  EXPECT_TRUE(fs::path(name.toStdString()).filename().string().starts_with("MorvaneLink-"));
  EXPECT_EQ(fs::path(name.toStdString()).filename().string().size(), 12U + 16U);
  EXPECT_TRUE(fs::is_empty(sockets));
}

TEST_F(TheSocket, TheSocketOfAKilledProgramIsReplaced) {
  const QByteArray name = LinkName().toLocal8Bit();
  const int left = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  ASSERT_LT(static_cast<std::size_t>(name.size()), sizeof address.sun_path);
  std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
  ASSERT_EQ(bind(left, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  close(left);  // the file stays
  ASSERT_TRUE(fs::exists(name.toStdString()));
  QtInstance first(real, store);
  Run(first);
  EXPECT_TRUE(HandOver(store, "1a"));
  EXPECT_THAT(executed, ElementsAre("1a"));
}

TEST_F(TheSocket, WhereNoSocketCanBeMadeTheProgramRunsAndTakesNothing) {
  const std::string deep = folder / std::string(120, 'd');  // longer than a socket's path may be
  fs::create_directory(deep);
  fs::permissions(deep, fs::perms::owner_all);
  qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(deep));
  QtInstance first(virtualTime, store);
  Run(first);
  QtInstance second(virtualTime, store);
  EXPECT_FALSE(second.Claim());
  EXPECT_FALSE(second.HandOver("1a"));
}

TEST_F(ACall, GivesUpAfterTwoSecondsOnOneThatHangsAndHasToldItNothing) {
  QLocalServer hanging;
  ASSERT_TRUE(hanging.listen(LinkName()));
  ExpectGivingUpAfterTwoSeconds();
  Settle();
  QLocalSocket* call = hanging.nextPendingConnection();
  ASSERT_NE(call, nullptr);
  EXPECT_EQ(call->readAll(), "") << "it would be taken up after all when the other wakes up";
}

TEST_F(ACall, IsNotDoneWhenTheOtherEndsBeforeItHasTakenTheCommand) {
  QLocalServer dying;
  ASSERT_TRUE(dying.listen(LinkName()));
  int calls = 0;
  QObject::connect(&dying, &QLocalServer::newConnection, &dying, [&] {
    QLocalSocket* call = dying.nextPendingConnection();
    ++calls;
    QObject::connect(call, &QLocalSocket::readyRead, call, [&, call] {
      EXPECT_EQ(call->readAll(), Frame(2, "1a"));
      dying.close();
      call->abort();
    });
    call->write("\x05");
  });
  QtInstance first(real, store);
  EXPECT_TRUE(first.Claim());
  std::unique_ptr<QtInstance> second = std::make_unique<QtInstance>(real, store);
  EXPECT_FALSE(second->Claim());
  const auto end = real.StartTimer(1, [&] {
    if (calls > 0 && !dying.isListening()) real.Quit();
  });
  EXPECT_FALSE(second->HandOver("1a"));
  EXPECT_EQ(calls, 1);
}

TEST_F(ACall, WhoSaysNoCommandIsHungUpOn) {
  QtInstance first(virtualTime, store);
  Run(first);
  const QString name = Socket();
  for (const QByteArray& words :
       {Frame(0, ""), Frame(0, "1a"), Frame(64 * 1024 + 1, "1a"), Frame(0xFFFFFFFF, ""),
        QByteArray("GET / HTTP/1.1\r\n\r\n"), QByteArray(300000, '\xA5')}) {
    Caller caller(name);
    caller.Say(words);
    Settle();
    EXPECT_TRUE(caller.HungUpOn());
  }
  EXPECT_THAT(executed, IsEmpty());
}

TEST_F(ACall, WhoStopsInTheMiddleIsHungUpOnAfterTwoSeconds) {
  QtInstance first(virtualTime, store);
  Run(first);
  for (const QByteArray& words :
       {QByteArray(), QByteArray("\0", 1), QByteArray("\0\0\0", 3), Frame(3, ""), Frame(3, "1a"),
        Frame(64 * 1024, QByteArray(64 * 1024 - 1, '1'))}) {
    Caller caller(Socket());
    caller.Say(words);
    Settle();
    virtualTime.WaitMs(1999);
    Settle();
    EXPECT_FALSE(caller.HungUpOn()) << words.size();
    virtualTime.WaitMs(1);
    Settle();
    EXPECT_TRUE(caller.HungUpOn()) << words.size();
  }
  EXPECT_THAT(executed, IsEmpty());
}

TEST_F(ACall, WhoHangsUpInTheMiddleLeavesNothing) {
  QtInstance first(virtualTime, store);
  Run(first);
  for (const QByteArray& words : {QByteArray(), QByteArray("\0\0", 2), Frame(5, "1a")}) {
    Caller caller(Socket());
    caller.Say(words);
    Settle();
    caller.HangUp();
    Settle();
    virtualTime.WaitMs(3000);
  }
  EXPECT_THAT(executed, IsEmpty());
}

TEST_F(ACall, MayGiveItsCommandInPieces) {
  QtInstance first(virtualTime, store);
  Run(first);
  Caller caller(Socket());
  Settle();
  EXPECT_EQ(caller.Answer(), "\x05");
  for (const char byte : Frame(3, "1ab")) {
    EXPECT_THAT(executed, IsEmpty());
    caller.Say(QByteArray(1, byte));
    Settle();
  }
  EXPECT_EQ(caller.Answer(), "\x06");
  EXPECT_TRUE(caller.HungUpOn());
  EXPECT_THAT(executed, ElementsAre("1ab"));
}

TEST_F(ACall, GivesOneCommandACall) {
  QtInstance first(virtualTime, store);
  Run(first);
  Caller caller(Socket());
  caller.Say(Frame(2, "1a") + Frame(2, "1b"));
  Settle();
  EXPECT_EQ(caller.Answer(), "\x05\x06");
  EXPECT_TRUE(caller.HungUpOn());
  EXPECT_THAT(executed, ElementsAre("1a"));
}

TEST_F(ACall, IsAnsweredWhenItsCommandHasBeenExecuted) {
  QtInstance first(virtualTime, store);
  EXPECT_TRUE(first.Claim());
  std::unique_ptr<Caller> caller;
  int commands = 0;
  first.Listen([&](std::string_view) {
    ++commands;
    EXPECT_EQ(caller->Answer(), "\x05");
  });
  caller = std::make_unique<Caller>(Socket());
  Settle();
  caller->Say(Frame(2, "1a"));
  Settle();
  EXPECT_EQ(commands, 1);
  EXPECT_EQ(caller->Answer(), "\x06");
}

TEST_F(ACall, BeyondTheMostThatCallAtATimeIsHungUpOnUntilTheyHaveGone) {
  QtInstance first(virtualTime, store);
  Run(first);
  std::vector<std::unique_ptr<Caller>> silent;
  for (int i = 0; i < QtInstance::kMostCalls; ++i) {
    silent.push_back(std::make_unique<Caller>(Socket()));
    Settle();
    EXPECT_EQ(silent.back()->Answer(), "\x05") << i;
  }
  Caller late(Socket());
  Settle();
  EXPECT_TRUE(late.HungUpOn());
  EXPECT_EQ(late.Answer(), "");
  virtualTime.WaitMs(2000);
  Settle();
  for (const auto& caller : silent) EXPECT_TRUE(caller->HungUpOn());
  EXPECT_TRUE(HandOver(store, "1a"));
  EXPECT_THAT(executed, ElementsAre("1a"));
}

TEST_F(ACall, ACrowdOfOthersDoesNotCloseTheLink) {
  QtInstance first(virtualTime, store);
  Run(first);
  const QString name = Socket();
  for (int i = 0; i < 2000; ++i) {
    Caller caller(name);
    caller.Say(Frame(7, "1a"));
    if (i % 40 == 39) Settle();
  }
  Settle();
  EXPECT_TRUE(HandOver(store, "1a"));
  EXPECT_THAT(executed, ElementsAre("1a"));
}

TEST_F(ACall, MayStillCallWhenTheRunningOneEnds) {
  auto first = std::make_unique<QtInstance>(virtualTime, store);
  Run(*first);
  Caller caller(Socket());
  caller.Say(Frame(9, "1a"));
  Settle();
  first.reset();
  Settle();
  EXPECT_TRUE(caller.HungUpOn());
  EXPECT_TRUE(fs::is_empty(sockets));
}

}  // namespace
}  // namespace morvane
