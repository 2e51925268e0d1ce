#include "bridges/usb/usb_xpress_library.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <numeric>

#include "bridges/trace/replay_bridge.h"
#include "bridges/trace/traced_bridge.h"
#include "machine/open_link.h"
#include "support/fakes.h"
#include "support/scripted_bridge.h"
#include "support/usb_library_double/loaded_double.h"

namespace morvane::bridges {
namespace {

using test::Bytes;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr UsbXpress::Handle kNone = -1;

class UsbXpressLibraryTest : public testing::Test {
 protected:
  /// Loads it, opens device 0, and forgets the calls of that.
  void Open() {
    ASSERT_EQ(usb_.Open(0, handle_), UsbXpress::kSuccess);
    desk_.Calls.clear();
  }
  void Fail(const std::string& call, UsbXpress::Status status) {
    desk_.FailingCall = call;
    desk_.FailureStatus = status;
  }

  test::VirtualClock clock_;
  test::ScriptedBridge behind_{clock_};
  test::UsbLibraryDesk desk_{behind_};
  test::LoadedDouble double_{desk_};
  UsbXpressLibrary usb_{test::LoadedDouble::Path()};
  UsbXpress::Handle handle_ = kNone;
};

TEST_F(UsbXpressLibraryTest, TheVersionsAreTheLibrarys) {
  std::uint32_t high = 0;
  std::uint32_t low = 0;
  EXPECT_EQ(usb_.GetDllVersion(high, low), UsbXpress::kSuccess);
  EXPECT_EQ(high, 0x30002U);
  EXPECT_EQ(low, 1U);
  behind_.DriverVersion = 0xFFFF0004;
  EXPECT_EQ(usb_.GetDriverVersion(high, low), UsbXpress::kSuccess);
  EXPECT_EQ(high, 0xFFFF0004U);
  EXPECT_EQ(low, 0U);
  EXPECT_THAT(desk_.Calls, ElementsAre("GetDLLVersion", "GetDriverVersion"));
}

TEST_F(UsbXpressLibraryTest, TheDevicesAreTheLibrarys) {
  behind_.Devices = {"CP2102", "4711X", std::string(1023, 'y')};
  std::uint32_t count = 0;
  EXPECT_EQ(usb_.GetNumDevices(count), UsbXpress::kSuccess);
  EXPECT_EQ(count, 3U);
  UsbXpress::ProductString text;
  text.fill('x');
  EXPECT_EQ(usb_.GetProductString(1, text, UsbXpress::kSerialString), UsbXpress::kSuccess);
  EXPECT_STREQ(text.data(), "4711X");
  EXPECT_EQ(usb_.GetProductString(2, text, 7), UsbXpress::kSuccess);
  EXPECT_EQ(std::string(text.data()), std::string(1023, 'y')) << "all 1024 bytes are its";
  EXPECT_THAT(desk_.Calls,
              ElementsAre("GetNumDevices", "GetProductString 1 0", "GetProductString 2 7"));
}

TEST_F(UsbXpressLibraryTest, AStringThatTheLibraryDoesNotEndEndsWithTheBuffer) {
  UsbXpress::ProductString text;
  text.fill('x');
  Fail("GetProductString", UsbXpress::kDeviceNotFound);
  EXPECT_EQ(usb_.GetProductString(0, text, 0), UsbXpress::kDeviceNotFound);
  EXPECT_EQ(text[1023], '\0');
}

TEST_F(UsbXpressLibraryTest, EachArgumentArrivesAsItWasGiven) {
  Open();
  EXPECT_EQ(usb_.SetTimeouts(0x89ABCDEF, 200), UsbXpress::kSuccess);
  EXPECT_EQ(usb_.SetBaudRate(handle_, 0x80000001), UsbXpress::kSuccess);
  EXPECT_EQ(usb_.SetLineControl(handle_, 0xF801), UsbXpress::kSuccess);
  EXPECT_EQ(usb_.FlushBuffers(handle_, 0x81, 0xFE), UsbXpress::kSuccess);
  EXPECT_EQ(usb_.WriteLatch(handle_, 0xFF, 0x80), UsbXpress::kSuccess);
  EXPECT_EQ(usb_.Close(handle_), UsbXpress::kSuccess);
  EXPECT_THAT(desk_.Calls,
              ElementsAre("SetTimeouts 2309737967 200", "SetBaudRate opened 2147483649",
                          "SetLineControl opened 63489", "FlushBuffers opened 129 254",
                          "WriteLatch opened 255 128", "Close opened"))
      << "the handle with all its bits";
}

TEST_F(UsbXpressLibraryTest, BytesGoBothWaysUnchanged) {
  Open();
  Bytes every(136);
  std::iota(every.begin(), every.end(), std::uint8_t{0x98});
  behind_.Answer = [](const Bytes&) { return Bytes{1, 0, 0xFF}; };
  std::uint32_t count = 99;
  EXPECT_EQ(usb_.Write(handle_, every, count), UsbXpress::kSuccess);
  EXPECT_EQ(count, 136U);
  ASSERT_EQ(behind_.Sent.size(), 1U);
  EXPECT_EQ(behind_.Sent[0], test::OffTheWire(every, 23));
  Bytes read(8, 0xEE);
  EXPECT_EQ(usb_.Read(handle_, read, count), UsbXpress::kReadTimedOut);
  EXPECT_EQ(count, 3U);
  EXPECT_EQ(read, (Bytes{1, 0, 0xFF, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE}));
  EXPECT_THAT(desk_.Calls, ElementsAre("Write opened 136", "Read opened 8"))
      << "without an overlapped structure";
}

TEST_F(UsbXpressLibraryTest, MoreThanWasAskedForIsNotBelieved) {
  Open();
  desk_.Boast = 0xFFFFFF00;
  std::uint32_t count = 0;
  Bytes bytes(8, 1);
  EXPECT_EQ(usb_.Write(handle_, bytes, count), UsbXpress::kSuccess);
  EXPECT_EQ(count, 8U);
  EXPECT_EQ(usb_.Read(handle_, bytes, count), UsbXpress::kReadTimedOut);
  EXPECT_EQ(count, 8U);
}

TEST_F(UsbXpressLibraryTest, EveryStatusOfTheLibraryPasses) {
  Open();
  std::uint32_t number = 0;
  UsbXpress::ProductString text{};
  Bytes bytes(8);
  const auto expect = [this](const std::string& call, const auto& status) {
    Fail(call, -2);
    EXPECT_EQ(status(), -2) << call;
  };
  expect("GetDLLVersion", [&] { return usb_.GetDllVersion(number, number); });
  expect("GetDriverVersion", [&] { return usb_.GetDriverVersion(number, number); });
  expect("GetNumDevices", [&] { return usb_.GetNumDevices(number); });
  expect("GetProductString", [&] { return usb_.GetProductString(0, text, 0); });
  expect("SetTimeouts", [&] { return usb_.SetTimeouts(1, 1); });
  expect("SetBaudRate", [&] { return usb_.SetBaudRate(handle_, 1); });
  expect("SetLineControl", [&] { return usb_.SetLineControl(handle_, 1); });
  expect("FlushBuffers", [&] { return usb_.FlushBuffers(handle_, 1, 1); });
  expect("Write", [&] { return usb_.Write(handle_, bytes, number); });
  expect("Read", [&] { return usb_.Read(handle_, bytes, number); });
  expect("WriteLatch", [&] { return usb_.WriteLatch(handle_, 1, 1); });
  expect("Close", [&] { return usb_.Close(handle_); });
  expect("Open", [&] { return usb_.Open(0, handle_); });
}

TEST_F(UsbXpressLibraryTest, NoOtherHandleReachesTheLibrary) {
  Open();
  std::uint32_t count = 99;
  Bytes bytes(8);
  for (const UsbXpress::Handle handle : {kNone, handle_ + 1}) {
    EXPECT_EQ(usb_.SetBaudRate(handle, 115200), UsbXpress::kInvalidHandle);
    EXPECT_EQ(usb_.Write(handle, bytes, count), UsbXpress::kInvalidHandle);
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(usb_.Close(handle), UsbXpress::kInvalidHandle);
  }
  EXPECT_THAT(desk_.Calls, IsEmpty());
}

TEST_F(UsbXpressLibraryTest, ACloseThatFailsEndsTheUseOfTheHandleToo) {
  Open();
  Fail("Close", UsbXpress::kDeviceNotFound);
  EXPECT_EQ(usb_.Close(handle_), UsbXpress::kDeviceNotFound);
  EXPECT_EQ(usb_.Close(handle_), UsbXpress::kInvalidHandle);
  EXPECT_EQ(usb_.Open(0, handle_), UsbXpress::kSuccess) << "after an unplugging";
}

TEST_F(UsbXpressLibraryTest, AnOpeningWithoutAHandleIsNone) {
  desk_.Handle = ~std::uint64_t{0};
  EXPECT_EQ(usb_.Open(0, handle_), UsbXpress::kInvalidHandle);
  EXPECT_EQ(handle_, kNone);
  EXPECT_EQ(usb_.WriteLatch(1, 1, 1), UsbXpress::kInvalidHandle);
}

TEST_F(UsbXpressLibraryTest, ADeviceThatIsHeldIsTold) {
  Fail("Open", UsbXpress::kDeviceIoFailed);
  EXPECT_EQ(usb_.Open(0, handle_), UsbXpress::kDeviceIoFailed);
  EXPECT_EQ(usb_.Advice(),
            "A machine is attached, and cannot be opened.\nAnother program may be using it.");
  std::uint32_t count = 0;
  EXPECT_EQ(usb_.GetNumDevices(count), UsbXpress::kSuccess);
  EXPECT_EQ(usb_.Advice(), "") << "it is asked anew";
}

/// Everything there is to ask, of a library that is not there or not whole.
void ExpectNothingWorks(UsbXpressLibrary& usb) {
  constexpr UsbXpress::Status kMissing = 12;
  UsbXpress::Handle handle = kNone;
  std::uint32_t number = 99;
  UsbXpress::ProductString text{};
  Bytes bytes(8);
  EXPECT_EQ(usb.GetDllVersion(number, number), kMissing);
  EXPECT_EQ(usb.GetDriverVersion(number, number), kMissing);
  EXPECT_EQ(usb.GetNumDevices(number), kMissing);
  EXPECT_EQ(usb.GetProductString(0, text, 0), kMissing);
  EXPECT_EQ(usb.Open(0, handle), kMissing);
  EXPECT_EQ(handle, kNone);
  EXPECT_EQ(usb.SetTimeouts(1, 1), kMissing);
  EXPECT_EQ(usb.SetBaudRate(1, 1), kMissing);
  EXPECT_EQ(usb.SetLineControl(1, 1), kMissing);
  EXPECT_EQ(usb.FlushBuffers(1, 1, 1), kMissing);
  EXPECT_EQ(usb.Write(1, bytes, number), kMissing);
  EXPECT_EQ(number, 0U);
  number = 99;
  EXPECT_EQ(usb.Read(1, bytes, number), kMissing);
  EXPECT_EQ(number, 0U);
  EXPECT_EQ(usb.WriteLatch(1, 1, 1), kMissing);
  EXPECT_EQ(usb.Close(1), kMissing);
}

TEST(MissingUsbLibrary, EverythingSaysThatTheDriverIsMissing) {
  UsbXpressLibrary usb("/nowhere/libnone.so");
  EXPECT_EQ(usb.Advice(), "") << "nobody has asked yet";
  ExpectNothingWorks(usb);
  EXPECT_THAT(usb.Advice(),
              StartsWith("The USB library \"/nowhere/libnone.so\" cannot be loaded ("));
#ifdef _WIN32
  EXPECT_THAT(usb.Advice(), HasSubstr("(it, or a library that it needs, is not there)"));
#else
  EXPECT_THAT(usb.Advice(), HasSubstr("No such file"));
#endif
}

TEST(MissingUsbLibrary, AFileThatIsNoneIsToldInTheSystemsWords) {
  const test::TempFolder folder;
  test::WriteContent(folder / "text.so", "no library at all, but some words");
  UsbXpressLibrary usb(folder / "text.so");
  ExpectNothingWorks(usb);
  EXPECT_THAT(usb.Advice(), HasSubstr("text.so"));
}

TEST(MissingUsbLibrary, OneThatLacksAFunctionIsNotCalledAtAll) {
  UsbXpressLibrary usb(MORVANE_USB_LIBRARY_LACKING);
  ExpectNothingWorks(usb);
  EXPECT_EQ(usb.Advice(), "The USB library \"" MORVANE_USB_LIBRARY_LACKING
                          "\" lacks the function SI_Close.\nIt is another one, or too old.");
}

TEST(MissingUsbLibrary, OneThatIsInstalledMeanwhileIsFound) {
  const test::TempFolder folder;
  UsbXpressLibrary usb(folder / "late.so");
  std::uint32_t high = 0;
  std::uint32_t low = 0;
  std::uint32_t count = 0;
  EXPECT_EQ(usb.GetDllVersion(high, low), UsbXpress::kDriverMissing);
  std::filesystem::copy_file(MORVANE_USB_LIBRARY_LACKING, folder / "late.so");
  EXPECT_EQ(usb.GetDllVersion(high, low), UsbXpress::kDriverMissing);
  std::filesystem::remove(folder / "late.so");
  std::filesystem::copy_file(MORVANE_USB_LIBRARY, folder / "late.so");
  EXPECT_EQ(usb.GetDllVersion(high, low), UsbXpress::kSuccess);
  EXPECT_EQ(high, 0x30001U);
  EXPECT_EQ(usb.Advice(), "");
  EXPECT_EQ(usb.GetNumDevices(count), UsbXpress::kDeviceNotFound) << "its bus is empty";
}

TEST(MissingUsbLibrary, TheLinkShowsTheTextOfTheDriver) {
  test::TestDesk desk;
  desk.Ui.Default = kCancel;
  UsbXpressLibrary usb("/nowhere/libnone.so");
  machine::MachineLink link(usb);
  EXPECT_FALSE(machine::OpenLink(desk.Prog, link, 200));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  const test::FakeUi::Box& box = desk.Ui.Boxes[0];
  EXPECT_EQ(box.Title, "USB Initialization Error");
  EXPECT_THAT(box.Text, HasSubstr("(Error: 12.0)"));
  EXPECT_THAT(box.Text, HasSubstr("USB drivers are not installed"));
  EXPECT_THAT(box.Text, HasSubstr("\r\n\r\nThe USB library \"/nowhere/libnone.so\" cannot"));
}

TEST(MissingUsbLibrary, ATraceOfItSaysTheSame) {
  const test::TempFolder folder;
  test::VirtualClock clock;
  std::uint32_t high = 0;
  std::uint32_t low = 0;
  {
    TracedBridge usb(std::make_unique<UsbXpressLibrary>("/nowhere/libnone.so"),
                     {.Path = folder / "run.trace", .Machine = "usb"}, clock);
    EXPECT_EQ(usb.GetDllVersion(high, low), UsbXpress::kDriverMissing);
  }
  TraceReader trace;
  ASSERT_EQ(trace.Open(folder / "run.trace"), std::nullopt);
  ReplayBridge replay(std::move(trace), clock);
  EXPECT_EQ(replay.GetDllVersion(high, low), UsbXpress::kDriverMissing);
  EXPECT_THAT(replay.Advice(), StartsWith("The USB library \"/nowhere/libnone.so\" cannot be"));
}

TEST_F(UsbXpressLibraryTest, TheLinkIsOpenedThroughIt) {
  test::TestDesk desk;
  behind_.Devices = {"CP2102", "4711X"};
  machine::MachineLink link(usb_);
  EXPECT_TRUE(machine::OpenLink(desk.Prog, link, 200));
  EXPECT_THAT(desk_.Calls, ElementsAre("GetDLLVersion", "GetDriverVersion", "GetNumDevices",
                                       "GetProductString 0 0", "GetProductString 1 0", "Open 1",
                                       "SetTimeouts 200 200", "SetBaudRate opened 115200",
                                       "SetLineControl opened 2048", "FlushBuffers opened 1 1"));
  EXPECT_EQ(link.UsbProductString, "4711X");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

}  // namespace
}  // namespace morvane::bridges
