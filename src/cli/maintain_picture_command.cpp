#include "cli/maintain_picture_command.h"

#include <array>
#include <memory>

#include "cli/camera_service.h"
#include "cli/paper_request.h"

namespace morvane::cli {
namespace {

class PictureService final : public CameraService {
 public:
  PictureService(maintenance::Maintenance& console, Job& job, const std::string& out, bool& done)
      : CameraService(console, job, done), out_(out) {}

 private:
  bool Work() override { return Capture() && Fetch(out_); }

  const std::string& out_;
};

constexpr std::array kOperands{Operand{"OUT.png", "the picture file to make"}};
constexpr std::array kOptions{kIndexOption};

}  // namespace

MaintainPictureOptions ReadMaintainPictureOptions(OptionReader& given) {
  MaintainPictureOptions options{.Out = given.Path(0), .Index = IndexIn(given)};
  RefuseSetName(given, options.Out);
  return options;
}

ExitStatus MaintainPicture(Job& job, const MaintainPictureOptions& options) {
  if (!MayWritePicture(job, options.Out)) return kFailed;
  const int before = job.Place.Operator.BoxesShown();
  bool done = false;
  Serve(job, options.Index, [&](maintenance::Maintenance& console) {
    return std::make_unique<PictureService>(console, job, options.Out, done);
  });
  if (!done) TellBreak(job, before);
  return done ? kDone : kFailed;
}

constinit const Command kMaintainPictureCommand{
    .Name = "maintain picture",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary =
        "Has the machine's camera take a picture of the card in front of it, and writes that "
        "as it is, 128 x 192 pixels of grey.",
    .Prepare = TaskOf<ReadMaintainPictureOptions, MaintainPicture>};

}  // namespace morvane::cli
