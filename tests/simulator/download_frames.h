#pragma once

#include "simulator/talk.h"

namespace morvane::simulator {

// A firmware as a program sends it, made from the byte tables by hand.

/// The piece behind its header of 16 bytes, whose length stands at `lengthAt`, in whole blocks of
/// 128 bytes and one more, of zeros.
inline Bytes ImageOf(const Bytes& piece, std::size_t lengthAt) {
  const std::size_t n = piece.size() + 16;
  Bytes image(16);
  image[lengthAt] = static_cast<std::uint8_t>(n >> 8U);
  image[lengthAt + 1] = static_cast<std::uint8_t>(n);
  image.insert(image.end(), piece.begin(), piece.end());
  image.resize(n / 128 * 128 + 256);
  unsigned sum = 0;
  for (std::size_t i = 0; i < image.size(); ++i) sum += i % 2 == 0 ? image[i] * 256U : image[i];
  for (std::size_t i = 7; i >= 4; --i, sum >>= 8U) image[i] = static_cast<std::uint8_t>(sum);
  return image;
}

inline Bytes CodeImage(const Bytes& code) { return ImageOf(code, 0); }
inline Bytes BitImage(const Bytes& bitstream) { return ImageOf(bitstream, 2); }

/// A code of `size` bytes, 18 at least, with this version: its bytes 16 and 17, which are 20h and
/// 21h of the image.
inline Bytes CodeOfVersion(std::uint8_t major, std::uint8_t minor, std::size_t size = 20) {
  Bytes code(size, 1);
  code.at(16) = major;
  code.at(17) = minor;
  return code;
}

/// Block `b` of an image; that of a bitstream is sent with `high` = 2.
inline Bytes BlockFrame(const Bytes& image, std::size_t b, std::uint8_t high = 0) {
  Bytes frame{
      170, 98, static_cast<std::uint8_t>((b >> 8U) + high), static_cast<std::uint8_t>(b), 7, 8,
      9,   0};
  const auto at = image.begin() + static_cast<std::ptrdiff_t>(128 * b);
  frame.insert(frame.end(), at, at + 128);
  return frame;
}

inline const Bytes kStartFrame{41, 95, 1, 2, 3, 4, 5};

/// Start, the blocks of the code from 1 on, those of the bitstream, and both first blocks, the
/// code's behind all.
inline std::vector<Bytes> DownloadOf(const Bytes& code, const Bytes& bitstream) {
  std::vector<Bytes> frames{kStartFrame};
  const Bytes codeImage = CodeImage(code);
  const Bytes bitImage = BitImage(bitstream);
  for (std::size_t b = 1; 128 * b <= code.size() + 16; ++b) {
    frames.push_back(BlockFrame(codeImage, b));
  }
  for (std::size_t b = 1; 128 * b <= bitstream.size() + 16; ++b) {
    frames.push_back(BlockFrame(bitImage, b, 2));
  }
  frames.push_back(BlockFrame(bitImage, 0, 2));
  frames.push_back(BlockFrame(codeImage, 0));
  return frames;
}

/// The one that can be followed on paper: code 20 bytes of 01, bitstream 300 of 02.
inline std::vector<Bytes> SmallDownload() { return DownloadOf(Bytes(20, 1), Bytes(300, 2)); }

/// Sends all of them; the status of the last answer.
inline int Send(Talk& talk, const std::vector<Bytes>& frames) {
  int status = -1;
  for (const Bytes& frame : frames) {
    const Bytes reply = talk.Ask(frame);
    if (reply.size() != 8) return -1;
    status = reply[1];
  }
  return status;
}

inline void DropLatch(Talk& talk) {
  talk.Machine.TakeLatch(true);
  talk.Machine.TakeLatch(false);
}

/// Firmware and boot code, two bytes each; the latter are zeros without firmware.
inline Bytes VersionOf(Talk& talk) {
  const Bytes reply = talk.Ask({26});
  return {reply.at(1), reply.at(2), reply.at(3), reply.at(4)};
}
inline bool HasFirmware(Talk& talk) {
  const Bytes version = VersionOf(talk);
  return version[2] != 0 || version[3] != 0;
}

}  // namespace morvane::simulator
