#include "shell/ViewStore.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>
#include <variant>

#include "files/RegistryKeys.h"
#include "ui/list/PostCells.h"

namespace feedloom {
namespace {

using Numbers = std::vector<int>;

constexpr int kWidest = 10'000;  // pixels

// Empty unless all of `text` is in the form of this file.
Numbers ParseNumbers(std::string_view text) {
  Numbers numbers;
  const char* const end = text.data() + text.size();
  for (const char* next = text.data();;) {
    const auto [last, fault] = std::from_chars(next, end, numbers.emplace_back());
    if (fault != std::errc() || (last != end && *last != ',')) return {};
    if (last == end) return numbers;
    next = last + 1;
  }
}

std::string FormatNumbers(const Numbers& numbers) {
  std::string text;
  for (const int number : numbers) text += (text.empty() ? "" : ",") + std::to_string(number);
  return text;
}

bool IsWidth(int number) { return number > 0 && number <= kWidest; }

// Pairs of a kind and an id. Pairs of no kind are left out.
std::vector<RowKey> ToRows(const Numbers& numbers) {
  std::vector<RowKey> rows;
  for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
    const auto kind = static_cast<RowKind>(numbers[i]);
    if (kind >= RowKind::Folder && kind <= RowKind::Cabinet) rows.push_back({kind, numbers[i + 1]});
  }
  return rows;
}

Numbers FromRow(const RowKey& row) { return {static_cast<int>(row.kind), row.id}; }

void ReadPanes(const Numbers& numbers, ViewMemory& view) {
  const auto size = [&numbers](std::size_t place) {
    return place < numbers.size() && IsWidth(numbers[place]) ? numbers[place] : 0;
  };
  view.panes = {.leftWidth = size(0), .listHeight = size(1), .listWidth = size(2)};
}

Numbers WritePanes(const ViewMemory& view) {
  return {view.panes.leftWidth, view.panes.listHeight, view.panes.listWidth};
}

void ReadColumns(const Numbers& numbers, ViewMemory& view) {
  view.list.columnWidths = numbers;
  std::ranges::replace_if(
      view.list.columnWidths, [](int width) { return !IsWidth(width); }, 0);
}

Numbers WriteColumns(const ViewMemory& view) { return view.list.columnWidths; }

void ReadSorting(const Numbers& numbers, ViewMemory& view) {
  if (numbers.size() < 2 || numbers[0] < 0 || numbers[0] >= kPostColumnCount) return;
  view.list.sortColumn = numbers[0];
  view.list.isDescending = numbers[1] == 1;
}

Numbers WriteSorting(const ViewMemory& view) {
  return {view.list.sortColumn, view.list.isDescending ? 1 : 0};
}

void ReadScope(const Numbers& numbers, ViewMemory& view) {
  if (numbers.size() == 1) view.list.scope = numbers[0];
}

Numbers WriteScope(const ViewMemory& view) { return {view.list.scope}; }

void ReadZoom(const Numbers& numbers, ViewMemory& view) {
  if (numbers.size() == 1) view.page.zoomSteps = numbers[0];
}

Numbers WriteZoom(const ViewMemory& view) { return {view.page.zoomSteps}; }

void ReadClosed(const Numbers& numbers, ViewMemory& view) { view.tree.closed = ToRows(numbers); }

Numbers WriteClosed(const ViewMemory& view) {
  Numbers numbers;
  for (const RowKey& row : view.tree.closed)
    std::ranges::copy(FromRow(row), back_inserter(numbers));
  return numbers;
}

void ReadSelected(const Numbers& numbers, ViewMemory& view) {
  const auto rows = ToRows(numbers);
  if (rows.size() == 1) view.tree.selected = rows.front();
}

Numbers WriteSelected(const ViewMemory& view) {
  return view.tree.selected ? FromRow(*view.tree.selected) : Numbers();
}

void ReadPosts(const Numbers& numbers, ViewMemory& view) {
  if (numbers.size() < 3) return;
  view.list.current = numbers[0];
  view.list.top = numbers[1];
  view.page.post = numbers[2];
}

Numbers WritePosts(const ViewMemory& view) {
  return {view.list.current, view.list.top, view.page.post};
}

void ReadUnreadOnly(const Numbers& numbers, ViewMemory& view) {
  view.isUnreadOnly = numbers == Numbers{1};
}

Numbers WriteUnreadOnly(const ViewMemory& view) { return {view.isUnreadOnly ? 1 : 0}; }

struct ViewField {
  const char* name;
  void (*read)(const Numbers& numbers, ViewMemory& view);
  Numbers (*write)(const ViewMemory& view);
};

// In the order in which new values stand in the registry file.
constexpr ViewField kViewFields[] = {
    {kValuePanes, ReadPanes, WritePanes},
    {kValueColumns, ReadColumns, WriteColumns},
    {kValueSorting, ReadSorting, WriteSorting},
    {kValueScope, ReadScope, WriteScope},
    {kValueZoom, ReadZoom, WriteZoom},
    {kValueClosed, ReadClosed, WriteClosed},
    {kValueSelected, ReadSelected, WriteSelected},
    {kValuePosts, ReadPosts, WritePosts},
    {kValueUnreadOnly, ReadUnreadOnly, WriteUnreadOnly},
};

}  // namespace

ViewMemory LoadView(const Registry& registry) {
  ViewMemory view;
  for (const RegistryEntry& entry : registry.ReadKey(kViewKey)) {
    const auto* const field = std::ranges::find(kViewFields, entry.name, &ViewField::name);
    const auto* const text = std::get_if<std::string>(&entry.value);
    if (field != std::end(kViewFields) && text) field->read(ParseNumbers(*text), view);
  }
  return view;
}

bool SaveView(const Registry& registry, const ViewMemory& view) {
  std::vector<RegistryEntry> entries;
  for (const ViewField& field : kViewFields) {
    entries.push_back({kViewKey, field.name, FormatNumbers(field.write(view))});
  }
  return registry.Write(entries);
}

}  // namespace feedloom
