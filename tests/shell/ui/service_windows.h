#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QProgressBar>
#include <QTabWidget>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "machine/open_link.h"
#include "maintenance/maintenance.h"
#include "maintenance/paper_board.h"
#include "maintenance/paper_flash.h"
#include "maintenance/service_file_sample.h"
#include "maintenance/ui/camera_bridge.h"
#include "maintenance/ui/magnify_window.h"
#include "maintenance/ui/maintenance_window.h"
#include "maintenance/ui/read_service_window.h"
#include "shell/ui/main_menu_desk.h"
#include "wire/machine_card.h"

namespace morvane::shell {

/// Brings up every window of the machine's service, over a desktop with its simulated machine.
class ServiceWindows : public MainMenuTest {
 protected:
  using Look = std::function<void(QWidget&)>;

  static void LookAtPages(QWidget& panel, const Look& look) {
    auto& tabs = test::Find<QTabWidget>(panel, "tabs");
    for (int page = 0; page < tabs.count(); ++page) {
      tabs.setCurrentIndex(page);
      QApplication::processEvents();
      look(panel);
    }
  }

  /// Before the machine answers; then each page, with the motors on, a flip plate that is open,
  /// parameters that are not written, and a picture; then the windows that it opens.
  void LookAtMaintenance(const Look& look) {
    ASSERT_TRUE(
        machine::OpenLink(desk.Prog, machine_.Link, maintenance::Maintenance::kLinkTimeoutMs));
    const auto pictures = std::make_unique<maintenance::PictureStore>();
    maintenance::Maintenance console(desk.Prog, machine_, *pictures);
    maintenance::MaintenanceWindow window(desk.Prog, console, menu.get());
    console.Open(window);
    window.activateWindow();
    look(window);
    desk.Loop.WaitMs(maintenance::Maintenance::kFirstContactMs + 100);
    for (const char* output : {"Motors", "Cam_leds", "Cam_power"}) {
      test::Find<QAbstractButton>(window, output).click();
    }
    test::Find<QAbstractButton>(window, "Ignore_flip").click();
    simulated.Opened().Cover(2, true);
    simulated.Opened().SetSpeed(3, 9000);
    simulated.Opened().Set(simulator::Sensors::Switch::FlipPlate, false);
    test::Find<QAbstractButton>(window, "Feed_card").click();
    desk.Loop.WaitMs(20'000);  // the motors run up
    for (const char* step : {"Capture", "Showb", "Reco", "Frame_draw", "Start_draw"}) {
      test::Find<QAbstractButton>(window, step).click();
    }
    LookAtPages(window, look);
    LookAtMagnify(*pictures, window, look);
    LookAtAdvance(console, look);
    // It writes the parameters, so that nothing is lost at the end. The card is another.
    LookAtWork(window, {"AutoSetup_command", "AutoSetup", "ProgressBar1", "Cancel"}, look);
    LookAtWork(window, {"Email", "Service_file", "ProgressBar1", "Command1"}, look);
    LayPackInOrder();
    LookAtWork(window, {"DealTest", "TestDealForm", "TestDealProgress", "TestDealCancel"}, look);
    LookAtCalibration(window, look);
    LookAtFirmware(window, look);
    console.Exit();
  }

  void LookAtMagnify(const maintenance::PictureStore& pictures, QWidget& console,
                     const Look& look) {
    maintenance::MagnifyWindow window(pictures, &console);
    window.show();
    test::Find<QAbstractButton>(window, "Raster").click();
    desk.Loop.Pump();
    look(window);
    window.close();
  }

  void LookAtAdvance(maintenance::Maintenance& console, const Look& look) {
    const int before = std::exchange(desk.Prog.ServiceLevel, 2);
    desk.When("Advance_form", [&](QWidget& window) {
      desk.Loop.After(100, [&] {  // it reads the machine
        look(window);
        window.close();
      });
    });
    console.Advance();
    desk.Prog.ServiceLevel = before;
  }

  /// As the question of a test deal tells.
  void LayPackInOrder() {
    std::array<int, kCards> pack{};
    for (std::size_t i = 0; i < pack.size(); ++i) {
      pack[i] = wire::MachineCard(static_cast<int>(i) + 1).Card();
    }
    ASSERT_TRUE(simulated.LoadPack(pack));
  }

  /// What a button of the console opens, behind its prompt.
  struct Work {
    const char* Button;
    const char* Window;
    const char* Bar;
    const char* Cancel;
  };
  /// In its middle; then it is cancelled.
  void LookAtWork(QWidget& console, const Work& work, const Look& look) {
    constexpr int kMiddle = 20;  // per cent
    desk.AnswerBox(QMessageBox::Ok);
    bool looked = false;
    const auto before = desk.Loop.OnPump;
    desk.Loop.OnPump = [&] {
      before();
      QWidget* window = test::TopWindow(work.Window);
      if (window == nullptr || looked) return;
      if (test::Find<QProgressBar>(*window, work.Bar).value() < kMiddle) return;
      looked = true;
      window->activateWindow();  // as window managers do behind a box
      look(*window);
      test::Find<QAbstractButton>(*window, work.Cancel).click();
    };
    test::Find<QAbstractButton>(console, work.Button).click();
    desk.Loop.OnPump = before;
    EXPECT_TRUE(looked) << work.Window;
  }

  /// Shortly before the end of the sweep up.
  void LookAtCalibration(QWidget& console, const Look& look) {
    constexpr std::size_t kStep = 186;  // of 189
    maintenance::PaperBoard board;
    bool looked = false;
    flash_.Answer = [&](const test::Bytes& plain) {
      const test::Bytes reply = board.ReplyTo(plain);
      if (reply.empty() || board.Trials.size() != kStep) return reply;
      desk.Loop.Post([&] {
        QWidget* window = test::TopWindow("Board_calibration");
        ASSERT_NE(window, nullptr);
        looked = true;
        window->activateWindow();  // as window managers do behind a box
        look(*window);
        test::Find<QAbstractButton>(*window, "Command1").click();
      });
      return reply;
    };
    desk.AnswerBox(QMessageBox::Ok);
    test::Find<QAbstractButton>(console, "Calibrate_Board_Switch").click();
    flash_.Answer = nullptr;
    EXPECT_TRUE(looked);
  }

  /// Each page of a service file, with everything drawn.
  void LookAtReadService(const Look& look) {
    const std::string path = desk.Folder / "Service_file_4711_2019_3_5__1.txt";
    test::WriteContent(path, BytesOf(maintenance::SampleServiceFile()));
    maintenance::ReadService viewer(desk.Prog);
    maintenance::ReadServiceWindow window(viewer, menu.get());
    viewer.Open(window, path);
    window.activateWindow();
    for (const char* step : {"Frame_draw", "Start_draw"}) {
      test::Find<QAbstractButton>(window, step).click();
    }
    LookAtPages(window, look);
    window.close();
  }

  /// In the middle of a download.
  void LookAtFirmware(QWidget& console, const Look& look) {
    constexpr int kMiddle = 40;  // of 64 blocks
    const std::string path = desk.Folder / "Firmware 2.91.adc";
    test::WriteContent(
        path, maintenance::FileOf(maintenance::CodeOf(2, 0x91, 4000), std::string(4000, 'b')));
    desk.When("cdOpen", [&path](QWidget& dialog) {
      test::Type(dialog, path);
      test::Press(dialog, Qt::Key_Return);
    });
    bool looked = false;
    int blocks = 0;
    flash_.Answer = [&](const test::Bytes& plain) {
      if (plain[0] == 0x29) return test::Short({0x29});
      if (plain[0] != 0xAA) return test::Bytes();
      desk.Clock.Spend(std::chrono::milliseconds(100));
      if (++blocks == kMiddle) {
        desk.Loop.Post([&] {
          QWidget* window = test::TopWindow("Firmware");
          ASSERT_NE(window, nullptr);
          looked = true;
          window->activateWindow();  // as window managers do behind a dialog
          look(*window);
          test::Find<QAbstractButton>(*window, "Command1").click();
        });
      }
      return test::Short({0x2A});
    };
    test::Find<QAbstractButton>(console, "Download").click();
    flash_.Answer = nullptr;
    EXPECT_TRUE(looked);
  }

  maintenance::CameraBridge flash_{simulated};
  machine::Machine machine_{desk.Random, flash_};
};

}  // namespace morvane::shell
