// The largest firmware file downloaded over a pseudo-terminal at whose other end the simulated
// machine is another process, by the command line and by the desktop's window: the time from the
// first byte of the start to the last one of the answer to the last block, beside what the same
// frames take that are sent one after the other without a program around them, which is the wire's
// time and the machine's own.
//   --machine=FILE   the program that serves the machine; the one built beside this

#include <QApplication>
#include <cstdio>

#include "bench/link_programs.h"
#include "bench/options.h"
#include "cli/maintain_firmware_command.h"
#include "machine/machine_link.h"
#include "maintenance/firmware_file.h"
#include "maintenance/paper_flash.h"
#include "platform/files.h"

namespace morvane::bench {
namespace {

constexpr double kWantedRatio = 1.02;
/// Two pieces of 65,533 bytes with their headers: 511 blocks each, and both first ones.
constexpr std::size_t kPiece = (131050 - 16) / 2;
constexpr std::uint64_t kFrames = 1 + 2 * 511 + 2;

std::string LargestFile(const test::TempFolder& folder) {
  std::string path = folder / "largest.adc";
  test::WriteContent(
      path, maintenance::FileOf(maintenance::CodeOf(2, 0x90, kPiece), std::string(kPiece, 'b')));
  return path;
}

/// The same frames without anything around them.
void SendBare(LinkParts& parts, const maintenance::FirmwareFile& firmware) {
  machine::MachineLink link(parts.Gaps);
  if (link.Usb.Open(0, link.UsbHandle) != UsbXpress::kSuccess) return;
  link.SetLinkTimeouts(2000);
  const auto exchange = [&link](const auto& command) {
    wire::Put(command, link.TxFrame);
    link.SendFrame();
    link.ReceiveFrame();
  };
  const auto send = [&](const maintenance::FlashImage& image, int block) {
    exchange(wire::FlashBlockCommand{image.NumberOnWire(block), image.BlockAt(block)});
  };
  exchange(wire::StartDownloadCommand{});
  for (const auto* image : {&firmware.DspImage, &firmware.BitImage}) {
    for (int block = 1; block <= image->LastBlock(); ++block) send(*image, block);
  }
  send(firmware.BitImage, 0);
  send(firmware.DspImage, 0);
  link.CloseLink();
}

/// Whether it was whole and in time, beside the `bare` frames.
bool Show(const char* what, const test::LinkGaps::Figures& noted,
          const test::LinkGaps::Figures& bare) {
  const double ratio = Seconds(noted.Taken) / Seconds(bare.Taken);
  const bool whole = noted.Runs == 1 && noted.Sends == kFrames;
  const bool quick = ratio <= kWantedRatio;
  std::printf("%s\n", what);
  std::printf("  %-44s %9d%s\n", "frames", static_cast<int>(noted.Sends), Mark(whole));
  std::printf("  %-44s %9.3f s\n", "from the first byte to the last", Seconds(noted.Taken));
  ShowBytes(noted);
  ShowGaps(noted);
  std::printf("  %-44s %9.3f s\n", "the same frames, bare", Seconds(bare.Taken));
  std::printf("  %-44s %9.3f%s (wanted: at most %.2f)\n", "  the time beside theirs", ratio,
              Mark(quick), kWantedRatio);
  return whole && quick;
}

int Run(const Options& options) {
  const test::TempFolder folder;
  const std::string file = LargestFile(folder);
  e2e::Process machine(
      {"--machine", "simulated,speed=0", "--pace", "wire"},
      {.Folder = folder.Path(),
       .Program = options.Text("machine").value_or(e2e::ProgramNamed("morvane-machine"))});
  const std::string path = DeviceOf(machine);
  std::string bytes;
  if (path.empty() || ReadFile(file, bytes)) return 1;
  LinkParts bare(path, test::LinkGaps::Of::kDownloads);
  SendBare(bare, *maintenance::FirmwareIn(bytes, file));
  LinkParts terminal(path, test::LinkGaps::Of::kDownloads);
  AtTerminal(terminal, [&](cli::Job& job) { return cli::MaintainFirmware(job, {.File = file}); });
  const bool good = Show("By the command line:", terminal.Gaps.Noted(), bare.Gaps.Noted());
  LinkParts desktop(path, test::LinkGaps::Of::kDownloads);
  AtDesktop(desktop, '"' + file + '"', [](const Desktop& /*done*/) {});
  return Show("By the desktop's window:", desktop.Gaps.Noted(), bare.Gaps.Noted()) && good ? 0 : 1;
}

}  // namespace
}  // namespace morvane::bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return morvane::bench::Run(morvane::bench::Options(argc, argv, {"machine"}));
}
