// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <array>
#include <limits>

#include "command/CommandError.h"
#include "command/CommandSyntax.h"
#include "command/FieldTable.h"
#include "command/JSONOutput.h"
#include "command/TextTable.h"
#include "records/FieldText.h"

namespace elmworth {

namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();

struct ProfileField {
    std::string_view name;
    std::string (*text)(const BusinessProfile&);
};

template <auto Member>
std::string textOf(const BusinessProfile& profile) {
    using T = std::decay_t<decltype(profile.*Member)>;
    if constexpr (std::is_same_v<T, std::string>)
        return profile.*Member;
    else if constexpr (std::is_same_v<T, bool>)
        return profile.*Member ? "true" : "false";
    else if constexpr (std::is_same_v<T, PaperSize>)
        return std::string(rawValue(profile.*Member));
    else
        return std::to_string(profile.*Member);
}

template <auto Member>
void setText(BusinessProfile& profile, const std::string& value) {
    profile.*Member = value;
}

template <auto Member, std::int64_t Highest>
void setNumber(BusinessProfile& profile, const std::string& value) {
    profile.*Member = parseWholeNumber(value, "the value", 0, Highest).value();
}

constexpr std::array<ProfileField, 14> texts{{
    {"name", &textOf<&BusinessProfile::name>},
    {"address", &textOf<&BusinessProfile::address>},
    {"taxID", &textOf<&BusinessProfile::taxID>},
    {"email", &textOf<&BusinessProfile::email>},
    {"paymentInstructions", &textOf<&BusinessProfile::paymentInstructions>},
    {"invoicePrefix", &textOf<&BusinessProfile::invoicePrefix>},
    {"nextInvoiceNumber", &textOf<&BusinessProfile::nextInvoiceNumber>},
    {"paperSize", &textOf<&BusinessProfile::paperSize>},
    {"roundingMinutes", &textOf<&BusinessProfile::roundingMinutes>},
    {"defaultDueDays", &textOf<&BusinessProfile::defaultDueDays>},
    {"defaultTaxBasisPoints", &textOf<&BusinessProfile::defaultTaxBasisPoints>},
    {"taxLabel", &textOf<&BusinessProfile::taxLabel>},
    {"resetNumberingYearly", &textOf<&BusinessProfile::resetNumberingYearly>},
    {"numberingYear", &textOf<&BusinessProfile::numberingYear>},
}};

void setPaperSize(BusinessProfile& profile, const std::string& value) {
    const auto size = paperSizeFromRawValue(value);
    if (!size) throw CommandError("“" + value + "” is no paper size. Choose letter or a4.");
    profile.paperSize = *size;
}

constexpr std::array<SettableField<BusinessProfile>, 14> fields{{
    {"name", &setText<&BusinessProfile::name>},
    {"address", &setText<&BusinessProfile::address>},
    {"taxID", &setText<&BusinessProfile::taxID>},
    {"email", &setText<&BusinessProfile::email>},
    {"paymentInstructions", &setText<&BusinessProfile::paymentInstructions>},
    {"invoicePrefix", &setText<&BusinessProfile::invoicePrefix>},
    {"nextInvoiceNumber", &setNumber<&BusinessProfile::nextInvoiceNumber, largest>},
    {"paperSize", &setPaperSize},
    {"roundingMinutes", &setNumber<&BusinessProfile::roundingMinutes, 1440>},
    {"defaultDueDays", &setNumber<&BusinessProfile::defaultDueDays, 120>},
    {"defaultTaxBasisPoints", &setNumber<&BusinessProfile::defaultTaxBasisPoints, 10000>},
    {"taxLabel", &setText<&BusinessProfile::taxLabel>},
    {"resetNumberingYearly",
     [](BusinessProfile& profile, const std::string& value) {
         profile.resetNumberingYearly = parseFlag(value, "resetNumberingYearly").value();
     }},
    {"numberingYear", &setNumber<&BusinessProfile::numberingYear, 9999>},
}};

void show(CommandEnvironment& environment, CommandOutput& output) {
    const auto& profile = environment.profiles.profile();
    if (output.isJSON()) {
        JSONOutput json;
        json.beginObject();
        json.field("name", profile.name);
        json.field("address", profile.address);
        json.field("taxID", profile.taxID);
        json.field("email", profile.email);
        json.field("paymentInstructions", profile.paymentInstructions);
        json.field("invoicePrefix", profile.invoicePrefix);
        json.field("nextInvoiceNumber", profile.nextInvoiceNumber);
        json.field("paperSize", rawValue(profile.paperSize));
        json.field("roundingMinutes", profile.roundingMinutes);
        json.field("defaultDueDays", profile.defaultDueDays);
        json.field("defaultTaxBasisPoints", profile.defaultTaxBasisPoints);
        json.field("taxLabel", profile.taxLabel);
        json.field("resetNumberingYearly", profile.resetNumberingYearly);
        json.field("numberingYear", profile.numberingYear);
        json.endObject();
        output.text += json.document();
        return;
    }
    TextTable table({{"FIELD"}, {"VALUE"}});
    for (const auto& field : texts) table.add({std::string(field.name), field.text(profile)});
    output.text += table.text();
}

void set(const std::string& field, const std::string& value, CommandEnvironment& environment,
         CommandOutput& output) {
    const auto old = environment.profiles.profile();
    auto profile = old;
    setField<BusinessProfile>(fields, profile, field, value);
    if (field == "nextInvoiceNumber") {
        // A number set by hand stands: the yearly restart must not undo it before the next year.
        profile.nextInvoiceNumber = std::max<std::int64_t>(profile.nextInvoiceNumber, 1);
        profile.numberingYear = environment.calendar.components(environment.now()).year;
    }
    environment.profiles.setProfile(profile);
    if (profile != old && environment.profiles.defaults().lastWriteFailed()) {
        environment.profiles.setProfile(old);
        throw CommandError("The settings file can't be written, so the change was not kept.");
    }
    if (output.isJSON()) show(environment, output);
}

}  // namespace

void addProfileCommand(CommandSyntax& syntax) {
    auto profile = syntax.program.subcommand(
        "profile", "Shows your business profile and invoice defaults, or sets one of them");
    profile.requireSubcommand(false);
    auto field = std::make_shared<std::string>();
    auto value = std::make_shared<std::string>();

    auto setting = profile.subcommand("set", "Sets one field of the profile");
    setting.option("FIELD", *field, "Its name, as \"elmworth profile\" shows it").required();
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
