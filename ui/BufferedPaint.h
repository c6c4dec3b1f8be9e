// A back buffer for the time of one paint: what is drawn into it appears on the screen at once
// when the scope ends. Where the system gives no buffer, painting goes to the screen itself.
#pragma once

#include <windows.h>

#include <uxtheme.h>

namespace tallyrun {

class BufferedPaint {
 public:
  BufferedPaint(HDC target, const RECT& area) : dc_(target) {
    // Once for the program: the system keeps its buffers for the next paint.
    static const HRESULT ready = BufferedPaintInit();
    if (FAILED(ready)) return;
    HDC buffer = nullptr;
    paint_ = BeginBufferedPaint(target, &area, BPBF_TOPDOWNDIB, nullptr, &buffer);
    if (paint_ != nullptr) dc_ = buffer;
  }
  ~BufferedPaint() {
    if (paint_ != nullptr) EndBufferedPaint(paint_, TRUE);
  }
  BufferedPaint(const BufferedPaint&) = delete;
  BufferedPaint& operator=(const BufferedPaint&) = delete;

  HDC Dc() const { return dc_; }

 private:
  HPAINTBUFFER paint_ = nullptr;
  HDC dc_;
};

}  // namespace tallyrun
