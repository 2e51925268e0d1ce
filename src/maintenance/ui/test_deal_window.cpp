#include "maintenance/ui/test_deal_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "machine/ui/error_disp.h"
#include "maintenance/test_deck.h"
#include "maintenance/ui/service_widgets.h"
#include "maintenance/ui/test_deck_view.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"

namespace morvane::maintenance {
namespace {

constexpr const char* kWidestState = "Stopped at card 52, error 62: expected CQ, seen 10D";
constexpr int kMostDeals = 9999;
constexpr double kLongest = 9999.9;

QString Number(int deal) { return "Deal: " + QString::number(deal); }
QString Finished(int deals) { return "Without a difference: " + QString::number(deals); }
QString Cards(int cards) { return "Cards seen: " + QString::number(cards); }
QString Seconds(double seconds) { return QString("Time: %1 s").arg(seconds, 0, 'f', 1); }

}  // namespace

TestDealWindow::TestDealWindow(Program& program, TestDeal& deal, std::optional<QPoint>& place,
                               QWidget* parent)
    : WorkDialog("TestDealForm", "Morvane - Test Deal", parent),
      program_(program),
      deal_(deal),
      place_(place) {
  Place(MakeBody(), "TestDealCancel");
  ShowAll();
  Open();
  if (place_) move(*place_);
}

TestDealWindow::~TestDealWindow() { place_ = pos(); }

QWidget* TestDealWindow::MakeBody() {
  auto* body = new QWidget(this);
  doing_ = new ShownValue("Doing", "What happens", body);
  KeepSizeFor(*doing_, {kWidestState});
  TestDealProgress_ = NewBar("TestDealProgress", body);
  deck_ = new TestDeckView(deal_, body);
  auto* column = new QVBoxLayout(body);
  column->setContentsMargins(kServiceMargin, kServiceMargin, kServiceMargin, kServiceMargin);
  column->setSpacing(kServiceSpacing);
  column->addWidget(doing_);
  column->addWidget(TestDealProgress_);
  column->addWidget(deck_);
  column->addWidget(MakeTotals());
  column->addStretch();
  // What was seen is to be read beside the question about it.
  StayFree(*doing_);
  StayFree(*deck_);
  return body;
}

QWidget* TestDealWindow::MakeTotals() {
  auto* totals = new QWidget(this);
  auto* row = new QHBoxLayout(totals);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kServiceMargin);
  const auto add = [&](QLabel* label, const char* name, const char* spoken, const QString& widest) {
    label->setObjectName(name);
    label->setAccessibleName(spoken);
    KeepSizeFor(*label, {widest});
    row->addWidget(label);
  };
  number_ = new ShownValue("Number", "Deal", totals);
  finished_ = new ShownValue("Finished", "Deals without a difference", totals);
  cards_ = new QLabel(totals);  // these two change too often to be read out
  seconds_ = new QLabel(totals);
  add(number_, "Number", "Deal", Number(kMostDeals));
  add(finished_, "Finished", "Deals without a difference", Finished(kMostDeals));
  add(cards_, "CardsSeen", "Cards seen in all deals", Cards(kMostDeals * kCards));
  add(seconds_, "Seconds", "Time of this deal", Seconds(kLongest));
  row->addStretch();
  return totals;
}

void TestDealWindow::ShowState() { ShowAll(); }

void TestDealWindow::ShowAll() {
  const TestDealTotals totals = deal_.Totals();
  ShowChanged(*doing_, ToQt(StateText(deal_)));
  TestDealProgress_->setValue(deal_.TestDealProgress());
  deck_->Show();
  ShowChanged(*number_, Number(deal_.Number()));
  ShowChanged(*finished_, Finished(totals.Finished));
  cards_->setText(Cards(totals.Cards));
  seconds_->setText(Seconds(deal_.Seconds()));
  CancelButton().setEnabled(deal_.MayCancel());
}

void TestDealWindow::ShowError(machine::ErrorDialog& dialog) {
  machine::ShowErrorDisp(program_, dialog, this);
}

/// It goes when the machine has stopped, and the question behind that is answered.
void TestDealWindow::reject() {
  deal_.TestDealCancel();
  ShowAll();
}

}  // namespace morvane::maintenance
