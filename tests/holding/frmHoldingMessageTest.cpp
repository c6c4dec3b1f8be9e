#include <functional>
#include <gtest/gtest.h>

#include "holding/CheckHoldings.h"
#include "holding/frmHoldingMessage.h"
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
    const HWND window = FindWindowA("frmHoldingMessage", nullptr);
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

RECT Rectangle(HWND window) {
  RECT rectangle = {};
  GetWindowRect(window, &rectangle);
  return rectangle;
}

HWND MessageBoxOf(HWND window) { return GetDlgItem(window, frmHoldingMessage::kMessageId); }

class frmHoldingMessageTest : public ::testing::Test {
 protected:
  frmHoldingMessageTest() { owner.Show(); }
  ~frmHoldingMessageTest() override { HoldingMessage.clear(); }

  RecordingPlatform platform;
  OwnerForm owner;
  frmHoldingMessage form;
};

TEST_F(frmHoldingMessageTest, ShowsTheTextInItsFontAndLetsNobodyChangeIt) {
  // Longer than a text box holds by itself.
  HoldingMessage.clear();
  while (HoldingMessage.size() < 100'000) {
    HoldingMessage += "1201000000000123 XX0000000001 holding balance missing.\r\n";
  }
  const WhenShown whenShown([this](HWND window) {
    EXPECT_EQ(TextOf(window), "Tallyrun v1.0 : Holding Balance Message.");
    EXPECT_FALSE(IsWindowEnabled(owner.Handle()));
    const HWND message = MessageBoxOf(window);
    EXPECT_EQ(TextOf(message), HoldingMessage);
    constexpr LONG kLinesToRead = ES_MULTILINE | ES_READONLY;
    EXPECT_EQ(GetWindowLongA(message, GWL_STYLE) & kLinesToRead, kLinesToRead);
    LOGFONTA font = {};
    const auto handle = reinterpret_cast<HFONT>(SendMessageA(message, WM_GETFONT, 0, 0));
    GetObjectA(handle, sizeof font, &font);
    EXPECT_STREQ(font.lfFaceName, "Lucida Console");

    const RECT before = Rectangle(message);
    const RECT whole = Rectangle(window);
    SetWindowPos(window, nullptr, 0, 0, whole.right - whole.left + 60,
                 whole.bottom - whole.top + 40, SWP_NOMOVE | SWP_NOZORDER);
    const RECT after = Rectangle(message);
    EXPECT_EQ(after.right - after.left, before.right - before.left + 60);
    EXPECT_EQ(after.bottom - after.top, before.bottom - before.top + 40);
    PostMessageA(window, WM_CLOSE, 0, 0);
  });
  form.ShowFresh(&owner);
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_TRUE(IsWindowEnabled(owner.Handle()));
}

TEST_F(frmHoldingMessageTest, EachTimeIsFreshAndEscClosesIt) {
  for (const char* text : {"first\r\n", "second\r\n"}) {
    HoldingMessage = text;
    const WhenShown whenShown([text](HWND window) {
      EXPECT_EQ(TextOf(MessageBoxOf(window)), text);
      PostMessageA(MessageBoxOf(window), WM_KEYDOWN, VK_ESCAPE, 1);
    });
    form.ShowFresh(&owner);
    EXPECT_FALSE(form.IsLoaded());
  }
}

}  // namespace
}  // namespace tallyrun::testing
