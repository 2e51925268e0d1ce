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

TEST(RecordRoundTrip, EverySetComesBackAsItWas) {
  std::mt19937 random(20260303);
  for (int i = 0; i < 100; ++i) {
    const BoardSet set = RandomSet(random, 1, static_cast<int>(random() % 40) + 1);
    for (const Codec& codec : kCodecs) {
      BoardSet back = EmptySet(1, 0);
      FileNumbers numbers;
      ASSERT_FALSE(ParseFixedRecords(codec.Compose(set), codec.Name, back, numbers, kTexts));
      EXPECT_EQ(back.LastBoard, set.LastBoard);
      EXPECT_TRUE(back.Boards == set.Boards) << codec.Name;
      EXPECT_EQ(numbers.Last, codec.Name == std::string("DUP") ? set.LastBoard : 0);
    }
  }
}

TEST(RecordRoundTrip, BreKeepsEventTextsAndIncompleteBoards) {
  std::mt19937 random(640);
  const std::vector<std::string> texts = {"",
                                          "Evening",
                                          "Caf\xC3\xA9",
                                          "\xC3\x83\xC2\xA9",
                                          "\xE2\x82\xAC",
                                          "\xC5\x81",
                                          "\xEF\xBB\xBFx",
                                          "a\rb",
                                          "\"#%"};
  for (int i = 0; i < 300; ++i) {
    BoardSet set = RandomSet(random, 1, static_cast<int>(random() % 20) + 1,
                             static_cast<unsigned>(random() % 9));
    set.EventName = texts[random() % texts.size()];
    set.EventSite = texts[random() % texts.size()];
    set.EventDate = texts[random() % texts.size()];
    BoardSet back = EmptySet(1, 0);
    ASSERT_FALSE(ParseBre(BreBytes(set), back, kTexts));
    EXPECT_TRUE(back.Boards == set.Boards);
    EXPECT_EQ(back.EventName, set.EventName);
    EXPECT_EQ(back.EventSite, set.EventSite);
    EXPECT_EQ(back.EventDate, set.EventDate);
  }
}

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

TEST(RecordRoundTrip, DamagedFilesAreRefusedOrMakeASoundSet) {
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
