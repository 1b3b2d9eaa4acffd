#include <gtest/gtest.h>

#include "kit/TempFolder.h"
#include "profile/HostTexts.h"
#include "profile/IniFile.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

TEST(IniFileTest, AValueIsWhatFollowsTheEqualsSign) {
  const IniFile file = IniFile::Parse(
      "\xEF\xBB\xBF; a comment\r\n"
      "LOOSE=before any section\r\n"
      "[ ONE ]\r\n"
      "  key = a = b ; c  \r\n"
      "key=second\r\n"
      ";off=x\r\n"
      "no equals sign\r\n"
      "empty=\r\n"
      "[TWO]\n"
      "last=\"quoted\"");
  EXPECT_EQ(file.Value("ONE", "KEY"), "a = b ; c");
  EXPECT_EQ(file.Value("one", "empty"), "");
  EXPECT_EQ(file.Value("TWO", "last"), "\"quoted\"");
  EXPECT_EQ(file.Value("", "LOOSE"), "before any section");
  EXPECT_EQ(file.Value("ONE", ";off"), std::nullopt);
  EXPECT_EQ(file.Value("ONE", "last"), std::nullopt);
}

TEST(IniFileTest, TheLanguagesOwnSectionComesFirst) {
  const IniFile file = IniFile::Parse("[S]\nA=가\nB=나\n[S.ENG]\nA=a\n");
  EXPECT_EQ(file.ValueInLanguage("S", "A", "ENG"), "a");
  EXPECT_EQ(file.ValueInLanguage("S", "B", "ENG"), "나");
  EXPECT_EQ(file.ValueInLanguage("S", "A", "KOR"), "가");
  EXPECT_EQ(file.ValueInLanguage("S", "C", "ENG"), std::nullopt);
}

TEST(IniFileTest, WhatIsNoFileHasNoValues) {
  const TempFolder folder;
  EXPECT_EQ(IniFile::Read(folder.File("missing")).Value("S", "A"), std::nullopt);
  EXPECT_EQ(IniFile::Read(folder.Path()).Value("S", "A"), std::nullopt);
}

TEST(HostTextsTest, AnswerFromTheHostsIniFiles) {
  const TempFolder folder;
  folder.Write("string.ini", "[FEEDLOOM]\nHELLO=안녕\n[FEEDLOOM.ENG]\nHELLO=Hello\n");
  folder.Write("image.ini", "[RSS_HTML]\nPOS=1,2,3,4\n");
  const Registry registry(folder.File("registry.reg"));
  ASSERT_TRUE(registry.WriteString(kHostKey, kValueIniDir, folder.Path()));
  const HostConfig config(registry);

  const HostLookup korean = ReadHostTexts(config);
  EXPECT_EQ(korean.HostGetText("FEEDLOOM", "HELLO"), CodePage::Korean().FromUtf8("안녕"));
  EXPECT_EQ(korean.HostGetText("FEEDLOOM", "BYE"), "");
  EXPECT_EQ(korean.HostGetSkinValue("RSS_HTML", "POS"), "1,2,3,4");

  ASSERT_TRUE(registry.WriteString(kHostKey, kValueLanguage, "ENG"));
  EXPECT_EQ(ReadHostTexts(config).HostGetText("FEEDLOOM", "HELLO"), "Hello");

  ASSERT_TRUE(registry.WriteString(kHostKey, kValueIniDir, folder.File("missing")));
  EXPECT_EQ(ReadHostTexts(config).HostGetText("FEEDLOOM", "HELLO"), "");
}

}  // namespace
}  // namespace feedloom
