#include <gtest/gtest.h>

#include "skin/Keys.h"
#include "ui/dialogs/DialogRules.h"

namespace feedloom {
namespace {

bool IsNews(const std::string& name) { return name == "News"; }
bool IsSeven(int folderId) { return folderId == 7; }

TEST(DialogRules, EachKindOfNameHasItsOwnMessages) {
  const struct {
    const NameRule& rule;
    const char* empty;
    const char* taken;
    const char* reserved;
  } rules[] = {
      {kGroupNameRule, kTextGroupEmpty, kTextGroupDuplicate, kTextGroupDuplicate},
      {kCabinetNameRule, kTextCabinetEmpty, kTextCabinetDuplicate, kTextCabinetDuplicate},
      {kChannelRenameRule, kTextGroupEmpty, kTextRenameDuplicate, nullptr},
      {kCabinetRenameRule, kTextGroupEmpty, kTextRenameDuplicate, kTextRenameDuplicate},
  };
  for (const auto& [rule, empty, taken, reserved] : rules) {
    const auto check = [&shown = rule](const std::string& name) {
      return CheckName(shown, name, "R&D", IsNews);
    };
    EXPECT_EQ(check(""), empty);
    EXPECT_EQ(check("News"), taken);
    EXPECT_EQ(check("R&D"), reserved);
    EXPECT_EQ(check("R&amp;D"), reserved);  // it would be stored as R&D
    EXPECT_EQ(check("r&d"), nullptr);
    EXPECT_EQ(check("%s 'quoted' (3)"), nullptr);
    EXPECT_EQ(check(std::string(10'000, 'x')), nullptr);
  }
}

TEST(DialogRules, AChannelNeedsATitleAFolderAndANewAddressInIt) {
  EXPECT_EQ(CheckAddress(""), kTextAddChannelEmpty);
  EXPECT_EQ(CheckAddress("x"), nullptr);
  EXPECT_EQ(CheckNewChannel("", 0, IsSeven), kTextAddChannelEmpty);
  EXPECT_EQ(CheckNewChannel("Title", 0, IsSeven), kTextMoveEmpty);
  EXPECT_EQ(CheckNewChannel("Title", 7, IsSeven), kTextAddChannelDuplicate);
  EXPECT_EQ(CheckNewChannel("Title", 8, IsSeven), nullptr);
  EXPECT_EQ(CheckFolder(0, IsSeven), kTextMoveEmpty);
  EXPECT_EQ(CheckFolder(7, IsSeven), kTextAddChannelDuplicate);
  EXPECT_EQ(CheckFolder(8, IsSeven), nullptr);
}

}  // namespace
}  // namespace feedloom
