#include "model/messages.h"

namespace morvane {

// A table of texts, however long.
// NOLINTBEGIN(readability-function-size)
// clang-format off
namespace {

void InitFileMessages(Messages& m) {
  m.Msg001 =
      "      *** format does not support Event Name, Event Site and Event Date Information.      \r\n"
      "      This information will not be saved.      \r\n"
      "      If you need to save this information please use PBN or BRE formats.      \r\n\r\n"
      "      Do you want to save current Board Set in *** format anyway?      \r\n";
  m.Msg002 =
      "      Board number: nnn is incomplete.      \r\n"
      "      This Board Set cannot be saved in *** format.      \r\n"
      "      If you need to save this Board Set please use PBN or BRE format.      \r\n";
  m.Msg003 =
      "      Board number: nnn is incomplete.      \r\n"
      "      Incomplete boards can be saved in *** format.      \r\n\r\n"
      "      Do you want to proceed?      \r\n";
  m.Msg004 =
      "      Boards number: nnn are incomplete.      \r\n"
      "      This Board Set cannot be saved in *** format.      \r\n"
      "      If you need to save this Board Set please use PBN or BRE format.      \r\n";
  m.Msg005 =
      "      Boards number: nnn are incomplete.      \r\n"
      "      Incomplete boards can be saved in *** format.      \r\n\r\n"
      "      Do you want to proceed?      \r\n";
  m.Msg006 =
      "      First Board for the current Board Set is not board number 1.      \r\n"
      "      *** format does not support board numbers.      \r\n"
      "      If you need to save board numbers please use PBN format.      \r\n\r\n"
      "      Do you want to save current Board Set in *** format anyway?      \r\n";
  m.Msg007 =
      "      Error: *** during save operation - ###      \r\n"
      "      Save operation aborted!      ";
  m.Msg008 =
      "      Error: *** during load operation - ###      \r\n"
      "      Load operation aborted!      ";
  m.Msg009 =
      "      File format error     \r\n"
      "      Invalid board number in line: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg010 =
      "      Unknow file format: ***      \r\n"
      "      Save operation aborted!      ";
  m.Msg011 =
      "      Unknow file format: ***      \r\n"
      "      Load operation aborted!      ";
  m.Msg012 =
      "      File format error     \r\n"
      "      Too many records     \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg013 =
      "      File format error     \r\n"
      "      File is empty      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg014 =
      "      File format error     \r\n"
      "      Incorrect record length = ***  in record: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg015 =
      "      File format error     \r\n"
      "      Invalid character: ***  in record: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg016 =
      "      File format error     \r\n"
      "      Incorrect card value: ***  in record: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg017 =
      "      File format error     \r\n"
      "      Duplicate card value: ***  in record: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg018 =
      "      File format error     \r\n"
      "      Illegal card code at position: ***  in record: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg019 =
      "      File format error     \r\n"
      "      Duplicate card at position: ***  in record: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg020 =
      "      File format error     \r\n"
      "      Incorrect hand card count: ***  in record: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg021 =
      "      File format error     \r\n"
      "      Unexpected charater at position:  ***  in record: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg022 =
      "      File format error     \r\n"
      "      Board does not match in both parts of DUP record: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg023 =
      "      File format error     \r\n"
      "      Expected character '***' not found in line: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg024 =
      "      File format error     \r\n"
      "      Invalid board number in line: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg025 =
      "      File format error     \r\n"
      "      Invalid string *** in line: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg026 =
      "      File format error     \r\n"
      "      Incorrect order of tokens in line: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg027 =
      "      File format error     \r\n"
      "      Unexpected character '***' in line: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg028 =
      "      File format error     \r\n"
      "      Duplicate card '***' in line: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg029 =
      "      File format error     \r\n"
      "      Too many suit changes in line: ###     \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg030 =
      "      File format error     \r\n"
      "      Too many hand changes in line: ###     \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg031 =
      "      File format error     \r\n"
      "      Incorrect length of string in line: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg032 =
      "      File format error     \r\n"
      "      Incorrect length of line: ###      \r\n\r\n"
      "      Load operation aborted!      ";
  m.Msg033 =
      "      In PBN format characters []{};\"% are not allowed in the Event Name, Event Site and Event Date fields      ";
}

void InitRunMessages(Messages& m) {
  m.Msg034 =
      "      Board Set does not exist. Request ignored!      ";
  m.Msg035 =
      std::string("      Read function requires Firmware version 2.24 or later.      \r\n"
      "      Current Firmware version is ***     \r\n\r\n"
      "      Please update firmware from ") +
      kWebAddress +
      " and try again.      \r\n";
  m.Msg036 =
      std::string("      Sort function requires Firmware version 2.69 or later.      \r\n"
      "      Current Firmware version is ***     \r\n\r\n"
      "      Please update firmware from ") +
      kWebAddress +
      " and try again.      \r\n";
  m.Msg037 =
      std::string("      Settings for National cards other than the standard requires Firmware version 2.27 or later.      \r\n"
      "      Current Firmware version is ***     \r\n\r\n"
      "      Please update firmware from ") +
      kWebAddress +
      " and try again.      \r\n";
  m.Msg038 =
      std::string("      Using Danish cards requires Firmware version 2.32 or later.      \r\n"
      "      Current Firmware version is ***     \r\n\r\n"
      "      Please update firmware from ") +
      kWebAddress +
      " and try again.      \r\n";
  m.Msg039 =
      std::string("      Using Swedish cards requires Firmware version 2.90 or later.      \r\n"
      "      Current Firmware version is ***     \r\n\r\n"
      "      Please update firmware from ") +
      kWebAddress +
      " and try again.      \r\n";
  m.Msg040 =
      std::string("      Using cards with Large Index requires Firmware version 2.40 or later.      \r\n"
      "      Current Firmware version is ***     \r\n\r\n"
      "      Please update firmware from ") +
      kWebAddress +
      " and try again.      \r\n";
  m.Msg041 =
      std::string("      Using Board Number Check requires Firmware version 2.70 or later.      \r\n"
      "      Current Firmware version is ***     \r\n\r\n"
      "      Please update firmware from ") +
      kWebAddress +
      " and try again.      \r\n";
  m.Msg042 =
      std::string("      Using cards with Small Index requires Firmware version 2.66 or later.      \r\n"
      "      Current Firmware version is ***     \r\n\r\n"
      "      Please update firmware from ") +
      kWebAddress +
      " and try again.      \r\n";
  m.Msg043 =
      std::string("      AutoSetup function requires Firmware version 2.80 or later.      \r\n"
      "      Current Firmware version is ***     \r\n\r\n"
      "      Please update firmware from ") +
      kWebAddress +
      " and try again.      \r\n";
  m.Msg044 =
      std::string("      Test Deal function requires Firmware version 2.83 or later.      \r\n"
      "      Current Firmware version is ***     \r\n\r\n"
      "      Please update firmware from ") +
      kWebAddress +
      " and try again.      \r\n";
  m.Msg045 =
      "      Your Morvane machine is not suitable to deal Large Indexed (Jumbo) cards.      \r\n"
      "      This setting cannot be selected     \r\n";
  m.Msg046 =
      "      Your Morvane machine is not equipped with a Board Number Reader.      \r\n"
      "      This setting cannot be selected     \r\n";
  m.Msg047 =
      "      Cannot communicate with Morvane.      \r\n"
      "      Please check if power is connected to the machine and try again.      \r\n";
  m.Msg048 =
      "      Lost Communication with Morvane  -  Dealing Aborted!      ";
  m.Msg049 =
      std::string("      Current USB driver version: ***      \r\n"
      "      Driver update is recommended.      \r\n"
      "      See ") +
      kWebAddress +
      " for details.      \r\n";
  m.Msg050 =
      "      Cannot communicate with Morvane      (Error: ***)      \r\n"
      "      Please check if USB cable is connected to the PC and Morvane.\r\n"
      "      If connection is OK please disconnect USB cable momentarily and reconnect.      \r\n"
      " \r\n"
      "      Click OK to retry communication.    ";
  m.Msg051 =
      "      Cannot communicate with Morvane      (Error: ***)      \r\n"
      "      USB drivers are not installed\r\n\r\n"
      "      Please install USB drivers and try again      \r\n";
  m.Msg052 =
      "      Do you really want to clear current board?       ";
  m.Msg053 =
      "      Board incomplete - cannot deal this board.       ";
  m.Msg054 =
      "      Board not empty - cannot read this board.      \r\n"
      "      Please clear this board or generate an empty board set.      ";
  m.Msg055 =
      "      Lost Communication with Morvane  -  Maintenance Aborted!      ";
  m.Msg056 =
      "      Parameters updated OK      ";
  m.Msg057 =
      "      New Firmware downloaded OK      ";
  m.Msg058 =
      "      Error: *** during programming at ###      ";
  m.Msg059 =
      "      Incorrect or corrupted firmware file      \r\n"
      "      Please select correct file and try to update firmware again      ";
  m.Msg060 =
      "      You have succesfully dealt the last board in the set.      \r\n\r\n"
      "      Do you wish to move to the first board?      ";
  m.Msg061 =
      "      You have succesfully dealt last board in the set.      \r\n\r\n"
      "      Do you wish to save the current board set?      ";
  m.Msg062 =
      "      Current Board Set has not been saved.      \r\n\r\n"
      "      Do you want to save the current Board Set?      ";
}

void InitWindowMessages(Messages& m) {
  m.Msg063 =
      "      Last Board Number must be greater or equal to the First Board Number.      ";
  m.Msg064 =
      "      Maximum allowable value for the First Board Number is 640.      ";
  m.Msg065 =
      "      Maximum allowable value for the Last Board Number is 640.       ";
  m.Msg066 =
      "      File *** already exists in the History File.      \r\n\r\n"
      "      Do you want to store duplicate history?      ";
  m.Msg067 =
      "*** Boards were loaded";
  m.Msg068 =
      "*** format does not support board numbers. Loaded boards are allocated as follows:";
  m.Msg069 =
      "First Board:";
  m.Msg070 =
      "Last Board:";
  m.Msg071 =
      "To change board allocation enter a new First Board number in the text box above.";
  m.Msg072 =
      "Loaded DUP file does not have board numbers. Loaded boards are allocated as follows:";
  m.Msg073 =
      "      Incorrect value for First Board number      \r\n"
      "      First Board numbers must be between 1 and ***      \r\n\r\n"
      "      Please enter correct value.      ";
  m.Msg074 =
      "      \"From Board\" value is incorrect      \r\n"
      "      This value must be in range of <First Board - Last Board>      \r\n\r\n"
      "      Please correct this value.      ";
  m.Msg075 =
      "      \"To Board\" value is incorrect      \r\n"
      "      This value must be in range of <First Board - Last Board>      \r\n\r\n"
      "      Please correct this value.      ";
  m.Msg076 =
      "      \"To Board\" value must be equal or higher than the \"From Board\" value     \r\n\r\n"
      "      Please correct these values.      ";
  m.Msg077 =
      "     Cannot read board number     \r\n"
      "     Please check if board has correct Board Number Label    ";
  m.Msg078 =
      "     Incorrect board inserted     \r\n"
      "     Expected board no: ***  -  Inserted board no: ###     ";
  m.Msg079 =
      "      Error: *** during printing - ###      \r\n"
      "      Print aborted!      ";
  m.Msg080 =
      "      Deep Finesse analysis can take up to a few minutes per board.      \r\n"
      "      Do you want to continue?     ";
  m.Msg081 =
      "      Bo Haglund DDS analysis usually takes few seconds per board.      \r\n"
      "      Do you want to continue?     ";
  m.Msg082 =
      "      Printing analysis is selected but some boards have not been analyzed      \r\n"
      "      Do you want to print anyway?     ";
  m.Msg083 =
      "      Cannot access or create Morvane_Data directory     \r\n"
      "      Application Path: ***     \r\n"
      "      ###\r\n"
      "      Application will continue but logging and history functions will be disabled     ";
  m.Msg084 =
      "      Error during reading history file    \r\n"
      "      Application Path: ***     \r\n"
      "      ###\r\n"
      "      Application will continue but logging and history functions will be disabled     ";
  m.Msg085 =
      "      Error during saving history file    \r\n"
      "      Application Path: ***     \r\n"
      "      ###\r\n"
      "      Application will continue but logging and history functions will be disabled     ";
  m.Msg086 =
      "      Morvane application is already running      \r\n"
      "      It is not possible to run multiple instances of this application      ";
  m.Msg087 =
      "      Error: *** during writing service file - ###      ";
  m.Msg088 =
      "      Service File   ***   will be created.      \r\n"
      "      If there is a problem with card recognition please put the problem card into the feeder now.      \r\n"
      "    \r\n"
      "      Please click OK to start      ";
  m.Msg089 =
      std::string("      Service File   ***   has been created sucessfully.     \r\n"
      "    \r\n"
      "      Please attach it to the email and send to ") +
      kServiceMail +
      "      \r\n";
  m.Msg090 =
      "      &&& ###      \r\n"
      "      ***      \r\n"
      " \r\n"
      "      Please reinstall Morvane software and try again      ";
  m.Msg091 =
      "      Attempting to download new firmware to the Morvane.      \r\n"
      "      Firmware file: ***      \r\n"
      " \r\n"
      "      Do you want to interrupt current activity and proceed with update?      ";
  m.Msg092 =
      "      Attempting to download new firmware to the Morvane.      \r\n"
      "      Firmware update is not possible while dealing      \r\n"
      "      Attempt will be ignored.      ";
  m.Msg093 =
      "      Changes were not accepted      \r\n"
      " \r\n"
      "      Discard changes and exit?      ";
}

void InitServiceMessages(Messages& m) {
  m.Msg094 =
      "      Incomplete or incorrect board      ";
  m.Msg095 =
      "      DLL not found      ";
  m.Msg096 =
      "      DLL function error      ";
  m.Msg097 =
      "      DLL function path error    \r\n"
      "      Path: ***     ";
  m.Msg098 =
      "      Analyzer Error    \r\n"
      "      Path: ***     ";
  m.Msg099 =
      "      Analysis Error.      \r\n"
      "      ***      ";
  m.Msg100 =
      "      Incorrect number of tricks.    \r\n"
      "      ***      ";
  m.Msg101 =
      "      All boards have already been analyzed.      ";
  m.Msg102 =
      "      This board has already been analyzed.      ";
  m.Msg103 =
      "      This function cannot be used while analysis is running      \r\n"
      "      Please wait for analysis to finish or cancel it and try again      ";
  m.Msg104 =
      "      Analysis is already running.      \r\n";
  m.Msg105 =
      "      The program cannot exit while analysis is running      \r\n"
      "      Please wait for analysis to finish or cancel it and try again      ";
  m.Msg106 =
      "      First Board number must be between 1 and 640      \r\n"
      "      Please enter correct value      ";
  m.Msg107 =
      "      Last Board number must be between 1 and 640 and must be greater than or equal to the First Board number      \r\n"
      "      Please enter correct value      ";
  m.Msg108 =
      "      Please accept changes before analysis     \r\n";
  m.Msg109 =
      "      You are entering Auto Setup function for *** Card Index.      \r\n"
      "      Please put the 10 of Spades into the feeder.      \r\n"
      "      \r\n"
      "      Click OK to begin...    \r\n";
  m.Msg110 =
      "      Found Board Set record at line: ***      \r\n"
      "      \r\n"
      "      Click YES to process, NO to skip, or Cancel to abort loading    \r\n";
  m.Msg111 =
      "      Error: *** in line: ^^^ during loading of the log file.       \r\n"
      "      ###   \r\n"
      "      \r\n"
      "      Load operation aborted!      \r\n";
  m.Msg112 =
      "      Syntax error in Log file at line: ***      \r\n"
      "      \r\n"
      "      Load operation aborted!      \r\n";
  m.Msg113 =
      "      The Board is too transparent or incorrectly fitted     \r\n"
      "      \r\n"
      "      Board Switch calibration failed     \r\n";
  m.Msg114 =
      "      There was no problem detecting this board.     \r\n"
      "      \r\n"
      "      Board Switch Sensitivity value 200 is recommended.      \r\n"
      "      Do you want to update it?     ";
  m.Msg115 =
      "      The Board Switch Sensitivity value of *** is recommended.      \r\n"
      "      \r\n"
      "      Do you want to update it?     ";
  m.Msg116 =
      "      Auto Setup completed successfully.       \r\n"
      "      \r\n"
      "      Do you want to update parameters?     ";
  m.Msg117 =
      "      Auto Setup failed .                    \r\n"
      "      \r\n"
      "      Please be sure that the 10 of Spades is in the feeder and try again.      ";
  m.Msg118 =
      "      Your Morvane machine requires firmware 2.80 or later     \r\n"
      "      \r\n"
      "      Please select proper firmware and try to download again      ";
  m.Msg119 =
      "      Error: *** in RtlGenRandom procedure      \r\n"
      "      ###     \r\n"
      "      Board Set cannot be generated      ";
  m.Msg120 =
      "      You have entered Test Deal function.      \r\n"
      "      Please put a flashed deck in the feeder.    \r\n"
      "      The deck should be flashed in the following way:     \r\n"
      "      bottom - 2S-AS,2H-AH,2D-AD,2C-AC - Top      \r\n\r\n"
      "      Click OK to proceed.     ";
  m.Msg121 =
      "     Error *** was encountered during Test Deal.    \r\n\r\n"
      "     Click OK to generate Service File.       ";
  m.Msg122 =
      "     The *** was recognised but ### was expected.    \r\n\r\n"
      "     Click OK to generate Service File.       ";
  m.Msg123 =
      "     Test Deal was finished sucesfully.    \r\n"
      "     To find the problem it is required to repeat Test Deal until error occurs.     \r\n\r\n"
      "     Click OK to deal again.    ";
  m.Msg124 =
      "     Incorrect parameters can lead to mailfunction of the machine.    \r\n\r\n"
      "     Proceed with update?     ";
  m.Msg125 =
      "      You have entered Calibrate Board Switch function.      \r\n"
      "      Please insert the problem board into the machine.    \r\n\r\n"
      "      Click OK to proceed.     ";
}

}  // namespace
// clang-format on
// NOLINTEND(readability-function-size)

Messages InitMessages() {
  Messages m;
  InitFileMessages(m);
  InitRunMessages(m);
  InitWindowMessages(m);
  InitServiceMessages(m);
  return m;
}

}  // namespace morvane
