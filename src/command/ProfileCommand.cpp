// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"
#include "command/JSONOutput.h"
#include "command/RecordFields.h"
#include "command/TextTable.h"
#include "platform/MoneyFormat.h"
#include "records/FieldText.h"

namespace elmworth {

namespace {

std::string textOf(const ProfileField& field, const BusinessProfile& profile) {
    const Value value = field.read(profile);
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    const auto number = std::get<std::int64_t>(value);
    if (field.kind == FieldKind::boolean) return number != 0 ? "true" : "false";
    return std::to_string(number);
}

std::string fieldNames() {
    std::string names;
    for (const auto& field : profileFields()) {
        names += (names.empty() ? "" : ", ") + std::string(field.name);
    }
    return names;
}

const ProfileField& fieldOf(const std::string& name) {
    for (const auto& field : profileFields()) {
        if (field.name == name) return field;
    }
    throw noSuchField(name, fieldNames());
}

Value parseField(const ProfileField& field, const std::string& text) {
    switch (field.kind) {
        case FieldKind::integer:
            return parseWholeNumber(text, "the value", 0, field.highest).value();
        case FieldKind::boolean:
            return std::int64_t{parseFlag(text, std::string(field.name)).value()};
        case FieldKind::paperSize:
            return std::string(rawValue(parsePaperSize(text).value()));
        default:
            return text;
    }
}

void show(CommandEnvironment& environment, CommandOutput& output) {
    const auto& profile = environment.profiles.profile();
    if (output.isJSON()) {
        JSONOutput json;
        json.beginObject();
        for (const auto& field : profileFields()) {
            json.field(field.name, field.kind, field.read(profile));
        }
        json.endObject();
        output.text += json.document();
        return;
    }
    TextTable table({{"FIELD"}, {"VALUE"}});
    for (const auto& field : profileFields()) {
        table.add({std::string(field.name), textOf(field, profile)});
    }
    output.text += table.text();
}

void set(const std::string& field, const std::string& value, CommandEnvironment& environment,
         CommandOutput& output) {
    auto profile = environment.profiles.profile();
    const auto& row = fieldOf(field);
    row.write(profile, parseField(row, value));
    if (field == "nextInvoiceNumber") {
        profile.setNextInvoiceNumber(profile.nextInvoiceNumber,
                                     environment.calendar.components(environment.now()).year);
    }
    environment.profiles.setProfileOrRefuse(profile);
    if (output.isJSON()) return show(environment, output);
    // Who meant 19 percent learns here, and not from an invoice, that it is 0.19.
    if (field == "defaultTaxBasisPoints")
        output.line("The default tax is " + formatBasisPoints(profile.defaultTaxBasisPoints) +
                    "%.");
}

}  // namespace

void addProfileCommand(CommandSyntax& syntax) {
    auto profile = syntax.program.subcommand(
        "profile", "Shows your business profile and invoice defaults, or sets one of them");
    profile.requireSubcommand(false);
    auto field = std::make_shared<std::string>();
    auto value = std::make_shared<std::string>();

    auto setting = profile.subcommand("set", "Sets one field of the profile");
    setting.option("FIELD", *field, "Its name, as \"elmworth profile\" shows it")
        .required()
        .oneOf(fieldNames());
    setting.option("VALUE", *value, "Tax is in basis points: 825 is 8.25%").required();
    // A parent's callback runs after its subcommand's, so the parent decides for both.
    profile.whenGiven([&syntax, setting, field, value] {
        const bool isSetting = setting.isGiven();
        syntax.action = [isSetting, field, value](CommandEnvironment& environment,
                                                  CommandOutput& output) {
            if (isSetting) return set(*field, *value, environment, output);
            show(environment, output);
        };
    });
}

}  // namespace elmworth
