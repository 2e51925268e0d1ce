#include "maintenance/ui/file_boxes.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

#include "maintenance/ui/service_widgets.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_text.h"

namespace morvane::maintenance {
namespace {

std::string NameOf(ServiceFieldName name) { return std::string(kServiceFields[name.At].Name); }

}  // namespace

ShownText* NewFileBox(std::string_view name, const QString& spoken, const char* widest,
                      QWidget* parent) {
  constexpr int kAround = 14;  // pixels, of frame and margin
  auto* box = new ShownText(std::string(name).c_str(), "", parent);
  box->setAccessibleName(spoken);
  if (widest == nullptr) return box;
  box->setFixedWidth(box->fontMetrics().horizontalAdvance(widest) + kAround);
  return box;
}

void ShowFrom(ShownText& box, std::string_view text) {
  const QString shown = ToQt(text);
  if (box.text() == shown) return;
  box.setText(shown);
  box.setCursorPosition(0);
}

ShownText* FileBoxes::Add(ServiceFieldName name, const QString& spoken, const char* widest,
                          QWidget* parent) {
  boxes_.push_back({NewFileBox(NameOf(name), spoken, widest, parent), name});
  return boxes_.back().Text;
}

QCheckBox* FileBoxes::AddSwitch(ServiceFieldName name, const char* caption, QWidget* parent) {
  auto* box = new QCheckBox(QString(caption).remove('&'), parent);
  box->setObjectName(ToQt(NameOf(name)));
  MakeReadOnly(*box);
  switches_.push_back({box, name});
  return box;
}

void FileBoxes::AddRow(QGridLayout& grid, const char* caption, std::initializer_list<Named> fields,
                       const char* widest, QWidget* parent) {
  const int row = grid.rowCount();
  grid.addWidget(new QLabel(caption, parent), row, 0);
  int column = 0;
  for (const Named& field : fields) {
    grid.addWidget(Add(field.Name, field.Spoken, widest, parent), row, ++column);
  }
}

void FileBoxes::Show(const ServiceFile& file) {
  for (const Box& box : boxes_) ShowFrom(*box.Text, file[box.Name]);
  for (const Switch& box : switches_) box.Box->setChecked(file[box.Name] == "1");
}

}  // namespace morvane::maintenance
