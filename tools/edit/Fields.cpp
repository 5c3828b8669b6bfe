// SPDX-License-Identifier: MIT
#include "tools/edit/Fields.h"

#include <imgui_stdlib.h>

namespace edit
{

void Fields::Row(const char* label)
{
    ImGui::TableNextRow();
    ImGui::TableNextColumn();
    ImGui::AlignTextToFramePadding();
    ImGui::TextUnformatted(label);
    ImGui::TableNextColumn();
    ImGui::SetNextItemWidth(-FLT_MIN);
}

bool Fields::Text(const char* label, std::string* text, const char* hint)
{
    Row(label);
    ImGui::PushID(label);
    const ImGuiID id = ImGui::GetID("##field");
    std::string shown = edited == id ? typed : *text;
    if (ImGui::InputTextWithHint("##field", hint, &shown, ImGuiInputTextFlags_AutoSelectAll)) {
        edited = id;
        typed = shown;
    }
    bool taken = false;
    if (ImGui::IsItemDeactivated() && edited == id) {
        taken = ImGui::IsItemDeactivatedAfterEdit() && typed != *text &&
                !ImGui::IsKeyPressed(ImGui::GetKeyIndex(ImGuiKey_Escape));
        if (taken)
            *text = typed;
        edited = 0;
    }
    ImGui::PopID();
    return taken;
}

} // namespace edit
