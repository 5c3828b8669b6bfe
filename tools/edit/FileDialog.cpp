// SPDX-License-Identifier: MIT
#include "tools/edit/FileDialog.h"

#include "platform/toolwindow/ToolFonts.h"
#include "platform/toolwindow/ToolStyle.h"

#include <imgui.h>
#include <imgui_stdlib.h>

#include <algorithm>
#include <filesystem>

namespace edit
{

namespace fs = std::filesystem;
using namespace showcolours;

static const size_t mostItems = 5000; // of a folder

void FileDialog::Begin(Purpose newPurpose, const std::string& path)
{
    purpose = newPurpose;
    trouble.clear();
    asked.clear();
    chosen.clear();
    focusName = true;
    std::error_code error;
    const fs::path absolute = fs::absolute(path.empty() ? "." : path, error);
    const bool isFolder = fs::is_directory(absolute, error);
    name = path.empty() || isFolder || purpose == ToOpen ? "" : absolute.filename().string();
    ReadFolder(isFolder ? absolute.string() : absolute.parent_path().string());
}

void FileDialog::ReadFolder(const std::string& newFolder)
{
    std::error_code error;
    fs::directory_iterator each(newFolder, fs::directory_options::skip_permission_denied, error);
    if (error) {
        trouble = newFolder + " can't be read: " + error.message() + ".";
        return;
    }
    trouble.clear();
    folder = fs::path(newFolder).lexically_normal().string();
    items.clear();
    for (; each != fs::directory_iterator() && items.size() < mostItems; each.increment(error)) {
        const std::string entry = each->path().filename().string();
        if (entry.empty() || entry[0] == '.')
            continue;
        const bool isFolder = each->is_directory(error);
        if (isFolder || each->path().extension() == ".txt")
            items.push_back({entry, isFolder});
    }
    std::sort(items.begin(), items.end(), [](const Item& a, const Item& b) {
        return a.isFolder != b.isFolder ? a.isFolder : a.name < b.name;
    });
}

// Goes into a folder, or answers with a file.
FileDialog::Answer FileDialog::Take(const std::string& typed)
{
    if (typed.empty())
        return NoAnswer;
    std::error_code error;
    const fs::path path = (fs::path(folder) / typed).lexically_normal();
    if (fs::is_directory(path, error)) {
        ReadFolder(path.string());
        name.clear();
        return NoAnswer;
    }
    const bool exists = fs::exists(path, error);
    if (purpose == ToOpen && !exists) {
        trouble = "There is no file " + path.string() + ".";
        return NoAnswer;
    }
    if (purpose == ToSave && exists && asked != path.string()) {
        asked = path.string();
        trouble = path.filename().string() + " is there already. Save once more to replace it.";
        return NoAnswer;
    }
    chosen = path.string();
    return Chosen;
}

void FileDialog::DrawList(float scale, std::string* taken)
{
    ImGui::PushStyleColor(ImGuiCol_ChildBg, platform::ToolTint(Ink));
    ImGui::BeginChild("files", ImVec2(520 * scale, 280 * scale));
    if (fs::path(folder).has_relative_path() &&
        ImGui::Selectable("..", false, ImGuiSelectableFlags_DontClosePopups))
        *taken = "..";
    for (const Item& item : items) {
        const std::string label = item.isFolder ? item.name + "/" : item.name;
        ImGui::PushStyleColor(ImGuiCol_Text, platform::ToolTint(item.isFolder ? Amber : Bone));
        if (ImGui::Selectable(label.c_str(), name == item.name,
                              ImGuiSelectableFlags_AllowDoubleClick | ImGuiSelectableFlags_DontClosePopups)) {
            name = item.name;
            if (item.isFolder || ImGui::IsMouseDoubleClicked(0))
                *taken = item.name;
        }
        ImGui::PopStyleColor();
    }
    ImGui::EndChild();
    ImGui::PopStyleColor();
}

FileDialog::Answer FileDialog::Draw(float scale)
{
    ImGui::PushFont(platform::FontOf(platform::NoteFont));
    ImGui::TextColored(platform::ToolTint(Mist), "%s", folder.c_str());
    ImGui::PopFont();
    std::string taken;
    DrawList(scale, &taken);
    if (focusName)
        ImGui::SetKeyboardFocusHere();
    focusName = false;
    ImGui::SetNextItemWidth(520 * scale);
    if (ImGui::InputTextWithHint("##name", "name of the file", &name, ImGuiInputTextFlags_EnterReturnsTrue))
        taken = name;
    if (!trouble.empty()) {
        ImGui::PushTextWrapPos(520 * scale);
        ImGui::TextColored(platform::ToolTint(Amber), "%s", trouble.c_str());
        ImGui::PopTextWrapPos();
    }
    Answer answer = NoAnswer;
    platform::PushMainButton();
    if (ImGui::Button(purpose == ToOpen ? "Open" : "Save", ImVec2(110 * scale, 0)))
        taken = name;
    platform::PopMainButton();
    if (!taken.empty())
        answer = Take(taken);
    if (answer == NoAnswer && !taken.empty())
        focusName = true;
    ImGui::SameLine();
    if (ImGui::Button("Cancel", ImVec2(110 * scale, 0)) ||
        ImGui::IsKeyPressed(ImGui::GetKeyIndex(ImGuiKey_Escape)))
        answer = Cancelled;
    return answer;
}

} // namespace edit
