// Works a day in the real program, for scripts/demo.sh: demo_clerk FOLDER [--stay]
// FOLDER holds program\Tallyrun.exe, work\ and import\, as the samples do. With --stay the program
// is left open.
#include <exception>
#include <string>

#include "practice/clerk/demo/DemoDay.h"

namespace tallyrun::testing {
namespace {

// False when the day broke off.
bool Work(DemoDay& day, bool stay) {
  try {
    int number = 0;
    for (const auto* steps : {&EntrySheetSteps(), &SendSteps(), &PayOutSteps(), &ListSteps()}) {
      for (const DemoStep& step : *steps) {
        day.Say(std::to_string(++number) + ". " + step.title);
        step.work(day);
      }
    }
    if (stay) day.Clerk().LeaveRunning();
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
  tallyrun::testing::DemoDay day(arguments[1]);
  const bool worked = tallyrun::testing::Work(day, stay);
  day.Say("@done");
  return worked ? 0 : 1;
}
