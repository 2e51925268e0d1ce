#pragma once

#include <functional>
#include <string>

#include "platform/printer.h"
#include "poker/poker_order.h"

namespace morvane {
class Program;
}

namespace morvane::poker {

/// The list of all deals to the current printer. False: there is no order or the printer failed,
/// which the operator has been told, or the program ends.
bool PrintPokerOrder(Program& program, const PokerOrder& order, int copies = 1);

/// The printer's dialog. The copies that were confirmed; `copies` when it was cancelled.
int SetUpPrinter(Program& program, int copies = 1);

/// The same list into the PDF file `path`. `dealDone` is called behind each deal and says whether
/// to go on. False as above, or that has ended it.
bool WritePokerPdf(Program& program, const PokerOrder& order, const std::string& path, Paper sheet,
                   const std::function<bool()>& dealDone);

}  // namespace morvane::poker
