// SPDX-License-Identifier: MIT
#include "script/ParameterFile.h"

#include "kernel/Report.h"

#include <locale.h>

static const size_t tokenSize = 256; // of the search for a key; longer tokens are compared in pieces

// Makes the classic locale that of this thread, and returns the one before. Numbers are read and written
// under it, because a file with the decimal comma of one user's locale would be misread under another's.
static locale_t SetClassicLocale()
{
    static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
    return uselocale(classic);
}

ParameterFile::ParameterFile(std::string baseName) : file(nullptr), name(baseName)
{
    Open();
}

ParameterFile::~ParameterFile()
{
    Close();
}

void ParameterFile::Open()
{
    Close();
    file = OpenLocalFile((name + ".dep").c_str(), "a+");
}

void ParameterFile::Close()
{
    CloseFile(file);
    file = nullptr;
}

void ParameterFile::Reopen()
{
    Close();
    Open();
}

// Reads up to size - 1 bytes of the next token into text. Without a token text stays as it is.
static void ReadToken(FILE* file, char* text, size_t size)
{
    if (size < 2)
        return;
    char format[32];
    snprintf(format, sizeof format, "%%%zus", size - 1);
    (void)!fscanf(file, format, text);
}

static bool FindAndRead(FILE* file, void* value, const std::string& key, int type, size_t textSize)
{
    fseek(file, 0, SEEK_SET);
    // ferror: on a read error the end-of-file flag is never set.
    while (!feof(file) && !ferror(file)) {
        char token[tokenSize] = ""; // stays empty at the end of the file, where no token arrives
        ReadToken(file, token, tokenSize);
        if (key != token)
            continue;
        switch (type) {
        case ParameterText:
            ReadToken(file, static_cast<char*>(value), textSize);
            return true;
        case ParameterInteger:
            (void)!fscanf(file, "%d", static_cast<int*>(value));
            return true;
        case ParameterFloat:
            (void)!fscanf(file, "%f", static_cast<float*>(value));
            return true;
        }
    }
    return false;
}

bool ParameterFile::Read(void* value, std::string key, int type, size_t textSize)
{
    if (!file)
        return false;
    const locale_t previous = SetClassicLocale();
    const bool found = FindAndRead(file, value, key, type, textSize);
    uselocale(previous);
    return found;
}

// The result is false in every case; it says nothing about success.
bool ParameterFile::Write(void* value, std::string key, int type)
{
    if (!file)
        return false;
    const locale_t previous = SetClassicLocale();
    fseek(file, 0, SEEK_END);
    switch (type) {
    case ParameterText: // without a line end, as the header says
        fprintf(file, "%s %s", key.c_str(), static_cast<const char*>(value));
        break;
    case ParameterInteger:
        fprintf(file, "%s %d\n", key.c_str(), *static_cast<const int*>(value));
        break;
    case ParameterFloat:
        fprintf(file, "%s %f\n", key.c_str(), static_cast<double>(*static_cast<const float*>(value)));
        break;
    }
    fflush(file); // so that the parameters are there even if the show is killed
    uselocale(previous);
    return false;
}

bool ParameterFile::ReadOrAdd(void* value, std::string key, int type, size_t textSize)
{
    if (Read(value, key, type, textSize))
        return false;
    Write(value, key, type);
    return true;
}
