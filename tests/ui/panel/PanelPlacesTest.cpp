#include <gtest/gtest.h>

#include "ui/panel/PanelPlaces.h"

namespace feedloom {

TEST(PanelPlaces, PartsStandWhereTheSkinHasThemAndGiveWayToTheirTexts) {
  // The skin's place and the size that is needed, and where each part stands then.
  const std::vector<std::tuple<QRect, QSize, QRect>> pages[] = {
      // A wide one moves the columns right of it, a high one what is below.
      {{{0, 0, 100, 20}, {130, 20}, {0, 0, 130, 20}},
       {{110, 30, 50, 20}, {50, 20}, {134, 30, 50, 20}}},
      {{{0, 0, 100, 20}, {100, 50}, {0, 0, 100, 50}},
       {{0, 22, 100, 20}, {100, 20}, {0, 52, 100, 20}},
       {{0, 200, 100, 20}, {100, 20}, {0, 200, 100, 20}}},
      // Without a free place: below the one before.
      {{{}, {30, 10}, {20, 16, 30, 10}},
       {{}, {40, 10}, {20, 30, 40, 10}},
       {{15, 31, 30, 10}, {40, 10}, {15, 44, 40, 10}},
       {{-50, -9, 30, 10}, {30, 10}, {0, 0, 30, 10}}}};
  for (const auto& page : pages) {
    std::vector<PagePart> parts;
    for (const auto& [place, least, at] : page) parts.push_back({place, least, least});
    const std::vector<QRect> rects = ArrangeParts(parts);
    for (std::size_t i = 0; i < page.size(); ++i) EXPECT_EQ(rects[i], std::get<2>(page[i]));
  }
}

TEST(PanelPlaces, ThePanelStandsWhereTheSkinHasItInItsHostAndOnTheScreen) {
  const QRect host(100, 100, 1000, 700), screen(0, 10, 1280, 1014);
  for (const auto& [place, on, at] : {std::tuple(QPoint(0, 0), screen, QPoint(450, 350)),
                                      {{10, 20}, screen, {110, 120}},
                                      {{900, 800}, screen, {980, 824}},
                                      {{-500, -500}, screen, {0, 10}},
                                      {{10, 20}, {50, 60, 200, 100}, {50, 60}}})
    EXPECT_EQ(PanelPosition({place, QSize()}, {300, 200}, host, on), at);
}

}  // namespace feedloom
