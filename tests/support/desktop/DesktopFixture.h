// SPDX-License-Identifier: MIT
// What a desktop test stands on: a desktop of its own, and a picture of it when the test fails.
#pragma once

#include "tests/support/desktop/Desktop.h"

#include <gtest/gtest.h>

class DesktopFixture : public testing::Test
{
protected:
    // The desktop is 1280 by 1024 pixels. Tests of another one call Desktop::Start themselves.
    void SetUp() override;

    // After a failure the screen is kept in <build>/tests/desktop-failures.
    void TearDown() override;

    Desktop desktop;
};
