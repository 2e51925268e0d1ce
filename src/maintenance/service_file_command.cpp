#include "maintenance/service_file_command.h"

#include <algorithm>

#include "maintenance/parameter_transfer.h"
#include "maintenance/service_gathering.h"
#include "platform/files.h"
#include "platform/write_check.h"
#include "program/setting_keys.h"
#include "text/box_text.h"
#include "text/text.h"

namespace morvane::maintenance {
namespace {

using wire::CardIndex;
using wire::OutputsCommand;

constexpr std::uint8_t kLights =
    OutputsCommand::kCamLeds | OutputsCommand::kMotors | OutputsCommand::kCamPower;

std::string Digit(bool on) { return on ? "1" : "0"; }

template <typename Bytes>
std::string HexOf(const Bytes& bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) text += Hex2(byte);
  return text;
}

/// The box of that name.
const ValueBox& BoxOf(const ParameterBoxes& boxes, std::string_view name) {
  std::size_t at = 0;
  while (NameOf(static_cast<Parameter>(at)) != name) ++at;
  return boxes.Box(static_cast<Parameter>(at));
}

ServiceFile::Record RecordIn(const ParameterBoxes& boxes) {
  ServiceFile::Record record;
  std::transform(kRecordNames.begin(), kRecordNames.end(), record.begin(),
                 [&boxes](std::string_view name) { return BoxOf(boxes, name).Text(); });
  return record;
}

}  // namespace

void ServiceFileCommand::CreateServiceFile() {
  const std::string path = StepPath();
  if (!run_.TestDealError && !Agreed(path)) return;
  program_.Log.WriteLine("   Service file: " + path);
  // Rather now than behind the pictures.
  auto error = CheckWritable(path);
  if (!error) {
    ServiceFile file;
    if (!Gather(file)) return SwitchOff();
    error = WriteFile(path, BytesOf(file));
  }
  SwitchOff();
  if (error) return TellFailure(*error);
  run_.Written = path;
  program_.ShowMessage(Fill(program_.Texts.Msg089, "***", path), kOkInformation,
                       kServiceFileCaption);
}

/// Also a run that is cancelled uses its number up: required.
std::string ServiceFileCommand::StepPath() {
  const std::string id = std::to_string(Val(program_.Store.Get(kServiceFileId)) + 1);
  program_.StoreSetting(kServiceFileId, id);
  const LocalTime now = program_.Time.Now();
  const std::string date =
      std::to_string(now.Year) + "_" + std::to_string(now.Month) + "_" + std::to_string(now.Day);
  return JoinPath(program_.Paths.Data,
                  "Service_file_" + identity_.Serial_number + "_" + date + "__" + id + ".txt");
}

bool ServiceFileCommand::Agreed(const std::string& path) {
  const std::string text = Fill(program_.Texts.Msg088, "***", path);
  return program_.Ask(text, kOkCancelInformation, kServiceFileCaption) == kOk;
}

/// What the machine is asked stands in the order of the wire.
bool ServiceFileCommand::Gather(ServiceFile& file) {
  if (!LightUp()) return false;
  ServiceGathering gathering(program_, link_, machine_, parameters_.CardSelection, pictures_, run_,
                             [this] { return host_.Leaving(); });
  // It stays until all is there.
  const auto window = host_.View().OpenServiceFile(gathering);
  if (!gathering.Run(*window) || !ReadResults()) return false;
  file.CardImage = gathering.Grey();
  file.LabelImage = pictures_.LabelImage;
  file.Info = "Service file " + DateTimeText(program_.Time.Now()) +
              " Software ver: " + program_.VersionText;
  PutIdentity(file);
  PutReadings(file);
  if (!ReadRecords(file)) return false;
  PutResults(file);
  if (!ReadCounters() || !ReadIdentities()) return false;
  PutStoredData(file);
  return true;
}

bool ServiceFileCommand::LightUp() {
  Switch(true);
  program_.Loop.Pump();
  if (!poll_.SendOutputs()) return false;
  bench_.ClearResults();
  host_.View().ShowAll();
  return true;
}

/// With the outputs on, so that the sensors tell what they see.
bool ServiceFileCommand::ReadResults() {
  if (!poll_.Refresh()) return false;
  bench_.ShowProblemCard(run_);
  if (!bench_.Measure()) return false;
  host_.View().ShowAll();
  return true;
}

