// A binary of its own: the operators below count every allocation of the whole program.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <new>
#include <string>
#include <type_traits>

#include "machine/machine.h"
#include "simulator/simulated_machine.h"
#include "support/fakes.h"

namespace {

std::size_t allocations = 0;

void* Allocate(std::size_t size, std::align_val_t alignment) {
  ++allocations;
  const auto unit = static_cast<std::size_t>(alignment);
  void* const memory = std::aligned_alloc(unit, std::max(unit, (size + unit - 1) / unit * unit));
  if (memory == nullptr) std::abort();
  return memory;
}

void* Allocate(std::size_t size) {
  return Allocate(size, std::align_val_t{__STDCPP_DEFAULT_NEW_ALIGNMENT__});
}

}  // namespace

// Every form that is used: under a sanitizer those left out would be the sanitizer's own.
using Alignment = std::align_val_t;
using Size = std::size_t;
void* operator new(Size size) { return Allocate(size); }
void* operator new[](Size size) { return Allocate(size); }
void* operator new(Size size, Alignment unit) { return Allocate(size, unit); }
void* operator new[](Size size, Alignment unit) { return Allocate(size, unit); }
void* operator new(Size size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](Size size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, Size) noexcept { std::free(memory); }
void operator delete[](void* memory, Size) noexcept { std::free(memory); }
void operator delete(void* memory, Alignment) noexcept { std::free(memory); }
void operator delete[](void* memory, Alignment) noexcept { std::free(memory); }
void operator delete(void* memory, Size, Alignment) noexcept { std::free(memory); }
void operator delete[](void* memory, Size, Alignment) noexcept { std::free(memory); }

namespace morvane::machine {
namespace {

using namespace wire;

/// What happens to a command's first try; the second one always goes well, unless both are lost.
enum class Path { kGood, kLost, kCorrupted, kCut, kOtherCode, kLostTwice };
constexpr std::array kPaths{Path::kGood, Path::kLost,      Path::kCorrupted,
                            Path::kCut,  Path::kOtherCode, Path::kLostTwice};

/// A bridge of fixed arrays: one reply, spoilt as the path says.
class FixedBridge final : public UsbXpress {
 public:
  Path Way = Path::kGood;
  std::uint8_t Code = 0;  ///< of the reply
  int Sent = 0;
  std::size_t LastSize = 0;

  Status GetDllVersion(std::uint32_t&, std::uint32_t&) override { return kSuccess; }
  Status GetDriverVersion(std::uint32_t&, std::uint32_t&) override { return kSuccess; }
  Status GetNumDevices(std::uint32_t&) override { return kSuccess; }
  Status GetProductString(std::uint32_t, ProductString&, std::uint32_t) override {
    return kSuccess;
  }
  Status Open(std::uint32_t, Handle&) override { return kSuccess; }
  Status SetTimeouts(std::uint32_t, std::uint32_t) override { return kSuccess; }
  Status SetBaudRate(Handle, std::uint32_t) override { return kSuccess; }
  Status SetLineControl(Handle, std::uint16_t) override { return kSuccess; }
  Status FlushBuffers(Handle, std::uint8_t, std::uint8_t) override {
    from_ = to_ = 0;
    return kSuccess;
  }
  Status Write(Handle, std::span<const std::uint8_t> bytes, std::uint32_t& written) override {
    ++Sent;
    LastSize = bytes.size();
    written = static_cast<std::uint32_t>(bytes.size());
    Reply(Sent == 1 || Way == Path::kLostTwice ? Way : Path::kGood);
    return kSuccess;
  }
  Status Read(Handle, std::span<std::uint8_t> bytes, std::uint32_t& read) override {
    const std::size_t count = std::min(bytes.size(), to_ - from_);
    std::copy_n(wire_.begin() + static_cast<std::ptrdiff_t>(from_), count, bytes.begin());
    from_ += count;
    read = static_cast<std::uint32_t>(count);
    return count == bytes.size() ? kSuccess : kReadTimedOut;
  }
  Status WriteLatch(Handle, std::uint8_t, std::uint8_t) override { return kSuccess; }
  Status Close(Handle) override { return kSuccess; }

 private:
  void Reply(Path way) {
    from_ = to_ = 0;
    if (way == Path::kLost || way == Path::kLostTwice) return;
    wire_ = {};
    wire_[0] = way == Path::kOtherCode ? std::uint8_t{0x66} : Code;
    to_ = FrameSize(wire_[0]);
    Scramble(std::span(wire_).first(to_), kStepFromMachine);
    if (way == Path::kCorrupted) wire_[3] ^= 0x10U;
    if (way == Path::kCut) to_ -= 3;
  }

