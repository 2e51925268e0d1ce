#pragma once

#include <array>
#include <string>
#include <string_view>

#include "maintenance/picture_store.h"
#include "wire/picture_replies.h"

namespace morvane::maintenance {

/// What a field of a service file may hold beside nothing: any text, or a number in these bounds.
struct FieldRange {
  int Lowest = 0;
  int Highest = -1;

  [[nodiscard]] constexpr bool IsText() const { return Highest < Lowest; }
};

/// A field that a line of the file has, by the system's name for its box.
struct ServiceField {
  int Line;
  std::string_view Name;
  FieldRange Range = {};
  int Parts = 1;  ///< so many fields of the line make it up, with their commas
};

inline constexpr FieldRange kAnyText{};
inline constexpr FieldRange kFlag{0, 1};
inline constexpr FieldRange kByteRange{0, 255};
inline constexpr FieldRange kSpeedRange{-32768, 32767};

/// In the order of the file. A line that is not among these has content of its own kind.
inline constexpr std::array<ServiceField, 73> kServiceFields{{
    {2, "Serial_number"},
    {2, "Boards_dealed"},
    {2, "Manuf_date"},
    {2, "Hardware_ID"},
    {2, "Soft_ver"},
    {2, "Down_ID"},
    {2, "txtUSB_ID"},
    {2, "Flash_ID_text"},
    {2, "USB_driver"},
    {2, "DLLver"},
    {3, "Motors", kFlag},
    {3, "Gate1", kFlag},
    {3, "Gate2", kFlag},
    {3, "Gate3", kFlag},
    {3, "Cam_leds", kFlag},
    {3, "Cam_power", kFlag},
    {3, "Front_green_led", kFlag},
    {3, "Front_Red_Led", kFlag},
    {3, "Front_Switch"},
    {3, "Box_Switch"},
    {3, "Cover_Switch"},
    {3, "Flip_Switch"},
    {3, "Inside_temp"},
    {3, "Supply_volt"},
    {3, "Board_no_txt"},
    {4, "Motor_speed_4", kSpeedRange},
    {4, "Motor_speed_3", kSpeedRange},
    {4, "Motor_speed_2", kSpeedRange},
    {4, "Motor_speed_1", kSpeedRange},
    {4, "Photo5"},
    {4, "Photo4"},
    {4, "Photo3"},
    {4, "Photo2"},
    {4, "Photo1"},
    {5, "National digit", {0, 6}},
    {5, "CardType digit", {0, 1}},
    {5, "Threshold digit", {0, 2}},
    {5, "CardIndex digit", {0, 2}},
    {5, "Ignore_flip", kFlag},
    {5, "Ignore_box", kFlag},
    {5, "Use_Board", kFlag},
    {5, "param_ID"},
    {5, "Reco_option_txt"},
    {9, "Bold_th_txt"},
    {9, "Fine_th_txt"},
    {9, "Bold_th1_txt"},
    {9, "Fine_th1_txt"},
    {396, "Reco_error"},
    {396, "Threshold", kAnyText, 2},
    {396, "Symbol"},
    {396, "Suit"},
    {396, "Symbol_size_x"},
    {396, "Symbol_size_y"},
    {396, "Suit_size_x"},
    {396, "Suit_size_y"},
    {405, "Die_ID"},
    {405, "Set_ID"},
    {410, "Boot_ver"},
    {410, "FPGA_ver"},
    {410, "Focus"},
    {410, "LastSwitchByte", kByteRange},
    {411, "Reco_param1"},
    {411, "Reco_param2"},
    {411, "Cap_time"},
    {411, "Reco_time"},
    {411, "Board_no_test_txt"},
    {411, "Test6"},
    {411, "Test7"},
    {411, "HoldS"},
    {411, "HoldC"},
    {413, "Board_Sen"},
    {413, "Video_Brightness"},
    {413, "Video_Contrast"},
}};

/// Which of `kServiceFields`; a name that is none of theirs does not compile.
struct ServiceFieldName {
  // NOLINTNEXTLINE(google-explicit-constructor): a name stands for its field
  consteval ServiceFieldName(const char* name) : At(PlaceOf(name)) {}
  explicit constexpr ServiceFieldName(std::size_t at) : At(at) {}
  std::size_t At;

 private:
  static consteval std::size_t PlaceOf(std::string_view name) {
    std::size_t at = 0;
    while (kServiceFields.at(at).Name != name) ++at;
    return at;
  }
};

// How the lines that have no named fields are arranged.

namespace service_line {

struct Range {
  int First;
  int Last;
  [[nodiscard]] constexpr bool Has(int line) const { return line >= First && line <= Last; }
};
inline constexpr Range kInfo{1, 1};
inline constexpr Range kRecords{6, 8};
inline constexpr Range kGrey{10, 201};  ///< a row of the picture each, 256 hexadecimal digits
inline constexpr Range kLabels{203, 394};
inline constexpr Range kCounters{397, 404};
inline constexpr Range kTestBytes{406, 409};
inline constexpr Range kFrames{412, 412};

}  // namespace service_line

/// Of the counters and of the test bytes.
inline constexpr std::size_t kNumbersOfLine = 32;
/// In the order in which the frames' line has them.
inline constexpr std::array kFrameEdges{&wire::SymbolFrame::XMin, &wire::SymbolFrame::XMax,
                                        &wire::SymbolFrame::YMin, &wire::SymbolFrame::YMax};

/// The content of a service file: what a technician at a distance would ask for. The texts are
/// those of the console's boxes; empty where nothing is known.
struct ServiceFile {
  static constexpr int kLines = 414;

  std::string Info;  ///< line 1
  /// A record's texts by `kRecordNames`, the records by `CardSettings::Index`.
  using Record = std::array<std::string, 12>;
  std::array<Record, 3> Records;
  PixelPlane CardImage;
  PixelPlane LabelImage;
  std::array<std::string, 256> ErrorCounters;
  std::array<std::string, 128> TestBytes;
  wire::SymbolFrame SymbolBox;
  wire::SymbolFrame SuitBox;

  /// `file["Serial_number"]`.
  [[nodiscard]] std::string& operator[](ServiceFieldName name) { return texts_[name.At]; }
  [[nodiscard]] const std::string& operator[](ServiceFieldName name) const {
    return texts_[name.At];
  }

 private:
  std::array<std::string, kServiceFields.size()> texts_;
};

/// In the order of a record's line.
inline constexpr std::array<std::string_view, 12> kRecordNames{
    "pos_x",     "pos_y",     "start_x",    "start_y",    "Sym_x_min",  "Sym_y_min",
    "Sym_x_max", "Sym_y_max", "Suit_x_min", "Suit_y_min", "Suit_x_max", "Suit_y_max"};
/// The line of the machine that has no such record.
[[nodiscard]] ServiceFile::Record NoRecord();

/// The bytes of the file: 414 lines, each with CR LF.
[[nodiscard]] std::string BytesOf(const ServiceFile& file);

}  // namespace morvane::maintenance
