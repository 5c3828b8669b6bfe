// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <string>

// What a value is, and what the pointer of Read, Write and ReadOrAdd points to.
enum ParameterType {
    ParameterText = 1,    // char array; text with white space in it comes back up to there
    ParameterInteger = 2, // int
    ParameterFloat = 3    // float, stored with six decimals
};

// Bytes that a text is read into where the caller doesn't say how large its array is, the final zero
// included.
const int ParameterTextSize = 4096;

// A small store of named values in a text file: a component asks for a value under a key, with the default
// in its variable, and gets the stored one or has the default added. After one run the file holds every
// parameter that was asked for.
//
// The file consists of tokens divided by white space: key, value, key, value. Two properties of the format
// are surprising and must stay:
//   - A text entry is written without a line end, so the key of the next entry is appended to its value.
//   - The search compares every token: a value that equals the key is taken for the key, and the token after
//     it for the value. The first match wins.
// Numbers look the same under any locale. No effect of this production uses the class.
class ParameterFile
{
public:
    // Opens the file "<name>.dep" in the working directory, and creates it if it is missing. A name that
    // begins with a folder is a path from the working directory. On failure the usual box comes up and a quit
    // is posted (see OpenLocalFile in kernel/Report.h), and the object stays closed.
    explicit ParameterFile(std::string name);
    virtual ~ParameterFile(); // closes

    void Open();
    void Close();
    void Reopen();

    // True if the key was found; *value then holds what is stored under it, or stays as it was where that is
    // no number. False when closed. A text is cut to the textSize bytes that value has room for.
    bool Read(void* value, std::string key, int type, size_t textSize = ParameterTextSize);

    // Appends an entry. Always false. Does nothing when closed or for a type that is none of the three.
    bool Write(void* value, std::string key, int type);

    // True if the key was not found, and so the entry was added (or the file is closed). *value is right in
    // both cases.
    bool ReadOrAdd(void* value, std::string key, int type, size_t textSize = ParameterTextSize);

    FILE* file; // null when closed
    std::string name;

private:
    ParameterFile(const ParameterFile&) = delete;
    ParameterFile& operator=(const ParameterFile&) = delete;
};
