#pragma once

#include <memory>

#include "maintenance/read_service.h"
#include "maintenance/ui/file_boxes.h"
#include "maintenance/ui/service_dialog.h"

class QHBoxLayout;
class QPlainTextEdit;
class QTabWidget;

namespace morvane {
class ShownText;
class ShownValue;
}  // namespace morvane

namespace morvane::maintenance {

class AsidePage;
class FileCardPanel;
class FileParameterPanel;
class FilePicturePanel;
class SensorPanel;

/// `Read_Service`: what a service file tells, as the console would show it. The pictures are a page
/// of their own in a narrow window, and in sight in a wide one. A file that is dropped is opened.
class ReadServiceWindow final : public ServiceDialog, public ReadServiceView {
 public:
  ReadServiceWindow(ReadService& viewer, QWidget* parent);
  ReadServiceWindow(const ReadServiceWindow&) = delete;
  ReadServiceWindow& operator=(const ReadServiceWindow&) = delete;
  ~ReadServiceWindow() override;

  void ShowAll() override;
  /// Escape does what the close box does.
  void reject() override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  QWidget* MakePages();
  QWidget* MakeSensors();
  QWidget* MakeIdentity();
  QWidget* MakeLists();
  QWidget* MakeButtons();
  void AddPage(QWidget* page, const char* caption);
  [[nodiscard]] QPlainTextEdit* NewList(const char* name, const char* spoken, QWidget* parent);
  void ShowDamage();
  void ShowSensors();
  [[nodiscard]] int WidthBesidePictures() const;

  ReadService& viewer_;
  FileBoxes boxes_;
  ShownText* Info_ = nullptr;
  ShownValue* damage_ = nullptr;
  QTabWidget* tabs_ = nullptr;
  FilePicturePanel* pictures_ = nullptr;
  std::unique_ptr<AsidePage> aside_;  ///< the pictures
  SensorPanel* sensors_ = nullptr;
  FileCardPanel* card_ = nullptr;
  FileParameterPanel* parameters_ = nullptr;
  QPlainTextEdit* Errors_ = nullptr;
  QPlainTextEdit* Test_ = nullptr;
};

}  // namespace morvane::maintenance
