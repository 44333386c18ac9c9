// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Renderer.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QQuickWindow>
#include <algorithm>
#include <array>
#include <string>
#include <system_error>

namespace elmworth {

namespace {

namespace fs = std::filesystem;

/// OpenGL's name for what draws; empty when there is no OpenGL at all.
std::string openGLRenderer() {
    QOpenGLContext context;
    QOffscreenSurface surface;
    surface.create();
    if (!context.create() || !context.makeCurrent(&surface)) return {};
    const auto* name = context.functions()->glGetString(GL_RENDERER);
    return name ? reinterpret_cast<const char*>(name) : std::string();
}

}  // namespace

void chooseRenderer() {
    if (qEnvironmentVariableIsSet("QT_QUICK_BACKEND") ||
        qEnvironmentVariableIsSet("QSG_RHI_BACKEND")) {
        return;
    }
    // OpenGL itself is asked only where there may be a card: loading it to learn that there is none
    // would take much of the start.
    if (!hasGraphicsCard("/dev") || drawsOnProcessor(openGLRenderer())) {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    }
}

bool hasGraphicsCard(const fs::path& devices) {
    // Cards whose drivers are not among the kernel's, or whose kernel is another system's.
    constexpr std::array otherDrivers{"nvidiactl", "dxg", "mali0", "kgsl-3d0"};
    std::error_code error;
    for (const char* driver : otherDrivers) {
        if (fs::exists(devices / driver, error)) return true;
    }
    for (fs::directory_iterator node(devices / "dri", error), end; !error && node != end;
         node.increment(error)) {
        if (node->path().filename().string().starts_with("renderD")) return true;
    }
    return false;
}

bool drawsOnProcessor(std::string_view renderer) {
    constexpr std::array<std::string_view, 5> programs{"llvmpipe", "softpipe", "swrast", "SWR",
                                                       "Software Rasterizer"};
    return renderer.empty() || std::any_of(programs.begin(), programs.end(), [&](auto program) {
               return renderer.find(program) != std::string_view::npos;
           });
}

}  // namespace elmworth
