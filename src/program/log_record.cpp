#include "program/log_record.h"

#include "model/hand_text.h"
#include "text/text.h"

namespace morvane {

std::string LogRecord(int number, const Board& board, bool longForm) {
  return "   " + ThreeDigits(number) + " : " + FormatBoardForLog(board, longForm);
}

std::string FormatBoardForLog(const Board& board, bool longForm) {
  std::string text;
  for (int hand = kNorth; hand <= kWest; ++hand) {
    text += HandText(board, hand, ".") + ' ';
  }
  if (longForm) {
    text += ' ' + HexBytes(board.DealNumber) + "  " + HexBytes(board.DealCounter);
  }
  return text;
}

}  // namespace morvane
