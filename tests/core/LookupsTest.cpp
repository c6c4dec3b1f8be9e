#include <gtest/gtest.h>

#include "core/Lists.h"
#include "core/Lookups.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"

namespace tallyrun {
namespace {

using testing::RecordingPlatform;
using testing::TempFolder;

constexpr char kBoHeader[] = "S/N~BO ID~BO Name~Client Code\r\n";
constexpr char kIsinHeader[] = "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r\n";

class LookupsTest : public ::testing::Test {
 protected:
  LookupsTest() {
    BoList = RecordList();
    IsinList = RecordList();
  }

  void LoadBo(const std::string& text) {
    folder.Write("BO.txt", text);
    LoadBoList(folder / "BO.txt");
  }
  void LoadIsin(const std::string& text) {
    folder.Write("ISIN.txt", text);
    LoadIsinList(folder / "ISIN.txt");
  }
  Message FailureOf(const std::string& list, const std::string& file, const std::string& error) {
    return {"Tried to read file: " + (folder / file) + "\r\nError Description: " + error,
            "Error loading list of " + list + ".", MessageIcon::Critical};
  }

  TempFolder folder;
  RecordingPlatform platform;
};

TEST_F(LookupsTest, BoIsFoundByItsIdAndItsClientCode) {
  LoadBo(std::string(kBoHeader) + "1~1201~First~C1\r\n2~1202~Second~C2\r\n3~1201~Third~C2\r");
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(LookupClientCode("1201"), "C1");
  EXPECT_EQ(LookupBoName("1202"), "Second");
  EXPECT_EQ(LookupBoIdByClientCode("C2"), "1202");
  EXPECT_EQ(LookupBoIdByClientCode("Client Code"), "BO ID");
  EXPECT_EQ(LookupClientCode("120"), "");
  EXPECT_EQ(LookupBoName("120"), "BO NAME NOT FOUND");
  EXPECT_EQ(LookupBoIdByClientCode("c2"), "");
}

TEST_F(LookupsTest, LastClientCodeIsFreedOfTheFilesClosingCarriageReturn) {
  LoadBo(std::string(kBoHeader) + "1~1201~First~C1\r\r");
  EXPECT_EQ(LookupClientCode("1201"), "C1");
  LoadIsin(std::string(kIsinHeader) + "1~KTX1~Name~SCRIP~CODE\r");
  EXPECT_EQ(IsinList.Field(2, IsinField::kCount), "CODE\r");
}

TEST_F(LookupsTest, IsinIsCompletedFromAnyPartOfItsCode) {
  LoadIsin(std::string(kIsinHeader) + "1~KTX0001~One~ABC~1\r\n2~KTX0002~Two~XABCX~2\r");
  std::string code = "typed";
  EXPECT_EQ(LookupIsinName("x0002", &code), "Two");
  EXPECT_EQ(code, "KTX0002");
  EXPECT_EQ(LookupScripByIsin("ktx", &code), "ABC");
  EXPECT_EQ(code, "KTX0001");
  code = "typed";
  for (const char* unknown : {"none", ""}) {
    EXPECT_EQ(LookupIsinName(unknown, &code), "ISIN NAME NOT FOUND");
    EXPECT_EQ(LookupScripByIsin(unknown, &code), "");
    EXPECT_EQ(code, "typed");
  }
  EXPECT_EQ(LookupIsinCodeByScrip("abcx"), "KTX0002");
  EXPECT_EQ(LookupIsinCodeByScrip("abc"), "KTX0001");
  EXPECT_EQ(LookupIsinCodeByScrip("none"), "");
  EXPECT_EQ(LookupIsinCodeByScrip(""), "ISIN Code");
}

TEST_F(LookupsTest, MissingFileKeepsTheListAndSaysWhichFile) {
  LoadBo(std::string(kBoHeader) + "1~1201~First~C1\r");
  LoadBoList(folder / "none.txt");
  EXPECT_EQ(platform.TakeMessage(), FailureOf("BOs", "none.txt", "File not found"));
  EXPECT_EQ(LookupBoName("1201"), "First");
  LoadIsinList(folder / "none.txt");
  EXPECT_EQ(platform.TakeMessage(), FailureOf("ISINs", "none.txt", "File not found"));
}

TEST_F(LookupsTest, BoFileThatCannotBeRepairedSaysSoAndKeepsItsRecords) {
  LoadBo("");
  EXPECT_EQ(platform.TakeMessage(), FailureOf("BOs", "BO.txt", "Subscript out of range"));
  EXPECT_EQ(BoList.Count(), 0);
  LoadBo(std::string(kBoHeader) + "1~1201~First~C1\r\n");
  EXPECT_EQ(platform.TakeMessage(), FailureOf("BOs", "BO.txt", "Subscript out of range"));
  EXPECT_EQ(LookupClientCode("1201"), "C1");
  LoadIsin("");
  LoadIsin(std::string(kIsinHeader) + "1~KTX1~Name~S~C\r\n");
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(IsinList.Count(), 3);
}

TEST_F(LookupsTest, LineWithTooFewFieldsStopsTheLoadThere) {
  LoadIsin(std::string(kIsinHeader) + "1~KTX1~Name~S~C\r\n2~KTX2~Name~S\r\n3~KTX3~Name~S~C\r");
  EXPECT_EQ(platform.TakeMessage(), FailureOf("ISINs", "ISIN.txt", "Subscript out of range"));
  EXPECT_EQ(IsinList.Count(), 2);
  EXPECT_EQ(LookupScripByIsin("KTX2"), "");
}

}  // namespace
}  // namespace tallyrun
