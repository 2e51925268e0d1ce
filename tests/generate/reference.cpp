#include "generate/reference.h"

#include <algorithm>
#include <vector>

namespace morvane::generate::reference {

Digest Ripemd160(std::string_view message) {
  std::string padded(message);
  padded += '\x80';
  while (padded.size() % 64 != 56) padded += '\0';
  for (int shift = 0; shift < 64; shift += 8) {
    padded += static_cast<char>(std::uint64_t{message.size()} * 8 >> shift);
  }
  Digest chain{0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476, 0xC3D2E1F0};
  for (std::size_t start = 0; start < padded.size(); start += 64) {
    std::array<std::uint32_t, 16> block{};
    for (std::size_t i = 0; i < 64; ++i) {
      const auto byte = static_cast<unsigned char>(padded[start + i]);
      block[i / 4] += static_cast<std::uint32_t>(byte) << (8 * (i % 4));
    }
    Compress(chain, block);
  }
  return chain;
}

std::string DigestText(const Digest& digest) {
  std::string text;
  for (const std::uint32_t word : digest) {
    for (int i = 0; i < 4; ++i) {
      const std::uint32_t byte = word >> (8 * i) & 0xFF;
      text += "0123456789abcdef"[byte / 16];
      text += "0123456789abcdef"[byte % 16];
    }
  }
  return text;
}

namespace {

std::array<std::array<Wide, 14>, 53> ChooseTable() {
  std::array<std::array<Wide, 14>, 53> table{};
  for (std::size_t n = 0; n <= 52; ++n) {
    for (std::size_t k = 0; k <= std::min<std::size_t>(n, 13); ++k) {
      table[n][k] = 1;
      for (std::size_t i = 1; i <= k; ++i) table[n][k] = table[n][k] * (n - k + i) / i;
    }
  }
  return table;
}

}  // namespace

Wide Choose(int n, int k) {
  static const auto table = ChooseTable();
  return table[static_cast<std::size_t>(n)][static_cast<std::size_t>(k)];
}

Wide EncodeDeal(const Board& board) {
  Wide number = 0;
  std::vector<std::size_t> list;  // the cards left, the Two of Clubs first
  for (std::size_t card = 52; card > 0; --card) list.push_back(card);
  for (int h = 0; h < 4; ++h) {
    Wide handsToCome = 1;
    for (int i = 2; i <= 3 - h; ++i) handsToCome *= Choose(13 * i, 13);
    const int cardsLeft = (4 - h) * 13;
    std::vector<std::size_t> rest;
    int previous = 0;
    int passed = 0;  // cards of other hands before the i-th card of this one
    int i = 0;
    for (const std::size_t card : list) {
      if (board.Cards[card] != h + 1) {
        rest.push_back(card);
        ++passed;
        continue;
      }
      const Wide top = Choose(cardsLeft - previous - i, 13 - i);
      number += (top - Choose(cardsLeft - passed - i, 13 - i)) * handsToCome;
      previous = passed;
      ++i;
    }
    list = rest;
  }
  return number;
}

Wide WideOfBytes(const std::array<std::uint8_t, 12>& bytes) {
  Wide value = 0;
  for (const std::uint8_t byte : bytes) value = value * 256 + byte;
  return value;
}

std::array<std::uint8_t, 12> BytesOfWide(Wide value) {
  std::array<std::uint8_t, 12> bytes{};
  for (std::size_t i = 12; i > 0; --i, value /= 256) {
    bytes[i - 1] = static_cast<std::uint8_t>(value % 256);
  }
  return bytes;
}

}  // namespace morvane::generate::reference
