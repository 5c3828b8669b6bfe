// SPDX-License-Identifier: MIT
#include "tools/edit/FileDialog.h"

#include "platform/toolwindow/ToolFonts.h"
#include "platform/toolwindow/ToolStyle.h"
#include "platform/toolwindow/ToolWindow.h"

#include <imgui.h>
#include <imgui_stdlib.h>

#include <algorithm>
#include <filesystem>
#include <memory>

namespace edit
{

namespace fs = std::filesystem;
using namespace showcolours;

static const size_t maxItems = 5000; // of a folder

FileDialog::FileDialog() : disk(platform::ToolWindow::Wake) {}

void FileDialog::Begin(Purpose newPurpose, const std::string& path)
{
    purpose = newPurpose;
    answer = NoAnswer;
    trouble.clear();
    asked.clear();
    chosen.clear();
    name.clear();
    items.clear();
    focusName = true;
    disk.Forget(this);
    const auto content = std::make_shared<PathContent>();
    disk.Do(
        this, [content, path] { *content = LookAt(path.empty() ? "." : path, true); },
        [this, content] {
            Show(*content);
            if (purpose == ToSave && name.empty())
                name = content->name;
        });
}

// Runs on the thread. For a file, the folder that it is in is listed.
FileDialog::PathContent FileDialog::LookAt(const std::string& path, bool lists)
{
    PathContent content;
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error).lexically_normal();
    content.exists = fs::exists(absolute, error);
    content.isFolder = fs::is_directory(absolute, error);
    content.folder = (content.isFolder ? absolute : absolute.parent_path()).string();
    content.name = content.isFolder ? "" : absolute.filename().string();
    if (content.isFolder || lists)
        ListFolder(&content);
    return content;
}

void FileDialog::ListFolder(PathContent* content)
{
    std::error_code error;
    fs::directory_iterator each(content->folder, fs::directory_options::skip_permission_denied, error);
    if (error) {
        content->trouble = content->folder + " can't be read: " + error.message() + ".";
        return;
    }
    for (; each != fs::directory_iterator() && content->items.size() < maxItems; each.increment(error)) {
        const std::string entry = each->path().filename().string();
        if (entry.empty() || entry[0] == '.')
            continue;
        const bool isFolder = each->is_directory(error);
        if (isFolder || each->path().extension() == ".txt")
            content->items.push_back({entry, isFolder});
    }
    std::sort(content->items.begin(), content->items.end(), [](const FolderItem& a, const FolderItem& b) {
        return a.isFolder != b.isFolder ? a.isFolder : a.name < b.name;
    });
}

void FileDialog::Show(const PathContent& content)
{
    trouble = content.trouble;
    if (!trouble.empty() && !folder.empty())
        return; // the list stays as it is
    folder = content.folder;
    items = content.items;
}

// Goes into a folder, or answers with a file.
void FileDialog::Take(const std::string& typed)
{
    if (typed.empty() || disk.IsBusy())
        return;
    const auto content = std::make_shared<PathContent>();
    disk.Do(
        this, [content, path = (fs::path(folder) / typed).string()] { *content = LookAt(path, false); },
        [this, content] {
            if (content->isFolder) {
                Show(*content);
                name.clear();
                focusName = true;
            } else {
                TakeFile(*content);
            }
        });
}

void FileDialog::TakeFile(const PathContent& content)
{
    const std::string path = (fs::path(content.folder) / content.name).string();
    focusName = true;
    if (purpose == ToOpen && !content.exists) {
        trouble = "There is no file " + path + ".";
    } else if (purpose == ToSave && content.exists && asked != path) {
        asked = path;
        trouble = content.name + " is there already. Save once more to replace it.";
    } else {
        chosen = path;
        answer = Chosen;
    }
}

void FileDialog::DrawList(float scale, std::string* taken)
{
    ImGui::PushStyleColor(ImGuiCol_ChildBg, platform::ToolTint(Ink));
    ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2(10 * scale, 6 * scale));
    ImGui::BeginChild("files", ImVec2(520 * scale, 280 * scale), false,
                      ImGuiWindowFlags_AlwaysUseWindowPadding);
    ImGui::PopStyleVar();
    if (fs::path(folder).has_relative_path() &&
        ImGui::Selectable("..", false, ImGuiSelectableFlags_DontClosePopups))
        *taken = "..";
    for (const FolderItem& item : items) {
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
    disk.Poll();
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
    platform::PushMainButton();
    if (ImGui::Button(purpose == ToOpen ? "Open" : "Save", ImVec2(110 * scale, 0)))
        taken = name;
    platform::PopMainButton();
    Take(taken);
    ImGui::SameLine();
    if (ImGui::Button("Cancel", ImVec2(110 * scale, 0)) ||
        ImGui::IsKeyPressed(ImGui::GetKeyIndex(ImGuiKey_Escape)))
        return Cancelled;
    return answer;
}

} // namespace edit
