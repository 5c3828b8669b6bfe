// SPDX-License-Identifier: MIT
// What tests watch of SoundSystem, and what they make it say. A show leaves all of it alone.
#pragma once

#include <string>
#include <vector>

// Appends every call of SoundSystem with its arguments, "Init 44100 32 0", to *sink; null ends that. The sink
// is borrowed.
void CollectSoundCalls(std::vector<std::string>* sink);

// Makes SoundSystem::GetVersion say another version from now on.
void PretendSoundVersion(float version);

// For SoundSystem.
void NoteSoundCall(const std::string& call);
float SoundVersion();
