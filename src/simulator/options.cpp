#include "simulator/options.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "simulator/card_rank.h"
#include "simulator/flash.h"
#include "simulator/version_text.h"

namespace morvane::simulator {
namespace {

constexpr std::string_view kName = "simulated";
/// The key whose value may have commas.
constexpr std::string_view kPack = "pack";
constexpr double kFastest = 1000.0;
constexpr int kLastErrorCode = 240;
constexpr int kMostCards = 208;  // of a sort
constexpr int kLastNational = 6;
/// By `wire::CardIndex`.
constexpr std::array<std::string_view, 3> kIndexWords{"standard", "jumbo", "small"};
constexpr std::string_view kFlashed = "flashed";
constexpr std::string_view kSizeRange = "WIDTHxHEIGHT from 8x10 to 100x150";

/// The number that the whole text is, within `low`..`high`.
template <typename Number>
std::optional<Number> NumberIn(std::string_view text, Number low, Number high) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  if (!(number >= low && number <= high)) return std::nullopt;
  return number;
}

/// A decimal number, or a hexadecimal one behind "0x".
std::optional<std::uint64_t> DecimalOrHex(std::string_view text, std::uint64_t high) {
  if (!text.starts_with("0x") && !text.starts_with("0X")) {
    return NumberIn<std::uint64_t>(text, 0, high);
  }
  text.remove_prefix(2);
  std::uint64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number, 16);
  if (result.ec != std::errc() || result.ptr != end || number > high) return std::nullopt;
  return number;
}

/// Each of these takes the value of one key; false when it is no such value.
bool TakeSpeed(std::string_view value, Options& options) {
  const auto speed = NumberIn<double>(value, 0.0, kFastest);
  if (speed) options.Speed = *speed;
  return speed.has_value();
}

bool TakeFirmware(std::string_view value, Options& options) {
  return TakeVersion(value, options.FirmwareMajor, options.FirmwareMinor);
}

bool TakeBoot(std::string_view value, Options& options) {
  return TakeVersion(value, options.BootMajor, options.BootMinor);
}

bool TakeHardware(std::string_view value, Options& options) {
  const auto bits = DecimalOrHex(value, 0xFFFF);
  if (bits) options.Hardware = static_cast<std::uint16_t>(*bits);
  return bits.has_value();
}

bool TakeSerial(std::string_view value, Options& options) {
  const auto serial = NumberIn<std::uint16_t>(value, 0, 0xFFFF);
  if (serial) options.Serial = *serial;
  return serial.has_value();
}

bool TakeNoise(std::string_view value, Options& options) {
  const auto noise = NumberIn<double>(value, 0.0, 1.0);
  if (noise) options.Noise = *noise;
  return noise.has_value();
}

bool TakeSeed(std::string_view value, Options& options) {
  const auto seed = DecimalOrHex(value, UINT64_MAX);
  if (seed) options.Seed = *seed;
  return seed.has_value();
}

bool TakeFault(std::string_view value, Options& options) {
  const std::size_t first = value.find(':');
  const std::size_t second = value.find(':', first + 1);
  if (first == std::string_view::npos || second == std::string_view::npos) return false;
  const auto board = NumberIn<int>(value.substr(0, first), 1, 1'000'000);
  const auto card = NumberIn<int>(value.substr(first + 1, second - first - 1), 1, kMostCards);
  const auto code = NumberIn<int>(value.substr(second + 1), 1, kLastErrorCode);
  if (!board || !card || !code) return false;
  options.Faults.push_back({*board, *card, static_cast<std::uint8_t>(*code)});
  return true;
}

bool TakeDeck(std::string_view value, Options& options) {
  options.Flashed = value == kFlashed;
  return options.Flashed || value == "shuffled";
}

bool TakePacks(std::string_view value, Options& options) {
  const auto packs = NumberIn<int>(value, 1, 4);
  if (packs) options.Packs = *packs;
  return packs.has_value();
}

bool TakeCarry(std::string_view value, Options& options) {
  const auto way = CarryOf(value);
  if (way) options.FirstCarry = *way;
  return way.has_value();
}

bool TakeAnswersWrites(std::string_view value, Options& options) {
  options.AnswersWrites = value == "1";
  return value == "0" || value == "1";
}

bool TakeIndex(std::string_view value, Options& options) {
  const auto at = std::find(kIndexWords.begin(), kIndexWords.end(), value);
  if (at == kIndexWords.end()) return false;
  options.Index = static_cast<wire::CardIndex>(at - kIndexWords.begin());
  return true;
}

