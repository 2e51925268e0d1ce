#include "support/fakes.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <numeric>
#include <random>

#include "platform/files.h"
#include "platform/utf8_of_path.h"

namespace morvane::test {

int FakeUi::MessageBox(const std::string& text, int flags, const std::string& title) {
  EXPECT_FALSE(HourglassNow) << "under a box: " << text;
  Boxes.push_back({text, flags, title});
  if (OnBox) OnBox();
  constexpr int kButtons = 15;
  if ((flags & kButtons) == 0 || Answers.empty()) return Default;
  const int answer = Answers.front();
  Answers.pop_front();
  return answer;
}

std::optional<std::string> FakeUi::AskFile(const FileRequest& request) {
  EXPECT_FALSE(HourglassNow) << "under a file dialog";
  FileRequests.push_back(request);
  if (Files.empty()) return std::nullopt;
  auto answer = Files.front();
  Files.pop_front();
  return answer;
}

std::string MemorySettings::Name(const SettingKey& key) {
  return std::string(key.Section) + "/" + std::string(key.Name);
}

std::string MemorySettings::Get(const SettingKey& key) const {
  const auto at = values_.find(Name(key));
  return at == values_.end() ? std::string(key.Default) : at->second;
}

bool MemorySettings::Set(const SettingKey& key, std::string_view value) {
  if (Writable) values_[Name(key)] = value;
  return Writable;
}

Entropy::Answer FakeEntropy::SystemRandom(std::span<std::uint8_t> bytes) {
  if (Failure) return *Failure;
  if (AllZero) {
    std::fill(bytes.begin(), bytes.end(), std::uint8_t{0});
  } else {
    std::iota(bytes.begin(), bytes.end(), First);
  }
  return {true, std::nullopt};
}

double FakeEntropy::Random() { return std::uniform_real_distribution<double>(0.0, 1.0)(engine_); }

std::optional<int> FakePrinter::Setup(int copies) {
  SetupsFrom.push_back(copies);
  return Confirmed;
}

std::optional<RuntimeError> FakePrinter::Print(const PrintJob& job, const Draw& draw) {
  Jobs.push_back({job.Title, job.Copies, job.Sheet});
  Drawn.Begin();
  draw(Drawn);
  return Failure;
}

void FakePrinter::Preview(const PrintJob& /*job*/, const Draw& draw,
                          const std::vector<PreviewAction>& actions) {
  Drawn.Begin();
  draw(Drawn);
  if (OnPreview) OnPreview(actions);
}

std::string FakePrinter::Pdf(const PrintJob& job, const Draw& draw) {
  Pdfs.push_back({job.Title, job.Copies, job.Sheet});
  if (!HasFonts) return {};
  Drawn.Begin();
  draw(Drawn);
  return "PDF of " + job.Title + ", pages: " + std::to_string(Drawn.Pages.size());
}

namespace {

std::filesystem::path ParentOf(FolderPlace place) {
  constexpr const char* kMemory = "/dev/shm";
  constexpr std::uintmax_t kRoom = 256U << 20U;
  std::error_code missing;
  const auto space = std::filesystem::space(kMemory, missing);
  const bool room = !missing && space.available >= kRoom && access(kMemory, W_OK) == 0;
  return place == FolderPlace::kMemory && room ? kMemory : std::filesystem::temp_directory_path();
}

}  // namespace

#ifdef _WIN32

TempFolder::TempFolder(FolderPlace place) {
  std::random_device chance;
  do {
    path_ = ParentOf(place) / ("morvane_test_" + std::to_string(chance()));
  } while (!std::filesystem::create_directory(path_));
}

#else

TempFolder::TempFolder(FolderPlace place) {
  std::string pattern = (ParentOf(place) / "morvane_test_XXXXXX").string();
  path_ = mkdtemp(pattern.data());
}

#endif

TempFolder::~TempFolder() {
  std::error_code ignored;
  // An analysis goes to the program's folder and stays there.
  if (std::filesystem::current_path(ignored) == path_) {
    std::filesystem::current_path(path_.parent_path(), ignored);
  }
  std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::operator/(const std::string& name) const {
  return Utf8OfPath((path_ / PathOfUtf8(name)).make_preferred());
}

TestDesk::TestDesk()
    : Prog({Ui, Loop, Clock, Store, Random, Speaker, ThePrinter},
           {Folder.Path(), Folder / "Morvane_Data"}) {
  std::filesystem::create_directory(Prog.Paths.Data);
  RuntimeError error;
  EXPECT_TRUE(Prog.Log.Start(Prog.Paths.Data, error)) << error.Description;
}

std::vector<std::string> TestDesk::LogLines() const {
  std::vector<std::string> lines;
  std::string bytes;
  if (ReadFile(Prog.Log.Path(), bytes)) return lines;
  for (std::size_t start = 0; start < bytes.size();) {
    const std::size_t end = bytes.find("\r\n", start);
    lines.push_back(bytes.substr(start, end - start));
    if (end == std::string::npos) break;
    start = end + 2;
  }
  return lines;
}

std::string Content(const std::string& path) {
  std::string bytes;
  const auto error = ReadFile(path, bytes);
  EXPECT_FALSE(error) << path << ": " << error->Description;
  return bytes;
}

void WriteContent(const std::string& path, std::string_view bytes) {
  const auto error = WriteFile(path, bytes);
  ASSERT_FALSE(error) << path << ": " << error->Description;
}

void WriteInPlace(const std::string& path, std::string_view bytes) {
  std::ofstream file(PathOfUtf8(path), std::ios::binary);
  file << bytes << std::flush;
  ASSERT_TRUE(file.good()) << path << ": " << std::strerror(errno);
}

Board RoundBoard(int n, int first) {
  Board board = NumberedBoard(n);
  int hand = first;
  for (std::size_t card = 1; card <= kCards; ++card, hand = NextHand(hand)) {
    board.Cards[card] = static_cast<std::uint8_t>(hand);
  }
  AnalyzeBoard(board);
  return board;
}

Board SuitBoard(int n) {
  Board board = NumberedBoard(n);
  for (int card = 1; card <= kCards; ++card) {
    board.Cards[static_cast<std::size_t>(card)] = static_cast<std::uint8_t>(CardSuit(card));
  }
  AnalyzeBoard(board);
  return board;
}

void FillSet(BoardSet& set, int first, int last) {
  set.Clear();
  set.FirstBoard = static_cast<std::int16_t>(first);
  set.LastBoard = static_cast<std::int16_t>(last);
  for (int n = first; n <= last; ++n) set.At(n) = RoundBoard(n, n % kHands + 1);
}

}  // namespace morvane::test
