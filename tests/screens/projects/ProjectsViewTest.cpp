// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>
#include <algorithm>
#include <memory>

#include "screens/projects/ProjectsTest.h"
#include "theme/AppAppearance.h"
#include "theme/fonts/Fonts.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_ProjectsPlugin)

namespace elmworth {
namespace {

using test::Lines;

constexpr const char* source = R"(
import QtQuick
import Elmworth.Projects

Window {
    id: window

    required property ProjectsModel projects

    width: 1000
    height: 700
    visible: true

    ProjectsView {
        anchors.fill: parent
        focus: true
        model: window.projects
    }
}
)";

/// The section in a window, with 400 projects of 40 clients.
class ProjectsView : public test::ProjectsTest {
 protected:
    ProjectsView() {
        loadEmbeddedFonts();
        AppAppearance::instance().setReducedMotion(true);
        model.setShown(false);
        for (int i = 0; i < 40; ++i) {
            const auto client = timer.library.addClient("Client " + std::to_string(i));
            for (int k = 0; k < 10; ++k) {
                const auto name = "Project " + std::to_string(i) + "." + std::to_string(k);
                const auto project = timer.library.addProject(name, client);
                project->budgetHours = 10;
                timer.library.addEntry(project, test::TestTimer::today("05:00"),
                                       test::TestTimer::today("06:00"));
            }
        }
        context().save();
        (void)test::StatementTrace::take();
        QQmlComponent component(&engine_);
        component.setData(source, QUrl());
        window_.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
            {{QStringLiteral("projects"), QVariant::fromValue(&model)}})));
        if (window_ == nullptr) ADD_FAILURE() << component.errorString().toStdString();
        settle();
        list_ = find("ProjectsList", window_->contentItem());
    }
    void settle() {
        turn();
        QCoreApplication::processEvents();
        window_->grabWindow();
        QCoreApplication::processEvents();
    }
    /// The first item whose type has this name.
    static QQuickItem* find(const char* type, QQuickItem* under) {
        if (QByteArray(under->metaObject()->className()).startsWith(type)) return under;
        for (auto* child : under->childItems()) {
            if (auto* found = find(type, child)) return found;
        }
        return nullptr;
    }
    /// How many statements read time since the last call.
    static std::ptrdiff_t readsOfTime() {
        return std::ranges::count_if(test::StatementTrace::take(), [](const std::string& sql) {
            return sql.find("\"TimeEntry\"") != std::string::npos;
        });
    }
    /// The places of what shows, in the order in which it is read out.
    [[nodiscard]] std::vector<double> placesAsRead() const {
        std::vector<double> places;
        for (const auto* item : list_->property("contentItem").value<QQuickItem*>()->childItems()) {
            if (item->isVisible()) places.push_back(item->y());
        }
        return places;
    }
    void scrollTo(double y) {
        list_->setProperty("contentY", y);
        settle();
    }
    void press(Qt::Key key) {
        QTest::keyClick(window_.get(), key);
        settle();
    }

    QQmlEngine engine_;
    std::unique_ptr<QQuickWindow> window_;
    QQuickItem* list_ = nullptr;
};

TEST_F(ProjectsView, readsTheTimeOfWhatShowsOnce) {
    ASSERT_NE(list_, nullptr);
    const auto shown = static_cast<std::ptrdiff_t>(placesAsRead().size());
    EXPECT_GT(shown, 8);
    EXPECT_LT(shown, 30);
    const auto first = readsOfTime();
    EXPECT_GE(first, 8);
    EXPECT_LE(first, 3 * shown) << "three figures for each";
    scrollTo(5000);
    EXPECT_LE(readsOfTime(), 3 * shown);
    scrollTo(0);
    EXPECT_EQ(readsOfTime(), 0) << "these were read before";
}

TEST_F(ProjectsView, aSearchKeyReadsOnlyTheTimeOfWhatItBrings) {
    const auto shown = static_cast<std::ptrdiff_t>(placesAsRead().size());
    (void)readsOfTime();
    for (const char* typed : {"P", "Pr", "Project 3"}) {
        model.setSearch(QString::fromLatin1(typed));
        settle();
        EXPECT_LE(readsOfTime(), 3 * shown) << typed;
    }
    model.setSearch(QString());
    settle();
    EXPECT_EQ(readsOfTime(), 0) << "these were read before";
}

TEST_F(ProjectsView, isReadAsItIsSeen) {
    const auto expectInOrder = [&](const char* when) {
        const auto places = placesAsRead();
        EXPECT_GT(places.size(), 5U) << when;
        EXPECT_TRUE(std::is_sorted(places.begin(), places.end())) << when;
    };
    expectInOrder("at first");
    for (const double y : {3000.0, 700.0, 9000.0, 0.0}) {
        scrollTo(y);
        expectInOrder("scrolled");
    }
    project("A first one", acme);
    settle();
    expectInOrder("another one came");
}

TEST_F(ProjectsView, theKeysStartEditAndAsk) {
    press(Qt::Key_Down);
    EXPECT_EQ(current(), "App");
    press(Qt::Key_Space);
    ASSERT_TRUE(service().running());
    EXPECT_EQ(service().running()->project.get(), appProject);
    press(Qt::Key_Delete);
    EXPECT_TRUE(confirmation.isOpen());
    confirmation.reject();
    settle();
    press(Qt::Key_Return);
    EXPECT_TRUE(editor.isOpen());
}

TEST_F(ProjectsView, aNewProjectIsScrolledTo) {
    model.add();
    settle();
    editor.name()->setText(QStringLiteral("Zoo"));
    const auto rows = editor.clients()->rows();
    editor.clients()->choose(static_cast<int>(rows.size()) - 1);
    press(Qt::Key_Return);
    EXPECT_EQ(current(), "Zoo");
    EXPECT_GT(list_->property("contentY").toDouble(), 10'000);
    press(Qt::Key_Up);
    EXPECT_EQ(current(), "Project 39.9") << "the list has the keyboard";
}

}  // namespace
}  // namespace elmworth
