// SPDX-License-Identifier: MIT
// Random scripts, good and broken ones. The same seed gives the same scripts.
#pragma once

#include <random>
#include <string>
#include <vector>

class RandomScript
{
public:
    // The names that the script may use; it also uses unknown ones.
    RandomScript(unsigned seed, std::vector<std::string> effectNames, std::vector<std::string> messageNames,
                 int longestMs = 20000);

    // Well-formed blocks with values of all kinds; messy: with junk, missing ends, repeated and unknown keys,
    // comments and blanks in all places.
    std::string Write(int blocks, bool messy);

    // The script with some bytes changed, removed, doubled or moved.
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
