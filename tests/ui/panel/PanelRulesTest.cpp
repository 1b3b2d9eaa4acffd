#include <gtest/gtest.h>

#include "ui/panel/PanelRules.h"

namespace feedloom {
namespace {

TEST(PanelRules, OnlyAutomaticDeletionNeedsAnAge) {
  struct Case {
    int mode;
    int days;
    const char* fault;
  };
  constexpr const char* kTooYoung = "RSS_MSG_CONFIG_DELETEDATE_ERROR";
  for (const Case& c : {Case{0, 0, kTooYoung}, Case{0, -3, kTooYoung}, Case{0, 1, nullptr},
                        Case{0, 1'000'000'000, nullptr}, Case{1, 0, nullptr}}) {
    EXPECT_STREQ(ValidatePanelSettings({.feedDeleteMode = c.mode, .feedDeleteDate = c.days}),
                 c.fault)
        << c.mode << " " << c.days;
  }
}

}  // namespace
}  // namespace feedloom
