#pragma once

#include <cstdint>

/// The code of a key that the Mac's keyboards do not have: above every code that means something.
constexpr std::uint16_t kNoMacKey = 0xFFFF;

/// The Mac's virtual key code of a key of the X window server, by the key's place on an ANSI
/// keyboard (the keypad and the key beside the left Shift of an ISO keyboard included), whatever
/// the user's layout writes with it. serverCode: the code of an X key event (8 to 255 on servers
/// that number keys as evdev does). kNoMacKey for every other number.
std::uint16_t macKeyCode(unsigned serverCode);
