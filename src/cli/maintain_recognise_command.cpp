#include "cli/maintain_recognise_command.h"

#include <array>
#include <memory>

#include "cli/camera_service.h"
#include "cli/paper_request.h"
#include "cli/service_lines.h"
#include "platform/files.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

using maintenance::Maintenance;

class RecogniseService final : public CameraService {
 public:
  RecogniseService(Maintenance& console, Job& job, const MaintainRecogniseOptions& options,
                   bool& done, bool& recognised)
      : CameraService(console, job, done), options_(options), recognised_(recognised) {}

 private:
  bool Work() override {
    Select();
    if (!Capture()) return false;
    const std::string captureTime = console_.Bench().Shown().Cap_time;
    console_.Bench().Reco();
    if (console_.LinkFailed()) return false;
    maintenance::RecognitionBench::Texts texts = console_.Bench().Shown();
    texts.Cap_time = captureTime;  // which the recognition has cleared
    job_.Place.Screen.Out(TextOf(RecognitionLines(texts)));
    recognised_ = texts.Verdict.Reco_error == "OK";
    return options_.Labels.empty() || Fetch(options_.Labels);
  }
  void Select() {
    if (options_.National) console_.SelectNational(*options_.National);
    if (options_.CardType) console_.SelectCardType(*options_.CardType);
    if (options_.Threshold) console_.SelectThreshold(*options_.Threshold);
  }

  const MaintainRecogniseOptions& options_;
  bool& recognised_;
};

std::optional<int> NumberIn(OptionReader& given, const Option& option) {
  const auto word = given.Choice(option);
  if (!word) return std::nullopt;
  return Val(*word);
}

constexpr Option kTypeOption{"type", "0|1", "0 cards without a frame, 1 with"};
constexpr Option kFontOption{"font", "0|1|2", "0 normal, 1 fine, 2 bold"};
constexpr std::array kOptions{
    Option{"labels", "OUT.png", "also write how the recogniser has divided the picture"},
    kIndexOption,
    kNationalOption,
    kTypeOption,
    kFontOption,
};

}  // namespace

MaintainRecogniseOptions ReadMaintainRecogniseOptions(OptionReader& given) {
  MaintainRecogniseOptions options{.Index = IndexIn(given),
                                   .National = NumberIn(given, kNationalOption),
                                   .CardType = NumberIn(given, kTypeOption),
                                   .Threshold = NumberIn(given, kFontOption)};
  const auto labels = given.Text("labels");
  if (!labels) return options;
  if (labels->empty()) given.Refuse("--labels: a file without a name");
  options.Labels = AbsolutePath(*labels);
  RefuseSetName(given, options.Labels);
  return options;
}

ExitStatus MaintainRecognise(Job& job, const MaintainRecogniseOptions& options) {
  if (!options.Labels.empty() && !MayWritePicture(job, options.Labels)) return kFailed;
  const int before = job.Place.Operator.BoxesShown();
  bool done = false;
  bool recognised = false;
  Serve(job, options.Index, [&](Maintenance& console) {
    return std::make_unique<RecogniseService>(console, job, options, done, recognised);
  });
  if (!done) {
    TellBreak(job, before);
    return kFailed;
  }
  return recognised ? kDone : kPartly;
}

constinit const Command kMaintainRecogniseCommand{
    .Name = "maintain recognise",
    .Options = kOptions,
    .Summary =
        "Has the machine recognise the card in front of its camera, and shows what it has taken it "
        "for and measured. What no option says, the settings say. The exit status is 3 when the "
        "card was not recognised; Reco_error has the machine's number for why.",
    .Prepare = TaskOf<ReadMaintainRecogniseOptions, MaintainRecognise>};

}  // namespace morvane::cli