/// Where edits stand in the console's boxes, they stay.
bool ServiceFileCommand::ReadRecords(ServiceFile& file) {
  ParameterBoxes held = parameters_.Boxes;
  for (const CardIndex index : {CardIndex::Standard, CardIndex::Jumbo, CardIndex::Small}) {
    auto& record = file.Records[static_cast<std::size_t>(index)];
    record = NoRecord();
    if (!HasRecord(machine_, index)) continue;
    if (!ReadParameters(link_, machine_, index, held)) return false;
    record = RecordIn(held);
  }
  if (!ReadBack(held)) return false;
  PutParameters(held, file);
  return true;
}

/// The record of the index that is selected.
bool ServiceFileCommand::ReadBack(ParameterBoxes& held) {
  if (parameters_.Boxes.Edited()) {
    return ReadParameters(link_, machine_, parameters_.Index(), held);
  }
  if (!parameters_.Read()) return false;
  held = parameters_.Boxes;
  return true;
}

bool ServiceFileCommand::ReadCounters() {
  for (std::uint8_t page = 0; page < wire::CounterPageCommand::kPages; ++page) {
    const auto reply = link_.Ask(wire::CounterPageCommand{page});
    if (!reply) return false;
    std::copy(reply->Counters.begin(), reply->Counters.end(),
              run_.ErrorCounters.begin() + page * reply->Counters.size());
  }
  identity_.Boards_dealed = std::to_string(run_.ErrorCounters[0]);
  return true;
}

bool ServiceFileCommand::ReadIdentities() {
  for (const std::uint8_t half : {std::uint8_t{1}, std::uint8_t{2}}) {
    const auto reply = link_.Ask(wire::DieIdentityCommand{half});
    if (!reply) return false;
    std::copy(reply->Identity.begin(), reply->Identity.end(),
              run_.DieIdentity.begin() + (half - 1) * reply->Identity.size());
  }
  const auto set = link_.Ask(wire::SetIdentityCommand{});
  if (set) run_.SetIdentity = set->Identity;
  const auto test = set ? link_.Ask(wire::TestDataCommand{}) : std::nullopt;
  if (test) run_.TestBytes = test->Bytes;
  return test.has_value();
}

void ServiceFileCommand::PutIdentity(ServiceFile& file) const {
  file["Serial_number"] = identity_.Serial_number;
  file["Boards_dealed"] = identity_.Boards_dealed;
  file["Manuf_date"] = identity_.Manuf_date;
  file["Hardware_ID"] = identity_.Hardware_ID;
  file["Soft_ver"] = identity_.Soft_ver;
  file["Down_ID"] = identity_.Down_ID;
  file["txtUSB_ID"] = identity_.txtUSB_ID;
  file["Flash_ID_text"] = identity_.Flash_ID_text;
  file["USB_driver"] = identity_.USB_driver;
  file["DLLver"] = identity_.DLLver;
  file["Boot_ver"] = identity_.Boot_ver;
  file["FPGA_ver"] = identity_.FPGA_ver;
}

void ServiceFileCommand::PutReadings(ServiceFile& file) const {
  const auto output = [this](std::uint8_t bit) { return Digit((poll_.Outputs & bit) != 0); };
  file["Motors"] = output(OutputsCommand::kMotors);
  file["Gate1"] = output(OutputsCommand::kGate1);
  file["Gate2"] = output(OutputsCommand::kGate2);
  file["Gate3"] = output(OutputsCommand::kGate3);
  file["Cam_leds"] = output(OutputsCommand::kCamLeds);
  file["Cam_power"] = output(OutputsCommand::kCamPower);
  file["Front_green_led"] = output(OutputsCommand::kFrontGreenLed);
  file["Front_Red_Led"] = output(OutputsCommand::kFrontRedLed);
  const Readings& now = poll_.Now();
  file["Front_Switch"] = now.Front_Switch.Text;
  file["Box_Switch"] = now.Box_Switch.Text;
  file["Cover_Switch"] = now.Cover_Switch.Text;
  file["Flip_Switch"] = now.Flip_Switch.Text;
  file["Inside_temp"] = now.Inside_temp.Text;
  file["Supply_volt"] = now.Supply_volt.Text;
  file["Board_no_txt"] = now.Board_no_txt;
  file["Board_no_test_txt"] = now.Board_no_test_txt;
  file["Motor_speed_4"] = now.Motor_speed[4].Text;
  file["Motor_speed_3"] = now.Motor_speed[3].Text;
  file["Motor_speed_2"] = now.Motor_speed[2].Text;
  file["Motor_speed_1"] = now.Motor_speed[1].Text;
  file["Photo5"] = now.Photo[5].Text;
  file["Photo4"] = now.Photo[4].Text;
  file["Photo3"] = now.Photo[3].Text;
  file["Photo2"] = now.Photo[2].Text;
  file["Photo1"] = now.Photo[1].Text;
  file["LastSwitchByte"] = std::to_string(now.LastSwitchByte);
}

