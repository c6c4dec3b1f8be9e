#include "core/masterlists/Lookups.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

struct LookupsTest : ProgramFixture {
  void LoadBo(const std::string& records) {
    folder.Write("BO.txt", "S/N~BO ID~BO Name~Client Code\r\n" + records);
    LoadBoList(folder / "BO.txt");
  }
  void LoadIsin(const std::string& records) {
    folder.Write("ISIN.txt", "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r\n" + records);
    LoadIsinList(folder / "ISIN.txt");
  }
  void ExpectFailure(const std::string& list, const std::string& file, const std::string& error) {
    EXPECT_EQ(platform.TakeMessage(),
              (Message{"Tried to read file: " + (folder / file) + "\r\nError Description: " + error,
                       "Error loading list of " + list + ".", MessageIcon::Critical}));
  }
};

TEST_F(LookupsTest, ABoIsFoundByItsIdAndItsClientCode) {
  LoadBo("1~1201~First~C1\r\n2~1202~Second~C2\r\n3~1201~Third~C2\r\n4~1204~Fourth~C4\r\r");
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(LookupClientCode("1201"), "C1");
  EXPECT_EQ(LookupClientCode("1204"), "C4");  // freed of what ends the file
  EXPECT_EQ(LookupBoName("1202"), "Second");
  EXPECT_EQ(LookupBoIdByClientCode("C2"), "1202");
  EXPECT_EQ(LookupBoIdByClientCode("Client Code"), "BO ID");
  EXPECT_EQ(LookupClientCode("120"), "");
  EXPECT_EQ(LookupBoName("120"), "BO NAME NOT FOUND");
  EXPECT_EQ(LookupBoIdByClientCode("c2"), "");
}

TEST_F(LookupsTest, AnIsinIsCompletedFromAnyPartOfItsCode) {
  LoadIsin("1~KTX0001~One~ABC~1\r\n2~KTX0002~Two~XABCX~2\r");
  std::string code = "typed";
  for (const char* unknown : {"none", ""}) {
    EXPECT_EQ(LookupIsinName(unknown, &code), "ISIN NAME NOT FOUND");
    EXPECT_EQ(LookupScripByIsin(unknown, &code), "");
    EXPECT_EQ(code, "typed");
  }
  EXPECT_EQ(LookupIsinName("x0002", &code), "Two");
  EXPECT_EQ(code, "KTX0002");
  EXPECT_EQ(LookupScripByIsin("ktx", &code), "ABC");
  EXPECT_EQ(code, "KTX0001");
  EXPECT_EQ(LookupIsinCodeByScrip("abcx"), "KTX0002");
  EXPECT_EQ(LookupIsinCodeByScrip("none"), "");
  EXPECT_EQ(LookupIsinCodeByScrip(""), "ISIN Code");
}

TEST_F(LookupsTest, AFaultyFileIsToldAndTheRecordsBeforeTheFaultStay) {
  LoadBo("1~1201~First~C1\r\n");
  ExpectFailure("BOs", "BO.txt", "Subscript out of range");
  LoadBoList(folder / "none.txt");
  ExpectFailure("BOs", "none.txt", "File not found");
  EXPECT_EQ(LookupClientCode("1201"), "C1");
  LoadIsin("1~KTX1~Name~S~C\r\n2~KTX2~Name~S\r\n3~KTX3~Name~S~C\r");
  ExpectFailure("ISINs", "ISIN.txt", "Subscript out of range");
  EXPECT_EQ(IsinList.Count(), 2);
  LoadIsin("1~KTX1~Name~S~C\r\n");
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(IsinList.Count(), 3);
}

}  // namespace
}  // namespace tallyrun::testing
