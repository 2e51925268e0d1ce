#include <random>

#include "files/bre_file.h"
#include "files/bri_records.h"
#include "files/deal305_records.h"
#include "files/dge_records.h"
#include "files/dup_records.h"
#include "files/fixed_records.h"
#include "files/sets.h"

namespace morvane::files {
namespace {

const Messages kTexts = InitMessages();

/// A format's writer and reader as functions of bytes.
struct Codec {
  const char* Name;
  std::string (*Compose)(const BoardSet& set);
};
constexpr std::array<Codec, 4> kCodecs{
    {{"BRI", BriBytes}, {"DGE", DgeBytes}, {"DUP", DupBytes}, {"DEAL305", Deal305Bytes}}};

/// Bytes that look like a format's, with a few of them changed.
std::string Damaged(std::mt19937& random, std::string bytes) {
  for (auto changes = random() % 4; changes > 0 && !bytes.empty(); --changes) {
    const std::size_t at = random() % bytes.size();
    switch (random() % 3) {
      case 0:
        bytes[at] = static_cast<char>(random());
        break;
      case 1:
        bytes[at] = bytes[random() % bytes.size()];
        break;
      default:
        bytes.resize(at);
    }
  }
  return bytes;
}

void ExpectSound(const BoardSet& set) {
  for (int n = 1; n <= set.LastBoard; ++n) {
    for (const std::uint8_t hand : set.At(n).Cards) ASSERT_LE(hand, kWest);
  }
}

TEST(DamagedRecords, AreRefusedOrMakeASoundSet) {
  std::mt19937 random(1);
  for (int i = 0; i < 2000; ++i) {
    const BoardSet set = RandomSet(random, 1, static_cast<int>(random() % 3) + 1);
    for (const Codec& codec : kCodecs) {
      BoardSet back = EmptySet(1, 0);
      FileNumbers numbers;
      const auto fault =
          ParseFixedRecords(Damaged(random, codec.Compose(set)), codec.Name, back, numbers, kTexts);
      EXPECT_TRUE(fault ? !fault->Text.empty() : back.Exists()) << codec.Name;
      ExpectSound(back);
    }
    BoardSet back = EmptySet(1, 0);
    const auto fault = ParseBre(Damaged(random, BreBytes(set)), back, kTexts);
    EXPECT_TRUE(fault || back.Exists());
    ExpectSound(back);
  }
}

}  // namespace
}  // namespace morvane::files
