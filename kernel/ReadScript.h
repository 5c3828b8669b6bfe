// SPDX-License-Identifier: MIT
// The script reader as the sequencer calls it. script/ stands above kernel/, so kernel/ includes nothing from
// there: it declares the one function that it needs, and script/ScriptParser.cpp defines it.
#pragma once

#include <string>

class DemoPlayer;

// Reads a script of the data directory and hands what it holds to the player through AddEffect, AddMessage,
// SetMusic and SetColorScheme, in the order of the file. True if the file could be opened, whatever was in
// it; if it could not, that was reported and a quit posted.
bool ReadScript(DemoPlayer* player, std::string fileName);
