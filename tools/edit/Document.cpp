// SPDX-License-Identifier: MIT
#include "tools/edit/Document.h"

namespace edit
{

Document::Document() : revision(1), recoveredAt(0), recoveredRevision(1) {}

Document::~Document() {}

void Document::SetText(std::string newText)
{
    if (newText == text)
        return;
    text = std::move(newText);
    outline = ReadOutline(text);
    revision++;
}

bool Document::Open(std::string path, std::string* reason)
{
    if (!file.Open(path, reason))
        return false;
    SetText(file.Content());
    undo.Clear();
    return true;
}

bool Document::IsModified() const
{
    return text != file.Content();
}

bool Document::Save(std::string* reason)
{
    const DiskState state = LookAtDisk();
    if (state == DiskChanged || state == DiskConflict) {
        *reason = "Another program has written the script.";
        return false;
    }
    return file.Save(text, reason);
}

bool Document::SaveAs(std::string path, std::string* reason)
{
    return file.SaveAs(path, text, reason);
}

DiskState Document::LookAtDisk()
{
    return file.Look(text);
}

bool Document::TakeDisk(std::string* reason)
{
    std::string why;
    if (!file.Accept(reason ? reason : &why))
        return false;
    undo.Add("Take the changed file over", text, file.Content(), 0);
    SetText(file.Content());
    return true;
}

void Document::KeepMine()
{
    std::string reason;
    file.Accept(&reason);
}

bool Document::Undo()
{
    const bool can = CanUndo();
    SetText(undo.Undo(text));
    return can;
}

bool Document::Redo()
{
    const bool can = CanRedo();
    SetText(undo.Redo(text));
    return can;
}

void Document::Tick(double) {}
bool Document::WriteRecovery()
{
    return true;
}
bool Document::FindRecovery(const std::string& path, Recovery* found)
{
    return RecoveryFile::Find(path, found);
}
bool Document::Recover(const Recovery& found)
{
    undo.Add("Recover unsaved work", text, found.text, 0);
    SetText(found.text);
    return true;
}
void Document::DiscardRecovery(const Recovery& found)
{
    RecoveryFile::Discard(found);
}

bool Document::Move(std::vector<ItemId>, int64_t, int64_t, uint64_t)
{
    return false;
}
bool Document::Stretch(std::vector<ItemId>, bool, int64_t, uint64_t)
{
    return false;
}
bool Document::SetTime(ItemId, uint32_t, uint64_t)
{
    return false;
}
bool Document::SetValue(size_t, std::string, std::string, uint64_t)
{
    return false;
}
std::vector<ItemId> Document::Duplicate(std::vector<ItemId>, int64_t)
{
    return {};
}
bool Document::Delete(std::vector<ItemId>)
{
    return false;
}
std::string Document::Copy(std::vector<ItemId>) const
{
    return "";
}
std::vector<ItemId> Document::Paste(std::string, uint32_t)
{
    return {};
}
std::optional<ItemId> Document::InsertEntry(std::string, uint32_t, uint32_t, uint32_t)
{
    return std::nullopt;
}
std::optional<ItemId> Document::InsertMessage(std::string, std::string, uint32_t, std::string)
{
    return std::nullopt;
}
std::optional<ItemId> Document::AddTime(size_t, uint32_t)
{
    return std::nullopt;
}
bool Document::TakeApart(size_t)
{
    return false;
}
bool Document::SetMusic(std::string)
{
    return false;
}
bool Document::SetColorScheme(const ColorScheme&)
{
    return false;
}
bool Document::CanCure(const lint::Finding&)
{
    return false;
}
bool Document::ApplyCure(const lint::Finding&, const lint::Options&)
{
    return false;
}

} // namespace edit
