// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <optional>

#include "core/Project.h"
#include "core/store/LiveQuery.h"
#include "livelist/LiveListModel.h"

namespace elmworth {

/// A project that can be chosen, or none.
struct ProjectChoice {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString text MEMBER text)  ///< "Acme — Website", or "Choose…" for none
    Q_PROPERTY(bool isChosen MEMBER isChosen)

 public:
    PersistentID id;  ///< the project's; nil for none
    QString text;
    bool isChosen = false;

    friend bool operator==(const ProjectChoice&, const ProjectChoice&) = default;
};

/// The projects that an entry can be given to. They follow the library while they are shown; a
/// project that is deleted is no longer chosen.
class ProjectChoicesModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editor's model has it")
    /// The label of the chosen one.
    Q_PROPERTY(QString text READ text NOTIFY chosenChanged FINAL)
    Q_PROPERTY(bool isUnset READ isUnset NOTIFY chosenChanged FINAL)  ///< none is chosen
    /// All of these words stand in the labels of `rows`.
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged FINAL)
    /// The roles are the properties of `ProjectChoice`.
    Q_PROPERTY(QAbstractItemModel* rows READ rowsModel CONSTANT FINAL)
    /// Where the chosen one stands in `rows`; -1 when a search hides it.
    Q_PROPERTY(int chosenRow READ chosenRow NOTIFY rowsChanged FINAL)

 public:
    explicit ProjectChoicesModel(ModelContext& context);

    [[nodiscard]] QString text() const;
    [[nodiscard]] bool isUnset() const noexcept { return chosen_ == nullptr; }
    [[nodiscard]] const QString& search() const noexcept { return search_; }
    void setSearch(const QString& search);
    [[nodiscard]] QAbstractItemModel* rowsModel() noexcept { return &rows_; }
    [[nodiscard]] const std::vector<ProjectChoice>& rows() const noexcept { return rows_.rows(); }
    [[nodiscard]] int chosenRow() const;

    /// Shows the projects with `chosen` chosen. An archived one is among them only when it is
    /// `entrysOwn`.
    void show(Ref<Project> chosen, const Ref<Project>& entrysOwn);
    /// Follows the library no longer.
    void stop();

    [[nodiscard]] const Ref<Project>& chosen() const noexcept { return chosen_; }
    void setChosen(Ref<Project> project);
    /// Chooses what stands in row `row` and ends the search; any other number does nothing.
    Q_INVOKABLE void choose(int row);

 Q_SIGNALS:
    /// Another project is chosen, or the chosen one changed.
    void chosenChanged();
    void searchChanged();
    void rowsChanged();

 private:
    void projectsChanged();
    void showRows();
    [[nodiscard]] bool isListed(const Project& project) const;

    ModelContext& context_;
    std::optional<LiveQuery<Project>> projects_;
    ModelContext::Observation clientObservation_;
    Ref<Project> chosen_;
    std::optional<PersistentID> entrysOwn_;
    QString search_;
    LiveListModel<ProjectChoice> rows_;
};

}  // namespace elmworth
