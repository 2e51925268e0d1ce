#include "platform/system_sound.h"

#include <QCoreApplication>
#include <cstdint>
#include <cstdlib>

#include "support/fakes.h"

namespace morvane {
namespace {

constexpr int kHeader = 44;  // bytes before the samples
constexpr int kRate = 22050;

const std::string& SoundFile() {
  static const std::string path = MORVANE_TEST_DATA "/../../apps/morvane/Dealing_Error.wav";
  return path;
}

class ErrorSound : public ::testing::Test {
 protected:
  const std::string bytes = test::Content(SoundFile());

  [[nodiscard]] unsigned At(std::size_t at, int count) const {
    unsigned number = 0;
    for (int i = count - 1; i >= 0; --i) {
      number = number * 256 + static_cast<unsigned char>(bytes.at(at + static_cast<unsigned>(i)));
    }
    return number;
  }
  [[nodiscard]] std::vector<int> Samples() const {
    std::vector<int> samples;
    for (std::size_t at = kHeader; at + 1 < bytes.size(); at += 2) {
      samples.push_back(static_cast<std::int16_t>(At(at, 2)));
    }
    return samples;
  }
};

TEST_F(ErrorSound, IsAShortSixteenBitMonoFile) {
  EXPECT_LT(bytes.size(), 60U * 1024);
  EXPECT_EQ(bytes.substr(0, 4) + bytes.substr(8, 8), "RIFFWAVEfmt ");
  EXPECT_EQ(At(4, 4), bytes.size() - 8);
  EXPECT_EQ(At(20, 2), 1U) << "plain samples";
  EXPECT_EQ(At(22, 2), 1U) << "mono";
  EXPECT_EQ(At(24, 4), static_cast<unsigned>(kRate));
  EXPECT_EQ(At(34, 2), 16U);
  EXPECT_EQ(At(40, 4), bytes.size() - kHeader);
  EXPECT_LT(Samples().size(), static_cast<std::size_t>(kRate)) << "under a second";
  EXPECT_GT(Samples().size(), static_cast<std::size_t>(kRate / 2));
}

TEST_F(ErrorSound, BeginsAndEndsGentlyAndIsNeverLoud) {
  const std::vector<int> samples = Samples();
  constexpr int kMilliseconds = kRate / 1000;
  const auto loudest = [&samples](std::size_t from, std::size_t count) {
    int peak = 0;
    for (std::size_t i = from; i < from + count; ++i) peak = std::max(peak, std::abs(samples[i]));
    return peak;
  };
  const int peak = loudest(0, samples.size());
  EXPECT_GT(peak, 8000);
  EXPECT_LT(peak, 16384) << "half of what the device can do";
  EXPECT_LT(loudest(0, 2 * kMilliseconds), peak / 20);
  EXPECT_LT(loudest(samples.size() - 2 * kMilliseconds, 2 * kMilliseconds), peak / 100);
}

TEST(SystemSound, BeginsAnewWhileItPlaysAndMayGoThen) {
  const auto sound = MakeSystemSound();
  sound->Play(SoundFile());
  sound->Play(SoundFile());
  QCoreApplication::processEvents();
}

TEST(SystemSound, AMissingFileDoesNoHarm) {
  const auto sound = MakeSystemSound();
  testing::internal::CaptureStderr();
  sound->Play("/nowhere/Dealing_Error.wav");
  QCoreApplication::processEvents();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace morvane
