// Owners of what Windows hands out: one template, one alias per kind of handle, and scopes for
// painting and selecting. Nothing is freed by hand anywhere else.
#pragma once

#include <windows.h>

#include <utility>

namespace tallyrun {

// Owns a handle whose empty value is null; `Traits` names its type and how it is freed.
template <class Traits>
class UniqueHandle {
 public:
  using Handle = typename Traits::Handle;

  UniqueHandle() = default;
  explicit UniqueHandle(Handle handle) : handle_(handle) {}
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    if (this != &other) Reset(std::exchange(other.handle_, nullptr));
    return *this;
  }
  UniqueHandle(const UniqueHandle&) = delete;
  UniqueHandle& operator=(const UniqueHandle&) = delete;
  ~UniqueHandle() { Reset(); }

  Handle Get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }
  void Reset(Handle handle = nullptr) {
    const Handle old = std::exchange(handle_, handle);
    if (old != nullptr) Traits::Free(old);
  }

 private:
  Handle handle_ = nullptr;
};

template <class GdiHandle>
struct GdiTraits {
  using Handle = GdiHandle;
  static void Free(Handle handle) { DeleteObject(handle); }
};
struct MenuTraits {
  using Handle = HMENU;
  static void Free(Handle handle) { DestroyMenu(handle); }
};
struct MemoryDcTraits {
  using Handle = HDC;
  static void Free(Handle handle) { DeleteDC(handle); }
};
struct ProcessTraits {
  using Handle = HANDLE;
  static void Free(Handle handle) { CloseHandle(handle); }
};

using UniqueFont = UniqueHandle<GdiTraits<HFONT>>;
using UniqueBitmap = UniqueHandle<GdiTraits<HBITMAP>>;
using UniqueMenu = UniqueHandle<MenuTraits>;
using UniqueDc = UniqueHandle<MemoryDcTraits>;      // from CreateCompatibleDC
using UniqueProcess = UniqueHandle<ProcessTraits>;  // any handle that CloseHandle closes

// The device context of a window for as long as the scope lasts; a null window is the screen.
class WindowDc {
 public:
  explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
  ~WindowDc() { ReleaseDC(window_, dc_); }
  WindowDc(const WindowDc&) = delete;
  WindowDc& operator=(const WindowDc&) = delete;
  HDC Get() const { return dc_; }

 private:
  HWND window_;
  HDC dc_;
};

class PaintScope {
 public:
  explicit PaintScope(HWND window) : window_(window) { BeginPaint(window, &paint_); }
  ~PaintScope() { EndPaint(window_, &paint_); }
  PaintScope(const PaintScope&) = delete;
  PaintScope& operator=(const PaintScope&) = delete;
  HDC Dc() const { return paint_.hdc; }
  const RECT& Dirty() const { return paint_.rcPaint; }

 private:
  HWND window_;
  PAINTSTRUCT paint_ = {};
};

// Selects a GDI object and puts the former one back.
class SelectScope {
 public:
  SelectScope(HDC dc, HGDIOBJ object) : dc_(dc), former_(SelectObject(dc, object)) {}
  ~SelectScope() { SelectObject(dc_, former_); }
  SelectScope(const SelectScope&) = delete;
  SelectScope& operator=(const SelectScope&) = delete;

 private:
  HDC dc_;
  HGDIOBJ former_;
};

}  // namespace tallyrun
