#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <tuple>
#include <type_traits>

#include "wire/card_bytes.h"
#include "wire/frame.h"

// A frame is a struct with its code in `Code` and its table in `Fields`: a row a field, with the
// byte where it stands, its width and the member that it belongs to. `Put` and `Get` go through the
// same rows, so each field is declared once. Bytes that no row names stay as they are.

namespace morvane::wire {

/// A whole byte, of which only the bits of `Mask` count in both directions.
template <typename F>
struct ByteRow {
  std::size_t At;
  std::uint8_t F::*Member;
  std::uint8_t Mask;
  void Put(const F& fields, Frame& frame) const {
    frame[At] = static_cast<std::uint8_t>(fields.*Member & Mask);
  }
  void Get(const Frame& frame, F& fields) const {
    fields.*Member = static_cast<std::uint8_t>(frame[At] & Mask);
  }
};

/// A byte that is left as it stands, which is random, while its member is empty.
template <typename F>
struct OptionalByteRow {
  std::size_t At;
  std::optional<std::uint8_t> F::*Member;
  void Put(const F& fields, Frame& frame) const {
    if (fields.*Member) frame[At] = *(fields.*Member);
  }
  void Get(const Frame& frame, F& fields) const { fields.*Member = frame[At]; }
};

/// A byte that is 1 for true; any other is false.
template <typename F>
struct FlagRow {
  std::size_t At;
  bool F::*Member;
  void Put(const F& fields, Frame& frame) const { frame[At] = fields.*Member ? 1 : 0; }
  void Get(const Frame& frame, F& fields) const { fields.*Member = frame[At] == 1; }
};

/// One bit of a byte that several rows share.
template <typename F>
struct BitRow {
  std::size_t At;
  std::uint8_t Mask;
  bool F::*Member;
  void Put(const F& fields, Frame& frame) const {
    const unsigned others = frame[At] & ~unsigned{Mask};
    frame[At] = static_cast<std::uint8_t>(others | (fields.*Member ? Mask : 0U));
  }
  void Get(const Frame& frame, F& fields) const { fields.*Member = (frame[At] & Mask) != 0; }
};

/// A number of as many bytes as its type has, most significant byte first.
template <typename F, typename T>
struct NumberRow {
  std::size_t At;
  T F::*Member;
  void Put(const F& fields, Frame& frame) const {
    std::uint32_t rest = fields.*Member;
    for (std::size_t i = sizeof(T); i > 0; --i, rest >>= 8U) {
      frame[At + i - 1] = static_cast<std::uint8_t>(rest);
    }
  }
  void Get(const Frame& frame, F& fields) const {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) value = value << 8U | frame[At + i];
    fields.*Member = static_cast<T>(value);
  }
};

/// A number of two bytes, least significant byte first, as the machine sends what it measures.
template <typename F>
struct MeasureRow {
  std::size_t At;
  std::uint16_t F::*Member;
  void Put(const F& fields, Frame& frame) const {
    frame[At] = static_cast<std::uint8_t>(fields.*Member);
    frame[At + 1] = static_cast<std::uint8_t>(fields.*Member >> 8U);
  }
  void Get(const Frame& frame, F& fields) const {
    fields.*Member = static_cast<std::uint16_t>(frame[At] | frame[At + 1] << 8U);
  }
};

/// An array of numbers, each as `NumberRow`.
template <typename F, typename T, std::size_t N>
struct NumbersRow {
  struct One {
    T Value;
  };
  std::size_t At;
  std::array<T, N> F::*Member;
  void Put(const F& fields, Frame& frame) const {
    for (std::size_t i = 0; i < N; ++i) Row(i).Put({(fields.*Member)[i]}, frame);
  }
  void Get(const Frame& frame, F& fields) const {
    for (std::size_t i = 0; i < N; ++i) {
      One one{};
      Row(i).Get(frame, one);
      (fields.*Member)[i] = one.Value;
    }
  }
  [[nodiscard]] NumberRow<One, T> Row(std::size_t i) const {
    return {At + i * sizeof(T), &One::Value};
  }
};

/// The elements of an array from `First` on, a byte each, of which only the bits of `Mask` count.
template <typename F, std::size_t N>
struct ArrayRow {
  std::size_t At;
  std::array<std::uint8_t, N> F::*Member;
  std::size_t First;
  std::uint8_t Mask;
  void Put(const F& fields, Frame& frame) const {
    for (std::size_t i = First; i < N; ++i) {
      frame[At + i - First] = static_cast<std::uint8_t>((fields.*Member)[i] & Mask);
    }
  }
  void Get(const Frame& frame, F& fields) const {
    for (std::size_t i = First; i < N; ++i) {
      (fields.*Member)[i] = static_cast<std::uint8_t>(frame[At + i - First] & Mask);
    }
  }
};

/// Bytes that stand apart, each `Step` behind the one before.
template <typename F, std::size_t N>
struct SpacedRow {
  std::size_t At;
  std::size_t Step;
  std::array<std::uint8_t, N> F::*Member;
  void Put(const F& fields, Frame& frame) const {
    for (std::size_t i = 0; i < N; ++i) frame[At + Step * i] = (fields.*Member)[i];
  }
  void Get(const Frame& frame, F& fields) const {
    for (std::size_t i = 0; i < N; ++i) (fields.*Member)[i] = frame[At + Step * i];
  }
};

/// The first `Count` places of a list by machine card.
template <typename F>
struct CardsRow {
  std::size_t At;
  std::size_t Count;
  CardBytes F::*Member;
  void Put(const F& fields, Frame& frame) const {
    std::copy_n((fields.*Member).Bytes.begin(), Count, frame.begin() + At);
  }
  void Get(const Frame& frame, F& fields) const {
    std::copy_n(frame.begin() + At, Count, (fields.*Member).Bytes.begin());
  }
};

