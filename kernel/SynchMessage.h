// SPDX-License-Identifier: MIT
// One timed message to an effect. A plain value, owned by DemoPlayer::messages.
#pragma once

class Effect;

struct SynchMessage {
    float time;     // seconds of the show from which on the message is due
    int id;         // from the SynchMessageTable; 0 if the target never declared the name
    Effect* effect; // the target, borrowed
    float* params;  // count floats, freed by the DemoPlayer's destructor
    int count;      // number of parameters, 0 if the script gave none
};
