#pragma once

#include "analysis/deep_f.h"
#include "edit/editor.h"
#include "files/load_number.h"
#include "generate/generate_form.h"
#include "machine/run_dialogs.h"
#include "maintenance/maintenance_view.h"
#include "maintenance/read_service.h"
#include "poker/poker_dialog.h"
#include "print/hand_record.h"
#include "shell/preferences.h"
#include "shell/refresh_statistics.h"

namespace morvane::shell {

/// The windows that the flows open, gathered from the subsystems that declare them, so that a flow
/// knows none of them. A window is modal to `MainMenu`, is shown when it is made and goes when it
/// is destroyed.
class FlowWindows : public files::NumberDialog,
                    public generate::GenerateDialog,
                    public machine::RunDialogs,
                    public edit::EditDialog,
                    public print::HandRecordDialog,
                    public analysis::DeepFDialog,
                    public poker::PokerDialog,
                    public maintenance::MaintenanceDialog,
                    public maintenance::ReadServiceDialog,
                    public PreferencesDialog,
                    public StatisticsView {
 public:
  /// Shows the main window (`MainMenu`), not modal.
  virtual void ShowMainMenu() = 0;
  /// Puts the main window, and what is open over it, before other programs' windows.
  virtual void BringToFront() = 0;
};

}  // namespace morvane::shell
