#include "maintenance/ui/auto_setup_window.h"

#include <QGridLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "machine/run_history.h"
#include "maintenance/auto_setup.h"
#include "maintenance/ui/search_map_view.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"

namespace morvane::maintenance {
namespace {

using Stage = AutoSetup::Stage;

constexpr const char* kLeft = "Time left at most: ";

}  // namespace

AutoSetupWindow::AutoSetupWindow(const Clock& clock, AutoSetup& setup,
                                 std::function<void()> picture, QWidget* parent)
    : WorkDialog("AutoSetup", "Morvane - Auto Setup", parent),
      clock_(clock),
      setup_(setup),
      picture_(std::move(picture)),
      map_(setup.Search(), Seconds()) {
  Place(MakeBody(), "Cancel");
  ShowAll();
  Open();
}

QWidget* AutoSetupWindow::MakeBody() {
  auto* body = new QWidget(this);
  doing_ = new ShownValue("Doing", "What happens", body);
  left_ = new ShownValue("TimeLeft", "Time left", body);
  ProgressBar1_ = NewBar("ProgressBar1", body);
  mapView_ = new SearchMapView(map_, body);
  auto* column = new QVBoxLayout(body);
  column->setContentsMargins(kServiceMargin, kServiceMargin, kServiceMargin, kServiceMargin);
  column->setSpacing(kServiceSpacing);
  column->addWidget(doing_);
  column->addWidget(ProgressBar1_);
  column->addWidget(left_);
  column->addWidget(mapView_);
  column->addWidget(MakePlaces());
  column->addStretch();
  return body;
}

QWidget* AutoSetupWindow::MakePlaces() {
  auto* places = new QWidget(this);
  QGridLayout* const grid = NewGrid(places);
  grid->setContentsMargins(0, 0, 0, 0);
  const auto add = [&](const char* name, const char* spoken, int row, int column) {
    auto* label = new ShownValue(name, spoken, places);
    grid->addWidget(label, row, column);
    return label;
  };
  posx_ = add("posx", "Position x", 0, 0);
  posy_ = add("posy", "Position y", 0, 1);
  startx_ = add("startx", "Start point x", 1, 0);
  starty_ = add("starty", "Start point y", 1, 1);
  symy_ = add("symy", "Highest symbol", 2, 0);
  suity_ = add("suity", "Highest suit", 2, 1);
  return places;
}

double AutoSetupWindow::Seconds() const {
  return std::chrono::duration<double>(clock_.Elapsed()).count();
}

void AutoSetupWindow::ShowSearch() {
  map_.Take(Seconds());
  ShowAll();
}

void AutoSetupWindow::ShowAll() {
  const SetupSearch& search = setup_.Search();
  const SearchPosition& at = search.At();
  ShowChanged(*doing_, Doing());
  const auto seconds = map_.SecondsLeft();
  ShowChanged(*left_, kLeft + (seconds ? ToQt(machine::About(*seconds)) : QString("...")));
  left_->setVisible(setup_.Now() == Stage::kSearching);
  ProgressBar1_->setValue(search.Progress());
  mapView_->Show();
  ShowChanged(*posx_, "Position X: " + QString::number(at.pos_x));
  ShowChanged(*posy_, "Position Y: " + QString::number(at.pos_y));
  ShowChanged(*startx_, "Start X: " + QString::number(at.start_x));
  ShowChanged(*starty_, "Start Y: " + QString::number(at.start_y));
  for (const auto& [label, text] :
       {std::pair(symy_, &setup_.symy()), std::pair(suity_, &setup_.suity())}) {
    ShowChanged(*label, ToQt(*text));
    label->setVisible(!text->empty());
  }
  CancelButton().setVisible(setup_.Now() == Stage::kSearching);
}

QString AutoSetupWindow::Doing() const {
  if (setup_.Now() == Stage::kPicture) return "The card is found. Fetching its picture ...";
  if (setup_.Now() == Stage::kOver) {
    const bool found = setup_.Search().Now() == SetupSearch::State::kFound;
    return found ? "The card is found." : "The card has not been found.";
  }
  const int refinements = setup_.Search().Refinements();
  if (refinements == 0) {
    return QString("Looking for the ten of spades: row %1 of %2")
        .arg(map_.RowNow() + 1)
        .arg(map_.Rows());
  }
  return QString("Seen. Bringing it to its place: %1 of 3").arg(refinements);
}

/// It goes when the search has ended.
void AutoSetupWindow::reject() { setup_.Cancel(); }

}  // namespace morvane::maintenance
