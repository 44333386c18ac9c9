// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "livelist/LiveListModel.h"

namespace elmworth {

/// A line of a list to choose from.
struct ChoiceRow {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(bool isChosen MEMBER isChosen)

 public:
    int id = 0;  ///< stays with its value; 0 is the choice of none
    QString text;
    bool isChosen = false;

    friend bool operator==(const ChoiceRow&, const ChoiceRow&) = default;
};

/// A choice of one of many values, or of none, which can be searched by what is typed. Pickers take
/// it whole, as their `choice`. See Choices for the values.
class ChoiceModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The view's model has it")
    /// The name of what is chosen, or of the choice of none.
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    /// Whether something else than the choice of none is chosen.
    Q_PROPERTY(bool isSet READ isSet NOTIFY changed FINAL)
    /// All of these words stand in the texts of `rows`. While there are any, the choice of none is
    /// no row.
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged FINAL)
    /// The roles are the properties of `ChoiceRow`.
    Q_PROPERTY(QAbstractItemModel* rows READ rowsModel CONSTANT FINAL)
    /// Where the chosen one stands in `rows`; -1 when a search hides it.
    Q_PROPERTY(int chosenRow READ chosenRow NOTIFY rowsChanged FINAL)

 public:
    using QObject::QObject;

    [[nodiscard]] const QString& title() const noexcept { return title_; }
    [[nodiscard]] bool isSet() const noexcept { return chosen_ != 0; }
    [[nodiscard]] const QString& search() const noexcept { return search_; }
    void setSearch(const QString& search);
    [[nodiscard]] QAbstractItemModel* rowsModel() noexcept { return &rows_; }
    [[nodiscard]] int chosenRow() const;
    [[nodiscard]] const std::vector<ChoiceRow>& rows() const noexcept { return rows_.rows(); }

    /// A person chooses the row at `row`, which empties the search. A no-op when there is none.
    Q_INVOKABLE void choose(int row);

 Q_SIGNALS:
    void changed();
    void searchChanged();
    void rowsChanged();
    /// A person chose something else than before.
    void picked();
    /// What was chosen is gone, so that none is chosen now.
    void lost();

 protected:
    /// Shows `all`, of which the one with the id `chosen` is chosen; it has the name `title`, and
    /// may be none of them.
    void show(std::vector<ChoiceRow> all, int chosen, const QString& title);
    /// Chooses what has the id `id`.
    virtual void take(int id) = 0;

 private:
    void showRows();

    std::vector<ChoiceRow> all_;
    LiveListModel<ChoiceRow> rows_;
    int chosen_ = 0;
    QString title_;
    QString search_;
};

/// A choice of values of the type `Key`, which has an order.
template <class Key>
class Choices : public ChoiceModel {
 public:
    struct Choice {
        Key key;
        QString text;
    };

    /// `none` is the text of the choice of none. Where it is empty there is no such row.
    explicit Choices(QString none = {}) : none_(std::move(none)) { offer({}); }

    /// Offers `choices`, each key of which stands there once. What is chosen stays so, also where
    /// it is not among them.
    void offer(std::vector<Choice> choices) {
        choices_ = std::move(choices);
        showAll();
    }
    [[nodiscard]] const std::optional<Key>& chosen() const noexcept { return chosen_; }
    /// `title` names a value that is not offered.
    void setChosen(std::optional<Key> key, QString title = {}) {
        chosen_ = std::move(key);
        title_ = std::move(title);
        showAll();
    }

 private:
    void take(int id) override {
        for (const auto& choice : choices_) {
            if (idOf(choice.key) == id) return setChosen(choice.key, choice.text);
        }
        setChosen(std::nullopt);
    }

    void showAll() {
        std::vector<ChoiceRow> rows;
        QString title = chosen_ ? title_ : none_;
        if (!none_.isEmpty()) rows.push_back({0, none_, false});
        for (const auto& choice : choices_) {
            rows.push_back({idOf(choice.key), choice.text, false});
            if (chosen_ == choice.key) title = choice.text;
        }
        show(std::move(rows), chosen_ ? idOf(*chosen_) : 0, title);
    }

    [[nodiscard]] int idOf(const Key& key) {
        return ids_.try_emplace(key, static_cast<int>(ids_.size()) + 1).first->second;
    }

    QString none_;
    QString title_;
    std::vector<Choice> choices_;
    std::optional<Key> chosen_;
    std::map<Key, int> ids_;  ///< of all that was ever offered, so that a row stays the same one
};

}  // namespace elmworth
