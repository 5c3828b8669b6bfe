// SPDX-License-Identifier: MIT
// A file that is written under a name of its own until it is complete. The name that was asked for therefore
// holds either a complete file or what was there before.
//
// Only regular files are replaced. A link is followed, also one that leads nowhere yet. Into devices and
// named pipes, and into standard output ("-", /dev/stdout, /dev/fd/N), the bytes are written as they come:
// such an output is called a stream here.
#pragma once

#include <string>

namespace capture
{

// How the unfinished file is called, PID being the number of this process.
enum PartName {
    PartKeepsEnding, // show.part-PID.mp4, for a program that goes by the ending
    PartHidesEnding  // 000001.png.part-PID, so that nobody takes it for a picture
};

class OutputFile
{
public:
    OutputFile();
    ~OutputFile(); // discards what was not kept
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    static bool IsStream(const std::string& path);

    // Creates the unfinished file in the folder of the target, or opens the stream. Waits for the reader of a
    // named pipe until IsInterrupted and says so on stderr unless `quiet`. False: `error` says why. Once per
    // object.
    bool Open(const std::string& path, PartName name, bool quiet = true);

    bool IsStream() const { return stream; }

    // For writing; owned by this object. -1 before Open.
    int Descriptor() const { return descriptor; }

    // What another program opens to write here: the unfinished file, or the stream's path; "-" where the
    // stream has no path that another process could open, so that it has to be handed the descriptor.
    const std::string& Name() const { return partName; }

    // Gives the finished file the name that was asked for. False: `error` says why, and the file is gone.
    bool Keep();

    // Removes the unfinished file. What was written into a stream can't be taken back.
    void Discard();

    // Removes all unfinished files of this process, for a process that ends without destructors.
    static void DiscardAll();

    std::string error;

private:
    bool OpenStream(const std::string& target, bool quiet);
    bool CreatePart(PartName name);
    bool Fail(const std::string& path, int cause);
    void Close();

    std::string target; // with links followed
    std::string partName;
    int descriptor;
    bool stream;
    bool unfinished; // partName is a file of ours

    OutputFile* next; // in the list of all of them
};

} // namespace capture
