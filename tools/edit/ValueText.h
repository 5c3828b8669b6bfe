// SPDX-License-Identifier: MIT
// Values as they are written into a script so that the reader takes them as they are meant.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace edit
{

// The largest whole number that the reader takes as it stands.
const uint32_t MaxNumber = 2147483647;

// The most messages that a Steps group may ask for: the show makes them all before it starts.
const uint32_t MaxSteps = 20000;

// Writes a list of parameters so that the reader, which drops its last character, still reads every number: "12" becomes
// "12.00", "1.50,2.5" becomes "1.50,2.50". A list that loses nothing stays as it is.
std::string WithoutLoss(const std::string& parameters);

// Makes what a person typed into the value of a key: blanks around it and around commas go, parameters get
// what WithoutLoss adds. False: the key can't hold that; *reason says why in a sentence. *value is never empty
// then.
bool MakeValue(const std::string& key, const std::string& typed, std::string* value, std::string* reason);

// The items of a list, one more than it has commas; and back.
std::vector<std::string> SplitList(const std::string& list);
std::string JoinList(const std::vector<std::string>& items);

} // namespace edit
