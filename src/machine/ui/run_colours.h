#pragma once

#include <QColor>

// The run window's own colours. They are the same on a light and on a dark desktop: what they are
// the ground of has its own text colour, and every text keeps a contrast of 4.5 to 1.

namespace morvane::machine {

// Grounds of white text.
inline constexpr QColor kGreenGround{39, 128, 69};
inline constexpr QColor kBlueGround{31, 111, 181};
inline constexpr QColor kRedGround{192, 57, 43};
inline constexpr QColor kGreyGround{111, 111, 111};

// The sheet that the board is drawn on.
inline constexpr QColor kPaper{252, 251, 246};
inline constexpr QColor kPaperFrame{176, 172, 158};
inline constexpr QColor kBoardNumber{0, 0, 255};
inline constexpr QColor kBlackSuit{0, 0, 0};
inline constexpr QColor kRedSuit{208, 0, 0};
inline constexpr QColor kNote{96, 96, 96};

// Cards that are not dealt; both required to the number. No ground on which the black of the dealt
// ones can be read gives these the contrast of text: they are meant to recede.
inline constexpr QColor kPaleBlackSuit{128, 128, 128};
inline constexpr QColor kPaleRedSuit{255, 128, 128};

}  // namespace morvane::machine
