// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <algorithm>

#include "command/CommandSyntax.h"
#include "command/JSONOutput.h"
#include "command/TextTable.h"
#include "records/FieldText.h"
#include "records/Preferences.h"

namespace elmworth {

namespace {

constexpr std::string_view loginKey = "launchAtLogin";

bool isLaunched(const CommandEnvironment& environment) {
    return environment.loginItem && environment.loginItem->isEnabled();
}

Settings& settingsOf(CommandEnvironment& environment) {
    return environment.profiles.defaults();
}

std::string keyNames() {
    std::string keys;
    for (const auto* preference : preferences::all()) keys += std::string(preference->key) + ", ";
    return keys + std::string(loginKey);
}

/// Null for the login item, which isn't in the settings file.
const Preference* preferenceOf(const std::string& key) {
    if (key == loginKey) return nullptr;
    for (const auto* preference : preferences::all()) {
        if (preference->key == key) return preference;
    }
    throw Refused("There is no setting “" + key + "”. Choose one of: " + keyNames() + ".");
}

std::string textOf(const Preference* preference, CommandEnvironment& environment) {
    if (preference) return preferenceText(settingsOf(environment), *preference);
    return isLaunched(environment) ? "true" : "false";
}

void write(JSONOutput& json, const Preference* preference, CommandEnvironment& environment) {
    if (!preference) {
        json.field(loginKey, isLaunched(environment));
    } else if (preference->isNumber()) {
        json.field(preference->key, preferenceNumber(settingsOf(environment), *preference));
    } else if (preference->isFlag()) {
        json.field(preference->key, textOf(preference, environment) == "true");
    } else {
        json.field(preference->key, textOf(preference, environment));
    }
}

void showAll(CommandEnvironment& environment, CommandOutput& output) {
    std::vector<const Preference*> rows(preferences::all().begin(), preferences::all().end());
    rows.push_back(nullptr);
    if (output.isJSON()) {
        JSONOutput json;
        json.beginObject();
        for (const auto* row : rows) write(json, row, environment);
        json.endObject();
        output.text += json.document();
        return;
    }
    TextTable table({{"KEY"}, {"VALUE"}, {"MEANING"}});
    for (const auto* row : rows) {
        table.add({std::string(row ? row->key : loginKey), textOf(row, environment),
                   std::string(row ? row->help : "Whether Elmworth starts when you log in")});
    }
    output.text += table.text();
}

void showOne(const std::string& key, CommandEnvironment& environment, CommandOutput& output) {
    const auto* preference = preferenceOf(key);
    if (!output.isJSON()) return output.line(textOf(preference, environment));
    JSONOutput json;
    json.beginObject();
    write(json, preference, environment);
    json.endObject();
    output.text += json.document();
}

void set(const std::string& key, const std::string& value, CommandEnvironment& environment,
         CommandOutput& output) {
    if (const auto* preference = preferenceOf(key)) {
        setPreference(settingsOf(environment), *preference, value);
    } else {
        const bool isWanted = parseFlag(value, loginKey).value();
        if (!environment.loginItem) throw Refused("The login item can't be changed here.");
        environment.loginItem->setEnabled(isWanted);
    }
    if (output.isJSON()) showOne(key, environment, output);
}

}  // namespace

void addSettingsCommand(CommandSyntax& syntax) {
    auto settings = syntax.program.subcommand(
        "settings", "Shows how the program looks and behaves, or sets one thing of it");
    settings.requireSubcommand(false);
    const auto key = std::make_shared<std::string>();
    const auto value = std::make_shared<std::string>();

    auto getting = settings.subcommand("get", "Prints one setting");
    getting.option("KEY", *key, "Its name, as \"elmworth settings\" shows it")
        .required()
        .oneOf(keyNames());
    auto setting = settings.subcommand("set", "Sets one setting");
    setting.option("KEY", *key, "Its name, as \"elmworth settings\" shows it")
        .required()
        .oneOf(keyNames());
    setting.option("VALUE", *value, "What it is to be").required();
    // A parent's callback runs after its subcommand's, so the parent decides for all.
    settings.whenGiven([&syntax, getting, setting, key, value] {
        const bool isGetting = getting.isGiven();
        const bool isSetting = setting.isGiven();
        syntax.action = [=](CommandEnvironment& environment, CommandOutput& output) {
            if (isSetting) return set(*key, *value, environment, output);
            if (isGetting) return showOne(*key, environment, output);
            showAll(environment, output);
        };
    });
}

}  // namespace elmworth
