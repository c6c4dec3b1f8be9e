// Works the demo's day in the real program: demo_clerk FOLDER [--stay]
// FOLDER holds program\Tallyrun.exe, work\ and import\, as the samples do. With --stay the program
// is left open. Prints the log. A line that begins with "@" is for who started it: "@picture NAME"
// is answered with a line once the picture is taken (a program under Wine does not see the title
// bars), and "@done" comes last.
#include <cstdio>
#include <exception>
#include <iostream>
#include <string>

#include "practice/clerk/DemoSteps.h"
#include "practice/clerk/Waiting.h"

namespace tallyrun::testing {
namespace {

class FilmedDay : public Workday {
 public:
  using Workday::Workday;

  void Say(const std::string& line) override { std::cout << line << std::endl; }

  void TakePicture(const std::string& name) override {
    if (name.empty()) return;
    // An unfinished picture is better than none.
    Clerk().WaitUntilPainted();
    char number[8];
    std::snprintf(number, sizeof number, "%02d-", ++pictures_);
    Say("@picture " + (number + name) + ".png");
    std::string answer;
    if (!std::getline(std::cin, answer)) throw DriverError("Nobody takes the pictures.");
  }

 private:
  int pictures_ = 0;
};

// False when the day broke off.
bool Work(Workday& day, bool stay) {
  try {
    int number = 0;
    for (const DemoStep& step : kDemoSteps) {
      day.Say(std::to_string(++number) + ". " + step.title);
      step.work(day);
    }
    if (stay) {
      day.Clerk().LeaveRunning();
    } else {
      day.Exit();
    }
    return true;
  } catch (const std::exception& error) {
    day.Say(std::string("The day stops here: ") + error.what());
    day.TakePicture("stopped");
    return false;
  }
}

}  // namespace
}  // namespace tallyrun::testing

int main(int count, char** arguments) {
  if (count < 2) return 2;
  const bool stay = count > 2 && std::string(arguments[2]) == "--stay";
  tallyrun::testing::FilmedDay day(arguments[1]);
  const bool worked = tallyrun::testing::Work(day, stay);
  day.Say("@done");
  return worked ? 0 : 1;
}
