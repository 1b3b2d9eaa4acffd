// What the user wants done with posts. Plain values; all texts are UTF-8.
#pragma once

#include <string>
#include <vector>

namespace feedloom {

// What a condition looks at. The text is what a reader sees of the post's HTML. A post has several
// authors and categories, one a line.
enum class FilterField { Title, Text, Author, Link, Category };

// Holds and HoldsNot compare without regard to upper and lower case.
enum class FilterTest { Holds, HoldsNot, Matches };

struct FilterCondition {
  bool operator==(const FilterCondition&) const = default;

  FilterField field = FilterField::Title;
  FilterTest test = FilterTest::Holds;
  std::string text = {};  // of Matches a regular expression in the syntax of RE2
};

enum class FilterPlace { All, Folder, Channel };

// Whether new posts are announced: as the settings say, in any case, or not at all.
enum class FilterNotice { AsSet, Always, Never };

struct FilterRule {
  bool operator==(const FilterRule&) const = default;

  std::string name = {};
  bool isOn = true;
  FilterPlace place = FilterPlace::All;
  std::string placeName = {};  // the title of the folder, the feed address of the channel
  std::vector<FilterCondition> conditions = {};  // all of them must be met; none: by every post
  bool marksRead = false;
  bool deletes = false;
  std::string cabinet = {};  // the title of the one to copy to; empty: none
  FilterNotice notice = FilterNotice::AsSet;
};

}  // namespace feedloom
