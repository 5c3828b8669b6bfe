// SPDX-License-Identifier: MIT
// The script's file on disk: what it held when it was last read or written, and what has become of it since. Every call
// that goes to the disk waits for it. A copy of the object is what was known when it was made.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace edit
{

enum DiskState {
    DiskSame,
    DiskChanged,  // by another program; the text has no unsaved changes
    DiskConflict, // by another program, and the text has changes that are not saved
    DiskGone      // there is no such file any more
};

class ScriptFile
{
public:
    ScriptFile();

    const std::string& Path() const { return path; } // empty: none
    const std::string& Content() const
    {
        return content;
    } // that the file had when it was last taken notice of

    // True if the file is there, as far as is known, and holds this text. Without a path: if the text is empty.
    bool Holds(const std::string& text) const { return !missing && text == content; }

    // Reads a regular file of at most lint::Reading::contentLimit bytes. False: *reason says why, and the object is as
    // it was.
    bool Open(const std::string& newPath, std::string* reason);

    // Puts the text elsewhere on the disk, where it survives; false and a reason if it can't.
    typedef std::function<bool(const std::string& text, std::string* reason)> Backup;

    // Writes a file beside it, flushed, and puts it in its place. Owner, mode, attributes and symbolic link are kept.
    // A file with several names (hard links) keeps them all: it is written over in its place, after `backup` has the
    // text, and where there is no backup it is refused. False: *reason says why in a sentence, and the file is as it
    // was, but for a disk that fails while it is written over.
    bool SaveAs(const std::string& newPath, const std::string& text, const Backup& backup,
                std::string* reason);

    // text is what the editor holds.
    DiskState Look(const std::string& text);

    // Reads what the file holds now into Content. False: it can't be read; *reason says why.
    bool Accept(std::string* reason);

private:
    // What moves whenever a file is written or replaced.
    struct Stamp {
        uint64_t device = 0, inode = 0, size = 0;
        int64_t modified = 0, changed = 0; // nanoseconds
        bool exists = false;

        bool operator==(const Stamp&) const = default;
    };

    static Stamp StampOf(const std::string& path);

    std::string path;
    std::string content;
    Stamp stamp;
    bool settled; // the stamp is old enough to move with the next change
    bool missing; // there was no file when it was last looked for
};

} // namespace edit
