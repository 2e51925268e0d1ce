#pragma once

#include <optional>

#include "machine/card_settings.h"
#include "maintenance/parameter_transfer.h"

namespace morvane::maintenance {

/// The machine's parameters as the console edits them: the boxes, which of the three records stands
/// in them, and the ways between them and the machine. Whoever calls has the link.
class ParameterBlock {
 public:
  /// Who writes, which the log tells.
  enum class Mode { kUpdate, kAutoSetup, kRevert };

  ParameterBlock(Program& program, ServiceLink& link, const machine::Machine& machine)
      : program_(program), link_(link), machine_(machine) {}

  ParameterBoxes Boxes;
  /// The cards that the machine is set up for. `CardIndex` says which record is in the boxes.
  machine::CardSettings CardSelection;

  void LoadSelection();
  void SaveSelection();
  /// The stored selection stays as it is, and with an `index` (`CardSettings::Index`) that one is
  /// worked on in its place. Before `LoadSelection`.
  void KeepSelection(std::optional<int> index);
  /// The machine is known now: what it has not is off, and another index is selected where it
  /// cannot do the one that was. False: it cannot do the one of `KeepSelection`, which the operator
  /// has been told.
  [[nodiscard]] bool ApplyGates();

  /// All that the machine has was read since the window start.
  [[nodiscard]] bool Known() const { return known_; }
  [[nodiscard]] wire::CardIndex Index() const {
    return static_cast<wire::CardIndex>(CardSelection.CardIndex);
  }

  // Each false: the link is lost, which the operator has been told.

  /// `ReadParameters`, the button `Get_param`.
  bool Read();
  /// The same for a procedure that needs them as they are: the log says where edits go with it.
  bool ReadOver();
  void LogLostEdits();
  /// `WriteParameters`. An update is read back, and the operator told what has come of it.
  bool Write(Mode mode);
  /// The button `save_param`: asks before it writes; without a Yes the edits go.
  bool Save();
  /// `CardSettings::Index`, or the standard one, with a box, where the machine cannot do it; its
  /// record is read.
  bool SelectIndex(int index);

 private:
  bool Send(ParameterBoxes& boxes);
  bool Update();
  /// Whether the machine can do that index; the operator has been told if not.
  [[nodiscard]] bool CanDo(int index);

  Program& program_;
  ServiceLink& link_;
  const machine::Machine& machine_;
  bool known_ = false;
  bool keepsSelection_ = false;
  std::optional<int> askedIndex_;
};

}  // namespace morvane::maintenance