bool TakeLetters(std::string_view value, Options& options) {
  const auto letters = NumberIn<int>(value, 0, kLastNational);
  if (letters) options.Letters = *letters;
  return letters.has_value();
}

/// Two numbers with `between` between them.
struct Pair {
  int First;
  int Second;
};
std::optional<Pair> PairIn(std::string_view text, char between, Pair low, Pair high) {
  const std::size_t at = text.find(between);
  if (at == std::string_view::npos) return std::nullopt;
  const auto first = NumberIn<int>(text.substr(0, at), low.First, high.First);
  const auto second = NumberIn<int>(text.substr(at + 1), low.Second, high.Second);
  if (!first || !second) return std::nullopt;
  return Pair{*first, *second};
}

bool TakeIdeal(std::string_view value, Options& options) {
  const auto place = PairIn(value, '/', {1, 1}, {255, 255});
  if (place) options.Ideal = CameraPlace{place->First, place->Second};
  return place.has_value();
}

bool TakeSwap(std::string_view value, Options& options) {
  const auto places = PairIn(value, ':', {1, 1}, {kCards, kCards});
  if (!places || places->First == places->Second) return false;
  options.Swaps.push_back({places->First, places->Second});
  return true;
}

bool TakeBoard(std::string_view value, Options& options) {
  const auto board = NumberIn<int>(value, 1, Options::kLabels);
  if (board) options.Board = *board;
  return board.has_value();
}

bool TakeBoardSwitch(std::string_view value, Options& options) {
  const auto levels = PairIn(value, '/', {0, 0}, {255, 255});
  if (!levels || levels->First >= levels->Second) return false;
  options.BoardSwitch = {levels->First, levels->Second};
  return true;
}

bool TakeSize(std::string_view value, std::optional<PrintSize>& size) {
  const auto taken = PairIn(value, 'x', {8, 10}, {100, 150});
  if (taken) size = PrintSize{taken->First, taken->Second};
  return taken.has_value();
}

bool TakeSymbol(std::string_view value, Options& options) {
  return TakeSize(value, options.Symbol);
}

bool TakeSuit(std::string_view value, Options& options) { return TakeSize(value, options.Suit); }

bool TakeCard(std::string_view value, Options& options) {
  const auto card = MachineCardIn(value);
  if (card) options.Card = *card;
  return card.has_value();
}

bool TakeMisread(std::string_view value, Options& options) {
  const auto card = MachineCardIn(value);
  if (card) options.Misread = *card;
  return card.has_value();
}

bool TakeFocusMarker(std::string_view value, Options& options) {
  options.MarksFocus = value == "1";
  return value == "0" || value == "1";
}

std::optional<int> FlashStepIn(std::string_view text) {
  if (text == "start") return FlashFault::kStart;
  if (text == "erase-record") return FlashFault::kEraseRecord;
  if (text == "write-record") return FlashFault::kWriteRecord;
  const auto block = DecimalOrHex(text, Flash::kBlocks - 1);
  return block ? std::optional(static_cast<int>(*block)) : std::nullopt;
}

bool TakeFlash(std::string_view value, Options& options) {
  const std::size_t colon = value.find(':');
  if (colon == std::string_view::npos) return false;
  const auto step = FlashStepIn(value.substr(0, colon));
  const auto status = NumberIn<std::uint8_t>(value.substr(colon + 1), 0, 255);
  if (!step || !status) return false;
  options.FlashFaults.push_back({*step, *status});
  return true;
}

bool TakeErase(std::string_view value, Options& options) {
  const auto status = NumberIn<std::uint8_t>(value, 0, 255);
  if (status) options.EraseStatus = *status;
  return status.has_value();
}

bool TakeStore(std::string_view value, Options& options) {
  options.Store = value;
  return !value.empty();
}

bool TakePack(std::string_view value, Options& options) {
  options.Pack = value;
  return !value.empty();
}

struct Key {
  std::string_view Name;
  bool (*Take)(std::string_view value, Options& options);
  std::string_view Expected;
};

