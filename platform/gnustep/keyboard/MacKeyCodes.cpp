#include "platform/gnustep/keyboard/MacKeyCodes.h"

#include <array>
#include <iterator>

namespace {

struct Key {
  std::uint8_t server;
  std::uint8_t mac;
};

// A keyboard with 105 keys, row by row. A key that the Mac does not have gets the code of the key
// in the same place (Help for Insert, F13 to F15 for Print, Scroll Lock and Pause, Clear for Num
// Lock). The left Windows key has the code of the left Command key; which key works as Command is
// decided elsewhere. The formatter would break the rows. clang-format off
constexpr Key kKeys[] = {
    {9, 53},                                        // Escape
    {67, 122},  {68, 120},  {69, 99},   {70, 118},  // F1 to F4
    {71, 96},   {72, 97},   {73, 98},   {74, 100},  // F5 to F8
    {75, 101},  {76, 109},  {95, 103},  {96, 111},  // F9 to F12
    {107, 105}, {78, 107},  {127, 113},             // Print, Scroll Lock, Pause

    {49, 50},                                                  // `
    {10, 18},   {11, 19},   {12, 20},   {13, 21},   {14, 23},  // 1 to 5
    {15, 22},   {16, 26},   {17, 28},   {18, 25},   {19, 29},  // 6 to 0
    {20, 27},   {21, 24},   {22, 51},                          // - = Backspace

    {23, 48},                                                  // Tab
    {24, 12},   {25, 13},   {26, 14},   {27, 15},   {28, 17},  // Q W E R T
    {29, 16},   {30, 32},   {31, 34},   {32, 31},   {33, 35},  // Y U I O P
    {34, 33},   {35, 30},   {51, 42},                          // [ ] backslash

    {66, 57},                                                 // Caps Lock
    {38, 0},    {39, 1},    {40, 2},    {41, 3},    {42, 5},  // A S D F G
    {43, 4},    {44, 38},   {45, 40},   {46, 37},             // H J K L
    {47, 41},   {48, 39},   {36, 36},                         // ; ' Return

    {50, 56},   {94, 10},                                      // left Shift, ISO key
    {52, 6},    {53, 7},    {54, 8},    {55, 9},    {56, 11},  // Z X C V B
    {57, 45},   {58, 46},   {59, 43},   {60, 47},   {61, 44},  // N M , . /
    {62, 60},                                                  // right Shift

    {37, 59},   {133, 55},  {64, 58},   {65, 49},   // Control, Windows, Alt, Space
    {108, 61},  {134, 54},  {135, 110}, {105, 62},  // Alt, Windows, menu, Control

    {118, 114}, {110, 115}, {112, 116},              // Insert, Home, Page Up
    {119, 117}, {115, 119}, {117, 121},              // Delete, End, Page Down
    {111, 126}, {113, 123}, {116, 125}, {114, 124},  // up, left, down, right

    {77, 71},   {106, 75},  {63, 67},   {82, 78},   // Num Lock / * -
    {79, 89},   {80, 91},   {81, 92},   {86, 69},   // 7 8 9 +
    {83, 86},   {84, 87},   {85, 88},               // 4 5 6
    {87, 83},   {88, 84},   {89, 85},   {104, 76},  // 1 2 3 Enter
    {90, 82},   {91, 65},                           // 0 .
};
// clang-format on
static_assert(std::size(kKeys) == 105);

constexpr auto kMacCodes = [] {
  std::array<std::uint16_t, 256> codes{};
  codes.fill(kNoMacKey);
  for (const Key &key : kKeys) codes[key.server] = key.mac;
  return codes;
}();

}  // namespace

std::uint16_t macKeyCode(unsigned serverCode) {
  return serverCode < kMacCodes.size() ? kMacCodes[serverCode] : kNoMacKey;
}
