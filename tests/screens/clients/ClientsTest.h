// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <chrono>
#include <map>
#include <string>
#include <vector>

#include "screens/clients/ClientsModel.h"
#include "support/LibraryTest.h"
#include "support/QtTesting.h"

namespace elmworth::test {

/// The section of the clients, shown, over a library without any; in America and UTC, on Monday,
/// 2026-03-02, at 09:00.
class ClientsTest : public LibraryTest {
 protected:
    ClientsTest() { model.setShown(true); }

    Ref<Project> addProject(const std::string& name, const Ref<Client>& client) {
        return project(name, client);
    }
    Ref<TimeEntry> addEntry(const Ref<Project>& project, std::chrono::minutes length) {
        const auto entry =
            timer.library.addEntry(project, timer.today("06:00"), timer.today("06:00") + length);
        context().save();
        return entry;
    }
    Ref<Invoice> addInvoice(const std::string& number, const Ref<Client>& client,
                            const std::string& day = "2026-03-01") {
        const auto invoice = timer.library.addInvoice(number, client);
        invoice->issueDate = at(day + "T12:00Z");
        context().save();
        return invoice;
    }

    [[nodiscard]] QVariant value(int row, const char* role) const {
        const auto* cards = const_cast<ClientsModel&>(model).cardsModel();
        return cards->data(cards->index(row, 0), cards->roleNames().key(role));
    }
    [[nodiscard]] std::string text(int row, const char* role) const {
        return value(row, role).toString().toStdString();
    }
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (std::size_t i = 0; i < model.cards().size(); ++i)
            all.push_back(text(static_cast<int>(i), "name"));
        return all;
    }
    void search(const char* typed) { model.setSearch(QString::fromUtf8(typed)); }
    [[nodiscard]] std::string title() { return confirmation.title().toStdString(); }
    [[nodiscard]] std::string message() { return confirmation.message().toStdString(); }

    Confirmation confirmation;
    ClientsModel model{services(), confirmation};
};

}  // namespace elmworth::test
