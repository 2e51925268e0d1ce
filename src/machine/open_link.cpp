#include "machine/open_link.h"

#include <algorithm>

#include "platform/machine_serial.h"

namespace morvane::machine {
namespace {

constexpr std::uint32_t kRecommendedDriver = 0x30001;

std::string TextOf(const UsbXpress::ProductString& text) {
  return {text.begin(), std::find(text.begin(), text.end() - 1, '\0')};
}

/// What the bridge has to say stands below the system's own words.
std::string WithAdvice(const std::string& text, const std::string& advice) {
  return advice.empty() ? text : text + "\r\n\r\n" + Fill(advice, "\n", kCrLf);
}

/// Once each: the link is opened for every window.
void TellAdvice(Program& program, MachineLink& link) {
  const std::string advice = link.Usb.Advice();
  if (!advice.empty() && advice != link.AdviceTold) {
    program.ShowMessage(Fill(advice, "\n", kCrLf), kOkInformation, "USB Connection");
  }
  link.AdviceTold = advice;
}

/// One attempt. `Step` says how far it came; a clean open ends at 10.
class OpenAttempt {
 public:
  OpenAttempt(Program& program, MachineLink& link, std::int16_t timeoutMs)
      : program_(program), link_(link), timeout_(static_cast<std::uint32_t>(timeoutMs)) {}

  UsbXpress::Status Status = UsbXpress::kSuccess;
  int Step = 0;

  void Run() {
    if (!Versions() || !CountDevices()) return;
    ++Step;
    const std::uint32_t index = ChooseDevice();
    if (Status == UsbXpress::kSuccess) Open(index);
    if (Status != UsbXpress::kSuccess) link_.CloseLink();
  }

 private:
  bool Versions() {
    UsbXpress& usb = link_.Usb;
    Status = usb.GetDllVersion(link_.UsbDllVersionHigh, link_.UsbDllVersionLow);
    if (Status == UsbXpress::kSuccess) {
      Status = usb.GetDriverVersion(link_.UsbDriverVersionHigh, link_.UsbDriverVersionLow);
    }
    if (Status != UsbXpress::kSuccess) return false;
    Step = 1;
    const std::uint32_t high = link_.UsbDriverVersionHigh;
    if (high < kRecommendedDriver) {
      const std::string version =
          std::to_string(high >> 16U) + "." + std::to_string(high & 0xFFFFU);
      program_.ShowMessage(Fill(program_.Texts.Msg049, "***", version), kOkInformation,
                           "Driver Update Information");
    }
    return true;
  }

  bool CountDevices() {
    Status = link_.Usb.GetNumDevices(count_);
    if (Status != UsbXpress::kSuccess) return false;
    ++Step;
    return count_ > 0;
  }

  std::uint32_t ChooseDevice() {
    UsbXpress::ProductString text{};
    std::string first;
    for (std::uint32_t index = 0; index < count_; ++index) {
      Status = link_.Usb.GetProductString(index, text, UsbXpress::kSerialString);
      link_.UsbProductString = TextOf(text);
      if (index == 0) first = link_.UsbProductString;
      if (IsMachineSerial(text)) return index;
    }
    link_.UsbProductString = first;
    return 0;
  }

  void Open(std::uint32_t index) {
    UsbXpress& usb = link_.Usb;
    const auto step = [this](int up, auto call) {
      if (Status != UsbXpress::kSuccess) return;
      Step += up;
      Status = call();
    };
    UsbXpress::Handle& handle = link_.UsbHandle;
    step(1, [&] { return usb.Open(index, handle); });
    step(2, [&] { return usb.SetTimeouts(timeout_, timeout_); });
    step(1, [&] { return usb.SetBaudRate(handle, UsbXpress::kBaudRate); });
    step(1, [&] { return usb.SetLineControl(handle, UsbXpress::kEightDataBitsNoParity); });
    step(1, [&] { return usb.FlushBuffers(handle, 1, 1); });
    if (Status == UsbXpress::kSuccess) ++Step;
  }

  Program& program_;
  MachineLink& link_;
  std::uint32_t timeout_;
  std::uint32_t count_ = 0;
};

}  // namespace

bool OpenLink(Program& program, MachineLink& link, std::int16_t timeoutMs) {
  while (!link.IsOpen() && !program.Loop.Quitting()) {
    OpenAttempt attempt(program, link, timeoutMs);
    attempt.Run();
    if (attempt.Status == UsbXpress::kSuccess) {
      TellAdvice(program, link);
      break;
    }

    const std::string status = std::to_string(attempt.Status);
    const std::string step = std::to_string(attempt.Step);
    const bool noDriver = attempt.Status == UsbXpress::kDriverMissing;
    const std::string text =
        Fill(noDriver ? program.Texts.Msg051 : program.Texts.Msg050, "***", status + "." + step);
    const int answer = program.Ask(WithAdvice(text, link.Usb.Advice()), kOkCancelCritical,
                                   "USB Initialization Error");
    program.Log.WriteLine(" USB Initialization Error: " + status + ":" + step);
    if (answer != kOk) break;
  }
  return link.IsOpen();
}

}  // namespace morvane::machine