  Frame wire_{};
  std::size_t from_ = 0;
  std::size_t to_ = 0;
};

class ExchangeAllocation : public ::testing::Test {
 protected:
  void SetUp() override { test::FillSet(desk.Prog.Set, 1, 1); }

  /// Every path of the exchange of `command`, answered by `code`.
  template <typename Command>
  void ExpectNone(const Command& command, std::size_t size,
                  std::uint8_t code = Command::Reply::Code) {
    for (const Path way : kPaths) {
      SCOPED_TRACE("command answered by " + std::to_string(code) + ", path " +
                   std::to_string(static_cast<int>(way)));
      bridge.Way = way;
      bridge.Code = code;
      bridge.Sent = 0;
      const std::size_t before = allocations;
      const bool answered = machine.Exchange(command).has_value();
      EXPECT_EQ(allocations, before);
      const bool dropped = way == Path::kOtherCode && std::is_same_v<Command, StatusCommand>;
      EXPECT_EQ(answered, way != Path::kLostTwice && !dropped);
      EXPECT_EQ(machine.Lost(), way == Path::kLostTwice);
      EXPECT_EQ(bridge.Sent, way == Path::kGood || dropped ? 1 : 2);
      EXPECT_EQ(bridge.LastSize, size);
    }
  }

  test::TestDesk desk;
  FixedBridge bridge;
  Machine machine{desk.Random, bridge};
};

TEST(AllocationCount, SeesEveryForm) {
  // Calls, not expressions, which a compiler may leave out together with what they allocate.
  const std::size_t before = allocations;
  ::operator delete(::operator new(4));
  ::operator delete[](::operator new[](4));
  ::operator delete(::operator new(4, std::nothrow));
  ::operator delete[](::operator new[](4, std::nothrow));
  ::operator delete (::operator new (64, Alignment{64}), Alignment{64});
  ::operator delete[](::operator new[](64, Alignment{64}), Alignment{64});
  EXPECT_EQ(allocations, before + 6);
  const std::string text(40, 'x');
  const std::function<std::size_t()> size = [text] { return text.size(); };
  EXPECT_EQ(size(), 40U);
  EXPECT_GE(allocations, before + 9) << "the text, its copy and the function";
}

TEST_F(ExchangeAllocation, AShortCommandWithAShortReplyMakesNone) {
  ExpectNone(StatusCommand{6}, 8);
  ExpectNone(VersionCommand{}, 8);
  ExpectNone(IdentityCommand{1}, 8);
  ExpectNone(SensorCommand{}, 8);
}

TEST_F(ExchangeAllocation, AShortCommandWithALongReplyMakesNone) {
  ExpectNone(FetchLogCommand{}, 8);
  ExpectNone(FetchBoardCommand{}, 8);
  ExpectNone(CounterCommand{}, 8);
  ExpectNone(TestCommand{}, 8);
  ExpectNone(StatusCommand{}, 8, StatusReply::LongCode);
}

TEST_F(ExchangeAllocation, ALongCommandMakesNone) {
  ExpectNone(StartCommand{}, 136);
  StartCommand read;
  read.Code = CmdRead;
  read.Continue = true;
  ExpectNone(read, 136);
}

TEST_F(ExchangeAllocation, ABoardDealtByTheSimulatedMachineMakesNone) {
  simulator::Options options;
  options.Speed = 0;
  options.Noise = 0.01;
  options.Seed = 1;
  simulator::SimulatedMachine simulated(options, desk.Clock);
  Machine dealing(desk.Random, simulated);
  ASSERT_EQ(simulated.Open(0, dealing.Link.UsbHandle), UsbXpress::kSuccess);
  dealing.Link.SetLinkTimeouts(200);
  StartCommand start;
  start.Settings.DealRotation = 1;
  for (int card = 1; card <= kCards; ++card) {
    start.Pockets[MachineCard(card)] = static_cast<std::uint8_t>(1 + (card - 1) % 4);
  }
  const std::size_t before = allocations;
  const auto began = desk.Clock.Elapsed();
  int tries = 1;
  while (!dealing.Exchange(start)) ASSERT_LT(++tries, 20);
  while (dealing.MachineState == Machine::kBusy) dealing.Exchange(dealing.Poll());
  EXPECT_EQ(allocations, before);
  EXPECT_EQ(simulated.BoardsDealt(), 1);
  EXPECT_GT(desk.Clock.Elapsed(), began) << "no try has failed: noise or seed must be others";
}

}  // namespace
}  // namespace morvane::machine
