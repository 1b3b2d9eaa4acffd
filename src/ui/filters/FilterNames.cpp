#include "ui/filters/FilterNames.h"

#include <QComboBox>

#include "look/QtText.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "store/Channels.h"
#include "store/Folders.h"

namespace feedloom {
namespace {

constexpr int kGoneRole = Qt::UserRole + 1;  // of an entry for what is gone
constexpr char kIndent[] = "    ";

QString Line(const std::string& name) { return ToLine(CodePage::Utf8(), name); }

// An entry's value: the kind of the place in the first byte, its name behind.
QByteArray KeyOf(FilterPlace place, const std::string& name) {
  return QByteArray(1, static_cast<char>('0' + static_cast<int>(place))) +
         QByteArray::fromStdString(name);
}

void Choose(QComboBox& box, const Skin& skin, const QByteArray& key, const std::string& name) {
  const int last = box.count() - 1;
  if (box.itemData(last, kGoneRole).toBool()) box.removeItem(last);
  if (box.findData(key) < 0) {
    box.addItem(SkinText(skin, kTextFilterGone).replace("%s", Line(name)), key);
    box.setItemData(box.count() - 1, true, kGoneRole);
  }
  box.setCurrentIndex(box.findData(key));
}

}  // namespace

std::optional<FilterNames> ReadFilterNames(Store& store) {
  FilterNames names;
  const bool isRead = LoadFolderList(store, names.folders) &&
                      LoadChannelList(store, names.channels) &&
                      LoadCabinetList(store, names.cabinets);
  if (!isRead) return std::nullopt;
  const CodePage codePage = store.TextCodePage();
  const auto convert = [&](std::string& text) { text = codePage.ToUtf8(text); };
  for (FolderRow& folder : names.folders) convert(folder.name);
  for (CabinetRow& cabinet : names.cabinets) convert(cabinet.title);
  for (ChannelRow& channel : names.channels) {
    convert(channel.title);
    convert(channel.xmlLink);
  }
  return names;
}

void ListPlaces(QComboBox& box, const Skin& skin, const FilterNames& names) {
  box.addItem(SkinText(skin, kTextFilterAllChannels), KeyOf(FilterPlace::All, {}));
  for (const FolderRow& folder : names.folders) {
    box.addItem(Line(folder.name), KeyOf(FilterPlace::Folder, folder.name));
    for (const ChannelRow& channel : names.channels) {
      if (channel.folderId != folder.id) continue;
      box.addItem(kIndent + Line(channel.title), KeyOf(FilterPlace::Channel, channel.xmlLink));
    }
  }
}

void ListCabinets(QComboBox& box, const Skin& skin, const FilterNames& names) {
  box.addItem(SkinText(skin, kTextFilterNoCopy), QByteArray(""));
  for (const CabinetRow& cabinet : names.cabinets) {
    box.addItem(Line(cabinet.title), QByteArray::fromStdString(cabinet.title));
  }
}

void ShowPlace(QComboBox& box, const Skin& skin, const FilterRule& rule) {
  const bool isAll = rule.place == FilterPlace::All;
  Choose(box, skin, KeyOf(rule.place, isAll ? std::string() : rule.placeName), rule.placeName);
}

void ShowCabinet(QComboBox& box, const Skin& skin, const FilterRule& rule) {
  Choose(box, skin, QByteArray::fromStdString(rule.cabinet), rule.cabinet);
}

void TakePlace(const QComboBox& box, FilterRule& rule) {
  const QByteArray key = box.currentData().toByteArray();
  if (key.isEmpty()) return;
  rule.place = static_cast<FilterPlace>(key.front() - '0');
  rule.placeName = key.sliced(1).toStdString();
}

void TakeCabinet(const QComboBox& box, FilterRule& rule) {
  rule.cabinet = box.currentData().toByteArray().toStdString();
}

}  // namespace feedloom
