// How a BO ID that a clerk typed becomes a full one: its last digits are enough, the account
// prefix comes from the BOID Format of the settings. One rule for the sheet and for the BO list.
#pragma once

#include <string>
#include <string_view>

namespace tallyrun {

// True when `text` is longer than the BOID Format.
bool IsBoIdTooLong(std::string_view text);

// "BOID length can not be greater than 16.", with the length of the BOID Format.
void TellBoIdTooLong();

// `text` filled up on the left from the BOID Format to the format's length. An empty text and
// one that is as long or longer stay as they are.
std::string CompleteBoId(std::string_view text);

}  // namespace tallyrun
