#include "maintenance/ui/file_parameter_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "maintenance/read_service.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_text.h"
#include "platform/qt/shown_value.h"

namespace morvane::maintenance {
namespace {

constexpr const char* kWidest = "88888";
/// Of two boxes of the record each.
constexpr std::array kPairs{"Position",   "Start point", "Symbol min",
                            "Symbol max", "Suit min",    "Suit max"};

}  // namespace

FileParameterPanel::FileParameterPanel(ReadService& viewer, QWidget* parent)
    : QWidget(parent), viewer_(viewer) {
  QGridLayout* const grid = NewGrid(this);
  grid->setSpacing(kServiceSpacing);
  grid->addWidget(MakeChoice(), 0, 0, 1, 2);
  grid->addWidget(MakePlaces(), 1, 0, 2, 1);
  grid->addWidget(MakeThresholds(), 1, 1);
  grid->addWidget(MakeCamera(), 2, 1);
  grid->addWidget(MakeSwitches(), 3, 0, 1, 2);
  grid->setRowStretch(4, 1);
  grid->setColumnStretch(1, 1);
}

QWidget* FileParameterPanel::MakeChoice() {
  auto* group = new QGroupBox("Card Index:", this);
  QGridLayout* const grid = NewGrid(group);
  int column = 0;
  const auto add = [&](const char* name, const char* caption, void (ReadService::*press)()) {
    grid->addWidget(NewServiceButton(
                        name, caption, [this, press] { (viewer_.*press)(); }, group),
                    0, column++);
  };
  add("Show_st", "&Standard", &ReadService::Show_st);
  add("Show_j", "&Jumbo", &ReadService::Show_j);
  add("Show_sm", "S&mall", &ReadService::Show_sm);
  shows_ = new ShownValue("shows", "Which parameters are shown", group);
  shows_->setWordWrap(true);
  grid->addWidget(shows_, 1, 0, 1, 4);
  grid->setColumnStretch(3, 1);
  return group;
}

QWidget* FileParameterPanel::MakePlaces() {
  auto* group = new QGroupBox("On the card", this);
  QGridLayout* const grid = NewGrid(group);
  grid->addWidget(new QLabel("x", group), 0, 1, Qt::AlignHCenter);
  grid->addWidget(new QLabel("y", group), 0, 2, Qt::AlignHCenter);
  for (std::size_t i = 0; i < record_.size(); ++i) {
    const char* const caption = kPairs[i / 2];
    const int row = static_cast<int>(i / 2) + 1;
    const bool first = i % 2 == 0;
    if (first) grid->addWidget(new QLabel(caption, group), row, 0);
    record_[i] =
        NewFileBox(kRecordNames[i], QString(caption) + (first ? " x" : " y"), kWidest, group);
    grid->addWidget(record_[i], row, first ? 1 : 2);
  }
  grid->setColumnStretch(3, 1);
  grid->setRowStretch(static_cast<int>(kPairs.size()) + 1, 1);
  return group;
}

QWidget* FileParameterPanel::MakeThresholds() {
  auto* group = new QGroupBox("Thresholds", this);
  QGridLayout* const grid = NewGrid(group);
  grid->addWidget(new QLabel("Symbol", group), 0, 1, Qt::AlignHCenter);
  grid->addWidget(new QLabel("Suit", group), 0, 2, Qt::AlignHCenter);
  boxes_.AddRow(*grid, "Bold",
                {{"Bold_th_txt", "Bold threshold of the symbol"},
                 {"Bold_th1_txt", "Bold threshold of the suit"}},
                kWidest, group);
  boxes_.AddRow(*grid, "Fine",
                {{"Fine_th_txt", "Fine threshold of the symbol"},
                 {"Fine_th1_txt", "Fine threshold of the suit"}},
                kWidest, group);
  boxes_.AddRow(*grid, "Recognize option", {{"Reco_option_txt", "Recognize option"}}, kWidest,
                group);
  grid->setColumnStretch(3, 1);
  return group;
}

QWidget* FileParameterPanel::MakeCamera() {
  auto* group = new QGroupBox("Camera and board switch", this);
  QGridLayout* const grid = NewGrid(group);
  const auto add = [&](const char* caption, ServiceFieldName name) {
    boxes_.AddRow(*grid, caption, {{name, caption}}, kWidest, group);
  };
  add("Brightness", "Video_Brightness");
  add("Contrast", "Video_Contrast");
  add("Board Switch Sensitivity", "Board_Sen");
  add("Parameters ID", "param_ID");
  grid->setColumnStretch(2, 1);
  return group;
}

QWidget* FileParameterPanel::MakeSwitches() {
  auto* group = new QGroupBox("Switches", this);
  QGridLayout* const grid = NewGrid(group);
  grid->addWidget(boxes_.AddSwitch("Ignore_flip", "Disable Flip Plate Switch", group), 0, 0);
  grid->addWidget(boxes_.AddSwitch("Ignore_box", "Disable Board Switch", group), 1, 0);
  grid->addWidget(boxes_.AddSwitch("Use_Board", "Use Board Number Reader as Board Switch", group),
                  2, 0);
  grid->setColumnStretch(1, 1);
  return group;
}

void FileParameterPanel::Show() {
  boxes_.Show(viewer_.Read().File);
  for (std::size_t i = 0; i < record_.size(); ++i) ShowFrom(*record_[i], viewer_.Record()[i]);
  ShowChanged(*shows_, ToQt(viewer_.Shows()));
}

}  // namespace morvane::maintenance
