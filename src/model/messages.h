#pragma once

#include <string>

namespace morvane {

/// The makers' addresses that some texts carry; a value of the product's own configuration.
inline constexpr const char* kWebAddress = "www.morvane.example";
inline constexpr const char* kServiceMail = "service@morvane.example";

/// Every longer text that the program shows, in order of definition. Misspellings and padding are
/// part of the texts. Placeholders, filled with `Fill`: `***` first item, `###` second item, `nnn`
/// board numbers, `&&&` a word of the analysis error, `^^^` a line number. An entry may be replaced
/// while the program runs (`Msg008`), so the catalogue belongs to the program and is no constant.
///
/// Each line says by what and when its text is shown. "asks": it is a question; where a setting is
/// named, it is put only while that is on. In brackets: nothing shows it so far; whoever comes to
/// show it takes the brackets away.
struct Messages {
  std::string Msg001;  ///< Save: the format has no place for event texts; asks (`Save_Event`)
  std::string Msg002;  ///< Save: one board is incomplete, and the format holds complete ones only
  std::string Msg003;  ///< Save: an incomplete board, which is allowed; asks (`Save_Incomplete`)
  std::string Msg004;  ///< Save: as Msg002, for several boards
  std::string Msg005;  ///< Save: as Msg003, for several boards
  std::string Msg006;  ///< Save: a set from above board 1, no numbers kept; asks (`Save_Numbers`)
  std::string Msg007;  ///< Save: the file cannot be written. Error number and description
  std::string Msg008;  ///< Load: the file cannot be read. Later boxes repeat the first: required
  std::string Msg009;  ///< Load CSV: a number outside 1..640, or one that another board has
  std::string Msg010;  ///< Save: no format, or none that can be saved, has the extension
  std::string Msg011;  ///< Load: no format has the extension, or a log's on a plain build
  std::string Msg012;  ///< Load BRI, DGE, DUP, DEAL305, BRE: more than 640 boards
  std::string Msg013;  ///< Load: nothing of a board is there; CSV: fewer than two lines
  std::string Msg014;  ///< Load BRI, DGE, DUP, DEAL305: a record of another length
  std::string Msg015;  ///< Load BRI, DUP, DEAL305, CSV: a character that cannot stand there
  std::string Msg016;  ///< Load BRI, DUP: a card outside 01..52
  std::string Msg017;  ///< Load BRI, DUP: a card that a hand holds already
  std::string Msg018;  ///< Load DGE, DUP, BRE: neither a suit mark nor a card of a suit
  std::string Msg019;  ///< Load DGE, DUP, BRE: a card that a hand holds already
  std::string Msg020;  ///< Load DGE: a hand has not 13 cards; *** all four counts
  std::string Msg021;  ///< Load DGE, DUP, BRE: a suit mark out of its order
  std::string Msg022;  ///< Load DUP: the BRI part and the DGE part are different boards
  std::string Msg023;  ///< Load PBN: a quote, a "]" or the ":" of a deal is missing
  std::string Msg024;  ///< Load PBN: a board number outside 1..640
  std::string Msg025;  ///< Load PBN: not a known dealer or vulnerability
  std::string Msg026;  ///< Load PBN: deal before its board number, or tricks before their deal
  std::string Msg027;  ///< Load PBN: a character that no number, deal or tricks can have
  std::string Msg028;  ///< Load PBN, CSV: a card that a hand holds already
  std::string Msg029;  ///< Load PBN: a hand of more than four suits
  std::string Msg030;  ///< Load PBN: a deal of more than five hands
  std::string Msg031;  ///< Load PBN: the tricks are not 20 characters
  std::string Msg032;  ///< Load CSV: the line ends before its board does
  std::string Msg033;  ///< Save PBN: an event text has a character that PBN does not allow
  std::string Msg034;  ///< Save, Deal: there is no set. Box and status bar
  std::string Msg035;  ///< Read: the firmware is too old; *** its version
  std::string Msg036;  ///< Sort: the firmware is too old; *** its version
  std::string Msg037;  ///< Deal: other than standard cards are set, the firmware is too old
  std::string Msg038;  ///< Deal: Danish cards are set, the firmware is too old
  std::string Msg039;  ///< Deal: Swedish cards are set, the firmware is too old
  std::string Msg040;  ///< Run options: large index chosen, the firmware is too old
  std::string Msg041;  ///< Run options: `Check_board` ticked, the firmware is too old
  std::string Msg042;  ///< Run options: small index chosen, the firmware is too old
  std::string Msg043;  ///< Auto Setup: the firmware is too old
  std::string Msg044;  ///< Test deal: the firmware is too old
  std::string Msg045;  ///< Run options: large index chosen, the machine cannot deal it
  std::string Msg046;  ///< Run options: `Check_board` ticked, the machine reads no labels
  std::string Msg047;  ///< Deal: the machine tells no version at the first contact
  std::string Msg048;  ///< Deal: the link is lost in a run
  std::string Msg049;  ///< Opening the link: the driver is older than 3.1; *** its version
  std::string Msg050;  ///< Opening the link failed; *** status and step. OK tries again
  std::string Msg051;  ///< The same, when the driver is missing
  std::string Msg052;  ///< Read: `cmdClear`, before the board is emptied
  std::string Msg053;  ///< Deal: the current board is not complete
  std::string Msg054;  ///< Read: the current board is not empty
  std::string Msg055;  ///< Maintenance and its tools: the link is lost
  std::string Msg056;  ///< Maintenance: the parameters have been written
  std::string Msg057;  ///< Firmware download: done
  std::string Msg058;  ///< Firmware download: start or block refused; *** status, ### block
  std::string Msg059;  ///< Firmware download: the file's size or its lengths are wrong
  std::string Msg060;  ///< Deal: the last copy of the run's last board has been dealt; asks
  std::string Msg061;  ///< Read: the last board has been read; asks
  std::string Msg062;  ///< New, Exit, Load, Import: the set has changes that are not saved; asks
  std::string Msg063;  ///< Generate: the first board is above the last
  std::string Msg064;  ///< Generate: the first board is above 640
  std::string Msg065;  ///< Generate: the last board is above 640
  std::string Msg066;  ///< (no flow shows it, and none is to)
  std::string Msg067;  ///< `Load_number`: how many boards there are
  std::string Msg068;  ///< `Load_number`: why it asks, for a format without numbers
  std::string Msg069;  ///< `Load_number`: caption of the first number
  std::string Msg070;  ///< `Load_number`: caption of the last number
  std::string Msg071;  ///< `Load_number`: what can be done
  std::string Msg072;  ///< `Load_number`: why it asks, for a DUP file
  std::string Msg073;  ///< `Load_number`: the set would not lie within 1..640; *** the most
  std::string Msg074;  ///< Print: the first board to print is not in the set
  std::string Msg075;  ///< Print: the last board to print is not in the set
  std::string Msg076;  ///< Print: the last board to print is below the first
  std::string Msg077;  ///< `Error_disp`: the inserted board's label cannot be read
  std::string Msg078;  ///< `Error_disp`: another board is inserted; *** wanted, ### read
  std::string Msg079;  ///< Print: a system error; *** its number, ### description
  std::string Msg080;  ///< Analyze: before it starts, `Analyzer` is not 0; asks
  std::string Msg081;  ///< Analyze: before it starts, `Analyzer` is 0; asks
  std::string Msg082;  ///< Print: with analysis, and a board has none; asks
  std::string Msg083;  ///< Start: the data folder cannot be entered, by history or log
  std::string Msg084;  ///< History: its file cannot be read, at the start or before an entry
  std::string Msg085;  ///< History: its file cannot be written or locked
  std::string Msg086;  ///< Start: another one runs, and no file could be handed over to it
  std::string Msg087;  ///< Service file: it cannot be written
  std::string Msg088;  ///< Service file: before it is made; *** its path
  std::string Msg089;  ///< Service file: it has been made; *** its path
  std::string Msg090;  ///< Analysis: an error that calls for a new installation
  std::string Msg091;  ///< Edit, Print: a firmware download is asked for from outside; asks
  std::string Msg092;  ///< Run window: a firmware download is asked for from outside
  std::string Msg093;  ///< Edit: closed with changes that were not accepted; asks
  std::string Msg094;  ///< Analysis: a hand of the board has not 13 cards
  std::string Msg095;  ///< Analysis: the solver answers code 92
  std::string Msg096;  ///< Analysis: the solver answers code 93
  std::string Msg097;  ///< Analysis: the solver answers code 94; *** the path or its error text
  std::string Msg098;  ///< Analysis: the solver answers code 95; *** its error text
  std::string Msg099;  ///< Analysis: the solver answers code 96; *** its error text
  std::string Msg100;  ///< Analysis: the solver answers code 97; *** its error text
  std::string Msg101;  ///< Analyze: every board of the set has its tricks
  std::string Msg102;  ///< Analyze: the one board has its tricks
  std::string Msg103;  ///< New, Load, Import, Edit: refused while an analysis runs
  std::string Msg104;  ///< Analyze: refused while an analysis runs
  std::string Msg105;  ///< Exit: refused while an analysis runs
  std::string Msg106;  ///< Generate: the first board is below 1. (Preferences: or above 640)
  std::string Msg107;  ///< Preferences: last board outside 1..640 or below the first
  std::string Msg108;  ///< Edit: Analyze with changes that were not accepted
  std::string Msg109;  ///< Auto Setup: before it begins; *** the card index
  std::string Msg110;  ///< Load log: the first record of a set; take, skip or give up
  std::string Msg111;  ///< Load log: the system's error, or a number outside 1..640
  std::string Msg112;  ///< Load log: a record that is no board
  std::string Msg113;  ///< Switch calibration: no setting senses the board
  std::string Msg114;  ///< Switch calibration: the board is sensed well, 200 will do; asks
  std::string Msg115;  ///< Switch calibration: another value is better; *** it; asks
  std::string Msg116;  ///< Auto Setup: done; asks
  std::string Msg117;  ///< Auto Setup: the card was not found
  std::string Msg118;  ///< Firmware download: this machine needs 2.80, the file is older
  std::string Msg119;  ///< Generate: the system's random source failed
  std::string Msg120;  ///< Test deal: before it begins
  std::string Msg121;  ///< Test deal: it stopped, *** error code; OK makes a service file
  std::string Msg122;  ///< Test deal: *** seen, ### expected; OK makes a service file
  std::string Msg123;  ///< Test deal: no error up to its end; OK deals again
  std::string Msg124;  ///< Maintenance: before the parameters are written; asks
  std::string Msg125;  ///< Switch calibration: before it begins
};

/// The catalogue as it stands at start-up.
[[nodiscard]] Messages InitMessages();

}  // namespace morvane
