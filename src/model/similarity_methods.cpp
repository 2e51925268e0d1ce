#include <algorithm>
#include <vector>

#include "model/similarity.h"

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#define MORVANE_X86_METHODS
#endif

// Sixteen counts a pair of boards, and up to 20,000 pairs for each deal that is made: the program
// is built for every processor of its family and looks at run time what this one can do.

namespace morvane {
namespace {

std::size_t InPlainCode(const HandMasks& board, std::span<const HandMasks> boards, int than) {
  const auto found = std::find_if(boards.begin(), boards.end(), [&](const HandMasks& other) {
    return CompareHands(board, other).Cards > than;
  });
  return static_cast<std::size_t>(found - boards.begin());
}

#ifdef MORVANE_X86_METHODS

[[gnu::target("popcnt")]] std::size_t WithPopcnt(const HandMasks& board,
                                                 std::span<const HandMasks> boards, int than) {
  for (std::size_t at = 0; at < boards.size(); ++at) {
    long long most = 0;
    for (const std::uint64_t own : board.Hands) {
      for (const std::uint64_t other : boards[at].Hands) {
        most = std::max<long long>(most, _mm_popcnt_u64(own & other));
      }
    }
    if (most > than) return at;
  }
  return boards.size();
}

// The vector methods hold the four hands of a board side by side, and `board` in its four
// rotations, so that each of its hands meets each hand of the other.

[[gnu::target("avx2")]] __m256i FourHands(const HandMasks& masks) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(masks.Hands.data()));
}

/// In each quarter, how many cards the two hands there have in common.
[[gnu::target("avx2")]] inline __m256i InCommon(__m256i own, __m256i other) {
  const __m256i lowHalf = _mm256_set1_epi8(15);
  const __m256i bitsOf = _mm256_setr_epi8(0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4,  //
                                          0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4);
  const __m256i common = _mm256_and_si256(own, other);
  const __m256i low = _mm256_shuffle_epi8(bitsOf, _mm256_and_si256(common, lowHalf));
  const __m256i high =
      _mm256_shuffle_epi8(bitsOf, _mm256_and_si256(_mm256_srli_epi16(common, 4), lowHalf));
  return _mm256_sad_epu8(_mm256_add_epi8(low, high), _mm256_setzero_si256());
}

[[gnu::target("avx2")]] std::size_t WithAvx2(const HandMasks& board,
                                             std::span<const HandMasks> boards, int than) {
  const __m256i own0 = FourHands(board);
  const __m256i own1 = _mm256_permute4x64_epi64(own0, 0x39);
  const __m256i own2 = _mm256_permute4x64_epi64(own0, 0x4E);
  const __m256i own3 = _mm256_permute4x64_epi64(own0, 0x93);
  const __m256i limit = _mm256_set1_epi16(static_cast<short>(than));
  for (std::size_t at = 0; at < boards.size(); ++at) {
    const __m256i other = FourHands(boards[at]);
    // The sixteen counts, one in each 16 bits.
    const __m256i first =
        _mm256_or_si256(InCommon(own0, other), _mm256_slli_epi64(InCommon(own1, other), 16));
    const __m256i second =
        _mm256_or_si256(InCommon(own2, other), _mm256_slli_epi64(InCommon(own3, other), 16));
    const __m256i counts = _mm256_or_si256(first, _mm256_slli_epi64(second, 32));
    if (_mm256_movemask_epi8(_mm256_cmpgt_epi16(counts, limit)) != 0) return at;
  }
  return boards.size();
}

[[gnu::target("avx2,avx512vl,avx512vpopcntdq")]] std::size_t WithAvx512(
    const HandMasks& board, std::span<const HandMasks> boards, int than) {
  const __m256i own0 = FourHands(board);
  const __m256i own1 = _mm256_permute4x64_epi64(own0, 0x39);
  const __m256i own2 = _mm256_permute4x64_epi64(own0, 0x4E);
  const __m256i own3 = _mm256_permute4x64_epi64(own0, 0x93);
  const __m256i limit = _mm256_set1_epi64x(than);
  for (std::size_t at = 0; at < boards.size(); ++at) {
    const __m256i other = FourHands(boards[at]);
    const __m256i first = _mm256_max_epu32(_mm256_popcnt_epi64(_mm256_and_si256(own0, other)),
                                           _mm256_popcnt_epi64(_mm256_and_si256(own1, other)));
    const __m256i second = _mm256_max_epu32(_mm256_popcnt_epi64(_mm256_and_si256(own2, other)),
                                            _mm256_popcnt_epi64(_mm256_and_si256(own3, other)));
    if (_mm256_cmpgt_epi64_mask(_mm256_max_epu32(first, second), limit) != 0) return at;
  }
  return boards.size();
}

#endif

std::vector<SimilarityMethod> UsableMethods() {
  std::vector<SimilarityMethod> methods{{"plain code", InPlainCode}};
#ifdef MORVANE_X86_METHODS
  if (__builtin_cpu_supports("popcnt")) methods.push_back({"POPCNT", WithPopcnt});
  if (__builtin_cpu_supports("avx2")) methods.push_back({"AVX2", WithAvx2});
  if (__builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512vpopcntdq")) {
    methods.push_back({"AVX-512", WithAvx512});
  }
#endif
  return methods;
}

}  // namespace

std::span<const SimilarityMethod> SimilarityMethods() {
  static const std::vector<SimilarityMethod> usable = UsableMethods();
  return usable;
}

std::size_t FirstMoreAlike(const HandMasks& board, std::span<const HandMasks> boards, int than) {
  return SimilarityMethods().back().FirstMoreAlike(board, boards, than);
}

}  // namespace morvane
