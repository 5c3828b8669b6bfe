// SPDX-License-Identifier: MIT
// The order in which a run is built and taken down. Effects are created and declare their messages before any
// GL context exists, the window is open before the script is read, and pictures, meshes and shaders are
// loaded last, inside DemoPlayer::Run.
#pragma once

class DemoPlayer;
class EffectRegistry;
class GLWindow;

// Asks for the settings and creates the three central objects. False if the user left the form (nothing was
// created then) or if the window could not be created. True also if DemoPlayer::Init failed: LoadScript then
// refuses the script, and the caller still has to call TearDown.
bool BuildSystem();

// Closes the window if a quit was pumped, and deletes textures, player, window and registry. The effects, the
// message table and the sound system live until the process ends. Call only after BuildSystem returned true.
void TearDown();

// A whole run, from the form to the tear-down. Returns the exit status of the program, which is always 0.
int RunShow();

// The central objects. Only the functions above and their tests use them; all other code gets pointers as
// arguments. Null before BuildSystem and after TearDown.
extern DemoPlayer* demoPlayer;
extern GLWindow* glWindow;
extern EffectRegistry* effectRegistry;