void ServiceFileCommand::PutParameters(const ParameterBoxes& held, ServiceFile& file) const {
  const machine::CardSettings& cards = parameters_.CardSelection;
  file["National digit"] = std::to_string(cards.National);
  file["CardType digit"] = std::to_string(cards.CardType);
  file["Threshold digit"] = std::to_string(cards.Threshold);
  file["CardIndex digit"] = std::to_string(cards.CardIndex);
  file["Ignore_flip"] = Digit(held.Switches().IgnoreFlip);
  file["Ignore_box"] = Digit(held.Switches().IgnoreBox);
  file["Use_Board"] = Digit(held.Switches().UseBoard);
  file["param_ID"] = held.param_ID;
  file["Reco_option_txt"] = held.Box(Parameter::Reco_option_txt).Text();
  file["Bold_th_txt"] = held.Box(Parameter::Bold_th_txt).Text();
  file["Fine_th_txt"] = held.Box(Parameter::Fine_th_txt).Text();
  file["Bold_th1_txt"] = held.Box(Parameter::Bold_th1_txt).Text();
  file["Fine_th1_txt"] = held.Box(Parameter::Fine_th1_txt).Text();
  file["Board_Sen"] = held.Box(Parameter::Board_Sen).Text();
  file["Video_Brightness"] = held.Box(Parameter::Video_Brightness).Text();
  file["Video_Contrast"] = held.Box(Parameter::Video_Contrast).Text();
}

void ServiceFileCommand::PutResults(ServiceFile& file) const {
  const RecognitionBench::Texts& seen = bench_.Shown();
  file["Reco_error"] = seen.Verdict.Reco_error;
  file["Threshold"] = seen.Verdict.Threshold;
  file["Symbol"] = seen.Verdict.Symbol;
  file["Suit"] = seen.Verdict.Suit;
  file["Reco_time"] = seen.Verdict.Reco_time;
  file["Symbol_size_x"] = seen.Symbol_size_x;
  file["Symbol_size_y"] = seen.Symbol_size_y;
  file["Suit_size_x"] = seen.Suit_size_x;
  file["Suit_size_y"] = seen.Suit_size_y;
  file["Reco_param1"] = seen.Reco_param1;
  file["Reco_param2"] = seen.Reco_param2;
  file["Cap_time"] = seen.Cap_time;
  file["Focus"] = std::to_string(run_.ServiceFocus);
  file["Test6"] = developer_.Test6.Text();
  file["Test7"] = developer_.Test7.Text();
  file["HoldS"] = bench_.HoldS;
  file["HoldC"] = bench_.HoldC;
  file.SymbolBox = bench_.SymbolBox();
  file.SuitBox = bench_.SuitBox();
}

void ServiceFileCommand::PutStoredData(ServiceFile& file) const {
  const auto text = [](auto number) { return std::to_string(number); };
  std::transform(run_.ErrorCounters.begin(), run_.ErrorCounters.end(), file.ErrorCounters.begin(),
                 text);
  std::transform(run_.TestBytes.begin(), run_.TestBytes.end(), file.TestBytes.begin(), text);
  file["Die_ID"] = HexOf(run_.DieIdentity);
  file["Set_ID"] = HexOf(run_.SetIdentity);
}

void ServiceFileCommand::Switch(bool on) {
  const unsigned others = poll_.Outputs & ~unsigned{kLights};
  poll_.Outputs = static_cast<std::uint8_t>(others | (on ? kLights : 0U));
  host_.View().ShowAll();
}

/// The machine is told at once: the console may be about to close.
void ServiceFileCommand::SwitchOff() {
  if (link_.LinkFailed()) return;
  Switch(false);
  poll_.SendOutputs();
}

void ServiceFileCommand::TellFailure(const RuntimeError& error) {
  const std::string text = Fill(program_.Texts.Msg087, "***", std::to_string(error.Number));
  program_.ShowMessage(Fill(text, "###", error.Description), kOkCritical, "Service File Error");
}

}  // namespace morvane::maintenance