constexpr std::array<Key, 27> kKeyTable{{
    {"speed", TakeSpeed, "a number from 0 to 1000, 1 being the pace of a real machine"},
    {"firmware", TakeFirmware, "a version with two digits behind the point, such as 2.90"},
    {"boot", TakeBoot, "a version with two digits behind the point; 0.00 is no firmware"},
    {"hardware", TakeHardware, "a number from 0 to 65535, such as 0x7F"},
    {"serial", TakeSerial, "a number from 0 to 65535"},
    {"noise", TakeNoise, "a chance from 0 to 1, such as 0.001"},
    {"seed", TakeSeed, "a whole number of at most 64 bits"},
    {"fault", TakeFault, "BOARD:CARD:CODE with board from 1, card 1 to 208 and code 1 to 240"},
    {"deck", TakeDeck, "shuffled or flashed"},
    {"swap", TakeSwap, "A:B, two places from 1 to 52 that differ"},
    {"packs", TakePacks, "a number from 1 to 4"},
    {"carry", TakeCarry, kCarryList},
    {"answers-writes", TakeAnswersWrites, "0 or 1"},
    {"index", TakeIndex, "standard, jumbo or small"},
    {"letters", TakeLetters, "a number from 0 to 6"},
    {"ideal", TakeIdeal, "X/Y, both from 1 to 255"},
    {"symbol", TakeSymbol, kSizeRange},
    {"suit", TakeSuit, kSizeRange},
    {"card", TakeCard, kCardWords},
    {"misread", TakeMisread, kCardWords},
    {"focus-marker", TakeFocusMarker, "0 or 1"},
    {"board", TakeBoard, "a number from 1 to 70"},
    {"board-switch", TakeBoardSwitch, "LOST/SEEN, both from 0 to 255 and the first one below"},
    {"flash", TakeFlash,
     "BLOCK:STATUS with block 0 to 1023, start, erase-record or write-record, and status 0 to 255"},
    {"erase", TakeErase, "a status from 0 to 255"},
    {"store", TakeStore, "the path of a file, without commas"},
    {kPack, TakePack, "a board file; it stands last, for the rest of the text is its path"},
}};

/// The pair that `text` begins with.
std::string_view FirstPair(std::string_view text) {
  const bool isPack = text.starts_with(kPack) && text.substr(kPack.size()).starts_with('=');
  return isPack ? text : text.substr(0, text.find(','));
}

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string KeyList() {
  std::string list;
  for (const Key& key : kKeyTable) list += (list.empty() ? "" : ", ") + std::string(key.Name);
  return list;
}

std::optional<std::string> TakePair(std::string_view pair, Options& options) {
  const std::size_t equals = pair.find('=');
  const std::string_view name = pair.substr(0, equals);
  for (const Key& key : kKeyTable) {
    if (key.Name != name) continue;
    if (equals != std::string_view::npos && key.Take(pair.substr(equals + 1), options)) {
      return std::nullopt;
    }
    return "simulated machine: " + Quoted(pair) + ": " + std::string(name) + "= takes " +
           std::string(key.Expected);
  }
  return "simulated machine: unknown key in " + Quoted(pair) + "; the keys are " + KeyList();
}

}  // namespace

std::optional<std::string> ParseOptions(std::string_view text, Options& options) {
  std::string_view rest = text.substr(0, kName.size()) == kName ? text.substr(kName.size()) : "?";
  if (!rest.empty() && rest.front() != ',') return Quoted(text) + " is no simulated machine";
  Options read = options;
  while (!rest.empty()) {
    rest.remove_prefix(1);
    const std::string_view pair = FirstPair(rest);
    if (auto error = TakePair(pair, read)) return error;
    rest.remove_prefix(pair.size());
  }
  options = read;
  return std::nullopt;
}

std::vector<KeyWords> Keys() {
  std::vector<KeyWords> keys;
  keys.reserve(kKeyTable.size());
  for (const Key& key : kKeyTable) keys.push_back({key.Name, key.Expected});
  return keys;
}

std::string OptionsUsage(std::size_t indent) {
  const std::string next = "\n" + std::string(indent, ' ');
  return "simulated[,speed=1,firmware=2.90,boot=1.20,hardware=0x7F," + next +
         "serial=4711,noise=0,seed=N,fault=BOARD:CARD:CODE," + next +
         "deck=shuffled,swap=A:B,packs=4,carry=right," + next +
         "answers-writes=0,index=standard,letters=0,ideal=X/Y," + next +
         "symbol=WxH,suit=WxH,card=ST,misread=none,focus-marker=1," + next +
         "board=N,board-switch=101/120,flash=BLOCK:STATUS,erase=0," + next +
         "store=FILE,pack=FILE]";
}

}  // namespace morvane::simulator
