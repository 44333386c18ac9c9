// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string_view>

namespace elmworth {

/// Selects Qt Quick's software renderer where OpenGL would be emulated on the processor, as on
/// virtual machines and remote desktops: emulated OpenGL draws each frame whole, at many times the
/// cost. QT_QUICK_BACKEND and QSG_RHI_BACKEND in the environment take precedence.
///
/// To be called with a QGuiApplication, before the first window is made.
void chooseRenderer();

/// Whether the driver of a graphics card offers to draw, in the folder of devices, "/dev".
[[nodiscard]] bool hasGraphicsCard(const std::filesystem::path& devices);

/// Whether `renderer`, the name that OpenGL gives to what draws for it, draws on the processor.
[[nodiscard]] bool drawsOnProcessor(std::string_view renderer);

}  // namespace elmworth
