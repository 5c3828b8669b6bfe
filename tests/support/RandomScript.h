// SPDX-License-Identifier: MIT
// Scripts that nobody would write, the same ones for the same seed.
#pragma once

#include <random>
#include <string>
#include <vector>

class RandomScript
{
public:
    // The names that the script may use, besides some that nobody knows.
    RandomScript(unsigned seed, std::vector<std::string> effectNames, std::vector<std::string> messageNames,
                 int longestMs = 20000);

    // Well-formed blocks with values of all kinds; messy: with junk, missing ends, repeated and unknown keys,
    // comments and blanks in all places.
    std::string Write(int blocks, bool messy);

    // Some bytes changed, left out, doubled or put elsewhere.
    std::string Mutate(std::string text);
    std::string Bytes(size_t count);

    unsigned Below(unsigned bound); // 0 to bound - 1
    bool OneIn(unsigned times);

private:
    std::string Pick(const std::vector<std::string>& words);
    std::string Number();
    std::string List(int most, bool whole);
    void Block(std::string* text);
    void Add(std::string* text, const std::string& key, const std::string& value);

    std::mt19937 random;
    std::vector<std::string> effects;
    std::vector<std::string> messages;
    int longest;
    bool isMessy;
};
