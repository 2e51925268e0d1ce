#include <QAction>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <utility>

#include "platform/qt/filtered_edit.h"
#include "shell/ui/main_menu.h"

// The menu and controls of the main window, their captions and where they stand.

namespace morvane::shell {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr int kWidestDate = 500;
constexpr int kNumberWidth = 60;
constexpr int kTextMargins = 14;  // of a caption in a list header

struct Column {
  const char* Caption;
  int Width;
};

/// A width in which the caption would be cut grows with the font.
void AddColumns(QTreeWidget& view, std::initializer_list<Column> columns) {
  QStringList captions;
  for (const Column& column : columns) captions << column.Caption;
  view.setHeaderLabels(captions);
  int at = 0;
  for (const Column& column : columns) {
    const int text = view.header()->fontMetrics().horizontalAdvance(column.Caption) + kTextMargins;
    view.setColumnWidth(at++, std::max(column.Width, text));
  }
}

int WidthOf(const QTreeWidget& view) {
  return view.header()->length() + 2 * view.frameWidth() + kTextMargins;
}

}  // namespace

MainMenu::MainMenu(Program& program, Shell& shell) : program_(program), shell_(shell) {
  setObjectName("MainMenu");
  setWindowTitle("Morvane - Main Menu[*]");
  setAcceptDrops(true);
  MakeMenu();
  MakeStatusBar();
  auto* content = new QWidget(this);
  auto* all = new QVBoxLayout(content);
  all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  all->setSpacing(kSpacing);
  all->addWidget(MakeHeader());
  all->addWidget(MakeSetNumbers());
  all->addWidget(statistics_ = MakeStatistics(), 1);
  all->addStretch();
  setCentralWidget(content);
  RefreshSet();
  resize(QSize(720, 480).boundedTo(screen()->availableSize()));
  RestorePlace();
}

template <typename Menu>
QAction* MainMenu::AddEntry(Menu& menu, const char* name, const char* caption,
                            const QKeySequence& keys, std::function<void()> flow) {
  QAction* entry = menu.addAction(caption);
  entry->setObjectName(name);
  entry->setShortcut(keys);
  entry->setEnabled(static_cast<bool>(flow));
  if (!flow) return entry;
  connect(entry, &QAction::triggered, this, [entry, flow = std::move(flow)] {
    entry->setEnabled(false);
    flow();
    entry->setEnabled(true);
  });
  return entry;
}

void MainMenu::MakeMenu() {
  const auto addMenu = [this](const char* name, const char* caption) -> QMenu& {
    QMenu* menu = menuBar()->addMenu(caption);
    menu->setObjectName(name);
    return *menu;
  };
  QMenuBar& bar = *menuBar();
  QMenu& file = addMenu("menuFile", "&File");
  AddEntry(file, "menuNew", "&New", QKeySequence::New);
  AddEntry(file, "menuLoad", "&Load", QKeySequence::Open, [this] { shell_.MenuLoad(); });
  AddEntry(file, "menuImport", "&Import PBN", {}, [this] { shell_.MenuImport(); });
  AddEntry(file, "menuSave", "&Save", QKeySequence::Save, [this] { shell_.MenuSave(); });
  file.addSeparator()->setObjectName("div1");
  AddEntry(file, "menuExit", "E&xit", Qt::CTRL | Qt::Key_Q, [this] { close(); });
  AddEntry(bar, "menuDeal", "&Deal", Qt::CTRL | Qt::Key_D, [this] { shell_.MenuDeal(); });
  AddEntry(bar, "menuRead", "&Read");
  AddEntry(bar, "menuSort", "S&ort");
  AddEntry(bar, "menuEdit", "&Edit");
  AddEntry(bar, "Analize", "&Analyze");
  AddEntry(bar, "menuPrint", "&Print");
  QMenu& maintenance = addMenu("cmdMaintenance_direct", "&Maintenance");
  AddEntry(maintenance, "cmdMaintenance", "&Maintenance");
  AddEntry(maintenance, "Read_Service_File", "&Read Service File")
      ->setVisible(program_.ServiceLevel > 0);
  AddEntry(bar, "menuPoker", "Po&ker");
  QMenu& setup = addMenu("cmdSetup", "&Setup");
  AddEntry(setup, "cmdPref", "&Preferences");
}

QWidget* MainMenu::MakeHeader() {
  txtEventName_ = AddEventText("txtEventName", "Enter Event Name here", Shell::EventText::kName);
  txtEventSite_ =
      AddEventText("txtEventSite", "Enter Event Site Name here", Shell::EventText::kSite);
  txtEventDate_ = AddEventText("txtEventDate", "Enter Event Date here", Shell::EventText::kDate);
  txtEventDate_->setMaximumWidth(kWidestDate);
  txtFileName_ = AddShownText("txtFileName", "File name of the current Board Set");

  auto* header = new QWidget(this);
  auto* form = new QFormLayout(header);
  form->setContentsMargins(0, 0, 0, 0);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->addRow("Event Name:", txtEventName_);
  form->addRow("Event Site:", txtEventSite_);
  form->addRow("Event Date:", txtEventDate_);
  form->addRow("File Name:", txtFileName_);
  return header;
}

