#include "practice/clerk/Hand.h"

#include <vector>

#include "practice/clerk/Waiting.h"

namespace tallyrun::testing {

namespace {

void Send(std::vector<INPUT> inputs) {
  const auto count = static_cast<UINT>(inputs.size());
  if (SendInput(count, inputs.data(), sizeof(INPUT)) != count) {
    throw DriverError("The system took no input.");
  }
}

INPUT KeyInput(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyA(key, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags;
  switch (key) {
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_INSERT:
    case VK_DELETE:
      // Else they are the keys of the number pad.
      input.ki.dwFlags |= KEYEVENTF_EXTENDEDKEY;
      break;
    default:
      break;
  }
  return input;
}

// In parts of the screen, rounded so that the system comes back to the same pixel.
LONG PartOf(LONG place, int extent) {
  const LONG size = GetSystemMetrics(extent);
  return (place * 65536 + size - 1) / size;
}

// Moves and presses in one, or what else moves the pointer could come between.
INPUT MouseInput(POINT place, DWORD flags) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dx = PartOf(place.x, SM_CXSCREEN);
  input.mi.dy = PartOf(place.y, SM_CYSCREEN);
  input.mi.dwFlags = flags | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
  return input;
}

}  // namespace

void ClickAt(POINT place) {
  Send({MouseInput(place, MOUSEEVENTF_LEFTDOWN), MouseInput(place, MOUSEEVENTF_LEFTUP)});
}

void PressKey(WORD key, std::initializer_list<WORD> modifiers) {
  std::vector<INPUT> inputs;
  for (WORD modifier : modifiers) inputs.push_back(KeyInput(modifier, 0));
  inputs.push_back(KeyInput(key, 0));
  inputs.push_back(KeyInput(key, KEYEVENTF_KEYUP));
  for (WORD modifier : modifiers) inputs.push_back(KeyInput(modifier, KEYEVENTF_KEYUP));
  Send(std::move(inputs));
}

void PressKeys(WORD key, int times) {
  for (int i = 0; i < times; ++i) PressKey(key);
}

void TypeText(const std::string& text) {
  // As characters, not keys: the keyboard's layout need not have them all.
  std::wstring wide(text.size(), L'\0');
  wide.resize(
      static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()),
                                              wide.data(), static_cast<int>(wide.size()))));
  std::vector<INPUT> inputs;
  for (wchar_t character : wide) {
    for (DWORD flags : {DWORD{KEYEVENTF_UNICODE}, DWORD{KEYEVENTF_UNICODE | KEYEVENTF_KEYUP}}) {
      INPUT input{};
      input.type = INPUT_KEYBOARD;
      input.ki.wScan = static_cast<WORD>(character);
      input.ki.dwFlags = flags;
      inputs.push_back(input);
    }
  }
  if (!inputs.empty()) Send(std::move(inputs));
}

}  // namespace tallyrun::testing
