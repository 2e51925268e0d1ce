#include <filesystem>
#include <numeric>

#include "maintenance/service_file_desk.h"
#include "maintenance/service_file_reader.h"
#include "platform/files.h"

// A service file held against the simulated machine that it tells of.

namespace morvane::maintenance {
namespace {

using simulator::IndexRecord;
using ::testing::ElementsAreArray;

class ServiceFileOfASimulatedMachine : public ConsoleDesk {
 protected:
  std::vector<test::Bytes> lines;  ///< of pictures, as the machine said them
  std::function<void()> WhenKnown;

  /// Its lines, [n] being line n.
  std::vector<std::string> Make(const std::string& options) {
    std::filesystem::create_directory(desk.Prog.Paths.Data);
    Start(options);
    if (WhenKnown) WhenKnown();
    Damage = [this](const test::Bytes& plain, const test::Bytes& wire) {
      if (plain[0] == 0x01) lines.push_back(test::OffTheWire(wire, 21));
      return wire;
    };
    console->Email();
    return LinesIn(test::Content(console->ServiceFiles().Written));
  }
  [[nodiscard]] static std::string RecordText(const IndexRecord& record) {
    const auto& at = record.Positions;
    const auto& symbol = record.Symbol.Limits;
    const auto& suit = record.Suit.Limits;
    std::string text;
    for (const int value : {at.PosX, at.PosY, at.StartX, at.StartY, symbol.MinX, symbol.MinY,
                            symbol.MaxX, symbol.MaxY, suit.MinX, suit.MinY, suit.MaxX, suit.MaxY}) {
      text += (text.empty() ? "" : ",") + std::to_string(value);
    }
    return text;
  }
  /// The 128 pixels of a frame in hexadecimal.
  [[nodiscard]] static std::string HexOf(const test::Bytes& frame) {
    return std::accumulate(frame.begin() + 8, frame.begin() + 136, std::string(),
                           [](std::string text, std::uint8_t v) { return text + Hex2(v); });
  }
};

TEST_F(ServiceFileOfASimulatedMachine, HoldsWhatTheMachineHolds) {
  const auto file = Make("serial=815,hardware=0x6F,firmware=2.95,boot=1.30,card=D3");
  ASSERT_EQ(file.size(), 415U);
  EXPECT_EQ(file[2].substr(0, 26), "815,0,14.6.2019,111,2.95,4");
  const auto& records = sim->Parameters().Records;
  EXPECT_EQ(file[6], RecordText(records[0]));
  EXPECT_EQ(file[7], RecordText(records[1]));
  EXPECT_EQ(file[8], RecordText(records[2]));
  EXPECT_NE(file[6], file[7]);
  EXPECT_NE(file[7], file[8]);
  EXPECT_EQ(file[5], "0,0,0,0,0,0,0," + std::to_string(records[0].ParamId) + ",0");
  EXPECT_EQ(file[9], "50,40,50,40");
  EXPECT_EQ(file[413], std::to_string(sim->Parameters().Video.BoardSen) + ",128,128");
  EXPECT_EQ(file[410].substr(0, 10), "01.30,3.7,");
  // At speed 0 the motors are at 14500 at once; they cost 0.3 volts, the camera 0.1.
  EXPECT_EQ(file[3], "1,0,0,0,1,1,0,0,OFF,OFF,ON,ON,25.3,23.6,0");
  EXPECT_EQ(file[4], "14500,14500,14500,14500,35,35,35,35,35") << "no sensor is covered";
  EXPECT_EQ(file[405], "8A4107D30C95E236,4DB8016FF00A23C7");
  EXPECT_EQ(file[406].substr(0, 6), "0,0,0,") << "the machine stands";
  const auto& symbol = console->Bench().SymbolBox();
  EXPECT_EQ(symbol.XMax - symbol.XMin - 1, 24) << "the size that the print has";
  EXPECT_EQ(symbol.YMax - symbol.YMin - 1, 40);
  EXPECT_THAT(file[396], ::testing::EndsWith(",24,40,22,28"));
  EXPECT_EQ(file[412].substr(0, file[412].find(',')), std::to_string(symbol.XMin));
}

TEST_F(ServiceFileOfASimulatedMachine, HasBothPicturesToThePixel) {
  const auto file = Make("card=D3");
  ASSERT_EQ(lines.size(), 384U);
  for (std::size_t y = 0; y < 192; ++y) {
    ASSERT_EQ(file[10 + y], HexOf(lines[y])) << "grey line " << y;
    ASSERT_EQ(file[203 + y], HexOf(lines[192 + y])) << "label line " << y;
  }
  EXPECT_NE(file[60], file[253]) << "the labels do not stand in both";
}

TEST_F(ServiceFileOfASimulatedMachine, NamesTheCardInFrontOfTheCamera) {
  const auto file = Make("card=D3");
  EXPECT_EQ(file[396].substr(0, 11), "OK,46,46,3,");
  EXPECT_EQ(file[396].substr(11, 2), "D,");
}

TEST_F(ServiceFileOfASimulatedMachine, CountsWhatTheMachineCounts) {
  WhenKnown = [this] {
    // Board 1 stops with code 30, which each of the two tries counts.
    for (int i = 0; i < 2; ++i) {
      machine.Exchange(wire::StartCommand{});
      machine.Exchange(wire::StatusCommand{});
      machine.Exchange(wire::StatusCommand{});
    }
    link.Write(wire::SetCounterCommand{77});
  };
  const auto file = Make("fault=1:1:30,fault=1:1:45");
  EXPECT_EQ(file[397].substr(0, 5), "77,0,");
  const auto& counted = sim->Memory().Counted;
  EXPECT_EQ(counted.Stops[30] + counted.Stops[45], 2U);
  std::vector<std::uint32_t> expected(256);
  std::copy(counted.Stops.begin(), counted.Stops.end(), expected.begin());
  expected[0] = counted.BoardsDealt;
  std::vector<std::uint32_t> found;
  for (std::size_t line = 397; line <= 404; ++line) {
    std::string rest = file[line] + ",";
    for (std::size_t end = 0; (end = rest.find(',')) != std::string::npos; rest.erase(0, end + 1)) {
      found.push_back(static_cast<std::uint32_t>(std::stoul(rest.substr(0, end))));
    }
  }
  EXPECT_THAT(found, ElementsAreArray(expected));
}

TEST_F(ServiceFileOfASimulatedMachine, IsReadBackWhole) {
  Make("card=DA");
  const auto read = ServiceFileIn(test::Content(console->ServiceFiles().Written));
  EXPECT_EQ(read.Fault(), std::nullopt);
  EXPECT_EQ(read.Lines, 413) << "the last one is empty";
  EXPECT_EQ(read.File["Symbol"] + read.File["Suit"], "AD");
  for (int y = 0; y < 192; ++y) {
    for (int x = 0; x < 128; ++x) {
      ASSERT_EQ(read.File.LabelImage.At(x, y), pictures->LabelImage.At(x, y));
    }
  }
}

}  // namespace
}  // namespace morvane::maintenance
