#include <gtest/gtest.h>

#include "ui/panel/PanelPlaces.h"

namespace feedloom {
namespace {

PagePart Part(const QRect& place, const QSize& least) { return {place, least, least}; }

TEST(PanelPlaces, PartsThatFitStandWhereTheSkinHasThem) {
  const std::vector<PagePart> parts = {Part({20, 10, 100, 20}, {60, 16}),
                                       Part({121, 10, 50, 20}, {50, 20})};
  EXPECT_EQ(ArrangeParts(parts), (std::vector<QRect>{{20, 10, 100, 20}, {121, 10, 50, 20}}));
}

TEST(PanelPlaces, AWidePartMovesTheColumnsRightOfIt) {
  const std::vector<PagePart> parts = {
      Part({0, 0, 100, 20}, {130, 20}), Part({110, 0, 50, 20}, {50, 20}),
      Part({0, 30, 100, 20}, {80, 20}), Part({110, 30, 50, 20}, {50, 20})};
  const auto rects = ArrangeParts(parts);
  EXPECT_EQ(rects[1].topLeft(), QPoint(134, 0));
  EXPECT_EQ(rects[2], parts[2].place);
  EXPECT_EQ(rects[3].topLeft(), QPoint(134, 30));
}

TEST(PanelPlaces, AHighPartMovesWhatStandsBelowIt) {
  const std::vector<PagePart> parts = {Part({0, 0, 100, 20}, {100, 50}),
                                       Part({0, 22, 100, 20}, {100, 20}),
                                       Part({0, 200, 100, 20}, {100, 20})};
  const auto rects = ArrangeParts(parts);
  EXPECT_EQ(rects[1].top(), 52);
  EXPECT_EQ(rects[2].top(), 200);
}

TEST(PanelPlaces, WithoutAFreePlaceAPartStandsBelowTheOneBeforeIt) {
  const std::vector<PagePart> parts = {Part({}, {30, 10}), Part({}, {40, 10}),
                                       Part({15, 31, 30, 10}, {40, 10}),
                                       Part({-50, -9, 30, 10}, {30, 10})};
  EXPECT_EQ(
      ArrangeParts(parts),
      (std::vector<QRect>{{20, 16, 30, 10}, {20, 30, 40, 10}, {15, 44, 40, 10}, {0, 0, 30, 10}}));
}

TEST(PanelPlaces, ThePanelStandsInItsWindowAndOnTheScreen) {
  const QRect screen(0, 0, 1000, 800);
  const QSize size(400, 300);
  struct Case {
    QRect place;
    QRect host;
    QPoint expected;
  };
  for (const Case& c : {Case{{0, 0, 400, 300}, {100, 100, 600, 500}, {200, 200}},
                        Case{{30, 40, 400, 300}, {100, 100, 600, 500}, {130, 140}},
                        Case{{30, 40, 400, 300}, {900, 700, 600, 500}, {600, 500}},
                        Case{{0, 0, 400, 300}, {-300, -200, 200, 100}, {0, 0}}}) {
    const QPoint position = PanelPosition(c.place, size, c.host, screen);
    EXPECT_LE((position - c.expected).manhattanLength(), 1) << c.host.x() << " " << c.place.x();
  }
  EXPECT_EQ(PanelPosition({}, {2000, 1500}, {100, 100, 600, 500}, screen), QPoint(0, 0));
}

}  // namespace
}  // namespace feedloom
