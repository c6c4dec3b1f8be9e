// Names and codes from the master lists. Nothing found is no error: the default says so.
#pragma once

#include <string>
#include <string_view>

namespace tallyrun {

// What a name cell holds when the code beside it is in no list; the row checks look for these.
inline constexpr char kBoNameNotFound[] = "BO NAME NOT FOUND";
inline constexpr char kIsinNameNotFound[] = "ISIN NAME NOT FOUND";

// Exact, case-sensitive; "" when nothing matches.
std::string LookupClientCode(std::string_view boId);
std::string LookupBoIdByClientCode(std::string_view clientCode);
// Exact; kBoNameNotFound when nothing matches.
std::string LookupBoName(std::string_view boId);

// The first ISIN code whose scrip ID contains the text in any letter case; "" when none does.
// An empty text is contained in the first one.
std::string LookupIsinCodeByScrip(std::string_view scripId);
// The first record whose ISIN code contains the text in any letter case; an empty text matches
// nothing. `fullCode`, when given, receives the matched record's code and is left alone else.
std::string LookupIsinName(std::string_view isinCode, std::string* fullCode = nullptr);
std::string LookupScripByIsin(std::string_view isinCode, std::string* fullCode = nullptr);

}  // namespace tallyrun
