#pragma once

#include <QWidget>

#include "generate/generate_form.h"

class QCheckBox;
class QFormLayout;

namespace morvane {
class ShownText;
}

namespace morvane::generate {

class RejectCount;

/// The rejection tests: a frame each with its check box, what it does, and what it has found
/// (`FrameShp`, `FrameInn`, `FrameHis`).
class TestFrames final : public QWidget {
 public:
  TestFrames(GenerateForm& form, QWidget* parent);

  void Show();

 private:
  struct Frame {
    QCheckBox* Check = nullptr;
    QWidget* Results = nullptr;
  };
  Frame AddFrame(const char* name, const char* title, const char* checkName, const char* caption,
                 const std::string& words);
  RejectCount* AddCount(const Frame& frame, const char* caption, const char* name, const char* tip);
  ShownText* AddText(const Frame& frame, const char* caption, const char* name, const char* tip);
  void Changed();

  GenerateForm& form_;
  Frame shape_;
  Frame inner_;
  Frame history_;
  RejectCount* txtShpRejects_;
  RejectCount* txtInnRejects_;
  RejectCount* txtHisRejects_;
  ShownText* txtInnSim_;
  ShownText* txtOuSim_;
  ShownText* txtOuDeals_;
};

}  // namespace morvane::generate
