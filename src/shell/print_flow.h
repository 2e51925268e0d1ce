#pragma once

#include "print/hand_record.h"
#include "program/program.h"

namespace morvane::shell {

/// `menuPrint`: the printing dialog over the set, from opening it until its window has gone.
void PrintFlow(Program& program, print::HandRecordDialog& windows,
               print::HandRecord::Download download);

}  // namespace morvane::shell
