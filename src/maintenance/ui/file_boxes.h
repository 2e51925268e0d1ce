#pragma once

#include <QStringList>
#include <functional>
#include <initializer_list>
#include <vector>

#include "maintenance/service_file.h"

class QCheckBox;
class QGridLayout;
class QWidget;

namespace morvane {
class ShownText;
}

namespace morvane::maintenance {

/// The boxes in which the fields of a service file stand, to be read and copied.
class FileBoxes {
 public:
  /// `widest` is the text that it has to have room for; without it, it takes the room there is.
  ShownText* Add(ServiceFieldName name, const QString& spoken, const char* widest, QWidget* parent);
  /// A field that is a check box.
  QCheckBox* AddSwitch(ServiceFieldName name, const char* caption, QWidget* parent);
  struct Named {
    ServiceFieldName Name;
    const char* Spoken;
  };
  /// A row of a grid: the caption, and a box for each of the fields.
  void AddRow(QGridLayout& grid, const char* caption, std::initializer_list<Named> fields,
              const char* widest, QWidget* parent);
  void Show(const ServiceFile& file);

 private:
  struct Box {
    ShownText* Text;
    ServiceFieldName Name;
  };
  struct Switch {
    QCheckBox* Box;
    ServiceFieldName Name;
  };
  std::vector<Box> boxes_;
  std::vector<Switch> switches_;
};

/// A box as above whose text comes from elsewhere.
[[nodiscard]] ShownText* NewFileBox(std::string_view name, const QString& spoken,
                                    const char* widest, QWidget* parent);
/// Shows it from its start.
void ShowFrom(ShownText& box, std::string_view text);

}  // namespace morvane::maintenance