QWidget* MainMenu::MakeSetNumbers() {
  auto* numbers = new QWidget(this);
  auto* grid = new QGridLayout(numbers);
  grid->setContentsMargins(0, 0, 0, 0);
  const auto add = [this, grid](int row, int column, const char* caption, const char* name,
                                const char* tip) {
    QLineEdit* box = AddShownText(name, tip);
    box->setFixedWidth(kNumberWidth);
    box->setAlignment(Qt::AlignRight);
    grid->addWidget(new QLabel(caption, this), row, column);
    grid->addWidget(box, row, column + 1);
    return box;
  };
  txtFirstBoard_ = add(0, 0, "First Board:", "txtFirstBoard", "First Board Number of the set");
  txtLastBoard_ = add(1, 0, "Last Board:", "txtLastBoard", "Last Board Number of the set");
  txtCount_ = add(0, 3, "Boards in Set:", "txtCount", "Number of boards in a set.");
  txtCompleted_ =
      add(1, 3, "Completed Boards:", "txtCompleted", "Number of completed boards in a set.");
  grid->setColumnMinimumWidth(2, 2 * kMargin);
  grid->setColumnStretch(5, 1);
  ShowStat_ = new QPushButton(this);
  ShowStat_->setObjectName("ShowStat");
  connect(ShowStat_, &QPushButton::clicked, this, [this] {
    shell_.ToggleStatistics();
    RefreshSet();
  });
  grid->addWidget(ShowStat_, 1, 6);
  return numbers;
}

QWidget* MainMenu::MakeStatistics() {
  HandStat_ = AddListView("HandStat", "Hands statistic");
  AddColumns(*HandStat_, {{"Hand:", 100},
                          {"   N   ", 30},
                          {"   S   ", 30},
                          {"   E   ", 30},
                          {"   W   ", 30},
                          {"  NS  ", 30},
                          {"  EW  ", 30}});
  lbxShapes_ = AddListView("lbxShapes", "Actual and expected Hand shapes");
  AddColumns(*lbxShapes_, {{"Shape", 34}, {"Actual", 34}, {"Expected", 52}, {"Diffrence", 52}});
  HandStat_->setMinimumWidth(WidthOf(*HandStat_));
  lbxShapes_->setMinimumWidth(WidthOf(*lbxShapes_));

  auto* hands = new QVBoxLayout;
  hands->addWidget(new QLabel("Hand Statistics:", this));
  hands->addWidget(HandStat_, 1);
  hands->addWidget(MakeExtremes());
  auto* shapes = new QVBoxLayout;
  shapes->addWidget(new QLabel("Hand Shapes:", this));
  shapes->addWidget(lbxShapes_, 1);
  auto* statistics = new QWidget(this);
  auto* both = new QHBoxLayout(statistics);
  both->setContentsMargins(0, 0, 0, 0);
  both->setSpacing(kSpacing);
  both->addLayout(hands, 1);
  both->addLayout(shapes);
  return statistics;
}

QWidget* MainMenu::MakeExtremes() {
  txtMaxFreq_ = AddShownText("txtMaxFreq", "Maximum card frequency for any Hand (ave 25%)");
  txtMinFreq_ = AddShownText("txtMinFreq", "Minimum card frequency for any Hand (ave 25%)");
  txtInDeals_ =
      AddShownText("txtInDeals", "Board numbers for similar hands within the current set");
  auto* extremes = new QWidget(this);
  auto* form = new QFormLayout(extremes);
  form->setContentsMargins(0, 0, 0, 0);
  form->addRow("Max frequency:", txtMaxFreq_);
  form->addRow("Min frequency:", txtMinFreq_);
  form->addRow("Inner Similarity:", txtInDeals_);
  return extremes;
}

void MainMenu::MakeStatusBar() {
  statusBar()->setObjectName("StatusBar1");
  panel_ = new QLabel(this);
  panel_->setObjectName("Panel1");
  panel_->setTextFormat(Qt::PlainText);
  lblVersion_ = new QLabel(this);
  lblVersion_->setObjectName("lblVersion");
  statusBar()->addWidget(panel_, 1);
  statusBar()->addPermanentWidget(lblVersion_);
}

QLineEdit* MainMenu::AddShownText(const char* name, const char* tip) {
  auto* box = new QLineEdit(this);
  box->setObjectName(name);
  box->setToolTip(tip);
  box->setReadOnly(true);
  return box;
}

FilteredEdit* MainMenu::AddEventText(const char* name, const char* tip, Shell::EventText which) {
  auto* box = new FilteredEdit(
      [this, which](FilteredBox typed) {
        FilteredBox shown = shell_.ChangeEvent(which, std::move(typed));
        ShowTitle();
        return shown;
      },
      this);
  box->setObjectName(name);
  box->setToolTip(tip);
  box->setAcceptDrops(false);  // a file is for the window
  return box;
}

QTreeWidget* MainMenu::AddListView(const char* name, const char* tip) {
  auto* view = new QTreeWidget(this);
  view->setObjectName(name);
  view->setToolTip(tip);
  view->setRootIsDecorated(false);
  view->header()->setStretchLastSection(false);
  return view;
}

}  // namespace morvane::shell
