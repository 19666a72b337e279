// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/scene.h"

#include "tests/tools/guiview/layout_test.h"

namespace guiview {
namespace {

class SceneTest : public LayoutTest {
protected:
    std::string Tree(const std::string& content) const {
        folder.Write("test.gui", content);
        const auto layout = LayoutSource::Read(Path());
        const BuiltLayout built(*layout);
        return DescribeTree(Scene(layout->Declared()));
    }
};

TEST_F(SceneTest, TreeListsTagKindParentAndBox) {
    EXPECT_EQ(Tree("CADD Butt picture NULL -1 0.5 TEX 0.25 0.125\n"),
              "picture Butt  NULL  -1.0000   0.5000  -0.7500   0.6250\n");
}

TEST_F(SceneTest, BoxesAreInCoordinatesOfTheScreen) {
    EXPECT_EQ(Tree("CADD Frame outer NULL 0.5 0.5 1\nCADD Frame inner outer 0.1 0.1 0\n"
                   "CADD Butt a inner 0.2 0.2 TEX 0.1 0.1\n"),
              "outer Frame NULL    0.5000   0.5000   1.0200   1.0200\n"
              "inner Frame outer   0.6300   0.6300   0.9900   0.9900\n"
              "a     Butt  inner   0.8300   0.8300   0.9300   0.9300\n");
}

TEST_F(SceneTest, WidgetsAreListedInTheOrderInWhichTheToolkitDrawsThem) {
    // Containers are added to their parents at the end of the layout, so "late" comes before g.
    EXPECT_EQ(Tree("CADD Frame f NULL 0 0.5 0\nCADD Frame g f 0.5 0 0\n"
                   "CADD Butt late f 0 0 TEX 0.1 0.1\nCADD Butt NULL g 0 0 TEX 0.1 0.1\n"),
              "f    Frame NULL   0.0000   0.5000   0.7200   0.7200\n"
              "late Butt  f      0.0000   0.5000   0.1000   0.6000\n"
              "g    Frame f      0.5000   0.5000   0.6600   0.6600\n"
              "NULL Butt  g      0.5000   0.5000   0.6000   0.6000\n");
}

TEST_F(SceneTest, WidgetsOnTabsAreListedWithTheirTab) {
    const std::string tree = Tree(
        "CONF gui.conf\nCADD TWin w NULL 0 0\nNTAB w 0 A\nNTAB w 1 B\n"
        "TADD 1 Butt b w 0 0 TEX 0.1 0.1\nTADD 0 Butt a w 0 0 TEX 0.2 0.1\n");
    const std::size_t first = tree.find("__wtab0A Butt  w   ");
    const std::size_t second = tree.find("\n__wtab1B Butt  w   ");
    const std::size_t a =
        tree.find("\na        Butt  w      0.0300   0.0300   0.2300   0.1300  tab 0\n");
    const std::size_t b =
        tree.find("\nb        Butt  w      0.0300   0.0300   0.1300   0.1300  tab 1\n");
    EXPECT_NE(first, std::string::npos) << tree;
    EXPECT_LT(first, second);
    EXPECT_LT(second, a);
    EXPECT_LT(a, b);
    EXPECT_NE(b, std::string::npos) << tree;
}

TEST_F(SceneTest, DropButtonIsListedAsAChildOfItsList) {
    const std::string tree = Tree("CONF gui.conf\nCADD Combo c NULL 0.5 0.25\n");
    EXPECT_NE(tree.find("\n__cdropbox Butt  c      0.5000   0.2500 "), std::string::npos) << tree;
}

TEST_F(SceneTest, SliderIsListedWithTheToolkitsBox) {
    EXPECT_EQ(Tree("CADD Slide s NULL 0.5 0.5 0.3 0\nCADD Slide t NULL -0.5 0.5 0 0.3\n"),
              "s Slide NULL   0.5000   0.4000   0.9000   0.6000\n"
              "t Slide NULL  -0.5500   0.4500  -0.3500   0.8500\n");
}

TEST_F(SceneTest, AllWidgetsOfTheGamesLayoutAreListed) {
    const auto layout = LayoutSource::Read("data/my.gui.debug");
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->Found().AsText(), "");
    const BuiltLayout built(*layout);
    const Scene scene(layout->Declared());
    for (const Declared& widget : layout->Declared().widgets)
        EXPECT_NE(scene.Find(widget.tag), nullptr) << widget.tag;
}

}  // namespace
}  // namespace guiview
