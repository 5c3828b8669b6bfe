// SPDX-License-Identifier: MIT
// Makes a locale with a decimal comma, since a machine may have none installed.
//
//     ASSERT_EQ("", MakeCommaLocale(folder));
//     setenv("LOCPATH", folder.c_str(), 1);
//     ASSERT_NE(nullptr, setlocale(LC_NUMERIC, "comma"));
#pragma once

#include <string>

// Writes the locale to folder/comma. It has numbers alone, so setlocale accepts it only for LC_NUMERIC.
// Returns an error message, empty on success.
std::string MakeCommaLocale(const std::string& folder);
