// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/extensionloader.h"

#include <gtest/gtest.h>

#include "tests/support/library_calls.h"

namespace {

// The results of GLEW, whose header cannot be included together with that of OpenGL.
constexpr std::uint32_t kLoaded = 0;
constexpr std::uint32_t kNoDisplayOfGLX = 4;

class ExtensionLoaderTest : public testing::Test {
protected:
    ~ExtensionLoaderTest() override { Calls() = {}; }

    static bool Init(std::uint32_t result, const std::string& expectedOutput) {
        Calls().loaderResult = result;
        testing::internal::CaptureStderr();
        const bool succeeded = InitExtensionLoader();
        EXPECT_EQ(testing::internal::GetCapturedStderr(), expectedOutput);
        return succeeded;
    }
};

TEST_F(ExtensionLoaderTest, LoadedExtensionsAreASuccess) {
    EXPECT_TRUE(Init(kLoaded, ""));
}

TEST_F(ExtensionLoaderTest, ContextWithoutGLXIsASuccess) {
    EXPECT_TRUE(Init(kNoDisplayOfGLX, ""));
}

TEST_F(ExtensionLoaderTest, EveryOtherResultIsReportedAndFails) {
    for (const std::uint32_t result : {1U, 2U, 3U, 5U})
        EXPECT_FALSE(Init(result, "error initialising GLee\n"));
}

}  // namespace
