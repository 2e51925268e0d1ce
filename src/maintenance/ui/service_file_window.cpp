#include "maintenance/ui/service_file_window.h"

#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "maintenance/service_gathering.h"
#include "maintenance/ui/pixel_view.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/shown_value.h"

namespace morvane::maintenance {
namespace {

using Stage = ServiceGathering::Stage;

constexpr const char* kSettling = "Waiting for the feeder to settle ...";
constexpr const char* kNewPicture = "Fetching the picture of the card ...";
constexpr const char* kErrorPicture = "Fetching the picture of the card in question ...";
constexpr const char* kLabels = "Fetching what the machine has made of it ...";
constexpr const char* kRest = "Reading parameters and counters ...";
constexpr const char* kCancelling = "Cancelling ...";

}  // namespace

ServiceFileWindow::ServiceFileWindow(ServiceGathering& gathering, std::function<void()> picture,
                                     QWidget* parent)
    : WorkDialog("Service_file", "Morvane - Service File", parent),
      gathering_(gathering),
      picture_(std::move(picture)) {
  Place(MakeBody(), "Command1");
  ShowGathering();
  Open();
}

QWidget* ServiceFileWindow::MakeBody() {
  auto* body = new QWidget(this);
  doing_ = new ShownValue("Doing", "What happens", body);
  KeepSizeFor(*doing_, {kSettling, kNewPicture, kErrorPicture, kLabels, kRest, kCancelling});
  ProgressBar1_ = NewBar("ProgressBar1", body);
  card_ = new PixelView("Card", "Picture of the card",
                        {PaintedPicture::kColumns, PaintedPicture::kRows}, 1, body);
  card_->setFocusPolicy(Qt::NoFocus);  // there is only to look at it
  auto* column = new QVBoxLayout(body);
  column->setContentsMargins(kServiceMargin, kServiceMargin, kServiceMargin, kServiceMargin);
  column->setSpacing(kServiceSpacing);
  column->addWidget(doing_);
  column->addWidget(ProgressBar1_);
  column->addWidget(card_, 1);
  return body;
}

void ServiceFileWindow::ShowGathering() {
  ShowChanged(*doing_, Doing());
  ProgressBar1_->setValue(gathering_.ProgressBar1());
  CancelButton().setEnabled(gathering_.MayCancel());
  if (gathering_.Now() == Stage::kSettling) return;  // what it shows is an older picture
  const PaintedPicture& painted = gathering_.Pictures().Picture1;
  card_->Show([&painted](int x, int y) { return painted.At(x, y); });
  picture_();
}

QString ServiceFileWindow::Doing() const {
  if (gathering_.Cancelled()) return kCancelling;
  switch (gathering_.Now()) {
    case Stage::kSettling:
      return kSettling;
    case Stage::kPicture:
      return gathering_.OfTestDeal() ? kErrorPicture : kNewPicture;
    case Stage::kLabels:
      return kLabels;
    default:
      return kRest;
  }
}

void ServiceFileWindow::reject() {
  gathering_.Cancel();
  ShowGathering();
}

}  // namespace morvane::maintenance
