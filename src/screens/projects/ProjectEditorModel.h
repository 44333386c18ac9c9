// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQmlIntegration>
#include <cstddef>
#include <functional>
#include <string>

#include "clients/ProjectService.h"
#include "screens/AppServices.h"
#include "screens/EditedRecord.h"
#include "screens/RecordChoices.h"
#include "theme/FormFields.h"
#include "theme/FormSheetModel.h"

namespace elmworth {

/// The sheet in which a project is added or changed. While it is open it follows its project and
/// the clients: what nobody touched here takes on what changes elsewhere, and a project that is
/// deleted is saved as a new one.
class ProjectEditorModel final : public elmworth::FormSheetModel {  // so spelt for qmllint
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen's model has it")
    /// Whether it is of a project that is in the library.
    Q_PROPERTY(bool isExisting READ isExisting NOTIFY changed FINAL)
    Q_PROPERTY(elmworth::FormText* name READ name CONSTANT FINAL)
    Q_PROPERTY(elmworth::ChoiceModel* clients READ clients CONSTANT FINAL)
    /// Why the client stays, as a sentence; empty where another one can be chosen.
    Q_PROPERTY(QString clientLock READ clientLock NOTIFY changed FINAL)
    Q_PROPERTY(bool overridesRate READ overridesRate WRITE setOverridesRate NOTIFY changed FINAL)
    Q_PROPERTY(elmworth::FormText* rate READ rate CONSTANT FINAL)
    /// What is wrong with a text, as a sentence; empty for nothing.
    Q_PROPERTY(QString rateProblem READ rateProblemText NOTIFY changed FINAL)
    /// The rate of the chosen client, "$120.00"; empty without one.
    Q_PROPERTY(QString clientRate READ clientRate NOTIFY changed FINAL)
    Q_PROPERTY(elmworth::FormText* budget READ budget CONSTANT FINAL)
    Q_PROPERTY(QString budgetProblem READ budgetProblemText NOTIFY changed FINAL)
    /// The colours to choose from, and the position of the chosen one: -1 for one that is none of
    /// them, which the project keeps until another one is chosen.
    Q_PROPERTY(QStringList palette READ palette CONSTANT FINAL)
    Q_PROPERTY(int colorRow READ colorRow NOTIFY changed FINAL)
    Q_PROPERTY(QString colorHex READ colorHex NOTIFY changed FINAL)  ///< "#RRGGBB"
    Q_PROPERTY(bool isArchived READ isArchived WRITE setArchived NOTIFY changed FINAL)

 public:
    /// Draws one of so many.
    using Draw = std::function<std::size_t(std::size_t count)>;

    /// A new project has the colour that `draw` says.
    ProjectEditorModel(const AppServices& services, Draw draw);

    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString subtitle() const override;
    [[nodiscard]] QString notice() const override;
    [[nodiscard]] QString problem() const override;

    [[nodiscard]] bool isExisting() const noexcept { return static_cast<bool>(project_); }
    [[nodiscard]] FormText* name() noexcept { return &name_; }
    [[nodiscard]] ChoiceModel* clients() noexcept { return &clients_; }
    [[nodiscard]] QString clientLock() const;
    [[nodiscard]] bool overridesRate() const noexcept { return overridesRate_.value(); }
    void setOverridesRate(bool overrides);
    [[nodiscard]] FormText* rate() noexcept { return &rate_; }
    [[nodiscard]] QString rateProblemText() const;
    [[nodiscard]] QString clientRate() const;
    [[nodiscard]] FormText* budget() noexcept { return &budget_; }
    [[nodiscard]] QString budgetProblemText() const;
    [[nodiscard]] static QStringList palette();
    [[nodiscard]] int colorRow() const;
    [[nodiscard]] QString colorHex() const { return QString::fromStdString(color_.value()); }
    [[nodiscard]] bool isArchived() const noexcept { return isArchived_.value(); }
    void setArchived(bool isArchived);

    /// Opens the sheet on `project`, or on a new one when that is null. A sheet that is open is
    /// dismissed first.
    void open(Ref<Project> project);

    /// Chooses the colour at `row` of the palette; any other number does nothing.
    Q_INVOKABLE void chooseColor(int row);

 Q_SIGNALS:
    /// The sheet was closed after a new project was saved.
    void added(const elmworth::PersistentID& project);

 private:
    [[nodiscard]] ProjectForm form() const;
    [[nodiscard]] ProjectForm newForm() const;
    void load(const ProjectForm& form);
    void follow(const ProjectForm& fresh);
    void lockClient();

    [[nodiscard]] bool isComplete() const override { return form().canSave(); }
    void catchUp() override;
    [[nodiscard]] QString carryOut() override;
    void rest() override;

    AppServices services_;
    Draw draw_;
    ProjectService projects_;
    EditedRecord<Project> project_;
    FormText name_;
    RecordChoices<Client> clients_;
    Ref<Client> knownClient_;  ///< the project's, when it was last looked at
    bool isClientLocked_ = false;
    FormValue<bool> overridesRate_;
    FormText rate_;
    FormText budget_;
    FormValue<std::string> color_;
    FormValue<bool> isArchived_;
    Ref<Project> added_;  ///< until the sheet is closed
};

}  // namespace elmworth
