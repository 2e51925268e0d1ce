#include "cli/camera_service.h"

#include "maintenance/png.h"
#include "platform/files.h"
#include "platform/write_check.h"
#include "wire/service_commands.h"

namespace morvane::cli {
namespace {

using maintenance::PixelPlane;
using wire::OutputsCommand;

/// The first tells the machine, the second gives the light its time.
constexpr int kPollsUntilLit = 2;

void TellFile(Terminal& terminal, const std::string& path, const RuntimeError& error) {
  terminal.Error(path + ": " + error.Description + ". Nothing is written.\n");
}

}  // namespace

void CameraService::Known() {
  if (HasFirmware()) {
    console_.Console().Outputs |= OutputsCommand::kCamLeds | OutputsCommand::kCamPower;
    return;
  }
  SayNoFirmware(job_.Place.Screen);
  console_.Exit();
}

void CameraService::Polled() {
  if (++polls_ != kPollsUntilLit) return;
  done_ = Work();
  progress_.Show("");
  console_.Exit();
}

void CameraService::ShowPicture() {
  lines_ = console_.Bench().LinesFetched().value_or(0);
  progress_.Show("Picture: " + std::to_string(lines_) + " of " +
                 std::to_string(PixelPlane::kHeight) + " lines");
}

bool CameraService::Capture() {
  console_.Bench().Capture();
  return !console_.LinkFailed() && !job_.Place.Prog.Loop.Quitting();
}

bool CameraService::Fetch(const std::string& out) {
  lines_ = 0;
  console_.Bench().Showb();
  progress_.Show("");
  if (lines_ != PixelPlane::kHeight) return false;
  return WritePng(job_, out, maintenance::PngOf(console_.Bench().Pictures()));
}

bool WritePng(Job& job, const std::string& out, const std::string& png) {
  const auto error = WriteFile(out, png);
  if (error) TellFile(job.Place.Screen, out, *error);
  return !error;
}

bool MayWritePicture(Job& job, const std::string& out) {
  if (const auto error = CheckWritable(out)) {
    TellFile(job.Place.Screen, out, *error);
    return false;
  }
  job.Place.Operator.AnswerNextFile(out);
  return job.Place.Operator.AskFile({"Save Picture", "PNG (*.png)|*.png", 1, "", true}).has_value();
}

}  // namespace morvane::cli
