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
};

TEST_F(LookupsTest, TheFirstRecordIsTakenTheCaptionsIncluded) {
  LoadBo("1~1201~First~C1\r\n2~1202~Second~C2\r\n3~1201~Third~C2\r\n4~1204~Fourth~C4\r\r");
  EXPECT_EQ(LookupClientCode("1201"), "C1");
  EXPECT_EQ(LookupClientCode("1204"), "C4");  // freed of what ends the file
  EXPECT_EQ(LookupBoIdByClientCode("C2"), "1202");
  EXPECT_EQ(LookupBoIdByClientCode("Client Code"), "BO ID");
  EXPECT_EQ(LookupBoName("120"), "BO NAME NOT FOUND");
  LoadIsin("1~KTX0001~One~ABC~1\r\n2~KTX0002~Two~XABCX~2\r");
  std::string code = "typed";
  EXPECT_EQ(LookupIsinName("", &code) + LookupScripByIsin("none", &code) + code,
            "ISIN NAME NOT FOUNDtyped");
  EXPECT_EQ(LookupIsinName("x0002", &code) + code, "TwoKTX0002");
  EXPECT_EQ(LookupScripByIsin("ktx", &code) + code, "ABCKTX0001");
  EXPECT_EQ(LookupIsinCodeByScrip("abcx") + LookupIsinCodeByScrip(""), "KTX0002ISIN Code");
}

TEST_F(LookupsTest, AFaultyFileIsToldAndTheRecordsBeforeTheFaultStay) {
  LoadBo("1~1201~First~C1\r\n");
  EXPECT_EQ(platform.TakeMessage(), (Message{"Tried to read file: " + (folder / "BO.txt") +
                                                 "\r\nError Description: Subscript out of range",
                                             "Error loading list of BOs.", MessageIcon::Critical}));
  LoadBoList(folder / "none.txt");
  EXPECT_TRUE(platform.TakeMessage().text.ends_with("File not found"));
  EXPECT_EQ(LookupClientCode("1201"), "C1");
  LoadIsin("1~KTX1~Name~S~C\r\n2~KTX2~Name~S\r\n3~KTX3~Name~S~C\r");
  EXPECT_EQ(platform.TakeMessage().title, "Error loading list of ISINs.");
  EXPECT_EQ(IsinList.Count(), 2);
}

}  // namespace
}  // namespace tallyrun::testing
