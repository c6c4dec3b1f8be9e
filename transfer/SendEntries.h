// Sending the day's entries: is the file already there, the upload, its verdict and the archive
// of the attempt. Tells the clerk through the platform; knows no window but its caption and
// pointer.
#pragma once

#include <string>

#include "core/BusyScope.h"
#include "core/grid/FlexGrid.h"
#include "core/text/Conversion.h"

namespace tallyrun {

// One send. Its names and rows are taken once, when the checks have passed: what was checked is
// what is sent and archived, whatever the clerk does to the window while a transfer is waited
// for.
struct EntrySend {
  // For the entry mode and the settings in force. `busyScope` must outlive the send.
  EntrySend(const FlexGrid& entries, const Date& entryDay, BusyScope& busyScope);

  BusyScope& busy;
  std::string day;            // "05-Jan-2010"
  std::string stem;           // "05-Jan-2010_PI_123456"
  std::string fileName;       // the same with ".txt"
  std::string workingFolder;  // with its trailing backslash
  std::string sheet;          // the rows as tilde table text
};

// "Are you sure to send the entered records to KTX ...", for the mode in force.
bool ConfirmSend(const Date& entryDay);

// True (stop) when the day's file is already on the server, which is then shown, or when that
// could not be found out. Downloads the server's file over the local one.
bool CheckAlreadySent(const EntrySend& send);

// Writes the day's entry file.
void WriteEntryFile(const EntrySend& send);

// Uploads the entry file, tells the clerk how it went and archives the rows under "Sent", whether
// it went well or not. Runs under a trap of its own that leaves caption and pointer as they are.
void UploadEntryFile(const EntrySend& send);

}  // namespace tallyrun
