// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <vector>

#include "clients/ProjectService.h"
#include "invoicing/ProjectTimes.h"
#include "screens/AppServices.h"
#include "screens/projects/ProjectEditorModel.h"
#include "screens/projects/ProjectRowsModel.h"
#include "theme/Confirmation.h"
#include "theme/KeyedSelection.h"

namespace elmworth {

/// A position below `count`, as good as any other.
[[nodiscard]] std::size_t drawRandom(std::size_t count);

/// The section of the projects, by client, with their time and budgets.
///
/// Follows the library and the timer while it is shown. A tick costs the running project's budget.
/// While it is not shown it does nothing, and catches up when it is.
class ProjectsModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's model has it")
    Q_PROPERTY(elmworth::ProjectEditorModel* editor READ editor CONSTANT FINAL)
    /// Of the window's frame.
    Q_PROPERTY(elmworth::Confirmation* confirmation READ confirmation CONSTANT FINAL)
    /// The heads of clients and the projects; the roles are those of `ProjectRowsModel`.
    Q_PROPERTY(QAbstractItemModel* rows READ rowsModel CONSTANT FINAL)
    /// Of one project, also where a search hides it.
    Q_PROPERTY(elmworth::KeyedSelection* selection READ selection CONSTANT FINAL)
    /// Whether somebody can see this.
    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY isShownChanged FINAL)
    /// What stands in the search field. Blanks around it do not count.
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY listed FINAL)
    /// Whether archived projects are listed too.
    Q_PROPERTY(bool showsArchived READ showsArchived WRITE setShowsArchived NOTIFY listed FINAL)
    /// "{n} active" or "{n} total"
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY listed FINAL)
    /// Whether there is so much to search that a field for it is shown.
    Q_PROPERTY(bool offersSearch READ offersSearch NOTIFY listed FINAL)
    /// Every project needs a client.
    Q_PROPERTY(bool canAdd READ canAdd NOTIFY listed FINAL)
    /// What stands in the section once it was read: one of these, or the list.
    Q_PROPERTY(bool needsClient READ needsClient NOTIFY listed FINAL)
    Q_PROPERTY(bool needsProject READ needsProject NOTIFY listed FINAL)
    /// What a project is good for, while there is none.
    Q_PROPERTY(QString emptyMessage READ emptyMessage NOTIFY emptyMessageChanged FINAL)
    Q_PROPERTY(bool hasNoMatches READ hasNoMatches NOTIFY listed FINAL)
    Q_PROPERTY(QString noMatchesText READ noMatchesText NOTIFY listed FINAL)
    Q_PROPERTY(bool showsList READ showsList NOTIFY listed FINAL)
    /// Whether archived projects would match that are not listed.
    Q_PROPERTY(bool hidesArchived READ hidesArchived NOTIFY listed FINAL)
    /// Whether the menu offers to bring its project back; see `openMenu`.
    Q_PROPERTY(bool menuUnarchives READ menuUnarchives NOTIFY menuChanged FINAL)

 public:
    /// Asks in `confirmation`, which outlives it. `draw` chooses the colours of new projects.
    ProjectsModel(const AppServices& services, Confirmation& confirmation,
                  ProjectEditorModel::Draw draw = &drawRandom);

    [[nodiscard]] ProjectEditorModel* editor() noexcept { return &editor_; }
    [[nodiscard]] Confirmation* confirmation() noexcept { return &confirmation_; }
    [[nodiscard]] QAbstractItemModel* rowsModel() noexcept { return &rows_; }
    [[nodiscard]] const ProjectRowsModel& rows() const noexcept { return rows_; }
    [[nodiscard]] RowSelection<ProjectLines>* selection() noexcept { return &selection_; }

    [[nodiscard]] bool isShown() const noexcept { return isShown_; }
    void setShown(bool shown);
    [[nodiscard]] const QString& search() const noexcept { return search_; }
    void setSearch(const QString& search);
    [[nodiscard]] bool showsArchived() const noexcept { return showsArchived_; }
    void setShowsArchived(bool shows);
    [[nodiscard]] QString subtitle() const;
    [[nodiscard]] bool offersSearch() const;
    [[nodiscard]] bool canAdd() const noexcept { return !clients_.empty(); }
    [[nodiscard]] bool needsClient() const noexcept { return isRead_ && clients_.empty(); }
    [[nodiscard]] bool needsProject() const noexcept { return canAdd() && projects_.empty(); }
    [[nodiscard]] QString emptyMessage() const;
    /// Whether a tray shows the program's item; without one, the message leads to the panel.
    void setTrayShown(bool isShown);
    [[nodiscard]] bool hasNoMatches() const noexcept;
    [[nodiscard]] bool showsList() const noexcept { return canAdd() && visibleCount_ > 0; }
    [[nodiscard]] QString noMatchesText() const;
    [[nodiscard]] bool hidesArchived() const;

    Q_INVOKABLE void add();
    Q_INVOKABLE void goToClients();

    /// These act on the line at `row`; they do nothing on a head, or where there is none.
    Q_INVOKABLE void edit(int row);
    Q_INVOKABLE void start(int row);
    /// Starts the timer on the project, unless that is archived, or stops the one that runs on it.
    Q_INVOKABLE void toggleTimer(int row);
    /// Asks whether to delete the project, or to archive one with invoiced time.
    Q_INVOKABLE void askToDelete(int row);

    /// Readies the menu for the line at `row`; whatever changes meanwhile, it keeps to that
    /// project. False where there is none.
    Q_INVOKABLE bool openMenu(int row);
    [[nodiscard]] bool menuUnarchives() const noexcept { return menuUnarchives_; }
    Q_INVOKABLE void menuEdit();
    Q_INVOKABLE void menuArchive();
    Q_INVOKABLE void menuDelete();

 Q_SIGNALS:
    void isShownChanged();
    void listed();
    void emptyMessageChanged();
    void menuChanged();
    /// The line at `row` is a new project's, to be brought into view.
    void revealRequested(int row);
    /// The newest step took something away, as a sentence.
    void removed(const QString& sentence);
    /// Something could not be done, as a sentence.
    void failed(const QString& sentence);

 private:
    void observe();
    void followLibrary(const RecordChanges& changes);
    void catchUp();
    void read();
    void list();
    [[nodiscard]] std::vector<Ref<Project>> matches() const;
    [[nodiscard]] std::vector<ProjectsRow> grouped(const std::vector<Ref<Project>>& visible) const;
    void reveal(const PersistentID& project);

    [[nodiscard]] Ref<Project> projectAt(int row) const;
    void archive(const PersistentID& id, bool isArchived);
    void askToDelete(const PersistentID& id);
    void remove(const PersistentID& id);

    AppServices services_;
    Confirmation& confirmation_;
    ProjectService service_;
    ProjectEditorModel editor_;
    ProjectTimes times_;
    ProjectRowsModel rows_;
    RowSelection<ProjectLines> selection_{rows_, true};
    std::vector<Ref<Client>> clients_;    ///< by name
    std::vector<Ref<Project>> projects_;  ///< by name, archived ones too
    QString search_;
    bool showsArchived_ = false;
    bool isShown_ = false;
    bool isTrayShown_ = true;
    bool isRead_ = false;
    bool isStale_ = true;  ///< something changed while it was not shown
    std::size_t visibleCount_ = 0;
    std::size_t hiddenCount_ = 0;  ///< archived ones that match
    PersistentID menuProject_;
    bool menuUnarchives_ = false;
    UnitOfWork::Observation libraryObservation_;
    TimerService::Observation timerObservation_;
};

}  // namespace elmworth
