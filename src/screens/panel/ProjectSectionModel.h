// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QColor>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <cstddef>

#include "livelist/LiveListModel.h"
#include "records/Project.h"
#include "screens/AppServices.h"
#include "store/LiveQuery.h"

namespace elmworth {

/// A project that one click starts.
struct ProjectStartRow {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString client MEMBER client)  ///< empty without one
    Q_PROPERTY(QColor projectColor MEMBER projectColor)
    Q_PROPERTY(bool isRunning MEMBER isRunning)  ///< the row is disabled then
    Q_PROPERTY(int shortcut MEMBER shortcut)     ///< the digit that starts it; 0 for none
    Q_PROPERTY(QString hint MEMBER hint)         ///< the keys of the shortcut, "Ctrl+1"
    Q_PROPERTY(QString status MEMBER status)     ///< "Running" or nothing
    Q_PROPERTY(QString image MEMBER image)       ///< "play", or nothing while running
    Q_PROPERTY(QString help MEMBER help)
    Q_PROPERTY(QString accessibilityLabel MEMBER accessibilityLabel)

 public:
    /// The row of `project` at `position`, from 0.
    [[nodiscard]] static ProjectStartRow of(const Project& project, std::size_t position,
                                            bool isRunning);

    PersistentID id;  ///< the project's
    QString name;
    QString client;
    QColor projectColor;
    bool isRunning = false;
    int shortcut = 0;
    QString hint;
    QString status;
    QString image;
    QString help;
    QString accessibilityLabel;

    friend bool operator==(const ProjectStartRow&, const ProjectStartRow&) = default;
};

/// The projects to start: the recent ones, or those that a search finds.
class ProjectSectionModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The panel's model has it")
    /// What stands in the search field. Blanks around it do not count.
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged FINAL)
    Q_PROPERTY(QString title READ title NOTIFY titleChanged FINAL)
    /// The roles are the properties of `ProjectStartRow`.
    Q_PROPERTY(QAbstractItemModel* rows READ rowsModel CONSTANT FINAL)
    /// Whether a search found nothing.
    Q_PROPERTY(bool hasNoMatches READ hasNoMatches NOTIFY titleChanged FINAL)
    /// From seven projects on: fewer all fit in the list.
    Q_PROPERTY(bool isSearchShown READ isSearchShown NOTIFY projectsChanged FINAL)
    /// Whether there is no project to start at all.
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY projectsChanged FINAL)

 public:
    explicit ProjectSectionModel(const AppServices& services);

    [[nodiscard]] const QString& search() const noexcept { return search_; }
    [[nodiscard]] const QString& title() const noexcept { return title_; }
    [[nodiscard]] QAbstractItemModel* rowsModel() noexcept { return &rows_; }
    [[nodiscard]] bool hasNoMatches() const noexcept { return hasNoMatches_; }
    [[nodiscard]] bool isSearchShown() const noexcept;
    [[nodiscard]] bool isEmpty() const noexcept { return projectCount_ == 0; }

    void setSearch(const QString& search);

    /// Starts the project in row `row` and empties the search. Does nothing when the row is missing
    /// or its project runs already.
    Q_INVOKABLE void start(int row);
    /// The same for the project of this identity.
    void startProject(PersistentID id);
    /// The same for the first that a search found and that doesn't run yet. Does nothing without a
    /// search.
    Q_INVOKABLE void startFirstFound();

    /// After records or the running entry changed.
    void update();

    [[nodiscard]] const std::vector<ProjectStartRow>& rows() const noexcept { return rows_.rows(); }
    /// The rows that stand there without a search.
    [[nodiscard]] std::vector<ProjectStartRow> quickStartRows() const;
    /// The title over them.
    [[nodiscard]] QString quickStartTitle() const;
    /// The rows of all projects that are not archived, by name.
    [[nodiscard]] std::vector<ProjectStartRow> allRows() const;

 Q_SIGNALS:
    void searchChanged();
    void titleChanged();
    void projectsChanged();

 private:
    [[nodiscard]] Ref<Project> runningProject() const;
    [[nodiscard]] const std::vector<Ref<Project>>& projects() const noexcept;
    [[nodiscard]] std::vector<Ref<Project>> found(const std::string& query) const;
    void countProjects();
    void showRows();

    const AppServices& services_;
    LiveQuery<Project> projects_;
    std::vector<Ref<Project>> quickStart_;
    LiveListModel<ProjectStartRow> rows_;
    QString search_;
    QString title_;
    bool hasNoMatches_ = false;
    std::size_t projectCount_ = 0;
};

}  // namespace elmworth
