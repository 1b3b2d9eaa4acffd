// What stands on the control panel is to be seen whole, in each language and with any skin.

#include <QLabel>
#include <QMessageBox>

#include "skin/Keys.h"
#include "ui/panel/PanelFixture.h"
#include "vxctrl/SkinPieces.h"

namespace feedloom {
namespace {

class PanelLook : public PanelFixture {
 protected:
  static bool NeedsItsText(const QWidget& control) {
    return qobject_cast<const QLabel*>(&control) || qobject_cast<const QAbstractButton*>(&control);
  }

  // Each child of `parent` has the room it needs, inside of it, and to itself.
  static void ExpectRoomIn(const QWidget& in) {
    const auto children = in.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (qsizetype i = 0; i < children.size(); ++i) {
      const QWidget& child = *children[i];
      if (!child.isVisible() || child.isWindow()) continue;
      SCOPED_TRACE(child.metaObject()->className());
      SCOPED_TRACE(child.accessibleName().toStdString());
      const QSize need = NeedsItsText(child) ? child.sizeHint() : child.minimumSizeHint();
      EXPECT_GE(child.width(), need.width());
      EXPECT_GE(child.height(), need.height());
      EXPECT_TRUE(in.rect().contains(child.geometry()));
      for (qsizetype k = 0; k < i; ++k) {
        const bool isThere = children[k]->isVisible() && !children[k]->isWindow();
        EXPECT_FALSE(isThere && children[k]->geometry().intersects(child.geometry())) << k;
      }
      ExpectRoomIn(child);
    }
  }

  void ExpectRoomOnAllPages(Frame& in) {
    Edit(in, {}, [](QDialog& panel) {
      for (auto* warning : panel.findChildren<QMessageBox*>()) warning->close();
      for (int page = 0; page < 4; ++page) {
        SCOPED_TRACE(page);
        OpenTab(panel, page);
        ExpectRoomIn(panel);
      }
    });
  }

  // `skin` with each text `times` over, and with `place` for each place unless that is null.
  static Skin Changed(const Skin& skin, std::size_t times, const char* place) {
    const auto text = [&skin, times](const char* section, const char* key) {
      std::string all;
      for (std::size_t i = 0; i < times; ++i) all += skin.GetText(section, key);
      return all;
    };
    const auto value = [&skin, place](const char* section, const char* key) {
      return place && std::string(key).ends_with("_POS") ? place : skin.GetSkinValue(section, key);
    };
    return {{.HostGetText = text, .HostGetSkinValue = value}, skin.Config()};
  }
};

TEST_F(PanelLook, ShowsAllOfItselfInBothLanguages) {
  ExpectRoomOnAllPages(frame);
  const ShippedSkin english("ENG");
  SkinnedFrame inEnglish(english.Get());
  ExpectRoomOnAllPages(inEnglish);
}

TEST_F(PanelLook, ShowsAllOfItselfWithLongTextsAndPoorSkins) {
  const ShippedSkin english("ENG");
  for (const auto& [times, place] : {std::pair<std::size_t, const char*>(3, nullptr),
                                     {1, ""},
                                     {1, "30,30,60,60"},
                                     {2, "30,30"}}) {
    SCOPED_TRACE(testing::Message() << times << " " << (place ? place : "the skin's"));
    SkinnedFrame changed(Changed(english.Get(), times, place));
    ExpectRoomOnAllPages(changed);
  }
}

TEST_F(PanelLook, HasTheSkinsSizeAndStandsInTheMiddleOfTheWindow) {
  parent->setGeometry(50, 40, 700, 500);
  Edit({}, [&](QDialog& panel) {
    const QSize least = LoadSkinPlace(frame.GetSkin(), kSectionPanel, kPanelPlace).size();
    EXPECT_EQ(panel.size(), panel.size().expandedTo(least));
    const QPoint middle = parent->mapToGlobal(QPoint(350, 250));
    EXPECT_LE((panel.pos() + panel.rect().center() - middle).manhattanLength(), 2);
  });
}

}  // namespace
}  // namespace feedloom
