// The clerk's hand: real mouse and keyboard input, which the system brings to whatever window is in
// front. Knows nothing of the program that it works.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string>

namespace tallyrun::testing {

// Screen coordinates.
void ClickAt(POINT place);

// Presses and releases a key by its virtual-key code; the modifiers (VK_CONTROL, VK_SHIFT) are held
// meanwhile.
void PressKey(WORD key, std::initializer_list<WORD> modifiers = {});
void PressKeys(WORD key, int times);

// Types text of the system's code page.
void TypeText(const std::string& text);

}  // namespace tallyrun::testing
