// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

#include "screens/panel/EntryEditorModel.h"
#include "support/LibraryTest.h"
#include "support/QtTesting.h"

namespace elmworth::test {

/// An editor over a library with the project "Website" of "Acme Co". It is Monday, 2026-03-02,
/// 15:00 in UTC, for people in America.
class EntryEditorTest : public LibraryTest {
 protected:
    EntryEditorTest() { timer.setTime("15:00"); }

    /// Types into a field and leaves it.
    static void type(DateTextField* field, const char* text) {
        field->edit(QString::fromUtf8(text));
        field->finish();
    }
    /// "9:00 AM", with a common blank.
    static std::string plain(const QString& text) {
        return utf8(QString(text).replace(QChar(0x202F), u' '));
    }
    /// "3/2/2026 9:00 AM"
    static std::string shown(DateTimeInput* input) {
        return plain(input->day()->text()) + ' ' + plain(input->time()->text());
    }
    [[nodiscard]] std::string chosenChips() const {
        std::string texts;
        for (const auto& chip : editor.chips()) {
            if (chip.isChosen) texts += utf8(chip.text);
        }
        return texts;
    }
    void choose(const std::string& label) {
        const auto& rows = editor.projects()->rows();
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (utf8(rows[i].text) == label) return editor.projects()->choose(static_cast<int>(i));
        }
        FAIL() << label;
    }
    Ref<Invoice> bill(const Ref<TimeEntry>& entry) { return LibraryTest::bill(entry, "2026-001"); }

    Ref<Project> website = project("Website");
    EntryEditorModel editor{services()};
};

}  // namespace elmworth::test
