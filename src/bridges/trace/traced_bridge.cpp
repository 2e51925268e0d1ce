#include "bridges/trace/traced_bridge.h"

#include <algorithm>

namespace morvane::bridges {
namespace {

std::uint32_t NumberOf(UsbXpress::Handle handle) { return static_cast<std::uint32_t>(handle); }

}  // namespace

/// What of it goes over the line is for the caller to put into `line_`.
template <typename Call>
void TracedBridge::Do(Operation what, Call call) {
  line_.What = what;
  line_.Bytes.clear();
  line_.At = File().Time();
  line_.Result = call();
  line_.Took = File().Time() - line_.At;
}

UsbXpress::Status TracedBridge::Note(const std::array<std::uint32_t, 3>& numbers) {
  line_.Numbers = numbers;
  notes_.Note(line_);
  return line_.Result;
}

UsbXpress::Status TracedBridge::NoteWithAdvice(const std::array<std::uint32_t, 3>& numbers) {
  const Status status = Note(numbers);
  const std::string advice = behind_->Advice();
  if (advice.empty()) return status;
  Do(Operation::kAdvice, [] { return kSuccess; });
  line_.Bytes.assign(advice.begin(), advice.end());
  Note({});
  return status;
}

/// What is asked of a link that works tells nothing of why it does not.
UsbXpress::Status TracedBridge::NoteFailureWithAdvice(const std::array<std::uint32_t, 3>& numbers) {
  return line_.Result == kSuccess ? Note(numbers) : NoteWithAdvice(numbers);
}

UsbXpress::Status TracedBridge::GetDllVersion(std::uint32_t& high, std::uint32_t& low) {
  Do(Operation::kGetDllVersion, [&] { return behind_->GetDllVersion(high, low); });
  return NoteFailureWithAdvice({high, low});
}

UsbXpress::Status TracedBridge::GetDriverVersion(std::uint32_t& high, std::uint32_t& low) {
  Do(Operation::kGetDriverVersion, [&] { return behind_->GetDriverVersion(high, low); });
  return NoteFailureWithAdvice({high, low});
}

UsbXpress::Status TracedBridge::GetNumDevices(std::uint32_t& count) {
  Do(Operation::kGetNumDevices, [&] { return behind_->GetNumDevices(count); });
  return NoteWithAdvice({count});
}

UsbXpress::Status TracedBridge::GetProductString(std::uint32_t index, ProductString& text,
                                                 std::uint32_t option) {
  Do(Operation::kGetProductString, [&] { return behind_->GetProductString(index, text, option); });
  if (line_.Result == kSuccess) {
    line_.Bytes.assign(text.begin(), std::find(text.begin(), text.end(), '\0'));
  }
  return NoteWithAdvice({index, option});
}

UsbXpress::Status TracedBridge::Open(std::uint32_t index, Handle& handle) {
  Do(Operation::kOpen, [&] { return behind_->Open(index, handle); });
  return NoteWithAdvice({index, NumberOf(handle)});
}

UsbXpress::Status TracedBridge::SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) {
  Do(Operation::kSetTimeouts, [&] { return behind_->SetTimeouts(readMs, writeMs); });
  return Note({readMs, writeMs});
}

UsbXpress::Status TracedBridge::SetBaudRate(Handle handle, std::uint32_t rate) {
  Do(Operation::kSetBaudRate, [&] { return behind_->SetBaudRate(handle, rate); });
  return NoteFailureWithAdvice({NumberOf(handle), rate});
}

UsbXpress::Status TracedBridge::SetLineControl(Handle handle, std::uint16_t control) {
  Do(Operation::kSetLineControl, [&] { return behind_->SetLineControl(handle, control); });
  return NoteFailureWithAdvice({NumberOf(handle), control});
}

UsbXpress::Status TracedBridge::FlushBuffers(Handle handle, std::uint8_t transmit,
                                             std::uint8_t receive) {
  Do(Operation::kFlushBuffers, [&] { return behind_->FlushBuffers(handle, transmit, receive); });
  return NoteFailureWithAdvice({NumberOf(handle), transmit, receive});
}

UsbXpress::Status TracedBridge::Write(Handle handle, std::span<const std::uint8_t> bytes,
                                      std::uint32_t& written) {
  Do(Operation::kWrite, [&] { return behind_->Write(handle, bytes, written); });
  line_.Bytes.assign(bytes.begin(), bytes.end());
  return Note({NumberOf(handle), written});
}

UsbXpress::Status TracedBridge::Read(Handle handle, std::span<std::uint8_t> bytes,
                                     std::uint32_t& read) {
  Do(Operation::kRead, [&] { return behind_->Read(handle, bytes, read); });
  const auto got = bytes.first(std::min<std::size_t>(read, bytes.size()));
  line_.Bytes.assign(got.begin(), got.end());
  return Note({NumberOf(handle), static_cast<std::uint32_t>(bytes.size())});
}

UsbXpress::Status TracedBridge::WriteLatch(Handle handle, std::uint8_t mask, std::uint8_t value) {
  Do(Operation::kWriteLatch, [&] { return behind_->WriteLatch(handle, mask, value); });
  return Note({NumberOf(handle), mask, value});
}

UsbXpress::Status TracedBridge::Close(Handle handle) {
  Do(Operation::kClose, [&] { return behind_->Close(handle); });
  return Note({NumberOf(handle)});
}

}  // namespace morvane::bridges
