// SPDX-License-Identifier: MIT
#include "platform/toolwindow/ToolWindow.h"
