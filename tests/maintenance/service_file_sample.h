#pragma once

#include <string>
#include <vector>

#include "maintenance/service_file.h"

namespace morvane::maintenance {

/// A grey picture and labels of which every row differs from the others and from the other
/// picture's.
inline void DrawSample(ServiceFile& file) {
  for (int y = 0; y < PixelPlane::kHeight; ++y) {
    for (int x = 0; x < PixelPlane::kWidth; ++x) {
      file.CardImage.Set(x, y, static_cast<std::uint8_t>(x + y));
      file.LabelImage.Set(x, y, static_cast<std::uint8_t>((x / 3 + y / 5) % 4));
    }
  }
}

/// What each named field of the sample holds, line by line.
inline void NameSample(ServiceFile& file) {
  const std::vector<const char*> texts{
      // 2
      "4711", "123456", "5-Mar-2019", "127", "2.90", "3", "4711", "1", "6.7.0.0", "3.3.0.0",
      // 3
      "1", "0", "0", "0", "1", "1", "0", "1", "ON", "OFF", "OFF", "ON", "31.4", "12.1", "17",
      // 4
      "14500", "-1", "0", "32767", "15", "14", "13", "12", "11",
      // 5
      "6", "1", "2", "1", "0", "1", "0", "1900", "7",
      // 9
      "60", "61", "62", "63",
      // 396
      "OK", "90,95", "10", "H", "19", "29", "21", "31",
      // 405
      "0102030405060708", "A1A2A3A4A5A6A7A8",
      // 410
      "1.02", "2.3", "N/A", "37",
      // 411
      "8", "9", "1234", "567", "15", "33", "44", "K", "",
      // 413
      "100", "128", "64"};
  for (std::size_t at = 0; at < texts.size(); ++at) file[ServiceFieldName(at)] = texts[at];
}

inline ServiceFile SampleServiceFile() {
  ServiceFile file;
  file.Info = "Service file 3/5/2019 4:05:06 PM Software ver: 4.17 Service ";
  NameSample(file);
  DrawSample(file);
  file.Records = {{{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"},
                   {"21", "22", "23", "24", "25", "26", "27", "28", "29", "30", "31", "255"},
                   {"0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0"}}};
  for (std::size_t i = 0; i < 256; ++i) file.ErrorCounters[i] = std::to_string(i * 100000);
  for (std::size_t i = 0; i < 128; ++i) file.TestBytes[i] = std::to_string(255 - i);
  file.SymbolBox = {10, 30, 40, 70};
  file.SuitBox = {11, 33, 80, 112};
  return file;
}

/// The lines of a file, each of which has to end with CR LF; [0] is none.
inline std::vector<std::string> ServiceLinesOf(const std::string& bytes) {
  std::vector<std::string> lines{""};
  std::size_t at = 0;
  for (std::size_t end = 0; (end = bytes.find("\r\n", at)) != std::string::npos; at = end + 2) {
    lines.push_back(bytes.substr(at, end - at));
  }
  if (at != bytes.size()) lines.emplace_back("a last line without an end");
  return lines;
}

/// The file of these lines, from [1] on.
inline std::string ServiceBytesOf(const std::vector<std::string>& lines,
                                  const std::string& end = "\r\n") {
  std::string bytes;
  for (std::size_t line = 1; line < lines.size(); ++line) bytes += lines[line] + end;
  return bytes;
}

}  // namespace morvane::maintenance
