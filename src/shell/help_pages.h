#pragma once

#include <array>
#include <string_view>

// Which page of the guide tells of what is in front: the names of its files without an ending.

namespace morvane::shell {

inline constexpr std::string_view kContentsPage = "index";
inline constexpr std::string_view kErrorCodesPage = "stops";
/// Has every message box; the pages of some tell more.
inline constexpr std::string_view kBoxesPage = "trouble";

/// A window by its name. One that serves several ends has a row for each, by a word of its title.
struct WindowPage {
  std::string_view Window;
  std::string_view Page;
  std::string_view TitleWord = {};
};
inline constexpr std::array kWindowPages{
    WindowPage{"MainMenu", kContentsPage},
    WindowPage{"Generate", "sets"},
    WindowPage{"Load_number", "files"},
    WindowPage{"Edit", "editing"},
    WindowPage{"DealinProg", "reading", "Reading"},
    WindowPage{"DealinProg", "reading", "Sorting"},
    WindowPage{"DealinProg", "dealing"},
    WindowPage{"Error_disp", kErrorCodesPage},
    WindowPage{"HandRecord", "printing"},
    WindowPage{"Preview", "printing"},
    WindowPage{"DeepF", "analysis"},
    WindowPage{"Poker", "poker"},
    WindowPage{"Preferences", "settings"},
    WindowPage{"About", "trouble"},
    WindowPage{"MachinePanel", "connecting"},
    WindowPage{"ReplayPanel", "connecting"},
    WindowPage{"Maintenance", "service"},
    WindowPage{"Magnify1", "service"},
    WindowPage{"AutoSetup", "service-setup"},
    WindowPage{"Board_calibration", "service-setup"},
    WindowPage{"TestDealForm", "service-setup"},
    WindowPage{"Firmware", "service-setup"},
    WindowPage{"Service_file", "service-files"},
    WindowPage{"Read_Service", "service-files"},
    WindowPage{"Advance_form", "service-files"},
    WindowPage{"PrinterSetup", "printing"},
    WindowPage{"cdSave", "printing", "PDF"},
    WindowPage{"cdSave", "printing", "Print to"},
    WindowPage{"cdSave", "files"},
    WindowPage{"cdOpen", "files"},
};

/// The message boxes, by their caption, of which another page than `kBoxesPage` tells more.
struct BoxPage {
  std::string_view Caption;
  std::string_view Page;
};
inline constexpr std::array kBoxPages{
    BoxPage{"Dealing Error", kErrorCodesPage},
    BoxPage{"Reading Error", "reading"},
    BoxPage{"Sort Error", "reading"},
    BoxPage{"Poker Dealing", "poker"},
    BoxPage{"Import PBN", "files"},
    BoxPage{"USB Initialization Error", "connecting"},
    BoxPage{"USB Connection", "connecting"},
    BoxPage{"Driver Update Information", "connecting"},
    BoxPage{"Preferences Error", "settings"},
    BoxPage{"Printing", "printing"},
    BoxPage{"Printing Error", "printing"},
    BoxPage{"Printing Parameter Error", "printing"},
    BoxPage{"Save as PDF", "printing"},
    BoxPage{"Analize Error", "analysis"},
    BoxPage{"Bo Haglund DDS", "analysis"},
    BoxPage{"Bo Haglund DDS Error", "analysis"},
    BoxPage{"Deep Finesse", "analysis"},
    BoxPage{"Deep Finesse Error", "analysis"},
};

/// The page on a window; empty when it is none of ours.
[[nodiscard]] std::string_view PageOnWindow(std::string_view name, std::string_view title);
/// The page on a message box.
[[nodiscard]] std::string_view PageOnBox(std::string_view caption);

}  // namespace morvane::shell
