// SPDX-License-Identifier: MIT
// Puts a whole file in the place of another in one step, so that whoever looks finds the old one or the new one.
#pragma once

#include <string>

namespace cli
{

// The path that a symbolic link, or a chain of them, leads to; nothing need be there.
std::string FollowLinks(const std::string& path);

enum Durability {
    Buffered, // the system writes it to the disk when it likes
    Flushed   // it is on the disk, under its name, when the call returns: for what a power cut must not take
};

enum Ownership {
    OwnerMayChange, // a new file belongs to this process
    OwnerIsKept     // fails where the owner and the group of the old file can't be kept
};

// Writes a file beside the path and gives it the name when it is complete. It gets the mode of a file that is there
// already, and its extended attributes and access control list as far as the system lets them be copied. A link in the
// path itself would be replaced: FollowLinks first. SIGXFSZ is ignored from here on. False: the cause is in errno, the
// old file is as it was, and nothing lies beside it.
bool ReplaceFile(const std::string& path, const std::string& text, Durability durability,
                 Ownership ownership);

// Writes over the bytes of a file that is there, which stays the same file under all its names; flushed. Not in one
// step: whoever looks meanwhile, or after the process was killed in it, finds a part of the old text and a part of the
// new one. The room is taken first, so that a full disk is found out before anything is changed. False: the cause is in
// errno.
bool OverwriteFile(const std::string& path, const std::string& text);

} // namespace cli
