#include "support/usb_socket.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <umockdev.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

namespace morvane::test {
namespace {

constexpr const char* kRootHub = "/sys/devices/usb1";

struct Freed {
  void operator()(gchar* text) const { g_free(text); }
};
using Text = std::unique_ptr<gchar, Freed>;

std::uint8_t Low(std::uint16_t number) { return static_cast<std::uint8_t>(number); }
std::uint8_t High(std::uint16_t number) { return static_cast<std::uint8_t>(number >> 8U); }

/// The device's, its configuration's, its interface's and those of the two bulk endpoints.
std::vector<std::uint8_t> Descriptors(const UsbKind& kind) {
  const std::uint8_t serialString = kind.Serial.empty() ? 0 : 3;
  return {18,
          1,
          0x10,
          0x01,
          0,
          0,
          0,
          64,
          Low(kind.Vendor),
          High(kind.Vendor),
          Low(kind.Product),
          High(kind.Product),
          0,
          1,
          0,
          0,
          serialString,
          1,
          9,
          2,
          32,
          0,
          1,
          1,
          0,
          0x80,
          50,
          9,
          4,
          0,
          0,
          2,
          0xFF,
          0,
          0,
          0,
          7,
          5,
          0x81,
          2,
          Low(kind.PacketSize),
          High(kind.PacketSize),
          0,
          7,
          5,
          0x01,
          2,
          64,
          0,
          0};
}

/// For a node of another kind than the one that is there.
void MakeRoom(const std::string& path) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  std::filesystem::remove(path);
}

void MakePipe(const std::string& path) {
  MakeRoom(path);
  EXPECT_EQ(mkfifo(path.c_str(), S_IRUSR | S_IWUSR), 0);
}

/// Nobody may write here, not even the system's administrator.
constexpr const char* kBarred = "/proc/sys/kernel/ostype";

}  // namespace

UsbSocket::UsbSocket(UMockdevTestbed* testbed, int& lastAddress, UsbKind kind)
    : testbed_(testbed),
      kind_(std::move(kind)),
      root_(Text(umockdev_testbed_get_root_dir(testbed)).get()),
      lastAddress_(lastAddress) {}

UsbSocket::~UsbSocket() {
  if (pipe_ >= 0) close(pipe_);
}

std::string UsbSocket::Node() const {
  std::array<char, 32> node{};
  std::snprintf(node.data(), node.size(), "/dev/bus/usb/001/%03d", address_);
  return node.data();
}

void UsbSocket::PlugIn(UMockdevIoctlBase* calls) {
  address_ = ++lastAddress_;
  MakeDevice();
  MakeInterface();
  if (!kind_.Tty.empty()) MakeTty();
  MakeNode();
  GError* error = nullptr;
  umockdev_testbed_attach_ioctl(testbed_, Node().c_str(), calls, &error);
  ASSERT_EQ(error, nullptr) << error->message;
}

void UsbSocket::MakeDevice() {
  const Text made(umockdev_testbed_add_device(
      testbed_, "usb", Name().c_str(), kRootHub, "busnum", "1", "devnum",
      std::to_string(address_).c_str(), "speed", "12", "bConfigurationValue", "1", nullptr,
      "DEVTYPE", "usb_device", "DEVNAME", Node().c_str(), nullptr));
  auto descriptors = Descriptors(kind_);
  umockdev_testbed_set_attribute_binary(testbed_, made.get(), "descriptors", descriptors.data(),
                                        static_cast<gint>(descriptors.size()));
  folders_.emplace_back(made.get());
}

void UsbSocket::MakeInterface() {
  const Text made(umockdev_testbed_add_device(testbed_, "usb", (Name() + ":1.0").c_str(),
                                              folders_.back().c_str(), "bInterfaceNumber", "00",
                                              nullptr, "DEVTYPE", "usb_interface", nullptr));
  folders_.emplace_back(made.get());
}

void UsbSocket::MakeTty() {
  const std::string node = "/dev/" + kind_.Tty;
  const Text made(umockdev_testbed_add_device(testbed_, "tty", kind_.Tty.c_str(),
                                              folders_.back().c_str(), nullptr, "DEVNAME",
                                              node.c_str(), nullptr));
  folders_.emplace_back(made.get());
  MakePipe(root_ + node);
}

void UsbSocket::MakeNode() {
  const std::string path = root_ + Node();
  MakeRoom(path);
  if (!kind_.MayBeOpened) {
    std::filesystem::create_symlink(kBarred, path);
    return;
  }
  MakePipe(path);
  if (pipe_ >= 0) close(pipe_);
  pipe_ = open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(pipe_, 0);
  fcntl(pipe_, F_SETPIPE_SZ, 1);  // a page; what is in it fills it
  ready_ = true;
  ShowReady(false);
}

void UsbSocket::Pull() {
  for (; !folders_.empty(); folders_.pop_back()) {
    umockdev_testbed_uevent(testbed_, folders_.back().c_str(), "remove");
    umockdev_testbed_remove_device(testbed_, folders_.back().c_str());
  }
  std::filesystem::remove(root_ + Node());
  ShowReady(true);
}

void UsbSocket::ShowReady(bool ready) {
  if (pipe_ < 0 || ready == std::exchange(ready_, ready)) return;
  std::array<char, 1> byte{};
  const auto moved = ready ? read(pipe_, byte.data(), 1) : write(pipe_, byte.data(), 1);
  EXPECT_EQ(moved, 1);
}

}  // namespace morvane::test
