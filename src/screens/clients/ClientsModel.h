// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <memory>
#include <optional>

#include "livelist/RowPlaces.h"
#include "screens/AppServices.h"
#include "screens/clients/ClientCardsModel.h"
#include "screens/clients/ClientEditorModel.h"
#include "theme/Confirmation.h"
#include "theme/KeyedSelection.h"

namespace elmworth {

/// The section of the clients: a card for each, with what is to be billed.
///
/// It follows the library while it is shown, and catches up when it is shown again. What a card
/// says is read when it first shows, and again when it may have changed.
class ClientsModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's model has it")
    /// Those that are found, by name. The roles are the properties of `ClientCardTexts`.
    Q_PROPERTY(QAbstractItemModel* cards READ cardsModel CONSTANT FINAL)
    Q_PROPERTY(elmworth::KeyedSelection* selection READ selection CONSTANT FINAL)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed FINAL)  ///< "3 clients"
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed FINAL)       ///< there is no client at all
    /// The lines that the projects of the fullest card take, two of them on each: 1 or 2.
    Q_PROPERTY(int projectLines READ projectLines NOTIFY changed FINAL)
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY changed FINAL)
    Q_PROPERTY(bool isSearchShown READ isSearchShown NOTIFY changed FINAL)
    Q_PROPERTY(QString noMatchText READ noMatchText NOTIFY changed FINAL)  ///< empty with matches
    Q_PROPERTY(elmworth::ClientEditorModel* editor READ editor CONSTANT FINAL)
    Q_PROPERTY(elmworth::Confirmation* confirmation READ confirmation CONSTANT FINAL)
    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY shownChanged FINAL)

 public:
    /// Asks in `confirmation`, which outlives it.
    ClientsModel(const AppServices& services, Confirmation& confirmation);
    ~ClientsModel() override;

    [[nodiscard]] QAbstractItemModel* cardsModel() noexcept { return &places_; }
    [[nodiscard]] const std::vector<ClientRow>& cards() const noexcept { return cards_.rows(); }
    [[nodiscard]] KeyedSelection* selection() noexcept { return &selection_; }
    [[nodiscard]] QString subtitle() const;
    [[nodiscard]] bool isEmpty() const noexcept { return count_ == 0; }
    [[nodiscard]] int projectLines() const noexcept { return projectLines_; }
    [[nodiscard]] const QString& search() const noexcept { return search_; }
    void setSearch(const QString& search);
    /// From five clients on, and as long as something is searched for.
    [[nodiscard]] bool isSearchShown() const noexcept;
    [[nodiscard]] QString noMatchText() const;
    [[nodiscard]] ClientEditorModel* editor() noexcept { return &editor_; }
    [[nodiscard]] Confirmation* confirmation() noexcept { return &confirmation_; }
    [[nodiscard]] bool isShown() const noexcept { return live_ != nullptr; }
    void setShown(bool isShown);

    /// Opens the editor on a new client. Once that is saved its card is selected and shows, also
    /// when something else was searched for.
    Q_INVOKABLE void add();
    // The following are no-ops when there is no card in row `row`.
    /// Opens the editor, which does the same.
    Q_INVOKABLE void edit(int row);
    /// Asks before the client and its time go, or says why it stays.
    Q_INVOKABLE void remove(int row);
    /// Leads to where its unbilled time is invoiced.
    Q_INVOKABLE void invoice(int row);

    /// Makes `row` the one that the menu is for, wherever it moves meanwhile. False when there is
    /// none.
    Q_INVOKABLE bool openMenu(int row);
    Q_INVOKABLE void menuEdit();
    Q_INVOKABLE void menuRemove();
    Q_INVOKABLE void menuInvoice();

 Q_SIGNALS:
    void changed();
    void shownChanged();
    /// The card in row `row` is to be seen.
    void revealRequested(int row);
    /// The unbilled time of `client` is to be invoiced.
    void invoiceRequested(const elmworth::PersistentID& client);
    /// A client was deleted, as `sentence` says, which can be undone.
    void removed(const QString& sentence);

 private:
    struct Live;

    [[nodiscard]] std::optional<PersistentID> clientAt(int row) const;
    [[nodiscard]] std::optional<ClientCardTexts> textsOf(const PersistentID& id) const;
    void editClient(const PersistentID& id);
    void askToRemove(const PersistentID& id);
    void removeNow(const PersistentID& id);
    void tellOfFailure(const QString& sentence);
    void follow(const RecordChanges& changes);
    void followTime(const ProjectTimes::Projects& projects);
    void showCards();
    void countProjects();
    void reveal(const PersistentID& id);
    [[nodiscard]] int rowOf(const PersistentID& id) const;

    AppServices services_;
    Confirmation& confirmation_;
    ClientService clients_;
    ClientEditorModel editor_;
    ClientCardsModel cards_;
    RowPlaces places_{cards_};
    RowSelection<PlainRows<ClientRow>> selection_;
    std::size_t count_ = 0;
    int projectLines_ = 1;
    QString search_;
    std::optional<PersistentID> menuClient_;
    std::unique_ptr<Live> live_;  ///< while it is shown
};

}  // namespace elmworth
