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

static const size_t mostItems = 5000; // of a folder

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
    const auto finding = std::make_shared<Finding>();
    disk.Do(
        this, [finding, path] { *finding = LookAt(path.empty() ? "." : path, true); },
        [this, finding] {
            Show(*finding);
            if (purpose == ToSave && name.empty())
                name = finding->name;
        });
}

// On the thread. A file's folder is listed in its place.
FileDialog::Finding FileDialog::LookAt(const std::string& path, bool lists)
{
    Finding finding;
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error).lexically_normal();
    finding.exists = fs::exists(absolute, error);
    finding.isFolder = fs::is_directory(absolute, error);
    finding.folder = (finding.isFolder ? absolute : absolute.parent_path()).string();
    finding.name = finding.isFolder ? "" : absolute.filename().string();
    if (finding.isFolder || lists)
        ListFolder(&finding);
    return finding;
}

void FileDialog::ListFolder(Finding* finding)
{
    std::error_code error;
    fs::directory_iterator each(finding->folder, fs::directory_options::skip_permission_denied, error);
    if (error) {
        finding->trouble = finding->folder + " can't be read: " + error.message() + ".";
        return;
    }
    for (; each != fs::directory_iterator() && finding->items.size() < mostItems; each.increment(error)) {
        const std::string entry = each->path().filename().string();
        if (entry.empty() || entry[0] == '.')
            continue;
        const bool isFolder = each->is_directory(error);
        if (isFolder || each->path().extension() == ".txt")
            finding->items.push_back({entry, isFolder});
    }
    std::sort(finding->items.begin(), finding->items.end(), [](const Item& a, const Item& b) {
        return a.isFolder != b.isFolder ? a.isFolder : a.name < b.name;
    });
}

void FileDialog::Show(const Finding& finding)
{
    trouble = finding.trouble;
    if (!trouble.empty() && !folder.empty())
        return; // the list stays as it is
    folder = finding.folder;
    items = finding.items;
}

// Goes into a folder, or answers with a file.
void FileDialog::Take(const std::string& typed)
{
    if (typed.empty() || disk.IsBusy())
        return;
    const auto finding = std::make_shared<Finding>();
    disk.Do(
        this, [finding, path = (fs::path(folder) / typed).string()] { *finding = LookAt(path, false); },
        [this, finding] {
            if (finding->isFolder) {
                Show(*finding);
                name.clear();
                focusName = true;
            } else {
                TakeFile(*finding);
            }
        });
}

void FileDialog::TakeFile(const Finding& finding)
{
    const std::string path = (fs::path(finding.folder) / finding.name).string();
    focusName = true;
    if (purpose == ToOpen && !finding.exists) {
        trouble = "There is no file " + path + ".";
    } else if (purpose == ToSave && finding.exists && asked != path) {
        asked = path;
        trouble = finding.name + " is there already. Save once more to replace it.";
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
