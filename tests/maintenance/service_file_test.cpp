#include "maintenance/service_file.h"

#include <gmock/gmock.h>

#include "maintenance/service_file_sample.h"

namespace morvane::maintenance {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

std::vector<std::string> SampleLines() { return ServiceLinesOf(BytesOf(SampleServiceFile())); }

TEST(ServiceFile, Has414LinesThatEndWithCrLf) {
  EXPECT_THAT(SampleLines(), SizeIs(415));
  EXPECT_EQ(ServiceLinesOf(BytesOf(ServiceFile{})).size(), 415U);
}

TEST(ServiceFile, BeginsWithWhatTheMachineSaysOfItself) {
  const auto lines = SampleLines();
  EXPECT_EQ(lines[1], "Service file 3/5/2019 4:05:06 PM Software ver: 4.17 Service ");
  EXPECT_EQ(lines[2], "4711,123456,5-Mar-2019,127,2.90,3,4711,1,6.7.0.0,3.3.0.0");
  EXPECT_EQ(lines[3], "1,0,0,0,1,1,0,1,ON,OFF,OFF,ON,31.4,12.1,17");
  EXPECT_EQ(lines[4], "14500,-1,0,32767,15,14,13,12,11");
  EXPECT_EQ(lines[5], "6,1,2,1,0,1,0,1900,7");
}

TEST(ServiceFile, HasTheThreeRecordsAndTheThresholds) {
  const auto lines = SampleLines();
  EXPECT_EQ(lines[6], "1,2,3,4,5,6,7,8,9,10,11,12");
  EXPECT_EQ(lines[7], "21,22,23,24,25,26,27,28,29,30,31,255");
  EXPECT_EQ(lines[8], "0,0,0,0,0,0,0,0,0,0,0,0");
  EXPECT_EQ(lines[9], "60,61,62,63");
}

TEST(ServiceFile, ARecordNamesItsLimitsFromTheLeastToTheMost) {
  EXPECT_THAT(kRecordNames,
              ::testing::ElementsAre("pos_x", "pos_y", "start_x", "start_y", "Sym_x_min",
                                     "Sym_y_min", "Sym_x_max", "Sym_y_max", "Suit_x_min",
                                     "Suit_y_min", "Suit_x_max", "Suit_y_max"));
}

TEST(ServiceFile, ARecordThatTheMachineHasNotIsTwelveZeros) {
  EXPECT_EQ(NoRecord(), SampleServiceFile().Records[2]);
}

TEST(ServiceFile, HasARowOfTheGreyPictureALine) {
  const auto lines = SampleLines();
  // The grey at (x, y) is x + y, of which 8 bits count.
  EXPECT_THAT(lines[10], AllOf(StartsWith("000102030405060708090A0B"), EndsWith("7E7F")));
  EXPECT_THAT(lines[11], AllOf(StartsWith("010203"), EndsWith("7F80")));
  EXPECT_THAT(lines[201], AllOf(StartsWith("BFC0C1"), EndsWith("3D3E")));
}

TEST(ServiceFile, HasTheLabelsBehindAnEmptyLineAndAnotherBehindThem) {
  const auto lines = SampleLines();
  EXPECT_EQ(lines[202], "");
  EXPECT_THAT(lines[203], StartsWith("000000010101020202030303000000"));
  EXPECT_THAT(lines[208], StartsWith("010101020202"));
  // The last row is the 191st: its first class is 191 / 5 mod 4.
  EXPECT_THAT(lines[394], StartsWith("020202030303"));
  EXPECT_EQ(lines[395], "");
}

TEST(ServiceFile, EachRowHas256UpperCaseDigits) {
  const auto lines = SampleLines();
  const auto isRow = [](const std::string& line) {
    return line.size() == 256 && line.find_first_not_of("0123456789ABCDEF") == std::string::npos;
  };
  for (std::size_t line = 10; line <= 201; ++line) EXPECT_TRUE(isRow(lines[line])) << line;
  for (std::size_t line = 203; line <= 394; ++line) EXPECT_TRUE(isRow(lines[line])) << line;
}

TEST(ServiceFile, HasTheVerdictWithBothThresholdsWhereThereAreTwo) {
  EXPECT_EQ(SampleLines()[396], "OK,90,95,10,H,19,29,21,31");
  ServiceFile file = SampleServiceFile();
  file["Threshold"] = "90";
  EXPECT_EQ(ServiceLinesOf(BytesOf(file))[396], "OK,90,10,H,19,29,21,31");
}

TEST(ServiceFile, HasTheCountersBy32AndTheTestBytesToo) {
  const auto lines = SampleLines();
  EXPECT_THAT(lines[397], AllOf(StartsWith("0,100000,200000,"), EndsWith(",3000000,3100000")));
  EXPECT_THAT(lines[398], StartsWith("3200000,3300000,"));
  EXPECT_THAT(lines[404], AllOf(StartsWith("22400000,"), EndsWith(",25500000")));
  EXPECT_THAT(lines[406], AllOf(StartsWith("255,254,"), EndsWith(",224")));
  EXPECT_THAT(lines[409], AllOf(StartsWith("159,158,"), EndsWith(",128")));
}

TEST(ServiceFile, EndsWithIdentitiesVersionsMeasuresAndAnEmptyLine) {
  const auto lines = SampleLines();
  EXPECT_EQ(lines[405], "0102030405060708,A1A2A3A4A5A6A7A8");
  EXPECT_EQ(lines[410], "1.02,2.3,N/A,37");
  EXPECT_EQ(lines[411], "8,9,1234,567,15,33,44,K,");
  EXPECT_EQ(lines[412], "10,30,40,70,11,33,80,112");
  EXPECT_EQ(lines[413], "100,128,64");
  EXPECT_EQ(lines[414], "");
}

TEST(ServiceFile, OfNothingHasItsCommasAndItsPicturesStill) {
  const auto lines = ServiceLinesOf(BytesOf(ServiceFile{}));
  EXPECT_EQ(lines[1], "");
  EXPECT_EQ(lines[2], ",,,,,,,,,");
  EXPECT_EQ(lines[6], ",,,,,,,,,,,");
  EXPECT_EQ(lines[10], std::string(256, '0'));
  EXPECT_EQ(lines[396], ",,,,,,,");
  EXPECT_EQ(lines[397], std::string(31, ','));
  EXPECT_EQ(lines[405], ",");
  EXPECT_EQ(lines[412], "0,0,0,0,0,0,0,0");
}

TEST(ServiceFile, IsInTheSystemsOneByteCharactersWhereThatSaysTheSame) {
  ServiceFile file;
  file["HoldS"] = "\xC3\xBC";  // u with two dots
  EXPECT_EQ(ServiceLinesOf(BytesOf(file))[411], ",,,,,,,\xFC,");
  file["HoldC"] = "\xE2\x99\xA0";  // a spade, which has no byte
  EXPECT_EQ(ServiceLinesOf(BytesOf(file))[411], ",,,,,,,\xC3\xBC,\xE2\x99\xA0");
}

}  // namespace
}  // namespace morvane::maintenance
