// SPDX-License-Identifier: MIT
// The order in which a run is built and taken down. It is the design: the effects exist and have declared
// their messages before any GL context exists, the window exists before the script is read, and everything is
// loaded later, inside DemoPlayer::Run.
#pragma once

class DemoPlayer;
class EffectRegistry;
class GLWindow;

// Asks for the settings and builds the three central objects. False if the user left the form (nothing was
// created then) or the window can't be had. A player that fails to initialise still gives true, and shows
// itself by refusing the script.
bool BuildSystem();

// Frees what is freed. The effects, the message table and the music live to the end of the process.
void TearDown();

// The run from form to tear-down, without the process around it. Always 0.
int RunShow();

// The central objects, for those who build and take down: everybody else is handed what he needs. Null before
// BuildSystem and after TearDown.
extern DemoPlayer* demoPlayer;
extern GLWindow* glWindow;
extern EffectRegistry* effectRegistry;
