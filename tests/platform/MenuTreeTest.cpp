// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/MenuTree.h"

#include <gmock/gmock.h>

namespace elmworth {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<int> childIDs(const MenuTree::Node& node) {
    std::vector<int> ids;
    for (const auto& child : node.children) ids.push_back(child.id);
    return ids;
}

QString labelOf(const MenuTree& tree, int id) {
    return tree.find(id)->properties.value(QStringLiteral("label")).toString();
}

TEST(MenuTree, itemsAreNumberedUnderTheRoot) {
    MenuTree tree;
    const auto change =
        tree.replace({{.text = "Open"}, TrayMenuItem::separator(), {.text = "Quit"}});
    EXPECT_TRUE(change.isLayoutChanged);
    EXPECT_EQ(tree.root().id, 0);
    EXPECT_THAT(childIDs(tree.root()), ElementsAre(1, 2, 3));
    EXPECT_EQ(tree.revision(), 2U);
}

TEST(MenuTree, theSameItemsAgainChangeNothing) {
    MenuTree tree;
    const std::vector<TrayMenuItem> items{{.text = "Stop at…", .submenu = {{.text = "Now"}}},
                                          TrayMenuItem::separator(),
                                          TrayMenuItem::separator(),
                                          {.text = "Quit"}};
    tree.replace(items);
    const auto ids = tree.ids();
    const auto change = tree.replace(items);
    EXPECT_FALSE(change.isLayoutChanged);
    EXPECT_THAT(change.properties, IsEmpty());
    EXPECT_EQ(tree.ids(), ids);
    EXPECT_EQ(tree.revision(), 2U);
}

TEST(MenuTree, anItemOfTheSameIdentityKeepsItsNumberWhenItsTextChanges) {
    MenuTree tree;
    tree.replace({{.text = "1:05 Website", .isEnabled = false, .identity = "status"}});
    const auto change = tree.replace({{.text = "1:06 Website", .identity = "status"}});
    EXPECT_FALSE(change.isLayoutChanged);
    ASSERT_EQ(change.properties.size(), 1);
    const auto& changed = change.properties.first();
    EXPECT_EQ(changed.id, 1);
    EXPECT_EQ(changed.changed.value(QStringLiteral("label")), QStringLiteral("1:06 Website"));
    EXPECT_EQ(changed.removed, QStringList{QStringLiteral("enabled")});
}

TEST(MenuTree, aMovedItemKeepsItsNumberAndTheLayoutChanges) {
    MenuTree tree;
    tree.replace({{.text = "Website"}, {.text = "Logo"}});
    const auto change = tree.replace({{.text = "Logo"}, {.text = "Website"}});
    EXPECT_TRUE(change.isLayoutChanged);
    EXPECT_THAT(childIDs(tree.root()), ElementsAre(2, 1));
    EXPECT_EQ(labelOf(tree, 1), QStringLiteral("Website"));
}

TEST(MenuTree, aNumberIsNeverGivenToAnotherItem) {
    MenuTree tree;
    tree.replace({{.text = "Website"}});
    tree.replace({{.text = "Logo"}});
    EXPECT_EQ(tree.find(1), nullptr);
    tree.replace({{.text = "Website"}});
    EXPECT_THAT(childIDs(tree.root()), ElementsAre(3));
}

TEST(MenuTree, itemsOfTheSameTextAreDifferentItems) {
    MenuTree tree;
    tree.replace({{.text = "Website"}, {.text = "Website"}});
    EXPECT_THAT(childIDs(tree.root()), ElementsAre(1, 2));
    EXPECT_FALSE(tree.replace({{.text = "Website"}, {.text = "Website"}}).isLayoutChanged);
}

TEST(MenuTree, aChangeBelowChangesTheLayout) {
    MenuTree tree;
    tree.replace({{.text = "Stop at…", .submenu = {{.text = "Now"}}}});
    const auto change =
        tree.replace({{.text = "Stop at…", .submenu = {{.text = "Now"}, {.text = "Later"}}}});
    EXPECT_TRUE(change.isLayoutChanged);
    EXPECT_THAT(childIDs(*tree.find(1)), ElementsAre(2, 3));
}

TEST(MenuTree, aPropertyIsThereOnlyWhenItDiffersFromTheDefault) {
    MenuTree tree;
    tree.replace({{.text = "Open"},
                  {.text = "Off", .isEnabled = false},
                  {.text = "On", .isChecked = true},
                  {.text = "More", .submenu = {{.text = "Now"}}},
                  TrayMenuItem::separator()});
    const auto names = [&tree](int id) { return tree.find(id)->properties.keys(); };
    const auto list = [](const char* text) { return QString::fromLatin1(text).split(u' '); };
    EXPECT_EQ(names(1), list("label"));
    EXPECT_EQ(names(2), list("enabled label"));
    EXPECT_EQ(names(3), list("label toggle-state toggle-type"));
    EXPECT_EQ(names(4), list("children-display label"));
    EXPECT_EQ(names(6), list("type"));
}

TEST(MenuTree, anUnderscoreIsShownAndUnderlinesNothing) {
    MenuTree tree;
    tree.replace({{.text = "snake_case"}});
    EXPECT_EQ(labelOf(tree, 1), QStringLiteral("snake__case"));
}

}  // namespace
}  // namespace elmworth
