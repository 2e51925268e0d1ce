#pragma once

#include <QScrollBar>
#include <QWheelEvent>
#include <map>

#include "maintenance/ui/console_desk.h"
#include "maintenance/ui/pixel_view.h"

namespace morvane::maintenance {

/// The console at a machine whose camera is on paper, its page of the picture in sight.
class PictureDesk : public ConsoleDesk {
 protected:
  using ConsoleDesk::ConsoleDesk;

  std::map<std::uint8_t, test::Bytes> replies{
      {0x0A, test::Short({0x0A, 1, 2, 77, 0, 23, 11})},
      {0x15, test::Short({0x15, 0, 41, 10, 1, 46, 0})},
      {0x0F, test::Short({0x0F, 5, 6, 10, 20, 30, 50})},
      {0x10, test::Short({0x10, 47, 0, 11, 31, 60, 90})},
  };  ///< plain, by code
  /// Whether the ten of spades is seen in a trial there.
  std::function<bool(int x, int y)> Seen;
  std::function<void(int)> OnLine;  ///< a line of the picture is asked for
  std::vector<std::uint8_t> codes;  ///< of the camera's frames, as they were sent

  /// What the camera sees.
  static std::uint8_t Pixel(int x, int y) { return static_cast<std::uint8_t>(2 * x + 3 * y); }

  void OpenPicture() {
    camera.Answer = [this](const test::Bytes& plain) { return Answered(plain); };
    Contact();
    Page(kPicturePage);
  }
  [[nodiscard]] PixelView& View() { return test::Find<PixelView>(*window, "Picture1"); }
  [[nodiscard]] QRgb Shown(int x, int y) { return View().Image().pixel(x, y) & 0xFFFFFFU; }
  /// The middle of a pixel, in the picture's viewport: a picture with room around it stands in the
  /// middle.
  [[nodiscard]] QPoint PlaceOf(int x, int y) {
    const auto& view = View();
    const int zoom = view.Zoom();
    const QSize spare = (view.viewport()->size() - view.Image().size() * zoom).expandedTo({0, 0});
    const auto scrolled = [](const QScrollBar* bar) { return bar->value(); };
    return {spare.width() / 2 - scrolled(view.horizontalScrollBar()) + x * zoom + zoom / 2,
            spare.height() / 2 - scrolled(view.verticalScrollBar()) + y * zoom + zoom / 2};
  }
  void MoveTo(const QPoint& place) {
    QTest::mouseMove(window->windowHandle(), View().viewport()->mapTo(window.get(), place));
    desk.Loop.Pump();
  }
  void ClickAt(const QPoint& place) {
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                      View().viewport()->mapTo(window.get(), place));
  }
  void Wheel(const QPoint& place, int notches) {
    QWidget* viewport = View().viewport();
    QWheelEvent event(place, viewport->mapToGlobal(place), {}, {0, 120 * notches}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewport, &event);
  }

 private:
  test::Bytes Answered(const test::Bytes& plain) {
    if (plain[0] == 0x01) {
      codes.push_back(plain[0]);
      if (OnLine) OnLine(plain[1]);
      test::Bytes line = test::Long({0x81, plain[1]});
      for (int x = 0; x < PixelPlane::kWidth; ++x) {
        line[8 + static_cast<std::size_t>(x)] = Pixel(x, plain[1]);
      }
      return line;
    }
    if (plain[0] == 0x22 && Seen) {
      codes.push_back(plain[0]);
      const bool seen = Seen(plain[1], plain[2]);
      return seen ? test::Short({0x15, 0, 9, 10, 1, 46, 0})
                  : test::Short({0x15, 0, 9, 0, 0, 46, 25});
    }
    const auto reply = replies.find(plain[0]);
    if (reply == replies.end()) return {};
    codes.push_back(plain[0]);
    return reply->second;
  }
};

}  // namespace morvane::maintenance
