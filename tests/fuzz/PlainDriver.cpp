// SPDX-License-Identifier: MIT
// Drives a fuzz target where there is no libFuzzer: runs every file that it is given, then mutations of them.
// The same arguments always make the same inputs.
//
//   fuzz-Name [-runs=N] [-max_total_time=SECONDS] [-seed=N] [-dict=FILE] [-artifact_prefix=PATH]
//   FILE|FOLDER...
//
// As with libFuzzer, -runs=0 runs the files alone and without -runs and -max_total_time there is no end. An
// input that ends the process is left in PATHcrash-Name-NUMBER first. Other options are ignored.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

static const size_t maxInput = 1 << 20; // bytes

// ---- What is left of an input that ends the process

static std::string current;
static std::string artifactPath;
static long runs = 0;

static void SaveCurrent(int signal)
{
    const std::string path = artifactPath + std::to_string(runs);
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (file >= 0 && write(file, current.data(), current.size()) == ssize_t(current.size()))
        fprintf(stderr, "run %ld: signal %d, the input is in %s\n", runs, signal, path.c_str());
    std::signal(signal, SIG_DFL);
    raise(signal);
}

static void CatchSignals()
{
    std::signal(SIGABRT, SaveCurrent); // the sanitizers end with it, too, when they have told what was wrong
    std::signal(SIGALRM, SaveCurrent);
#ifndef __SANITIZE_ADDRESS__
    for (int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL})
        std::signal(signal, SaveCurrent);
#endif
}

static void Run(const std::string& input)
{
    static const unsigned longestSeconds = 120; // of one input, on a busy machine
    current = input;
    ++runs;
    alarm(longestSeconds);
    // In memory of its own size, so that the sanitizer sees a byte read too many.
    const std::vector<uint8_t> bytes(input.begin(), input.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    alarm(0);
}

// ---- Mutations

static std::mt19937 randomNumbers;
static std::vector<std::string> seeds;
static std::vector<std::string> words;

static size_t Below(size_t range)
{
    return range == 0 ? 0 : randomNumbers() % range;
}

static std::string InterestingNumber()
{
    static const uint32_t numbers[] = {0,     1,     2,          4,          16,         127,
                                       128,   255,   256,        1000,       32767,      32768,
                                       65535, 65536, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
    const uint32_t number = numbers[Below(std::size(numbers))];
    if (Below(3) == 0)
        return std::to_string(int32_t(number));
    std::string bytes;
    const int length = 1 << Below(3);
    for (int i = 0; i < length; ++i)
        bytes += char(number >> (8 * i) & 255);
    return Below(2) == 0 ? bytes : std::string(bytes.rbegin(), bytes.rend());
}

static void Overwrite(std::string* input, const std::string& with)
{
    const size_t at = Below(input->size());
    input->replace(at, with.size(), with);
}

static void Mutate(std::string* input)
{
    const std::string& other = seeds[Below(seeds.size())];
    const size_t at = Below(input->size() + 1);
    const size_t length = 1 + Below(Below(2) == 0 ? 4 : input->size() / 2 + 1);
    switch (Below(9)) {
    case 0:
        if (!input->empty())
            (*input)[Below(input->size())] ^= char(1 << Below(8));
        break;
    case 1:
        if (!input->empty())
            (*input)[Below(input->size())] = char(Below(256));
        break;
    case 2:
        Overwrite(input, InterestingNumber());
        break;
    case 3:
        input->insert(at, InterestingNumber());
        break;
    case 4:
        input->erase(at, length);
        break;
    case 5:
        input->insert(at, input->substr(Below(input->size()), length));
        break;
    case 6:
        input->replace(at, length, other.substr(Below(other.size()), length));
        break;
    case 7:
        if (!words.empty())
            input->insert(at, words[Below(words.size())]);
        break;
    case 8:
        if (!words.empty())
            Overwrite(input, words[Below(words.size())]);
        break;
    }
    if (input->size() > maxInput)
        input->resize(maxInput);
}

// ---- The command line

static std::string ReadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

// In the order of their names: a folder has none of its own.
static std::vector<std::string> FilesOf(const std::string& path)
{
    namespace fs = std::filesystem;
    std::vector<std::string> files;
    if (!fs::is_directory(path)) {
        files.push_back(path);
        return files;
    }
    for (const fs::directory_entry& entry : fs::directory_iterator(path))
        if (entry.is_regular_file())
            files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

static std::string Unescape(const std::string& text)
{
    std::string bytes;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            bytes += text[i];
        } else if (text[++i] == 'x' && i + 2 < text.size() + 1) {
            bytes += char(strtol(text.substr(i + 1, 2).c_str(), nullptr, 16));
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

static void ReadDictionary(const std::string& path)
{
    std::ifstream file(path);
    std::string line;
    while (std::getline(file, line)) {
        const size_t first = line.find('"');
        const size_t last = line.rfind('"');
        if (line[0] != '#' && first < last)
            words.push_back(Unescape(line.substr(first + 1, last - first - 1)));
    }
}

static bool TakesOption(const std::string& argument, const std::string& name, std::string* value)
{
    if (argument.compare(0, name.size(), name) != 0)
        return false;
    *value = argument.substr(name.size());
    return true;
}

int main(int count, char** arguments)
{
    long wantedRuns = -1;
    long seconds = 0;
    std::string value;
    artifactPath = "crash-" + std::filesystem::path(arguments[0]).filename().string() + "-";
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        if (TakesOption(argument, "-runs=", &value))
            wantedRuns = atol(value.c_str());
        else if (TakesOption(argument, "-max_total_time=", &value))
            seconds = atol(value.c_str());
        else if (TakesOption(argument, "-seed=", &value))
            randomNumbers.seed(uint32_t(atol(value.c_str())));
        else if (TakesOption(argument, "-dict=", &value))
            ReadDictionary(value);
        else if (TakesOption(argument, "-artifact_prefix=", &value))
            artifactPath = value + artifactPath;
        else if (argument[0] != '-')
            for (const std::string& path : FilesOf(argument))
                seeds.push_back(ReadFile(path));
    }
    CatchSignals();
    for (const std::string& seed : seeds)
        Run(seed);
    if (seeds.empty())
        seeds.push_back("");

    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while ((wantedRuns < 0 || runs < wantedRuns) &&
           (seconds == 0 || std::chrono::steady_clock::now() < end)) {
        std::string input = seeds[Below(seeds.size())];
        for (size_t mutations = 1 + Below(5); mutations > 0; --mutations)
            Mutate(&input);
        Run(input);
    }
    printf("%ld runs of %zu seeds and what came of them\n", runs, seeds.size());
    return 0;
}
