// SPDX-License-Identifier: MIT
#include "tools/edit/Tapping.h"

#include "tools/edit/Document.h"
#include "tools/edit/Selection.h"
#include "tools/edit/SnapGrid.h"

#include <algorithm>
#include <cmath>

namespace edit
{

void Tapping::Choose(const std::string& newEffect, const std::string& newMessage,
                     const std::string& newParameters)
{
    hasBlock = hasBlock && effect == newEffect && message == newMessage && parameters == newParameters;
    effect = newEffect;
    message = newMessage;
    parameters = newParameters;
}

uint32_t Tapping::Moment(const EditorState& state)
{
    const double seconds = SnapGrid(state.snap, state.tempo).NearestBeat(state.playhead);
    return uint32_t(std::llround(std::clamp(seconds * 1000, 0.0, 4294967295.0)));
}

void Tapping::ChooseSelected(const EditorState& state)
{
    const Outline& outline = state.document->GetOutline();
    if (state.selection.size() != 1 || !outline.Has(state.selection[0]))
        return;
    const OutlineBlock& selected = outline.blocks[state.selection[0].block];
    std::string list;
    if (selected.type == BlockMessage) {
        selected.ValueOf(key::Parameter, &list);
        Choose(selected.effect, selected.message, list);
    }
}

bool Tapping::Tap(EditorState* state)
{
    if (!IsChosen())
        ChooseSelected(*state);
    if (!IsChosen()) {
        state->notice = "Choose a message to tap first.";
        return false;
    }
    Document* const document = state->document;
    const std::vector<OutlineBlock>& blocks = document->GetOutline().blocks;
    // Another edit, or undo, may have moved the block or taken it away.
    hasBlock = hasBlock && block < blocks.size() && blocks[block].type == BlockMessage &&
               !blocks[block].IsGroup() && blocks[block].effect == effect &&
               blocks[block].message == message && blocks[block].parameters == blockParameters;
    const uint32_t moment = Moment(*state);
    const std::optional<ItemId> tapped = hasBlock
                                             ? document->AddTime(block, moment)
                                             : document->InsertMessage(effect, message, moment, parameters);
    if (!tapped) {
        state->notice = document->LastRefusal();
        return false;
    }
    block = tapped->block;
    hasBlock = true;
    blockParameters = document->GetOutline().blocks[block].parameters;
    state->selection = {*tapped};
    return true;
}

} // namespace edit
