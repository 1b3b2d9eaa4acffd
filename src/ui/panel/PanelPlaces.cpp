#include "ui/panel/PanelPlaces.h"

#include <algorithm>
#include <numeric>

namespace feedloom {
namespace {

constexpr int kGap = 4;  // minimum distance between moved controls
constexpr QPoint kFirstCorner(20, 16);

// The coordinate after the last pixel, unlike QRect's right() and bottom().
int RightOf(const QRect& rect) { return rect.x() + rect.width(); }
int BelowOf(const QRect& rect) { return rect.y() + rect.height(); }

// A control's place and length along one axis.
struct Stretch {
  int start;
  int end;
  int length;  // at least end - start
};

// Returns the start of each stretch, moved behind those that end before it. Distances smaller than
// kGap are kept.
std::vector<int> MakeRoom(std::span<const Stretch> stretches) {
  std::vector<std::size_t> order(stretches.size());
  std::iota(order.begin(), order.end(), 0);
  std::ranges::sort(order, {}, [&](std::size_t i) { return stretches[i].start; });
  std::vector<int> starts(stretches.size());
  for (const std::size_t i : order) {
    starts[i] = stretches[i].start;
    for (std::size_t k = 0; k < stretches.size(); ++k) {
      const int distance = stretches[i].start - stretches[k].end;
      if (distance < 0) continue;
      starts[i] = std::max(starts[i], starts[k] + stretches[k].length + std::min(distance, kGap));
    }
  }
  return starts;
}

// Returns a place for the next control that does not overlap those in `taken`.
QRect FreePlace(const PagePart& part, std::span<const QRect> taken) {
  QRect place(QPoint(std::max(part.place.x(), 0), std::max(part.place.y(), 0)), part.place.size());
  if (part.place.isEmpty()) {
    const QPoint corner =
        taken.empty() ? kFirstCorner : QPoint(taken.back().x(), BelowOf(taken.back()) + kGap);
    place = {corner, part.usual.expandedTo({1, 1})};
  }
  const auto isInTheWay = [&](const QRect& other) { return other.intersects(place); };
  for (auto other = std::ranges::find_if(taken, isInTheWay); other != taken.end();
       other = std::ranges::find_if(taken, isInTheWay)) {
    place.moveTop(BelowOf(*other) + kGap);
  }
  return place;
}

}  // namespace

std::vector<QRect> ArrangeParts(std::span<const PagePart> parts) {
  std::vector<QRect> rects;
  std::vector<Stretch> columns;
  std::vector<Stretch> rows;
  for (const PagePart& part : parts) {
    const QRect place = FreePlace(part, rects);
    const QSize size = place.size().expandedTo(part.least);
    rects.push_back(place);
    columns.push_back({place.x(), RightOf(place), size.width()});
    rows.push_back({place.y(), BelowOf(place), size.height()});
  }
  const std::vector<int> lefts = MakeRoom(columns);
  const std::vector<int> tops = MakeRoom(rows);
  for (std::size_t i = 0; i < rects.size(); ++i) {
    rects[i] = {lefts[i], tops[i], columns[i].length, rows[i].length};
  }
  return rects;
}

QPoint PanelPosition(const QRect& place, const QSize& size, const QRect& host,
                     const QRect& screen) {
  QRect panel(host.topLeft() + place.topLeft(), size);
  if (place.topLeft().isNull()) panel.moveCenter(host.center());
  const auto keep = [](int start, int length, int first, int room) {
    return std::max(first, std::min(start, first + room - length));
  };
  return {keep(panel.x(), size.width(), screen.x(), screen.width()),
          keep(panel.y(), size.height(), screen.y(), screen.height())};
}

}  // namespace feedloom
