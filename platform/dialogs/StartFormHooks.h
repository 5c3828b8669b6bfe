// SPDX-License-Identifier: MIT
// How tests answer the start form.
#pragma once

#include "platform/dialogs/StartForm.h"

#include <functional>

namespace platform
{

// From here on ShowStartForm calls `answer` in place of a window, which may change the check marks, and returns
// what it returns. An empty function shows windows again.
void AnswerStartForm(std::function<int(StartForm& form)> answer);

} // namespace platform
