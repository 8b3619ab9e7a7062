#include "panes/PaneLayoutFile.h"

#include <gtest/gtest.h>

namespace ardo {
namespace {

TEST(PaneLayoutFile, ReadsBackWhatItWrote) {
    const std::vector<PanePlace> places{
        {"a.tools", Qt::RightDockWidgetArea, false, true, QRect(0, 0, 240, 500), "a.tools"},
        {"b.<&\"", Qt::BottomDockWidgetArea, true, false, QRect(-30, 15, 300, 200), ""},
    };
    const auto read = parseLayoutXml(layoutXml(places));
    ASSERT_TRUE(read);
    ASSERT_EQ(read->size(), 2u);
    for (std::size_t i = 0; i < places.size(); ++i) {
        EXPECT_EQ((*read)[i].id, places[i].id);
        EXPECT_EQ((*read)[i].area, places[i].area);
        EXPECT_EQ((*read)[i].floating, places[i].floating);
        EXPECT_EQ((*read)[i].visible, places[i].visible);
        EXPECT_EQ((*read)[i].geometry, places[i].geometry);
        EXPECT_EQ((*read)[i].tabGroup, places[i].tabGroup);
    }
}

TEST(PaneLayoutFile, LeavesOutPanesItCannotPlaceAndRefusesOtherFiles) {
    const QByteArray mixed =
        "<?xml version=\"1.0\"?><DockingPanelLayout version=\"1\">"
        "<Pane id=\"ok\" area=\"top\" floating=\"0\" visible=\"1\" x=\"0\" y=\"0\" width=\"10\" height=\"20\"/>"
        "<Pane id=\"noArea\" area=\"middle\" floating=\"0\" visible=\"1\" x=\"0\" y=\"0\" width=\"10\" height=\"20\"/>"
        "<Pane id=\"flat\" area=\"top\" floating=\"0\" visible=\"1\" x=\"0\" y=\"0\" width=\"10\" height=\"0\"/>"
        "<Pane area=\"top\" floating=\"0\" visible=\"1\" x=\"0\" y=\"0\" width=\"10\" height=\"20\"/>"
        "<Group><Pane id=\"nested\"/></Group>"
        "</DockingPanelLayout>";
    const auto read = parseLayoutXml(mixed);
    ASSERT_TRUE(read);
    ASSERT_EQ(read->size(), 1u);
    EXPECT_EQ(read->front().id, "ok");
    EXPECT_EQ(read->front().area, Qt::TopDockWidgetArea);

    EXPECT_FALSE(parseLayoutXml("<Layout/>"));
    EXPECT_FALSE(parseLayoutXml(""));
    EXPECT_FALSE(parseLayoutXml("<DockingPanelLayout><Pane id=\"cut\""));
}

}  // namespace
}  // namespace ardo
