#include <functional>
#include <gtest/gtest.h>

#include "holding/CheckHoldings.h"
#include "holding/frmHoldingMessage.h"
#include "holding/frmHoldingMessageIds.h"
#include "tests/support/RecordingPlatform.h"

namespace tallyrun::testing {
namespace {

class OwnerForm : public Form {
 public:
  OwnerForm() : Form("frmOwner") {}

 protected:
  void CreateControls() override {}
  void Layout(LayoutArea&) override {}
};

// Runs a step once the modal window is in sight.
class WhenShown {
 public:
  explicit WhenShown(std::function<void(HWND)> step) {
    pending = std::move(step);
    timer_ = SetTimer(nullptr, 0, kPollMilliseconds, Poll);
  }
  ~WhenShown() { KillTimer(nullptr, timer_); }
  WhenShown(const WhenShown&) = delete;
  WhenShown& operator=(const WhenShown&) = delete;

 private:
  static constexpr UINT kPollMilliseconds = 10;

  static void CALLBACK Poll(HWND, UINT, UINT_PTR, DWORD) {
    const HWND window = FindWindowA(frmHoldingMessageIds::kWindowClass, nullptr);
    if (!pending || !IsWindowVisible(window)) return;
    std::exchange(pending, nullptr)(window);
  }

  static inline std::function<void(HWND)> pending;
  UINT_PTR timer_;
};

std::string TextOf(HWND window) {
  std::string text(static_cast<std::size_t>(SendMessageA(window, WM_GETTEXTLENGTH, 0, 0)), '\0');
  SendMessageA(window, WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()));
  return text;
}

class frmHoldingMessageTest : public ::testing::Test {
 protected:
  frmHoldingMessageTest() { owner.Show(); }
  ~frmHoldingMessageTest() override { HoldingMessage.clear(); }

  RecordingPlatform platform;
  OwnerForm owner;
  frmHoldingMessage form;
};

TEST_F(frmHoldingMessageTest, ShowsTheTextOfNowUntilTheClerkClosesIt) {
  const std::string longest(100'000, 'x');  // more than a text box holds by itself
  for (const std::string& text : {std::string("first\r\nsecond\r\n"), longest}) {
    HoldingMessage = text;
    const WhenShown whenShown([&](HWND window) {
      EXPECT_EQ(TextOf(window), "Tallyrun v1.0 : Holding Balance Message.");
      EXPECT_FALSE(IsWindowEnabled(owner.Handle()));
      const HWND message = GetDlgItem(window, frmHoldingMessageIds::kTxtMessage);
      EXPECT_EQ(TextOf(message), text);
      constexpr LONG kLinesToRead = ES_MULTILINE | ES_READONLY;
      EXPECT_EQ(GetWindowLongA(message, GWL_STYLE) & kLinesToRead, kLinesToRead);
      LOGFONTA font = {};
      const auto handle = reinterpret_cast<HFONT>(SendMessageA(message, WM_GETFONT, 0, 0));
      GetObjectA(handle, sizeof font, &font);
      EXPECT_STREQ(font.lfFaceName, "Lucida Console");
      PostMessageA(window, WM_CLOSE, 0, 0);
    });
    form.ShowFresh(&owner);
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_TRUE(IsWindowEnabled(owner.Handle()));
  }
}

}  // namespace
}  // namespace tallyrun::testing
