#include "maintenance/service_file_reader.h"

#include <gmock/gmock.h>

#include "maintenance/service_file_sample.h"

namespace morvane::maintenance {
namespace {

using ::testing::HasSubstr;
using ::testing::Optional;
using ::testing::StartsWith;

const std::vector<std::string>& SampleLines() {
  static const std::vector<std::string> lines = ServiceLinesOf(BytesOf(SampleServiceFile()));
  return lines;
}

ServiceFileRead WithLine(std::size_t line, const std::string& text) {
  auto lines = SampleLines();
  lines[line] = text;
  return ServiceFileIn(ServiceBytesOf(lines));
}

/// The fault of a file that ends behind this line; nothing if that is only what is missing.
std::optional<int> FaultWithLine(std::size_t line, const std::string& text) {
  std::vector<std::string> lines(SampleLines().begin(),
                                 SampleLines().begin() + static_cast<std::ptrdiff_t>(line));
  lines.push_back(text);
  const auto fault = ServiceFileIn(ServiceBytesOf(lines)).Fault();
  return fault == static_cast<int>(line) + 1 ? std::nullopt : fault;
}

/// The places of the commas that a line's fields stand behind, and of its start.
std::vector<std::size_t> StartsOfFields(const std::string& line) {
  std::vector<std::size_t> starts{0};
  for (std::size_t at = 0; (at = line.find(',', at)) != std::string::npos;) starts.push_back(++at);
  return starts;
}

std::string WithField(const std::string& line, std::size_t start, const std::string& field) {
  const std::size_t end = std::min(line.find(',', start), line.size());
  return line.substr(0, start) + field + line.substr(end);
}

void ExpectSamePicture(const PixelPlane& one, const PixelPlane& other) {
  int differ = 0;
  for (int y = 0; y < PixelPlane::kHeight; ++y) {
    for (int x = 0; x < PixelPlane::kWidth; ++x) differ += one.At(x, y) != other.At(x, y) ? 1 : 0;
  }
  EXPECT_EQ(differ, 0);
}

void ExpectSample(const ServiceFile& file) {
  const ServiceFile sample = SampleServiceFile();
  EXPECT_EQ(file.Info, sample.Info);
  for (std::size_t at = 0; at < kServiceFields.size(); ++at) {
    EXPECT_EQ(file[ServiceFieldName(at)], sample[ServiceFieldName(at)]) << kServiceFields[at].Name;
  }
  EXPECT_EQ(file.Records, sample.Records);
  EXPECT_EQ(file.ErrorCounters, sample.ErrorCounters);
  EXPECT_EQ(file.TestBytes, sample.TestBytes);
  EXPECT_EQ(file.SymbolBox, sample.SymbolBox);
  EXPECT_EQ(file.SuitBox, sample.SuitBox);
  ExpectSamePicture(file.CardImage, sample.CardImage);
  ExpectSamePicture(file.LabelImage, sample.LabelImage);
}

TEST(ServiceFileReader, TakesWhatWasWritten) {
  const ServiceFileRead read = ServiceFileIn(BytesOf(SampleServiceFile()));
  EXPECT_EQ(read.Fault(), std::nullopt);
  ExpectSample(read.File);
}

TEST(ServiceFileReader, TakesLinesThatEndWithLfAlone) {
  const ServiceFileRead read = ServiceFileIn(ServiceBytesOf(SampleLines(), "\n"));
  EXPECT_EQ(read.Fault(), std::nullopt);
  ExpectSample(read.File);
}

TEST(ServiceFileReader, TakesAFileThatAMailProgramMadeUtf8) {
  const ServiceFileRead read = WithLine(1, "\xEF\xBB\xBFService file \xC3\xBC");
  EXPECT_EQ(read.Fault(), std::nullopt);
  EXPECT_EQ(WithLine(1, "Service file \xFC").File.Info, "Service file \xC3\xBC");
}

TEST(ServiceFileReader, AShorterLineHasEmptyFields) {
  const ServiceFileRead read = WithLine(2, "4711,12");
  EXPECT_EQ(read.Fault(), std::nullopt);
  EXPECT_EQ(read.File["Serial_number"], "4711");
  EXPECT_EQ(read.File["Boards_dealed"], "12");
  EXPECT_EQ(read.File["Manuf_date"], "");
  for (const std::size_t line :
       {3U, 4U, 5U, 6U, 7U, 8U, 9U, 396U, 397U, 405U, 409U, 410U, 411U, 412U, 413U}) {
    EXPECT_EQ(WithLine(line, "").Fault(), std::nullopt) << line;
  }
}

TEST(ServiceFileReader, FieldsThatAreTooManyAreIgnored) {
  const ServiceFileRead read = WithLine(412, "1,2,3,4,5,6,7,8,nine,10");
  EXPECT_EQ(read.Fault(), std::nullopt);
  EXPECT_EQ(read.File.SuitBox, (wire::SymbolFrame{5, 6, 7, 8}));
  EXPECT_EQ(WithLine(10, SampleLines()[10] + "xx").Fault(), std::nullopt);
}

TEST(ServiceFileReader, PassesOverTheTwoEmptyLinesWhateverStandsThere) {
  EXPECT_EQ(WithLine(202, "anything").Fault(), std::nullopt);
  EXPECT_EQ(WithLine(395, "anything").Fault(), std::nullopt);
}

TEST(ServiceFileReader, TheThresholdIsTwoFieldsAgain) {
  const ServiceFileRead read = WithLine(396, "OK,90,95,10,H,19,29,21,31");
  EXPECT_EQ(read.File["Threshold"], "90,95");
  EXPECT_EQ(read.File["Symbol"], "10");
  EXPECT_EQ(read.File["Suit_size_y"], "31");
}

TEST(ServiceFileReader, TheThresholdIsTwoFieldsOfALineOfEightToo) {
  const ServiceFileRead read = WithLine(396, "4,90,10,H,19,29,21,31");
  EXPECT_EQ(read.Fault(), std::nullopt);
  EXPECT_EQ(read.File["Reco_error"], "4");
  EXPECT_EQ(read.File["Threshold"], "90,10");
  EXPECT_EQ(read.File["Symbol"], "H");
  EXPECT_EQ(read.File["Suit"], "19");
  EXPECT_EQ(read.File["Suit_size_x"], "31");
  EXPECT_EQ(read.File["Suit_size_y"], "");
}

/// A line and the first and last of its fields, from 0, that have to be numbers in these bounds.
struct NumberFields {
  std::size_t Line;
  std::size_t First;
  std::size_t Last;
  int Lowest;
  int Highest;
};
constexpr NumberFields kNumberFields[] = {
    {3, 0, 7, 0, 1},                                                    // check boxes
    {4, 0, 3, -32768, 32767},                                           // speeds
    {5, 0, 0, 0, 6},                                                    // letters of the honours
    {5, 1, 1, 0, 1},                                                    // frame
    {5, 2, 3, 0, 2},                                                    // font, index
    {5, 4, 6, 0, 1},                                                    // check boxes
    {6, 0, 11, 0, 255},                                                 // records
    {7, 0, 11, 0, 255},       {8, 0, 11, 0, 255}, {410, 3, 3, 0, 255},  // switches
    {412, 0, 7, 0, 255},                                                // frames
};

void ExpectFieldIsNumber(const NumberFields& fields, std::size_t field) {
  const std::string& line = SampleLines()[fields.Line];
  const std::size_t start = StartsOfFields(line)[field];
  const auto faultWith = [&](const std::string& text) {
    return FaultWithLine(fields.Line, WithField(line, start, text));
  };
  for (const std::string& good :
       {std::to_string(fields.Lowest), std::to_string(fields.Highest), std::string()}) {
    EXPECT_EQ(faultWith(good), std::nullopt) << "field " << field << " is \"" << good << '"';
  }
  std::vector<std::string> bad{std::to_string(fields.Lowest - 1),
                               std::to_string(fields.Highest + 1), "x"};
  if (field == fields.First) {
    bad.insert(bad.end(), {"1x", " 1", "1 ", "+1", "1.0", "-", "99999999999999999999"});
  }
  for (const std::string& text : bad) {
    EXPECT_THAT(faultWith(text), Optional(static_cast<int>(fields.Line)))
        << "field " << field << " is \"" << text << '"';
  }
}

TEST(ServiceFileReader, ALineIsFaultyWhereANumberIsNone) {
  for (const NumberFields& fields : kNumberFields) {
    for (std::size_t field = fields.First; field <= fields.Last; ++field) {
      SCOPED_TRACE(fields.Line);
      ExpectFieldIsNumber(fields, field);
    }
  }
}

TEST(ServiceFileReader, ARowIsFaultyWhereADigitIsNone) {
  const auto& lines = SampleLines();
  for (const std::size_t line : {10U, 100U, 201U, 203U, 300U, 394U}) {
    for (const std::size_t place : {0U, 1U, 128U, 254U, 255U}) {
      for (const char wrong : {'G', 'a', 'f', ' ', ',', '-', '/', ':', '@'}) {
        std::string row = lines[line];
        row[place] = wrong;
        EXPECT_THAT(FaultWithLine(line, row), Optional(static_cast<int>(line)));
      }
    }
    EXPECT_THAT(WithLine(line, lines[line].substr(1)).Fault(), Optional(static_cast<int>(line)));
    EXPECT_THAT(WithLine(line, "").Fault(), Optional(static_cast<int>(line)));
  }
}

TEST(ServiceFileReader, AControlCharacterInAnyFieldIsItsLinesFault) {
  const auto& lines = SampleLines();
  const auto isRow = [&lines](std::size_t line) { return lines[line].size() == 256; };
  for (std::size_t line = 1; line <= 413; ++line) {
    if (isRow(line) && line % 32 != 10) continue;  // they are all alike
    const auto starts = StartsOfFields(lines[line]);
    const std::size_t step = starts.size() == 32 ? 8 : 1;  // so are these
    for (std::size_t field = 0; field < starts.size(); field += step) {
      std::string text = lines[line];
      text.insert(starts[field], 1, '\x07');
      EXPECT_THAT(FaultWithLine(line, text), Optional(static_cast<int>(line)));
    }
  }
  for (const char control : {'\0', '\t', '\r', '\x1A', '\x1B', '\x1F', '\x7F'}) {
    EXPECT_THAT(FaultWithLine(9, std::string("60,6") + control + "1"), Optional(9));
  }
}

TEST(ServiceFileReader, WhatStandsBeforeAFaultHasBeenTaken) {
  const ServiceFileRead read = WithLine(3, "1,1,2,0,1");
  EXPECT_THAT(read.Fault(), Optional(3));
  EXPECT_EQ(read.File["Serial_number"], "4711");
  EXPECT_EQ(read.File["Gate1"], "1");
  EXPECT_EQ(read.File["Gate2"], "");
  EXPECT_EQ(read.File["Cam_leds"], "") << "nothing behind it";
  EXPECT_EQ(read.File["Photo1"], "");
}

TEST(ServiceFileReader, RowsBeforeAFaultHaveBeenTaken) {
  auto lines = SampleLines();
  lines[110] = "";
  const ServiceFile file = ServiceFileIn(ServiceBytesOf(lines)).File;
  EXPECT_EQ(file.CardImage.At(100, 99), 199);
  EXPECT_EQ(file.CardImage.At(100, 100), 0);
}

TEST(ServiceFileReader, AFileThatEndsTooSoonIsFaultyAtItsFirstMissingLine) {
  const auto& lines = SampleLines();
  std::string bytes;
  for (std::size_t line = 1; line <= 413; ++line) {
    EXPECT_THAT(ServiceFileIn(bytes).Fault(), Optional(static_cast<int>(line)));
    bytes += lines[line] + "\r\n";
  }
  EXPECT_EQ(ServiceFileIn(bytes).Fault(), std::nullopt) << "the last is empty and says nothing";
}

TEST(ServiceFileReader, OtherFilesAreFaultySoon) {
  EXPECT_THAT(ServiceFileIn("").Fault(), Optional(1));
  EXPECT_THAT(ServiceFileIn(std::string(900'000, '\0')).Fault(), Optional(1));
  EXPECT_THAT(ServiceFileIn(std::string(900'000, '\n')).Fault(), Optional(10));
  EXPECT_THAT(ServiceFileIn(std::string(900'000, ',')).Fault(), Optional(1));
  EXPECT_THAT(ServiceFileIn("x\n" + std::string(65536, 'x')).Fault(), Optional(3)) << "it ends";
  EXPECT_THAT(ServiceFileIn("x\n" + std::string(65537, 'x')).Fault(), Optional(2));
}

TEST(ServiceFileReader, WhatStandsBehindTheFileIsIgnored) {
  const ServiceFileRead read = ServiceFileIn(BytesOf(SampleServiceFile()) + "\x01 more\r\n");
  EXPECT_EQ(read.Fault(), std::nullopt);
}

TEST(ServiceFileErrors, AreTheFirst31CountersOfTwoLinesUnderTheNextLabel) {
  const std::string text = ErrorsText(ServiceFileIn(BytesOf(SampleServiceFile())));
  EXPECT_THAT(text, StartsWith("Error:   1  -  0\nError:   2  -  100000\n"));
  EXPECT_THAT(text, HasSubstr("\nError:   9  -  800000\nError: 10  -  900000\n"));
  EXPECT_THAT(text, HasSubstr("\nError: 31  -  3000000\nError: 33  -  3200000\n"));
  EXPECT_THAT(text, ::testing::EndsWith("\nError: 63  -  6200000\n"));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 62);
}

TEST(ServiceFileErrors, AreThoseOfTheLinesThatWereRead) {
  const auto& lines = SampleLines();
  auto cut = lines;
  cut.resize(397);
  EXPECT_EQ(ErrorsText(ServiceFileIn(ServiceBytesOf(cut))), "");
  cut.push_back(lines[397]);
  EXPECT_THAT(ErrorsText(ServiceFileIn(ServiceBytesOf(cut))),
              ::testing::EndsWith("\nError: 31  -  3000000\n"));
}

TEST(ServiceFileTestBytes, AreLabelledFrom0To127) {
  const std::string text = TestText(ServiceFileIn(BytesOf(SampleServiceFile())));
  EXPECT_THAT(text, StartsWith("    0  -  255\n    1  -  254\n"));
  EXPECT_THAT(text, HasSubstr("\n    9  -  246\n  10  -  245\n"));
  EXPECT_THAT(text, HasSubstr("\n  99  -  156\n100  -  155\n"));
  EXPECT_THAT(text, ::testing::EndsWith("\n127  -  128\n"));
}

TEST(ServiceFileTestBytes, AreThoseOfTheLinesThatWereRead) {
  auto cut = SampleLines();
  cut.resize(408);
  EXPECT_THAT(TestText(ServiceFileIn(ServiceBytesOf(cut))),
              ::testing::EndsWith("\n  63  -  192\n"));
}

}  // namespace
}  // namespace morvane::maintenance
