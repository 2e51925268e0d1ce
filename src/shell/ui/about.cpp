#include "shell/ui/about.h"

#include <QApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_text.h"
#include "platform/qt/window_place.h"

namespace morvane::shell {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr int kIcon = 64;
constexpr qreal kNameSize = 1.6;  // of the text's
constexpr int kPathCharacters = 44;

/// A text that can be marked and copied, by keys too.
QLabel* NewText(const char* name, const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  label->setFocusPolicy(Qt::StrongFocus);
  return label;
}

QString TextOf(const std::vector<Library>& libraries) {
  QStringList lines;
  for (const Library& library : libraries) lines << ToQt(library.Name + " " + library.Version);
  return lines.join('\n');
}

}  // namespace

AboutWindow::AboutWindow(Help& help, QWidget* parent) : QDialog(parent), help_(help) {
  setObjectName("About");
  setWindowTitle("About Morvane");
  setAttribute(Qt::WA_DeleteOnClose);
  Fill(*this, MakeBody(), MakeButtons());
  findChild<QPushButton*>("Close")->setFocus();  // a text would show a cursor
  FitToScreen(*this);
}

QWidget* AboutWindow::MakeBody() {
  auto* body = new QWidget(this);
  auto* all = new QVBoxLayout(body);
  all->setContentsMargins(kMargin, kMargin, kMargin, 0);
  all->setSpacing(kSpacing);
  all->addLayout(MakeHead());
  all->addLayout(MakeFacts());
  all->addStretch();
  return body;
}

QLayout* AboutWindow::MakeHead() {
  auto* icon = new QLabel(this);
  icon->setPixmap(QApplication::windowIcon().pixmap(kIcon));
  auto* name = NewText("lblName", "Morvane", this);
  QFont large = name->font();
  large.setPointSizeF(large.pointSizeF() * kNameSize);
  name->setFont(large);
  auto* texts = new QVBoxLayout;
  texts->addWidget(name);
  texts->addWidget(NewText("lblVersion", "Version " + ToQt(help_.Version()).simplified(), this));
  auto* head = new QHBoxLayout;
  head->setSpacing(kMargin);
  head->addWidget(icon);
  head->addLayout(texts, 1);
  return head;
}

QLayout* AboutWindow::MakeFacts() {
  auto* form = new QFormLayout;
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->addRow("Libraries:", NewText("lblLibraries", TextOf(help_.Libraries()), this));
  AddPath(*form, "Data folder:", "txtData", help_.DataFolder(), "ShowData",
          [this] { help_.ShowDataFolder(); });
  AddSettings(*form);
  return form;
}

/// A key of the registry has no folder to open.
void AboutWindow::AddSettings(QFormLayout& form) {
  const std::string& key = help_.SettingsKey();
  if (key.empty()) {
    AddPath(form, "Settings file:", "txtSettings", help_.SettingsFile(), "ShowSettings",
            [this] { help_.ShowSettingsFolder(); });
  } else {
    form.addRow("Settings:", NewPlace("Settings:", "txtSettings", key));
  }
}

void AboutWindow::AddPath(QFormLayout& form, const char* caption, const char* name,
                          const std::string& path, const char* button,
                          std::function<void()> press) {
  auto* open = NewButton(button, "Open Folder", std::move(press));
  open->setAccessibleName(QString("Open Folder: ") + QString(caption).chopped(1));
  auto* row = new QHBoxLayout;
  row->addWidget(NewPlace(caption, name, path), 1);
  row->addWidget(open);
  form.addRow(caption, row);
}

QWidget* AboutWindow::NewPlace(const char* caption, const char* name, const std::string& place) {
  auto* box = new ShownText(name, place.c_str(), this);
  box->setText(ToQt(place));
  box->setAccessibleName(QString(caption).chopped(1));
  box->setMinimumWidth(kPathCharacters * box->fontMetrics().averageCharWidth());
  return box;
}

QWidget* AboutWindow::MakeButtons() {
  auto* guide = NewButton("Guide", "&Guide", [this] { help_.OpenContents(); });
  auto* copy = NewButton("Diagnosis", "Copy &Diagnosis", [this] { help_.CopyDiagnosis(); });
  copy->setToolTip("Copies what helps to find a fault, without deals and names of files");
  auto* close = NewButton("Close", "Close", [this] { this->close(); });
  close->setDefault(true);
  auto* buttons = new QWidget(this);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->addWidget(guide);
  row->addWidget(copy);
  row->addStretch();
  row->addWidget(close);
  return buttons;
}

QPushButton* AboutWindow::NewButton(const char* name, const char* caption,
                                    std::function<void()> press) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, std::move(press));
  return button;
}

void ShowAbout(Help& help, QWidget& mainMenu) {
  auto* window = mainMenu.findChild<AboutWindow*>("About");
  if (window == nullptr) window = new AboutWindow(help, &mainMenu);
  window->open();
  window->activateWindow();
}

}  // namespace morvane::shell
