// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/LoginItem.h"

namespace elmworth {

/// The login item of freedesktop.org's desktops: "elmworth.desktop" in the user's autostart folder.
class AutostartFile final : public LoginItem {
 public:
    /// Starts `program`, an absolute path, from an entry in `folder`, which is made when missing.
    AutostartFile(const std::filesystem::path& folder, std::filesystem::path program);

    /// "autostart" in XDG_CONFIG_HOME (else ~/.config).
    [[nodiscard]] static std::filesystem::path standardFolder();

    /// `program`, or the AppImage that it runs from.
    [[nodiscard]] static std::filesystem::path startable(const std::filesystem::path& program);

    /// True when there is an entry that isn't switched off, and its program can be run.
    [[nodiscard]] bool isEnabled() const override;

    [[nodiscard]] const std::filesystem::path& file() const noexcept { return file_; }

 private:
    void enable() override;
    void disable() override;

    std::filesystem::path file_;
    std::filesystem::path program_;
};

/// `arguments` as the value of the key Exec, quoted as the Desktop Entry Specification wants.
[[nodiscard]] std::string formatExec(const std::vector<std::string>& arguments);

/// The words of a value of Exec; absent where a quotation doesn't end.
[[nodiscard]] std::optional<std::vector<std::string>> parseExec(std::string_view value);

}  // namespace elmworth
