// SPDX-License-Identifier: MIT
#include "tests/support/CommaLocale.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

// A bare machine has localedef, which belongs to the C library, but neither the sources of any locale nor
// character maps. So it gets both from here, as short as it takes them: numbers, and 128 characters.
static const char* const characters = "<code_set_name> ASCII\n"
                                      "<mb_cur_min> 1\n"
                                      "<mb_cur_max> 1\n"
                                      "CHARMAP\n"
                                      "<U0000>..<U007F> /x00 all of them\n"
                                      "END CHARMAP\n";
static const char* const numbers = "comment_char %\n"
                                   "escape_char /\n"
                                   "LC_NUMERIC\n"
                                   "decimal_point \",\"\n"
                                   "thousands_sep \".\"\n"
                                   "grouping 3\n"
                                   "END LC_NUMERIC\n";

std::string MakeCommaLocale(const std::string& folder)
{
    const std::string locale = folder + "/comma";
    const std::string complaints = folder + "/complaints.txt";
    std::ofstream(folder + "/comma.map") << characters;
    std::ofstream(folder + "/comma.src") << numbers;
    // --force: localedef complains, in its exit status too, of everything that this locale lacks. Only the file that it
    // writes counts.
    const int status = system(("LC_ALL=C localedef --force --no-archive -f '" + folder + "/comma.map' -i '" +
                               folder + "/comma.src' '" + locale + "' >'" + complaints + "' 2>&1")
                                  .c_str());
    if (std::filesystem::exists(locale + "/LC_NUMERIC"))
        return "";
    std::ifstream stream(complaints);
    return "localedef ended with " + std::to_string(status) + ": " +
           std::string(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
}
