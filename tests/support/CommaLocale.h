// SPDX-License-Identifier: MIT
// A locale in which 0.5 reads "0,5", made on the spot: a machine may know none.
//
//     ASSERT_EQ("", MakeCommaLocale(folder));
//     setenv("LOCPATH", folder.c_str(), 1);
//     ASSERT_NE(nullptr, setlocale(LC_NUMERIC, "comma"));
#pragma once

#include <string>

// Writes it into folder/comma, numbers alone: setlocale takes it for LC_NUMERIC and for nothing else. Returns
// what went wrong, or nothing.
std::string MakeCommaLocale(const std::string& folder);
