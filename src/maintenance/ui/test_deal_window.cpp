#include "maintenance/ui/test_deal_window.h"

#include <QHBoxLayout>
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

TestDealWindow::TestDealWindow(Program& program, TestDeal& deal, QWidget* parent)
    : WorkDialog("TestDealForm", "Morvane - Test Deal", parent), program_(program), deal_(deal) {
  Place(MakeBody(), "TestDealCancel");
  ShowAll();
  Open();
}

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
  const auto add = [&](const char* name, const char* spoken, const QString& widest) {
    auto* label = new ShownValue(name, spoken, totals);
    KeepSizeFor(*label, {widest});
    row->addWidget(label);
    return label;
  };
  number_ = add("Number", "Deal", Number(kMostDeals));
  finished_ = add("Finished", "Deals without a difference", Finished(kMostDeals));
  cards_ = add("CardsSeen", "Cards seen in all deals", Cards(kMostDeals * kCards));
  seconds_ = add("Seconds", "Time of this deal", Seconds(kLongest));
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
  ShowChanged(*cards_, Cards(totals.Cards));
  ShowChanged(*seconds_, Seconds(deal_.Seconds()));
  CancelButton().setEnabled(deal_.Result() == TestDeal::End::kNotYet);
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
