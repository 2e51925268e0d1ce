#include "wire/machine_errors.h"

#include <algorithm>

namespace morvane::wire {
namespace {

constexpr bool kCanGoOn = true;

struct ErrorRow {
  int First;
  int Last;
  MachineErrorText Error;
};

// Code 5 has a blank behind it and code 21 none: required.
constexpr std::array<ErrorRow, 26> kErrors{{
    {1, 1, {"Card did not go to South"}},
    {2, 2, {"Card did not go to West"}},
    {3, 3, {"Card did not go to East"}},
    {4, 4, {"Card did not go to North"}},
    {5, 5, {"Extra Card in South "}},
    {6, 6, {"Extra Card in West"}},
    {7, 7, {"Extra Card in East"}},
    {8, 8, {"Extra Card in North"}},
    {9, 16, {"Card Jam Error"}},
    {17, 17, {"Card did not go to South"}},
    {18, 18, {"Card did not go to West"}},
    {19, 19, {"Card did not go to East"}},
    {20, 20, {"Card did not go to North"}},
    {21, 21, {"Extra Card in South"}},
    {22, 22, {"Extra Card in West"}},
    {23, 23, {"Extra Card in East"}},
    {24, 24, {"Extra Card in North"}},
    {25, 53, {"Card Recognition Error", kCanGoOn}},
    {54, 54, {"Duplicate Card Error", kCanGoOn}},
    {55, 56, {"Card Feeding Error", kCanGoOn}},
    {57, 57, {"Break Dealing", kCanGoOn}},
    {58, 58, {"Board or Board Insert not fitted correctly", kCanGoOn}},
    {59, 59, {"No Top Cover", kCanGoOn}},
    {60, 60, {"Flip Plate open", kCanGoOn}},
    {61, 61, {"Card does not belong to selected National Settings"}},
    {62, 62, {"Incorrect Card Order"}},
}};

}  // namespace

MachineErrorText TextOfError(int code) {
  const auto* row = std::find_if(kErrors.begin(), kErrors.end(), [code](const ErrorRow& r) {
    return code >= r.First && code <= r.Last;
  });
  return row != kErrors.end() ? row->Error : MachineErrorText{"Undefine Error"};
}

constinit const std::array<std::string_view, 47> MachineMessageText = [] {
  std::array<std::string_view, 47> texts{};
  texts[1] = "S card";
  texts[2] = "W card";
  texts[3] = "E card";
  texts[4] = "N card";
  texts[10] = "End of Dealing";
  texts[11] = "Pedal Pressed";
  texts[12] = "Box Inserted";
  texts[18] = "Initialisation OK";
  texts[21] = "Extra card in S";
  texts[22] = "Extra card in W";
  texts[23] = "Extra card in E";
  texts[24] = "extra card in N";
  texts[25] = "Card did not go to S";
  texts[26] = "Card did not go to W";
  texts[27] = "Card did not go to E";
  texts[28] = "Card did not go to N";
  texts[29] = "Break dealing";
  texts[30] = "Card jam";
  texts[31] = "Card Box removed during dealing";
  texts[32] = "Card Box not present, insert";
  texts[33] = "Card did not go";
  texts[34] = "Read Error";
  texts[35] = "Duplicate Card";
  texts[36] = "Cover open";
  texts[45] = "Error durnig break";
  texts[46] = "Cover open";
  return texts;
}();

}  // namespace morvane::wire