/// A list by machine card of which the sender sets as many places as `Count` says, 55 at most;
/// the receiver takes all.
template <typename F>
struct SomeCardsRow {
  std::size_t At;
  CardBytes F::*Member;
  std::size_t F::*Count;
  void Put(const F& fields, Frame& frame) const {
    CardsRow<F>{At, std::min(fields.*Count, CardBytes::kPlaces), Member}.Put(fields, frame);
  }
  void Get(const Frame& frame, F& fields) const {
    CardsRow<F>{At, CardBytes::kPlaces, Member}.Get(frame, fields);
    fields.*Count = CardBytes::kPlaces;
  }
};

/// The entry of a table at the member's value; what comes back says nothing new.
template <typename F, std::size_t N>
struct TableRow {
  std::size_t At;
  std::array<std::uint8_t, N> Table;
  std::uint8_t F::*Member;
  void Put(const F& fields, Frame& frame) const { frame[At] = Table[fields.*Member % N]; }
  void Get(const Frame& /*frame*/, F& /*fields*/) const {}
};

/// Bytes that are always 0.
struct ZerosRow {
  std::size_t At;
  std::size_t Count;
  template <typename F>
  void Put(const F& /*fields*/, Frame& frame) const {
    std::fill_n(frame.begin() + At, Count, std::uint8_t{0});
  }
  template <typename F>
  void Get(const Frame& /*frame*/, F& /*fields*/) const {}
};

/// A byte that is always the same.
struct ConstantRow {
  std::size_t At;
  std::uint8_t Value;
  template <typename F>
  void Put(const F& /*fields*/, Frame& frame) const {
    frame[At] = Value;
  }
  template <typename F>
  void Get(const Frame& /*frame*/, F& /*fields*/) const {}
};

/// The rows of a part that several frames have in common.
template <typename F, typename P>
struct PartRow {
  P F::*Member;
  void Put(const F& fields, Frame& frame) const { PutRows(fields.*Member, frame); }
  void Get(const Frame& frame, F& fields) const { GetRows(frame, fields.*Member); }
};

// How a table names its rows.

template <typename F>
constexpr ByteRow<F> Byte(std::size_t at, std::uint8_t F::*member, std::uint8_t mask = 0xFF) {
  return {at, member, mask};
}
template <typename F>
constexpr OptionalByteRow<F> Byte(std::size_t at, std::optional<std::uint8_t> F::*member) {
  return {at, member};
}
template <typename F>
constexpr FlagRow<F> Flag(std::size_t at, bool F::*member) {
  return {at, member};
}
template <typename F>
constexpr BitRow<F> Bit(std::size_t at, unsigned bit, bool F::*member) {
  return {at, static_cast<std::uint8_t>(1U << bit), member};
}
template <typename F, typename T>
constexpr NumberRow<F, T> Number(std::size_t at, T F::*member) {
  return {at, member};
}
template <typename F>
constexpr MeasureRow<F> Measure(std::size_t at, std::uint16_t F::*member) {
  return {at, member};
}
template <typename F, typename T, std::size_t N>
constexpr NumbersRow<F, T, N> Numbers(std::size_t at, std::array<T, N> F::*member) {
  return {at, member};
}
template <typename F, std::size_t N>
constexpr ArrayRow<F, N> Array(std::size_t at, std::array<std::uint8_t, N> F::*member,
                               std::size_t first = 0, std::uint8_t mask = 0xFF) {
  return {at, member, first, mask};
}
template <typename F, std::size_t N>
constexpr SpacedRow<F, N> Spaced(std::size_t at, std::size_t step,
                                 std::array<std::uint8_t, N> F::*member) {
  return {at, step, member};
}
template <typename F>
constexpr CardsRow<F> Cards(std::size_t at, std::size_t count, CardBytes F::*member) {
  return {at, count, member};
}
template <typename F>
constexpr SomeCardsRow<F> Cards(std::size_t at, CardBytes F::*member, std::size_t F::*count) {
  return {at, member, count};
}
template <typename F, std::size_t N>
constexpr TableRow<F, N> FromTable(std::size_t at, const std::array<std::uint8_t, N>& table,
                                   std::uint8_t F::*member) {
  return {at, table, member};
}
constexpr ZerosRow Zeros(std::size_t at, std::size_t count = 1) { return {at, count}; }
constexpr ConstantRow Always(std::size_t at, std::uint8_t value) { return {at, value}; }
template <typename F, typename P>
constexpr PartRow<F, P> Part(P F::*member) {
  return {member};
}

// Both directions.

template <typename F>
void PutRows(const F& fields, Frame& frame) {
  std::apply([&](const auto&... row) { (row.Put(fields, frame), ...); }, F::Fields);
}
template <typename F>
void GetRows(const Frame& frame, F& fields) {
  std::apply([&](const auto&... row) { (row.Get(frame, fields), ...); }, F::Fields);
}

/// Writes the code, where the frame has only one, and the fields into `frame`.
template <typename F>
void Put(const F& fields, Frame& frame) {
  if constexpr (std::is_same_v<decltype(&F::Code), const std::uint8_t*>) SetCode(frame, F::Code);
  PutRows(fields, frame);
}

/// The fields of `frame`. It does not look at the code: the caller has.
template <typename F>
[[nodiscard]] F Get(const Frame& frame) {
  F fields{};
  GetRows(frame, fields);
  return fields;
}

}  // namespace morvane::wire
