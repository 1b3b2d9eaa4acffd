#pragma once

namespace feedloom {

// What holds posts: the rows of the tree. The cabinet root holds those of all cabinets.
enum class RowKind { Folder, CabinetRoot, Channel, Cabinet };

constexpr bool IsGroup(RowKind kind) {
  return kind == RowKind::Folder || kind == RowKind::CabinetRoot;
}

constexpr bool HoldsScrapPosts(RowKind kind) {
  return kind == RowKind::CabinetRoot || kind == RowKind::Cabinet;
}

// What a row stands for. The id of the cabinet root is 0.
struct RowKey {
  RowKind kind = RowKind::Folder;
  int id = 0;

  bool operator==(const RowKey&) const = default;
};

}  // namespace feedloom
