#include "platform/qt/instance_link.h"

#include "platform/windows/access_list.h"

// The others need the types of windows.h, which is there.
#include <sddl.h>

#include <QLocalServer>
#include <QLocalSocket>

#include "platform/qt/instance_fixture.h"
#include "platform/windows/handle.h"

namespace morvane {
namespace {

const QString kPlace = LinkPlace("MorvaneLink-tried");

/// A pipe of that name which another program was first with: the administrators own it, and
/// everybody may open it.
OpenedHandle StrangersPipe() {
  PSECURITY_DESCRIPTOR list = nullptr;
  ConvertStringSecurityDescriptorToSecurityDescriptorW(L"O:BAG:BAD:(A;;FA;;;WD)", SDDL_REVISION_1,
                                                       &list, nullptr);
  const LocalPointer owner(list);
  SECURITY_ATTRIBUTES access{sizeof access, list, FALSE};
  return TakeHandle(CreateNamedPipeW(kPlace.toStdWString().c_str(), PIPE_ACCESS_DUPLEX,
                                     PIPE_TYPE_BYTE | PIPE_WAIT, PIPE_UNLIMITED_INSTANCES, 4096,
                                     4096, 0, &access));
}

TEST(InstanceLink, IsAPipeOfThisUser) {
  QLocalServer server;
  ListenAt(kPlace, server);
  EXPECT_TRUE(server.isListening());
  EXPECT_EQ(server.fullServerName(), kPlace);
  QLocalSocket caller;
  CallAt(kPlace, caller);
  EXPECT_EQ(caller.state(), QLocalSocket::ConnectedState);
}

TEST(InstanceLink, NobodyListensAtAStrangersPipe) {
  const OpenedHandle stranger = StrangersPipe();
  ASSERT_TRUE(stranger);
  QLocalServer server;
  ListenAt(kPlace, server);
  EXPECT_FALSE(server.isListening());
}

TEST(InstanceLink, AStrangersPipeIsToldNothing) {
  const OpenedHandle stranger = StrangersPipe();
  ASSERT_TRUE(stranger);
  QLocalSocket caller;
  CallAt(kPlace, caller);
  EXPECT_EQ(caller.state(), QLocalSocket::UnconnectedState);
}

TEST(InstanceLink, WhereNobodyListensNobodyIsCalled) {
  QLocalSocket caller;
  CallAt(kPlace, caller);
  EXPECT_EQ(caller.state(), QLocalSocket::UnconnectedState);
}

}  // namespace
}  // namespace morvane
