// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

// Runs `work` in a process of its own, without the rights of root, to which the system refuses each further
// thread and process. A failed expectation in it fails the test that calls this.
void WithoutNewThreads(const std::function<void()>& work);

// The same with room for so many threads at a time. Only root can do that, since it takes a user who runs nothing else.
void WithRoomForThreads(int count, const std::function<void()>& work);
