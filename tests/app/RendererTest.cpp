// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Renderer.h"

#include <gtest/gtest.h>

#include <fstream>

#include "support/Rows.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

struct RendererRow {
    const char* name;
    const char* renderer;
    bool isProcessor;
};

void PrintTo(const RendererRow& row, std::ostream* out) {
    *out << row.name;
}

class RendererName : public testing::TestWithParam<RendererRow> {};

TEST_P(RendererName, tellsWhetherTheProcessorDraws) {
    EXPECT_EQ(drawsOnProcessor(GetParam().renderer), GetParam().isProcessor);
}

INSTANTIATE_TEST_SUITE_P(
    Row, RendererName,
    testing::ValuesIn(std::vector<RendererRow>{
        {"Llvmpipe", "llvmpipe (LLVM 15.0.6, 256 bits)", true},
        {"OlderLlvmpipe", "Gallium 0.4 on llvmpipe (LLVM 3.4, 128 bits)", true},
        {"Softpipe", "softpipe", true},
        {"ClassicSwrast", "Software Rasterizer", true},
        {"Swr", "SWR (LLVM 10.0.0, 256 bits)", true},
        {"NoOpenGL", "", true},
        {"Intel", "Mesa Intel(R) UHD Graphics 620 (KBL GT2)", false},
        {"Radeon", "AMD Radeon RX 6600 (navi23, LLVM 15.0.6, DRM 3.49, 6.1.0)", false},
        {"Nvidia", "NVIDIA GeForce GTX 1650/PCIe/SSE2", false},
        {"VirtualMachineWithACard", "virgl (Mesa Intel(R) UHD Graphics 620)", false},
    }),
    test::rowName);

class GraphicsCard : public testing::Test {
 protected:
    void add(const std::string& device) const {
        std::filesystem::create_directories((devices_.path() / device).parent_path());
        std::ofstream(devices_.path() / device);
    }
    [[nodiscard]] bool isThere() const { return hasGraphicsCard(devices_.path()); }

 private:
    test::TemporaryFolder devices_;
};

TEST_F(GraphicsCard, isNotThereWithoutDevices) {
    EXPECT_FALSE(isThere());
}

TEST_F(GraphicsCard, isNotOneThatShowsPicturesOnly) {
    add("dri/card0");
    EXPECT_FALSE(isThere());
}

TEST_F(GraphicsCard, isOneThatDraws) {
    add("dri/card0");
    add("dri/renderD128");
    EXPECT_TRUE(isThere());
}

TEST_F(GraphicsCard, mayHaveADriverOfItsOwn) {
    add("nvidiactl");
    EXPECT_TRUE(isThere());
}

}  // namespace
}  // namespace elmworth
