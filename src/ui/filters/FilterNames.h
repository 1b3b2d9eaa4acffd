// What the rules of filters can name: folders, channels and cabinets, as entries of drop-down
// lists. Interface thread only.
#pragma once

#include <QByteArray>
#include <optional>
#include <string>
#include <vector>

#include "filter/FilterRule.h"
#include "store/Rows.h"

class QComboBox;

namespace feedloom {

class Skin;
class Store;

// Titles and addresses are UTF-8.
struct FilterNames {
  std::vector<FolderRow> folders;
  std::vector<ChannelRow> channels;
  std::vector<CabinetRow> cabinets;
};

// nullopt after a failure, which the store has reported.
std::optional<FilterNames> ReadFilterNames(Store& store);

// Fill an empty list: with all channels, each folder and behind it its channels; with no cabinet
// and each cabinet.
void ListPlaces(QComboBox& box, const Skin& skin, const FilterNames& names);
void ListCabinets(QComboBox& box, const Skin& skin, const FilterNames& names);

// Choose the entry of a rule's place, or of its cabinet. What is gone gets an entry behind the
// others, which says so, until another rule is shown.
void ShowPlace(QComboBox& box, const Skin& skin, const FilterRule& rule);
void ShowCabinet(QComboBox& box, const Skin& skin, const FilterRule& rule);

// Write the chosen entry into `rule`.
void TakePlace(const QComboBox& box, FilterRule& rule);
void TakeCabinet(const QComboBox& box, FilterRule& rule);

}  // namespace feedloom
