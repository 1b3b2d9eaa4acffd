#include <gtest/gtest.h>

#include "ui/dialogs/NameFilters.h"

namespace feedloom {
namespace {

TEST(NameFilters, ListsOfKindsBecomeTheToolkitsFilters) {
  const struct {
    const char* kinds;
    QStringList filters;
  } cases[] = {
      {"OPML File (*.xml;*.opml)|*.xml;*.opml|", {"OPML File (*.xml *.opml)"}},
      {"OPML file (*.xml;*.opml)|*.xml;*.opml|All file (*.*)|*.*|",
       {"OPML file (*.xml *.opml)", "All file (*)"}},
      {"Notes (old) (*.txt)|*.txt", {"Notes (old) (*.txt)"}},
      {"Notes|*.txt;|Lists (all)|*.xml|", {"Notes (*.txt)", "Lists (all) (*.xml)"}},
      {"Nothing||Notes|*.txt|Half", {"Notes (*.txt)"}},
      {"", {}},
  };
  for (const auto& [kinds, filters] : cases) EXPECT_EQ(NameFilters(kinds), filters) << kinds;
}

}  // namespace
}  // namespace feedloom
