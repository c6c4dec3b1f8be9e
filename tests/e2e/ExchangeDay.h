// A day at the practice exchange: the real program in a workplace of its own, the exchange's folder
// and its faults, and the steps that lead to a send.
#pragma once

#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "tests/e2e/Steps.h"

namespace tallyrun::testing {

class ExchangeDay : public ::testing::Test {
 protected:
  static constexpr char kPayInFile[] = "05-Jan-2010_PI_410275.txt";
  static constexpr char kPayOutFile[] = "05-Jan-2010_PO_410275.txt";
  static constexpr char kHoldingDialog[] = "Choose Holding FIle (11DPA6UX.TXT)";

  // Begins with an empty, faultless exchange.
  ExchangeDay();
  // Lets a client that still waits for an answer come to its end.
  ~ExchangeDay() override { SetFaults(""); }

  // Starts the program in a workplace whose name is as odd as a folder's may be.
  void Start();
  // Loads the trade file of the 5th of January 2010, "payin" or "payout", with its two rows, and
  // fills the automatic fields.
  void ImportDay(const std::string& mode);
  // Presses Send and confirms.
  void Send();
  void ExpectBox(const std::string& title, const std::string& text);
  void ExpectCaption(const std::string& caption);
  // Waits until the system's editor shows the file, and closes it.
  void ExpectInEditor(const std::string& fileName);
  // Waits until a transfer has left nothing of itself in the working folder.
  void ExpectTransferFilesGone();

  // What the exchange is to do wrong from now on; nothing for none.
  void SetFaults(const std::string& names) const;

  ClerkDriver& Clerk() { return *clerk_; }
  OpenWindow Main() const { return MainWindow(*clerk_); }
  // Full paths in the workplace, the working folder and the folder that the exchange serves.
  std::string File(const std::string& name) const { return place_->File(name); }
  std::string Work(const std::string& name) const { return File("work\\" + name); }
  std::string OnExchange(const std::string& name) const {
    return ExchangeFolder() + "\\entry\\" + name;
  }

 private:
  std::optional<Workplace> place_;
  std::optional<ClerkDriver> clerk_;
};

bool IsThere(const std::string& path);
// Whether the text has come into the file, which another program may be writing.
bool Contains(const std::string& path, const std::string& text);

}  // namespace tallyrun::testing
