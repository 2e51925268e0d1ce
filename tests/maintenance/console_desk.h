#pragma once

#include <memory>
#include <optional>
#include <string>

#include "maintenance/advance_form.h"
#include "maintenance/auto_setup.h"
#include "maintenance/maintenance.h"
#include "maintenance/service_desk.h"

namespace morvane::maintenance {

class NotedView final : public MaintenanceView {
 public:
  int Readings = 0;
  int All = 0;
  int Closes = 0;
  int Pictures = 0;
  int Magnified = 0;
  AutoSetup* Setup = nullptr;  ///< the last that was opened
  int Downloads = 0;
  FirmwareDownload* Firmware = nullptr;  ///< while its window is open
  std::function<void()> OnDownload;      ///< while it is shown
  std::string SymY;
  std::string SuitY;
  std::function<void()> OnShow;    ///< while all, or the picture, is shown
  std::function<void()> OnSearch;  ///< while the search of Auto Setup is
  std::function<void()> OnMagnify;
  ServiceGathering* Gathering = nullptr;  ///< the last that was opened, as the next two
  std::function<void()> OnGathering;
  BoardCalibration* Calibration = nullptr;
  std::function<void()> OnCalibration;
  TestDeal* Deal = nullptr;
  std::function<void()> OnDeal;
  std::function<void(machine::ErrorDialog&)> OnError;
  int Advances = 0;
  std::function<void(AdvanceForm&)> OnAdvance;  ///< while its form is there, opened
  void ShowReadings() override { ++Readings; }
  void ShowAll() override {
    ++All;
    if (OnShow) OnShow();
  }
  void ShowPicture() override {
    ++Pictures;
    if (OnShow) OnShow();
  }
  void Magnify() override {
    ++Magnified;
    if (OnMagnify) OnMagnify();
  }
  void ShowAdvance(AdvanceForm& form) override {
    ++Advances;
    AdvanceView nobody;
    form.Open(nobody);
    if (OnAdvance) OnAdvance(form);
  }
  std::unique_ptr<AutoSetupView> OpenAutoSetup(AutoSetup& setup) override {
    struct NotedSearch final : AutoSetupView {
      NotedView& View;
      explicit NotedSearch(NotedView& view) : View(view) {}
      void ShowSearch() override {
        View.SymY = View.Setup->symy();
        View.SuitY = View.Setup->suity();
        if (View.OnSearch) View.OnSearch();
      }
    };
    Setup = &setup;
    return std::make_unique<NotedSearch>(*this);
  }
  std::unique_ptr<FirmwareView> OpenFirmware(FirmwareDownload& download) override {
    struct NotedDownload final : FirmwareView {
      NotedView& View;
      explicit NotedDownload(NotedView& view) : View(view) {}
      NotedDownload(const NotedDownload&) = delete;
      NotedDownload& operator=(const NotedDownload&) = delete;
      ~NotedDownload() override { View.Firmware = nullptr; }
      void ShowDownload() override {
        if (View.OnDownload) View.OnDownload();
      }
    };
    ++Downloads;
    Firmware = &download;
    return std::make_unique<NotedDownload>(*this);
  }
  std::unique_ptr<ServiceFileView> OpenServiceFile(ServiceGathering& gathering) override {
    struct NotedGathering final : ServiceFileView {
      NotedView& View;
      explicit NotedGathering(NotedView& view) : View(view) {}
      void ShowGathering() override {
        if (View.OnGathering) View.OnGathering();
      }
    };
    Gathering = &gathering;
    return std::make_unique<NotedGathering>(*this);
  }
  std::unique_ptr<BoardCalibrationView> OpenBoardCalibration(
      BoardCalibration& calibration) override {
    struct NotedCalibration final : BoardCalibrationView {
      NotedView& View;
      explicit NotedCalibration(NotedView& view) : View(view) {}
      void ShowCalibration() override {
        if (View.OnCalibration) View.OnCalibration();
      }
    };
    Calibration = &calibration;
    return std::make_unique<NotedCalibration>(*this);
  }
  std::unique_ptr<TestDealView> OpenTestDeal(TestDeal& deal) override {
    struct NotedDeal final : TestDealView {
      NotedView& View;
      explicit NotedDeal(NotedView& view) : View(view) {}
      void ShowState() override {
        if (View.OnDeal) View.OnDeal();
      }
      void ShowError(machine::ErrorDialog& dialog) override {
        if (View.OnError) View.OnError(dialog);
      }
    };
    Deal = &deal;
    return std::make_unique<NotedDeal>(*this);
  }
  void Close() override { ++Closes; }
};

/// The console at a simulated machine, every frame of which is noted.
class ConsoleDesk : public ServiceDesk {
 protected:
  NotedView view;
  std::unique_ptr<PictureStore> pictures = std::make_unique<PictureStore>();
  std::optional<Maintenance> console;

  void SetUp() override {
    RuntimeError error;
    ASSERT_TRUE(desk.Prog.Log.Start(desk.Folder.Path(), error));
  }
  /// Opens the window at a machine with these options ("firmware=2.7F"), for the download of
  /// `firmware` alone where it is a file.
  void Open(const std::string& options = "", const std::string& firmware = "") {
    Connect(options);
    console.emplace(desk.Prog, machine, *pictures);
    console->Open(view, firmware);
  }
  /// Up to the end of the window start; nothing is polled yet.
  void Start(const std::string& options = "") {
    Open(options);
    desk.Loop.WaitMs(Maintenance::kFirstContactMs);
  }
  /// As many polls.
  void Poll(int polls = 1) {
    for (const int before = view.Readings; view.Readings < before + polls && !console->Closed();) {
      desk.Loop.WaitMs(1);
    }
  }
  void Type(Parameter parameter, const std::string& text) {
    FilteredBox shown{text, static_cast<int>(text.size())};
    console->Boxes().Box(parameter).Change(shown);
  }
  [[nodiscard]] std::string Text(Parameter parameter) {
    return console->Boxes().Box(parameter).Text();
  }
  [[nodiscard]] std::vector<std::string> LinesWith(const std::string& words) const {
    std::vector<std::string> lines;
    for (const auto& line : desk.LogLines()) {
      if (line.find(words) != std::string::npos) lines.push_back(line);
    }
    return lines;
  }
};

}  // namespace morvane::maintenance
